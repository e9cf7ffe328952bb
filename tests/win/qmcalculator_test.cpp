// The calculator's window: its keys, its accelerators, its place.

#include "tools/qmcalculator.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "resources/resource.h"
#include "tests/win/dialog_support.h"
#include "tests/win/support.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"
#include "toolkit/vrect_win.h"
#include "toolkit/vregkey.h"

namespace {

constexpr char g_szValue[] = "Calculator Position";

class QMCalculatorTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_main, m_record));
        m_main.Show(SW_SHOWNOACTIVATE);
        m_main.SetAccelerators(m_hMainAccel);
        VWindow::SetMainWindow(&m_main);
    }
    void TearDown() override
    {
        VWindow::SetMainWindow(nullptr);
        DestroyAcceleratorTable(m_hMainAccel);
    }

    bool Open()
    {
        const bool bOpen =
            m_calculator.Show(m_main.GetHandle(), HKEY_CURRENT_USER, m_path.Get(), g_szValue);
        PumpAll();
        return bOpen;
    }
    // Clicks these keys one after the other, and returns the text on the display.
    std::string Click(const std::vector<int>& keys)
    {
        for (const int nKey : keys) {
            ::Click(m_calculator.GetHandle(), nKey);
        }
        return Shown();
    }
    // Types characters into the control that has the focus.
    std::string Type(const std::string& sText)
    {
        HWND hFocus = GetFocus();
        for (const char c : sText) {
            SendMessageA(hFocus, WM_CHAR, static_cast<WPARAM>(c), 1);
        }
        PumpAll();
        return Shown();
    }
    std::string Shown() const { return ItemText(m_calculator.GetHandle(), IDC_CALC_DISPLAY); }
    std::string Mark() const { return ItemText(m_calculator.GetHandle(), IDC_CALC_MEMORYMARK); }

    std::string Stored() const
    {
        VRegKey key;
        VString sText;
        return key.Open(m_path.Get()) && key.ReadText(g_szValue, sText) ? Text(sText) : "none";
    }
    void Store(const char* szText) const
    {
        VRegKey key;
        ASSERT_TRUE(key.Create(m_path.Get()));
        key.WriteText(g_szValue, szText);
    }
    VRect Place() const { return m_calculator.GetWindowRect(); }

    // Lets the window paint onto white paper, whose middle is that of the window. Returns what
    // OnPaint returns, and in drawn the part of the paper that is no longer white, as seen from the
    // window's client area.
    bool PaintOnPaper(VRect& drawn)
    {
        constexpr int nMargin = 64;
        const VRect area = m_calculator.GetClientRect();
        const int nWidth = area.GetWidth() + 2 * nMargin;
        const int nHeight = area.GetHeight() + 2 * nMargin;
        const VClientSurface screen(nullptr);
        VMemorySurface paper(screen);
        VBitmap bitmap;
        bitmap.Attach(CreateCompatibleBitmap(screen.GetHandle(), nWidth, nHeight));
        const VSelectScope scope(paper, bitmap.GetHandle());
        paper.PatBlt(0, 0, nWidth, nHeight, WHITENESS);
        SetViewportOrgEx(paper.GetHandle(), nMargin, nMargin, nullptr);
        const bool bPainted = m_calculator.OnPaint(paper);
        drawn = {nWidth, nHeight, -nMargin, -nMargin};
        for (int y = -nMargin; y < nHeight - nMargin; ++y) {
            for (int x = -nMargin; x < nWidth - nMargin; ++x) {
                if (GetPixel(paper.GetHandle(), x, y) != 0xFFFFFF) {
                    drawn = {std::min(drawn.left, x), std::min(drawn.top, y),
                             std::max(drawn.right, x + 1), std::max(drawn.bottom, y + 1)};
                }
            }
        }
        return bPainted;
    }

    static HACCEL MakeTable()
    {
        ACCEL line = {FVIRTKEY, VK_F7, 1};
        return CreateAcceleratorTableA(&line, 1);
    }

    ScopedRegistryPath m_path{"calculator"};
    Record m_record;
    VRecordingWindow m_main{m_record};
    HACCEL m_hMainAccel = MakeTable();
    QMCalculator m_calculator;
};

} // namespace

