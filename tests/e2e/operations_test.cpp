// The commands of a register: what they change, what they ask, and what they refuse.

#include "tests/e2e/work_test.h"

namespace {

constexpr char szRemove[] = "Are you sure you want to remove this transaction?";

class OperationsTest : public WorkTest
{
protected:
    // Transactions on different days, none cleared. Their amounts can be told apart in every sum.
    std::string MakeDays(
        int nDays, const std::function<void(QMAccount&)>& fill = [](QMAccount&) {}) const
    {
        return MakeAccount("days.qmk", 0, [&](QMAccount& account) {
            for (int i = 0; i < nDays; ++i) {
                const int32_t lType = i % 2 == 0 ? QM_TRANS_DEPOSIT : QM_TRANS_CHECK;
                QMTransaction day = MakeTransaction(
                    lType, "1/" + std::to_string(i + 1) + "/2004", static_cast<float>(1 << i),
                    QM_TRANS_FLAG_NOT_CLEARED, "day " + std::to_string(i + 1));
                day.lNumber = 1000 + static_cast<uint32_t>(i);
                AddTo(account.store, day);
            }
            fill(account);
        });
    }

    // Saves, and returns the flags of all transactions in the file.
    std::vector<uint32_t> FlagsAfterSave(const std::string& sPath) const
    {
        Do(IDM_FILE_SAVE);
        CloseAnswering("", 0);
        std::vector<uint32_t> flags;
        QMAccount account(sPath.c_str());
        EXPECT_TRUE(account.Read());
        account.store.ForEach([&](const QMTransaction& t) { flags.push_back(t.lFlags); });
        account.Close();
        return flags;
    }

    void RemoveRow(int nRow) const
    {
        Select({nRow});
        DoAnswering(IDM_TRANSACTION_REMOVE, szRemove, {IDYES, IDNO}, IDYES);
    }
};

// ---- Adding.

TEST_F(OperationsTest, NumberInUseAnsweredNoKeepsTheDialogWithItsEntries)
{
    OpenAccount(MakeDays(2));
    const DialogWindow dialog = BeginAdding();
    EXPECT_EQ(dialog.GetText(IDC_TX_NUMBER), "1002");
    const Entry entry = {.sDate = "2004-01-09",
                         .sAmount = "7.50",
                         .sNumber = "1001",
                         .sDescription = "again",
                         .sMemo = "memo",
                         .sCategory = "category",
                         .uTag = QM_TRANS_FLAG_TAX,
                         .sCleared = "2004-01-10"};
    entry.Fill(dialog);
    for (const int nButton : {IDC_TX_ADD, IDOK}) {
        dialog.Press(nButton);
        m_program.AnswerQuestion("Check number already in use.\nWould you like to continue?",
                                 {IDYES, IDNO}, IDNO);
        m_program.Settle();
        ASSERT_TRUE(dialog.IsOpen());
        EXPECT_EQ(dialog.GetText(IDC_TX_NUMBER), "1001");
        EXPECT_EQ(dialog.GetText(IDC_TX_DESCRIPTION), "again");
        EXPECT_EQ(dialog.GetText(IDC_TX_AMOUNT), "7.50");
        EXPECT_EQ(dialog.GetText(IDC_TX_MEMO), "memo");
        EXPECT_EQ(dialog.GetText(IDC_TX_CATEGORY), "category");
        EXPECT_TRUE(dialog.IsChecked(IDC_TX_TAX));
        EXPECT_EQ(dialog.GetDate(IDC_TX_DATECLEARED), "2004-01-10");
    }
    dialog.End(IDCANCEL);
    EXPECT_EQ(ActiveList().GetRowCount(), 2);
    EXPECT_FALSE(IsMarked());
}

TEST_F(OperationsTest, NumberOfAnotherTypeIsNeverInUse)
{
    OpenAccount(MakeDays(1));
    Add({.sDate = "2004-01-09", .sAmount = "1", .sNumber = "1000", .sDescription = "first check"});
    EXPECT_EQ(ActiveList().GetRowCount(), 2);
}

TEST_F(OperationsTest, AddedTransactionStandsAtItsDayAndIsSelected)
{
    OpenAccount(MakeDays(3));
    Add({.lType = QM_TRANS_DEPOSIT, .sDate = "2004-01-01", .sAmount = "10"});
    AwaitTitle("days.qmk *");
    EXPECT_EQ(Column("Balance"), (Texts{"1.00", "11.00", "9.00", "13.00"}));
    EXPECT_EQ(ActiveList().GetSelectedRows(), std::vector<int>{1});
    AwaitPane(1, " Transaction: 2 of 4");
    AwaitPane(3, " Available: $13.00");
}

// ---- Editing.

TEST_F(OperationsTest, CancelledEditChangesNothing)
{
    OpenAccount(MakeDays(3));
    Select({0, 1});
    const DialogWindow dialog = BeginEditing();
    dialog.SetText(IDC_TX_AMOUNT, "55");
    dialog.Press(IDC_TX_NEXT);
    Await("the second transaction", [&] { return dialog.GetText(IDC_TX_AMOUNT) == "2.00"; });
    dialog.End(IDCANCEL);
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(Column("Balance"), (Texts{"1.00", "-1.00", "3.00"}));
}

TEST_F(OperationsTest, EditThatMovesADateOutOfThePeriodDropsItsRow)
{
    OpenAccount(MakeDays(4, [](QMAccount& account) {
        account.header.lDisplayPeriod = QM_ACCNT_DISPLAY_DATE_RANGE;
        account.header.dtPeriodFrom = QMMakeDate(2004, 1, 2);
        account.header.dtPeriodTo = QMMakeDate(2004, 1, 4);
    }));
    Do(IDM_VIEW_TRANSACTIONSBAR);
    ASSERT_EQ(ActiveList().GetRowCount(), 3);
    Select({1});
    const DialogWindow dialog = BeginEditing();
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATE), "2004-01-03");
    dialog.SetDate(IDC_TX_DATE, "2004-02-03");
    dialog.End(IDOK);
    AwaitRowCount(2);
    EXPECT_EQ(Column("Date"), (Texts{"1/ 2/04", "1/ 4/04"}));
    // The transaction is still in the account.
    AwaitPane(3, " Available: $-5.00");
}

