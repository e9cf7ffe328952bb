// The bank's web page from the real program: asked of a browser that runs, or shown by the program
// that the registry names.

#include "base/vtext.h"
#include "tests/e2e/standins.h"
#include "tests/e2e/work_test.h"
#include "tests/support/ddeserver_win.h"

namespace {

constexpr char szUrl[] = "http://www.bank.example/login";

class BrowserTest : public WorkTest
{
protected:
    // Opens an account whose bank has that address, byte for byte.
    void OpenAccountOf(const std::string& sUrl)
    {
        OpenAccount(MakeAccount("mine.qmk", 3, [&](QMAccount& account) {
            char(&szField)[sizeof account.header.szBankHomepage] = account.header.szBankHomepage;
            memset(szField, 0, sizeof szField);
            memcpy(szField, sUrl.data(), std::min(sUrl.size(), sizeof szField));
        }));
    }

    std::string AwaitQuestion(DdeServer& server) const
    {
        std::string sQuestion;
        Await("a question", [&] { return !(sQuestion = server.TakeQuestions()).empty(); });
        return sQuestion;
    }

    // The command line of the stand-in, once it has come up.
    std::string AwaitStart() const
    {
        Await("the browser", [this] { return !NotesOf(m_sBrowser).empty(); });
        return NotesOf(m_sBrowser);
    }

    static std::string Lower(std::string sText)
    {
        CharLowerA(sText.data());
        return sText;
    }

    // With blanks in its path.
    std::string m_sBrowser = CopyStandin("standin_browser.exe", PathOf("the browser.exe"));
};

} // namespace

TEST_F(BrowserTest, BankWebpageAsksTheOneThatRuns)
{
    const ScopedBrowser browser("\"" + m_sBrowser + "\" \"%1\"");
    DdeServer server("IEXPLORE", DdeServer::Answers);
    OpenAccountOf(szUrl);
    m_program.Post(IDM_TOOLS_BANKWEBPAGE);
    EXPECT_EQ(AwaitQuestion(server), "WWW_OpenURL|\"http://www.bank.example/login\",,-1,,,,\n");
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(NotesOf(m_sBrowser), "") << "no browser may start when one that runs has answered";
}

TEST_F(BrowserTest, BankWebpageStartsTheProgramOfTheRegistry)
{
    const ScopedBrowser browser("\"" + m_sBrowser + "\" -new \"%1\"");
    OpenAccountOf(szUrl);
    m_program.Post(IDM_TOOLS_BANKWEBPAGE);
    EXPECT_EQ(AwaitStart(), Lower(m_sBrowser) + " " + szUrl);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

// Kept: the command does not ask whether there is an address.
TEST_F(BrowserTest, BankWebpageStartsItWithoutAnAddressToo)
{
    const ScopedBrowser browser(m_sBrowser + " %1");
    OpenAccountOf("");
    m_program.Post(IDM_TOOLS_BANKWEBPAGE);
    EXPECT_EQ(AwaitStart(), Lower(m_sBrowser) + " ");
}

// Someone else may have made the file.
TEST_F(BrowserTest, WhateverAnAddressHoldsIsOneArgumentOfThatOneProgram)
{
    const ScopedBrowser browser(m_sBrowser + " %1");
    const std::string sTrap = CopyStandin("standin_browser.exe", PathOf("trap.exe"));
    const std::string sHostile = "\" & trap.exe\r\n\"" + sTrap + "\" | trap.exe";
    for (const std::string& sUrl : {sHostile.substr(0, 127), std::string(128, 'x')}) {
        OpenAccountOf(sUrl);
        m_program.Post(IDM_TOOLS_BANKWEBPAGE);
        EXPECT_EQ(AwaitStart(), Lower(m_sBrowser) + " " + sUrl.substr(0, 127));
        m_program.Settle();
        EXPECT_EQ(NotesOf(sTrap), "");
        EXPECT_EQ(m_program.Close(), 0U);
        DeleteFileA((m_sBrowser + ".txt").c_str());
    }
}

TEST_F(BrowserTest, BankWebpageTellsThatNoneCouldBeLaunched)
{
    const ScopedBrowser browser("c:\\gone\\browser.exe %1");
    OpenAccountOf(szUrl);
    DoAnswering(IDM_TOOLS_BANKWEBPAGE, "Could not launch browser\n''.");
    WriteWholeFile(m_sBrowser, "this is no program");
    const ScopedBrowser broken("\"" + m_sBrowser + "\"");
    DoAnswering(IDM_TOOLS_BANKWEBPAGE, "Could not launch browser\n'" + Lower(m_sBrowser) + "'.");
}

TEST_F(BrowserTest, GoTakesTheAddressThatStandsInTheField)
{
    const ScopedBrowser browser("\"" + m_sBrowser + "\"");
    OpenAccountOf(szUrl);
    m_program.Post(IDM_FILE_ACCOUNTINFO);
    const DialogWindow sheet = AwaitDialog(m_program, "Account Information - mine.qmk");
    SendTo(sheet.GetHandle(), PSM_SETCURSEL, 1, 0);
    const DialogWindow page(
        m_program.GetProcess(),
        reinterpret_cast<HWND>(SendTo(sheet.GetHandle(), PSM_GETCURRENTPAGEHWND)));
    page.SetText(IDC_BANK_HOMEPAGE, "http://other.example/");
    page.Press(IDC_BANK_GO);
    EXPECT_EQ(AwaitStart(), Lower(m_sBrowser) + " http://other.example/");
    sheet.End(IDCANCEL);
    EXPECT_FALSE(IsMarked());
}
