// How messages become virtual operations, and what happens after them.

#include <gtest/gtest.h>

#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vdialog.h"
#include "toolkit/vwindow.h"

namespace {

class VWindowDispatch : public testing::Test
{
protected:
    void SetUp() override
    {
        m_pWindow = new VRecordingWindow(m_record);
        ASSERT_TRUE(CreateTestWindow(*m_pWindow, m_record));
        m_hWnd = m_pWindow->GetHandle();
    }

    void TearDown() override
    {
        if (VWindow::IsLive(m_pWindow)) {
            delete m_pWindow;
        }
    }

    LRESULT Send(UINT uMessage, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageA(m_hWnd, uMessage, wParam, lParam);
    }

    LRESULT Notify(HWND hFrom, UINT uCode)
    {
        NMHDR header = {hFrom, 7, uCode};
        return Send(WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&header));
    }

    Record m_record;
    VRecordingWindow* m_pWindow = nullptr;
    HWND m_hWnd = nullptr;
};

// A child that sends notifications to the window.
class VWindowReflection : public VWindowDispatch
{
protected:
    void SetUp() override
    {
        VWindowDispatch::SetUp();
        ASSERT_TRUE(m_child.Create(m_hWnd, g_testRect, WS_CHILD, "Static", "", 7));
        m_childRecord.Take();
        m_record.Take();
    }

    Record m_childRecord;
    VRecordingWindow m_child{m_childRecord};
};

// A dialog that notes its calls and ends itself at the first command.
class VTestDialog : public VDialog
{
public:
    VTestDialog(Record& record, bool bModal) : m_record(record) { SetModal(bModal); }

    bool OnInitDialog() override
    {
        m_record.calls.emplace_back("OnInitDialog");
        Post(WM_COMMAND, IDOK);
        return !m_record.bRefusesInitialize && VDialog::OnInitDialog();
    }

    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND /*hControl*/) override
    {
        m_record.calls.push_back("OnCommand(" + std::to_string(uNotifyCode) + "," +
                                 std::to_string(uId) + ")");
        if (uId == IDOK) {
            EndDialog(GetHandle(), 5);
        }
        return V_NOT_HANDLED;
    }

    void OnDestroy() override { m_record.calls.emplace_back("OnDestroy"); }

    void OnFinalDestroy() override
    {
        m_record.calls.emplace_back("OnFinalDestroy");
        VDialog::OnFinalDestroy();
    }

    INT_PTR Run()
    {
        return DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_TEST), nullptr,
                               reinterpret_cast<DLGPROC>(&WindowProc),
                               reinterpret_cast<LPARAM>(static_cast<VWindow*>(this)));
    }

    HWND Open()
    {
        return CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_TEST), nullptr,
                                  reinterpret_cast<DLGPROC>(&WindowProc),
                                  reinterpret_cast<LPARAM>(static_cast<VWindow*>(this)));
    }

private:
    Record& m_record;
};

} // namespace

TEST_F(VWindowDispatch, DestroyIsHandledAndTheLastMessageEndsTheBond)
{
    m_record.watched = {WM_DESTROY, WM_NCDESTROY};
    DestroyWindow(m_hWnd);
    EXPECT_EQ(m_record.Take(), "OnDestroy DefaultProc(130) OnFinalDestroy");
    EXPECT_EQ(m_pWindow->GetHandle(), nullptr);
    EXPECT_EQ(VWindow::FromHandle(m_hWnd), nullptr);
}

TEST_F(VWindowDispatch, SizeGoesOnToTheDefault)
{
    m_record.watched = {WM_SIZE};
    Send(WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(300, 40000));
    EXPECT_EQ(m_record.Take(), "OnSize(2,300,40000) DefaultProc(5)");
}

TEST_F(VWindowDispatch, CommandAnswersForItself)
{
    m_record.watched = {WM_COMMAND};
    m_record.lCommand = 12;
    EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(40001, 3), reinterpret_cast<LPARAM>(m_hWnd)), 12);
    EXPECT_EQ(m_record.Take(), "OnCommand(3,40001,control)");
    m_record.lCommand = 0;
    EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(8, 0)), 0);
    EXPECT_EQ(m_record.Take(), "OnCommand(0,8)");
}

TEST_F(VWindowDispatch, WhatIsNotHandledGoesToTheDefault)
{
    m_record.watched = {WM_COMMAND, WM_NOTIFY, WM_APP};
    EXPECT_EQ(Send(WM_COMMAND, 8), 0);
    EXPECT_EQ(m_record.Take(), "OnCommand(0,8) DefaultProc(273)");
    EXPECT_EQ(Notify(nullptr, 3), 0);
    EXPECT_EQ(m_record.Take(), "OnNotify(7,3) DefaultProc(78)");
    Send(WM_APP);
    EXPECT_EQ(m_record.Take(), "DefaultProc(32768)");
}

