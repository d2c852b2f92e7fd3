#include "host/embedded/instruments/InstrumentStore.h"

#include "host/WB/TextConversion.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include <unordered_map>

namespace TC::embedded {

namespace {

constexpr int kSchemaVersion = 1;

/// A connection to one SQLite file, closed and forgotten at its end.
class Connection
{
public:
    explicit Connection(const QString& path)
        : m_name(QStringLiteral("instruments-") + QUuid::createUuid().toString())
        , m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name))
    {
        m_database.setDatabaseName(path);
        m_database.open();
    }
    ~Connection()
    {
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    QSqlDatabase& database() { return m_database; }

    bool run(const QString& statement) { return QSqlQuery(m_database).exec(statement); }

private:
    QString m_name;
    QSqlDatabase m_database;
};

bool makeTables(Connection& connection)
{
    return connection.run(
               QStringLiteral("CREATE TABLE instrument (market TEXT NOT NULL, code TEXT NOT NULL, name TEXT, "
                              "kind TEXT, price_tick REAL, PRIMARY KEY (market, code))"))
        && connection.run(
            QStringLiteral("CREATE TABLE figure (market TEXT NOT NULL, code TEXT NOT NULL, field INTEGER, "
                           "value REAL, synthetic INTEGER, PRIMARY KEY (market, code, field))"));
}

bool fillTables(Connection& connection, const std::vector<ttservice::CInstrumentDetail>& instruments)
{
    QSqlQuery row(connection.database()), figure(connection.database());
    row.prepare(QStringLiteral("INSERT INTO instrument VALUES (?, ?, ?, ?, ?)"));
    figure.prepare(QStringLiteral("INSERT INTO figure VALUES (?, ?, ?, ?, 1)"));
    for (const ttservice::CInstrumentDetail& instrument : instruments) {
        row.bindValue(0, WB::sToQs(instrument.market));
        row.bindValue(1, WB::sToQs(instrument.code));
        row.bindValue(2, WB::sToQs(instrument.name));
        row.bindValue(3, WB::sToQs(instrument.kind));
        row.bindValue(4, instrument.priceTick);
        if (!row.exec())
            return false;
        for (const auto& [field, value] : instrument.figures) {
            figure.bindValue(0, WB::sToQs(instrument.market));
            figure.bindValue(1, WB::sToQs(instrument.code));
            figure.bindValue(2, field);
            figure.bindValue(3, value);
            if (!figure.exec())
                return false;
        }
    }
    return true;
}

/// Makes the whole store in one transaction: a start that is cut short leaves none behind.
bool makeStore(const QString& path, const std::vector<ttservice::CInstrumentDetail>& instruments)
{
    Connection connection(path);
    if (!connection.database().transaction())
        return false;
    const bool made = makeTables(connection) && fillTables(connection, instruments)
        && connection.run(QStringLiteral("PRAGMA user_version = %1").arg(kSchemaVersion));
    return made ? connection.database().commit() : (connection.database().rollback(), false);
}

/// Reads the whole store; empty when it is missing, damaged, or of another version.
std::vector<ttservice::CInstrumentDetail> readStore(const QString& path)
{
    std::vector<ttservice::CInstrumentDetail> instruments;
    Connection connection(path);
    QSqlQuery query(connection.database());
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("PRAGMA user_version")) || !query.next()
        || query.value(0).toInt() != kSchemaVersion)
        return instruments;

    std::unordered_map<std::string, std::size_t> places;
    if (!query.exec(QStringLiteral("SELECT market, code, name, kind, price_tick FROM instrument")))
        return instruments;
    while (query.next()) {
        ttservice::CInstrumentDetail instrument;
        instrument.market = WB::qsToS(query.value(0).toString());
        instrument.code = WB::qsToS(query.value(1).toString());
        instrument.name = WB::qsToS(query.value(2).toString());
        instrument.kind = WB::qsToS(query.value(3).toString());
        instrument.priceTick = query.value(4).toDouble();
        places.emplace(instrument.market + '/' + instrument.code, instruments.size());
        instruments.push_back(instrument);
    }
    if (!query.exec(QStringLiteral("SELECT market, code, field, value FROM figure")))
        return {};
    while (query.next()) {
        const auto place =
            places.find(WB::qsToS(query.value(0).toString()) + '/' + WB::qsToS(query.value(1).toString()));
        if (place != places.end())
            instruments[place->second].figures[query.value(2).toInt()] = query.value(3).toDouble();
    }
    return instruments;
}

} // namespace

std::vector<ttservice::CInstrumentDetail> loadInstrumentStore(const QString& path)
{
    if (QFile::exists(path)) {
        std::vector<ttservice::CInstrumentDetail> instruments = readStore(path);
        if (!instruments.empty())
            return instruments;
        const QString aside = path + QStringLiteral(".bad");
        QFile::remove(aside);
        QFile::rename(path, aside);
    }
    const std::vector<ttservice::CInstrumentDetail> listed = listedInstruments();
    makeStore(path, listed);
    return listed;
}

} // namespace TC::embedded
