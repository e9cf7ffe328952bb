// Each command of the menu once: without a document, with one, with a read-only one, with nothing
// selected. What must come up comes up first and is cancelled; the program is there and idle
// afterwards, and nothing has changed that should not.

#include <algorithm>

#include "tests/e2e/standins.h"
#include "tests/e2e/work_test.h"
#include "tests/support/ddeserver_win.h"

namespace {

// What a command brings up with a document and a selection. A box is told by its sentence, another
// window by its caption; several are the choices of machines with and without a printer.
struct Command
{
    UINT uId;
    // After "Cannot ": without a document the command says so. Empty: it needs none.
    std::string sWhat;
    Texts shows;          // empty: nothing
    bool bWrites = false; // refused where the account is read-only
    bool bNeedsSelection = false;
};

constexpr char szFile[] = "story.qmk";
constexpr char szNoPrinter[] =
    "'.\n\nPlease make sure that there is a printer installed and connected to this computer.";

const Command g_commands[] = {
    {.uId = IDM_FILE_NEW, .sWhat = "", .shows = {}},
    {.uId = IDM_FILE_OPEN, .sWhat = "", .shows = {"Open"}},
    {.uId = IDM_FILE_SAVE, .sWhat = "save file", .shows = {}, .bWrites = true},
    {.uId = IDM_FILE_SAVEAS, .sWhat = "save file", .shows = {"Save As"}, .bWrites = true},
    {.uId = IDM_FILE_SAVEALL, .sWhat = "", .shows = {}},
    {.uId = IDM_FILE_PRINT,
     .sWhat = "print file",
     .shows = {"Print", "Failed to print file '" + std::string(szFile) + szNoPrinter}},
    {.uId = IDM_FILE_PREVIEW,
     .sWhat = "preview file",
     .shows = {"Print Preivew - " + std::string(szFile),
               "Failed to create preview for '" + std::string(szFile) + szNoPrinter}},
    // The last is what Wine 8 says by itself without a printer.
    {.uId = IDM_FILE_PAGESETUP, .sWhat = "", .shows = {"Setup Page", "Page Setup", "Error"}},
    {.uId = IDM_FILE_IMPORT, .sWhat = "import file", .shows = {"Open"}},
    {.uId = IDM_FILE_EXPORT, .sWhat = "export file", .shows = {"Save As"}},
    {.uId = IDM_FILE_ACCOUNTINFO,
     .sWhat = "set account information",
     .shows = {"Account Information - " + std::string(szFile)}},
    {.uId = IDM_FILE_PASSWORD, .sWhat = "set password", .shows = {"Set Password"}},
    {.uId = IDM_FILE_RECENT_FIRST, .sWhat = "", .shows = {}},
    {.uId = IDM_FILE_RECENT_EMPTY, .sWhat = "", .shows = {}},
    {.uId = IDM_VIEW_TOOLBAR, .sWhat = "", .shows = {}},
    {.uId = IDM_VIEW_TRANSACTIONSBAR, .sWhat = "", .shows = {}},
    {.uId = IDM_VIEW_STATUSBAR, .sWhat = "", .shows = {}},
    {.uId = IDM_VIEW_GRIDLINES, .sWhat = "change grid lines", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_SHADEDLINES, .sWhat = "change shade lines", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_DATE, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_NUMBER, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_DESCRIPTION, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_DEBIT, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_CREDIT, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_BALANCE, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_MEMO, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_CATEGORY, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_TAG, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_VIEW_CLEARED, .sWhat = "change columns", .shows = {}, .bWrites = true},
    {.uId = IDM_TRANSACTION_ADD,
     .sWhat = "add transaction",
     .shows = {"Add Transaction"},
     .bWrites = true},
    {.uId = IDM_TRANSACTION_EDIT,
     .sWhat = "edit transaction",
     .shows = {"Edit Transaction"},
     .bWrites = true,
     .bNeedsSelection = true},
    {.uId = IDM_TRANSACTION_REMOVE,
     .sWhat = "remove transaction",
     .shows = {"Are you sure you want to remove this transaction?"},
     .bWrites = true,
     .bNeedsSelection = true},
    {.uId = IDM_TRANSACTION_TAX,
     .sWhat = "toggle tag",
     .shows = {},
     .bWrites = true,
     .bNeedsSelection = true},
    {.uId = IDM_TRANSACTION_EXPENSE,
     .sWhat = "toggle tag",
     .shows = {},
     .bWrites = true,
     .bNeedsSelection = true},
    {.uId = IDM_TRANSACTION_VOIDED,
     .sWhat = "toggle tag",
     .shows = {},
     .bWrites = true,
     .bNeedsSelection = true},
    {.uId = IDM_TRANSACTION_CLEARED,
     .sWhat = "toggle tag",
     .shows = {},
     .bWrites = true,
     .bNeedsSelection = true},
    {.uId = IDM_TOOLS_REPORTS,
     .sWhat = "run reports",
     .shows = {"Reports - " + std::string(szFile)}},
    {.uId = IDM_TOOLS_BANKWEBPAGE, .sWhat = "launch browser", .shows = {}},
    {.uId = IDM_TOOLS_CALCULATOR, .sWhat = "", .shows = {"Calculator"}},
    {.uId = IDM_TOOLS_AUTOSIZE, .sWhat = "autosize columns", .shows = {}},
    {.uId = IDM_TOOLS_OPTIONS,
     .sWhat = "",
     .shows = {"Options", "Options - " + std::string(szFile)}},
    {.uId = IDM_WINDOW_CASCADE, .sWhat = "", .shows = {}},
    {.uId = IDM_WINDOW_TILEHORIZONTAL, .sWhat = "", .shows = {}},
    {.uId = IDM_WINDOW_TILEVERTICAL, .sWhat = "", .shows = {}},
    {.uId = IDM_WINDOW_NEXT, .sWhat = "", .shows = {}},
    {.uId = IDM_WINDOW_PREVIOUS, .sWhat = "", .shows = {}},
    {.uId = IDM_HELP_GETTINGSTARTED, .sWhat = "", .shows = {}},
    {.uId = IDM_HELP_CONTENTS, .sWhat = "", .shows = {}},
    {.uId = IDM_HELP_INDEX, .sWhat = "", .shows = {}},
    {.uId = IDM_HELP_ABOUT, .sWhat = "", .shows = {"About Quillmark"}},
};

// Each story tells these at its end.
const std::vector<UINT> g_atTheEnd = {IDM_FILE_CLOSE, IDM_FILE_CLOSEALL, IDM_FILE_EXIT};

class MenuStoryTest : public WorkTest
{
protected:
    // The commands that the program's menu has, of all that there are numbers for.
    std::vector<UINT> CommandsOfTheMenu() const
    {
        std::vector<UINT> commands;
        const auto AddRange = [&](UINT uFirst, UINT uLast) {
            for (UINT uId = uFirst; uId <= uLast; ++uId) {
                if (m_program.GetMenuItem(uId) != MenuItem::Missing) {
                    commands.push_back(uId);
                }
            }
        };
        AddRange(100, 699);
        AddRange(57600, 57699);
        AddRange(59392, 59392);
        return commands;
    }

