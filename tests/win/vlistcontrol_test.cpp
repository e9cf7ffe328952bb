#include "toolkit/vlistcontrol.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/win/support.h"

namespace {

// A list control on a window of its own, with three columns.
class VListControlTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent));
        ASSERT_TRUE(m_list.Create(m_parent.GetHandle(), {0, 0, 400, 200}, WS_CHILD | LVS_REPORT,
                                  "SysListView32", "", 5));
        EXPECT_EQ(m_list.InsertColumn(0, "Date", LVCFMT_LEFT, 50), 0);
        EXPECT_EQ(m_list.InsertColumn(1, "Amount", LVCFMT_RIGHT, 60), 1);
        EXPECT_EQ(m_list.InsertColumn(2, "Payee", LVCFMT_LEFT, 70), 2);
    }

    void InsertRows(int nCount)
    {
        for (int n = 0; n < nCount; ++n) {
            EXPECT_EQ(m_list.InsertItem(n, std::to_string(n).c_str()), n);
        }
    }

    VWindow m_parent;
    VListControl m_list;
};

// Notes the notifications of a list and keeps them from its parent.
class VNotedList : public VListControl
{
public:
    LRESULT OnItemChanging(NMLISTVIEW*, LRESULT& l) override { return Note("changing", l); }
    LRESULT OnItemChanged(NMLISTVIEW*, LRESULT& l) override { return Note("changed", l); }
    LRESULT OnInsertItem(NMLISTVIEW*, LRESULT& l) override { return Note("insert", l); }
    LRESULT OnDeleteItem(NMLISTVIEW*, LRESULT& l) override { return Note("delete", l); }
    LRESULT OnDeleteAllItems(NMLISTVIEW*, LRESULT& l) override { return Note("delete all", l); }
    LRESULT OnColumnClick(NMLISTVIEW*, LRESULT& l) override { return Note("column", l); }
    LRESULT OnBeginDrag(NMLISTVIEW*, LRESULT& l) override { return Note("drag", l); }
    LRESULT OnGetDisplayInfo(NMLVDISPINFOA*, LRESULT& l) override { return Note("info", l); }
    LRESULT OnKeyDown(NMLVKEYDOWN*, LRESULT& l) override { return Note("key", l); }
    LRESULT OnDoubleClick(NMHDR*, LRESULT& l) override { return Note("double click", l); }

    std::string m_sNoted;

private:
    LRESULT Note(const char* szWhat, LRESULT& lResult)
    {
        m_sNoted = szWhat;
        lResult = 3;
        return -1;
    }
};

} // namespace

