// The grid list: what it paints, pixel by pixel.

#include "register/qmgridlist.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "register/qmrowlist.h"
#include "resources/resource.h"
#include "tests/support/readability_win.h"
#include "tests/win/picture.h"
#include "tests/win/support.h"

namespace {

constexpr COLORREF crPaper = 0xFFFFFF;
constexpr COLORREF crShade = 0xEBEBEB;
constexpr COLORREF crQuiet = 0x909090;
constexpr COLORREF crLine = 0xC0C0C0;
constexpr COLORREF crText = 0x800080;
constexpr COLORREF crPositive = 0x85AD4B;
constexpr COLORREF crNegative = 0x2842C9;

// The columns of the list, and their widths.
constexpr int nCleared = 0;
constexpr int nFree = 1;
constexpr int nBalance = 2;
constexpr int nTag = 3;
constexpr int nLast = 4;
constexpr int anWidths[] = {30, 60, 70, 30, 50};
constexpr int nColumns = 5;
constexpr int nAllWidths = 240;

// A grid list in a window of its own. Its font has no grey pixels.
class QMGridListTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent, WS_POPUP));
        m_parent.Move({10, 10, 330, 230});
        ASSERT_TRUE(m_list.Create(m_parent.GetHandle(), {0, 0, 320, 220},
                                  WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS,
                                  WC_LISTVIEWA, "", 5));
        ASSERT_TRUE(m_list.OnCreate());
        m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_SUBITEMIMAGES);
        ASSERT_TRUE(m_font.Attach(CreateFontA(-13, 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                                              NONANTIALIASED_QUALITY, 0, "Liberation Sans")));
        m_list.Send(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.GetHandle()));
        m_list.Send(LVM_SETBKCOLOR, 0, crPaper);
        m_list.Send(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(CLR_NONE));
        m_list.Send(LVM_SETTEXTCOLOR, 0, crText);
        for (int i = 0; i < nColumns; ++i) {
            ASSERT_EQ(m_list.InsertColumn(i, "", QMAlignment::Left, anWidths[i]), i);
        }
        m_list.SetPaintedColumns(nBalance, nTag, nCleared);
        m_parent.Show(SW_SHOWNOACTIVATE);
        PumpAll();
    }

    void AddRows(std::initializer_list<uint32_t> decorations)
    {
        for (const uint32_t uDecoration : decorations) {
            const int nRow = m_list.InsertItem(m_list.GetItemCount(), "");
            m_list.SetItemData(nRow, static_cast<LPARAM>(uDecoration));
        }
    }

    void SetFlags(uint32_t uFlags)
    {
        for (const uint32_t uBit : {QM_GRID_SHADED, QM_GRID_HORIZONTAL, QM_GRID_VERTICAL}) {
            m_list.SetLineFlag(uBit, (uFlags & uBit) != 0);
        }
        EXPECT_EQ(m_list.GetLineFlags(), uFlags);
    }

    // A cell of a row.
    VRect Cell(int nRow, int nColumn) const
    {
        RECT rect = {};
        rect.left = LVIR_BOUNDS;
        m_list.Send(LVM_GETITEMRECT, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&rect));
        int x = rect.left;
        for (int i = 0; i < nColumn; ++i) {
            x += m_list.GetColumnWidth(i);
        }
        return {x, rect.top, x + m_list.GetColumnWidth(nColumn), rect.bottom};
    }

    // The cell without the pixels that lines may cover.
    VRect Inside(int nRow, int nColumn) const
    {
        const VRect cell = Cell(nRow, nColumn);
        return {cell.left + 1, cell.top + 1, cell.right, cell.bottom - 1};
    }

    // The place of a mark of 10 by 10 pixels.
    VRect MarkPlace(int nRow, int nColumn) const
    {
        const VRect cell = Cell(nRow, nColumn);
        const int x = cell.left + (cell.GetWidth() - 10) / 2;
        const int y = cell.top + (cell.GetHeight() - 10) / 2;
        return {x, y, x + 10, y + 10};
    }

    // Checks the pixels of a mark: dark strokes, with the ground between them. On the ground of a
    // selected row the strokes are light.
    void ExpectMark(const Picture& page, int nRow, int nColumn, UINT uMark, COLORREF crGround,
                    bool bSelected) const
    {
        const Picture mark(uMark);
        ASSERT_EQ(mark.GetWidth(), 10);
        ASSERT_EQ(mark.GetHeight(), 10);
        const VRect place = MarkPlace(nRow, nColumn);
        for (int y = 0; y < 10; ++y) {
            for (int x = 0; x < 10; ++x) {
                const COLORREF crMark = mark.At(x, y);
                const COLORREF crExpected =
                    bSelected ? ((~crMark | crGround) & 0xFFFFFF) : (crMark & crGround);
                ASSERT_EQ(page.At(place.left + x, place.top + y), crExpected)
                    << x << "," << y << " of\n"
                    << page.Describe(Cell(nRow, nColumn));
            }
        }
    }

    int RowHeight() const { return Cell(0, 0).GetHeight(); }
    int ClientBottom() const { return m_list.GetClientRect().bottom; }

    VFont m_font;
    VWindow m_parent;
    QMGridList m_list;
};