// ---- Removing.

TEST_F(OperationsTest, RemovingTheSecondRowRefreshesAndTheFirstDoesNot)
{
    OpenAccount(MakeDays(5));
    EXPECT_EQ(Column("Balance"), (Texts{"1.00", "-1.00", "3.00", "-5.00", "11.00"}));
    RemoveRow(1);
    EXPECT_EQ(Column("Balance"), (Texts{"1.00", "5.00", "-3.00", "13.00"}));
    AwaitPane(3, " Available: $13.00");
    RemoveRow(0);
    EXPECT_EQ(Column("Balance"), (Texts{"5.00", "-3.00", "13.00"}));
    AwaitPane(3, " Available: $13.00");
    // The next refresh corrects the balances.
    Do(IDM_VIEW_SHADEDLINES);
    EXPECT_EQ(Column("Balance"), (Texts{"4.00", "-4.00", "12.00"}));
}

TEST_F(OperationsTest, RemovingTheOnlyOneLeavesTheSums)
{
    OpenAccount(MakeDays(1));
    RemoveRow(0);
    EXPECT_EQ(ActiveList().GetRowCount(), 0);
    AwaitPane(1, " No Transaction Selected");
    AwaitPane(3, " Available: $1.00");
    AwaitTitle("days.qmk *");
}

TEST_F(OperationsTest, RemovingWithoutConfirmationAsksNothing)
{
    m_program.Open();
    m_program.Close();
    const DWORD uOptions = ReadSettingNumber("Settings", "Options - General");
    EXPECT_NE(uOptions & 2, 0U);
    WriteSettingNumber("Settings", "Options - General", uOptions & ~2U);
    OpenAccount(MakeDays(3));
    Select({0, 2});
    Do(IDM_TRANSACTION_REMOVE);
    EXPECT_EQ(Column("Date"), Texts{"1/ 2/04"});
}

TEST_F(OperationsTest, NoToTheQuestionRemovesNothing)
{
    OpenAccount(MakeDays(3));
    Select({0, 2});
    DoAnswering(IDM_TRANSACTION_REMOVE, "Are you sure you want to remove these transactions?",
                {IDYES, IDNO}, IDNO);
    EXPECT_EQ(ActiveList().GetRowCount(), 3);
    EXPECT_FALSE(IsMarked());
}

// ---- Tags.

