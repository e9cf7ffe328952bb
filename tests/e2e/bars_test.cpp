// The toolbar, the status bar and the Transactions Bar: shown, hidden, remembered.

#include <algorithm>
#include <iterator>

#include "tests/e2e/e2e_test.h"
#include "tests/e2e/remoteprocess.h"

namespace {

constexpr DWORD uToolbarFlag = 4;
constexpr DWORD uStatusBarFlag = 8;
constexpr DWORD uPeriodBarFlag = 16;

struct Bar
{
    UINT uCommand;
    DWORD uFlag;
    int nId;
};

constexpr Bar aBars[] = {
    {IDM_VIEW_TOOLBAR, uToolbarFlag, IDC_TOOLBAR},
    {IDM_VIEW_STATUSBAR, uStatusBarFlag, IDC_STATUSBAR},
    {IDM_VIEW_TRANSACTIONSBAR, uPeriodBarFlag, IDC_TRANSACTIONSBAR},
};

class BarsTest : public E2ETest
{
protected:
    void AwaitFlags(DWORD uFlags) const
    {
        Await("Flags of " + std::to_string(uFlags), [&] { return ReadFlags() == uFlags; });
    }

    int ClientHeight() const { return WindowRect(m_program.GetClient()).GetHeight(); }

    bool IsButtonEnabled(UINT uCommand) const
    {
        return SendTo(m_program.GetToolbar(), TB_ISBUTTONENABLED, uCommand) != 0;
    }

    TBBUTTON ReadButton(int nIndex) const
    {
        RemoteMemory memory(m_program.GetProcess(), sizeof(TBBUTTON));
        SendTo(m_program.GetToolbar(), TB_GETBUTTON, static_cast<WPARAM>(nIndex),
               memory.AsParameter());
        TBBUTTON button = {};
        memory.Read(0, &button, sizeof button);
        return button;
    }

    void ExpectButtonsFollow(const std::string& sWhen) const
    {
        for (int i = 0; i < 24; ++i) {
            const auto uCommand = static_cast<UINT>(ReadButton(i).idCommand);
            if (uCommand != 0) {
                EXPECT_EQ(IsButtonEnabled(uCommand),
                          m_program.GetMenuItem(uCommand) != MenuItem::Grayed)
                    << "command " << uCommand << " " << sWhen;
            }
        }
    }

    std::string BandLabel(UINT uIndex) const
    {
        struct Question
        {
            REBARBANDINFOA band;
            char szText[100];
        };
        RemoteMemory memory(m_program.GetProcess(), sizeof(Question));
        Question question = {};
        question.band.cbSize = REBARBANDINFOA_V6_SIZE;
        question.band.fMask = RBBIM_TEXT;
        question.band.lpText = memory.At(offsetof(Question, szText));
        question.band.cch = sizeof question.szText;
        memory.Write(0, &question, sizeof question);
        EXPECT_NE(SendTo(m_program.GetRebar(), RB_GETBANDINFOA, uIndex, memory.AsParameter()), 0);
        memory.Read(0, &question, sizeof question);
        return question.szText;
    }

    // The upper edge of the documents' area, in the client area of the frame.
    int ClientTop() const
    {
        POINT corner = {0, 0};
        ClientToScreen(m_program.GetFrame(), &corner);
        return WindowRect(m_program.GetClient()).top - corner.y;
    }

    // Presses a bar's command and waits until the settings hold these flags.
    void Toggle(const Bar& bar, DWORD uFlags) const
    {
        m_program.Post(bar.uCommand);
        AwaitFlags(uFlags);
        m_program.Settle();
    }

    // Checks the bars, their check marks, the rebar and the documents' area against these flags.
    void ExpectBars(DWORD uFlags) const
    {
        for (const Bar& bar : aBars) {
            const bool bShown = (uFlags & bar.uFlag) != 0;
            HWND hBar = FindChildById(m_program.GetFrame(), bar.nId);
            EXPECT_EQ(IsWindowVisible(hBar) != 0, bShown)
                << "bar " << bar.nId << ", flags " << uFlags;
            EXPECT_EQ(m_program.GetMenuItem(bar.uCommand),
                      bShown ? MenuItem::Checked : MenuItem::Enabled)
                << "command " << bar.uCommand << ", flags " << uFlags;
        }
        const bool bRebar = (uFlags & (uToolbarFlag | uPeriodBarFlag)) != 0;
        EXPECT_EQ(IsWindowVisible(m_program.GetRebar()) != 0, bRebar) << "flags " << uFlags;
        EXPECT_EQ(ClientTop(), bRebar ? WindowRect(m_program.GetRebar()).GetHeight() : 0)
            << "flags " << uFlags;
        RECT frame = {};
        GetClientRect(m_program.GetFrame(), &frame);
        const VRect status = WindowRect(m_program.GetStatusBar());
        const bool bStatus = (uFlags & uStatusBarFlag) != 0;
        // The upper line of the status bar covers the lowest line of the area.
        EXPECT_EQ(ClientTop() + ClientHeight(),
                  frame.bottom - (bStatus ? status.GetHeight() - 1 : 0))
            << "flags " << uFlags;
    }
};

TEST_F(BarsTest, BothShowAtFirst)
{
    m_program.Open();
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_TRUE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_TOOLBAR), MenuItem::Checked);
    EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_STATUSBAR), MenuItem::Checked);
}

