// Import by the menu and by the command line, with the review.

#include <algorithm>

#include "exchange/qmexchange.h"
#include "exchange/qmimportreview.h"
#include "register/qmrowlist.h"
#include "tests/e2e/exchange_test.h"

namespace {

// Six transactions on five days. The third and the fifth are cleared.
const char szQif[] =
    "!Type:Bank\n"
    "D01/05/2004\nN1001\nT-12.50\nPRent\nMfor January\nLHouse\n^\n"
    "D01/20/2004\nT100.00\nPDeposit - salary\n^\n"
    "D03/03/2004\nN1002\nT-1,234.56\nPCar\nCX\n^\n"
    "D03/03/2004\nT-3.00\nPFee - monthly\n^\n"
    "D12/31/2004\nT0.25\nPInterest Paid\nCX\n^\n"
    "D02/29/2004\nT-40.00\nPSomebody\n^\n";
constexpr int nQifRows = 6;

constexpr char szCsv[] =
    "Date,Number,Payee,Amount,Memo,Category,Cleared,Voided,Tax,Expense\n"
    "1/5/2004,1001,Rent,-12.50,memo,House,True,False,False,False\n"
    "1/6/2004,,Deposit,5.00,,,False,True,False,False\n";

constexpr char szXml[] =
    "<?xml version=\"1.0\"?>\n<quillmark>\n"
    "<transaction type=\"check\"><number>77</number><date>01/05/2004</date>"
    "<description>Tom &amp; Co</description><amount>12.50</amount>"
    "<tag type=\"tax-deductible\"></tag></transaction>\n"
    "<transaction type=\"interest\"><date>01/06/2004</date><amount>1.00</amount>"
    "<tag type=\"cleared\">01/07/2004</tag></transaction>\n</quillmark>\n";

bool Every(int /*nRow*/)
{
    return true;
}

class ImportTest : public ExchangeTest
{
protected:
    std::string MakeQif() const { return MakeFile("import.qif", szQif); }

    // An account whose five transactions lie before, among and after those of the file.
    std::string MakeTarget(const std::string& sName = "target.qmk") const
    {
        return MakeAccount(sName, 0, [](QMAccount& account) {
            for (const char* szDate :
                 {"1/1/2003", "1/20/2004", "3/3/2004", "6/6/2004", "1/1/2005"}) {
                account.store.Add(std::make_unique<QMTransaction>(
                    MakeTransaction(QM_TRANS_CHECK, szDate, 10, 16, szDate)));
            }
        });
    }

    // Starts the program with an import order and waits for the review.
    ReviewWindow OpenReview(const std::string& sFile, const std::string& sAccount)
    {
        m_program.Start({Order(sFile, sAccount)});
        const ReviewWindow review = AwaitReviewAtStart();
        m_program.AwaitFrame();
        return review;
    }

