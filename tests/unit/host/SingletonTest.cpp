// SPDX-License-Identifier: MIT
#include "host/utils/CSingletonT.h"

#include "tests/support/ChildRun.h"
#include "tests/unit/host/neighbours/Shared.h"

#include <QLibrary>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <set>
#include <thread>
#include <vector>

namespace {

using utils::CSingletonT;

struct SlowToMake
{
    SlowToMake()
    {
        ++made;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    inline static std::atomic<int> made { 0 };
};

/// Gives its own holder up while it is made, when the holder still holds its lock.
struct ReleasedWhileMade
{
    ReleasedWhileMade() { CSingletonT<ReleasedWhileMade>::release(); }
};

TEST(Singleton, IsMadeOnceWhileAllOtherCallersWait)
{
    constexpr std::size_t callers = 4;
    std::vector<SlowToMake*> answers(callers);
    std::vector<std::thread> threads;
    for (SlowToMake*& answer : answers)
        threads.emplace_back([&answer] { answer = CSingletonT<SlowToMake>::instance(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(SlowToMake::made, 1);
    EXPECT_EQ(std::set<SlowToMake*>(answers.begin(), answers.end()).size(), 1U);
    EXPECT_NE(answers.front(), nullptr);
    CSingletonT<SlowToMake>::release();
}

TEST(Singleton, IsMadeAnewAfterARelease)
{
    const int before = SlowToMake::made;
    CSingletonT<SlowToMake>::instance();
    CSingletonT<SlowToMake>::release();
    CSingletonT<SlowToMake>::instance();
    EXPECT_EQ(SlowToMake::made, before + 2);
    CSingletonT<SlowToMake>::release();
}

TEST(Singleton, ReleaseTakesNoLock)
{
    constexpr unsigned longestSeconds = 5;
    const test::ChildEnd end =
        test::runInChild([] { return CSingletonT<ReleasedWhileMade>::instance() ? 0 : 1; }, longestSeconds);
    EXPECT_TRUE(end.finished) << "waits for a lock for ever";
    EXPECT_EQ(end.answer, 0);
}

TEST(Singleton, IsOneForLibrariesThatShareNoSymbols)
{
    auto* own = CSingletonT<test::SharedByLibraries>::instance();
    int visits = 0;
    for (const char* path : { FIRST_NEIGHBOUR, SECOND_NEIGHBOUR }) {
        QLibrary library(QString::fromUtf8(path));
        const auto ask = reinterpret_cast<void* (*)()>(library.resolve("askedObject"));
        ASSERT_NE(ask, nullptr) << library.errorString().toStdString();
        EXPECT_EQ(ask(), own);
        EXPECT_EQ(own->visits, ++visits);
    }
    CSingletonT<test::SharedByLibraries>::release();
}

} // namespace