    // The foremost window that waits for the user, other than the frame; null for none.
    HWND FindPrompt() const
    {
        for (HWND hWnd : TopWindows(m_program.GetId())) {
            if (WindowClass(hWnd) == "#32770" && IsWindowVisible(hWnd) && IsWindowEnabled(hWnd)) {
                return hWnd;
            }
        }
        return nullptr;
    }

    // What is up, as the table tells it; empty for nothing.
    std::string Prompt() const
    {
        HWND hPrompt = FindPrompt();
        if (hPrompt == nullptr) {
            return "";
        }
        const std::string sCaption = WindowText(hPrompt);
        return sCaption == "Quillmark" ? MessageBoxWindow(hPrompt).GetText() : sCaption;
    }

    // Cancels what a command brought up, one window after the other, until the frame is free.
    void CancelAll() const
    {
        Await("the frame to be free again", [this] {
            HWND hPrompt = FindPrompt();
            if (hPrompt != nullptr) {
                // A question without Cancel cannot be closed, only answered.
                const bool bQuestion = GetDlgItem(hPrompt, IDNO) != nullptr;
                PostMessageA(hPrompt, bQuestion ? WM_COMMAND : WM_CLOSE, bQuestion ? IDNO : 0, 0);
                return false;
            }
            return IsWindowEnabled(m_program.GetFrame()) != FALSE;
        });
    }

    // Gives a command and expects one of these to come up.
    void Give(UINT uId, const Texts& shows) const
    {
        const auto IsExpected = [&](const std::string& sPrompt) {
            return std::find(shows.begin(), shows.end(), sPrompt) != shows.end();
        };
        m_program.Post(uId);
        m_program.Settle();
        if (!shows.empty() && !IsExpected("")) {
            Await("'" + shows[0] + "' and not '" + Prompt() + "' after command " +
                      std::to_string(uId),
                  [&] { return IsExpected(Prompt()); });
        } else {
            const std::string sPrompt = Prompt();
            EXPECT_TRUE(sPrompt.empty() || IsExpected(sPrompt)) << uId << ": " << sPrompt;
        }
        CancelAll();
        ASSERT_TRUE(m_program.IsRunning()) << "id " << uId;
    }