    // The register must show what it shows for an account with the merged transactions.
    void ExpectShows(const std::string& sMerged) const
    {
        const ExpectedRegister expected(sMerged);
        const WindowList list = ActiveList();
        ASSERT_EQ(list.GetRowCount(), static_cast<int>(expected.rows.size()));
        EXPECT_EQ(list.ReadRows(0, list.GetRowCount()), expected.rows);
        EXPECT_EQ(list.ReadData(0, list.GetRowCount()), expected.decorations);
        EXPECT_EQ(m_program.GetPaneText(2), expected.panes[1]);
        EXPECT_EQ(m_program.GetPaneText(3), expected.panes[2]);
    }

private:
    ReviewWindow AwaitReviewAtStart()
    {
        m_program.AwaitFrame();
        return AwaitReview(m_program);
    }
};

// ---- The review.

TEST_F(ImportTest, ReviewShowsWhatTheFileHolds)
{
    const std::string sFile = MakeQif();
    const ReviewWindow review = OpenReview(sFile, MakeTarget());
    QMTransactionStore store;
    ASSERT_TRUE(QMImportFile(sFile.c_str(), store));
    std::vector<WindowList::Row> rows;
    std::vector<uint32_t> decorations;
    store.ForEach([&](const QMTransaction& transaction) {
        WindowList::Row& row = rows.emplace_back();
        for (int32_t i = 0; i < QM_IMPORT_COUNT; ++i) {
            char szText[QM_FIELD_TEXT_SIZE] = "";
            row.emplace_back(QMImportText(transaction, static_cast<QMImportColumn>(i), szText));
        }
        decorations.push_back(QMImportDecoration(transaction));
    });
    ASSERT_EQ(review.GetList().GetRowCount(), nQifRows);
    EXPECT_EQ(review.GetList().ReadRows(0, nQifRows), rows);
    EXPECT_EQ(review.GetList().ReadData(0, nQifRows), decorations);
    EXPECT_EQ(review.GetList().GetHeadings(), (Texts{"", "Cleared", "Date", "Number", "Description",
                                                     "Debit", "Credit", "Memo", "Category", ""}));
    EXPECT_EQ(review.GetTicked().size(), static_cast<size_t>(nQifRows));
    EXPECT_EQ(review.GetList().GetSelectedRows(), std::vector<int>{0});
    EXPECT_EQ(review.GetList().GetFocusedRow(), 0);
    EXPECT_EQ(review.GetBoxState(IDC_IMPORT_ALL), 1);
    EXPECT_EQ(review.GetBoxState(IDC_IMPORT_CLEARALL), 1);
}

TEST_F(ImportTest, SomeRowsUntickedAndSomeSetCleared)
{
    const std::string sFile = MakeQif();
    const std::string sAccount = MakeTarget();
    const std::string sMerged = Merged(
        sAccount, sFile, [](int nRow) { return nRow != 1 && nRow != 4; },
        [](int nRow) { return nRow == 0 || nRow == 2 || nRow == 3; });
    const ReviewWindow review = OpenReview(sFile, sAccount);
    review.Tick(1, false);
    review.Tick(4, false);
    EXPECT_EQ(review.GetTicked(), (std::vector<int>{0, 2, 3, 5}));
    EXPECT_EQ(review.GetBoxState(IDC_IMPORT_ALL), 2);
    // A click in the second column.
    std::vector<uint32_t> before = review.GetList().ReadData(0, nQifRows);
    for (const int nRow : {0, 2, 3}) {
        review.Click(nRow, 60);
        before[static_cast<size_t>(nRow)] ^= QM_DECOR_CLEARED;
        Await("the cleared mark of row " + std::to_string(nRow),
              [&] { return review.GetList().ReadData(0, nQifRows) == before; });
    }
    EXPECT_EQ(review.GetBoxState(IDC_IMPORT_CLEARALL), 2);
    review.End(IDC_IMPORT_IMPORT);
    AnswerImported(4, sFile);
    m_program.Settle();
    ExpectShows(sMerged);
    EXPECT_TRUE(IsModified());
    Save();
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(Describe(Load(sAccount)), Describe(Load(sMerged)));
}

TEST_F(ImportTest, ClickInTheFirstColumnUnticksARow)
{
    const std::string sFile = MakeQif();
    const ReviewWindow review = OpenReview(sFile, MakeTarget());
    review.Click(2, 8);
    Await("row 2 without its tick", [&] { return !review.IsTicked(2); });
    m_program.Settle();
    EXPECT_EQ(review.GetBoxState(IDC_IMPORT_ALL), 2);
    EXPECT_EQ(review.GetBoxState(IDC_IMPORT_CLEARALL), 1);
    review.Click(2, 8);
    Await("row 2 with its tick", [&] { return review.IsTicked(2); });
    review.End(IDC_IMPORT_IMPORT);
    AnswerImported(nQifRows, sFile);
}

TEST_F(ImportTest, BoxesGoThroughTheirStatesAndTakeEveryRow)
{
    const std::string sFile = MakeQif();
    const std::string sAccount = MakeTarget();
    const ReviewWindow review = OpenReview(sFile, sAccount);
    review.PressBox(IDC_IMPORT_ALL, 0);
    EXPECT_TRUE(review.GetTicked().empty());
    review.Tick(3, true);
    EXPECT_EQ(review.GetBoxState(IDC_IMPORT_ALL), 2);
    review.PressBox(IDC_IMPORT_ALL, 1);
    EXPECT_EQ(review.GetTicked().size(), static_cast<size_t>(nQifRows));
    review.PressBox(IDC_IMPORT_CLEARALL, 0);
    EXPECT_EQ(review.GetList().ReadData(0, nQifRows), std::vector<uint32_t>(nQifRows, 0));
    review.Click(0, 60);
    Await("the third state of the box Clear All",
          [&] { return review.GetBoxState(IDC_IMPORT_CLEARALL) == 2; });
    review.PressBox(IDC_IMPORT_CLEARALL, 1);
    EXPECT_EQ(review.GetList().ReadData(0, nQifRows),
              std::vector<uint32_t>(nQifRows, QM_DECOR_CLEARED));
    review.End(IDC_IMPORT_IMPORT);
    AnswerImported(nQifRows, sFile);
    Save();
    EXPECT_EQ(m_program.Close(), 0U);
    int nCleared = 0;
    for (const QMTransaction& transaction : Load(sAccount)) {
        nCleared += transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED) ? 0 : 1;
        EXPECT_FALSE(transaction.HasFlag(QM_TRANS_FLAG_IMPORT));
    }
    EXPECT_EQ(nCleared, nQifRows);
}

