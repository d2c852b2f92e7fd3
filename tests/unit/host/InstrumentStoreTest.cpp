// SPDX-License-Identifier: MIT
#include "host/TC/CStockManager.h"
#include "host/TC/Instruments.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/ChildRun.h"
#include "tests/support/SmallFiles.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"
#include "tests/support/Workbooks.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

namespace {

constexpr int kListed = 5455; // instruments of samples/instruments.csv

TC::CStockManager& manager()
{
    return *utils::CSingletonT<TC::CStockManager>::instance();
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Keys of the compiled-in list.
const QStringList& listedKeys()
{
    static const QStringList keys = [] {
        QStringList read;
        for (const QByteArray& line :
             contentOf(QStringLiteral(SAMPLES_DIR "/instruments.csv")).split('\n').mid(1)) {
            const QList<QByteArray> fields = line.split(',');
            if (fields.size() >= 5)
                read << QString::fromUtf8(fields[0] + fields[1]);
        }
        return read;
    }();
    return keys;
}

/// A user root folder with a store of its own.
class InstrumentStore : public testing::Test
{
protected:
    InstrumentStore()
    {
        TC::embedded::setUserRootDir(m_folder.path());
        TC::embedded::reloadInstruments();
    }

    QString path() const { return TC::embedded::instrumentStorePath(); }

    /// Opens the store anew. @return the notice.
    QString open()
    {
        TC::embedded::reloadInstruments();
        return TC::embedded::instrumentStoreNotice();
    }

    /// How many instruments of the list the look-up does not know.
    static int missing()
    {
        int count = 0;
        for (const QString& key : listedKeys())
            count += manager().getInstrumentDetail(key) ? 0 : 1;
        return count;
    }

    /// What the look-up knows of every instrument of the list, in its order.
    static std::vector<TC::CStockManager::Detail> details()
    {
        std::vector<TC::CStockManager::Detail> known;
        for (const QString& key : listedKeys())
            known.push_back(manager().getInstrumentDetail(key));
        return known;
    }

    QStringList setAside() const
    {
        return QDir(m_folder.path()).entryList({ QStringLiteral("instruments.sqlite.damaged-*") });
    }

    /// Runs a statement on the store with a connection of its own.
    QVariant inStore(const QString& statement) const
    {
        QVariant answer;
        {
            QSqlDatabase database =
                QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("test-store"));
            database.setDatabaseName(path());
            database.open();
            QSqlQuery query(database);
            if (query.exec(statement) && query.next())
                answer = query.value(0);
        }
        QSqlDatabase::removeDatabase(QStringLiteral("test-store"));
        return answer;
    }

    int storedCount() const { return inStore(QStringLiteral("SELECT count(*) FROM instrument")).toInt(); }

    QTemporaryDir m_folder;
};

TEST_F(InstrumentStore, IsMadeOnFirstUseAndReadLater)
{
    ASSERT_EQ(listedKeys().size(), kListed);
    EXPECT_EQ(open(), QString());
    EXPECT_EQ(missing(), 0);
    ASSERT_TRUE(QFile::exists(path()));
    EXPECT_EQ(storedCount(), kListed);

    inStore(QStringLiteral("UPDATE instrument SET name = 'renamed' WHERE code = '600000'"));
    EXPECT_EQ(open(), QString());
    EXPECT_EQ(manager().getInstrumentDetail(QStringLiteral("600000"))->name, "renamed");
}

TEST_F(InstrumentStore, ThatIsDamagedIsKeptAsideAndMadeAgain)
{
    for (int time = 1; time <= 2; ++time) { // twice within a second
        test::writeFile(path(), QByteArray(5000, 'x'));
        const QString notice = open();
        EXPECT_EQ(missing(), 0);
        ASSERT_EQ(setAside().size(), time);
        EXPECT_TRUE(notice.startsWith(QStringLiteral("证券数据库已损坏（"))) << notice.toStdString();
        EXPECT_TRUE(notice.contains(setAside().last())) << notice.toStdString();
        EXPECT_EQ(contentOf(m_folder.filePath(setAside().last())), QByteArray(5000, 'x'));
        EXPECT_EQ(storedCount(), kListed);
    }
    EXPECT_EQ(open(), QString());
}

TEST_F(InstrumentStore, WhoseMakingWasCutShortIsMadeWithoutAWord)
{
    test::writeFile(path(), QByteArray());
    EXPECT_EQ(open(), QString());
    EXPECT_EQ(storedCount(), kListed);
    EXPECT_EQ(setAside(), QStringList());
}

TEST_F(InstrumentStore, ThatLacksInstrumentsIsCompletedAndKeepsItsOwnRows)
{
    open();
    inStore(QStringLiteral("DELETE FROM instrument WHERE code LIKE '6000%'"));
    inStore(QStringLiteral("UPDATE instrument SET name = 'renamed' WHERE code = '000001'"));
    inStore(QStringLiteral("INSERT INTO instrument VALUES ('XX', '1', 'own', 'stock', 0.5)"));
    const int before = storedCount();
    const QString notice = open();
    EXPECT_EQ(notice,
              QStringLiteral("证券数据库缺少 %1 只证券，已由内置的证券列表补全").arg(kListed + 1 - before));
    EXPECT_EQ(missing(), 0);
    EXPECT_EQ(storedCount(), kListed + 1);
    EXPECT_EQ(manager().getInstrumentDetail(QStringLiteral("SZ000001"))->name, "renamed");
    EXPECT_EQ(manager().getInstrumentDetail(QStringLiteral("XX1"))->priceTick, 0.5);
    EXPECT_EQ(open(), QString());
}

TEST_F(InstrumentStore, WhoseTablesAreViewsIsNotRead)
{
    open();
    inStore(QStringLiteral("DROP TABLE figure"));
    inStore(QStringLiteral(
        "CREATE VIEW figure AS WITH RECURSIVE endless(market) AS (SELECT 'SH' UNION ALL SELECT "
        "market FROM endless) SELECT market, '1' AS code, 1 AS field, 1 AS value FROM endless"));
    EXPECT_TRUE(open().startsWith(QStringLiteral("证券数据库已损坏（")));
    EXPECT_EQ(missing(), 0);
}

TEST_F(InstrumentStore, WithARowThatMakesNoSenseIsDamaged)
{
    const char* changes[] = { "UPDATE instrument SET name = 'a' || char(7) WHERE code = '600000'",
                              "UPDATE instrument SET name = x'00FF' WHERE code = '600000'",
                              "UPDATE instrument SET code = '' WHERE code = '600000'",
                              "UPDATE instrument SET price_tick = -0.01 WHERE code = '600000'",
                              "UPDATE instrument SET price_tick = 9e999 WHERE code = '600000'",
                              "UPDATE instrument SET price_tick = 'dear' WHERE code = '600000'",
                              "UPDATE figure SET value = 'much' WHERE code = '600000'",
                              "UPDATE figure SET field = 'which' WHERE code = '600000' AND field = 3015" };
    for (const char* change : changes) {
        EXPECT_EQ(open(), QString());
        inStore(QString::fromUtf8(change));
        EXPECT_TRUE(open().startsWith(QStringLiteral("证券数据库已损坏（not an instrument store），")))
            << change;
        EXPECT_EQ(missing(), 0) << change;
    }
}

TEST_F(InstrumentStore, WithFiguresOfInstrumentsThatItDoesNotHoldIsSound)
{
    open();
    inStore(QStringLiteral("INSERT INTO figure VALUES ('XX', '1', 3015, 5.0, 0)"));
    EXPECT_EQ(open(), QString());
    EXPECT_FALSE(manager().getInstrumentDetail(QStringLiteral("XX1")));
}

TEST_F(InstrumentStore, IsCompletedByTheUsersOwnListWhoseFaultyLinesAreNamed)
{
    const QString list = m_folder.filePath(QStringLiteral("instruments.csv"));
    test::writeFile(list,
                    "market, code,name,kind,price_tick,floating_shares,colour\n"
                    "SH,600000,own name,,0.5,100,red\n"
                    "XX,1,new,future\n"
                    "\n"
                    ",2,without a market\n"
                    "SH,600004,dear,,dear\n"
                    "SH,600004,cheap,,-1\n"
                    "SH,600004,none,,,0\n"
                    "SH,600004,endless,,inf\n");
    const QString faults =
        QStringLiteral("证券列表有误的行未载入（共 5 处）：%1:5: an instrument has a market and a code")
            .arg(list);
    EXPECT_EQ(open(), faults);
    const auto known = manager().getInstrumentDetail(QStringLiteral("SH600000")),
               added = manager().getInstrumentDetail(QStringLiteral("XX1"));
    EXPECT_EQ(known->name, "own name");
    EXPECT_EQ(known->kind, "stock"); // an empty cell leaves what is known
    EXPECT_EQ(known->priceTick, 0.5);
    EXPECT_EQ(known->getNumber(TC::embedded::kFloatingSharesField), 100.0);
    ASSERT_TRUE(added);
    EXPECT_EQ(added->name, "new");
    EXPECT_EQ(added->kind, "future");
    EXPECT_NE(manager().getInstrumentDetail(QStringLiteral("SH600004"))->name, "endless");
    EXPECT_EQ(storedCount(), kListed); // for this run alone

    test::writeFile(path(), QByteArray(5000, 'x'));
    const QString both = open();
    EXPECT_TRUE(both.startsWith(QStringLiteral("证券数据库已损坏（"))) << both.toStdString();
    EXPECT_TRUE(both.endsWith(QStringLiteral("；") + faults)) << both.toStdString();
}

TEST_F(InstrumentStore, IsAllThatIsKnownWhenTheUsersOwnListCannotBeRead)
{
    const QString list = m_folder.filePath(QStringLiteral("instruments.csv"));
    for (const char* content : { "", "market,name\nSH,own\n", "code,name\n600000,own\n" }) {
        test::writeFile(list, content);
        EXPECT_EQ(
            open(),
            QStringLiteral(
                "证券列表有误的行未载入（共 1 处）：%1:1: the first line names no columns market and code")
                .arg(list));
        EXPECT_EQ(manager().getInstrumentDetail(QStringLiteral("600000"))->name, "浦发银行");
    }
    ASSERT_TRUE(QFile::remove(list) && QDir().mkpath(list));
    EXPECT_TRUE(open().startsWith(QStringLiteral("证券列表有误的行未载入（共 1 处）：%1: ").arg(list)))
        << open().toStdString();
    EXPECT_EQ(missing(), 0);
}

TEST_F(InstrumentStore, OfALaterVersionStaysAndTheListIsUsed)
{
    open();
    inStore(QStringLiteral("PRAGMA user_version = 2"));
    inStore(QStringLiteral("DELETE FROM instrument"));
    const QByteArray before = contentOf(path());
    EXPECT_TRUE(open().contains(QStringLiteral("无法读取")));
    EXPECT_EQ(missing(), 0);
    EXPECT_EQ(contentOf(path()), before);
}

TEST_F(InstrumentStore, ThatAnotherProgramHoldsStaysAndTheListIsUsed)
{
    open();
    QSqlDatabase holder = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("holder"));
    holder.setDatabaseName(path());
    ASSERT_TRUE(holder.open());
    QSqlQuery(holder).exec(QStringLiteral("BEGIN EXCLUSIVE"));
    EXPECT_TRUE(open().contains(QStringLiteral("无法读取")));
    EXPECT_EQ(missing(), 0);
    holder = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("holder"));
    EXPECT_EQ(setAside(), QStringList());
    EXPECT_EQ(open(), QString());
}