bool IsLineDown(const Picture& page, int x, int nTop, int nBottom)
{
    return page.IsAll({x, nTop, x + 1, nBottom}, crLine);
}

bool IsLineAcross(const Picture& page, int y, int nLeft, int nRight)
{
    return page.IsAll({nLeft, y, nRight, y + 1}, crLine);
}

} // namespace

// ---- Shading.

TEST_F(QMGridListTest, EverySecondRowIsShadedAndTheFirstIsPlain)
{
    AddRows({0, 0, 0, 0});
    const Picture page(m_list);
    page.Save("grid_shaded");
    for (int nRow = 0; nRow < 4; ++nRow) {
        for (int nColumn = 0; nColumn < nColumns; ++nColumn) {
            EXPECT_TRUE(page.IsAll(Inside(nRow, nColumn), nRow % 2 == 1 ? crShade : crPaper))
                << nRow << "," << nColumn << "\n"
                << page.Describe(Cell(nRow, nColumn));
        }
    }
}

TEST_F(QMGridListTest, ShadingGoesOnBelowTheLastRow)
{
    // The number of the last row is 2 first and then 3. The rows alternate in the same way.
    for (const int nRows : {3, 4}) {
        while (m_list.GetItemCount() < nRows) {
            AddRows({0});
        }
        const Picture page(m_list);
        for (int nRow = nRows; Cell(0, 0).top + nRow * RowHeight() < ClientBottom(); ++nRow) {
            const int nTop = Cell(0, 0).top + nRow * RowHeight();
            const int nBottom = std::min(nTop + RowHeight(), ClientBottom());
            const VRect strip = {1, nTop, 30, nBottom};
            EXPECT_TRUE(page.IsAll(strip, nRow % 2 == 1 ? crShade : crPaper))
                << nRow << " of " << nRows << "\n"
                << page.Describe(strip);
            // In the whole width of the list, also after the last column.
            EXPECT_EQ(page.At(319, nTop), nRow % 2 == 1 ? crShade : crPaper);
        }
    }
}

// Under high contrast the ground may be black. So the list uses no shading and no colours of its
// own.
TEST_F(QMGridListTest, InTheSystemsColorsAllIsPlain)
{
    AddRows({0, 0, 0});
    m_list.SetSystemColors(true);
    const Picture page(m_list);
    EXPECT_FALSE(page.HasAny({0, 0, page.GetWidth(), page.GetHeight()}, crShade));
    m_list.SetSystemColors(false);
    const Picture again(m_list);
    EXPECT_TRUE(again.HasAny({0, 0, again.GetWidth(), again.GetHeight()}, crShade));
}

