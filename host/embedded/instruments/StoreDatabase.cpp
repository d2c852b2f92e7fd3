// SPDX-License-Identifier: MIT
#include "host/embedded/instruments/StoreDatabase.h"

#include "host/WB/TextConversion.h"

#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace TC::embedded {

namespace {

constexpr int kSchemaVersion = 1;
constexpr qint64 kLargestFile = qint64 { 256 } << 20; // bytes; a store of the list alone has 1 MiB
constexpr const char* kTables[][2] = {
    { "instrument",
      "CREATE TABLE instrument (market TEXT NOT NULL, code TEXT NOT NULL, name TEXT, "
      "kind TEXT, price_tick REAL, PRIMARY KEY (market, code))" },
    { "figure",
      "CREATE TABLE figure (market TEXT NOT NULL, code TEXT NOT NULL, field INTEGER, "
      "value REAL, synthetic INTEGER, PRIMARY KEY (market, code, field))" },
};

/// A connection to one SQLite file, closed and forgotten at its end.
class Connection
{
public:
    explicit Connection(const QString& path)
        : m_name(QStringLiteral("instruments-") + QUuid::createUuid().toString())
        , m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name))
    {
        m_database.setDatabaseName(path);
        m_database.setConnectOptions(
            QStringLiteral("QSQLITE_BUSY_TIMEOUT=1000")); // ms; making a store takes 200
        if (!m_database.open())
            m_error = m_database.lastError();
    }
    ~Connection()
    {
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    QSqlQuery query() const
    {
        QSqlQuery made(m_database);
        made.setForwardOnly(true);
        return made;
    }
    bool run(const QString& statement)
    {
        QSqlQuery made = query();
        return made.exec(statement) || noteFailure(made);
    }
    /// The first value of the first row; null when there is none.
    QVariant ask(const QString& statement)
    {
        QSqlQuery made = query();
        if (!made.exec(statement))
            noteFailure(made);
        QVariant answer = made.next() ? made.value(0) : QVariant();
        noteFailure(made);
        return answer;
    }
    /// Keeps the first error. @return false.
    bool noteFailure(const QSqlQuery& failed)
    {
        if (m_error.type() == QSqlError::NoError)
            m_error = failed.lastError();
        return false;
    }

    bool hasFailed() const { return m_error.type() != QSqlError::NoError; }
    QString reason() const { return m_error.databaseText() + m_error.driverText(); }
    /// Whether the error says that the content is wrong, and not that it could not be looked at.
    bool foundDamage() const
    {
        constexpr int error = 1, corrupt = 11, notADatabase = 26;  // result codes of SQLite
        const int code = m_error.nativeErrorCode().toInt() & 0xff; // without its extension
        return code == error || code == corrupt || code == notADatabase;
    }

private:
    QString m_name;
    QSqlDatabase m_database;
    QSqlError m_error;
};

/// Whether a text is one, without control characters and without what stands for bytes that are no
/// characters.
bool isSoundText(const QVariant& value)
{
    const QString text = value.toString();
    return value.userType() == QMetaType::QString
        && std::none_of(text.begin(), text.end(), [](QChar character) {
               return character < QLatin1Char(' ') || character == QChar::ReplacementCharacter;
           });
}

bool isSoundNumber(const QVariant& value)
{
    return (value.userType() == QMetaType::Double || value.userType() == QMetaType::LongLong)
        && std::isfinite(value.toDouble());
}

std::string keyOf(const std::string& market, const std::string& code)
{
    return market + '/' + code;
}

/// Reads the rows of both tables. @return whether every row makes sense.
bool readRows(Connection& connection, Instruments& instruments)
{
    std::unordered_map<std::string, std::size_t> places;
    QSqlQuery row = connection.query();
    row.exec(QStringLiteral("SELECT market, code, coalesce(name, ''), coalesce(kind, ''), "
                            "coalesce(price_tick, 0.0) FROM instrument"));
    while (row.next()) {
        for (int text = 0; text < 4; ++text) {
            if (!isSoundText(row.value(text)) || (text < 2 && row.value(text).toString().isEmpty()))
                return false;
        }
        ttservice::CInstrumentDetail instrument;
        instrument.market = WB::qsToS(row.value(0).toString());
        instrument.code = WB::qsToS(row.value(1).toString());
        instrument.name = WB::qsToS(row.value(2).toString());
        instrument.kind = WB::qsToS(row.value(3).toString());
        instrument.priceTick = row.value(4).toDouble();
        if (!isSoundNumber(row.value(4)) || instrument.priceTick < 0.0)
            return false;
        places.emplace(keyOf(instrument.market, instrument.code), instruments.size());
        instruments.push_back(instrument);
    }
    connection.noteFailure(row);

    QSqlQuery figure = connection.query();
    figure.exec(QStringLiteral("SELECT market, code, field, value FROM figure"));
    while (figure.next()) {
        if (!isSoundNumber(figure.value(2)) || !isSoundNumber(figure.value(3)))
            return false;
        const auto place =
            places.find(keyOf(WB::qsToS(figure.value(0).toString()), WB::qsToS(figure.value(1).toString())));
        if (place != places.end())
            instruments[place->second].figures[figure.value(2).toInt()] = figure.value(3).toDouble();
    }
    connection.noteFailure(figure);
    return true;
}