TEST_F(ImportTest, CancelChangesAndSaysNothing)
{
    const std::string sAccount = MakeTarget();
    const std::string sBytes = ReadWholeFile(sAccount);
    const ReviewWindow review = OpenReview(MakeQif(), sAccount);
    review.PressBox(IDC_IMPORT_CLEARALL, 0);
    review.End(IDCANCEL);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(ActiveList().GetRowCount(), 5);
    EXPECT_FALSE(IsModified());
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(ReadWholeFile(sAccount), sBytes);
}

TEST_F(ImportTest, ReviewClosedByItsCornerIsACancel)
{
    const ReviewWindow review = OpenReview(MakeQif(), MakeTarget());
    review.Close();
    review.AwaitEnd();
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(ActiveList().GetRowCount(), 5);
    EXPECT_FALSE(IsModified());
}

TEST_F(ImportTest, NoneTickedReportsNone)
{
    const std::string sFile = MakeQif();
    const ReviewWindow review = OpenReview(sFile, MakeTarget());
    review.PressBox(IDC_IMPORT_ALL, 0);
    review.End(IDC_IMPORT_IMPORT);
    AnswerImported(0, sFile);
    m_program.Settle();
    EXPECT_EQ(ActiveList().GetRowCount(), 5);
    // The import took place, so the account counts as changed.
    EXPECT_TRUE(IsModified());
}

TEST_F(ImportTest, FileWithoutRecordsReportsNone)
{
    const std::string sFile = MakeFile("header.qif", "!Type:Bank\n");
    const ReviewWindow review = OpenReview(sFile, MakeTarget());
    EXPECT_EQ(review.GetList().GetRowCount(), 0);
    review.End(IDC_IMPORT_IMPORT);
    AnswerImported(0, sFile);
    m_program.Settle();
    EXPECT_EQ(ActiveList().GetRowCount(), 5);
}

TEST_F(ImportTest, VoidedTransactionShowsItsSuffix)
{
    const ReviewWindow review = OpenReview(MakeFile("voided.csv", szCsv), MakeTarget());
    constexpr int nDescription = 4;
    EXPECT_NE(review.GetList().ReadCell(1, nDescription).find("(voided)"), std::string::npos);
    review.End(IDCANCEL);
}

// ---- Ways to start an import.

TEST_F(ImportTest, EachFormatComesInByTheMenu)
{
    const std::string sAccount = MakeTarget();
    m_program.Open({sAccount});
    for (const std::string& sFile : {MakeQif(), MakeFile("import.csv", szCsv),
                                     MakeFile("import.xml", szXml), MakeFile("BIG.QIF", szQif)}) {
        m_program.Post(IDM_FILE_SAVE);
        m_program.Settle();
        const int nBefore = ActiveList().GetRowCount();
        ImportByMenu(sFile);
        const ReviewWindow review = AwaitReview(m_program);
        const int nRows = review.GetList().GetRowCount();
        EXPECT_GT(nRows, 0);
        review.End(IDC_IMPORT_IMPORT);
        AnswerImported(nRows, sFile);
        m_program.Settle();
        EXPECT_EQ(ActiveList().GetRowCount(), nBefore + nRows) << sFile;
        EXPECT_TRUE(IsModified());
    }
    EXPECT_EQ(ReadSettingText("Settings", "Directory - Current") + "\\import.qif",
              PathOf("import.qif"));
}

TEST_F(ImportTest, ImportIsTheModelsView)
{
    const std::string sFile = MakeQif();
    const std::string sAccount = CopySample();
    const std::string sMerged = Merged(sAccount, sFile, Every);
    m_program.Open({sAccount});
    ImportAll(sFile, nQifRows);
    ExpectShows(sMerged);
    Save();
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(Describe(Load(sAccount)), Describe(Load(sMerged)));
}

TEST_F(ImportTest, CancelledFileDialogSaysNothing)
{
    m_program.Open({MakeTarget()});
    m_program.Post(IDM_FILE_IMPORT);
    AwaitFileDialog(m_program, "Open").End(IDCANCEL);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_FALSE(IsModified());
}