TEST_F(QMGridListTest, WithoutShadingAllIsPlain)
{
    AddRows({0, 0, 0});
    SetFlags(QM_GRID_VERTICAL);
    const Picture page(m_list);
    EXPECT_FALSE(page.HasAny({0, 0, page.GetWidth(), page.GetHeight()}, crShade));
    EXPECT_TRUE(page.IsAll(Inside(1, nFree), crPaper));
}

// ---- Lines.

TEST_F(QMGridListTest, ShadingAndVerticalLinesAreThereAtFirst)
{
    EXPECT_EQ(m_list.GetLineFlags(), QM_GRID_SHADED | QM_GRID_VERTICAL);
}

TEST_F(QMGridListTest, VerticalLinesRunAtTheLeftEdgesOfTheCells)
{
    AddRows({0, 0, 0});
    SetFlags(QM_GRID_VERTICAL);
    const Picture page(m_list);
    page.Save("grid_vertical");
    for (int nColumn = 0; nColumn < nColumns; ++nColumn) {
        const int x = Cell(0, nColumn).left;
        // From above the first row, through all rows, to the bottom.
        EXPECT_TRUE(IsLineDown(page, x, 0, ClientBottom())) << "column " << nColumn;
        EXPECT_FALSE(
            page.HasAny({x + 1, Cell(0, 0).top, x + anWidths[nColumn], ClientBottom()}, crLine))
            << "column " << nColumn;
    }
}

TEST_F(QMGridListTest, HorizontalLinesRunOnePixelAboveTheRowsEdges)
{
    AddRows({0, 0, 0});
    SetFlags(QM_GRID_HORIZONTAL);
    const Picture page(m_list);
    page.Save("grid_horizontal");
    EXPECT_TRUE(IsLineAcross(page, Cell(0, 0).top, 0, nAllWidths));
    for (int y = Cell(0, 0).top + 1; y < ClientBottom(); ++y) {
        const bool bLine = (y - Cell(0, 0).top) % RowHeight() == RowHeight() - 1;
        EXPECT_EQ(IsLineAcross(page, y, 0, nAllWidths), bLine) << "y = " << y;
        EXPECT_EQ(page.At(5, y), bLine ? crLine : crPaper) << "y = " << y;
    }
}

TEST_F(QMGridListTest, EachGridFlagStandsForItself)
{
    AddRows({0, 0, 0});
    for (uint32_t uFlags = 0; uFlags < 8; ++uFlags) {
        SetFlags(uFlags);
        const Picture page(m_list);
        const VRect cell = Cell(1, nFree);
        EXPECT_EQ(page.At(cell.left + 5, cell.top + 5) == crShade, (uFlags & QM_GRID_SHADED) != 0)
            << "flags " << uFlags;
        EXPECT_EQ(page.At(cell.left + 5, cell.bottom - 1) == crLine,
                  (uFlags & QM_GRID_HORIZONTAL) != 0)
            << "flags " << uFlags;
        EXPECT_EQ(page.At(cell.left, cell.top + 5) == crLine, (uFlags & QM_GRID_VERTICAL) != 0)
            << "flags " << uFlags;
    }
}