TEST_F(OperationsTest, ClearingNamesTheZeroAmountsAndGoesOn)
{
    const std::string sPath = MakeDays(4, [](QMAccount& account) {
        account.store.MoveTo(1);
        account.store.GetCurrentNode()->fAmount = 0;
    });
    OpenAccount(sPath);
    Select({0, 1, 2});
    DoAnswering(IDM_TRANSACTION_CLEARED,
                "Transaction 2:\n\nUnable to set cleared status.\nThis transaction has an amount "
                "of $0.00.");
    EXPECT_EQ(FlagsAfterSave(sPath), (std::vector<uint32_t>{0, 16, 0, 16}));
}

TEST_F(OperationsTest, AmountThatRoundsToZeroCannotBeClearedButSetBack)
{
    const std::string sPath = MakeDays(3, [](QMAccount& account) {
        account.store.First();
        account.store.GetCurrentNode()->fAmount = 0.001F;
        account.store.Next();
        account.store.GetCurrentNode()->fAmount = 0;
        account.store.GetCurrentNode()->lFlags = 0;
    });
    OpenAccount(sPath);
    Select({0});
    DoAnswering(IDM_TRANSACTION_CLEARED,
                "Transaction 1:\n\nUnable to set cleared status.\nThis transaction has an amount "
                "of $0.00.");
    Select({1});
    Do(IDM_TRANSACTION_CLEARED);
    EXPECT_EQ(FlagsAfterSave(sPath), (std::vector<uint32_t>{16, 16, 16}));
}

TEST_F(OperationsTest, VoidingSetsNotClearedAndUnvoidingLeavesIt)
{
    const std::string sPath = MakeDays(2, [](QMAccount& account) {
        account.store.First();
        account.store.GetCurrentNode()->lFlags = 0;
    });
    OpenAccount(sPath);
    Select({0});
    EXPECT_EQ(ActiveList().ReadData(0, 1)[0] & uRowCleared, uRowCleared);
    Do(IDM_TRANSACTION_VOIDED);
    EXPECT_EQ(ActiveList().ReadData(0, 1)[0] & (uRowCleared | uRowVoided), uRowVoided);
    // This refresh does not touch the text of the description.
    AwaitPane(3, " Available: $-2.00");
    Do(IDM_TRANSACTION_VOIDED);
    EXPECT_EQ(ActiveList().ReadData(0, 1)[0] & (uRowCleared | uRowVoided), 0U);
    EXPECT_EQ(FlagsAfterSave(sPath), (std::vector<uint32_t>{16, 16}));
}

TEST_F(OperationsTest, TaxTakesThePlaceOfExpenseAndThenLeavesNeither)
{
    OpenAccount(MakeDays(2));
    Select({1});
    const auto Marks = [&] { return ActiveList().ReadData(1, 1)[0] & (uRowTax | uRowExpense); };
    Do(IDM_TRANSACTION_EXPENSE);
    EXPECT_EQ(Marks(), uRowExpense);
    Do(IDM_TRANSACTION_TAX);
    EXPECT_EQ(Marks(), uRowTax);
    Do(IDM_TRANSACTION_TAX);
    EXPECT_EQ(Marks(), 0U);
}

TEST_F(OperationsTest, TagsAreOfferedByTheTypesOfTheSelection)
{
    OpenAccount(MakeDays(4));
    Select({1, 3});
    m_program.AwaitMenuItem(IDM_TRANSACTION_TAX, MenuItem::Enabled);
    EXPECT_EQ(m_program.GetMenuItem(IDM_TRANSACTION_EXPENSE), MenuItem::Enabled);
    Select({0});
    m_program.AwaitMenuItem(IDM_TRANSACTION_TAX, MenuItem::Grayed);
    EXPECT_EQ(m_program.GetMenuItem(IDM_TRANSACTION_EXPENSE), MenuItem::Grayed);
    EXPECT_EQ(m_program.GetMenuItem(IDM_TRANSACTION_VOIDED), MenuItem::Enabled);
    EXPECT_EQ(m_program.GetMenuItem(IDM_TRANSACTION_CLEARED), MenuItem::Enabled);
}

// ---- The look.

