// The status bar: its panes, how they share its width, and the prompts in the free one.

#include <algorithm>
#include <array>

#include "tests/e2e/e2e_test.h"
#include "tests/e2e/remoteprocess.h"

namespace {

constexpr int nPanes = 5;

FARPROC FunctionOf(const char* szModule, const char* szName)
{
    return GetProcAddress(GetModuleHandleA(szModule), szName);
}

class StatusBarTest : public E2ETest
{
protected:
    using Edges = std::array<int, nPanes>;

    // The right edges of the panes.
    Edges GetEdges() const
    {
        RemoteMemory memory(m_program.GetProcess(), sizeof(Edges));
        EXPECT_EQ(SendTo(m_program.GetStatusBar(), SB_GETPARTS, nPanes, memory.AsParameter()),
                  nPanes);
        Edges edges = {};
        memory.Read(0, edges.data(), sizeof edges);
        return edges;
    }

    // Measures texts in the font of the bar.
    std::vector<int> Measure(const std::vector<std::string>& texts) const
    {
        // Some systems answer this message only within the program.
        const UINT_PTR hFont =
            CallRemote(m_program.GetProcess(), FunctionOf("user32.dll", "SendMessageA"),
                       reinterpret_cast<UINT_PTR>(m_program.GetStatusBar()), WM_GETFONT);
        RemoteMemory memory(m_program.GetProcess(), sizeof(LOGFONTA));
        CallRemote(m_program.GetProcess(), FunctionOf("gdi32.dll", "GetObjectA"), hFont,
                   sizeof(LOGFONTA), static_cast<UINT_PTR>(memory.AsParameter()));
        LOGFONTA font = {};
        memory.Read(0, &font, sizeof font);
        HFONT hCopy = CreateFontIndirectA(&font);
        HDC hScreen = GetDC(nullptr);
        HGDIOBJ hOld = SelectObject(hScreen, hCopy);
        std::vector<int> widths;
        for (const std::string& sText : texts) {
            SIZE size = {};
            GetTextExtentPoint32A(hScreen, sText.c_str(), static_cast<int>(sText.size()), &size);
            widths.push_back(size.cx);
        }
        SelectObject(hScreen, hOld);
        ReleaseDC(nullptr, hScreen);
        DeleteObject(hCopy);
        return widths;
    }

    std::vector<std::string> GetTexts() const
    {
        std::vector<std::string> texts;
        for (int nPane = 1; nPane < nPanes; ++nPane) {
            texts.push_back(m_program.GetPaneText(nPane));
        }
        return texts;
    }

    int BarWidth() const
    {
        RECT area = {};
        GetClientRect(m_program.GetStatusBar(), &area);
        return area.right;
    }

    // From the right: 15 pixels free, then each text with 10 more pixels.
    Edges ExpectedEdges() const
    {
        const std::vector<int> widths = Measure(GetTexts());
        EXPECT_GT(*std::min_element(widths.begin(), widths.end()), 0);
        Edges edges = {};
        edges[4] = BarWidth() - 15;
        edges[3] = edges[4] - widths[3] - 10;
        edges[2] = edges[3] - widths[2] - 10;
        edges[1] = edges[2] - widths[1] - 10;
        edges[0] = edges[1] - widths[0] - 10;
        return edges;
    }

    // A pane without a text takes no room, not even a gap.
    void ExpectFreePaneAlone() const
    {
        EXPECT_EQ(GetTexts(), std::vector<std::string>(4));
        const int nRight = BarWidth() - 15;
        EXPECT_EQ(GetEdges(), (Edges{nRight, nRight, nRight, nRight, nRight}));
        EXPECT_FALSE(m_program.IsStatusSimple());
    }

    void SetFrameWidth(int nWidth) const
    {
        SetWindowPos(m_program.GetFrame(), nullptr, 0, 0, nWidth, 400, SWP_NOZORDER);
        m_program.Settle();
    }