TEST_F(BarsTest, ClientLiesBetweenThem)
{
    m_program.Open();
    const VRect client = WindowRect(m_program.GetClient());
    // The border of the rebar may reach over the edge of the frame.
    EXPECT_GE(client.top, WindowRect(m_program.GetRebar()).bottom);
    EXPECT_LE(client.top, WindowRect(m_program.GetRebar()).bottom + 2);
    EXPECT_EQ(client.bottom, WindowRect(m_program.GetStatusBar()).top + 1);
}

TEST_F(BarsTest, ToolbarTogglesAndIsRemembered)
{
    m_program.Open();
    const int nHeight = ClientHeight();
    m_program.Post(IDM_VIEW_TOOLBAR);
    AwaitFlags(14 & ~uToolbarFlag);
    m_program.AwaitMenuItem(IDM_VIEW_TOOLBAR, MenuItem::Enabled);
    EXPECT_FALSE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_GT(ClientHeight(), nHeight);
    m_program.Close();
    m_program.Open();
    EXPECT_FALSE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_TRUE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_TOOLBAR), MenuItem::Enabled);
    m_program.Post(IDM_VIEW_TOOLBAR);
    AwaitFlags(14);
    m_program.AwaitMenuItem(IDM_VIEW_TOOLBAR, MenuItem::Checked);
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_EQ(ClientHeight(), nHeight);
}

TEST_F(BarsTest, StatusBarTogglesAndIsRemembered)
{
    m_program.Open();
    const int nHeight = ClientHeight();
    m_program.Post(IDM_VIEW_STATUSBAR);
    AwaitFlags(14 & ~uStatusBarFlag);
    m_program.AwaitMenuItem(IDM_VIEW_STATUSBAR, MenuItem::Enabled);
    EXPECT_FALSE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_GT(ClientHeight(), nHeight);
    m_program.Close();
    m_program.Open();
    EXPECT_FALSE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    m_program.Post(IDM_VIEW_STATUSBAR);
    AwaitFlags(14);
    m_program.AwaitMenuItem(IDM_VIEW_STATUSBAR, MenuItem::Checked);
    EXPECT_TRUE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_EQ(ClientHeight(), nHeight);
}

TEST_F(BarsTest, HiddenStatusBarTakesTextsAllTheSame)
{
    m_program.Open();
    m_program.Post(IDM_VIEW_STATUSBAR);
    AwaitFlags(14 & ~uStatusBarFlag);
    HandOverFile(CopySample());
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 447 of 447");
}

// ---- All three bars together.

TEST_F(BarsTest, EveryOrderOfTogglingThemWorks)
{
    m_program.Open({CopySample()});
    std::vector<Bar> bars(std::begin(aBars), std::end(aBars));
    const auto uOrders = 6;
    DWORD uFlags = 14;
    ExpectBars(uFlags);
    for (int n = 0; n < uOrders; ++n) {
        // Each command twice, so that every order ends as it began.
        for (int i = 0; i < 6; ++i) {
            const Bar& bar = bars[static_cast<size_t>(i % 3)];
            uFlags ^= bar.uFlag;
            Toggle(bar, uFlags);
            ExpectBars(uFlags);
        }
        std::next_permutation(bars.begin(), bars.end(),
                              [](const Bar& a, const Bar& b) { return a.uFlag < b.uFlag; });
    }
    EXPECT_EQ(uFlags, 14U);
}

TEST_F(BarsTest, EveryChoiceOfThemComesBackInTheNextRun)
{
    m_program.Open();
    m_program.Close();
    for (DWORD uBits = 0; uBits < 8; ++uBits) {
        const DWORD uFlags = uBits << 2 | 2;
        WriteSettingNumber("Settings", "Flags", uFlags);
        m_program.Open();
        EXPECT_EQ(ReadFlags(), uFlags);
        ExpectBars(uFlags);
        m_program.Close();
        EXPECT_EQ(ReadFlags(), uFlags);
    }
}

TEST_F(BarsTest, EmptyRebarTakesNoRoomAndComesBackWithEitherBand)
{
    m_program.Open();
    Toggle(aBars[0], 10);
    EXPECT_FALSE(IsWindowVisible(m_program.GetRebar()));
    EXPECT_EQ(ClientTop(), 0);
    Toggle(aBars[2], 26);
    EXPECT_TRUE(IsWindowVisible(m_program.GetRebar()));
    EXPECT_TRUE(IsWindowVisible(FindChildById(m_program.GetFrame(), IDC_TRANSACTIONSBAR)));
    EXPECT_FALSE(IsWindowVisible(m_program.GetToolbar()));
    Toggle(aBars[2], 10);
    EXPECT_FALSE(IsWindowVisible(m_program.GetRebar()));
    EXPECT_EQ(ClientTop(), 0);
    Toggle(aBars[0], 14);
    EXPECT_TRUE(IsWindowVisible(m_program.GetRebar()));
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    ExpectBars(14);
}

