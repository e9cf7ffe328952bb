// The register's list: what it shows and what it answers to messages, although its rows are stored
// elsewhere.

#include "register/qmregisterlist.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "register/qmregistermodel.h"
#include "resources/resource.h"
#include "tests/win/picture.h"
#include "tests/win/support.h"

namespace {

constexpr UINT uListId = 7;

// Counts the messages that a window gets, and the notifications of new column widths among them.
class MessageCount : public VMessageFilter
{
public:
    bool Filter(VWindow&, UINT uMessage, WPARAM, LPARAM lParam, LRESULT&, bool&) override
    {
        ++m_nCount;
        if (uMessage == WM_NOTIFY) {
            const UINT uCode = reinterpret_cast<NMHDR*>(lParam)->code;
            m_nColumnChanges += uCode == HDN_ITEMCHANGEDA || uCode == HDN_ITEMCHANGEDW;
        }
        return true;
    }

    int m_nCount = 0;
    int m_nColumnChanges = 0;
};

class QMRegisterListTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent, WS_POPUP));
        m_parent.Move({10, 10, 1010, 310});
        ASSERT_TRUE(m_list.CreateList(m_parent, uListId));
        m_parent.Show(SW_SHOWNOACTIVATE);
        PumpAll();
        m_document.SetAccount(std::make_unique<QMAccount>("house.qmk"));
    }

    QMAccountHeader& Header() { return m_document.GetAccount()->header; }

    // Transactions of every type with every flag, on different days.
    void AddTransactions(int nCount)
    {
        constexpr uint32_t auFlags[] = {QM_TRANS_FLAG_NOT_CLEARED, 0, QM_TRANS_FLAG_VOIDED,
                                        QM_TRANS_FLAG_TAX, QM_TRANS_FLAG_EXPENSE};
        for (int n = 0; n < nCount; ++n) {
            auto pTransaction = std::make_unique<QMTransaction>();
            pTransaction->lType = n % 12;
            pTransaction->dtDate = QMMakeDate(static_cast<uint16_t>(2000 + n / 28), 3,
                                              static_cast<uint16_t>(1 + n % 28));
            pTransaction->lNumber = static_cast<uint32_t>(1000 + n);
            pTransaction->fAmount = 1.25F * static_cast<float>(n);
            pTransaction->lFlags = auFlags[n % 5];
            snprintf(pTransaction->szDescription, sizeof pTransaction->szDescription,
                     "Description %d", n);
            snprintf(pTransaction->szMemo, sizeof pTransaction->szMemo, "%s",
                     std::string(static_cast<size_t>(n * 37 % 256), 'm').c_str());
            m_document.GetAccount()->store.Add(std::move(pTransaction));
        }
    }

    // Reads texts as another program does.
    std::string ReadText(int nRow, int nColumn) const
    {
        char szText[300] = "unread";
        LVITEMA item = {};
        item.iSubItem = nColumn;
        item.pszText = szText;
        item.cchTextMax = sizeof szText;
        SendMessageA(m_list.GetHandle(), LVM_GETITEMTEXTA, static_cast<WPARAM>(nRow),
                     reinterpret_cast<LPARAM>(&item));
        return item.pszText;
    }

    std::wstring ReadWideText(int nRow, int nColumn) const
    {
        wchar_t szText[300] = L"unread";
        LVITEMW item = {};
        item.iSubItem = nColumn;
        item.pszText = szText;
        item.cchTextMax = 300;
        SendMessageW(m_list.GetHandle(), LVM_GETITEMTEXTW, static_cast<WPARAM>(nRow),
                     reinterpret_cast<LPARAM>(&item));
        return item.pszText;
    }

    LPARAM ReadWord(int nRow, UINT uMessage = LVM_GETITEMA) const
    {
        LVITEMA item = {};
        item.mask = LVIF_PARAM;
        item.iItem = nRow;
        item.lParam = -1;
        EXPECT_NE(SendMessageA(m_list.GetHandle(), uMessage, 0, reinterpret_cast<LPARAM>(&item)),
                  0);
        return item.lParam;
    }

    // The heading and the format of a column.
    HDITEMA Heading(int nColumn, char* szText, int nSize) const
    {
        HDITEMA item = {};
        item.mask = HDI_TEXT | HDI_FORMAT | HDI_BITMAP;
        item.pszText = szText;
        item.cchTextMax = nSize;
        auto* hHeader = reinterpret_cast<HWND>(m_list.Send(LVM_GETHEADER));
        SendMessageA(hHeader, HDM_GETITEMA, static_cast<WPARAM>(nColumn),
                     reinterpret_cast<LPARAM>(&item));
        return item;
    }

    int SumOfWidths(int nColumns) const
    {
        int nSum = 0;
        for (int n = 0; n < nColumns; ++n) {
            nSum += m_list.GetColumnWidth(n);
        }
        return nSum;
    }

    // Stands before the list, which uses it until its own end.
    VWindow m_parent;
    QMRegisterList m_list;
    QMDocument m_document;
    QMRegisterModel m_model{m_document, m_list};
};

} // namespace