TEST_F(VListControlTest, HoldsRowsAndTexts)
{
    InsertRows(3);
    EXPECT_EQ(m_list.GetItemCount(), 3);
    EXPECT_TRUE(m_list.SetItemText(1, 2, "Grocer"));
    EXPECT_EQ(Text(m_list.GetItemText(1, 0)), "1");
    EXPECT_EQ(Text(m_list.GetItemText(1, 1)), "");
    EXPECT_EQ(Text(m_list.GetItemText(1, 2)), "Grocer");
    EXPECT_EQ(Text(m_list.GetItemText(1, 2, 4)), "Gro");
    EXPECT_EQ(Text(m_list.GetItemText(9, 0)), "");
    EXPECT_TRUE(m_list.DeleteItem(0));
    EXPECT_EQ(Text(m_list.GetItemText(0, 2)), "Grocer");
    EXPECT_FALSE(m_list.DeleteItem(5));
    EXPECT_TRUE(m_list.DeleteAllItems());
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(VListControlTest, TextsAreReadUpToTheLimit)
{
    InsertRows(1);
    const std::string sLong(3000, 'z');
    m_list.SetItemText(0, 1, sLong.c_str());
    EXPECT_EQ(Text(m_list.GetItemText(0, 1)), sLong.substr(0, 1023));
    EXPECT_EQ(Text(m_list.GetItemText(0, 1, 5000)), sLong.substr(0, 1023));
    m_list.SetItemText(0, 1, sLong.substr(0, 1023).c_str());
    EXPECT_EQ(m_list.GetItemText(0, 1).GetLength(), 1023U);
}

TEST_F(VListControlTest, HoldsDataAndStates)
{
    InsertRows(4);
    EXPECT_TRUE(m_list.SetItemData(2, 77));
    EXPECT_EQ(m_list.GetItemData(2), 77);
    EXPECT_EQ(m_list.GetItemData(1), 0);
    EXPECT_FALSE(m_list.SetItemData(9, 1));
    EXPECT_TRUE(m_list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_TRUE(m_list.SetItemState(3, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED));
    EXPECT_EQ(m_list.GetSelectedCount(), 2);
    EXPECT_EQ(m_list.GetItemState(3, LVIS_FOCUSED), static_cast<UINT>(LVIS_FOCUSED));
    EXPECT_EQ(m_list.GetItemState(1, LVIS_FOCUSED), 0U);
    EXPECT_EQ(m_list.GetNextItem(-1, LVNI_SELECTED), 1);
    EXPECT_EQ(m_list.GetNextItem(1, LVNI_SELECTED), 3);
    EXPECT_EQ(m_list.GetNextItem(3, LVNI_SELECTED), -1);
    EXPECT_TRUE(m_list.EnsureVisible(3));
    EXPECT_FALSE(m_list.EnsureVisible(9));
}

TEST_F(VListControlTest, HoldsColumns)
{
    EXPECT_EQ(m_list.GetColumnCount(), 3);
    EXPECT_EQ(m_list.GetColumnWidth(1), 60);
    EXPECT_TRUE(m_list.SetColumnWidth(1, 33));
    EXPECT_EQ(m_list.GetColumnWidth(1), 33);
    EXPECT_TRUE(m_list.DeleteColumn(0));
    EXPECT_EQ(m_list.GetColumnCount(), 2);
    EXPECT_EQ(m_list.GetColumnWidth(0), 33);
    EXPECT_FALSE(m_list.DeleteColumn(7));
}

TEST_F(VListControlTest, BindsItsHeader)
{
    VHeader header;
    ASSERT_TRUE(m_list.AttachHeader(header));
    EXPECT_EQ(header.GetCount(), 3);
    EXPECT_EQ(Text(header.GetItemText(1)), "Amount");
    EXPECT_EQ(Text(header.GetItemText(8)), "");
    EXPECT_EQ(header.GetItemRect(1).left, 50);
    EXPECT_EQ(header.GetItemRect(1).GetWidth(), 60);
    int anOrder[3] = {};
    ASSERT_TRUE(header.GetOrder(3, anOrder));
    EXPECT_EQ(anOrder[0], 0);
    EXPECT_EQ(anOrder[2], 2);
    const int anMoved[3] = {2, 0, 1};
    header.Send(HDM_SETORDERARRAY, 3, reinterpret_cast<LPARAM>(anMoved));
    ASSERT_TRUE(header.GetOrder(3, anOrder));
    EXPECT_EQ(memcmp(anOrder, anMoved, sizeof anMoved), 0);
}

TEST_F(VListControlTest, ExtendedStylesAreTheWholeWord)
{
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    EXPECT_EQ(m_list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), LVS_EX_FULLROWSELECT);
}

TEST_F(VListControlTest, AutoSizeFollowsTheWiderOfHeadingAndRows)
{
    InsertRows(2);
    m_list.SetItemText(1, 2, "a payee whose name is far wider than the heading");
    char szBuffer[256];
    m_list.AutoSizeColumns(0, -1, szBuffer, sizeof szBuffer);
    const int nHeading = m_list.GetColumnWidth(1);
    const int nContents = m_list.GetColumnWidth(2);
    m_list.SetColumnWidth(1, LVSCW_AUTOSIZE_USEHEADER);
    EXPECT_EQ(nHeading, m_list.GetColumnWidth(1));
    m_list.SetColumnWidth(2, LVSCW_AUTOSIZE);
    EXPECT_EQ(nContents, m_list.GetColumnWidth(2));
    EXPECT_GT(nContents, nHeading);
}

TEST(VListControl, TurnsItsCodesIntoCalls)
{
    const struct
    {
        UINT uCode;
        const char* szCall;
    } aCases[] = {
        {LVN_ITEMCHANGING, "changing"},
        {LVN_ITEMCHANGED, "changed"},
        {LVN_INSERTITEM, "insert"},
        {LVN_DELETEITEM, "delete"},
        {LVN_DELETEALLITEMS, "delete all"},
        {LVN_COLUMNCLICK, "column"},
        {LVN_BEGINDRAG, "drag"},
        {LVN_GETDISPINFOA, "info"},
        {LVN_KEYDOWN, "key"},
        {static_cast<UINT>(NM_DBLCLK), "double click"},
    };
    for (const auto& test : aCases) {
        VNotedList list;
        NMLVDISPINFOA info = {};
        info.hdr.code = test.uCode;
        LRESULT lResult = 1;
        EXPECT_EQ(list.OnReflectNotify(&info.hdr, lResult), -1);
        EXPECT_EQ(list.m_sNoted, test.szCall);
        EXPECT_EQ(lResult, 3);
        VListControl plain;
        EXPECT_EQ(plain.OnReflectNotify(&info.hdr, lResult), 1) << test.szCall;
    }
    VNotedList list;
    NMHDR other = {nullptr, 0, LVN_ODCACHEHINT};
    LRESULT lResult = 1;
    EXPECT_EQ(list.OnReflectNotify(&other, lResult), V_NOT_HANDLED);
    EXPECT_EQ(list.m_sNoted, "");
}

// ---- The rule of the widths, with a fake list in which every character is ten pixels wide.

namespace {

class PretendedList : public VMessageFilter
{
public:
    bool Filter(VWindow&, UINT uMessage, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                bool& bHandled) override
    {
        bHandled = true;
        switch (uMessage) {
            case LVM_GETHEADER:
                lResult = reinterpret_cast<LRESULT>(m_hHeader);
                return false;
            case LVM_GETITEMCOUNT:
                lResult = static_cast<LRESULT>(m_rows.size());
                return false;
            case LVM_GETCOLUMNA:
                Copy(*reinterpret_cast<LVCOLUMNA*>(lParam), "heading");
                return false;
            case LVM_GETITEMTEXTA:
                m_asked.push_back(static_cast<int>(wParam));
                Copy(*reinterpret_cast<LVITEMA*>(lParam), m_rows[wParam]);
                return false;
            case LVM_GETSTRINGWIDTHA:
                lResult = static_cast<LRESULT>(10 * strlen(reinterpret_cast<const char*>(lParam)));
                return false;
            case LVM_SETCOLUMNWIDTH:
                m_sWidths += std::to_string(wParam) + ":" +
                             std::to_string(static_cast<short>(LOWORD(lParam))) + " ";
                lResult = TRUE;
                return false;
            default:
                bHandled = false;
                return true;
        }
    }

    HWND m_hHeader = nullptr;
    std::vector<std::string> m_rows;
    std::vector<int> m_asked;
    std::string m_sWidths;

private:
    template <class TItem>
    static void Copy(TItem& item, const std::string& sText)
    {
        lstrcpynA(item.pszText, sText.c_str(), item.cchTextMax);
    }
};

class AutoSizeColumns : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent));
        ASSERT_TRUE(m_list.Create(m_parent.GetHandle(), g_testRect, WS_CHILD, "Static", "", 1));
        ASSERT_TRUE(m_header.Create(m_parent.GetHandle(), g_testRect, WS_CHILD | HDS_HORZ,
                                    "SysHeader32", "", 2));
        HDITEMA item = {};
        item.mask = HDI_WIDTH;
        for (int n = 0; n < 3; ++n) {
            m_header.Send(HDM_INSERTITEMA, static_cast<WPARAM>(n), reinterpret_cast<LPARAM>(&item));
        }
        m_pretence.m_hHeader = m_header.GetHandle();
        m_list.AddFilter(m_pretence);
    }

    std::string Size(int nFirst, int nLast)
    {
        char szBuffer[64];
        m_pretence.m_asked.clear();
        m_pretence.m_sWidths.clear();
        m_list.AutoSizeColumns(nFirst, nLast, szBuffer, sizeof szBuffer);
        return m_pretence.m_sWidths;
    }

    PretendedList m_pretence;
    VWindow m_parent;
    VListControl m_list;
    VHeader m_header;
};

} // namespace