TEST_F(VWindowDispatch, CloseMayBeRefused)
{
    m_record.watched = {WM_CLOSE, WM_QUERYENDSESSION};
    m_record.bRefusesClose = true;
    EXPECT_EQ(Send(WM_CLOSE), 0);
    EXPECT_EQ(Send(WM_QUERYENDSESSION), 0);
    EXPECT_EQ(m_record.Take(), "OnClose OnClose");
    EXPECT_TRUE(IsWindow(m_hWnd));
    EXPECT_EQ(VWindow::FromHandle(m_hWnd), m_pWindow);
}

TEST_F(VWindowDispatch, CloseDestroysTheWindow)
{
    EXPECT_EQ(Send(WM_CLOSE), 0);
    EXPECT_EQ(m_record.Take(), "OnClose OnDestroy OnFinalDestroy");
    EXPECT_FALSE(IsWindow(m_hWnd));
    EXPECT_TRUE(VWindow::IsLive(m_pWindow));
}

TEST_F(VWindowDispatch, TheSessionsEndAsksFirst)
{
    m_record.bKeepsWindow = true;
    EXPECT_EQ(Send(WM_QUERYENDSESSION), 1);
    EXPECT_EQ(m_record.Take(), "OnClose");
    m_record.bKeepsWindow = false;
    EXPECT_EQ(Send(WM_ENDSESSION, TRUE), 0);
    EXPECT_EQ(m_record.Take(), "OnClose(forced) OnDestroy OnFinalDestroy");
}

TEST_F(VWindowDispatch, TheSessionsEndMayBeRefusedToo)
{
    m_record.watched = {WM_ENDSESSION};
    m_record.bRefusesClose = true;
    EXPECT_EQ(Send(WM_ENDSESSION, TRUE), 0);
    EXPECT_EQ(m_record.Take(), "OnClose(forced)");
}

TEST_F(VWindowDispatch, TheObjectMayEndInItsOwnClose)
{
    const struct
    {
        UINT uMessage;
        LRESULT lResult;
        const char* szCalls;
    } aCases[] = {
        {WM_CLOSE, 0, "OnClose gone"},
        {WM_QUERYENDSESSION, 1, "OnClose gone"},
        {WM_ENDSESSION, 0, "OnClose(forced) gone"},
    };
    for (const auto& test : aCases) {
        auto* pWindow = new VRecordingWindow(m_record);
        ASSERT_TRUE(CreateTestWindow(*pWindow, m_record));
        HWND hWnd = pWindow->GetHandle();
        m_record.bDeletesInClose = true;
        m_record.watched = {test.uMessage};
        EXPECT_EQ(SendMessageA(hWnd, test.uMessage, 0, 0), test.lResult);
        EXPECT_EQ(m_record.Take(), test.szCalls);
        EXPECT_FALSE(VWindow::IsLive(pWindow));
        EXPECT_FALSE(IsWindow(hWnd));
        m_record.bDeletesInClose = false;
    }
}

TEST_F(VWindowDispatch, AnObjectThatDeletesItselfMayCloseItself)
{
    m_pWindow->GetFlags().Set(V_FLAG_DELETE_SELF);
    EXPECT_EQ(Send(WM_CLOSE), 0);
    EXPECT_EQ(m_record.Take(), "OnClose OnDestroy OnFinalDestroy gone");
    EXPECT_FALSE(VWindow::IsLive(m_pWindow));
}

TEST_F(VWindowDispatch, ACommandMayEndTheObject)
{
    m_record.watched = {WM_COMMAND};
    m_record.command = [](VWindow& window) { delete &window; };
    EXPECT_EQ(Send(WM_COMMAND, 3), V_NOT_HANDLED);
    EXPECT_EQ(m_record.Take(), "OnCommand(0,3) gone");
}

TEST_F(VWindowDispatch, BackgroundsOfOffScreenWindowsAreNotErased)
{
    m_record.watched = {WM_ERASEBKGND};
    HDC hDC = GetDC(m_hWnd);
    Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(hDC));
    EXPECT_EQ(m_record.Take(), "DefaultProc(20)");
    m_pWindow->GetFlags().Set(V_FLAG_OFF_SCREEN);
    EXPECT_EQ(Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(hDC)), 1);
    EXPECT_EQ(m_record.Take(), "");
    ReleaseDC(m_hWnd, hDC);
}

TEST_F(VWindowReflection, TheSenderComesBeforeTheParent)
{
    m_record.lNotify = 33;
    EXPECT_EQ(Notify(m_child.GetHandle(), 4), 33);
    EXPECT_EQ(m_childRecord.Take(), "OnReflectNotify(4,1)");
    EXPECT_EQ(m_record.Take(), "OnNotify(7,4)");
}