TEST_F(OperationsTest, WidthsAreLostUnlessAnotherChangeIsSaved)
{
    const std::string sPath = MakeDays(2);
    OpenAccount(sPath);
    ActiveList().SetHeadingWidth(3, 321);
    CloseAnswering("", 0);
    HandOverFile(sPath);
    EXPECT_EQ(ActiveList().GetColumnWidth(3), 250);
    ActiveList().SetHeadingWidth(3, 321);
    Do(IDM_TRANSACTION_CLEARED);
    Do(IDM_FILE_SAVE);
    CloseAnswering("", 0);
    HandOverFile(sPath);
    EXPECT_EQ(ActiveList().GetColumnWidth(3), 321);
}

TEST_F(OperationsTest, ToggledColumnComesAndGoesWithItsTexts)
{
    OpenAccount(MakeDays(3));
    Select({1});
    Do(IDM_VIEW_CATEGORY);
    EXPECT_EQ(ActiveList().GetHeadings()[9], "Category");
    m_program.AwaitMenuItem(IDM_VIEW_CATEGORY, MenuItem::Checked);
    Do(IDM_VIEW_BALANCE);
    EXPECT_EQ(ActiveList().GetHeadings()[6], "");
    EXPECT_EQ(ActiveList().ReadData(0, 3), (std::vector<uint32_t>{0, 0, 0}));
    EXPECT_EQ(ActiveList().GetSelectedRows(), std::vector<int>{1});
    EXPECT_EQ(Column("Debit"), (Texts{"", "2.00", ""}));
    AwaitTitle("days.qmk *");
}

TEST_F(OperationsTest, LinesOfTheHeaderShowInTheMenuAndFollowIt)
{
    OpenAccount(MakeDays(2, [](QMAccount& account) {
        account.header.bGridLines = 0;
        account.header.bShadedLines = 0;
    }));
    EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_GRIDLINES), MenuItem::Enabled);
    EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_SHADEDLINES), MenuItem::Enabled);
    Do(IDM_VIEW_GRIDLINES);
    m_program.AwaitMenuItem(IDM_VIEW_GRIDLINES, MenuItem::Checked);
    EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_SHADEDLINES), MenuItem::Enabled);
    Do(IDM_VIEW_SHADEDLINES);
    m_program.AwaitMenuItem(IDM_VIEW_SHADEDLINES, MenuItem::Checked);
    AwaitTitle("days.qmk *");
}

TEST_F(OperationsTest, TaxWinsOverExpenseInAFileThatHoldsBoth)
{
    OpenAccount(MakeDays(1, [](QMAccount& account) {
        account.store.First();
        account.store.GetCurrentNode()->lFlags |= QM_TRANS_FLAG_TAX | QM_TRANS_FLAG_EXPENSE;
    }));
    EXPECT_EQ(ActiveList().ReadData(0, 1)[0] & (uRowTax | uRowExpense), uRowTax);
}

TEST_F(OperationsTest, AutoSizeDoesNotMarkTheDocument)
{
    OpenAccount(MakeDays(3));
    const int nWidth = ActiveList().GetColumnWidth(3);
    Do(IDM_TOOLS_AUTOSIZE);
    EXPECT_LT(ActiveList().GetColumnWidth(3), nWidth);
    EXPECT_FALSE(IsMarked());
}

// ---- When a command is refused.

struct Gate
{
    UINT uFirst;
    UINT uLast;
    const char* szNoDocument;
    const char* szNoSelection; // null where none is needed
    bool bReadOnlyStops;
};