TEST_F(AutoSizeColumns, ToTheContentsWhereARowIsWider)
{
    m_pretence.m_rows = {"short", "heading+", "never looked at"};
    EXPECT_EQ(Size(1, 1), "1:-1 ");
    EXPECT_EQ(m_pretence.m_asked, (std::vector<int>{0, 1}));
}

TEST_F(AutoSizeColumns, ToTheHeadingWhereNoRowIsWider)
{
    m_pretence.m_rows = {"short", "HEADING", ""};
    EXPECT_EQ(Size(1, 1), "1:-2 ");
    EXPECT_EQ(m_pretence.m_asked, (std::vector<int>{0, 1, 2}));
}

TEST_F(AutoSizeColumns, ToTheHeadingWithoutRows)
{
    EXPECT_EQ(Size(0, 1), "0:-2 1:-2 ");
}

TEST_F(AutoSizeColumns, ToTheContentsWithoutAHeader)
{
    m_pretence.m_hHeader = nullptr;
    EXPECT_EQ(Size(0, 1), "0:-1 1:-1 ");
    m_pretence.m_rows = {"short"};
    EXPECT_EQ(Size(0, 1), "0:-1 1:-1 ");
}

TEST_F(AutoSizeColumns, MinusOneMeansTheLastColumn)
{
    EXPECT_EQ(Size(1, -1), "1:-2 2:-2 ");
    m_pretence.m_hHeader = nullptr;
    EXPECT_EQ(Size(0, -1), "");
}
