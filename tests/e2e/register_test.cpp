// The register on the screen: what the user reads in its list.

#include "tests/e2e/e2e_test.h"
#include "tests/e2e/expectedregister.h"

namespace {

class RegisterTest : public E2ETest
{};

TEST_F(RegisterTest, SampleShowsEveryTransaction)
{
    const std::string sPath = CopySample();
    const ExpectedRegister expected(sPath);
    m_program.Open({sPath});
    const WindowList list = ActiveList();
    EXPECT_EQ(list.GetRowCount(), 447);
    ASSERT_EQ(list.GetRowCount(), static_cast<int>(expected.rows.size()));
    EXPECT_EQ(list.ReadRows(0, 447), expected.rows);
    EXPECT_EQ(list.ReadCell(446, 3), expected.rows[446][3]);
}

TEST_F(RegisterTest, SampleHasTheDecorationsOfEveryRow)
{
    const std::string sPath = CopySample();
    const ExpectedRegister expected(sPath);
    m_program.Open({sPath});
    const WindowList list = ActiveList();
    ASSERT_EQ(list.GetRowCount(), static_cast<int>(expected.decorations.size()));
    EXPECT_EQ(list.ReadData(0, list.GetRowCount()), expected.decorations);
}

TEST_F(RegisterTest, HeadingsStandInOrder)
{
    m_program.Open({MakeAccount("plain.qmk", 1)});
    EXPECT_EQ(ActiveList().GetHeadings(), (Texts{"", "Date", "Number", "Description", "Debit",
                                                 "Credit", "Balance", "", "Memo", ""}));
}

TEST_F(RegisterTest, CategoryStandsBehindMemoWhenShown)
{
    const std::string sPath =
        MakeAccount("all.qmk", 2, [](QMAccount& account) { account.header.bShowCategory = 1; });
    const ExpectedRegister expected(sPath);
    m_program.Open({sPath});
    const Texts headings = ActiveList().GetHeadings();
    EXPECT_EQ(headings, expected.headings);
    ASSERT_EQ(headings.size(), 11U);
    EXPECT_EQ(headings[8], "Memo");
    EXPECT_EQ(headings[9], "Category");
    EXPECT_EQ(ActiveList().ReadRows(0, 2), expected.rows);
}

TEST_F(RegisterTest, HiddenColumnsAreNotThere)
{
    const std::string sPath = MakeAccount("few.qmk", 3, [](QMAccount& account) {
        account.header.bShowCleared = 0;
        account.header.bShowBalance = 0;
        account.header.bShowTag = 0;
        account.header.bShowMemo = 0;
    });
    const ExpectedRegister expected(sPath);
    m_program.Open({sPath});
    const WindowList list = ActiveList();
    EXPECT_EQ(list.GetHeadings(), (Texts{"Date", "Number", "Description", "Debit", "Credit", ""}));
    EXPECT_EQ(list.ReadRows(0, 3), expected.rows);
    // Without the Balance column no row has the flag for a negative balance.
    EXPECT_EQ(list.ReadData(0, 3), (std::vector<uint32_t>{0, 0, 0}));
}

TEST_F(RegisterTest, MarkColumnsHavePicturesForHeadings)
{
    m_program.Open({MakeAccount("plain.qmk", 1)});
    const std::vector<int> formats = ActiveList().GetHeadingFormats();
    ASSERT_EQ(formats.size(), 10U);
    for (size_t u = 0; u < formats.size(); ++u) {
        const bool bPicture = (formats[u] & HDF_BITMAP) != 0;
        EXPECT_EQ(bPicture, u == 0 || u == 7) << "column " << u;
    }
}

TEST_F(RegisterTest, HeadingsAreAlignedAsTheirColumns)
{
    m_program.Open({CopySample()});
    const std::vector<int> formats = ActiveList().GetHeadingFormats();
    const std::vector<int> expected = {HDF_CENTER, HDF_RIGHT, HDF_RIGHT,  HDF_LEFT, HDF_RIGHT,
                                       HDF_RIGHT,  HDF_RIGHT, HDF_CENTER, HDF_LEFT};
    ASSERT_GT(formats.size(), expected.size());
    // Windows aligns the first column of a list to the left, whatever the program asks for.
    for (size_t u = 1; u < expected.size(); ++u) {
        EXPECT_EQ(formats[u] & HDF_JUSTIFYMASK, expected[u]) << "column " << u;
    }
}

TEST_F(RegisterTest, WidthsComeFromTheAccount)
{
    const std::string sPath = MakeAccount("widths.qmk", 1, [](QMAccount& account) {
        account.header.lWidthDate = 91;
        account.header.lWidthMemo = 33;
    });
    const ExpectedRegister expected(sPath);
    m_program.Open({sPath});
    std::vector<int> widths;
    for (int nColumn = 0; nColumn < 9; ++nColumn) {
        widths.push_back(ActiveList().GetColumnWidth(nColumn));
    }
    EXPECT_EQ(widths, expected.widths);
    EXPECT_EQ(widths[1], 91);
    EXPECT_EQ(widths[8], 33);
}

int SumOfWidths(const WindowList& list)
{
    int nSum = 0;
    for (int nColumn = 0; nColumn < list.GetColumnCount(); ++nColumn) {
        nSum += list.GetColumnWidth(nColumn);
    }
    return nSum;
}

int ClientWidth(HWND hWnd)
{
    RECT rect = {};
    GetClientRect(hWnd, &rect);
    return rect.right;
}

TEST_F(RegisterTest, LastColumnTakesTheWidthThatIsLeft)
{
    m_program.Open();
    SetWindowPos(m_program.GetFrame(), nullptr, 0, 0, 1150, 600, SWP_NOZORDER);
    m_program.NewDocument(1);
    const WindowList list = ActiveList();
    EXPECT_EQ(SumOfWidths(list), ClientWidth(list.GetHandle()));
    list.SetColumnWidth(8, 100);
    EXPECT_EQ(list.GetColumnWidth(8), 100);
    EXPECT_EQ(SumOfWidths(list), ClientWidth(list.GetHandle()));
    SetWindowPos(m_program.GetFrame(), nullptr, 0, 0, 1000, 600, SWP_NOZORDER);
    Await("the list to shrink with the frame",
          [&] { return ClientWidth(list.GetHandle()) < 1000; });
    EXPECT_EQ(SumOfWidths(list), ClientWidth(list.GetHandle()));
    EXPECT_EQ(list.GetColumnCount(), 10);
}

TEST_F(RegisterTest, LastRowIsSelectedFocusedAndInView)
{
    m_program.Open({CopySample()});
    const WindowList list = ActiveList();
    EXPECT_EQ(list.GetSelectedRows(), std::vector<int>{446});
    EXPECT_EQ(list.GetFocusedRow(), 446);
    EXPECT_TRUE(list.IsRowVisible(446));
    EXPECT_FALSE(list.IsRowVisible(0));
}

TEST_F(RegisterTest, StatusPanesTellSelectionSumsAndDay)
{
    const std::string sPath = CopySample();
    const ExpectedRegister expected(sPath);
    m_program.Open({sPath});
    for (int nPane = 1; nPane <= 4; ++nPane) {
        EXPECT_EQ(m_program.GetPaneText(nPane), expected.panes[static_cast<size_t>(nPane - 1)]);
    }
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 447 of 447");
    EXPECT_FALSE(m_program.IsStatusSimple());
}

TEST_F(RegisterTest, FirstPaneFollowsTheSelection)
{
    m_program.Open({CopySample()});
    const WindowList list = ActiveList();
    const auto AwaitPane = [&](const std::string& sText) {
        Await("first pane '" + sText + "'", [&] { return m_program.GetPaneText(1) == sText; });
    };
    list.SelectRow(4);
    AwaitPane(" Transaction: 5 of 447");
    list.SelectRow(0);
    AwaitPane(" Transaction: 1 of 447");
}

TEST_F(RegisterTest, NewAccountIsEmptyAndSaysSo)
{
    m_program.Open();
    m_program.NewDocument(1);
    EXPECT_EQ(ActiveList().GetRowCount(), 0);
    EXPECT_EQ(ActiveList().GetColumnCount(), 10);
    EXPECT_EQ(m_program.GetPaneText(1), " No Transaction Selected");
    EXPECT_EQ(m_program.GetPaneText(2), " Balance: $0.00");
    EXPECT_EQ(m_program.GetPaneText(3), " Available: $0.00");
}

TEST_F(RegisterTest, PanesAreEmptyWithoutADocument)
{
    m_program.Open();
    m_program.NewDocument(1);
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("");
    for (int nPane = 1; nPane <= 4; ++nPane) {
        EXPECT_EQ(m_program.GetPaneText(nPane), "") << "pane " << nPane;
    }
}

TEST_F(RegisterTest, WidthsDoNotMarkTheDocument)
{
    const std::string sPath = CopySample();
    m_program.Open({sPath});
    const WindowList list = ActiveList();
    const std::string sTitle = m_program.GetActiveTitle();
    list.SetColumnWidth(3, 123);
    list.SetHeadingWidth(4, 77);
    EXPECT_EQ(list.GetColumnWidth(3), 123);
    EXPECT_EQ(list.GetColumnWidth(4), 77);
    EXPECT_EQ(m_program.GetActiveTitle(), sTitle);
    // The document closes without a question.
    EXPECT_EQ(m_program.Close(), 0U);
}

TEST_F(RegisterTest, PeriodOfTheAccountShowsAllWhileItsBarIsHidden)
{
    const std::string sPath = MakeAccount("period.qmk", 50, [](QMAccount& account) {
        account.header.lDisplayPeriod = QM_ACCNT_DISPLAY_DATE_RANGE;
        account.header.dtPeriodFrom = account.header.dtPeriodTo = QMMakeDate(1950, 1, 1);
    });
    m_program.Open({sPath});
    EXPECT_EQ(ActiveList().GetRowCount(), 50);
}

TEST_F(RegisterTest, LongestTextsAreReadWhole)
{
    const std::string sPath = MakeAccount("long.qmk", 0, [](QMAccount& account) {
        auto p = std::make_unique<QMTransaction>(MakeTransaction(
            QM_TRANS_DEPOSIT, "12/31/2004", 1e9F, QM_TRANS_FLAG_TAX, std::string(255, 'D')));
        memset(p->szMemo, 'M', sizeof p->szMemo - 1);
        account.store.Add(std::move(p));
    });
    const ExpectedRegister expected(sPath);
    m_program.Open({sPath});
    EXPECT_EQ(ActiveList().ReadRows(0, 1), expected.rows);
    EXPECT_EQ(ActiveList().ReadCell(0, 8), std::string(255, 'M'));
}

} // namespace
