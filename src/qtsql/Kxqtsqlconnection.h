#pragma once
// A connection to a database, and what is said when it fails.

#include <kxgraph/platform/data/dataset.h>

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <string>

namespace kx::qt {

/// Open as long as it lives. Queries must be gone before. All of it raises EDataSetError: one line that
/// begins with the name of the database.
class TConnection {
public:
    /// See TQtSqlDataSet.
    explicit TConnection(const std::string& Url);
    ~TConnection();
    TConnection(const TConnection&) = delete;
    TConnection& operator=(const TConnection&) = delete;

    QSqlDatabase Database() const { return QSqlDatabase::database(FName, false); }
    bool IsSqlite() const { return FIsSqlite; }
    /// A statement of the user as it stands. AtOnce: each record once, in order; there is then no telling
    /// which tables they come from.
    QSqlQuery Run(const QString& Statement, bool AtOnce) const;
    /// One of ours, with a value for each '?'.
    QSqlQuery Run(const QString& Statement, const QVariantList& Values) const;
    [[noreturn]] void Fail(const std::string& What) const;
    [[noreturn]] void Fail(const QSqlError& Error) const;

private:
    void Open();

    QString FName; // of the connection
    std::string FShown;
    bool FIsSqlite = false;
};

} // namespace kx::qt
