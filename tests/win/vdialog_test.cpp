#include "toolkit/vdialog.h"

#include <gtest/gtest.h>

#include "tests/win/modaldriver.h"
#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vcombobox.h"
#include "toolkit/vpropertypage.h"

namespace {

// A dialog that gives prepared answers and counts how often it was asked.
class AnsweringDialog : public VDialog
{
public:
    ~AnsweringDialog() override { Detach(); }

    bool OnInitDialog() override { return m_bInitializes && VDialog::OnInitDialog(); }
    INT_PTR CancelResult() const override { return m_nCancelResult; }
    bool OnCancel() override { return ++m_nCancels, m_bCancels; }
    bool OnOK() override { return ++m_nOKs, m_bOK; }
    LRESULT OnNotify(UINT /*uId*/, NMHDR* /*pHeader*/) override
    {
        return m_lNotify == V_NOT_HANDLED ? V_NOT_HANDLED : AnswerNotification(m_lNotify);
    }

    bool m_bInitializes = true;
    bool m_bCancels = true;
    bool m_bOK = true;
    INT_PTR m_nCancelResult = IDCANCEL;
    LRESULT m_lNotify = V_NOT_HANDLED;
    int m_nCancels = 0;
    int m_nOKs = 0;
};

// Runs a dialog of this template and does one thing to it.
INT_PTR RunAnd(AnsweringDialog& dialog, UINT uTemplate, ModalDriver::Action action)
{
    ModalDriver driver;
    driver.Next(std::move(action));
    return dialog.DoModal(nullptr, uTemplate);
}

ModalDriver::Action Pressing(int nId)
{
    return [=](HWND hDialog) { Press(hDialog, nId); };
}

ModalDriver::Action Closing()
{
    return [](HWND hDialog) { PostMessageA(hDialog, WM_CLOSE, 0, 0); };
}

// A modeless dialog with OK and Cancel, shown.
class VDialogModeless : public testing::Test
{
protected:
    void SetUp() override { Open(); }
    void Open()
    {
        ASSERT_TRUE(m_dialog.CreateModeless(nullptr, IDD_OK_CANCEL));
        m_hDialog = m_dialog.GetHandle();
    }

    AnsweringDialog m_dialog;
    HWND m_hDialog = nullptr;
};

} // namespace

// ---- Modal dialogs.

TEST(VDialogModal, ReturnsTheButtonThatEndedIt)
{
    for (const int nId : {IDOK, IDCANCEL}) {
        AnsweringDialog dialog;
        EXPECT_EQ(RunAnd(dialog, IDD_OK_CANCEL, Pressing(nId)), nId);
        EXPECT_EQ(dialog.m_nOKs, nId == IDOK ? 1 : 0);
        EXPECT_EQ(dialog.m_nCancels, nId == IDCANCEL ? 1 : 0);
        EXPECT_EQ(dialog.GetHandle(), nullptr);
    }
}

TEST(VDialogModal, ReturnsWhatEndWithWasGiven)
{
    AnsweringDialog dialog;
    EXPECT_EQ(RunAnd(dialog, IDD_OK_CANCEL, [&](HWND) { dialog.EndWith(4711); }), 4711);
}

TEST(VDialogModal, IsModalFromItsRunOn)
{
    AnsweringDialog dialog;
    EXPECT_FALSE(dialog.IsModal());
    RunAnd(dialog, IDD_OK_CANCEL, [&](HWND hDialog) {
        EXPECT_TRUE(dialog.IsModal());
        EXPECT_EQ(VWindow::FromHandle(hDialog), &dialog);
        Press(hDialog, IDOK);
    });
}

TEST(VDialogModal, MayRunAgain)
{
    AnsweringDialog dialog;
    EXPECT_EQ(RunAnd(dialog, IDD_OK_CANCEL, Pressing(IDOK)), IDOK);
    EXPECT_EQ(RunAnd(dialog, IDD_OK_CANCEL, Pressing(IDCANCEL)), IDCANCEL);
}