/// Whether the tables are those that addToStore() makes, so that no statement of another's runs here.
bool hasItsTables(Connection& connection)
{
    for (const auto& [name, statement] : kTables) {
        const QVariant made = connection.ask(
            QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = '%1'")
                .arg(QLatin1String(name)));
        if (made.toString() != QLatin1String(statement))
            return false;
    }
    return true;
}

StoreContents contents(Connection& connection)
{
    StoreContents found { StoreContents::Damaged, {}, QString() };
    const QString check = connection.ask(QStringLiteral("PRAGMA integrity_check(1)")).toString();
    const int version = connection.ask(QStringLiteral("PRAGMA user_version")).toInt();
    const int objects = connection.ask(QStringLiteral("SELECT count(*) FROM sqlite_master")).toInt();
    if (check != QStringLiteral("ok"))
        found.reason = check;
    else if (version == 0 && objects == 0)
        found.state = StoreContents::Empty;
    else if (version > kSchemaVersion)
        found = { StoreContents::Unreadable, {}, QStringLiteral("version %1").arg(version) };
    else if (version != kSchemaVersion || !hasItsTables(connection)
             || !readRows(connection, found.instruments))
        found.reason = QStringLiteral("not an instrument store");
    else
        found.state = StoreContents::Sound;
    return found;
}

bool addRows(Connection& connection, const Instruments& instruments)
{
    QSqlQuery row = connection.query(), figure = connection.query();
    row.prepare(QStringLiteral("INSERT OR IGNORE INTO instrument VALUES (?, ?, ?, ?, ?)"));
    figure.prepare(QStringLiteral("INSERT OR IGNORE INTO figure VALUES (?, ?, ?, ?, 1)"));
    for (const ttservice::CInstrumentDetail& instrument : instruments) {
        row.bindValue(0, WB::sToQs(instrument.market));
        row.bindValue(1, WB::sToQs(instrument.code));
        row.bindValue(2, WB::sToQs(instrument.name));
        row.bindValue(3, WB::sToQs(instrument.kind));
        row.bindValue(4, instrument.priceTick);
        if (!row.exec())
            return connection.noteFailure(row);
        for (const auto& [field, value] : instrument.figures) {
            figure.bindValue(0, WB::sToQs(instrument.market));
            figure.bindValue(1, WB::sToQs(instrument.code));
            figure.bindValue(2, field);
            figure.bindValue(3, value);
            if (!figure.exec())
                return connection.noteFailure(figure);
        }
    }
    return true;
}

bool makeTables(Connection& connection)
{
    if (connection.ask(QStringLiteral("PRAGMA user_version")).toInt() == kSchemaVersion)
        return true;
    for (const auto& table : kTables) {
        if (!connection.run(QString::fromLatin1(table[1])))
            return false;
    }
    return connection.run(QStringLiteral("PRAGMA user_version = %1").arg(kSchemaVersion));
}

} // namespace

StoreContents readStore(const QString& path)
{
    const QFileInfo file(path);
    if (!file.isFile())
        return { StoreContents::Unreadable, {}, QStringLiteral("not an ordinary file") };
    if (file.size() > kLargestFile)
        return { StoreContents::Damaged, {}, QStringLiteral("%1 bytes").arg(file.size()) };
    Connection connection(path);
    StoreContents found;
    if (!connection.hasFailed())
        found = contents(connection);
    if (connection.hasFailed())
        found = { connection.foundDamage() ? StoreContents::Damaged : StoreContents::Unreadable,
                  {},
                  connection.reason() };
    return found;
}

QString addToStore(const QString& path, const Instruments& instruments)
{
    Connection connection(path);
    if (connection.hasFailed() || !connection.run(QStringLiteral("BEGIN IMMEDIATE")))
        return connection.reason();
    const bool isAdded = makeTables(connection) && addRows(connection, instruments)
        && connection.run(QStringLiteral("COMMIT"));
    if (isAdded)
        return QString();
    connection.run(QStringLiteral("ROLLBACK"));
    return connection.reason();
}

} // namespace TC::embedded