TEST_F(VWindowReflection, TheSenderMayKeepItFromTheParent)
{
    m_record.watched = {WM_NOTIFY};
    m_childRecord.lReflect = -1;
    m_childRecord.lReflectValue = 44;
    EXPECT_EQ(Notify(m_child.GetHandle(), 4), 44);
    EXPECT_EQ(m_childRecord.Take(), "OnReflectNotify(4,1)");
    EXPECT_EQ(m_record.Take(), "");
    // Even V_NOT_HANDLED is a result here.
    m_childRecord.lReflectValue = V_NOT_HANDLED;
    EXPECT_EQ(Notify(m_child.GetHandle(), 4), V_NOT_HANDLED);
    EXPECT_EQ(m_record.Take(), "");
}

TEST_F(VWindowReflection, AnyOtherAnswerOfTheSenderIsNoAnswer)
{
    m_childRecord.lReflectValue = 44;
    for (const LRESULT lAnswer : {LRESULT{0}, LRESULT{1}, V_NOT_HANDLED}) {
        m_childRecord.lReflect = lAnswer;
        EXPECT_EQ(Notify(m_child.GetHandle(), 4), 0);
        EXPECT_EQ(m_record.Take(), "OnNotify(7,4)");
    }
}

TEST_F(VWindowDispatch, AWindowWithoutObjectBehavesAsThePlatformSays)
{
    HWND hStatic = CreateWindowExA(0, "Static", "abc", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                                   GetModuleHandleA(nullptr), nullptr);
    EXPECT_EQ(VWindow::WindowProc(hStatic, WM_GETTEXTLENGTH, 0, 0), 3);
    DestroyWindow(hStatic);

    HWND hDialog = CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_TEST),
                                      nullptr, nullptr, 0);
    EXPECT_EQ(SendMessageA(hDialog, WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(VWindow::WindowProc(hDialog, WM_GETTEXTLENGTH, 0, 0), 0);
    EXPECT_EQ(VWindow::WindowProc(hDialog, WM_INITDIALOG, 0, 0), 0);
    DestroyWindow(hDialog);
}

TEST_F(VWindowDispatch, MessagesAfterTheObjectsEndGoToTheDefault)
{
    // A window of the toolkit's class without an object.
    char szClass[64] = "";
    GetClassNameA(m_hWnd, szClass, sizeof szClass);
    HWND hWnd = CreateWindowExA(0, szClass, "abcd", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                                GetModuleHandleA(nullptr), nullptr);
    ASSERT_NE(hWnd, nullptr);
    EXPECT_EQ(SendMessageA(hWnd, WM_GETTEXTLENGTH, 0, 0), 4);
    DestroyWindow(hWnd);
}

TEST(VWindowDispatchDialog, AModalDialogRunsAndEndsWithItsResult)
{
    Record record;
    VTestDialog dialog(record, true);
    EXPECT_EQ(dialog.Run(), 5);
    const std::string sCalls = record.Take();
    EXPECT_EQ(sCalls.find("OnInitDialog"), 0U) << sCalls;
    EXPECT_NE(sCalls.find("OnCommand(0,1)"), std::string::npos) << sCalls;
    EXPECT_EQ(dialog.GetHandle(), nullptr);
}

TEST(VWindowDispatchDialog, ARefusingModalDialogEndsWithTwo)
{
    Record record;
    record.bRefusesInitialize = true;
    VTestDialog dialog(record, true);
    EXPECT_EQ(dialog.Run(), 2);
}

TEST(VWindowDispatchDialog, ARefusingModelessDialogIsDestroyed)
{
    Record record;
    record.bRefusesInitialize = true;
    VTestDialog dialog(record, false);
    HWND hDialog = dialog.Open();
    EXPECT_FALSE(IsWindow(hDialog));
    EXPECT_EQ(dialog.GetHandle(), nullptr);
    EXPECT_EQ(record.Take(), "OnInitDialog OnDestroy OnFinalDestroy");
}

TEST(VWindowDispatchDialog, OnlyAModalDialogAnswersOneToItsInitialization)
{
    for (const bool bModal : {false, true}) {
        Record record;
        VTestDialog dialog(record, bModal);
        HWND hDialog = dialog.Open();
        ASSERT_TRUE(IsWindow(hDialog));
        EXPECT_EQ(dialog.GetHandle(), hDialog);
        const auto lObject = reinterpret_cast<LPARAM>(static_cast<VWindow*>(&dialog));
        EXPECT_EQ(VWindow::WindowProc(hDialog, WM_INITDIALOG, 0, lObject), bModal ? 1 : 0);
        DestroyWindow(hDialog);
        PumpAll();
    }
}

TEST(VWindowDispatchDialog, APropertyPageCarriesItsObjectInItsRecord)
{
    Record record;
    VTestDialog dialog(record, false);
    PROPSHEETPAGEA page = {};
    page.lParam = reinterpret_cast<LPARAM>(static_cast<VWindow*>(&dialog));
    HWND hDialog = CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_TEST),
                                      nullptr, reinterpret_cast<DLGPROC>(&VWindow::WindowProc),
                                      reinterpret_cast<LPARAM>(&page));
    ASSERT_NE(hDialog, nullptr);
    EXPECT_EQ(dialog.GetHandle(), hDialog);
    DestroyWindow(hDialog);
    PumpAll();
}
