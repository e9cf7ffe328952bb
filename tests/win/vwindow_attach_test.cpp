// Binding objects to windows that exist, and releasing them.

#include <gtest/gtest.h>

#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vwindow.h"

namespace {

// An edit field that the toolkit did not create.
class VWindowAttach : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent));
        m_hEdit = CreateWindowExA(0, "Edit", "before", WS_CHILD, 0, 0, 50, 20, m_parent.GetHandle(),
                                  nullptr, GetModuleHandleA(nullptr), nullptr);
        ASSERT_NE(m_hEdit, nullptr);
    }

    LONG_PTR Procedure() const { return GetWindowLongPtrA(m_hEdit, GWLP_WNDPROC); }

    // Whether it still works as an edit field.
    bool Works() const
    {
        SetWindowTextA(m_hEdit, "12345");
        SendMessageA(m_hEdit, EM_SETSEL, 1, 3);
        SendMessageA(m_hEdit, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>("-"));
        char szText[16] = "";
        GetWindowTextA(m_hEdit, szText, sizeof szText);
        return std::string(szText) == "1-45";
    }

    VWindow m_parent;
    HWND m_hEdit = nullptr;
};

} // namespace

TEST_F(VWindowAttach, ReplacesTheProcedureAndPassesMessagesOn)
{
    const LONG_PTR lBefore = Procedure();
    Record record;
    VRecordingWindow window(record);
    EXPECT_FALSE(window.IsAttached());
    ASSERT_TRUE(window.Attach(m_hEdit));
    EXPECT_TRUE(window.IsAttached());
    EXPECT_NE(Procedure(), lBefore);
    EXPECT_EQ(record.Take(), "OnInitialize");
    EXPECT_TRUE(Works());
    EXPECT_EQ(Text(window.GetText()), "1-45");
}

TEST_F(VWindowAttach, ASecondTimeOnlyInitializesWhereAsked)
{
    Record record;
    VRecordingWindow window(record);
    ASSERT_TRUE(window.Attach(m_hEdit, false)); // a new handle always initializes
    EXPECT_EQ(record.Take(), "OnInitialize");
    ASSERT_TRUE(window.Attach(m_hEdit, false));
    EXPECT_EQ(record.Take(), "");
    ASSERT_TRUE(window.Attach(m_hEdit, true));
    EXPECT_EQ(record.Take(), "OnInitialize");
    EXPECT_TRUE(Works());
}

TEST_F(VWindowAttach, InitializeLaterIsHeeded)
{
    Record record;
    VRecordingWindow window(record);
    window.GetFlags().Set(V_FLAG_INITIALIZE_LATER);
    ASSERT_TRUE(window.Attach(m_hEdit));
    EXPECT_EQ(record.Take(), "");
}

TEST_F(VWindowAttach, ARefusalPutsTheProcedureBack)
{
    const LONG_PTR lBefore = Procedure();
    Record record;
    record.bRefusesInitialize = true;
    VRecordingWindow window(record);
    EXPECT_FALSE(window.Attach(m_hEdit));
    EXPECT_EQ(Procedure(), lBefore);
    EXPECT_FALSE(window.IsAttached());
    EXPECT_TRUE(Works());
}

TEST_F(VWindowAttach, TheWindowsEndPutsTheProcedureBackAndFreesTheObject)
{
    Record record;
    VRecordingWindow window(record);
    ASSERT_TRUE(window.Attach(m_hEdit));
    record.Take();
    record.watched = {WM_NCDESTROY};
    DestroyWindow(m_hEdit);
    EXPECT_EQ(record.Take(), "OnDestroy DefaultProc(130) OnFinalDestroy");
    EXPECT_EQ(window.GetHandle(), nullptr);
    EXPECT_EQ(window.GetId(), 0U);
    EXPECT_FALSE(window.IsAttached());
}

TEST_F(VWindowAttach, DetachClosesTheWindow)
{
    Record record;
    VRecordingWindow window(record);
    ASSERT_TRUE(window.Attach(m_hEdit));
    record.Take();
    window.Detach();
    EXPECT_EQ(record.Take(), "OnClose(forced) OnDestroy OnFinalDestroy");
    EXPECT_FALSE(IsWindow(m_hEdit));
    EXPECT_FALSE(VWindow::IsLive(&window));
    window.Detach();
    EXPECT_EQ(record.Take(), "");
}

TEST_F(VWindowAttach, AWindowKeptByOnCloseWorksOnWithoutTheObject)
{
    const LONG_PTR lBefore = Procedure();
    Record record;
    record.bKeepsWindow = true;
    VRecordingWindow window(record);
    ASSERT_TRUE(window.Attach(m_hEdit));
    window.Detach();
    EXPECT_TRUE(IsWindow(m_hEdit));
    EXPECT_EQ(Procedure(), lBefore);
    EXPECT_TRUE(Works());
    EXPECT_EQ(window.GetHandle(), nullptr);
    EXPECT_EQ(VWindow::FromHandle(m_hEdit), nullptr);
}

TEST_F(VWindowAttach, ADetachedObjectCanBeBoundAgain)
{
    Record record;
    record.bKeepsWindow = true;
    VRecordingWindow window(record);
    ASSERT_TRUE(window.Attach(m_hEdit));
    window.Detach();
    ASSERT_TRUE(window.Attach(m_hEdit));
    EXPECT_EQ(VWindow::FromHandle(m_hEdit), &window);
    record.Take();
    SendMessageA(m_hEdit, WM_COMMAND, 4, 0);
    EXPECT_EQ(record.Take(), "OnCommand(0,4)");
    window.Detach();

    record.bKeepsWindow = false;
    EXPECT_TRUE(CreateTestWindow(window));
    EXPECT_EQ(VWindow::FromHandle(window.GetHandle()), &window);
}

TEST_F(VWindowAttach, DetachDoesNotDeleteAnObjectThatDeletesItself)
{
    Record record;
    auto* pWindow = new VRecordingWindow(record);
    pWindow->GetFlags().Set(V_FLAG_DELETE_SELF);
    ASSERT_TRUE(pWindow->Attach(m_hEdit));
    record.Take();
    pWindow->Detach();
    EXPECT_EQ(record.Take(), "OnClose(forced) OnDestroy OnFinalDestroy");
    EXPECT_FALSE(pWindow->GetFlags().Test(V_FLAG_DELETE_SELF));
    delete pWindow;
}

TEST_F(VWindowAttach, DialogsAreBoundByTheirDialogProcedure)
{
    HWND hDialog = CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_PLAIN),
                                      m_parent.GetHandle(), nullptr, 0);
    ASSERT_NE(hDialog, nullptr);
    const LONG_PTR lBefore = GetWindowLongPtrA(hDialog, GWLP_WNDPROC);
    Record record;
    VRecordingWindow dialog(record, V_KIND_DIALOG);
    ASSERT_TRUE(dialog.Attach(hDialog));
    EXPECT_TRUE(dialog.IsAttached());
    EXPECT_EQ(GetWindowLongPtrA(hDialog, GWLP_WNDPROC), lBefore);
    EXPECT_EQ(GetWindowLongPtrA(hDialog, static_cast<int>(DWLP_DLGPROC)),
              reinterpret_cast<LONG_PTR>(&VWindow::WindowProc));
    record.Take();
    SendMessageA(hDialog, WM_COMMAND, MAKEWPARAM(IDC_PUSH, BN_CLICKED), 0);
    EXPECT_EQ(record.Take(), "OnCommand(0,132)");
    DestroyWindow(hDialog);
    EXPECT_EQ(dialog.GetHandle(), nullptr);
}