TEST_F(InstrumentStore, ThatIsNoOrdinaryFileIsLeftAlone)
{
    ASSERT_TRUE(QDir().mkpath(path() + QStringLiteral("/inside")));
    EXPECT_TRUE(open().contains(QStringLiteral("无法读取")));
    EXPECT_EQ(missing(), 0);
    EXPECT_TRUE(QFile::exists(path() + QStringLiteral("/inside")));

    ON_UNIX_ALONE("there are no pipes in folders");
    ASSERT_TRUE(QDir(path()).removeRecursively());
    ASSERT_TRUE(test::makePipe(path()));
    EXPECT_TRUE(open().contains(QStringLiteral("无法读取")));
    EXPECT_EQ(missing(), 0);
}

TEST_F(InstrumentStore, AnswersFromTheListWhereNoFileCanBeWritten)
{
    ON_UNIX_ALONE("a folder below a device is one like others");
    TC::embedded::setUserRootDir(QStringLiteral("/dev/null/nowhere"));
    EXPECT_TRUE(open().contains(QStringLiteral("未能写入磁盘")));
    EXPECT_EQ(missing(), 0);
}

TEST_F(InstrumentStore, OfAFolderThatCannotBeWrittenIsReadAndADamagedOneLeftAlone)
{
    ON_UNIX_ALONE("permissions are of another kind");
    open();
    const auto asStranger = [&](bool noticeExpected) {
        const test::ChildEnd end = test::runInChild(
            [&] {
                test::setPermissions(path(), 0444);
                test::setPermissions(m_folder.path(), 0555);
                const bool isStranger = test::becomeStranger();
                const bool isTold = !open().isEmpty();
                return isStranger && isTold == noticeExpected && missing() == 0 ? 0 : 1;
            },
            60);
        test::setPermissions(m_folder.path(), 0755);
        test::setPermissions(path(), 0644);
        return end.answer;
    };
    EXPECT_EQ(asStranger(false), 0);
    test::writeFile(path(), QByteArray(5000, 'x'));
    EXPECT_EQ(asStranger(true), 0);
    EXPECT_EQ(contentOf(path()), QByteArray(5000, 'x'));
}

