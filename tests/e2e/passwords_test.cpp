// Accounts with a password: setting it, and opening them.

#include "base/vtext.h"
#include "tests/e2e/keyboard.h"
#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"

namespace {

constexpr char szWrong[] = "Invalid password entered.";
constexpr char szWrongCurrent[] = "Invalid current password entered.";
constexpr char szDiffer[] = "New password entries do not match.";
constexpr char szTurnOff[] =
    "Both new password enteries are empty.\nDo you want password protection turned off?";

class PasswordsTest : public WorkTest
{
protected:
    std::string MakeSecret(const std::string& sPassword) const
    {
        return MakeAccount("secret.qmk", 3, [&](QMAccount& account) {
            VCopyText(account.header.szPassword, sPassword.c_str());
        });
    }

    // Opens the account with the program, by its password.
    void OpenBy(const std::string& sPath, const std::string& sPassword)
    {
        m_program.Start({sPath});
        const DialogWindow dialog = AwaitDialog(m_program, "Enter Password");
        dialog.SetText(IDC_PW_CURRENT, sPassword);
        dialog.End(IDOK);
        m_program.AwaitFrame();
        m_program.AwaitActive(sPath);
    }

    DialogWindow BeginSetting() const
    {
        m_program.Post(IDM_FILE_PASSWORD);
        return AwaitDialog(m_program, "Set Password");
    }

    static void Enter(const DialogWindow& dialog, const std::string& sNew,
                      const std::string& sAgain)
    {
        dialog.SetText(IDC_PW_NEW, sNew);
        dialog.SetText(IDC_PW_NEWAGAIN, sAgain);
    }

