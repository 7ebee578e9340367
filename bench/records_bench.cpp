// A million records of a database: read into vectors, beside the loop over the driver that one would write
// instead.

#include <kxgraph/numeric/Kxdbvector.h>
#include <kxgraph/platform/data/datasource.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/qtsql/Kxqtsqldataset.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QVariant>

#include <benchmark/benchmark.h>

#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

using namespace kx;

namespace {

constexpr int CRecords = 1000000;
constexpr const char* CQuery = "select t, u from samples order by t";

/// A file of records of two numbers each, open by the driver itself.
class TSamples {
public:
    TSamples() {
        qt::Install(true);
        FDatabase = QSqlDatabase::addDatabase("QSQLITE", "samples");
        FDatabase.setDatabaseName(FileName());
        if (!FDatabase.open()) throw std::runtime_error("no driver of SQLite: package libqt6sql6-sqlite");
        QSqlQuery query(FDatabase);
        query.exec("create table samples (t real primary key, u real) without rowid");
        FDatabase.transaction();
        query.prepare("insert into samples values (?, ?)");
        for (int i = 0; i < CRecords; ++i) {
            query.bindValue(0, i * 1e-3);
            query.bindValue(1, std::sin(i * 1e-4));
            query.exec();
        }
        FDatabase.commit();
    }
    ~TSamples() {
        FDatabase = {};
        QSqlDatabase::removeDatabase("samples");
    }
    TSamples(const TSamples&) = delete;
    TSamples& operator=(const TSamples&) = delete;

    QString FileName() const { return FDirectory.filePath("samples.db"); }
    QSqlDatabase& Database() { return FDatabase; }

private:
    QTemporaryDir FDirectory;
    QSqlDatabase FDatabase;
};

void RecordsByDriver(benchmark::State& State) {
    TSamples samples;
    for (auto _ : State) {
        std::vector<double> t, u;
        QSqlQuery query(samples.Database());
        query.setForwardOnly(true);
        query.exec(CQuery);
        while (query.next()) {
            t.push_back(query.value(0).toDouble());
            u.push_back(query.value(1).toDouble());
        }
        if (t.size() != CRecords) State.SkipWithError("records are missing");
        benchmark::DoNotOptimize(u.data());
    }
    State.SetItemsProcessed(State.iterations() * CRecords);
}

/// What kxplot does: a data set, and vectors on its fields.
void RecordsByVectors(benchmark::State& State) {
    TSamples samples;
    for (auto _ : State) {
        qt::TQtSqlDataSet set(nullptr);
        TDataSource source(nullptr);
        TKxDBVector t(nullptr), u(nullptr);
        set.SetDatabase("sqlite:" + samples.FileName().toStdString());
        set.SetQuery(CQuery);
        source.SetDataSet(&set);
        for (TKxDBVector* vector : {&t, &u}) vector->SetDataSource(&source);
        t.SetDataField("t");
        u.SetDataField("u");
        set.Open();
        if (t.GetCount() != CRecords || u.GetCount() != CRecords) State.SkipWithError("records are missing");
        benchmark::DoNotOptimize(u.Values().data());
    }
    State.SetItemsProcessed(State.iterations() * CRecords);
}

BENCHMARK(RecordsByDriver)->Unit(benchmark::kMillisecond);
BENCHMARK(RecordsByVectors)->Unit(benchmark::kMillisecond);

} // namespace
