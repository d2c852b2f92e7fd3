// SPDX-License-Identifier: MIT
#include "title/CIndexPanelBaseWidget.h"

#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class Panel : public TC::CIndexPanelBaseWidget
{
public:
    Panel()
        : CIndexPanelBaseWidget(QStringLiteral("panel"), nullptr)
    {
    }
    using CIndexPanelBaseWidget::m_currentTradeDateFunc;
    using CIndexPanelBaseWidget::m_pairParamFunc;
};

/// Notes its destruction under a name; copies share the note.
struct Noted
{
    std::shared_ptr<int> lifetime;
    int operator()() const { return 7; }
    void operator()(QString) const { }
};

std::shared_ptr<int> noting(QStringList& notes, const char* name)
{
    return std::shared_ptr<int>(new int(0), [&notes, name](int* p) {
        notes << QString::fromLatin1(name);
        delete p;
    });
}

} // namespace

TEST(IndexPanelBaseWidget, TakesItsNameAndIsNotOpaque)
{
    Panel panel;
    EXPECT_EQ(panel.objectName(), QStringLiteral("panel"));
    EXPECT_FALSE(panel.testAttribute(Qt::WA_OpaquePaintEvent));
    EXPECT_EQ(panel.parentWidget(), nullptr);
}

TEST(IndexPanelBaseWidget, APanelThatOverridesNothingIgnoresItsDriver)
{
    Panel panel;
    const QRect before = panel.geometry();
    panel.adjustIndexWidgetSize(500);
    panel.clear(true);
    panel.clear(false);
    panel.reloadStock();
    panel.request(true);
    panel.setPeroid(TC::EFormulaPeriod_Minute);
    panel.unrequest();
    panel.updateView();
    panel.viewVariable();
    EXPECT_EQ(panel.geometry(), before);
    EXPECT_EQ(panel.getMarket(), QString());
    EXPECT_EQ(panel.getStock(), QString());
}

TEST(IndexPanelBaseWidget, StartsWithoutCallBacksAndReplacesThem)
{
    Panel panel;
    EXPECT_TRUE(panel.m_currentTradeDateFunc.empty());
    EXPECT_TRUE(panel.m_pairParamFunc.empty());
    QString received;
    panel.setCurrentTradeDateFunc([] { return 20240621; });
    panel.setPairParamFunc([&](QString text) { received = text; });
    EXPECT_EQ(panel.m_currentTradeDateFunc(), 20240621);
    panel.m_pairParamFunc(QStringLiteral("pair"));
    EXPECT_EQ(received, QStringLiteral("pair"));
}

TEST(IndexPanelBaseWidget, AnEmptyFunctionReplacesAStoredOne)
{
    Panel panel;
    panel.setCurrentTradeDateFunc([] { return 1; });
    panel.setPairParamFunc([](QString) {});
    panel.setCurrentTradeDateFunc(boost::function<int()>());
    panel.setPairParamFunc(boost::function<void(QString)>());
    EXPECT_TRUE(panel.m_currentTradeDateFunc.empty());
    EXPECT_TRUE(panel.m_pairParamFunc.empty());
}

TEST(IndexPanelBaseWidget, ACopyThatThrowsLeavesTheOldFunction)
{
    struct Throwing
    {
        int copiesLeft;
        char tooLargeToBeStoredInPlace[64] = {};
        explicit Throwing(int copies)
            : copiesLeft(copies)
        {
        }
        Throwing(const Throwing& other)
            : copiesLeft(other.copiesLeft - 1)
        {
            if (copiesLeft < 0)
                throw std::runtime_error("copy");
        }
        int operator()() const { return 2; }
    };
    for (int copies = 0; copies < 12; ++copies) {
        Panel panel;
        panel.setCurrentTradeDateFunc([] { return 1; });
        int expected = 2;
        try {
            panel.setCurrentTradeDateFunc(Throwing(copies));
        } catch (const std::runtime_error&) {
            expected = 1;
        }
        EXPECT_EQ(panel.m_currentTradeDateFunc(), expected) << copies;
    }
}

TEST(IndexPanelBaseWidget, LetsGoOfTheDateFunctionFirst)
{
    QStringList notes;
    {
        Panel panel;
        panel.setPairParamFunc(Noted { noting(notes, "pair") });
        panel.setCurrentTradeDateFunc(Noted { noting(notes, "date") });
    }
    EXPECT_EQ(notes, QStringList({ QStringLiteral("date"), QStringLiteral("pair") }));
}

TEST(IndexPanelBaseWidget, TheSettersCanBeOverridden)
{
    struct Counting : Panel
    {
        void setCurrentTradeDateFunc(boost::function<int()>) override { ++calls; }
        void setPairParamFunc(boost::function<void(QString)>) override { ++calls; }
        int calls = 0;
    } panel;
    TC::CIndexPanelBaseWidget& base = panel;
    base.setCurrentTradeDateFunc([] { return 1; });
    base.setPairParamFunc([](QString) {});
    EXPECT_EQ(panel.calls, 2);
}
