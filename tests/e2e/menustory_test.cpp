// Each command of the menu once: with a document, without one, with a read-only one, and with
// nothing selected. The test answers what comes up. Afterwards the program must still run and be
// idle.

#include <algorithm>

#include "tests/e2e/work_test.h"

namespace {

// These commands close documents or the program, and have tests of their own.
const std::vector<UINT> g_leftOut = {
    IDM_FILE_EXIT,
    IDM_FILE_CLOSE,
    IDM_FILE_CLOSEALL,
    // These start the help viewer of the machine.
    IDM_HELP_GETTINGSTARTED,
    IDM_HELP_CONTENTS,
    IDM_HELP_INDEX,
    // This one starts its browser.
    IDM_TOOLS_BANKWEBPAGE,
};

class MenuStoryTest : public WorkTest
{
protected:
    // The commands of the menu without those above.
    std::vector<UINT> CommandsOfTheMenu() const
    {
        std::vector<UINT> commands;
        const auto AddRange = [&](UINT uFirst, UINT uLast) {
            for (UINT uId = uFirst; uId <= uLast; ++uId) {
                if (m_program.GetMenuItem(uId) != MenuItem::Missing &&
                    std::find(g_leftOut.begin(), g_leftOut.end(), uId) == g_leftOut.end()) {
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

    // Cancels what a command opened, one window after the other, until the frame is enabled.
    void CancelAll() const
    {
        Await("the frame to be free again", [this] {
            HWND hPrompt = FindPrompt();
            if (hPrompt != nullptr) {
                // A question without Cancel cannot be closed. It must be answered.
                const bool bQuestion = GetDlgItem(hPrompt, IDNO) != nullptr;
                PostMessageA(hPrompt, bQuestion ? WM_COMMAND : WM_CLOSE, bQuestion ? IDNO : 0, 0);
                return false;
            }
            return IsWindowEnabled(m_program.GetFrame()) != FALSE;
        });
    }

    void TellStory()
    {
        const std::vector<UINT> commands = CommandsOfTheMenu();
        EXPECT_GT(commands.size(), 40U);
        for (const UINT uId : commands) {
            SCOPED_TRACE(uId);
            const size_t uBefore = m_program.GetDocuments().size();
            m_program.Post(uId);
            m_program.Settle();
            CancelAll();
            ASSERT_TRUE(m_program.IsRunning());
            if (uId == IDM_FILE_NEW) {
                m_program.AwaitDocuments(uBefore + 1);
                m_program.Post(IDM_FILE_CLOSE);
                m_program.AwaitDocuments(uBefore);
            }
            EXPECT_EQ(m_program.GetDocuments().size(), uBefore);
        }
    }
};

} // namespace

TEST_F(MenuStoryTest, WithoutADocument)
{
    m_program.Open();
    TellStory();
    EXPECT_EQ(m_program.Close(), 0U);
}

TEST_F(MenuStoryTest, WithADocument)
{
    OpenAccount(CopySample());
    TellStory();
    EXPECT_EQ(ActiveList().GetRowCount(), 447) << "nothing was confirmed";
}

TEST_F(MenuStoryTest, WithNothingSelected)
{
    OpenAccount(CopySample());
    Select({});
    TellStory();
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
}

TEST_F(MenuStoryTest, WithAReadOnlyDocument)
{
    const std::string sPath =
        MakeAccount("kept.qmk", 20, [](QMAccount& account) { account.header.bReadOnly = 1; });
    const std::string sBytes = ReadWholeFile(sPath);
    OpenAccount(sPath);
    TellStory();
    EXPECT_EQ(m_program.Close(), 0U) << "nothing to save";
    EXPECT_EQ(ReadWholeFile(sPath), sBytes);
}