TEST_F(QMRegisterListTest, IsAFullRowListWhoseHeadingsAreNoButtons)
{
    constexpr LONG_PTR lStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | LVS_REPORT |
                                LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
    EXPECT_EQ(m_list.GetLong(GWL_STYLE) & lStyle, lStyle);
    constexpr LRESULT lExtended = LVS_EX_FULLROWSELECT | LVS_EX_SUBITEMIMAGES;
    EXPECT_EQ(m_list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE) & lExtended, lExtended);
    EXPECT_EQ(m_list.GetId(), uListId);
    EXPECT_EQ(m_list.GetLineFlags(), QM_GRID_SHADED | QM_GRID_VERTICAL);
}

// ---- Columns.

TEST_F(QMRegisterListTest, ShowsTheVisibleColumnsInTheirOrder)
{
    ASSERT_TRUE(m_model.ShowAll());
    struct Expected
    {
        const char* szText;
        int nFormat;
        int nWidth;
    };
    constexpr Expected aExpected[] = {
        {"", HDF_CENTER, 30},           {"Date", HDF_RIGHT, 55},  {"Number", HDF_RIGHT, 50},
        {"Description", HDF_LEFT, 250}, {"Debit", HDF_RIGHT, 60}, {"Credit", HDF_RIGHT, 60},
        {"Balance", HDF_RIGHT, 75},     {"", HDF_CENTER, 30},     {"Memo", HDF_LEFT, 240},
    };
    ASSERT_EQ(m_list.GetColumnCount(), 10);
    for (int nColumn = 0; nColumn < 9; ++nColumn) {
        char szText[32] = "";
        const HDITEMA item = Heading(nColumn, szText, sizeof szText);
        const Expected& expected = aExpected[nColumn];
        EXPECT_EQ(std::string(szText), expected.szText) << "column " << nColumn;
        // Windows aligns the first column to the left.
        if (nColumn > 0) {
            EXPECT_EQ(item.fmt & HDF_JUSTIFYMASK, expected.nFormat) << "column " << nColumn;
        }
        EXPECT_EQ(m_list.GetColumnWidth(nColumn), expected.nWidth) << "column " << nColumn;
        EXPECT_EQ((item.fmt & HDF_BITMAP) != 0 && item.hbm != nullptr, *expected.szText == '\0')
            << "column " << nColumn;
    }
}

TEST_F(QMRegisterListTest, TheFillerTakesTheWidthThatIsLeft)
{
    ASSERT_TRUE(m_model.ShowAll());
    m_list.AdjustFillerColumn();
    EXPECT_EQ(SumOfWidths(10), m_list.GetClientRect().right);
    EXPECT_GT(m_list.GetColumnWidth(9), 0);
    m_list.SetColumnWidth(3, 200);
    m_list.AdjustFillerColumn();
    EXPECT_EQ(SumOfWidths(10), m_list.GetClientRect().right);
    // When no width is left it has none, and is still the last column.
    m_list.SetColumnWidth(3, 2000);
    m_list.AdjustFillerColumn();
    EXPECT_EQ(m_list.GetColumnCount(), 10);
    EXPECT_EQ(m_list.GetColumnWidth(9), 0);
    EXPECT_EQ(m_list.GetColumnWidth(8), 240);
}

TEST_F(QMRegisterListTest, HidingAColumnMovesTheOthersUp)
{
    Header().bShowDate = 0;
    Header().bShowCleared = 0;
    Header().bShowCategory = 1;
    ASSERT_TRUE(m_model.ShowAll());
    ASSERT_EQ(m_list.GetColumnCount(), 9);
    char szText[32] = "";
    Heading(0, szText, sizeof szText);
    EXPECT_EQ(std::string(szText), "Number");
    Heading(7, szText, sizeof szText);
    EXPECT_EQ(std::string(szText), "Category");
}