TEST_F(BarsTest, ClientFollowsTheFrameWithAnyOfThem)
{
    m_program.Open();
    for (DWORD uBits = 0; uBits < 4; ++uBits) {
        const DWORD uFlags = (uBits & 1) * 4 + (uBits >> 1) * 8 + 2;
        for (const Bar& bar : {aBars[0], aBars[1]}) {
            if (((ReadFlags() ^ uFlags) & bar.uFlag) != 0) {
                Toggle(bar, ReadFlags() ^ bar.uFlag);
            }
        }
        for (const int nWidth : {700, 900}) {
            SetWindowPos(m_program.GetFrame(), nullptr, 0, 0, nWidth, nWidth - 200, SWP_NOZORDER);
            m_program.Settle();
            ExpectBars(uFlags);
        }
    }
}

TEST_F(BarsTest, BandOfThePeriodsHasALabelAndTheToolbarsHasNone)
{
    m_program.Open();
    EXPECT_EQ(BandLabel(0), "");
    EXPECT_EQ(BandLabel(1), "Transactions");
}

// ---- The toolbar.

TEST_F(BarsTest, ToolbarHasItsButtonsInOrder)
{
    constexpr int nSeparator = 0;
    constexpr int anCommands[] = {57600, 111,        57601, 57603,      nSeparator, 57607,
                                  57609, nSeparator, 300,   301,        302,        306,
                                  305,   303,        304,   nSeparator, 400,        402,
                                  403,   nSeparator, 504,   503,        nSeparator, 601};
    m_program.Open();
    ASSERT_EQ(SendTo(m_program.GetToolbar(), TB_BUTTONCOUNT), 24);
    int nPicture = 0;
    for (int i = 0; i < 24; ++i) {
        const TBBUTTON button = ReadButton(i);
        EXPECT_EQ(button.idCommand, anCommands[i]) << "index " << i;
        const bool bSeparator = anCommands[i] == nSeparator;
        EXPECT_EQ(button.fsStyle, bSeparator ? BTNS_SEP : BTNS_BUTTON) << "index " << i;
        if (!bSeparator) {
            EXPECT_EQ(button.iBitmap, nPicture++) << "index " << i;
        }
    }
    EXPECT_EQ(nPicture, 19);
}

TEST_F(BarsTest, StripHasAPictureForEachButton)
{
    HMODULE hProgram = LoadLibraryExA((ProgramFolder() + "quillmark.exe").c_str(), nullptr,
                                      LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(hProgram, nullptr);
    HANDLE hStrip = LoadImageA(hProgram, MAKEINTRESOURCEA(IDB_TOOLBAR), IMAGE_BITMAP, 0, 0,
                               LR_CREATEDIBSECTION);
    BITMAP strip = {};
    EXPECT_NE(GetObjectA(hStrip, sizeof strip, &strip), 0);
    EXPECT_EQ(strip.bmWidth, 19 * 16);
    EXPECT_EQ(strip.bmHeight, 16);
    DeleteObject(hStrip);
    FreeLibrary(hProgram);
}

TEST_F(BarsTest, ButtonsAre24PixelsWideAndHigh)
{
    m_program.Open();
    const auto uSize = static_cast<DWORD>(SendTo(m_program.GetToolbar(), TB_GETBUTTONSIZE));
    EXPECT_EQ(LOWORD(uSize), 24);
    EXPECT_EQ(HIWORD(uSize), 24);
}

TEST_F(BarsTest, EveryButtonFollowsItsMenuItem)
{
    m_program.Open();
    ExpectButtonsFollow("without a document");
    EXPECT_TRUE(IsButtonEnabled(IDM_FILE_NEW));
    EXPECT_FALSE(IsButtonEnabled(IDM_FILE_SAVE));
    m_program.NewDocument(1);
    ExpectButtonsFollow("with a document without transactions");
    EXPECT_TRUE(IsButtonEnabled(IDM_FILE_SAVE));
    EXPECT_FALSE(IsButtonEnabled(IDM_TRANSACTION_EDIT));
    HandOverFile(CopySample());
    ExpectButtonsFollow("with a selection");
    EXPECT_TRUE(IsButtonEnabled(IDM_TRANSACTION_EDIT));
    EXPECT_TRUE(IsButtonEnabled(IDM_WINDOW_NEXT));
    ActiveList().SetState(-1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    m_program.Settle();
    ExpectButtonsFollow("without a selection");
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("Untitled1");
    m_program.Settle();
    ExpectButtonsFollow("with one document left");
    EXPECT_FALSE(IsButtonEnabled(IDM_WINDOW_NEXT));
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("");
    m_program.Settle();
    ExpectButtonsFollow("with none left");
    EXPECT_FALSE(IsButtonEnabled(IDM_FILE_SAVE));
}

} // namespace