TEST_F(QMGridListTest, TheTopVisibleRowHasALineAlongItsUpperEdge)
{
    AddRows({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    SetFlags(QM_GRID_HORIZONTAL);
    m_list.EnsureVisible(19);
    const int nTop = static_cast<int>(m_list.Send(LVM_GETTOPINDEX));
    ASSERT_GT(nTop, 0);
    const Picture page(m_list);
    EXPECT_TRUE(IsLineAcross(page, Cell(nTop, 0).top, 0, nAllWidths));
    EXPECT_EQ(page.At(5, Cell(nTop + 1, 0).top), crPaper);
    // The shade depends on the number of the row, not on its place.
    SetFlags(QM_GRID_SHADED);
    const Picture shaded(m_list);
    EXPECT_EQ(shaded.At(5, Cell(nTop, 0).top + 5), nTop % 2 == 1 ? crShade : crPaper);
}

TEST_F(QMGridListTest, TheLinesFollowTheHorizontalScroll)
{
    AddRows({0, 0});
    SetFlags(QM_GRID_VERTICAL);
    m_list.SetColumnWidth(nLast, 400);
    m_list.Send(LVM_SCROLL, 50, 0);
    const Picture page(m_list);
    EXPECT_EQ(Cell(0, nBalance).left, anWidths[nCleared] + anWidths[nFree] - 50);
    EXPECT_TRUE(IsLineDown(page, Cell(0, nBalance).left, Cell(0, 0).top, Cell(1, 0).bottom));
}

TEST_F(QMGridListTest, TheHeadingsAreNotDrawnOver)
{
    AddRows({0, 0});
    auto* hHeader = reinterpret_cast<HWND>(m_list.Send(LVM_GETHEADER));
    const auto EdgeOfHeading = [&] {
        RedrawWindow(m_list.GetHandle(), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        // Then the rows are painted once more, as after a change in one of them.
        m_list.Invalidate(true);
        m_list.Update();
        HDC hDC = GetDC(hHeader);
        const COLORREF crEdge = GetPixel(hDC, Cell(0, nFree).left, 6);
        ReleaseDC(hHeader, hDC);
        return crEdge;
    };
    SetFlags(0);
    const COLORREF crWithout = EdgeOfHeading();
    ASSERT_NE(crWithout, crLine);
    SetFlags(QM_GRID_VERTICAL);
    EXPECT_EQ(EdgeOfHeading(), crWithout);
}

// ---- An empty list.

TEST_F(QMGridListTest, AnEmptyListIsRuledAndShaded)
{
    SetFlags(QM_GRID_SHADED | QM_GRID_HORIZONTAL | QM_GRID_VERTICAL);
    const VRect heading = m_list.GetHeadingRect(0);
    const int nHeight = heading.GetHeight() - 2;
    const Picture page(m_list);
    page.Save("grid_empty");
    int x = 2;
    for (const int nWidth : anWidths) {
        x += nWidth;
        EXPECT_TRUE(IsLineDown(page, x, heading.bottom, ClientBottom())) << "x = " << x;
    }
    for (int y = heading.bottom; y < ClientBottom(); ++y) {
        const int nStrip = (y - heading.bottom) / nHeight;
        const bool bLine = (y - heading.bottom) % nHeight == 0;
        const COLORREF crGround = nStrip % 2 == 1 ? crShade : crPaper;
        for (const int nAt : {0, 1, 45, 150, 319}) {
            EXPECT_EQ(page.At(nAt, y), bLine ? crLine : crGround) << nAt << "," << y;
        }
    }
}

TEST_F(QMGridListTest, AnEmptyListWithoutFlagsIsPlain)
{
    SetFlags(0);
    const Picture page(m_list);
    const VRect below = {0, m_list.GetHeadingRect(0).bottom, 320, ClientBottom()};
    EXPECT_TRUE(page.IsAll(below, crPaper));
}

TEST_F(QMGridListTest, AnEmptyListsLinesBeyondTheEdgesAreLeftOut)
{
    SetFlags(QM_GRID_VERTICAL);
    m_list.SetColumnWidth(nLast, 400);
    m_list.Send(LVM_SCROLL, 50, 0);
    const int nScroll = GetScrollPos(m_list.GetHandle(), SB_HORZ);
    ASSERT_EQ(nScroll, 50);
    const Picture page(m_list);
    const int nTop = m_list.GetHeadingRect(0).bottom;
    std::set<int> expected;
    for (int nColumn = 0, x = 2 - nScroll; nColumn < nColumns; ++nColumn) {
        x += m_list.GetColumnWidth(nColumn);
        expected.insert(x);
    }
    for (int x = 0; x < 320; ++x) {
        EXPECT_EQ(page.At(x, nTop + 3) == crLine, expected.count(x) != 0) << "x = " << x;
    }
}

// ---- Balances.

TEST_F(QMGridListTest, TheBalanceIsInItsColourAndTheNextColumnInTheLists)
{
    AddRows({QM_DECOR_POSITIVE, QM_DECOR_NEGATIVE, 0});
    SetFlags(0);
    for (int nRow = 0; nRow < 3; ++nRow) {
        for (const int nColumn : {nFree, nBalance, nTag, nLast}) {
            m_list.SetItemText(nRow, nColumn, "HHH");
        }
    }
    const Picture page(m_list);
    page.Save("grid_balances");
    const COLORREF acrBalance[] = {crPositive, crNegative, crText};
    for (int nRow = 0; nRow < 3; ++nRow) {
        EXPECT_TRUE(page.HasAny(Cell(nRow, nFree), crText)) << "row " << nRow;
        EXPECT_TRUE(page.HasAny(Cell(nRow, nBalance), acrBalance[nRow]))
            << nRow << "\n"
            << page.Describe(Cell(nRow, nBalance));
        EXPECT_EQ(page.HasAny(Cell(nRow, nBalance), crText), nRow == 2) << "row " << nRow;
        EXPECT_TRUE(page.HasAny(Cell(nRow, nTag), crText)) << "row " << nRow;
        EXPECT_FALSE(page.HasAny(Cell(nRow, nTag), acrBalance[0])) << "row " << nRow;
        EXPECT_TRUE(page.HasAny(Cell(nRow, nLast), crText)) << "row " << nRow;
    }
}

TEST_F(QMGridListTest, TheBalancesColoursCanBeChosen)
{
    AddRows({QM_DECOR_POSITIVE, QM_DECOR_NEGATIVE});
    m_list.SetItemText(0, nBalance, "HHH");
    m_list.SetItemText(1, nBalance, "HHH");
    m_list.SetBalanceColors(0x00FF00, 0x0000FF);
    const Picture page(m_list);
    EXPECT_TRUE(page.HasAny(Cell(0, nBalance), 0x00FF00));
    EXPECT_TRUE(page.HasAny(Cell(1, nBalance), 0x0000FF));
}

TEST_F(QMGridListTest, AHiddenBalanceColumnColoursNothing)
{
    m_list.SetPaintedColumns(-1, nTag, nCleared);
    AddRows({QM_DECOR_POSITIVE, QM_DECOR_NEGATIVE});
    for (int nRow = 0; nRow < 2; ++nRow) {
        for (int nColumn = 0; nColumn < nColumns; ++nColumn) {
            m_list.SetItemText(nRow, nColumn, "HHH");
        }
    }
    const Picture page(m_list);
    const VRect all = {0, 0, page.GetWidth(), page.GetHeight()};
    EXPECT_FALSE(page.HasAny(all, crPositive));
    EXPECT_FALSE(page.HasAny(all, crNegative));
    EXPECT_TRUE(page.HasAny(all, crText));
}

// ---- Marks.

TEST_F(QMGridListTest, MarksStandInTheMiddleOfTheirCells)
{
    AddRows({QM_DECOR_TAX | QM_DECOR_VOIDED, QM_DECOR_EXPENSE | QM_DECOR_CLEARED});
    const Picture page(m_list);
    page.Save("grid_marks");
    ExpectMark(page, 0, nTag, IDB_MARK_TAX, crPaper, false);
    ExpectMark(page, 0, nCleared, IDB_MARK_VOIDED, crPaper, false);
    ExpectMark(page, 1, nTag, IDB_MARK_EXPENSE, crShade, false);
    ExpectMark(page, 1, nCleared, IDB_MARK_CLEARED, crShade, false);
    EXPECT_TRUE(page.IsAll(Inside(0, nFree), crPaper));
    EXPECT_TRUE(page.IsAll(Inside(0, nLast), crPaper));
}

TEST_F(QMGridListTest, MarksOnASelectedRowAreLight)
{
    AddRows({QM_DECOR_TAX | QM_DECOR_CLEARED, QM_DECOR_EXPENSE | QM_DECOR_VOIDED});
    for (const int nRow : {0, 1}) {
        m_list.SetItemState(nRow, LVIS_SELECTED, LVIS_SELECTED);
    }
    const Picture page(m_list);
    page.Save("grid_selected");
    const COLORREF crGround = page.At(Cell(0, nFree).left + 30, Cell(0, nFree).top + 8);
    EXPECT_EQ(crGround, crQuiet);
    ExpectMark(page, 0, nTag, IDB_MARK_TAX, crGround, true);
    ExpectMark(page, 0, nCleared, IDB_MARK_CLEARED, crGround, true);
    ExpectMark(page, 1, nTag, IDB_MARK_EXPENSE, crGround, true);
    ExpectMark(page, 1, nCleared, IDB_MARK_VOIDED, crGround, true);
}

TEST_F(QMGridListTest, ASelectedRowOfAListWithoutTheFocusCanBeSeenAndRead)
{
    constexpr double fSeen = 2.5;
    constexpr double fPicture = 3; // what the guidelines want for pictures
    AddRows({0, QM_DECOR_TAX | QM_DECOR_POSITIVE, QM_DECOR_NEGATIVE});
    for (const int nRow : {1, 2}) {
        m_list.SetItemText(nRow, nFree, "HHH");
        m_list.SetItemText(nRow, nBalance, "HHH");
        m_list.SetItemState(nRow, LVIS_SELECTED, LVIS_SELECTED);
    }
    ASSERT_NE(GetFocus(), m_list.GetHandle());
    const Picture page(m_list);
    page.Save("grid_quiet");
    EXPECT_GE(ContrastOf(crQuiet, crPaper), fSeen);
    EXPECT_GE(ContrastOf(crQuiet, crShade), fSeen);
    EXPECT_GE(ContrastOf(crQuiet, 0xFFFFFF), fPicture) << "the strokes of marks";
    ExpectMark(page, 1, nTag, IDB_MARK_TAX, crQuiet, true);
    const PixelAt at = [&](int x, int y) { return page.At(x, y); };
    for (const int nRow : {1, 2}) {
        EXPECT_TRUE(page.IsAll(Inside(nRow, nLast), crQuiet));
        for (const int nColumn : {nFree, nBalance}) {
            EXPECT_EQ(GroundOf(at, Inside(nRow, nColumn)), crQuiet);
            EXPECT_GE(ContrastIn(at, Inside(nRow, nColumn)), fReadable) << nRow << nColumn;
            EXPECT_FALSE(page.HasAny(Cell(nRow, nColumn), GetSysColor(COLOR_BTNFACE)));
        }
    }
}

TEST_F(QMGridListTest, MarksOnADarkGroundAreLightWhetherTheRowIsSelectedOrNot)
{
    const ScopedDarkColors dark;
    AddRows({QM_DECOR_TAX | QM_DECOR_CLEARED, QM_DECOR_EXPENSE | QM_DECOR_VOIDED});
    m_list.Send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOW)));
    m_list.SetSystemColors(true);
    m_list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    const Picture page(m_list);
    page.Save("grid_dark");
    const COLORREF crGround = GetSysColor(COLOR_WINDOW);
    ASSERT_EQ(crGround, 0U);
    ExpectMark(page, 0, nTag, IDB_MARK_TAX, crGround, true);
    ExpectMark(page, 0, nCleared, IDB_MARK_CLEARED, crGround, true);
    ExpectMark(page, 1, nTag, IDB_MARK_EXPENSE, GetSysColor(COLOR_BTNFACE), true);
    ExpectMark(page, 1, nCleared, IDB_MARK_VOIDED, GetSysColor(COLOR_BTNFACE), true);
}

