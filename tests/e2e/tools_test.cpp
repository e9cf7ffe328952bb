// Account Information, Options and the calculator in the real program: what they change and store.

#include "base/vtext.h"
#include "tests/e2e/keyboard.h"
#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"

namespace {

class ToolsTest : public WorkTest
{
protected:
    DialogWindow Begin(UINT uCommand, const std::string& sCaption) const
    {
        m_program.Post(uCommand);
        return AwaitDialog(m_program, sCaption);
    }

    DialogWindow AwaitPage(const DialogWindow& sheet, int nPage, int nControl) const
    {
        return ::AwaitPage(m_program, sheet, nPage, nControl);
    }

    QMAccountHeader HeaderOf(const std::string& sPath) const
    {
        QMAccount account(sPath.c_str());
        EXPECT_TRUE(account.Read()) << sPath;
        return account.header;
    }

    // The control or list with the focus.
    HWND FocusOfProgram() const
    {
        GUITHREADINFO info = {};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(m_program.GetFrame(), nullptr), &info);
        return info.hwndFocus;
    }

    std::string Shown(const DialogWindow& calculator) const
    {
        return calculator.GetText(IDC_CALC_DISPLAY);
    }
};

} // namespace

// ---- Account Information.

TEST_F(ToolsTest, AccountInformationGoesIntoTheFile)
{
    const std::string sPath = CopySample("mine.qmk");
    OpenAccount(sPath);
    const DialogWindow sheet = Begin(IDM_FILE_ACCOUNTINFO, "Account Information - mine.qmk");
    AwaitPage(sheet, 0, IDC_ACCOUNT_NUMBER).SetText(IDC_ACCOUNT_NUMBER, "77-1");
    AwaitPage(sheet, 0, IDC_ACCOUNT_NUMBER).SetText(IDC_ACCOUNT_MINIMUM, "");
    AwaitPage(sheet, 1, IDC_BANK_NAME).SetText(IDC_BANK_NAME, "");
    AwaitPage(sheet, 2, IDC_HOLDER_NAME).SetText(IDC_HOLDER_CITY, "Larknoor");
    sheet.End(IDOK);
    AwaitTitle("mine.qmk *");
    Do(IDM_FILE_SAVE);
    CloseAnswering("", 0);
    const QMAccountHeader header = HeaderOf(sPath);
    EXPECT_STREQ(header.szAccountNumber, "77-1");
    EXPECT_STREQ(header.szBankName, "First Example Bank") << "an emptied field must keep its text";
    EXPECT_STREQ(header.szHolderCity, "Larknoor");
    EXPECT_EQ(header.fMinimumBalance, 0);
}

TEST_F(ToolsTest, AccountInformationCancelledChangesNothing)
{
    OpenAccount(CopySample("mine.qmk"));
    const DialogWindow sheet = Begin(IDM_FILE_ACCOUNTINFO, "Account Information - mine.qmk");
    AwaitPage(sheet, 0, IDC_ACCOUNT_NUMBER).SetText(IDC_ACCOUNT_NUMBER, "77-1");
    sheet.End(IDCANCEL);
    EXPECT_FALSE(IsMarked());
}

TEST_F(ToolsTest, ReadOnlyProtectHoldsFromThenOnUntilItIsTakenOff)
{
    OpenAccount(CopySample("mine.qmk"));
    DialogWindow sheet = Begin(IDM_FILE_ACCOUNTINFO, "Account Information - mine.qmk");
    AwaitPage(sheet, 0, IDC_ACCOUNT_READONLY).Check(IDC_ACCOUNT_READONLY);
    EXPECT_FALSE(AwaitPage(sheet, 0, IDC_ACCOUNT_NUMBER).IsEnabled(IDC_ACCOUNT_NUMBER));
    EXPECT_TRUE(AwaitPage(sheet, 1, IDC_BANK_GO).IsEnabled(IDC_BANK_GO));
    sheet.End(IDOK);
    DoAnswering(IDM_TRANSACTION_ADD, sReadOnlySentence);
    sheet = Begin(IDM_FILE_ACCOUNTINFO, "Account Information - mine.qmk");
    AwaitPage(sheet, 0, IDC_ACCOUNT_READONLY).Check(IDC_ACCOUNT_READONLY, false);
    sheet.End(IDOK);
    Add({.sDate = "2004-12-31", .sAmount = "1", .sDescription = "goes again"});
    AwaitRowCount(448);
}

// ---- Options.

