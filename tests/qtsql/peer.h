#pragma once
// Another client of a database than the one that is tested.

#include "support/testing.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUrl>
#include <QVariant>

namespace kx::qt {

/// Looks into a database and changes it, past what is tested. Without a statement it only makes the file.
class TPeer {
public:
    explicit TPeer(const std::string& Url) {
        const QUrl url(QString::fromStdString(Url));
        const bool isSqlite = url.scheme() == "sqlite";
        QSqlDatabase database = QSqlDatabase::addDatabase(isSqlite ? "QSQLITE" : "QPSQL", "peer");
        database.setDatabaseName(isSqlite ? QString::fromStdString(Url.substr(7)) : url.path().mid(1));
        database.setHostName(url.host());
        database.setPort(url.port());
        database.setUserName(url.userName());
        database.setPassword(url.password());
        EXPECT_TRUE(database.open()) << database.lastError().text().toStdString();
    }
    ~TPeer() { QSqlDatabase::removeDatabase("peer"); }

    /// All values of what a statement gives.
    std::string Run(const std::string& Statement) {
        QSqlQuery query(QSqlDatabase::database("peer"));
        std::string all;
        for (const QString& one : QString::fromStdString(Statement).split(';', Qt::SkipEmptyParts)) {
            EXPECT_TRUE(query.exec(one)) << query.lastError().text().toStdString();
            while (query.next())
                for (int i = 0; i < query.record().count(); ++i)
                    all += (query.isNull(i) ? "-" : query.value(i).toString().toStdString()) + " ";
        }
        return all;
    }
};

} // namespace kx::qt
