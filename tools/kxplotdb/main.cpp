// kxplot-db: asks a database for kxplot. Standard input holds the database and, behind a zero, the query, so
// that a password is in no list of processes; standard output gets what wire.h writes.

#include "kxplot/database/wire.h"

#include <kxgraph/qtsql/Kxqtsqldataset.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace kxplot;

/// Columns are read record by record.
class TColumnOfField {
public:
    explicit TColumnOfField(const kx::TField& Field) : FField(Field) {
        FColumn.Header = Field.GetFieldName();
        FColumn.Kind = Field.GetDataType() == kx::ftText ? kx::TKxColumnKind::Texts
                       : Field.IsDate()                  ? kx::TKxColumnKind::Dates
                                                         : kx::TKxColumnKind::Numbers;
    }
    void Add() {
        const bool isBlank = FField.IsBlank();
        FHasValues |= !isBlank;
        if (FColumn.Kind == kx::TKxColumnKind::Texts)
            FColumn.Texts.push_back(FField.GetAsString());
        else
            FColumn.Values.push_back(isBlank ? NAN : FField.GetAsFloat());
    }
    kx::TKxGivenColumn Take() {
        if (!FHasValues) FColumn.Kind = kx::TKxColumnKind::Empty;
        return std::move(FColumn);
    }

private:
    const kx::TField& FField;
    kx::TKxGivenColumn FColumn;
    bool FHasValues = false;
};

TAnswerOfDatabase Ask(const std::string& Url, const std::string& Query) {
    kx::qt::TQtSqlDataSet set(nullptr);
    set.SetDatabase(Url);
    set.SetQuery(Query);
    set.Open();
    std::vector<TColumnOfField> columns;
    columns.reserve(std::size_t(set.GetFieldCount()));
    for (int i = 0; i < set.GetFieldCount(); ++i) columns.emplace_back(set.GetField(i));
    for (; !set.GetEof(); set.Next())
        for (auto& column : columns) column.Add();
    TAnswerOfDatabase answer;
    for (auto& column : columns) answer.Columns.push_back(column.Take());
    return answer;
}

} // namespace

int main(int Count, char** Arguments) {
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) {}); // the answer tells all
    const QCoreApplication application(Count, Arguments);
    const std::string said{std::istreambuf_iterator<char>(std::cin), {}};
    const auto zero = std::min(said.find('\0'), said.size());
    TAnswerOfDatabase answer;
    try {
        answer = Ask(said.substr(0, zero), said.substr(std::min(zero + 1, said.size())));
    } catch (const std::exception& error) {
        answer.Failure = error.what();
    }
    const std::string text = ToWire(answer);
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0 ? 0
                                                                                                       : 1;
}
