// SPDX-License-Identifier: MIT
/// @file Reading and changing the file of the user's formulas.

#include "apps/client/editor/FormulaStore.h"
#include "tests/support/SmallFiles.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"

#include <QFile>
#include <QJsonDocument>
#include <QLockFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using client::FormulaStore;
using client::OwnFormula;

const QByteArray kFile = R"({"owner": "li", "formulas": [
  {"name": "FIRST", "displayName": "第一", "source": "A:CLOSE;", "colors": ["#ff0000"], "kind": 1},
  {"name": "SECOND", "base": "MA", "parameters": [3, 6]},
  "no formula"
], "version": 7})";

class FormulaStoreTest : public testing::Test
{
protected:
    QString path() const { return m_folder.filePath(QStringLiteral("configFormula")); }
    void write(const QByteArray& content) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray content() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QJsonObject root() const { return QJsonDocument::fromJson(content()).object(); }
    QJsonArray entries() const { return root().value(QStringLiteral("formulas")).toArray(); }
    QJsonObject entry(int place) const { return entries().at(place).toObject(); }
    QString text(int place, const char* key) const
    {
        return entry(place).value(QLatin1String(key)).toString();
    }

    static OwnFormula formula(const char* name, const char* source)
    {
        return { QString::fromUtf8(name), {}, {}, QString::fromUtf8(source), {} };
    }

    QTemporaryDir m_folder;
    FormulaStore m_store { path() };
};

TEST_F(FormulaStoreTest, MissingFileHoldsNoFormulas)
{
    auto formulas = m_store.read();
    ASSERT_TRUE(formulas.isGood());
    EXPECT_TRUE(formulas->empty());
}

TEST_F(FormulaStoreTest, ReadsNamesTextsBasesAndParameters)
{
    write(kFile);
    auto read = m_store.read();
    ASSERT_EQ(read.reason(), QString());
    const std::vector<OwnFormula> formulas = *read;
    ASSERT_EQ(formulas.size(), 2u);
    EXPECT_EQ(formulas[0].shownName(), QStringLiteral("第一"));
    EXPECT_EQ(formulas[0].source, QStringLiteral("A:CLOSE;"));
    EXPECT_EQ(formulas[1].shownName(), QStringLiteral("SECOND"));
    EXPECT_EQ(formulas[1].base, QStringLiteral("MA"));
    EXPECT_EQ(formulas[1].parameters, (QVector<double> { 3, 6 }));
}

TEST_F(FormulaStoreTest, SaveMakesTheFileThatWasMissing)
{
    EXPECT_EQ(m_store.save(formula("NEW", "A:OPEN;")).reason(), QString());
    ASSERT_EQ(entries().size(), 1);
    EXPECT_EQ(text(0, "name"), QStringLiteral("NEW"));
    EXPECT_EQ(text(0, "source"), QStringLiteral("A:OPEN;"));
}

TEST_F(FormulaStoreTest, SaveAddsBehindTheOthers)
{
    write(kFile);
    EXPECT_EQ(m_store.save(formula("NEW", "A:OPEN;")).reason(), QString());
    ASSERT_EQ(entries().size(), 4);
    EXPECT_EQ(text(0, "name"), QStringLiteral("FIRST"));
    EXPECT_EQ(text(3, "name"), QStringLiteral("NEW"));
}

TEST_F(FormulaStoreTest, SaveReplacesInPlaceAndKeepsColoursAndKind)
{
    write(kFile);
    EXPECT_EQ(m_store.save(formula("RENAMED", "A:OPEN;"), QStringLiteral("FIRST")).reason(), QString());
    ASSERT_EQ(entries().size(), 3);
    EXPECT_EQ(text(0, "name"), QStringLiteral("RENAMED"));
    EXPECT_EQ(text(0, "source"), QStringLiteral("A:OPEN;"));
    EXPECT_FALSE(entry(0).contains(QStringLiteral("displayName")));
    EXPECT_EQ(entry(0).value(QStringLiteral("kind")).toInt(), 1);
    EXPECT_EQ(entry(0).value(QStringLiteral("colors")).toArray().size(), 1);
}

TEST_F(FormulaStoreTest, SaveKeepsForeignKeysAndEntriesThatAreWrong)
{
    write(kFile);
    EXPECT_EQ(m_store.save(formula("NEW", "A:OPEN;")).reason(), QString());
    EXPECT_EQ(root().value(QStringLiteral("owner")).toString(), QStringLiteral("li"));
    EXPECT_EQ(root().value(QStringLiteral("version")).toInt(), 7);
    EXPECT_EQ(entries().at(2).toString(), QStringLiteral("no formula"));
}

TEST_F(FormulaStoreTest, TakenAndEmptyNamesAreRefused)
{
    write(kFile);
    for (const char* name : { "SECOND", "第一", "MACD", "" }) {
        EXPECT_FALSE(m_store.save(formula(name, "A:OPEN;")).isGood()) << name;
        EXPECT_EQ(content(), kFile) << name;
    }
}