TEST_F(ToolsTest, OptionsAreKeptInTheSettings)
{
    m_program.Open();
    const DialogWindow sheet = Begin(IDM_TOOLS_OPTIONS, "Options");
    const DialogWindow general = AwaitPage(sheet, 0, IDC_OPTION_SORT);
    general.Check(IDC_OPTION_SORT);
    general.Check(IDC_OPTION_RELOAD, false);
    AwaitPage(sheet, 1, IDC_OPTION_HOLDERNAME).Check(IDC_OPTION_HOLDERNAME);
    const DialogWindow display = AwaitPage(sheet, 2, IDC_OPTION_FONT);
    EXPECT_FALSE(display.IsEnabled(IDC_OPTION_SELECTFONT));
    EXPECT_EQ(display.GetText(IDC_OPTION_FONT), "");
    sheet.End(IDOK);
    m_program.Settle();
    EXPECT_EQ(ReadSettingNumber("Settings", "Options - General"), 26U);
    EXPECT_EQ(ReadSettingNumber("Settings", "Options - Printing"), 7U);
    EXPECT_EQ(ReadSettingNumber("Settings", "Balance Color Pos"), 8760651U);
    EXPECT_EQ(ReadSettingNumber("Settings", "Balance Color Neg"), 2638537U);
}

TEST_F(ToolsTest, DefaultsTurnTheSplashScreenOn)
{
    m_program.Open();
    const DialogWindow sheet = Begin(IDM_TOOLS_OPTIONS, "Options");
    AwaitPage(sheet, 0, IDC_OPTION_DEFAULTS).Press(IDC_OPTION_DEFAULTS);
    m_program.Settle();
    sheet.End(IDOK);
    m_program.Settle();
    EXPECT_EQ(ReadSettingNumber("Settings", "Options - General"), 15U);
}

TEST_F(ToolsTest, CancelledOptionsAreNot)
{
    m_program.Open();
    const std::vector<std::string> before = AllSettings();
    const DialogWindow sheet = Begin(IDM_TOOLS_OPTIONS, "Options");
    AwaitPage(sheet, 0, IDC_OPTION_SORT).Check(IDC_OPTION_SORT);
    sheet.End(IDCANCEL);
    m_program.Settle();
    EXPECT_EQ(AllSettings(), before);
}

TEST_F(ToolsTest, UnclearedTransactionsLeaveTheBalanceOfEveryWindow)
{
    const auto notCleared = [](QMAccount& account) {
        account.store.First();
        account.store.GetCurrentNode()->lFlags |= QM_TRANS_FLAG_NOT_CLEARED;
    };
    const std::string sFirst = MakeAccount("one.qmk", 3, notCleared);
    OpenAccount(sFirst);
    const std::vector<std::string> before = Column("Balance");
    HandOverFile(MakeAccount("two.qmk", 3, notCleared));
    EXPECT_EQ(Column("Balance"), before);
    const DialogWindow sheet = Begin(IDM_TOOLS_OPTIONS, "Options - two.qmk");
    AwaitPage(sheet, 0, IDC_OPTION_UNCLEARED).Check(IDC_OPTION_UNCLEARED, false);
    sheet.End(IDOK);
    m_program.Settle();
    const std::vector<std::string> after = Column("Balance");
    EXPECT_NE(after, before);
    EXPECT_FALSE(IsMarked()) << "an option must not mark the document as changed";
    m_program.Post(IDM_WINDOW_NEXT);
    m_program.AwaitActive(sFirst);
    EXPECT_EQ(Column("Balance"), after);
}

TEST_F(ToolsTest, FontGoesToTheAccountInFrontAlone)
{
    constexpr char szSerif[] = "Liberation Serif";
    const auto setSerif = [&](QMAccount& account) {
        VCopyText(account.header.szFontFace, szSerif);
    };
    const std::string sBehind = MakeAccount("one.qmk", 3, setSerif);
    const std::string sInFront = MakeAccount("two.qmk", 3, setSerif);
    OpenAccount(sBehind);
    HandOverFile(sInFront);
    const DialogWindow sheet = Begin(IDM_TOOLS_OPTIONS, "Options - two.qmk");
    const DialogWindow display = AwaitPage(sheet, 2, IDC_OPTION_FONT);
    EXPECT_EQ(display.GetText(IDC_OPTION_FONT), szSerif);
    display.Press(IDC_OPTION_DEFAULTS);
    Await("the system's font", [&] { return display.GetText(IDC_OPTION_FONT) != szSerif; });
    const std::string sFace = display.GetText(IDC_OPTION_FONT);
    sheet.End(IDOK);
    AwaitTitle("two.qmk *");
    Do(IDM_FILE_SAVE);
    Await("the end of saving", [this] { return !IsMarked(); });
    m_program.Post(IDM_WINDOW_NEXT);
    m_program.AwaitActive(sBehind); // without the mark of a change
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(HeaderOf(sInFront).szFontFace, sFace);
    EXPECT_STREQ(HeaderOf(sBehind).szFontFace, szSerif);
}

TEST_F(ToolsTest, RemovingDoesNotAskOnceItIsTurnedOff)
{
    OpenAccount(CopySample());
    const DialogWindow sheet = Begin(IDM_TOOLS_OPTIONS, "Options - household.qmk");
    AwaitPage(sheet, 0, IDC_OPTION_CONFIRM).Check(IDC_OPTION_CONFIRM, false);
    sheet.End(IDOK);
    m_program.Settle();
    Select({5});
    Do(IDM_TRANSACTION_REMOVE);
    AwaitRowCount(446);
}

// ---- The calculator.