// Where high contrast has a light ground, a selected row may have a light one, too.
TEST_F(QMGridListTest, MarksInTheSystemsColorsAreDarkOnALightSelection)
{
    AddRows({QM_DECOR_TAX, 0});
    m_list.SetSystemColors(true);
    m_list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    const Picture page(m_list);
    ExpectMark(page, 0, nTag, IDB_MARK_TAX, GetSysColor(COLOR_BTNFACE), false);
}

TEST_F(QMGridListTest, ASelectedRowOfTheListWithTheFocusIsHighlightedInItsWholeWidth)
{
    AddRows({QM_DECOR_TAX, QM_DECOR_TAX});
    SetFlags(QM_GRID_SHADED);
    m_parent.Show(SW_SHOW);
    SetForegroundWindow(m_parent.GetHandle());
    m_list.SetFocus();
    ASSERT_TRUE(PumpUntil([&] { return GetFocus() == m_list.GetHandle(); }));
    // A selected row is not shaded.
    m_list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    const Picture page(m_list);
    page.Save("grid_focus");
    const COLORREF crGround = GetSysColor(COLOR_HIGHLIGHT);
    for (const int nColumn : {nCleared, nFree, nBalance, nLast}) {
        EXPECT_TRUE(page.IsAll(Inside(1, nColumn), crGround)) << nColumn << "\n"
                                                              << page.Describe(Cell(1, nColumn));
    }
    ExpectMark(page, 1, nTag, IDB_MARK_TAX, crGround, true);
    ExpectMark(page, 0, nTag, IDB_MARK_TAX, crPaper, false);
}