TEST_F(FormulaStoreTest, DuplicateFindsFreeNamesAndStandsBehindItsModel)
{
    write(kFile);
    ASSERT_EQ(m_store.save(formula("FIRST2", "A:OPEN;")).reason(), QString());
    auto copy = m_store.duplicate(QStringLiteral("FIRST"));
    ASSERT_EQ(copy.reason(), QString());
    EXPECT_EQ(*copy, QStringLiteral("FIRST3"));
    EXPECT_EQ(text(1, "name"), QStringLiteral("FIRST3"));
    EXPECT_EQ(text(1, "displayName"), QStringLiteral("第一2"));
    EXPECT_EQ(text(1, "source"), QStringLiteral("A:CLOSE;"));
}

TEST_F(FormulaStoreTest, FreeNameAvoidsBuiltInFormulas)
{
    EXPECT_EQ(m_store.freeName(QStringLiteral("MACD")), QStringLiteral("MACD2"));
    EXPECT_EQ(m_store.freeName(QStringLiteral("MINE")), QStringLiteral("MINE"));
}

TEST_F(FormulaStoreTest, RemoveTakesOneEntryOut)
{
    write(kFile);
    EXPECT_EQ(m_store.remove(QStringLiteral("FIRST")).reason(), QString());
    ASSERT_EQ(entries().size(), 2);
    EXPECT_EQ(text(0, "name"), QStringLiteral("SECOND"));
    EXPECT_FALSE(m_store.remove(QStringLiteral("FIRST")).isGood());
}

TEST_F(FormulaStoreTest, DamagedFileIsRefusedAndLeftAsItIs)
{
    for (const QByteArray& damaged : { QByteArray("{\"formulas\": ["), QByteArray("[]"), QByteArray(""),
                                       QByteArray("{\"formulas\": 3}") }) {
        write(damaged);
        int changes = 0;
        m_store.setBeforeChange([&] {
            ++changes;
            return base::Result<void>();
        });
        EXPECT_FALSE(m_store.read().isGood());
        EXPECT_FALSE(m_store.save(formula("NEW", "A:OPEN;")).isGood());
        EXPECT_FALSE(m_store.duplicate(QStringLiteral("FIRST")).isGood());
        EXPECT_FALSE(m_store.remove(QStringLiteral("FIRST")).isGood());
        EXPECT_EQ(content(), damaged);
        EXPECT_EQ(changes, 0);
    }
}

TEST_F(FormulaStoreTest, IsToldBeforeTheFileChanges)
{
    write(kFile);
    QByteArray seen;
    m_store.setBeforeChange([&] {
        seen = content();
        return base::Result<void>();
    });
    EXPECT_EQ(m_store.remove(QStringLiteral("FIRST")).reason(), QString());
    EXPECT_EQ(seen, kFile);
    EXPECT_NE(content(), kFile);
}

TEST_F(FormulaStoreTest, DoesNotGoOnWithoutTheBackupThatWasPromised)
{
    write(kFile);
    m_store.setBeforeChange([]() -> base::Result<void> { return base::Failure { QStringLiteral("full") }; });
    EXPECT_EQ(m_store.remove(QStringLiteral("FIRST")).reason(), QStringLiteral("full"));
    EXPECT_EQ(m_store.save(formula("NEW", "A:OPEN;")).reason(), QStringLiteral("full"));
    EXPECT_FALSE(m_store.duplicate(QStringLiteral("FIRST")).isGood());
    EXPECT_EQ(content(), kFile);
}

TEST_F(FormulaStoreTest, KeepsTheFileOnAFullDiskAndSaysSo)
{
    ON_UNIX_ALONE("the size of files has no limit");
    write(kFile);
    QString reason;
    {
        const test::SmallFiles disk(0);
        reason = m_store.save(formula("NEW", "A:OPEN;")).reason();
    }
    EXPECT_TRUE(reason.contains(QStringLiteral("未写入，原内容不变"))) << reason.toStdString();
    EXPECT_EQ(content(), kFile);
}

TEST_F(FormulaStoreTest, WaitsForTheChangeOfAnotherClientAndGivesUpInTheEnd)
{
    write(kFile);
    QLockFile other(path() + QStringLiteral(".lock"));
    ASSERT_TRUE(other.tryLock());
    EXPECT_TRUE(m_store.remove(QStringLiteral("FIRST")).reason().contains(QStringLiteral("另一个客户端")));
    EXPECT_EQ(content(), kFile);
    other.unlock();
    EXPECT_TRUE(m_store.remove(QStringLiteral("FIRST")).isGood());
}

TEST_F(FormulaStoreTest, TakesOverTheLockOfAClientThatWasKilledBeforeItPutItsNameIntoIt)
{
    write(kFile);
    QFile lock(path() + QStringLiteral(".lock"));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.close(); // the killed client holds it no more
    EXPECT_TRUE(m_store.remove(QStringLiteral("FIRST")).isGood());
}

} // namespace