TEST(VDialogModal, StaysWhileItRefuses)
{
    AnsweringDialog dialog;
    dialog.m_bOK = dialog.m_bCancels = false;
    ModalDriver driver;
    driver.Next(Pressing(IDOK));
    driver.When([&](HWND) { return dialog.m_nOKs == 1; }, Pressing(IDCANCEL));
    driver.When([&](HWND) { return dialog.m_nCancels == 1; },
                [&](HWND hDialog) {
                    dialog.m_bOK = true;
                    Press(hDialog, IDOK);
                });
    EXPECT_EQ(dialog.DoModal(nullptr, IDD_OK_CANCEL), IDOK);
    EXPECT_EQ(dialog.m_nOKs, 2);
}

TEST(VDialogModal, GivesTheFocusBackAndItsOwnerIsFree)
{
    VWindow owner;
    ASSERT_TRUE(CreateTestWindow(owner));
    owner.Show();
    VWindow edit;
    ASSERT_TRUE(
        edit.Create(owner.GetHandle(), {0, 0, 50, 20}, WS_CHILD | WS_VISIBLE, "Edit", "", 1));
    edit.SetFocus();
    ASSERT_EQ(GetFocus(), edit.GetHandle());
    AnsweringDialog dialog;
    ModalDriver driver;
    driver.Next([&](HWND hDialog) {
        EXPECT_FALSE(IsWindowEnabled(owner.GetHandle()));
        EXPECT_TRUE(IsChild(hDialog, GetFocus()));
        Press(hDialog, IDOK);
    });
    EXPECT_EQ(dialog.DoModal(owner.GetHandle(), IDD_OK_CANCEL), IDOK);
    EXPECT_EQ(GetFocus(), edit.GetHandle());
    EXPECT_TRUE(IsWindowEnabled(owner.GetHandle()));
}

TEST(VDialogModal, TheCloseBoxPressesCancelWhereThereIsOne)
{
    AnsweringDialog dialog;
    dialog.m_nCancelResult = 77; // not asked for
    dialog.m_bCancels = false;
    ModalDriver driver;
    driver.Next(Closing());
    driver.When([&](HWND) { return dialog.m_nCancels == 1; },
                [&](HWND hDialog) {
                    dialog.m_bCancels = true;
                    Closing()(hDialog);
                });
    EXPECT_EQ(dialog.DoModal(nullptr, IDD_OK_CANCEL), IDCANCEL);
    EXPECT_EQ(dialog.m_nCancels, 2);
}

TEST(VDialogModal, TheCloseBoxEndsADialogWithoutCancel)
{
    AnsweringDialog dialog;
    dialog.m_bCancels = false; // not asked
    EXPECT_EQ(RunAnd(dialog, IDD_PLAIN, Closing()), IDCANCEL);
    EXPECT_EQ(dialog.m_nCancels, 0);
    dialog.m_nCancelResult = 77;
    EXPECT_EQ(RunAnd(dialog, IDD_PLAIN, Closing()), 77);
}

TEST(VDialogModal, AForcedCloseAsksCancelToo)
{
    AnsweringDialog dialog;
    dialog.m_bCancels = false;
    ModalDriver driver;
    driver.Next([](HWND hDialog) { PostMessageA(hDialog, WM_ENDSESSION, TRUE, 0); });
    driver.When([&](HWND) { return dialog.m_nCancels == 1; }, Pressing(IDOK));
    EXPECT_EQ(dialog.DoModal(nullptr, IDD_OK_CANCEL), IDOK);
}

TEST(VDialogModal, ThatRefusesItsStartEndsWithTwo)
{
    AnsweringDialog dialog;
    dialog.m_bInitializes = false;
    EXPECT_EQ(dialog.DoModal(nullptr, IDD_OK_CANCEL), 2);
    EXPECT_EQ(dialog.GetHandle(), nullptr);
}

TEST(VDialogModal, OfAMissingTemplateFails)
{
    AnsweringDialog dialog;
    EXPECT_EQ(dialog.DoModal(nullptr, 999), -1);
    EXPECT_EQ(dialog.DoModal(nullptr, IDD_OK_CANCEL, GetModuleHandleA("ntdll.dll")), -1);
}

TEST(VDialogModal, MayOpenAnother)
{
    AnsweringDialog outer;
    AnsweringDialog inner;
    ModalDriver driver;
    driver.Next([&](HWND hOuter) {
        EXPECT_EQ(inner.DoModal(hOuter, IDD_PLAIN), IDCANCEL);
        Press(hOuter, IDOK);
    });
    driver.Next(Closing());
    EXPECT_EQ(outer.DoModal(nullptr, IDD_OK_CANCEL), IDOK);
}

