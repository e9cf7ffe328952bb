// The window of a register: what it does with the system's colours, and how it repaints.

#include "register/qmregisterwindow.h"

#include <gtest/gtest.h>

#include "account/qmaccount.h"
#include "base/vtext.h"
#include "resources/resource.h"
#include "tests/support/readability_win.h"
#include "tests/support/support.h"
#include "tests/win/picture.h"
#include "tests/win/support.h"
#include "toolkit/vapplication.h"
#include "toolkit/vmdiframewindow.h"

namespace {

constexpr int nBalance = 6; // list indices of an account's first columns
constexpr int nTag = 7;
constexpr QMRegisterOptions g_options = {0x85AD4B, 0x2842C9, true, true, false, false};

class ClientFrame : public VMDIFrameWindow
{
public:
    bool OnInitialize() override
    {
        return CreateClient(GetSubMenu(GetMenu(GetHandle()), 0), 25000, 25001) &&
               VMDIFrameWindow::OnInitialize();
    }
};

// Notes how a window is repainted, and whether something of it vanishes in between.
class PaintWatch
{
public:
    // Watches a window, and looks at a part of it each time after its ground was erased.
    PaintWatch(HWND hWnd, const VRect& part) : m_hWnd(hWnd), m_part(part)
    {
        m_fBefore = Contrast();
        s_pWatch = this;
        m_pBefore = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OnMessage)));
    }
    PaintWatch(const PaintWatch&) = delete;
    PaintWatch& operator=(const PaintWatch&) = delete;
    ~PaintWatch()
    {
        SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pBefore));
        s_pWatch = nullptr;
    }

    int m_nPaints = 0;
    int m_nBlank = 0; // how often the part showed nothing but its ground

    // Of what the screen shows in that part.
    double Contrast() const
    {
        HDC hDC = GetDC(m_hWnd);
        const double f = ContrastIn([=](int x, int y) { return GetPixel(hDC, x, y); }, m_part);
        ReleaseDC(m_hWnd, hDC);
        return f;
    }
    double GetContrastBefore() const { return m_fBefore; }

private:
    static LRESULT CALLBACK OnMessage(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
    {
        PaintWatch& watch = *s_pWatch;
        const LRESULT lResult = CallWindowProcA(watch.m_pBefore, hWnd, uMessage, wParam, lParam);
        watch.m_nPaints += uMessage == WM_PAINT ? 1 : 0;
        if (uMessage == WM_ERASEBKGND && watch.Contrast() < fReadable) {
            ++watch.m_nBlank;
        }
        return lResult;
    }

    static inline PaintWatch* s_pWatch = nullptr;

    HWND m_hWnd;
    VRect m_part;
    WNDPROC m_pBefore = nullptr;
    double m_fBefore = 0;
};

class QMRegisterWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        AppendMenuA(m_hMenu, MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopupMenu()), "Window");
        ASSERT_TRUE(m_frame.CreateFrame(m_hMenu, "Frame", {10, 10, 910, 610}, WS_OVERLAPPEDWINDOW,
                                        3502, 3501));
        m_frame.Show(SW_SHOWNOACTIVATE);
        auto pRegister = std::make_unique<QMRegisterWindow>(g_options);
        ASSERT_TRUE(pRegister->LoadAccount(m_frame, MakeAccount().c_str(), false,
                                           {.szTitle = "a.qmk",
                                            .rect = {0, 0, 840, 400},
                                            .hMenu = m_hMenu,
                                            .hWindowMenu = GetSubMenu(m_hMenu, 0)}));
        m_pRegister = pRegister.release();
        m_hList = GetWindow(m_pRegister->GetHandle(), GW_CHILD);
        PumpAll();
        UpdateWindow(m_hList);
        ASSERT_EQ(SendMessageA(m_hList, LVM_GETITEMCOUNT, 0, 0), 4);
    }
    void TearDown() override
    {
        m_pRegister->GetDocument().ClearModified();
        m_frame.CloseChildren();
        m_frame.OnClose(true);
    }

    // Balances of either sign, and tags.
    std::string MakeAccount() const
    {
        std::string sPath = m_folder.PathOf("a.qmk");
        QMAccount account(sPath.c_str());
        constexpr uint32_t auFlags[] = {QM_TRANS_FLAG_TAX, QM_TRANS_FLAG_EXPENSE, 0, 0};
        for (int i = 0; i < 4; ++i) {
            const int32_t lType = i < 2 ? QM_TRANS_WITHDRAWAL : QM_TRANS_DEPOSIT;
            AddTo(account.store, MakeTransaction(lType, "1/" + std::to_string(i + 1) + "/2004",
                                                 50.0F * static_cast<float>(i + 1), auFlags[i],
                                                 "Elderbrook Library"));
        }
        EXPECT_TRUE(account.Create() && account.Write());
        return sPath;
    }

    VRect Cell(int nRow, int nColumn) const
    {
        RECT rect = {};
        rect.left = LVIR_LABEL;
        rect.top = nColumn;
        SendMessageA(m_hList, LVM_GETSUBITEMRECT, static_cast<WPARAM>(nRow),
                     reinterpret_cast<LPARAM>(&rect));
        return {rect.left + 2, rect.top + 1, rect.right - 1, rect.bottom - 1};
    }

    // Whether the texts and marks of every row can be read, as the list paints them.
    void ExpectReadable(COLORREF crGround) const
    {
        const Picture page(m_hList);
        const auto At = [&](int x, int y) { return page.At(x, y); };
        for (int nRow = 0; nRow < 4; ++nRow) {
            for (const int nColumn : {1, 3, nBalance, nTag}) {
                const VRect cell = Cell(nRow, nColumn);
                if (nColumn == nTag && nRow >= 2) {
                    continue; // they have no tag
                }
                EXPECT_EQ(GroundOf(At, cell), crGround) << "row " << nRow << ", column " << nColumn;
                EXPECT_GT(ContrastIn(At, cell), fReadable)
                    << "row " << nRow << ", column " << nColumn << "\n"
                    << page.Describe(cell);
            }
        }
    }

    void Deselect() const
    {
        LVITEMA item = {};
        item.stateMask = LVIS_SELECTED;
        SendMessageA(m_hList, LVM_SETITEMSTATE, static_cast<WPARAM>(-1),
                     reinterpret_cast<LPARAM>(&item));
    }

    TemporaryFolder m_folder;
    HMENU m_hMenu = CreateMenu();
    ClientFrame m_frame;
    QMRegisterWindow* m_pRegister = nullptr;
    HWND m_hList = nullptr;
};

} // namespace

TEST_F(QMRegisterWindowTest, HasTheIconOfARegister)
{
    EXPECT_EQ(GetClassLongPtrA(m_pRegister->GetHandle(), GCLP_HICON),
              reinterpret_cast<ULONG_PTR>(
                  LoadIconA(GetApplication().GetResourceModule(), MAKEINTRESOURCEA(IDI_REGISTER))));
}

// ---- The system's colours.

// Black and coloured texts of the account would stand on a black ground, and light texts of the
// system on the shading of the program.
TEST_F(QMRegisterWindowTest, CanBeReadInDarkColorsThatComeWhileItIsOpen)
{
    Deselect();
    {
        const ScopedDarkColors dark;
        SendMessageA(m_hList, WM_SYSCOLORCHANGE, 0, 0);
        m_pRegister->FollowSystemColors();
        ExpectReadable(0x000000);
    }
    SendMessageA(m_hList, WM_SYSCOLORCHANGE, 0, 0);
    m_pRegister->FollowSystemColors();
    const Picture page(m_hList);
    EXPECT_EQ(page.At(Cell(0, 3).right, Cell(0, 3).top), 0xFFFFFFU)
        << "the first row must be plain again";
    EXPECT_EQ(page.At(Cell(1, 3).right, Cell(1, 3).top), 0xEBEBEBU)
        << "the second row must be shaded again";
}