TEST_F(QMGridListTest, OfAPairThatShutsOneAnotherOutNoneIsDrawn)
{
    AddRows({QM_DECOR_TAX | QM_DECOR_EXPENSE | QM_DECOR_VOIDED | QM_DECOR_CLEARED, 0});
    const Picture page(m_list);
    for (const int nRow : {0, 1}) {
        for (const int nColumn : {nTag, nCleared}) {
            EXPECT_TRUE(page.IsAll(Inside(nRow, nColumn), nRow == 0 ? crPaper : crShade));
        }
    }
}

TEST_F(QMGridListTest, MarksAreDrawnWithoutAnyGridFlag)
{
    AddRows({QM_DECOR_TAX});
    SetFlags(0);
    const Picture page(m_list);
    ExpectMark(page, 0, nTag, IDB_MARK_TAX, crPaper, false);
}

TEST_F(QMGridListTest, AMarkLargerThanItsCellIsCut)
{
    AddRows({QM_DECOR_EXPENSE});
    SetFlags(0);
    m_list.SetColumnWidth(nTag, 6);
    const Picture page(m_list);
    const Picture mark(IDB_MARK_EXPENSE);
    const VRect cell = Cell(0, nTag);
    ASSERT_EQ(cell.GetWidth(), 6);
    EXPECT_TRUE(page.HasAny(cell, mark.At(0, 3)));
    EXPECT_TRUE(page.IsAll({cell.right, cell.top, cell.right + 10, cell.bottom}, crPaper));
    EXPECT_TRUE(page.IsAll({cell.left - 10, cell.top, cell.left, cell.bottom}, crPaper));
}

TEST_F(QMGridListTest, HiddenColumnsOfMarksShowNone)
{
    AddRows({QM_DECOR_TAX | QM_DECOR_VOIDED});
    SetFlags(0);
    m_list.SetPaintedColumns(nBalance, -1, -1);
    const Picture page(m_list);
    EXPECT_TRUE(page.IsAll({0, Cell(0, 0).top, nAllWidths, Cell(0, 0).bottom}, crPaper));
}