// ---- Modeless dialogs.

TEST_F(VDialogModeless, ReturnsAtOnceWithItsWindow)
{
    EXPECT_TRUE(IsWindow(m_hDialog));
    EXPECT_FALSE(m_dialog.IsModal());
    EXPECT_EQ(VWindow::FromHandle(m_hDialog), &m_dialog);
}

TEST_F(VDialogModeless, EndsWithEveryWayOut)
{
    const UINT uIds[] = {IDOK, IDCANCEL};
    for (const UINT uId : uIds) {
        SendMessageA(m_hDialog, WM_COMMAND, uId, 0);
        EXPECT_FALSE(IsWindow(m_hDialog)) << "id " << uId;
        EXPECT_EQ(m_dialog.GetHandle(), nullptr);
        Open();
    }
    m_dialog.EndWith(5);
    EXPECT_FALSE(IsWindow(m_hDialog));
    EXPECT_EQ(m_dialog.m_nOKs, 1);
    EXPECT_EQ(m_dialog.m_nCancels, 1);
}

TEST_F(VDialogModeless, StaysWhileItRefuses)
{
    m_dialog.m_bOK = m_dialog.m_bCancels = false;
    SendMessageA(m_hDialog, WM_COMMAND, IDOK, 0);
    SendMessageA(m_hDialog, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(IsWindow(m_hDialog));
}

TEST_F(VDialogModeless, TheCloseBoxDoesNotAskCancel)
{
    m_dialog.m_bCancels = false;
    SendMessageA(m_hDialog, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(m_hDialog));
    EXPECT_EQ(m_dialog.m_nCancels, 0);
}

TEST_F(VDialogModeless, GoesWithItsObject)
{
    HWND hWnd = nullptr;
    {
        AnsweringDialog dialog;
        ASSERT_TRUE(dialog.CreateModeless(nullptr, IDD_PLAIN));
        hWnd = dialog.GetHandle();
    }
    EXPECT_FALSE(IsWindow(hWnd));
}

TEST_F(VDialogModeless, MayDeleteItsObjectAtItsEnd)
{
    auto* pDialog = new AnsweringDialog;
    pDialog->GetFlags().Set(V_FLAG_DELETE_SELF);
    ASSERT_TRUE(pDialog->CreateModeless(nullptr, IDD_OK_CANCEL));
    SendMessageA(pDialog->GetHandle(), WM_COMMAND, IDOK, 0);
    EXPECT_FALSE(VWindow::IsLive(pDialog));
}

TEST(VDialog, ThatRefusesItsStartIsNoModelessDialog)
{
    AnsweringDialog dialog;
    dialog.m_bInitializes = false;
    EXPECT_FALSE(dialog.CreateModeless(nullptr, IDD_OK_CANCEL));
    EXPECT_EQ(dialog.GetHandle(), nullptr);
    EXPECT_FALSE(dialog.CreateModeless(nullptr, 999));
}

// ---- Modal and modeless dialogs.

TEST(VDialog, WithoutAWindowDoesNothingAtItsEnd)
{
    AnsweringDialog dialog;
    dialog.EndWith(1);
    EXPECT_FALSE(dialog.OnClose(false));
    EXPECT_FALSE(dialog.OnClose(true));
}

TEST_F(VDialogModeless, LeavesOtherCommandsToTheRest)
{
    EXPECT_EQ(m_dialog.OnCommand(BN_CLICKED, IDC_CHECK, nullptr), V_NOT_HANDLED);
    EXPECT_EQ(m_dialog.OnCommand(0, 0, nullptr), V_NOT_HANDLED);
}

TEST_F(VDialogModeless, AnswersCloseAndUpdateByDefault)
{
    VDialog dialog;
    EXPECT_FALSE(dialog.UpdateCommands());
    EXPECT_EQ(dialog.CancelResult(), 2);
    EXPECT_TRUE(dialog.OnOK());
    EXPECT_TRUE(dialog.OnCancel());
}

TEST(VDialog, ThatIsAPageIsNotEndedByItself)
{
    VWindow parent;
    ASSERT_TRUE(CreateTestWindow(parent));
    VPropertyPage page;
    ASSERT_TRUE(page.CreateModeless(parent.GetHandle(), IDD_PAGE_ONE));
    page.EndWith(IDOK);
    EXPECT_TRUE(page.IsValid());
}

TEST_F(VDialogModeless, ReadsAndSetsItsControlsByTheirIds)
{
    m_dialog.SetItemText(IDC_EDIT, "twelve");
    EXPECT_EQ(ItemText(m_hDialog, IDC_EDIT), "twelve");
    EXPECT_EQ(Text(m_dialog.GetItemText(IDC_EDIT)), "twelve");
    EXPECT_EQ(Text(m_dialog.GetItemText(999)), "");

    EXPECT_FALSE(m_dialog.IsButtonChecked(IDC_CHECK));
    m_dialog.CheckButton(IDC_CHECK, BST_CHECKED);
    EXPECT_TRUE(m_dialog.IsButtonChecked(IDC_CHECK));
    m_dialog.CheckButton(IDC_CHECK, BST_INDETERMINATE);
    EXPECT_FALSE(m_dialog.IsButtonChecked(IDC_CHECK));
    EXPECT_FALSE(m_dialog.IsButtonChecked(999));

    m_dialog.EnableItem(IDC_CHECK, false);
    EXPECT_FALSE(IsWindowEnabled(m_dialog.GetItem(IDC_CHECK)));
    m_dialog.EnableItem(IDC_CHECK, true);
    EXPECT_TRUE(IsWindowEnabled(m_dialog.GetItem(IDC_CHECK)));
    m_dialog.Show();
    m_dialog.ShowItem(IDC_CHECK, false);
    EXPECT_FALSE(IsWindowVisible(m_dialog.GetItem(IDC_CHECK)));
    m_dialog.ShowItem(IDC_CHECK, true);
    EXPECT_TRUE(IsWindowVisible(m_dialog.GetItem(IDC_CHECK)));
}

TEST_F(VDialogModeless, LimitsWhatEditAndComboBoxTake)
{
    m_dialog.LimitItemText(IDC_EDIT, 5);
    m_dialog.LimitItemText(IDC_COMBO, 7);
    EXPECT_EQ(m_dialog.SendItem(IDC_EDIT, EM_GETLIMITTEXT), 5);
    HWND hEdit = FindWindowExA(m_dialog.GetItem(IDC_COMBO), nullptr, "Edit", nullptr);
    EXPECT_EQ(SendMessageA(hEdit, EM_GETLIMITTEXT, 0, 0), 7);
}

TEST_F(VDialogModeless, FocusingAnEditFieldSelectsItsText)
{
    m_dialog.Show();
    m_dialog.SetItemText(IDC_EDIT, "twelve");
    m_dialog.FocusItem(IDOK);
    m_dialog.FocusItem(IDC_EDIT);
    EXPECT_EQ(GetFocus(), m_dialog.GetItem(IDC_EDIT));
    EXPECT_EQ(m_dialog.SendItem(IDC_EDIT, EM_GETSEL), MAKELRESULT(0, 6));
}

// ---- Notifications.

TEST_F(VDialogModeless, AControlsOwnAnswerReachesTheSender)
{
    Record record;
    VRecordingWindow control(record, V_KIND_CHECK_BOX);
    ASSERT_TRUE(control.Attach(m_dialog.GetItem(IDC_CHECK)));
    NMHDR header = {control.GetHandle(), IDC_CHECK, static_cast<UINT>(NM_CUSTOMDRAW)};
    record.lReflect = -1;
    for (const LRESULT lValue : {LRESULT{0}, LRESULT{0x20}, LRESULT{-1}}) {
        record.lReflectValue = lValue;
        m_dialog.m_lNotify = 5; // not asked
        EXPECT_EQ(m_dialog.Send(WM_NOTIFY, IDC_CHECK, reinterpret_cast<LPARAM>(&header)), lValue);
    }
}

TEST_F(VDialogModeless, TheDialogsAnswerReachesTheSender)
{
    NMHDR header = {m_dialog.GetItem(IDC_CHECK), IDC_CHECK, static_cast<UINT>(NM_CUSTOMDRAW)};
    const auto lHeader = reinterpret_cast<LPARAM>(&header);
    EXPECT_EQ(m_dialog.Send(WM_NOTIFY, IDC_CHECK, lHeader), 0);
    m_dialog.m_lNotify = 0x40;
    EXPECT_EQ(m_dialog.Send(WM_NOTIFY, IDC_CHECK, lHeader), 0x40);
}