TEST_F(InstrumentStore, OnAFullDiskIsMadeAtTheNextStart)
{
    ON_UNIX_ALONE("the size of files has no limit");
    for (const bool isDamaged : { false, true }) {
        if (isDamaged)
            test::writeFile(path(), QByteArray(5000, 'x'));
        const test::ChildEnd end = test::runInChild(
            [&] {
                const test::SmallFiles disk(100'000); // the store needs ten times as many bytes
                return open().contains(QStringLiteral("未能写入磁盘")) && missing() == 0 ? 0 : 1;
            },
            60);
        EXPECT_EQ(end.answer, 0);
        EXPECT_EQ(setAside().size(), isDamaged ? 1 : 0);
        EXPECT_EQ(open(), QString());
        EXPECT_EQ(storedCount(), kListed);
    }
}

TEST_F(InstrumentStore, HoldsSyntheticMarketValuesOfStocksAlone)
{
    int stocks = 0;
    for (const char* code : { "600000", "000001", "300750", "688981", "920000" }) {
        const auto detail = manager().getInstrumentDetail(QString::fromUtf8(code));
        if (!detail)
            continue;
        ++stocks;
        const double total = detail->getNumber(3016), freeFloat = detail->getNumber(3015);
        EXPECT_GE(total, 2e9) << code;
        EXPECT_LE(total, 5e11) << code;
        EXPECT_GE(freeFloat, 0.3 * total - 1.0) << code;
        EXPECT_LE(freeFloat, total) << code;
    }
    EXPECT_GE(stocks, 3);
    EXPECT_EQ(manager().getInstrumentDetail(QStringLiteral("SH000001"))->getNumber(3016), 0.0);
    EXPECT_EQ(inStore(QStringLiteral("SELECT count(*) FROM figure WHERE synthetic <> 1")).toInt(), 0);
}

/// Damages a file in one of the ways of failing disks, cut copies and foreign programs.
QByteArray damaged(QByteArray bytes, std::mt19937& random)
{
    constexpr int page = 4096;
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const int place = below(bytes.size()), length = 1 + below(page);
    switch (below(9)) {
    case 0: // flipped bits
        for (int flips = 1 + below(50); flips > 0; --flips)
            bytes.data()[below(bytes.size())] ^= static_cast<char>(1 << below(8));
        break;
    case 1: bytes.replace(place, length, QByteArray(length, '\0')); break;
    case 2: bytes.truncate(place); break;
    case 3: bytes.remove(0, place); break;
    case 4: bytes.remove(place, length); break;
    case 5: // other bytes
        for (int offset = place; offset < std::min<int>(place + length, bytes.size()); ++offset)
            bytes[offset] = static_cast<char>(random());
        break;
    case 6: { // two pages change places
        const int pages = bytes.size() / page, a = below(pages) * page, b = below(pages) * page;
        const QByteArray kept = bytes.mid(a, page);
        bytes.replace(a, page, bytes.mid(b, page)).replace(b, page, kept);
        break;
    }
    case 7: bytes.replace(place / page * page, page, QByteArray(page, '\0')); break;
    default: bytes[below(100)] = static_cast<char>(random()); break; // the file's header
    }
    return bytes;
}

/// Fifty stores, damaged by a seed each.
class DamagedStores : public InstrumentStore, public testing::WithParamInterface<unsigned>
{
};

/// How many instruments are not what they were.
int altered(const std::vector<TC::CStockManager::Detail>& before,
            const std::vector<TC::CStockManager::Detail>& now)
{
    int count = 0;
    for (std::size_t index = 0; index < before.size(); ++index) {
        const auto &a = *before[index], &b = *now[index];
        const bool isSame =
            a.name == b.name && a.kind == b.kind && a.priceTick == b.priceTick && a.figures == b.figures;
        count += isSame ? 0 : 1;
    }
    return count;
}

TEST_P(DamagedStores, LoseNoInstrument)
{
    constexpr int mostBits = 50; // of the damage that flips bits here and there
    open();
    const auto soundDetails = details();
    const QByteArray sound = contentOf(path());
    for (unsigned seed = GetParam(); seed < GetParam() + 50; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        const QByteArray bytes = damaged(sound, random);
        test::writeFile(path(), bytes);
        const QString notice = open();
        ASSERT_EQ(missing(), 0);
        // A flipped bit in a name or a figure leaves the database in agreement with itself.
        EXPECT_LE(altered(soundDetails, details()), notice.isEmpty() ? mostBits : 0);
        for (const QString& name : setAside()) { // what was set aside is what was there
            EXPECT_EQ(contentOf(m_folder.filePath(name)) == bytes, true);
            EXPECT_TRUE(notice.contains(name));
            EXPECT_EQ(storedCount(), kListed);
            QFile::remove(m_folder.filePath(name));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(FourTimesFifty, DamagedStores, testing::Values(1u, 51u, 101u, 151u),
                         testing::PrintToStringParamName());

} // namespace