TEST_F(QMRegisterListTest, TakesOverTheWidthsToWhichColumnsWereDragged)
{
    ASSERT_TRUE(m_model.ShowAll());
    QMColumnTable& columns = m_model.GetColumns();
    EXPECT_FALSE(m_list.TakeOverWidths(columns, Header()));
    m_list.SetColumnWidth(1, 99);
    m_list.SetColumnWidth(8, 111);
    EXPECT_TRUE(m_list.TakeOverWidths(columns, Header()));
    EXPECT_EQ(columns.GetWidth(QM_ENTRY_DATE), 99);
    EXPECT_EQ(Header().lWidthDate, 99);
    EXPECT_EQ(Header().lWidthMemo, 111);
    EXPECT_EQ(Header().lWidthNumber, 50);
    // A hidden column keeps its width. The filler has no width to keep.
    EXPECT_EQ(Header().lWidthCategory, 240);
    EXPECT_FALSE(m_list.TakeOverWidths(columns, Header()));
    m_list.SetColumnWidth(9, 5);
    EXPECT_FALSE(m_list.TakeOverWidths(columns, Header()));
    EXPECT_FALSE(m_document.IsModified());
}

TEST_F(QMRegisterListTest, TheParentHearsOfAColumnsNewWidthWhenItIsInForce)
{
    ASSERT_TRUE(m_model.ShowAll());
    MessageCount ofParent;
    m_parent.AddFilter(ofParent);
    auto* hHeader = reinterpret_cast<HWND>(m_list.Send(LVM_GETHEADER));
    // What the header sends at the end of a drag.
    HDITEMA item = {};
    item.mask = HDI_WIDTH;
    item.cxy = 81;
    SendMessageA(hHeader, HDM_SETITEMA, 2, reinterpret_cast<LPARAM>(&item));
    EXPECT_GE(ofParent.m_nColumnChanges, 1);
    EXPECT_TRUE(m_list.TakeOverWidths(m_model.GetColumns(), Header()));
    EXPECT_EQ(Header().lWidthNumber, 81);
    m_parent.RemoveFilter(ofParent);
}

// ---- Rows.

TEST_F(QMRegisterListTest, AnswersTheModelsTextsAndWords)
{
    AddTransactions(120);
    ASSERT_TRUE(m_model.ShowAll());
    QMRowTable plain;
    QMRegisterModel other(m_document, plain);
    ASSERT_TRUE(other.ShowAll());
    ASSERT_EQ(m_list.GetItemCount(), 120);
    for (int nRow = 0; nRow < 120; ++nRow) {
        for (int nColumn = 0; nColumn < 10; ++nColumn) {
            const std::string sExpected(plain.GetCellText(nRow, nColumn));
            ASSERT_EQ(ReadText(nRow, nColumn), sExpected)
                << "row " << nRow << ", column " << nColumn;
            ASSERT_EQ(ReadWideText(nRow, nColumn),
                      std::wstring(sExpected.begin(), sExpected.end()));
        }
        ASSERT_EQ(ReadWord(nRow), static_cast<LPARAM>(plain.GetDecoration(nRow))) << "row " << nRow;
        ASSERT_EQ(ReadWord(nRow, LVM_GETITEMW), ReadWord(nRow));
        ASSERT_EQ(m_list.GetItemData(nRow), ReadWord(nRow));
    }
    EXPECT_EQ(ReadText(5, 3), "Direct Debit - Description 5");
    EXPECT_EQ(ReadText(62, 8).size(), 62U * 37 % 256);
}

TEST_F(QMRegisterListTest, AWordIsNewAsSoonAsItIsSet)
{
    AddTransactions(3);
    ASSERT_TRUE(m_model.ShowAll());
    EXPECT_TRUE(m_list.SetDecoration(1, QM_DECOR_TAX | QM_DECOR_NEGATIVE));
    EXPECT_EQ(ReadWord(1), static_cast<LPARAM>(QM_DECOR_TAX | QM_DECOR_NEGATIVE));
    EXPECT_TRUE(m_list.SetCellText(1, 3, "Another"));
    EXPECT_EQ(ReadText(1, 3), "Another");
    EXPECT_FALSE(m_list.SetDecoration(3, 0));
    EXPECT_FALSE(m_list.SetCellText(-1, 3, "x"));
}

TEST_F(QMRegisterListTest, ATextLongerThanTheReadersRoomIsCut)
{
    AddTransactions(1);
    ASSERT_TRUE(m_model.ShowAll());
    EXPECT_TRUE(m_list.SetCellText(0, 3, std::string(400, 'x')));
    EXPECT_EQ(ReadText(0, 3), std::string(QM_FIELD_TEXT_SIZE - 1, 'x'));
    EXPECT_EQ(Text(m_list.GetItemText(0, 3, 11)), std::string(10, 'x'));
}

