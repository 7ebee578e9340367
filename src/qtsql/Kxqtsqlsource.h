#pragma once
// A query that was run: its records, and how they are changed in the table that they come from.

#include <kxgraph/qtsql/Kxqtsqlcolumn.h>
#include <kxgraph/qtsql/Kxqtsqlconnection.h>

#include <QSqlRecord>
#include <QStringList>

#include <string>
#include <vector>

namespace kx::qt {

/// One field of the query.
struct TQueryField {
    QString Name;
    TFieldType Type = ftText;
    bool IsColumn = false; ///< of the table
    TColumnFacts Facts;
};

class TQuerySource {
public:
    /// Runs the query and reads all its records. Raises EDataSetError.
    TQuerySource(const std::string& Url, const std::string& Query);

    const std::vector<TQueryField>& Fields() const { return FFields; }
    /// To be called once.
    std::vector<TRecordStore::TColumn> TakeColumns() { return std::move(FColumns); }
    /// Indices of the fields that tell a record from all others.
    const std::vector<int>& Key() const { return FKey; }
    /// Raises EDataSetError where records cannot be changed.
    void CheckCanModify() const;

    // Raise EDataSetError, also where the record is not there any more. The first two return what the record
    // holds then, a value a field: nothing in those that are no columns.
    std::vector<TFieldValue> Update(const std::vector<TFieldValue>& Key, const TChangedValues& Values) const;
    std::vector<TFieldValue> Insert(const TChangedValues& Values) const;
    void Delete(const std::vector<TFieldValue>& Key) const;

private:
    void Read(QSqlQuery& Query);
    void FindTable(const std::string& Query);
    bool FindKey();
    QString Quoted(int Field) const;
    QVariant Bound(int Field, const TFieldValue& Value) const;
    QString WhereKey(const std::vector<TFieldValue>& Key, QVariantList& Values) const;
    QString Returning() const;
    std::vector<TFieldValue> Stored(QSqlQuery Query) const;
    [[noreturn]] void FailGone() const;

    TConnection FConnection;
    std::vector<TQueryField> FFields;
    std::vector<TRecordStore::TColumn> FColumns;
    QString FTable;      // as it is written in the query
    std::string FReason; // why records cannot be changed; empty: they can
    std::vector<int> FKey;
};

} // namespace kx::qt