TEST_F(QMRegisterWindowTest, CanBeReadInDarkColorsWhereASelectionIs)
{
    const ScopedDarkColors dark;
    SendMessageA(m_hList, WM_SYSCOLORCHANGE, 0, 0);
    m_pRegister->FollowSystemColors();
    for (int nRow = 0; nRow < 2; ++nRow) {
        Deselect();
        LVITEMA item = {};
        item.state = LVIS_SELECTED;
        item.stateMask = LVIS_SELECTED;
        SendMessageA(m_hList, LVM_SETITEMSTATE, static_cast<WPARAM>(nRow),
                     reinterpret_cast<LPARAM>(&item));
        const Picture page(m_hList);
        const auto At = [&](int x, int y) { return page.At(x, y); };
        for (const int nColumn : {3, nBalance, nTag}) {
            EXPECT_GT(ContrastIn(At, Cell(nRow, nColumn)), fReadable)
                << "row " << nRow << ", column " << nColumn;
        }
    }
}

TEST_F(QMRegisterWindowTest, KeepsTheAccountsOwnColorThroughDarkOnes)
{
    LOGFONTA font = m_pRegister->GetFont();
    m_pRegister->SetFont(font, 0x800000);
    {
        const ScopedDarkColors dark;
        m_pRegister->FollowSystemColors();
        EXPECT_EQ(SendMessageA(m_hList, LVM_GETTEXTCOLOR, 0, 0), 0xFFFFFF);
        EXPECT_EQ(m_pRegister->GetFontColor(), 0x800000U)
            << "the colour that goes into the file must stay";
    }
    m_pRegister->FollowSystemColors();
    EXPECT_EQ(SendMessageA(m_hList, LVM_GETTEXTCOLOR, 0, 0), 0x800000);
}

// ---- Repainting.

// A change of font or of colours is one paint, and what stood there stands until then.
TEST_F(QMRegisterWindowTest, TakesAnotherFontWithoutFlicker)
{
    Deselect();
    UpdateWindow(m_hList);
    PumpAll();
    PaintWatch watch(m_hList, Cell(0, 3));
    ASSERT_GT(watch.GetContrastBefore(), fReadable)
        << "the text must be readable before the change";
    LOGFONTA font = m_pRegister->GetFont();
    VCopyText(font.lfFaceName, "Liberation Serif");
    font.lfItalic = TRUE;
    m_pRegister->SetFont(font, 0x800000);
    PumpAll();
    EXPECT_EQ(watch.m_nPaints, 1);
    EXPECT_EQ(watch.m_nBlank, 0);
    EXPECT_GT(watch.Contrast(), fReadable);
}

TEST_F(QMRegisterWindowTest, TakesOtherColorsWithoutFlicker)
{
    Deselect();
    UpdateWindow(m_hList);
    PumpAll();
    PaintWatch watch(m_hList, Cell(2, nBalance));
    QMRegisterOptions options = g_options;
    options.crBalancePositive = 0x000080;
    options.crBalanceNegative = 0x800000;
    m_pRegister->SetOptions(options);
    PumpAll();
    EXPECT_EQ(watch.m_nPaints, 1);
    EXPECT_EQ(watch.m_nBlank, 0);
    EXPECT_GT(watch.Contrast(), fReadable);
}

TEST_F(QMRegisterWindowTest, IsNotPaintedForOptionsThatItDoesNotShow)
{
    PumpAll();
    PaintWatch watch(m_hList, Cell(0, 3));
    QMRegisterOptions options = g_options;
    options.bConfirmRemove = false;
    options.bSortEditLists = true;
    m_pRegister->SetOptions(options);
    m_pRegister->SetFont(m_pRegister->GetFont(), m_pRegister->GetFontColor());
    PumpAll();
    EXPECT_EQ(watch.m_nPaints, 0);
    EXPECT_FALSE(m_pRegister->GetDocument().IsModified());
}