    // Saves, and returns the password in the file.
    std::string PasswordInFile(const std::string& sPath) const
    {
        Do(IDM_FILE_SAVE);
        CloseAnswering("", 0);
        QMAccount account(sPath.c_str());
        EXPECT_TRUE(account.Read());
        account.Close();
        return account.header.szPassword;
    }
};

TEST_F(PasswordsTest, CaseDoesNotCount)
{
    OpenBy(MakeSecret("abc"), "ABC");
    EXPECT_EQ(ActiveList().GetRowCount(), 3);
    EXPECT_FALSE(IsMarked());
}

TEST_F(PasswordsTest, DialogNamesTheFileAndHidesTheEntry)
{
    m_program.Start({MakeSecret("abc")});
    const DialogWindow dialog = AwaitDialog(m_program, "Enter Password");
    EXPECT_EQ(dialog.GetText(IDC_PW_EXPLANATION), "secret.qmk is password protected.");
    EXPECT_EQ(SendTo(dialog.GetItem(IDC_PW_CURRENT), EM_GETPASSWORDCHAR), '*');
    EXPECT_EQ(dialog.GetDefaultButton(), IDOK);
    dialog.End(IDCANCEL);
    m_program.AnswerBox("Failed to open file '" + PathOf("secret.qmk") + "'.");
}

TEST_F(PasswordsTest, ThreeWrongEntriesLeaveTheFileClosedAndLocked)
{
    const std::string sPath = MakeSecret("abc");
    m_program.Start({sPath});
    const DialogWindow dialog = AwaitDialog(m_program, "Enter Password");
    for (const char* szEntry : {"", "ab", "abcd"}) {
        dialog.SetText(IDC_PW_CURRENT, szEntry);
        dialog.Press(IDOK);
        m_program.AnswerBox(szWrong);
    }
    m_program.AnswerBox("Failed to open file '" + sPath + "'.");
    m_program.AwaitFrame();
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_TRUE(IsLocked(sPath));
    // The program keeps the file open until it ends. So there is no second try and no other
    // question.
    ChooseToOpen(sPath);
    m_program.AnswerBox("Failed to open file '" + sPath + "'.");
    EXPECT_EQ(m_program.Close(), 0U);
    OpenBy(sPath, "abc");
}

TEST_F(PasswordsTest, CountStartsAnewWithEachOpening)
{
    const std::string sPath = MakeSecret("abc");
    m_program.Open();
    for (int i = 0; i < 2; ++i) {
        ChooseToOpen(sPath);
        const DialogWindow dialog = AwaitDialog(m_program, "Enter Password");
        for (const char* szEntry : {"x", "y"}) {
            dialog.SetText(IDC_PW_CURRENT, szEntry);
            dialog.Press(IDOK);
            m_program.AnswerBox(szWrong);
        }
        dialog.SetText(IDC_PW_CURRENT, "abc");
        dialog.End(IDOK);
        m_program.AwaitActive(sPath);
        CloseAnswering("", 0);
    }
}

TEST_F(PasswordsTest, SixteenthCharacterCannotBeTyped)
{
    const Keyboard keyboard(m_program);
    const std::string sPath = MakeAccount("plain.qmk", 1);
    OpenAccount(sPath);
    const DialogWindow dialog = BeginSetting();
    for (const int nId : {IDC_PW_NEW, IDC_PW_NEWAGAIN}) {
        keyboard.TabTo(dialog, nId);
        keyboard.Type("123456789012345678");
        Await("fifteen characters", [&] { return dialog.GetText(nId).size() >= 15; });
    }
    dialog.End(IDOK);
    AwaitTitle("plain.qmk *");
    EXPECT_EQ(PasswordInFile(sPath), "123456789012345");
}

TEST_F(PasswordsTest, CurrentOneIsNotAskedForWhenThereIsNone)
{
    OpenNew();
    const DialogWindow dialog = BeginSetting();
    EXPECT_FALSE(dialog.IsEnabled(IDC_PW_CURRENT));
    EXPECT_FALSE(dialog.IsEnabled(IDC_PW_CURRENTLABEL));
    dialog.End(IDCANCEL);
    EXPECT_FALSE(IsMarked());
}

TEST_F(PasswordsTest, EntriesThatDifferInCaseGiveTheSecondOne)
{
    const std::string sPath = MakeAccount("plain.qmk", 1);
    OpenAccount(sPath);
    const DialogWindow dialog = BeginSetting();
    Enter(dialog, "", "filled");
    dialog.Press(IDOK);
    m_program.AnswerBox(szDiffer);
    Enter(dialog, "filled", "felled");
    dialog.Press(IDOK);
    m_program.AnswerBox(szDiffer);
    EXPECT_TRUE(dialog.IsOpen());
    Enter(dialog, "filled", "FILLED");
    dialog.End(IDOK);
    EXPECT_EQ(PasswordInFile(sPath), "FILLED");
}

TEST_F(PasswordsTest, ThreeWrongCurrentOnesEndTheDialogAndChangeNothing)
{
    const std::string sPath = MakeSecret("abc");
    OpenBy(sPath, "abc");
    const DialogWindow dialog = BeginSetting();
    Enter(dialog, "new", "new");
    for (const char* szEntry : {"", "x", "abcd"}) {
        ASSERT_TRUE(dialog.IsOpen());
        dialog.SetText(IDC_PW_CURRENT, szEntry);
        dialog.Press(IDOK);
        m_program.AnswerBox(szWrongCurrent);
    }
    dialog.AwaitEnd();
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(PasswordInFile(sPath), "abc");
}

TEST_F(PasswordsTest, BothEntriesEmptyTurnItOffWhenConfirmed)
{
    const std::string sPath = MakeSecret("abc");
    OpenBy(sPath, "abc");
    const DialogWindow dialog = BeginSetting();
    dialog.SetText(IDC_PW_CURRENT, "Abc");
    dialog.Press(IDOK);
    m_program.AnswerQuestion(szTurnOff, {IDYES, IDNO}, IDNO);
    m_program.Settle();
    ASSERT_TRUE(dialog.IsOpen());
    dialog.Press(IDOK);
    m_program.AnswerQuestion(szTurnOff, {IDYES, IDNO}, IDYES);
    dialog.AwaitEnd();
    AwaitTitle("secret.qmk *");
    EXPECT_EQ(PasswordInFile(sPath), "");
    HandOverFile(sPath);
}

TEST_F(PasswordsTest, ReadOnlyAccountTakesAPasswordThatIsNeverSaved)
{
    const std::string sPath =
        MakeAccount("plain.qmk", 1, [](QMAccount& account) { account.header.bReadOnly = 1; });
    const std::string sBytes = ReadWholeFile(sPath);
    OpenAccount(sPath);
    const DialogWindow dialog = BeginSetting();
    Enter(dialog, "new", "new");
    dialog.End(IDOK);
    AwaitTitle("plain.qmk *");
    DoAnswering(IDM_FILE_SAVE, sReadOnlySentence);
    CloseAnswering("plain.qmk", IDNO);
    EXPECT_EQ(ReadWholeFile(sPath), sBytes);
}

} // namespace