constexpr Gate aGates[] = {
    {IDM_TRANSACTION_ADD, IDM_TRANSACTION_ADD,
     "Cannot add transaction...\nNo document window is selected.", nullptr, true},
    {IDM_TRANSACTION_EDIT, IDM_TRANSACTION_EDIT,
     "Cannot edit transaction...\nNo document window is selected.",
     "Cannot edit transaction.\nNo transaction is selected.", true},
    {IDM_TRANSACTION_REMOVE, IDM_TRANSACTION_REMOVE,
     "Cannot remove transaction...\nNo document window is selected.",
     "Cannot remove transaction.\nNo transaction is selected.", true},
    {IDM_TRANSACTION_TAX, IDM_TRANSACTION_CLEARED,
     "Cannot toggle tag...\nNo document window is selected.",
     "Cannot toggle tag.\nNo transaction is selected.", true},
    {IDM_VIEW_GRIDLINES, IDM_VIEW_GRIDLINES,
     "Cannot change grid lines...\nNo document window is selected.", nullptr, true},
    {IDM_VIEW_SHADEDLINES, IDM_VIEW_SHADEDLINES,
     "Cannot change shade lines...\nNo document window is selected.", nullptr, true},
    {IDM_VIEW_DATE, IDM_VIEW_CLEARED, "Cannot change columns...\nNo document window is selected.",
     nullptr, true},
    {IDM_TOOLS_AUTOSIZE, IDM_TOOLS_AUTOSIZE,
     "Cannot autosize columns...\nNo document window is selected.", nullptr, false},
    {IDM_FILE_SAVE, IDM_FILE_SAVE, "Cannot save file...\nNo document window is selected.", nullptr,
     true},
    {IDM_FILE_SAVEAS, IDM_FILE_SAVEAS, "Cannot save file...\nNo document window is selected.",
     nullptr, true},
    {IDM_FILE_IMPORT, IDM_FILE_IMPORT, "Cannot import file...\nNo document window is selected.",
     nullptr, false},
    {IDM_FILE_EXPORT, IDM_FILE_EXPORT, "Cannot export file...\nNo document window is selected.",
     nullptr, false},
    {IDM_FILE_PASSWORD, IDM_FILE_PASSWORD,
     "Cannot set password...\nNo document window is selected.", nullptr, false},
    {IDM_FILE_ACCOUNTINFO, IDM_FILE_ACCOUNTINFO,
     "Cannot set account information...\nNo document window is selected.", nullptr, false},
    {IDM_TOOLS_BANKWEBPAGE, IDM_TOOLS_BANKWEBPAGE,
     "Cannot launch browser...\nNo document window is selected.", nullptr, false},
};

TEST_F(OperationsTest, WithoutADocumentEachCommandSaysSo)
{
    m_program.Open();
    for (const Gate& gate : aGates) {
        for (UINT uId = gate.uFirst; uId <= gate.uLast; ++uId) {
            DoAnswering(uId, gate.szNoDocument);
        }
    }
}

TEST_F(OperationsTest, WithoutASelectionEachCommandSaysSo)
{
    OpenAccount(MakeDays(3));
    Select({});
    for (const Gate& gate : aGates) {
        for (UINT uId = gate.uFirst; uId <= gate.uLast && gate.szNoSelection != nullptr; ++uId) {
            DoAnswering(uId, gate.szNoSelection);
        }
    }
    EXPECT_FALSE(IsMarked());
}

TEST_F(OperationsTest, ReadOnlyAccountRefusesEachChange)
{
    const std::string sPath = MakeDays(3, [](QMAccount& account) { account.header.bReadOnly = 1; });
    const std::string sBytes = ReadWholeFile(sPath);
    OpenAccount(sPath);
    for (const Gate& gate : aGates) {
        for (UINT uId = gate.uFirst; uId <= gate.uLast && gate.bReadOnlyStops; ++uId) {
            DoAnswering(uId, sReadOnlySentence);
        }
    }
    EXPECT_EQ(m_program.GetActiveTitle(), sPath);
    Do(IDM_TOOLS_AUTOSIZE);
    CloseAnswering("", 0);
    EXPECT_EQ(ReadWholeFile(sPath), sBytes);
}

TEST_F(OperationsTest, ReadOnlyComesBeforeTheMissingSelection)
{
    OpenAccount(MakeDays(2, [](QMAccount& account) { account.header.bReadOnly = 1; }));
    Select({});
    DoAnswering(IDM_TRANSACTION_EDIT, sReadOnlySentence);
}

TEST_F(OperationsTest, SelectionCommandsAreGrayedWithoutOne)
{
    OpenNew();
    for (const UINT uId : {IDM_TRANSACTION_EDIT, IDM_TRANSACTION_REMOVE, IDM_TRANSACTION_TAX,
                           IDM_TRANSACTION_VOIDED, IDM_TRANSACTION_CLEARED}) {
        EXPECT_EQ(m_program.GetMenuItem(uId), MenuItem::Grayed) << "id " << uId;
    }
    EXPECT_EQ(m_program.GetMenuItem(IDM_TRANSACTION_ADD), MenuItem::Enabled);
    Add({.sDate = "2004-01-01", .sAmount = "1", .sDescription = "first"});
    m_program.AwaitMenuItem(IDM_TRANSACTION_EDIT, MenuItem::Enabled);
    m_program.AwaitMenuItem(IDM_TRANSACTION_CLEARED, MenuItem::Enabled);
}

} // namespace