TEST_F(ImportTest, FileDialogOffersTheFourFormats)
{
    m_program.Open({MakeTarget()});
    m_program.Post(IDM_FILE_IMPORT);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Open");
    EXPECT_EQ(dialog.GetTypes(),
              (Texts{"Quicken Interchange Format (*.qif)", "Extensible Markup Language (*.xml)",
                     "Comma Separated Value (*.csv)", "Text File (*.txt)"}));
    EXPECT_EQ(dialog.GetType(), 0);
    dialog.End(IDCANCEL);
}

TEST_F(ImportTest, OrderIsHandedOverToTheRunningInstance)
{
    const std::string sFile = MakeQif();
    const std::string sAccount = MakeTarget();
    const std::string sMerged = Merged(sAccount, sFile, Every);
    m_program.Open({MakeAccount("other.qmk", 1)});
    // Twice: the first order opens the account, and the second finds it open.
    for (int i = 1; i <= 2; ++i) {
        Process second;
        second.Start(ProgramFolder() + "quillmark.exe", {Order(sFile, sAccount)});
        AwaitReview(m_program).End(IDC_IMPORT_IMPORT);
        // The second program waits until the first one has no more boxes to show.
        EXPECT_TRUE(second.IsRunning());
        AnswerImported(nQifRows, sFile);
        EXPECT_EQ(second.AwaitExit(), 1U);
        EXPECT_EQ(m_program.GetDocuments().size(), 2U);
        EXPECT_EQ(ActiveList().GetRowCount(), 5 + i * nQifRows);
        if (i == 1) {
            ExpectShows(sMerged);
            Save();
        }
    }
}

TEST_F(ImportTest, OrderGoesIntoItsOwnAccountAmongOthers)
{
    const std::string sFile = MakeQif();
    const Texts accounts = {MakeTarget("first.qmk"), MakeTarget("second.qmk")};
    m_program.Start({accounts[0], accounts[1], Order(sFile, accounts[0]), accounts[1]});
    m_program.AwaitFrame();
    AwaitReview(m_program).End(IDC_IMPORT_IMPORT);
    AnswerImported(nQifRows, sFile);
    m_program.AwaitActive(accounts[1]);
    EXPECT_EQ(ActiveList().GetRowCount(), 5);
    m_program.Post(IDM_WINDOW_NEXT);
    m_program.AwaitActive("first.qmk *");
    EXPECT_EQ(ActiveList().GetRowCount(), 5 + nQifRows);
}

TEST_F(ImportTest, ReadOnlyAccountTakesAnImport)
{
    const std::string sFile = MakeQif();
    const std::string sAccount =
        MakeAccount("protected.qmk", 3, [](QMAccount& account) { account.header.bReadOnly = 1; });
    m_program.Open({sAccount});
    ImportAll(sFile, nQifRows);
    EXPECT_EQ(ActiveList().GetRowCount(), 3 + nQifRows);
    EXPECT_TRUE(IsModified());
    // Saving is refused as before.
    m_program.Post(IDM_FILE_SAVE);
    m_program.AnswerBox("This command cannot be performed in read-only mode.");
}

TEST_F(ImportTest, SameFileTwiceGivesEachRowTwice)
{
    const std::string sFile = MakeQif();
    const std::string sAccount = MakeTarget();
    m_program.Open({sAccount});
    ImportAll(sFile, nQifRows);
    ImportAll(sFile, nQifRows);
    Save();
    EXPECT_EQ(m_program.Close(), 0U);
    const std::string sOnce = MakeAccount("empty.qmk", 0);
    Texts expected = Describe(Load(Merged(sOnce, sFile, Every)));
    Texts found = Describe(Load(sAccount));
    EXPECT_EQ(found.size(), 5U + 2 * nQifRows);
    for (const std::string& sLine : expected) {
        EXPECT_EQ(std::count(found.begin(), found.end(), sLine), 2) << sLine;
    }
}

TEST_F(ImportTest, RowsOutsideThePeriodComeInUnseen)
{
    WriteSettingNumber("Settings", "Flags", 30);
    const std::string sFile = MakeQif();
    const std::string sAccount = MakeAccount("period.qmk", 0, [](QMAccount& account) {
        account.header.lDisplayPeriod = QM_ACCNT_DISPLAY_DATE_RANGE;
        account.header.dtPeriodFrom = QMMakeDate(2004, 3, 1);
        account.header.dtPeriodTo = QMMakeDate(2004, 3, 31);
    });
    m_program.Open({sAccount});
    ImportAll(sFile, nQifRows);
    EXPECT_EQ(ActiveList().GetRowCount(), 2);
    EXPECT_EQ(ActiveList().ReadCell(0, 1), " 3/ 3/04");
    m_program.Post(IDM_VIEW_TRANSACTIONSBAR);
    m_program.Settle();
    EXPECT_EQ(ActiveList().GetRowCount(), nQifRows);
    Save();
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(Load(sAccount).size(), static_cast<size_t>(nQifRows));
}