TEST_F(ToolsTest, CalculatorTakesTheKeyboardAndGivesItBack)
{
    OpenAccount(CopySample());
    const DialogWindow calculator = Begin(IDM_TOOLS_CALCULATOR, "Calculator");
    const Keyboard keyboard(m_program);
    keyboard.Type("12.5");
    keyboard.Press(VK_MULTIPLY);
    keyboard.Press(VK_NUMPAD4);
    keyboard.Press(VK_RETURN);
    Await("the display 50.", [&] { return Shown(calculator) == "50."; });
    keyboard.Press(VK_DELETE);
    Await("the display 0.", [&] { return Shown(calculator) == "0."; });
    keyboard.Press(VK_SPACE);
    keyboard.Press(VK_NUMPAD7);
    Await("the display 7.", [&] { return Shown(calculator) == "7."; });
    keyboard.Press(VK_ESCAPE);
    Await("the display 0. after Escape", [&] { return Shown(calculator) == "0."; });
    EXPECT_TRUE(calculator.IsOpen());
    EXPECT_EQ(ActiveList().GetRowCount(), 447) << "Delete and Enter must go to the calculator";
    EXPECT_TRUE(IsWindowEnabled(m_program.GetFrame())) << "no dialog may have come up";
    calculator.Close();
    calculator.AwaitEnd();
    m_program.Settle();
    keyboard.Press(VK_RETURN); // edits again
    AwaitDialog(m_program, "Edit Transaction").End(IDCANCEL);
}

TEST_F(ToolsTest, CalculatorTakesCommandsThatComeToTheFrame)
{
    OpenAccount(CopySample());
    const DialogWindow calculator = Begin(IDM_TOOLS_CALCULATOR, "Calculator");
    m_program.Settle();
    m_program.Post(IDM_CALC_4);
    Await("the display 4.", [&] { return Shown(calculator) == "4."; });
    m_program.Post(IDM_TRANSACTION_REMOVE);
    m_program.Settle();
    EXPECT_TRUE(IsWindowEnabled(m_program.GetFrame())) << "no dialog may have come up";
    EXPECT_EQ(Shown(calculator), "4.");
}

// The program works on beside it.
TEST_F(ToolsTest, CalculatorCountsAsNoBox)
{
    const std::string sPath = MakeAccount("mine.qmk", 3);
    OpenAccount(sPath);
    const DialogWindow calculator = Begin(IDM_TOOLS_CALCULATOR, "Calculator");
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    SetForegroundWindow(m_program.GetFrame());
    Await("the frame in front", [&] { return GetForegroundWindow() == m_program.GetFrame(); });
    Select({1});
    DoAnswering(IDM_TRANSACTION_REMOVE, "Are you sure you want to remove this transaction?",
                {IDYES, IDNO}, IDYES);
    AwaitRowCount(2);
    EXPECT_TRUE(calculator.IsOpen());
}

TEST_F(ToolsTest, CalculatorGoesWithTheFrame)
{
    m_program.Open();
    Begin(IDM_TOOLS_CALCULATOR, "Calculator");
    EXPECT_EQ(m_program.Close(), 0U);
}

TEST_F(ToolsTest, CalculatorKeepsItsPlace)
{
    m_program.Open();
    DialogWindow calculator = Begin(IDM_TOOLS_CALCULATOR, "Calculator");
    SetWindowPos(calculator.GetHandle(), nullptr, 140, 90, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    Await("the stored position of the calculator",
          [] { return ReadSettingText("Settings", "Calculator Position") == "0140 0090"; });
    calculator.Close();
    calculator.AwaitEnd();
    m_program.Settle();
    calculator = Begin(IDM_TOOLS_CALCULATOR, "Calculator");
    RECT place = {};
    GetWindowRect(calculator.GetHandle(), &place);
    EXPECT_EQ(place.left, 140);
    EXPECT_EQ(place.top, 90);
}

// ---- The keyboard between register and Transactions Bar.

TEST_F(ToolsTest, F6GoesToTheTransactionsBarAndBack)
{
    OpenAccount(CopySample());
    Do(IDM_VIEW_TRANSACTIONSBAR);
    HWND hList = Program::GetList(m_program.GetActiveDocument());
    HWND hPeriods = FindChildById(m_program.GetFrame(), IDC_TB_PERIOD);
    const Keyboard keyboard(m_program);
    SetForegroundWindow(m_program.GetFrame());
    Await("the focus in the register", [&] { return FocusOfProgram() == hList; });
    for (const WORD uBack : {WORD{VK_F6}, WORD{VK_ESCAPE}}) {
        keyboard.Press(VK_F6);
        Await("the focus in the bar", [&] { return FocusOfProgram() == hPeriods; });
        keyboard.Press(uBack);
        Await("the focus back", [&] { return FocusOfProgram() == hList; });
    }
    EXPECT_EQ(WindowText(hList), "Transactions") << "the name of the list for screen readers";
    EXPECT_EQ(WindowText(GetWindow(hPeriods, GW_HWNDPREV)), "Period:");
}
