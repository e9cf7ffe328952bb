// Filters see the messages of a window first.

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>

#include "tests/win/support.h"
#include "toolkit/vwindow.h"

namespace {

constexpr UINT uTestMessage = WM_APP + 1;

// Gives the prepared answer to the test message or to a command, and notes that it came.
class TestFilter : public VMessageFilter
{
public:
    TestFilter(std::vector<std::string>& calls, const char* szName)
        : m_calls(calls), m_sName(szName)
    {}

    bool Filter(VWindow& window, UINT uMessage, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                bool& bHandled) override
    {
        if (uMessage != uTestMessage && uMessage != WM_COMMAND) {
            return true;
        }
        m_calls.push_back(m_sName);
        EXPECT_EQ(wParam, 3U);
        EXPECT_EQ(lParam, 0);
        if (m_bRemovesItself) {
            window.RemoveFilter(*this);
        }
        lResult = m_lResult;
        bHandled = m_bHandles;
        return !m_bStops;
    }

    bool m_bRemovesItself = false;
    bool m_bHandles = false;
    bool m_bStops = false;
    LRESULT m_lResult = 0;

private:
    std::vector<std::string>& m_calls;
    std::string m_sName;
};

// Does something once, when it sees the test message.
class ActingFilter : public VMessageFilter
{
public:
    bool Filter(VWindow&, UINT uMessage, WPARAM, LPARAM, LRESULT&, bool&) override
    {
        if (uMessage == uTestMessage && m_act != nullptr) {
            const std::function<void()> act = std::move(m_act);
            m_act = nullptr;
            act(); // may end this object
        }
        return true;
    }

    std::function<void()> m_act;
};

class VWindowFilter : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_window, m_record));
        m_window.AddFilter(m_first);
        m_window.AddFilter(m_second);
        m_record.watched = {uTestMessage, WM_COMMAND};
    }

    LRESULT Send(UINT uMessage = uTestMessage) { return m_window.Send(uMessage, 3); }

    void AddBeforeSecond(std::initializer_list<VMessageFilter*> filters)
    {
        m_window.RemoveFilter(m_second);
        for (VMessageFilter* pFilter : filters) {
            m_window.AddFilter(*pFilter);
        }
        m_window.AddFilter(m_second);
    }

    Record m_record;
    TestFilter m_first{m_record.calls, "first"};
    TestFilter m_second{m_record.calls, "second"};
    VRecordingWindow m_window{m_record};
};

} // namespace

TEST_F(VWindowFilter, AllSeeAMessageInTheirOrder)
{
    m_first.m_lResult = 5; // of no account without the word that it handled
    EXPECT_EQ(Send(), 0);
    EXPECT_EQ(m_record.Take(), "first second DefaultProc(32769)");
}

TEST_F(VWindowFilter, OneMayRemoveItselfWhileItIsCalled)
{
    m_first.m_bRemovesItself = true;
    Send();
    EXPECT_EQ(m_record.Take(), "first second DefaultProc(32769)");
    Send();
    EXPECT_EQ(m_record.Take(), "second DefaultProc(32769)");
}

TEST_F(VWindowFilter, HandledKeepsTheResultAndOtherFiltersOut)
{
    m_first.m_bHandles = true;
    m_first.m_lResult = 21;
    EXPECT_EQ(Send(), 21);
    EXPECT_EQ(m_record.Take(), "first");
}

TEST_F(VWindowFilter, HandledWithoutAStopStillTurnsIntoACall)
{
    m_first.m_bHandles = true;
    m_first.m_lResult = 21;
    m_record.lCommand = 8;
    EXPECT_EQ(Send(WM_COMMAND), 8);
    EXPECT_EQ(m_record.Take(), "first OnCommand(0,3)");
}

TEST_F(VWindowFilter, AStopWithAResultEndsTheMessage)
{
    m_first.m_bStops = true;
    m_first.m_bHandles = true;
    m_first.m_lResult = 22;
    EXPECT_EQ(Send(WM_COMMAND), 22);
    EXPECT_EQ(m_record.Take(), "first");
}

TEST_F(VWindowFilter, AStopWithoutAResultGivesZero)
{
    m_second.m_bStops = true;
    m_second.m_lResult = 22;
    EXPECT_EQ(Send(WM_COMMAND), 0);
    EXPECT_EQ(m_record.Take(), "first second");
}

TEST_F(VWindowFilter, AStopThatAnswersNotHandledGoesToTheDefault)
{
    m_first.m_bStops = true;
    m_first.m_bHandles = true;
    m_first.m_lResult = V_NOT_HANDLED;
    EXPECT_EQ(Send(WM_COMMAND), 0);
    EXPECT_EQ(m_record.Take(), "first DefaultProc(273)");
}

TEST_F(VWindowFilter, AStoppedLastMessageStillEndsTheBond)
{
    class Stopper : public VMessageFilter
    {
        bool Filter(VWindow&, UINT uMessage, WPARAM, LPARAM, LRESULT&, bool&) override
        {
            return uMessage != WM_NCDESTROY;
        }
    } stopper;
    m_window.AddFilter(stopper);
    DestroyWindow(m_window.GetHandle());
    EXPECT_EQ(m_record.Take(), "OnDestroy OnFinalDestroy");
    EXPECT_EQ(m_window.GetHandle(), nullptr);
}

