// The window that shows how far an import, an export or a save is.

#include "shell/qmprogressdialog.h"

#include <gtest/gtest.h>

#include "resources/resource.h"
#include "tests/win/dialog_support.h"
#include "tests/win/support.h"

namespace {

constexpr DWORD uDelay = 1000; // before it shows
constexpr DWORD uLimit = 20000;

class QMProgressDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_owner));
        m_owner.Show();
        m_edit.Create(m_owner.GetHandle(), {0, 0, 50, 20}, WS_CHILD | WS_VISIBLE, "EDIT", "", 5);
        m_edit.SetFocus();
        PumpAll();
    }

    void TearDown() override
    {
        EXPECT_TRUE(IsWindowEnabled(m_owner.GetHandle()));
        EXPECT_EQ(FindForemostDialog(), nullptr);
    }

    // Steps until the condition holds or the progress gives up. Returns what the last step said.
    template <class F>
    static bool StepUntil(QMProgressDialog& progress, F condition)
    {
        const DWORD uBegin = GetTickCount();
        bool bGoesOn = true;
        while (bGoesOn && !condition()) {
            if (GetTickCount() - uBegin > uLimit) {
                ADD_FAILURE() << "the condition was not met in time";
                return bGoesOn;
            }
            bGoesOn = progress.OnStep(3, 4);
            Sleep(1);
        }
        return bGoesOn;
    }

    static HWND Open(QMProgressDialog& progress)
    {
        EXPECT_TRUE(StepUntil(progress, [&] { return progress.IsVisible(); }));
        return progress.GetHandle();
    }

    // Whether the steps of a while go on.
    static bool GoesOn(QMProgressDialog& progress)
    {
        const DWORD uBegin = GetTickCount();
        return StepUntil(progress, [&] { return GetTickCount() - uBegin > 300; });
    }

    VWindow m_owner;
    VWindow m_edit{V_KIND_EDIT};
};

} // namespace

TEST_F(QMProgressDialogTest, ShortWorkShowsNothing)
{
    QMProgressDialog progress(m_owner.GetHandle(), "Working...");
    EXPECT_TRUE(progress.OnStep(0, 2));
    EXPECT_TRUE(progress.OnStep(2, 2));
    progress.OnNoReturn();
    EXPECT_EQ(progress.GetHandle(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(m_owner.GetHandle()));
    EXPECT_FALSE(progress.IsCancelled());
}

TEST_F(QMProgressDialogTest, ComesAfterASecondAndGivesTheFocusBack)
{
    {
        const DWORD uBegin = GetTickCount();
        QMProgressDialog progress(m_owner.GetHandle(), "Working...");
        StepUntil(progress, [&] { return progress.GetHandle() != nullptr; });
        EXPECT_GE(GetTickCount() - uBegin, uDelay);
        HWND hDialog = Open(progress);
        EXPECT_FALSE(IsWindowEnabled(m_owner.GetHandle()));
        EXPECT_EQ(GetWindow(hDialog, GW_OWNER), m_owner.GetHandle());
        EXPECT_EQ(ItemText(hDialog, IDC_PROGRESS_TASK), "Working...");
        EXPECT_EQ(SendDlgItemMessageA(hDialog, IDC_PROGRESS_BAR, PBM_GETPOS, 0, 0), 750);
        EXPECT_TRUE(IsEnabled(hDialog, IDCANCEL));
        EXPECT_EQ(FocusedId(hDialog), IDCANCEL);
        EXPECT_EQ(LayoutFaults(hDialog), std::vector<std::string>());
    }
    EXPECT_EQ(GetFocus(), m_edit.GetHandle());
}

TEST_F(QMProgressDialogTest, MessagesAreAnsweredMeanwhile)
{
    QMProgressDialog progress(m_owner.GetHandle(), "Working...");
    Open(progress);
    m_edit.Post(WM_CHAR, 'x');
    EXPECT_TRUE(StepUntil(progress, [&] { return Text(m_edit.GetText()) == "x"; }));
}

TEST_F(QMProgressDialogTest, IsCancelledInEveryWay)
{
    const std::function<void(HWND)> aWays[] = {
        [](HWND hDialog) { Press(hDialog, IDCANCEL); },
        [](HWND hDialog) { PostKey(GetDlgItem(hDialog, IDCANCEL), VK_ESCAPE); },
        [](HWND hDialog) { PostKey(GetDlgItem(hDialog, IDCANCEL), VK_SPACE); },
        [](HWND hDialog) { PostKey(GetDlgItem(hDialog, IDCANCEL), VK_RETURN); },
        [](HWND hDialog) { PostMessageA(hDialog, WM_SYSCOMMAND, SC_CLOSE, 0); },
    };
    for (size_t u = 0; u < std::size(aWays); ++u) {
        {
            QMProgressDialog progress(m_owner.GetHandle(), "Working...");
            HWND hDialog = Open(progress);
            aWays[u](hDialog);
            EXPECT_FALSE(StepUntil(progress, [] { return false; })) << "case " << u;
            EXPECT_TRUE(progress.IsCancelled()) << "case " << u;
            EXPECT_FALSE(progress.OnStep(4, 4)) << "case " << u;
            EXPECT_TRUE(IsWindowVisible(hDialog))
                << "the dialog must stay until the work has ended";
            EXPECT_FALSE(IsEnabled(hDialog, IDCANCEL)) << "case " << u;
            EXPECT_FALSE(IsWindowEnabled(m_owner.GetHandle())) << "case " << u;
        }
        EXPECT_TRUE(IsWindowEnabled(m_owner.GetHandle())) << "case " << u;
        EXPECT_EQ(GetFocus(), m_edit.GetHandle()) << "case " << u;
    }
}

TEST_F(QMProgressDialogTest, CannotBeCancelledBeyondThePointOfNoReturn)
{
    for (const bool bOpenBefore : {true, false}) {
        QMProgressDialog progress(m_owner.GetHandle(), "Working...");
        if (bOpenBefore) {
            Open(progress);
        }
        progress.OnNoReturn();
        HWND hDialog = Open(progress);
        EXPECT_FALSE(IsEnabled(hDialog, IDCANCEL));
        const UINT uClose = GetMenuState(GetSystemMenu(hDialog, FALSE), SC_CLOSE, MF_BYCOMMAND);
        EXPECT_NE(uClose & MF_GRAYED, 0U);
        PostMessageA(hDialog, WM_COMMAND, IDCANCEL, 0);
        PostMessageA(hDialog, WM_CLOSE, 0, 0);
        PostKey(hDialog, VK_ESCAPE);
        EXPECT_TRUE(GoesOn(progress));
        EXPECT_FALSE(progress.IsCancelled());
        EXPECT_TRUE(IsWindowVisible(hDialog));
    }
}

TEST_F(QMProgressDialogTest, EndOfTheProgramIsLeftToItsLoop)
{
    {
        QMProgressDialog progress(m_owner.GetHandle(), "Working...");
        Open(progress);
        PostQuitMessage(7);
        EXPECT_FALSE(StepUntil(progress, [] { return false; }));
    }
    MSG message = {};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
}