// ---- Failures.

struct BadFile
{
    const char* szName;
    const char* szFile;
    const char* szBytes; // null for no file
};

constexpr BadFile aBadFiles[] = {
    {"MalformedXml", "bad.xml", "<quillmark><transaction type=\"check\"><date>1/1/2004</date>"},
    {"XmlOfTextAlone", "bad.xml", "no document"},
    {"UnknownEncoding", "bad.xml", "<?xml version=\"1.0\" encoding=\"no-such\"?><quillmark/>"},
    {"EmptyXml", "empty.xml", ""},
    {"EmptyQif", "empty.qif", ""},
    {"EmptyCsv", "empty.csv", ""},
    {"Text", "some.txt", szQif},
    {"TextInCapitals", "SOME.TXT", szQif},
    {"OtherEnding", "some.ofx", szQif},
    {"EndsInADot", "some.", szQif},
    {"Missing", "missing.qif", nullptr},
    {"MissingCsv", "missing.csv", nullptr},
    {"MissingXml", "missing.xml", nullptr},
};

class FailedImportTest : public ImportTest, public testing::WithParamInterface<BadFile>
{};

TEST_P(FailedImportTest, LeavesTheAccountUntouched)
{
    const BadFile& bad = GetParam();
    const std::string sFile =
        bad.szBytes == nullptr ? PathOf(bad.szFile) : MakeFile(bad.szFile, bad.szBytes);
    const std::string sAccount = MakeTarget();
    const std::string sBytes = ReadWholeFile(sAccount);
    m_program.Start({Order(sFile, sAccount)});
    m_program.AnswerBox(Failure(sFile));
    m_program.AwaitFrame();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sAccount});
    EXPECT_EQ(ActiveList().GetRowCount(), 5);
    EXPECT_FALSE(IsModified());
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(ReadWholeFile(sAccount), sBytes);
}

std::string NameOfFile(const testing::TestParamInfo<BadFile>& test)
{
    return test.param.szName;
}

INSTANTIATE_TEST_SUITE_P(All, FailedImportTest, testing::ValuesIn(aBadFiles), NameOfFile);

TEST_F(ImportTest, FileWithoutAnEndingFailsFromTheCommandLine)
{
    const std::string sAccount = MakeTarget();
    for (const std::string& sName : {std::string("noending"), std::string()}) {
        m_program.Start({Order(sName, sAccount)});
        m_program.AnswerBox(Failure(sName));
        m_program.AwaitFrame();
        EXPECT_FALSE(IsModified());
        EXPECT_EQ(ActiveList().GetRowCount(), 5);
        EXPECT_EQ(m_program.Close(), 0U);
    }
}

TEST_F(ImportTest, FileThatAnotherProgramHoldsFails)
{
    const std::string sFile = MakeQif();
    HANDLE hFile = CreateFileA(sFile.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    m_program.Start({Order(sFile, MakeTarget())});
    m_program.AnswerBox(Failure(sFile));
    m_program.AwaitFrame();
    EXPECT_FALSE(IsModified());
    CloseHandle(hFile);
    ImportAll(sFile, nQifRows);
}

TEST_F(ImportTest, FailureByTheMenuSaysTheSame)
{
    m_program.Open({MakeTarget()});
    for (const std::string& sFile : {MakeFile("bad.xml", "<a>"), MakeFile("some.txt", szQif)}) {
        ImportByMenu(sFile);
        m_program.AnswerBox(Failure(sFile));
        m_program.Settle();
        EXPECT_TRUE(m_program.GetBoxes().empty());
        EXPECT_FALSE(IsModified());
    }
}

TEST_F(ImportTest, ImportGoesOnAfterAFailure)
{
    m_program.Open({MakeTarget()});
    ImportByMenu(MakeFile("bad.xml", "<a>"));
    m_program.AnswerBox(Failure(PathOf("bad.xml")));
    ImportAll(MakeQif(), nQifRows);
    EXPECT_EQ(ActiveList().GetRowCount(), 5 + nQifRows);
}

} // namespace