TEST_F(QMCalculatorTest, LooksAsDesigned)
{
    ASSERT_TRUE(Open());
    HWND hWindow = m_calculator.GetHandle();
    EXPECT_EQ(Text(m_calculator.GetText()), "Calculator");
    EXPECT_EQ(SizeInUnits(hWindow), "106x130");
    EXPECT_EQ(LayoutFaults(hWindow), Texts());
    EXPECT_EQ(NamelessControls(hWindow), Texts());
    EXPECT_EQ(NameOfControl(m_calculator.GetItem(IDC_CALC_DISPLAY)), "Display");
    EXPECT_EQ(Shown(), "0.");
    EXPECT_EQ(Mark(), "");
    const LONG_PTR lStyle = GetWindowLongPtrA(m_calculator.GetItem(IDC_CALC_DISPLAY), GWL_STYLE);
    EXPECT_EQ(lStyle & (ES_READONLY | ES_RIGHT), ES_READONLY | ES_RIGHT);
    EXPECT_NE(m_calculator.GetLong(GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
}

TEST_F(QMCalculatorTest, HasAKeyForEveryCommandThatTheFaceShows)
{
    ASSERT_TRUE(Open());
    std::string sFaces;
    for (int nId = IDM_CALC_0; nId <= IDM_CALC_SIGN; ++nId) {
        sFaces += ItemText(m_calculator.GetHandle(), nId) + ' ';
    }
    EXPECT_EQ(sFaces, "0 1 2 3 4 5 6 7 8 9 + - * / = . M+ MS MR MC Back CE C +/- ");
}

TEST_F(QMCalculatorTest, ReckonsByClicks)
{
    ASSERT_TRUE(Open());
    EXPECT_EQ(Click({IDM_CALC_1, IDM_CALC_2, IDM_CALC_POINT, IDM_CALC_5}), "12.5");
    EXPECT_EQ(Click({IDM_CALC_MULTIPLY, IDM_CALC_4, IDM_CALC_EQUALS}), "50.");
    EXPECT_EQ(Click({IDM_CALC_SIGN}), "-4.");
    EXPECT_EQ(Click({IDM_CALC_CLEAR}), "0.");
}

TEST_F(QMCalculatorTest, ShowsTheMarkOfTheMemory)
{
    ASSERT_TRUE(Open());
    Click({IDM_CALC_5, IDM_CALC_MEMORYADD});
    EXPECT_EQ(Mark(), "M");
    Click({IDM_CALC_SIGN, IDM_CALC_MEMORYADD});
    EXPECT_EQ(Mark(), "");
    Click({IDM_CALC_MEMORYSTORE});
    EXPECT_EQ(Mark(), "M");
    Click({IDM_CALC_MEMORYCLEAR});
    EXPECT_EQ(Mark(), "");
}

TEST_F(QMCalculatorTest, TakesTypedCharacters)
{
    ASSERT_TRUE(Open());
    EXPECT_EQ(Type("1234567890"), "1.23457e+09.");
    EXPECT_EQ(Type("\x1B"), "0.");
    EXPECT_EQ(Type("12.25\b"), "12.20");
    EXPECT_EQ(Type("+3\r"), "15.2");
    EXPECT_EQ(Type("*2-1/4\r"), "7.35");
    EXPECT_EQ(Type("\x1B"
                   "7 xyz=%,"),
              "7.")
        << "the calculator must ignore other characters";
}

TEST_F(QMCalculatorTest, TakesCharactersWhateverHasTheFocus)
{
    ASSERT_TRUE(Open());
    for (const int nControl : {IDC_CALC_DISPLAY, IDM_CALC_9, IDM_CALC_MEMORYSTORE}) {
        SetFocus(m_calculator.GetItem(nControl));
        EXPECT_EQ(Type("\x1B"
                       "42"),
                  "42.")
            << nControl;
    }
    SendMessageA(m_calculator.GetHandle(), WM_CHAR, '1', 1);
    PumpAll();
    EXPECT_EQ(Shown(), "421.");
}

TEST_F(QMCalculatorTest, DoesNotPressAKeyBySpace)
{
    ASSERT_TRUE(Open());
    SetFocus(m_calculator.GetItem(IDM_CALC_9));
    PostKey(m_calculator.GetItem(IDM_CALC_9), VK_SPACE);
    PumpAll();
    EXPECT_EQ(Shown(), "0.");
    PostMessageA(m_calculator.GetHandle(), WM_COMMAND, IDM_CALC_NOTHING, 0);
    PumpAll();
    EXPECT_EQ(Shown(), "0.");
}

// A command of the frame that comes here is none of the keys.
TEST_F(QMCalculatorTest, PassesOverOtherCommands)
{
    ASSERT_TRUE(Open());
    Click({IDM_CALC_5});
    for (const UINT uId : {UINT{IDM_TRANSACTION_ADD}, UINT{IDOK}, UINT{IDCANCEL}}) {
        m_calculator.Send(WM_COMMAND, uId);
    }
    EXPECT_TRUE(m_calculator.IsValid());
    EXPECT_EQ(Shown(), "5.");
}

// ---- Accelerators.

TEST_F(QMCalculatorTest, LendsItsAcceleratorsWhileItIsActive)
{
    ASSERT_TRUE(Open());
    HACCEL hOwn = m_main.GetAccelerators();
    EXPECT_NE(hOwn, m_hMainAccel);
    m_calculator.Send(WM_ACTIVATE, WA_CLICKACTIVE);
    EXPECT_EQ(m_main.GetAccelerators(), hOwn) << "a second activation must keep the accelerators";
    m_calculator.Send(WM_ACTIVATE, WA_INACTIVE);
    EXPECT_EQ(m_main.GetAccelerators(), m_hMainAccel);
    m_calculator.Send(WM_ACTIVATE, WA_CLICKACTIVE);
    EXPECT_EQ(m_main.GetAccelerators(), hOwn);
    m_calculator.OnClose(false);
    EXPECT_FALSE(m_calculator.IsValid());
    EXPECT_EQ(m_main.GetAccelerators(), m_hMainAccel);
}

// A document that is activated sets its own accelerators.
TEST_F(QMCalculatorTest, LeavesATableThatWasSetMeanwhile)
{
    ASSERT_TRUE(Open());
    HACCEL hOther = MakeTable();
    m_main.SetAccelerators(hOther);
    m_calculator.Send(WM_ACTIVATE, WA_INACTIVE);
    EXPECT_EQ(m_main.GetAccelerators(), hOther);
    m_main.SetAccelerators(m_hMainAccel);
    DestroyAcceleratorTable(hOther);
}

TEST_F(QMCalculatorTest, HasTheKeysOfItsTable)
{
    ASSERT_TRUE(Open());
    ACCEL aLines[32] = {};
    const int nCount = CopyAcceleratorTableA(m_main.GetAccelerators(), aLines, 32);
    std::string sKeys;
    for (int n = 0; n < nCount; ++n) {
        sKeys += std::to_string(aLines[n].key) + ':' + std::to_string(aLines[n].cmd - 11100) + ' ';
    }
    EXPECT_EQ(sKeys,
              "96:0 97:1 98:2 99:3 100:4 101:5 102:6 103:7 104:8 105:9 107:10 109:11 106:12 111:13 "
              "13:14 110:15 8:20 46:21 27:22 32:24 ");
}

// ---- The window.

// Kept: opening resets all numbers, the memory too.
TEST_F(QMCalculatorTest, StartsAnewOnceItWasClosed)
{
    ASSERT_TRUE(Open());
    Click({IDM_CALC_5, IDM_CALC_MEMORYSTORE});
    m_calculator.OnClose(false);
    EXPECT_FALSE(m_calculator.IsValid());
    ASSERT_TRUE(Open());
    EXPECT_EQ(Shown(), "0.");
    EXPECT_EQ(Mark(), "");
}

TEST_F(QMCalculatorTest, HasOneWindowHoweverOftenItIsOpened)
{
    ASSERT_TRUE(Open());
    HWND hFirst = m_calculator.GetHandle();
    Click({IDM_CALC_5});
    ASSERT_TRUE(Open());
    EXPECT_FALSE(IsWindow(hFirst) && hFirst != m_calculator.GetHandle());
    int nWindows = 0;
    for (HWND h = FindWindowA("#32770", "Calculator"); h != nullptr;
         h = FindWindowExA(nullptr, h, "#32770", "Calculator")) {
        // Another program on the same desktop may show a calculator of its own.
        nWindows += GetWindowThreadProcessId(h, nullptr) == GetCurrentThreadId() ? 1 : 0;
    }
    EXPECT_EQ(nWindows, 1);
    EXPECT_EQ(Shown(), "0.");
    EXPECT_EQ(Click({IDM_CALC_7}), "7.");
    m_calculator.OnClose(false);
    EXPECT_EQ(m_main.GetAccelerators(), m_hMainAccel);
}

TEST_F(QMCalculatorTest, GoesWithItsOwner)
{
    ASSERT_TRUE(Open());
    DestroyWindow(m_main.GetHandle());
    EXPECT_FALSE(m_calculator.IsValid());
}

// ---- The place of the window.

TEST_F(QMCalculatorTest, MakesKeyAndValueWhereTheyAreMissing)
{
    EXPECT_EQ(Stored(), "none");
    ASSERT_TRUE(Open());
    EXPECT_EQ(Stored(), "0000 0000");
    m_calculator.OnClose(false);
    {
        VRegKey key;
        ASSERT_TRUE(key.Open(m_path.Get()));
        key.DeleteValue(g_szValue);
    }
    ASSERT_TRUE(Open());
    EXPECT_EQ(Stored(), "0000 0000");
}

TEST_F(QMCalculatorTest, ComesUpWhereItStood)
{
    Store("0120 0085");
    ASSERT_TRUE(Open());
    EXPECT_EQ(Place().left, 120);
    EXPECT_EQ(Place().top, 85);
    EXPECT_EQ(SizeInUnits(m_calculator.GetHandle()), "106x130");
    SetWindowPos(m_calculator.GetHandle(), nullptr, 230, 7, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(Stored(), "0230 0007");
}

TEST_F(QMCalculatorTest, StoresNoPlaceLeftOrAboveOfTheScreen)
{
    Store("0100 0100");
    ASSERT_TRUE(Open());
    SetWindowPos(m_calculator.GetHandle(), nullptr, -40, 20, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(Stored(), "0000 0020");
    SetWindowPos(m_calculator.GetHandle(), nullptr, 30, -10, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(Stored(), "0030 0000");
}

TEST_F(QMCalculatorTest, ComesUpOnTheScreenWhateverIsStored)
{
    for (const char* szStored : {"99999 99999", "-99999 0", "x", "12", "", "2147483647 2147483647",
                                 "-2147483648 -2147483648", "99999999999 1"}) {
        Store(szStored);
        ASSERT_TRUE(Open()) << szStored;
        const VRect place = Place();
        const RECT rect = VToRect(place);
        EXPECT_NE(MonitorFromRect(&rect, MONITOR_DEFAULTTONULL), nullptr) << szStored;
        m_calculator.OnClose(false);
    }
}

// ---- Minimized.

TEST_F(QMCalculatorTest, NotesNoPlaceWhileItIsMinimized)
{
    Store("0100 0100");
    ASSERT_TRUE(Open());
    ShowWindow(m_calculator.GetHandle(), SW_MINIMIZE);
    PumpAll();
    EXPECT_EQ(Stored(), "0100 0100");
}

TEST_F(QMCalculatorTest, DrawsItsIconInTheMiddleWhileItIsMinimized)
{
    ASSERT_TRUE(Open());
    // The area of 32 by 32 in full, so that its place can be told.
    const std::vector<BYTE> mask(32 * 4, 0);
    const std::vector<BYTE> picture(32 * 4, 0);
    HICON hIcon = CreateIcon(GetModuleHandleA(nullptr), 32, 32, 1, 1, mask.data(), picture.data());
    ASSERT_NE(hIcon, nullptr);
    ASSERT_EQ(GetSystemMetrics(SM_CXICON), 32);
    VRect drawn;
    EXPECT_FALSE(PaintOnPaper(drawn)) << "without an icon, not minimized";
    m_calculator.Send(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(hIcon));
    EXPECT_FALSE(PaintOnPaper(drawn)) << "with an icon, not minimized";
    EXPECT_TRUE(drawn.IsEmpty())
        << "the calculator must draw nothing when it leaves the painting to Windows";
    ShowWindow(m_calculator.GetHandle(), SW_MINIMIZE);
    PumpAll();
    ASSERT_TRUE(IsIconic(m_calculator.GetHandle()));
    EXPECT_TRUE(PaintOnPaper(drawn));
    const VRect area = m_calculator.GetClientRect();
    const int nLeft = (area.GetWidth() - 32 + 1) / 2;
    const int nTop = (area.GetHeight() - 32 + 1) / 2;
    EXPECT_EQ(drawn, (VRect{nLeft, nTop, nLeft + 32, nTop + 32}));
    m_calculator.Send(WM_SETICON, ICON_BIG, 0);
    EXPECT_FALSE(PaintOnPaper(drawn)) << "without an icon, minimized";
    DestroyIcon(hIcon);
}