TEST_F(QMRegisterListTest, SelectsFocusesAndShowsOneRow)
{
    AddTransactions(200);
    ASSERT_TRUE(m_model.ShowAll());
    // A new register shows its newest transaction.
    EXPECT_EQ(m_list.GetFocusedRow(), 199);
    EXPECT_TRUE(m_list.SelectRow(0));
    EXPECT_TRUE(m_list.SelectRow(150));
    EXPECT_EQ(m_list.GetFocusedRow(), 150);
    EXPECT_EQ(m_list.GetSelectedCount(), 1);
    EXPECT_EQ(m_list.GetNextItem(-1, LVNI_SELECTED), 150);
    const auto nTop = static_cast<int>(m_list.Send(LVM_GETTOPINDEX));
    const auto nPage = static_cast<int>(m_list.Send(LVM_GETCOUNTPERPAGE));
    EXPECT_LE(nTop, 150);
    EXPECT_GT(nTop + nPage, 150);
    EXPECT_FALSE(m_list.SelectRow(200));
}

TEST_F(QMRegisterListTest, DeletedRowsAreGone)
{
    AddTransactions(5);
    ASSERT_TRUE(m_model.ShowAll());
    EXPECT_TRUE(m_list.DeleteAllRows());
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_EQ(m_list.GetRowCount(), 0);
    EXPECT_EQ(m_list.GetSelectedCount(), 0);
    EXPECT_EQ(m_list.GetFocusedRow(), -1);
}

TEST_F(QMRegisterListTest, AMillionRowsCostNoMessageEach)
{
    constexpr int32_t lRows = 1000000;
    ASSERT_TRUE(m_model.ShowAll());
    PumpAll();
    MessageCount ofList;
    MessageCount ofParent;
    m_list.AddFilter(ofList);
    m_parent.AddFilter(ofParent);
    EXPECT_TRUE(m_list.SetCapacity(lRows));
    bool bDone = true;
    for (int32_t lRow = 0; lRow < lRows; ++lRow) {
        bDone = m_list.AppendRow() && m_list.SetCellText(lRow, 1, "3/14/2004") &&
                m_list.SetDecoration(lRow, QM_DECOR_POSITIVE) && bDone;
    }
    EXPECT_TRUE(bDone);
    m_list.AdjustFillerColumn();
    EXPECT_LT(ofList.m_nCount, 100);
    EXPECT_LT(ofParent.m_nCount, 100);
    EXPECT_EQ(m_list.GetItemCount(), lRows);
    EXPECT_EQ(ReadText(lRows - 1, 1), "3/14/2004");
    EXPECT_EQ(ReadWord(lRows - 1), static_cast<LPARAM>(QM_DECOR_POSITIVE));
    // Painting a page needs only the rows of that page.
    ofParent.m_nCount = 0;
    EXPECT_TRUE(m_list.SelectRow(lRows - 1));
    m_list.Update();
    EXPECT_LT(ofParent.m_nCount, 2000);
    m_list.RemoveFilter(ofList);
    m_parent.RemoveFilter(ofParent);
}

// ---- Painting.

TEST_F(QMRegisterListTest, IsPaintedByTheRowsWords)
{
    AddTransactions(10);
    ASSERT_TRUE(m_model.ShowAll());
    m_list.SetItemState(-1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    const Picture page(m_list);
    page.Save("register");
    const Picture mark(IDB_MARK_VOIDED);
    RECT row = {};
    row.left = LVIR_BOUNDS;
    // The third row is voided, and the first is not cleared.
    m_list.Send(LVM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&row));
    const COLORREF crStroke = mark.At(4, 4);
    ASSERT_NE(crStroke, 0xFFFFFFU);
    EXPECT_TRUE(page.HasAny({0, row.top, 30, row.bottom}, crStroke));
    m_list.Send(LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    EXPECT_EQ(page.At(row.left + 3, row.top + 2), 0xEBEBEBU);
    // When the columns are hidden, their marks are too.
    Header().bShowCleared = 0;
    ASSERT_TRUE(m_model.ShowAll());
    const Picture without(m_list);
    EXPECT_FALSE(without.HasAny({0, 0, without.GetWidth(), without.GetHeight()}, crStroke));
}

TEST_F(QMRegisterListTest, ANewRegisterIsRuledAndShaded)
{
    ASSERT_TRUE(m_model.ShowAll());
    const Picture page(m_list);
    page.Save("register_empty");
    const VRect heading = m_list.GetHeadingRect(0);
    const int nHeight = heading.GetHeight() - 2;
    const int nMiddle = heading.bottom + nHeight + nHeight / 2;
    EXPECT_EQ(page.At(3, nMiddle), 0xEBEBEBU);
    EXPECT_NE(page.At(3, nMiddle - nHeight), 0xEBEBEBU);
    EXPECT_EQ(page.At(2 + m_list.GetColumnWidth(0), nMiddle), 0xC0C0C0U);
}
