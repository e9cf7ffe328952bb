// Only one thing at a time: what is asked of the frame while a dialog is open does not begin a
// second command, and what comes up over a dialog keeps the user from it.

#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"

namespace {

class NestedTest : public WorkTest
{
protected:
    // The dialogs and boxes that are on the screen.
    size_t CountDialogs() const
    {
        size_t uCount = 0;
        for (HWND hWnd : TopWindows(m_program.GetId())) {
            uCount += WindowClass(hWnd) == "#32770" ? 1U : 0U;
        }
        return uCount;
    }

    bool HasFocus(const DialogWindow& dialog) const
    {
        GUITHREADINFO info = {};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(m_program.GetFrame(), nullptr), &info);
        return info.hwndFocus != nullptr && IsChild(dialog.GetHandle(), info.hwndFocus) != 0;
    }
};

TEST_F(NestedTest, CommandsThatArePostedDuringADialogDoNothing)
{
    const std::string sPath = MakeAccount("a.qmk", 3);
    OpenAccount(sPath);
    Select({1});
    const DialogWindow dialog = BeginEditing();
    for (const UINT uCommand :
         {IDM_TRANSACTION_ADD, IDM_TRANSACTION_EDIT, IDM_TRANSACTION_REMOVE,
          IDM_TRANSACTION_CLEARED, IDM_FILE_NEW, IDM_FILE_OPEN, IDM_FILE_SAVEAS, IDM_FILE_IMPORT,
          IDM_TOOLS_OPTIONS, IDM_TOOLS_REPORTS, IDM_HELP_ABOUT, IDM_FILE_CLOSE,
          IDM_VIEW_TRANSACTIONSBAR}) {
        m_program.Post(uCommand);
        m_program.Settle();
        EXPECT_EQ(CountDialogs(), 1U) << "command " << uCommand;
    }
    ActiveList().DoubleClick(0, 2);
    ActiveList().Click(0, 0);
    m_program.Settle();
    EXPECT_EQ(CountDialogs(), 1U);
    EXPECT_FALSE(IsMarked());
    dialog.SetText(IDC_TX_MEMO, "edited");
    dialog.End(IDOK);
    AwaitTitle("a.qmk *");
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
    // From now on they are taken again.
    BeginAdding().End(IDCANCEL);
    EXPECT_NE(SaveCloseAndRead(sPath)[1].find("edited"), std::string::npos);
}

TEST_F(NestedTest, BoxOfAnotherStartKeepsTheUserFromTheDialogAndGivesItBack)
{
    OpenAccount(MakeAccount("a.qmk", 3));
    const DialogWindow dialog = BeginAdding();
    Await("the focus in the dialog", [&] { return HasFocus(dialog); });
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {"none.qmk"});
    const MessageBoxWindow box =
        AwaitMessageBox(m_program.GetId(), "Failed to open.\nFile 'none.qmk' does not exist.");
    EXPECT_FALSE(IsWindowEnabled(dialog.GetHandle()));
    EXPECT_EQ(GetWindow(box.GetHandle(), GW_OWNER), dialog.GetHandle());
    box.Press(IDOK);
    EXPECT_EQ(second.AwaitExit(), 1U);
    Await("the dialog to be enabled", [&] { return IsWindowEnabled(dialog.GetHandle()) != 0; });
    EXPECT_FALSE(IsWindowEnabled(m_program.GetFrame()));
    Await("the focus in the dialog", [&] { return HasFocus(dialog); });
    dialog.End(IDCANCEL);
    Await("the frame to be enabled", [&] { return IsWindowEnabled(m_program.GetFrame()) != 0; });
}

TEST_F(NestedTest, QuestionOfTheDialogKeepsTheUserFromIt)
{
    OpenAccount(MakeAccount("a.qmk", 0, [](QMAccount& account) {
        AddTo(account.store, MakeTransaction(QM_TRANS_CHECK, "1/1/2004", 1));
        account.store.GetCurrentNode()->lNumber = 77;
    }));
    const DialogWindow dialog = BeginAdding();
    Entry{.sDate = "2004-01-02", .sAmount = "1", .sNumber = "77", .sDescription = "twice"}.Fill(
        dialog);
    dialog.Press(IDC_TX_ADD);
    const MessageBoxWindow question = AwaitMessageBox(
        m_program.GetId(), "Check number already in use.\nWould you like to continue?");
    EXPECT_FALSE(IsWindowEnabled(dialog.GetHandle()));
    question.Press(IDNO);
    Await("the dialog to be enabled", [&] { return IsWindowEnabled(dialog.GetHandle()) != 0; });
    Await("the focus in the dialog", [&] { return HasFocus(dialog); });
    dialog.End(IDCANCEL);
}

} // namespace