TEST_F(VWindowFilter, RemovedOnesAndThoseOfADetachedWindowSeeNothing)
{
    m_window.RemoveFilter(m_second);
    m_window.RemoveFilter(m_second);
    Send();
    EXPECT_EQ(m_record.Take(), "first DefaultProc(32769)");
    m_window.Detach();
    ASSERT_TRUE(CreateTestWindow(m_window, m_record));
    Send();
    EXPECT_EQ(m_record.Take(), "DefaultProc(32769)");
}

TEST_F(VWindowFilter, OneThatIsAddedAgainCountsAsAddedLast)
{
    m_window.AddFilter(m_second);
    Send();
    EXPECT_EQ(m_record.Take(), "first second DefaultProc(32769)");
    m_window.AddFilter(m_first);
    Send();
    EXPECT_EQ(m_record.Take(), "second first DefaultProc(32769)");
    m_window.RemoveFilter(m_first);
    Send();
    EXPECT_EQ(m_record.Take(), "second DefaultProc(32769)");
}

TEST_F(VWindowFilter, TheyStayForTheNextWindowOfTheObject)
{
    DestroyWindow(m_window.GetHandle());
    m_record.Take();
    ASSERT_TRUE(CreateTestWindow(m_window, m_record));
    Send();
    EXPECT_EQ(m_record.Take(), "first second DefaultProc(32769)");
}

TEST_F(VWindowFilter, OneThatEndedSeesNothing)
{
    {
        TestFilter passing(m_record.calls, "passing");
        m_window.AddFilter(passing);
        Send();
        EXPECT_EQ(m_record.Take(), "first second passing DefaultProc(32769)");
    }
    Send();
    EXPECT_EQ(m_record.Take(), "first second DefaultProc(32769)");
}

TEST_F(VWindowFilter, OneMayOutliveItsWindowAndServeAnother)
{
    auto pOther = std::make_unique<VRecordingWindow>(m_record);
    ASSERT_TRUE(CreateTestWindow(*pOther, m_record));
    pOther->AddFilter(m_first);
    Send();
    EXPECT_EQ(m_record.Take(), "second DefaultProc(32769)") << "it has gone to the other";
    pOther.reset();
    m_record.Take();
    m_window.AddFilter(m_first);
    Send();
    EXPECT_EQ(m_record.Take(), "second first DefaultProc(32769)");
}

TEST_F(VWindowFilter, OneMayEndItselfWhileItIsCalled)
{
    auto pActing = std::make_unique<ActingFilter>();
    AddBeforeSecond({pActing.get()});
    pActing->m_act = [&] { pActing.reset(); };
    for (int i = 0; i < 2; ++i) {
        Send();
        EXPECT_EQ(m_record.Take(), "first second DefaultProc(32769)");
    }
    EXPECT_EQ(pActing, nullptr);
}

TEST_F(VWindowFilter, OneMayEndTheNextOneWhichThenSeesNothing)
{
    ActingFilter acting;
    auto pNext = std::make_unique<TestFilter>(m_record.calls, "next");
    AddBeforeSecond({&acting, pNext.get()});
    acting.m_act = [&] { pNext.reset(); };
    Send();
    EXPECT_EQ(m_record.Take(), "first second DefaultProc(32769)");
    EXPECT_EQ(pNext, nullptr);
}

// The message within which another one came goes on behind a filter that ended meanwhile.
TEST_F(VWindowFilter, OneMayEndWithinAMessageOfTheSameWindow)
{
    ActingFilter acting;
    auto pNext = std::make_unique<TestFilter>(m_record.calls, "next");
    AddBeforeSecond({&acting, pNext.get()});
    acting.m_act = [&] {
        acting.m_act = [&] { pNext.reset(); };
        Send();
    };
    Send();
    EXPECT_EQ(m_record.Take(), "first first second DefaultProc(32769) second DefaultProc(32769)");
}

// A filter may delete the object whose message it sees. After that nothing may touch the object.
TEST(VWindowFilterDeletes, AndNothingMoreReachesTheObject)
{
    class Deleter : public VMessageFilter
    {
    public:
        bool Filter(VWindow& window, UINT uMessage, WPARAM, LPARAM, LRESULT&,
                    bool& bHandled) override
        {
            if (uMessage == m_uMessage) {
                bHandled = m_bHandles;
                delete &window;
            }
            return m_bGoesOn;
        }
        UINT m_uMessage = 0;
        bool m_bHandles = false;
        bool m_bGoesOn = true;
    };
    for (const UINT uMessage : {UINT{WM_SIZE}, UINT{WM_COMMAND}, UINT{WM_CLOSE}, uTestMessage}) {
        for (const bool bHandles : {false, true}) {
            for (const bool bGoesOn : {false, true}) {
                Record record;
                auto* pWindow = new VRecordingWindow(record);
                ASSERT_TRUE(CreateTestWindow(*pWindow, record));
                HWND hWnd = pWindow->GetHandle();
                Deleter deleter;
                TestFilter next(record.calls, "next");
                deleter.m_uMessage = uMessage;
                deleter.m_bHandles = bHandles;
                deleter.m_bGoesOn = bGoesOn;
                pWindow->AddFilter(deleter);
                pWindow->AddFilter(next);
                const LRESULT lResult = bHandles || !bGoesOn ? 0 : V_NOT_HANDLED;
                EXPECT_EQ(SendMessageA(hWnd, uMessage, 3, 0), lResult) << "message " << uMessage;
                EXPECT_EQ(record.Take(), "gone") << "message " << uMessage;
                EXPECT_FALSE(IsWindow(hWnd));
            }
        }
    }
}
