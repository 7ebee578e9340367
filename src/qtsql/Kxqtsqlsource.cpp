#include <kxgraph/qtsql/Kxqtsqlsource.h>

#include <kxgraph/qtsql/Kxqtsqlscan.h>

#include <QSqlDriver>
#include <QSqlField>
#include <QSqlIndex>

#include <algorithm>
#include <utility>

namespace kx::qt {

// The driver of PostgreSQL tells which tables values come from only where all records are fetched together.
TQuerySource::TQuerySource(const std::string& Url, const std::string& Query) : FConnection(Url) {
    if (Query.find_first_not_of(" \t\r\n;") == Query.npos) FConnection.Fail("there is no query");
    QSqlQuery query = FConnection.Run(QString::fromStdString(Query), FConnection.IsSqlite());
    if (!query.isSelect()) FConnection.Fail("the query gives no records");
    Read(query);
    query.finish();
    FindTable(Query);
}

namespace {

constexpr int CInstant = 1184; // PostgreSQL's number of the type of moments with a zone

} // namespace

void TQuerySource::Read(QSqlQuery& Query) {
    const QSqlRecord record = Query.record();
    const bool isSqlite = FConnection.IsSqlite();
    std::vector<TColumnReader> readers;
    for (int i = 0; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        const TColumnFacts facts{!isSqlite && field.typeID() == CInstant, isSqlite, field.metaType()};
        FFields.push_back({field.name(), ftText, !field.tableName().isEmpty(), facts});
        readers.emplace_back(facts);
    }
    while (Query.next())
        for (std::size_t i = 0; i < readers.size(); ++i) readers[i].Add(Query.value(int(i)));
    if (Query.lastError().isValid()) FConnection.Fail(Query.lastError());
    for (std::size_t i = 0; i < readers.size(); ++i) {
        FColumns.push_back(readers[i].Take());
        FFields[i].Type = readers[i].GetType();
    }
}

void TQuerySource::FindTable(const std::string& Query) {
    const TOneTable one = OneTableOf(Query);
    FReason = one.Reason;
    if (!FReason.empty()) return;
    FTable = QString::fromStdString(one.Table);
    const QSqlRecord table = FConnection.Database().record(FTable);
    for (TQueryField& field : FFields) field.IsColumn = field.IsColumn && table.contains(field.Name);
    if (!FindKey()) FReason = "it does not give a primary key of the table " + one.Table;
}

bool TQuerySource::FindKey() {
    const QSqlIndex key = FConnection.Database().primaryIndex(FTable);
    for (int i = 0; i < key.count(); ++i) {
        const auto field = std::ranges::find_if(FFields, [&](const TQueryField& Field) {
            return Field.IsColumn && Field.Name.compare(key.fieldName(i), Qt::CaseInsensitive) == 0;
        });
        if (field == FFields.end()) return false;
        FKey.push_back(int(field - FFields.begin()));
    }
    return !FKey.empty();
}

void TQuerySource::CheckCanModify() const {
    if (!FReason.empty()) FConnection.Fail("the records of this query cannot be changed: " + FReason);
}

QString TQuerySource::Quoted(int Field) const {
    return FConnection.Database().driver()->escapeIdentifier(FFields[std::size_t(Field)].Name,
                                                             QSqlDriver::FieldName);
}

/// Dates as texts, which both databases take.
QVariant TQuerySource::Bound(int Field, const TFieldValue& Value) const {
    const TQueryField& field = FFields[std::size_t(Field)];
    const auto text = [&](TFieldType To) {
        return QString::fromStdString(std::get<std::string>(*Converted(Value, To, ftText)));
    };
    if (Value.index() == 0) return QVariant(field.Facts.Declared);
    if (field.Type == ftDate || field.Type == ftDateTime || field.Type == ftText) return text(field.Type);
    if (const auto* number = std::get_if<double>(&Value)) return *number;
    const auto whole = std::get<std::int64_t>(Value);
    return field.Facts.Declared.id() == QMetaType::Bool ? QVariant(whole != 0) : QVariant(qlonglong(whole));
}

QString TQuerySource::WhereKey(const std::vector<TFieldValue>& Key, QVariantList& Values) const {
    QStringList terms;
    for (std::size_t i = 0; i < FKey.size(); ++i) {
        terms << Quoted(FKey[i]) + QStringLiteral(" = ?");
        Values << Bound(FKey[i], Key[i]);
    }
    return QStringLiteral(" WHERE ") + terms.join(QStringLiteral(" AND "));
}

QString TQuerySource::Returning() const {
    QStringList names;
    for (std::size_t i = 0; i < FFields.size(); ++i)
        if (FFields[i].IsColumn) names << Quoted(int(i));
    return QStringLiteral(" RETURNING ") + names.join(u',');
}

/// What does not fit the field any more is left as it was given.
std::vector<TFieldValue> TQuerySource::Stored(QSqlQuery Query) const {
    if (!Query.next()) FailGone();
    std::vector<TFieldValue> values(FFields.size());
    int column = 0;
    for (std::size_t i = 0; i < FFields.size(); ++i) {
        const TQueryField& field = FFields[i];
        if (!field.IsColumn) continue;
        const TTypedValue value = ValueOf(Query.value(column++), field.Facts);
        if (auto fitting = Converted(value.Value, value.Type, field.Type)) values[i] = std::move(*fitting);
    }
    return values;
}

void TQuerySource::FailGone() const { FConnection.Fail("the record is not in the table any more"); }

std::vector<TFieldValue> TQuerySource::Update(const std::vector<TFieldValue>& Key,
                                              const TChangedValues& Values) const {
    QStringList terms;
    QVariantList bound;
    for (const auto& [field, value] : Values) {
        terms << Quoted(field) + QStringLiteral(" = ?");
        bound << Bound(field, value);
    }
    if (terms.isEmpty()) terms << Quoted(FKey.front()) + QStringLiteral(" = ") + Quoted(FKey.front());
    const QString where = WhereKey(Key, bound);
    return Stored(FConnection.Run(QStringLiteral("UPDATE ") + FTable + QStringLiteral(" SET ") +
                                      terms.join(u',') + where + Returning(),
                                  bound));
}

std::vector<TFieldValue> TQuerySource::Insert(const TChangedValues& Values) const {
    QStringList names, places;
    QVariantList bound;
    for (const auto& [field, value] : Values) {
        names << Quoted(field);
        places << QStringLiteral("?");
        bound << Bound(field, value);
    }
    const QString what = names.isEmpty() ? QStringLiteral(" DEFAULT VALUES")
                                         : QStringLiteral(" (") + names.join(u',') +
                                               QStringLiteral(") VALUES (") + places.join(u',') + u')';
    return Stored(FConnection.Run(QStringLiteral("INSERT INTO ") + FTable + what + Returning(), bound));
}

void TQuerySource::Delete(const std::vector<TFieldValue>& Key) const {
    QVariantList bound;
    const QString where = WhereKey(Key, bound);
    const QSqlQuery query = FConnection.Run(QStringLiteral("DELETE FROM ") + FTable + where, bound);
    if (query.numRowsAffected() != 1) FailGone();
}

} // namespace kx::qt