    void SelectMenuItem(UINT uItem, UINT uFlags, HMENU hMenu) const
    {
        SendTo(m_program.GetFrame(), WM_MENUSELECT, MAKEWPARAM(uItem, uFlags),
               reinterpret_cast<LPARAM>(hMenu));
    }

    // What the first pane shows for an item of the frame's menu.
    std::string PromptOf(UINT uCommand, UINT uFlags = MF_HILITE) const
    {
        SelectMenuItem(uCommand, uFlags, GetMenu(m_program.GetFrame()));
        return m_program.GetPaneText(0);
    }
};

// ---- Panes.

TEST_F(StatusBarTest, WithoutADocumentOnlyTheFreePaneHasRoom)
{
    m_program.Open();
    EXPECT_EQ(m_program.GetPaneText(0), "Ready");
    ExpectFreePaneAlone();
}

TEST_F(StatusBarTest, PanesTakeTheRoomOfTheirTexts)
{
    m_program.Open({CopySample()});
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 447 of 447");
    EXPECT_EQ(GetEdges(), ExpectedEdges());
    SetFrameWidth(900);
    EXPECT_EQ(GetEdges(), ExpectedEdges());
    SetFrameWidth(750);
    EXPECT_EQ(GetEdges(), ExpectedEdges());
}

TEST_F(StatusBarTest, PanesFollowTheSelection)
{
    m_program.Open({CopySample()});
    const Edges before = GetEdges();
    ActiveList().SetState(-1, 0, LVIS_SELECTED);
    ActiveList().SetState(5, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    Await("the sixth transaction",
          [&] { return m_program.GetPaneText(1) == " Transaction: 6 of 447"; });
    EXPECT_EQ(GetEdges(), ExpectedEdges());
    EXPECT_GT(GetEdges()[0], before[0]);
    EXPECT_EQ(GetEdges()[1], before[1]);
}

TEST_F(StatusBarTest, LastPaneHasTodaysDate)
{
    constexpr const char* aWeekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                         "Thursday", "Friday", "Saturday"};
    SYSTEMTIME before = {};
    GetLocalTime(&before);
    m_program.Open({CopySample()});
    SYSTEMTIME after = {};
    GetLocalTime(&after);
    std::string sExpected[2];
    for (int i = 0; i < 2; ++i) {
        const SYSTEMTIME& day = i == 0 ? before : after;
        char szText[64];
        snprintf(szText, sizeof szText, " %s, %d/%d/%4d", aWeekdays[day.wDayOfWeek], day.wMonth,
                 day.wDay, day.wYear);
        sExpected[i] = szText;
    }
    const std::string sText = m_program.GetPaneText(4);
    EXPECT_TRUE(sText == sExpected[0] || sText == sExpected[1]) << sText;
}

TEST_F(StatusBarTest, ClosingTheDocumentEmptiesThePanes)
{
    m_program.Open({CopySample()});
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("");
    m_program.Settle();
    ExpectFreePaneAlone();
}

TEST_F(StatusBarTest, PanesAreThoseOfTheActiveDocument)
{
    const std::string sPath = CopySample();
    m_program.Open({sPath, MakeAccount("three.qmk", 3)});
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 3 of 3");
    HandOverFile(sPath);
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 447 of 447");
    EXPECT_EQ(GetEdges(), ExpectedEdges());
}

// ---- Too narrow a frame.

TEST_F(StatusBarTest, NarrowFrameShowsTheFreePaneAlone)
{
    m_program.Open({CopySample()});
    EXPECT_FALSE(m_program.IsStatusSimple());
    const std::vector<std::string> texts = GetTexts();
    SetFrameWidth(300);
    EXPECT_TRUE(m_program.IsStatusSimple());
    EXPECT_EQ(m_program.GetPaneText(0), "Ready");
    EXPECT_EQ(PromptOf(IDM_FILE_NEW), "Create Document (Ctrl+N)");
    SetFrameWidth(1000);
    EXPECT_FALSE(m_program.IsStatusSimple());
    EXPECT_EQ(m_program.GetPaneText(0), "Create Document (Ctrl+N)");
    EXPECT_EQ(GetTexts(), texts);
    EXPECT_EQ(GetEdges(), ExpectedEdges());
}

TEST_F(StatusBarTest, PanesComeBackAtTheFirstWidthThatHoldsThem)
{
    m_program.Open({CopySample()});
    const int nBorders = WindowRect(m_program.GetFrame()).GetWidth() - BarWidth();
    int nTexts = 15;
    for (const int nWidth : Measure(GetTexts())) {
        nTexts += nWidth + 10;
    }
    SetFrameWidth(nBorders + nTexts);
    EXPECT_TRUE(m_program.IsStatusSimple());
    SetFrameWidth(nBorders + nTexts + 1);
    EXPECT_FALSE(m_program.IsStatusSimple());
    EXPECT_EQ(GetEdges()[0], 1);
}

TEST_F(StatusBarTest, TextsThatShrinkEndTheSimpleMode)
{
    m_program.Open({CopySample()});
    SetFrameWidth(300);
    EXPECT_TRUE(m_program.IsStatusSimple());
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("");
    m_program.Settle();
    EXPECT_FALSE(m_program.IsStatusSimple());
    EXPECT_EQ(m_program.GetPaneText(0), "Ready");
}

// ---- Prompts.

struct Prompt
{
    UINT uCommand;
    const char* szText;
};

constexpr Prompt aPrompts[] = {
    {57600, "Create Document (Ctrl+N)"},
    {57601, "Open Document (Ctrl+O)"},
    {57602, "Close Window"},
    {104, "Close All Windows"},
    {57603, "Save Document (Ctrl+S)"},
    {57604, "Save Document Using Different Name"},
    {107, "Save All Open Documents"},
    {57607, "Print Document (Ctrl+P)"},
    // Kept: the prompt names a key that the preview does not have.
    {57609, "Preview Document (Ctrl+V)"},
    {111, "Import Transactions Into Account"},
    {112, "Export Transactions To Another Account"},
    {113, "Set Document Account Information"},
    {114, "Set Document Password Protection"},
    {126, "Exit Application and Return to Windows"},
    {200, "Show or Hide Grid Lines (Ctrl+G)"},
    {201, "Show or Hide Shaded Lines"},
    {202, "Show or Hide Date Column"},
    {203, "Show or Hide Number Column"},
    {204, "Show or Hide Description Column"},
    {205, "Show or Hide Debit Column"},
    {206, "Show or Hide Credit Column"},
    {207, "Show or Hide Balance Column"},
    {208, "Show or Hide Memo Column"},
    {209, "Show or Hide Category Column"},
    {210, "Show or Hide Tag Column"},
    {211, "Show or Hide Cleared Column"},
    {59392, "Show or Hide Toolbar"},
    {213, "Show or Hide Transactions Bar"},
    {214, "Show or Hide Status Bar"},
    {300, "Add Transaction (Ctrl+A)"},
    {301, "Edit Transaction (Enter)"},
    {302, "Remove Transaction (Delete)"},
    {303, "Toggle Tax Tag"},
    {304, "Toggle Expense Tag"},
    {305, "Toggle Voided"},
    {306, "Toggle Cleared"},
    {400, "Run Reports"},
    {401, "Run Graphs"},
    {402, "Goto Bank's Webpage"},
    {403, "Calculator"},
    {500, "Tile Windows Horizontally"},
    {501, "Tile Windows Vertically"},
    {503, "Next Window (Alt+Right)"},
    {504, "Previous Window (Alt+Left)"},
    {57650, "Arranges Windows as Overlapping Tiles"},
    {601, "Display Help Table of Contents"},
    {57666, "Display Help Index"},
    // These items have no prompt.
    {405, "Ready"},
    {404, "Ready"},
    {600, "Ready"},
    {604, "Ready"},
    {57605, "Ready"},
    {115, "Ready"},
    {124, "Ready"},
    {125, "Ready"},
    {9999, "Ready"},
};

TEST_F(StatusBarTest, EveryItemHasItsPrompt)
{
    m_program.Open();
    for (const Prompt& prompt : aPrompts) {
        EXPECT_EQ(PromptOf(prompt.uCommand), prompt.szText) << "command " << prompt.uCommand;
        // Disabled items have prompts, too.
        EXPECT_EQ(PromptOf(prompt.uCommand, MF_HILITE | MF_GRAYED), prompt.szText)
            << "command " << prompt.uCommand;
    }
}

TEST_F(StatusBarTest, SubmenusSeparatorsAndTheEndHaveNone)
{
    m_program.Open();
    const auto ExpectReady = [&](UINT uItem, UINT uFlags, HMENU hMenu) {
        EXPECT_EQ(PromptOf(IDM_FILE_NEW), "Create Document (Ctrl+N)");
        SelectMenuItem(uItem, uFlags, hMenu);
        EXPECT_EQ(m_program.GetPaneText(0), "Ready") << uItem << " " << uFlags;
    };
    HMENU hMenu = GetMenu(m_program.GetFrame());
    ExpectReady(0, MF_POPUP | MF_HILITE, hMenu);
    ExpectReady(IDM_FILE_NEW, MF_POPUP, hMenu);
    ExpectReady(0, MF_SEPARATOR | MF_HILITE, hMenu);
    ExpectReady(0, 0xFFFF, nullptr);
}

TEST_F(StatusBarTest, ItemOfTheSystemMenuIsItsOwnPrompt)
{
    m_program.Open();
    const UINT_PTR uMenu =
        CallRemote(m_program.GetProcess(), FunctionOf("user32.dll", "GetSystemMenu"),
                   reinterpret_cast<UINT_PTR>(m_program.GetFrame()), FALSE);
    ASSERT_NE(uMenu, 0U);
    auto* hMenu = reinterpret_cast<HMENU>(uMenu);
    for (const UINT uItem : {SC_CLOSE, SC_MINIMIZE, SC_MOVE}) {
        std::string sExpected = m_program.GetMenuText(hMenu, uItem);
        ASSERT_FALSE(sExpected.empty()) << "item " << uItem;
        sExpected = sExpected.substr(0, sExpected.find('\t'));
        if (sExpected.find('&') != std::string::npos) {
            sExpected.erase(sExpected.find('&'), 1);
        }
        SelectMenuItem(uItem, MF_SYSMENU | MF_HILITE, hMenu);
        EXPECT_EQ(m_program.GetPaneText(0), sExpected);
    }
}

// ---- Tooltips.

TEST_F(StatusBarTest, TooltipsOfTheToolbarAreThePromptsAndLeaveTheBarAlone)
{
    m_program.Open();
    HWND hToolbar = m_program.GetToolbar();
    auto* hTooltips = reinterpret_cast<HWND>(SendTo(hToolbar, TB_GETTOOLTIPS));
    ASSERT_TRUE(IsWindow(hTooltips));
    struct Question
    {
        TTTOOLINFOA tool;
        char szText[200];
    };
    RemoteMemory memory(m_program.GetProcess(), sizeof(Question));
    int nAsked = 0;
    for (const Prompt& prompt : aPrompts) {
        if (SendTo(hToolbar, TB_COMMANDTOINDEX, prompt.uCommand) < 0) {
            continue;
        }
        Question question = {};
        question.tool.cbSize = TTTOOLINFOA_V2_SIZE;
        question.tool.hwnd = hToolbar;
        question.tool.uId = prompt.uCommand;
        question.tool.lpszText = memory.At(offsetof(Question, szText));
        memory.Write(0, &question, sizeof question);
        SendTo(hTooltips, TTM_GETTEXTA, sizeof question.szText, memory.AsParameter());
        memory.Read(0, &question, sizeof question);
        EXPECT_STREQ(question.szText, prompt.szText) << "command " << prompt.uCommand;
        ++nAsked;
    }
    EXPECT_EQ(nAsked, 19);
    EXPECT_EQ(m_program.GetPaneText(0), "Ready");
}

} // namespace