    // Gives every command of the table that the menu has. shows tells what it brings up.
    void TellStory(const std::function<Texts(const Command&)>& shows)
    {
        const std::vector<UINT> menu = CommandsOfTheMenu();
        std::vector<UINT> told = g_atTheEnd;
        const size_t uDocuments = m_program.GetDocuments().size();
        for (const Command& command : g_commands) {
            if (std::find(menu.begin(), menu.end(), command.uId) == menu.end()) {
                continue; // a recent file, or the line of none
            }
            told.push_back(command.uId);
            ASSERT_NO_FATAL_FAILURE(Give(command.uId, shows(command)));
            if (command.uId == IDM_FILE_NEW) {
                m_program.AwaitDocuments(uDocuments + 1);
                m_program.Post(IDM_FILE_CLOSE);
            }
            m_program.AwaitDocuments(uDocuments);
        }
        std::sort(told.begin(), told.end());
        EXPECT_EQ(told, menu) << "the test must have given every command of the menu";
        AwaitHelpCalls();
    }

    // The three commands of the help came to their viewer.
    void AwaitHelpCalls() const
    {
        Await("the calls of the viewer", [this] {
            const std::string sNotes = NotesOf(m_sViewer);
            return std::count(sNotes.begin(), sNotes.end(), '\n') == 3;
        });
    }

    // Saves what the commands have changed.
    void Save() const
    {
        Do(IDM_FILE_SAVE);
        Await("the end of saving", [this] { return !IsMarked(); });
    }

    // Closes what is open, all of several, and the program, by their commands.
    void TellTheEnd()
    {
        m_program.Post(IDM_FILE_CLOSE);
        m_program.AwaitDocuments(0);
        m_program.Post(IDM_FILE_NEW);
        m_program.AwaitDocuments(1);
        m_program.Post(IDM_FILE_NEW);
        m_program.AwaitDocuments(2);
        m_program.Post(IDM_FILE_CLOSEALL);
        m_program.AwaitDocuments(0);
        m_program.Post(IDM_FILE_EXIT);
        EXPECT_EQ(m_program.AwaitExit(), 0U);
    }

    static std::string NoDocument(const Command& command)
    {
        return "Cannot " + command.sWhat + "...\nNo document window is selected.";
    }
    static std::string NothingSelected(const Command& command)
    {
        return "Cannot " + command.sWhat + ".\nNo transaction is selected.";
    }

    std::string m_sViewer = CopyStandin("standin_viewer.dll", PathOf("viewer.dll"));
    ScopedHelpViewer m_viewer{m_sViewer};
    DdeServer m_server{"IEXPLORE", DdeServer::Answers};
};

} // namespace

TEST_F(MenuStoryTest, WithoutADocument)
{
    m_program.Open();
    TellStory([](const Command& command) {
        return command.sWhat.empty() ? command.shows : Texts{NoDocument(command)};
    });
    EXPECT_EQ(m_server.TakeQuestions(), "");
    TellTheEnd();
}

TEST_F(MenuStoryTest, WithADocument)
{
    OpenAccount(CopySample(szFile));
    TellStory([](const Command& command) { return command.shows; });
    EXPECT_EQ(ActiveList().GetRowCount(), 447)
        << "no transaction may be removed, since the test confirmed nothing";
    EXPECT_NE(m_server.TakeQuestions(), "")
        << "the program must have asked the browser for the bank's page";
    Save();
    TellTheEnd();
}

TEST_F(MenuStoryTest, WithNothingSelected)
{
    OpenAccount(CopySample(szFile));
    TellStory([this](const Command& command) {
        Select({}); // a dialog that was cancelled may have left a selection
        return command.bNeedsSelection ? Texts{NothingSelected(command)} : command.shows;
    });
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
    Save();
    TellTheEnd();
}

TEST_F(MenuStoryTest, WithAReadOnlyDocument)
{
    const std::string sPath =
        MakeAccount(szFile, 20, [](QMAccount& account) { account.header.bReadOnly = 1; });
    const std::string sBytes = ReadWholeFile(sPath);
    OpenAccount(sPath);
    TellStory([](const Command& command) {
        return command.bWrites ? Texts{sReadOnlySentence} : command.shows;
    });
    TellTheEnd(); // with nothing to save
    EXPECT_EQ(ReadWholeFile(sPath), sBytes);
}
