// What the user does to an account in its register.
#include "register/qmregisteroperations.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "register/qmrowtable.h"
#include "tests/support/register_support.h"

namespace {

constexpr uint32_t uNotCleared = QM_TRANS_FLAG_NOT_CLEARED;

// A user who gives prepared answers and remembers what was said.
class ScriptedUser : public QMRegisterView
{
public:
    bool Ask(const char* szQuestion) override
    {
        said.push_back(szQuestion);
        return bAnswer;
    }
    void Tell(const char* szText) override { said.push_back(szText); }
    QMDialogEnd RunTransactionDialog(QMTransactionDialogArgs& args) override
    {
        const bool bOK = onDialog != nullptr && onDialog(args);
        if (bDialogFails) {
            return QMDialogEnd::Failed;
        }
        return bOK ? QMDialogEnd::OK : QMDialogEnd::Cancel;
    }
    void UpdateStatusBar() override { ++nStatusUpdates; }

    Texts TakeSaid() { return std::exchange(said, {}); }

    bool bAnswer = true;
    bool bDialogFails = false;
    std::function<bool(QMTransactionDialogArgs&)> onDialog;
    Texts said;
    int nStatusUpdates = 0;
};

struct WorkingRegister : TestRegister
{
    // Five transactions on five days. Their amounts can be told apart in every sum.
    WorkingRegister()
    {
        Add(QM_TRANS_DEPOSIT, "1/1/2004", 100, 0, "one");
        Add(QM_TRANS_CHECK, "1/2/2004", 10, uNotCleared, "two");
        Add(QM_TRANS_DIRECT_DEBIT, "2/3/2004", 20, 0, "three");
        Add(QM_TRANS_CHECK, "2/4/2004", 40, uNotCleared, "four");
        Add(QM_TRANS_WITHDRAWAL, "2/5/2004", 7, 0, "five");
    }

    void ShowFebruary()
    {
        SetHeaderPeriod(QM_ACCNT_DISPLAY_DATE_RANGE, "2/1/2004", "2/29/2004");
        model.SetPeriodFilter(true, false);
        Show();
    }

    // The descriptions, in the order of the store.
    Texts Stored()
    {
        Texts texts;
        Store().ForEach(
            [&](const QMTransaction& transaction) { texts.push_back(transaction.szDescription); });
        return texts;
    }

    uint32_t FlagsAt(int32_t lPosition) { return At(lPosition).lFlags; }

    ScriptedUser user;
    QMRegisterOperations operations{document, rows, model, user};
};

// Types one transaction into the dialog and closes it.
std::function<bool(QMTransactionDialogArgs&)> TypeOne(const QMTransaction& typed, bool& bAccepted)
{
    return [&typed, &bAccepted](QMTransactionDialogArgs& args) {
        args.pTransactions[0].CopyFrom(typed);
        bAccepted = args.pfnCommit(args.pTransactions[0], args.pUserA[0], args.pUserB[0]);
        return false;
    };
}

} // namespace

// ---- Adding.

TEST(QMRegisterOperations, DialogStartsOnAnEntryWithTheNextCheckNumber)
{
    WorkingRegister reg;
    reg.At(3).lNumber = 1200;
    reg.Show();
    reg.user.onDialog = [](QMTransactionDialogArgs& args) {
        EXPECT_TRUE(args.bAddMode);
        EXPECT_EQ(args.nCount, 1);
        EXPECT_EQ(args.pTransactions[0].lType, QM_TRANS_CHECK);
        EXPECT_EQ(args.pTransactions[0].lNumber, 1201U);
        EXPECT_EQ(args.pUserA[0], 0U);
        return false;
    };
    EXPECT_TRUE(reg.operations.AddTransaction());
    EXPECT_FALSE(reg.document.IsModified());
    EXPECT_EQ(reg.user.nStatusUpdates, 1);
}

TEST(QMRegisterOperations, EditListsAreInOrderOfArrivalOrAlphabetical)
{
    for (const bool bSort : {false, true}) {
        WorkingRegister reg;
        reg.Show();
        reg.operations.SetSortEditLists(bSort);
        reg.user.onDialog = [bSort](QMTransactionDialogArgs& args) {
            const QMEditItem* pFirst = args.lstDescription.First();
            // Only checks have a payee. The newest one comes first.
            EXPECT_EQ(args.lstDescription.GetCount(), 2);
            EXPECT_STREQ(pFirst->GetText(), "four");
            EXPECT_STREQ(QMEditList::Next(pFirst)->GetText(), "two");
            EXPECT_EQ(args.lstMemo.GetCount(), 0);
            args.lstMemo.Add("b");
            args.lstMemo.Add("a");
            EXPECT_STREQ(args.lstMemo.First()->GetText(), bSort ? "a" : "b");
            return false;
        };
        reg.operations.AddTransaction();
    }
}

TEST(QMRegisterOperations, AddedEntryIsStoredShownAndSelected)
{
    WorkingRegister reg;
    reg.Show();
    QMTransaction typed = MakeTransaction(QM_TRANS_CHECK, "1/15/2004", 5, uNotCleared, "new");
    typed.lNumber = 2000;
    bool bAccepted = false;
    reg.user.onDialog = TypeOne(typed, bAccepted);
    EXPECT_TRUE(reg.operations.AddTransaction());
    EXPECT_TRUE(bAccepted);
    EXPECT_EQ(reg.Stored(), (Texts{"one", "two", "new", "three", "four", "five"}));
    EXPECT_EQ(reg.rows.GetSelectedRow(), 2);
    EXPECT_EQ(reg.rows.GetColumn("Description")[2], "new");
    EXPECT_EQ(reg.rows.GetColumn("Balance"),
              (Texts{"100.00", "90.00", "85.00", "65.00", "25.00", "18.00"}));
    EXPECT_TRUE(reg.document.IsModified());
    EXPECT_TRUE(reg.user.said.empty());
}

TEST(QMRegisterOperations, AddedEntryMakesRoomForTheNextOfTheSameDay)
{
    WorkingRegister reg;
    reg.Show();
    QMTransaction typed = MakeTransaction(QM_TRANS_FEE, "3/9/2004", 5, QM_TRANS_FLAG_TAX, "x");
    typed.lNumber = 77;
    reg.At(3).lNumber = 1300;
    EXPECT_TRUE(reg.operations.AddFromDialog(typed));
    QMTransaction next;
    next.dtDate = next.dtCleared = MakeDate("3/9/2004");
    next.lNumber = 1301;
    EXPECT_TRUE(IsSame(typed, next)) << TextOf(typed);
}

TEST(QMRegisterOperations, NumberInUseIsAskedAboutForChecksAlone)
{
    WorkingRegister reg;
    reg.At(1).lNumber = 500;
    reg.Show();
    QMTransaction check = MakeTransaction(QM_TRANS_CHECK, "3/1/2004", 5);
    check.lNumber = 500;
    const QMTransaction before = check;
    reg.user.bAnswer = false;
    EXPECT_FALSE(reg.operations.AddFromDialog(check));
    EXPECT_EQ(reg.user.TakeSaid(),
              Texts{"Check number already in use.\nWould you like to continue?"});
    EXPECT_TRUE(IsSame(check, before));
    EXPECT_EQ(reg.Store().GetCount(), 5);
    EXPECT_FALSE(reg.document.IsModified());

    QMTransaction fee = MakeTransaction(QM_TRANS_FEE, "3/1/2004", 5);
    fee.lNumber = 500;
    EXPECT_TRUE(reg.operations.AddFromDialog(fee));
    EXPECT_TRUE(reg.user.said.empty());

    reg.user.bAnswer = true;
    EXPECT_TRUE(reg.operations.AddFromDialog(check));
    EXPECT_EQ(reg.Store().GetCount(), 7);
}

TEST(QMRegisterOperations, EntryOutsideThePeriodIsStoredAndNotShown)
{
    WorkingRegister reg;
    reg.ShowFebruary();
    QMTransaction typed = MakeTransaction(QM_TRANS_FEE, "3/9/2004", 5);
    EXPECT_TRUE(reg.operations.AddFromDialog(typed));
    EXPECT_EQ(reg.Store().GetCount(), 6);
    EXPECT_EQ(reg.rows.GetRowCount(), 3);
    EXPECT_TRUE(reg.document.IsModified());
}

TEST(QMRegisterOperations, EntryBeforeThePeriodLeavesTheListAndMovesWhereItsRowsStand)
{
    WorkingRegister reg;
    reg.ShowFebruary();
    const Texts before = DescribeRows(reg.rows.GetRows());
    QMTransaction typed = MakeTransaction(QM_TRANS_FEE, "1/9/2004", 5, 0, "early");
    reg.rows.TakeLog();
    EXPECT_TRUE(reg.operations.AddFromDialog(typed));
    EXPECT_EQ(reg.rows.TakeLog(), Texts{});
    EXPECT_EQ(DescribeRows(reg.rows.GetRows()), before);
    EXPECT_EQ(reg.model.GetFirstShown(), 3);

    // What the user then edits or removes is the transaction that the row shows.
    reg.rows.SetSelection({1});
    std::string sEdited;
    reg.user.onDialog = [&](QMTransactionDialogArgs& args) {
        sEdited = args.pTransactions[0].szDescription;
        return false;
    };
    EXPECT_TRUE(reg.operations.EditTransactions());
    EXPECT_EQ(sEdited, "four");
    EXPECT_TRUE(reg.operations.RemoveTransactions());
    EXPECT_EQ(reg.Stored(), (Texts{"one", "two", "early", "three", "five"}));
    EXPECT_EQ(reg.model.GetFirstShown(), 3);
}

TEST(QMRegisterOperations, FirstEntryOfAnEmptyPeriodHasARowOfItsOwn)
{
    WorkingRegister reg;
    reg.SetHeaderPeriod(QM_ACCNT_DISPLAY_DATE_RANGE, "2/10/2004", "2/20/2004");
    reg.model.SetPeriodFilter(true, false);
    reg.Show();
    ASSERT_EQ(reg.rows.GetRowCount(), 0);
    QMTransaction typed = MakeTransaction(QM_TRANS_FEE, "2/11/2004", 5, 0, "first");
    EXPECT_TRUE(reg.operations.AddFromDialog(typed));
    EXPECT_EQ(reg.rows.GetColumn("Description"), Texts{"Fee - first"});
    EXPECT_EQ(reg.rows.GetColumn("Balance"), Texts{"18.00"});
    EXPECT_EQ(reg.model.GetFirstShown(), 5);
}

// After each step the first shown transaction is the first one of the period, or 0 when there is
// none.
TEST(QMRegisterOperations, FirstShownIsTrueAfterEveryAdditionAndRemoval)
{
    WorkingRegister reg;
    reg.ShowFebruary();
    reg.operations.SetConfirmRemove(false);
    const auto firstInFebruary = [&] {
        int32_t lFound = -1;
        int32_t lPosition = 0;
        reg.Store().ForEach([&](const QMTransaction& transaction) {
            if (lFound < 0 && transaction.dtDate.wMonth == 2) {
                lFound = lPosition;
            }
            ++lPosition;
        });
        return lFound < 0 ? 0 : lFound;
    };
    for (const char* szDate : {"1/1/2004", "3/1/2004", "2/1/2004", "1/31/2004", "2/29/2004"}) {
        QMTransaction typed = MakeTransaction(QM_TRANS_FEE, szDate, 5);
        EXPECT_TRUE(reg.operations.AddFromDialog(typed));
        EXPECT_EQ(reg.model.GetFirstShown(), firstInFebruary()) << szDate;
    }
    // Removes one selected row after the other. Removing two together would remove a transaction
    // before the period.
    for (const std::set<int32_t>& rows :
         std::vector<std::set<int32_t>>{{0}, {1, 2}, {1}, {0}, {0}}) {
        if (reg.rows.GetRowCount() > *rows.rbegin()) {
            reg.rows.SetSelection(rows);
            EXPECT_TRUE(reg.operations.RemoveTransactions());
            EXPECT_EQ(reg.model.GetFirstShown(), firstInFebruary())
                << reg.rows.GetRowCount() << " rows left";
        }
    }
    while (reg.rows.GetRowCount() > 0) {
        reg.rows.SetSelection({0});
        ASSERT_TRUE(reg.operations.RemoveTransactions());
        EXPECT_EQ(reg.model.GetFirstShown(), firstInFebruary());
    }
    EXPECT_EQ(reg.model.GetFirstShown(), 0);
}

TEST(QMRegisterOperations, DialogThatFailsFailsTheCommand)
{
    WorkingRegister reg;
    reg.Show();
    reg.user.bDialogFails = true;
    EXPECT_FALSE(reg.operations.AddTransaction());
    reg.rows.SetSelection({1});
    EXPECT_FALSE(reg.operations.EditTransactions());
    EXPECT_FALSE(reg.document.IsModified());
    EXPECT_EQ(reg.user.nStatusUpdates, 2);
}

TEST(QMRegisterOperations, InALaterPeriodTheSelectionGoesByThePositionInTheStore)
{
    WorkingRegister reg;
    reg.ShowFebruary();
    ASSERT_EQ(reg.model.GetFirstShown(), 2);
    QMTransaction typed = MakeTransaction(QM_TRANS_CHECK, "2/2/2004", 5, uNotCleared, "new");
    typed.lNumber = 2000;
    EXPECT_TRUE(reg.operations.AddFromDialog(typed));
    EXPECT_EQ(reg.rows.GetColumn("Description"),
              (Texts{"new", "Direct Debit - three", "four", "Withdrawal - five"}));
    // Position 2 of the store is taken as row 2, which is two rows below the new one.
    EXPECT_EQ(reg.rows.GetSelectedRow(), 2);

    // When there is no such row the selection stays.
    QMTransaction last = MakeTransaction(QM_TRANS_FEE, "2/29/2004", 5);
    EXPECT_TRUE(reg.operations.AddFromDialog(last));
    EXPECT_EQ(reg.rows.GetSelectedRow(), 2);
}

TEST(QMRegisterOperations, FirstEntryOfAnEmptyAccountIsShown)
{
    TestRegister empty;
    ScriptedUser user;
    QMRegisterOperations operations(empty.document, empty.rows, empty.model, user);
    empty.Show();
    QMTransaction typed = MakeTransaction(QM_TRANS_DEPOSIT, "5/5/2005", 12, 0);
    EXPECT_TRUE(operations.AddFromDialog(typed));
    EXPECT_EQ(empty.rows.GetColumn("Balance"), Texts{"12.00"});
    EXPECT_EQ(empty.rows.GetSelectedRow(), 0);
}

// ---- Editing.

TEST(QMRegisterOperations, EditsNothingWithoutASelection)
{
    WorkingRegister reg;
    reg.Show();
    reg.rows.SetSelection({});
    reg.user.onDialog = [](QMTransactionDialogArgs&) {
        ADD_FAILURE() << "the dialog must not run without a selection";
        return true;
    };
    EXPECT_TRUE(reg.operations.EditTransactions());
    EXPECT_EQ(reg.user.nStatusUpdates, 0);
}

TEST(QMRegisterOperations, DialogGetsTheSelectedTransactionsWithTheirPositions)
{
    WorkingRegister reg;
    reg.ShowFebruary();
    reg.rows.SetSelection({0, 2});
    reg.user.onDialog = [](QMTransactionDialogArgs& args) {
        EXPECT_FALSE(args.bAddMode);
        EXPECT_EQ(args.nCount, 2);
        EXPECT_STREQ(args.pTransactions[0].szDescription, "three");
        EXPECT_STREQ(args.pTransactions[1].szDescription, "five");
        EXPECT_EQ(args.pUserA[0], 2U);
        EXPECT_EQ(args.pUserA[1], 4U);
        EXPECT_EQ(args.pUserB[0], 0U);
        EXPECT_EQ(args.pfnCommit, nullptr);
        args.pTransactions[0].fAmount = 1;
        return false;
    };
    EXPECT_TRUE(reg.operations.EditTransactions());
    EXPECT_EQ(reg.At(2).fAmount, 20);
    EXPECT_FALSE(reg.document.IsModified());
    EXPECT_EQ(reg.user.nStatusUpdates, 1);
}

TEST(QMRegisterOperations, ChangedDateTakesTheTransactionAndTheSelectionToItsPlace)
{
    WorkingRegister reg;
    reg.Show();
    reg.rows.SetSelection({0});
    reg.user.onDialog = [](QMTransactionDialogArgs& args) {
        args.pTransactions[0].dtDate = MakeDate("2/4/2004");
        return true;
    };
    EXPECT_TRUE(reg.operations.EditTransactions());
    // Sorting adds copies one after the other. So of one day, the transaction that was further up
    // comes first.
    EXPECT_EQ(reg.Stored(), (Texts{"two", "three", "one", "four", "five"}));
    EXPECT_EQ(reg.rows.GetSelectedRow(), 2);
    EXPECT_TRUE(reg.document.IsModified());
    EXPECT_EQ(reg.rows.GetColumn("Balance").back(), "23.00");
}

TEST(QMRegisterOperations, EditedOutOfThePeriodTheRowGoes)
{
    WorkingRegister reg;
    reg.ShowFebruary();
    reg.rows.SetSelection({1});
    reg.user.onDialog = [](QMTransactionDialogArgs& args) {
        args.pTransactions[0].dtDate = MakeDate("7/1/2004");
        return true;
    };
    EXPECT_TRUE(reg.operations.EditTransactions());
    EXPECT_EQ(reg.rows.GetRowCount(), 2);
    EXPECT_EQ(reg.Store().GetCount(), 5);
}

TEST(QMRegisterOperations, SelectionThatDoesNotFitTheStoreFailsTheEdit)
{
    WorkingRegister reg;
    reg.Show();
    reg.rows.SetSelection({1, 9});
    EXPECT_FALSE(reg.operations.EditTransactions());
    EXPECT_EQ(reg.user.nStatusUpdates, 1);
}

// ---- Removing.

TEST(QMRegisterOperations, RemovingAsksOnceForOneOrForMany)
{
    WorkingRegister reg;
    reg.Show();
    reg.user.bAnswer = false;
    reg.rows.SetSelection({1});
    EXPECT_TRUE(reg.operations.RemoveTransactions());
    reg.rows.SetSelection({1, 2});
    EXPECT_TRUE(reg.operations.RemoveTransactions());
    EXPECT_EQ(reg.user.TakeSaid(), (Texts{"Are you sure you want to remove this transaction?",
                                          "Are you sure you want to remove these transactions?"}));
    EXPECT_EQ(reg.Store().GetCount(), 5);
    EXPECT_FALSE(reg.document.IsModified());

    reg.operations.SetConfirmRemove(false);
    EXPECT_TRUE(reg.operations.RemoveTransactions());
    EXPECT_TRUE(reg.user.said.empty());
    EXPECT_EQ(reg.Stored(), (Texts{"one", "four", "five"}));
    EXPECT_TRUE(reg.document.IsModified());
}

TEST(QMRegisterOperations, RemovingBehindTheFirstRowRefreshesTheBalancesBelow)
{
    WorkingRegister reg;
    reg.Show();
    reg.rows.SetSelection({1});
    EXPECT_TRUE(reg.operations.RemoveTransactions());
    EXPECT_EQ(reg.rows.GetColumn("Balance"), (Texts{"100.00", "80.00", "40.00", "33.00"}));
    EXPECT_EQ(reg.rows.GetSelectedRow(), 1);
    EXPECT_DOUBLE_EQ(reg.model.GetBalance(true), 33);
}

TEST(QMRegisterOperations, RemovingTheFirstRowRefreshesNothing)
{
    WorkingRegister reg;
    reg.Show();
    reg.rows.SetSelection({0});
    EXPECT_TRUE(reg.operations.RemoveTransactions());
    EXPECT_EQ(reg.rows.GetColumn("Balance"), (Texts{"90.00", "70.00", "30.00", "23.00"}));
    EXPECT_DOUBLE_EQ(reg.model.GetBalance(true), 23);
    EXPECT_EQ(reg.user.nStatusUpdates, 1);
}

TEST(QMRegisterOperations, RemovingTheOnlyTransactionLeavesTheSumsAsTheyStood)
{
    TestRegister one;
    one.Add(QM_TRANS_DEPOSIT, "1/1/2004", 12, 0);
    ScriptedUser user;
    QMRegisterOperations operations(one.document, one.rows, one.model, user);
    one.Show();
    EXPECT_TRUE(operations.RemoveTransactions());
    EXPECT_EQ(one.rows.GetRowCount(), 0);
    EXPECT_DOUBLE_EQ(one.model.GetBalance(false), 12);
    EXPECT_FALSE(operations.RemoveTransactions());
}

TEST(QMRegisterOperations, RemovingTheLastRowSelectsTheOneAbove)
{
    WorkingRegister reg;
    reg.Show();
    reg.rows.SetSelection({4});
    EXPECT_TRUE(reg.operations.RemoveTransactions());
    EXPECT_EQ(reg.rows.GetSelectedRow(), 3);
}

TEST(QMRegisterOperations, InALaterPeriodTheRefreshIsGivenARowForAPosition)
{
    WorkingRegister reg;
    reg.ShowFebruary();
    reg.rows.SetSelection({1});
    reg.rows.TakeLog();
    EXPECT_TRUE(reg.operations.RemoveTransactions());
    EXPECT_EQ(reg.Stored(), (Texts{"one", "two", "three", "five"}));
    // Position 1 is before the period, so every row is written.
    EXPECT_EQ(reg.rows.GetColumn("Description"),
              (Texts{"Direct Debit - three", "Withdrawal - five"}));
    EXPECT_EQ(reg.rows.GetSelectedRow(), 1);
}

TEST(QMRegisterOperations, InALaterPeriodSelectedRowsAreSkippedAndAnEarlierTransactionGoes)
{
    WorkingRegister reg;
    reg.ShowFebruary();
    // The rows show the positions 2, 3 and 4. The first selected one is at position 2. After row 2
    // there is no other, which gives position 1; the next row after row 1 is row 2, which is
    // position 4.
    reg.rows.SetSelection({0, 1, 2});
    EXPECT_TRUE(reg.operations.RemoveTransactions());
    EXPECT_EQ(reg.Stored(), (Texts{"one", "three"}));
}

TEST(QMRegisterOperations, ManyRowsAreRemovedAsFastAsTheyAreListed)
{
    constexpr int32_t lCount = 100000;
    TestRegister large;
    QMStoreFiller filler(large.Store());
    for (int32_t i = 0; i < lCount; ++i) {
        filler.Add(std::make_unique<QMTransaction>());
    }
    ASSERT_TRUE(filler.Finish());
    QMRowTable table;
    QMRegisterModel model(large.document, table);
    ASSERT_TRUE(model.ShowAll());
    std::vector<int32_t> falling;
    for (int32_t i = lCount; i-- > 0;) {
        if (i % 10 != 0) {
            falling.push_back(i);
        }
    }
    table.DeleteRows(falling.data(), static_cast<int32_t>(falling.size()));
    EXPECT_EQ(table.GetRowCount(), lCount / 10);
}

// ---- Tags.

TEST(QMRegisterOperations, VoidingSetsNotClearedAndDropsTaxAndExpense)
{
    WorkingRegister reg;
    reg.At(2).lFlags = QM_TRANS_FLAG_TAX;
    reg.Show();
    reg.rows.SetSelection({2});
    EXPECT_TRUE(reg.operations.ToggleTag(QM_TRANS_FLAG_VOIDED));
    EXPECT_EQ(reg.FlagsAt(2), QM_TRANS_FLAG_VOIDED | uNotCleared);
    EXPECT_TRUE(reg.operations.ToggleTag(QM_TRANS_FLAG_VOIDED));
    EXPECT_EQ(reg.FlagsAt(2), uNotCleared);
    EXPECT_TRUE(reg.document.IsModified());
    EXPECT_EQ(reg.user.nStatusUpdates, 2);
}

TEST(QMRegisterOperations, ClearingAVoidedTransactionTakesItsMarkAway)
{
    WorkingRegister reg;
    reg.At(1).lFlags = QM_TRANS_FLAG_VOIDED | uNotCleared;
    const QMDate dtCleared = reg.At(1).dtCleared;
    reg.Show();
    reg.rows.SetSelection({1});
    EXPECT_TRUE(reg.operations.ToggleTag(uNotCleared));
    EXPECT_EQ(reg.FlagsAt(1), 0U);
    EXPECT_TRUE(QMDateIsEqual(reg.At(1).dtCleared, dtCleared));
}

TEST(QMRegisterOperations, TaxAndExpenseReplaceEachOther)
{
    WorkingRegister reg;
    reg.At(1).lFlags = QM_TRANS_FLAG_EXPENSE | uNotCleared;
    reg.Show();
    reg.rows.SetSelection({1});
    EXPECT_TRUE(reg.operations.ToggleTag(QM_TRANS_FLAG_TAX));
    EXPECT_EQ(reg.FlagsAt(1), QM_TRANS_FLAG_TAX | uNotCleared);
    EXPECT_TRUE(reg.operations.ToggleTag(QM_TRANS_FLAG_TAX));
    EXPECT_EQ(reg.FlagsAt(1), uNotCleared);
}

TEST(QMRegisterOperations, ZeroAmountCannotBeClearedAndTheOthersGoOn)
{
    WorkingRegister reg;
    reg.At(1).fAmount = 0.001F; // rounds to nothing
    reg.Show();
    reg.rows.SetSelection({0, 1, 3});
    EXPECT_TRUE(reg.operations.ToggleTag(uNotCleared));
    EXPECT_EQ(reg.user.TakeSaid(), Texts{"Transaction 2:\n\nUnable to set cleared status.\n"
                                         "This transaction has an amount of $0.00."});
    EXPECT_EQ(reg.FlagsAt(0), uNotCleared);
    EXPECT_EQ(reg.FlagsAt(1), uNotCleared);
    EXPECT_EQ(reg.FlagsAt(3), 0U);
}

TEST(QMRegisterOperations, ZeroAmountThatIsClearedCanBeSetBack)
{
    WorkingRegister reg;
    reg.At(0).fAmount = 0;
    reg.Show();
    reg.rows.SetSelection({0});
    EXPECT_TRUE(reg.operations.ToggleTag(uNotCleared));
    EXPECT_EQ(reg.FlagsAt(0), uNotCleared);
    EXPECT_TRUE(reg.user.said.empty());
}

TEST(QMRegisterOperations, TogglingRefreshesBalanceTagAndClearedFromTheFirstSelectedRowOn)
{
    WorkingRegister reg;
    reg.Show();
    reg.rows.SetSelection({3, 4});
    reg.rows.TakeLog();
    EXPECT_TRUE(reg.operations.ToggleTag(QM_TRANS_FLAG_VOIDED));
    EXPECT_EQ(reg.rows.TakeLog(),
              (Texts{"text 3 Balance", "decoration 3", "text 4 Balance", "decoration 4"}));
    EXPECT_EQ(reg.rows.GetColumn("Balance").back(), "70.00");
}

TEST(QMRegisterOperations, NothingToToggleIsAFailure)
{
    WorkingRegister reg;
    reg.Show();
    reg.rows.SetSelection({});
    EXPECT_FALSE(reg.operations.ToggleTag(QM_TRANS_FLAG_TAX));
    EXPECT_FALSE(reg.document.IsModified());
}

TEST(QMRegisterOperations, TaxAndExpenseAreOfferedForFourTypes)
{
    for (int32_t lType = 0; lType < QM_TRANS_TYPE_COUNT; ++lType) {
        WorkingRegister reg;
        reg.At(0).lType = lType;
        reg.Show();
        reg.rows.SetSelection({0, 1});
        const bool bOffered = lType == QM_TRANS_CHECK || lType == QM_TRANS_DIRECT_DEBIT ||
                              lType == QM_TRANS_AUTOMATIC_PAYMENT ||
                              lType == QM_TRANS_TRANSFER_DEBIT;
        EXPECT_EQ(reg.operations.CanToggleTag(QM_TRANS_FLAG_TAX), bOffered) << "type " << lType;
        EXPECT_EQ(reg.operations.CanToggleTag(QM_TRANS_FLAG_EXPENSE), bOffered) << "type " << lType;
        EXPECT_TRUE(reg.operations.CanToggleTag(QM_TRANS_FLAG_VOIDED)) << "type " << lType;
        EXPECT_TRUE(reg.operations.CanToggleTag(uNotCleared)) << "type " << lType;
    }
}

TEST(QMRegisterOperations, WithoutASelectionEveryTagIsOffered)
{
    WorkingRegister reg;
    reg.Show();
    reg.rows.SetSelection({});
    EXPECT_TRUE(reg.operations.CanToggleTag(QM_TRANS_FLAG_TAX));
}

TEST(QMRegisterOperations, InALaterPeriodTheOfferLooksAtTheWrongTransactions)
{
    WorkingRegister reg;
    reg.ShowFebruary();
    // A direct debit and a check are selected, and both may have the tag. From the second one on
    // the walk goes two positions too far, to the withdrawal.
    reg.rows.SetSelection({0, 1});
    EXPECT_FALSE(reg.operations.CanToggleTag(QM_TRANS_FLAG_TAX));
    EXPECT_TRUE(reg.operations.ToggleTag(QM_TRANS_FLAG_TAX));
    EXPECT_EQ(reg.FlagsAt(2) & QM_TRANS_FLAG_TAX, QM_TRANS_FLAG_TAX);
}

// ---- The look.

TEST(QMRegisterOperations, GridLinesGoWithTheHeaderAndMakeRoomForShading)
{
    WorkingRegister reg;
    reg.Header().bGridLines = 0;
    reg.Header().bShadedLines = 0;
    reg.Show();
    // The list starts with its own grid lines, whatever the header says.
    EXPECT_EQ(reg.rows.GetLineFlags(), QM_GRID_SHADED | QM_GRID_VERTICAL);
    reg.operations.ToggleGridLines();
    EXPECT_EQ(reg.Header().bGridLines, 1);
    EXPECT_EQ(reg.rows.GetLineFlags(), QM_GRID_SHADED | QM_GRID_VERTICAL | QM_GRID_HORIZONTAL);
    reg.operations.ToggleShadedLines();
    EXPECT_EQ(reg.rows.GetLineFlags(), QM_GRID_SHADED | QM_GRID_VERTICAL);
    reg.operations.ToggleShadedLines();
    EXPECT_EQ(reg.rows.GetLineFlags(), QM_GRID_VERTICAL | QM_GRID_HORIZONTAL);
    reg.operations.ToggleGridLines();
    EXPECT_EQ(reg.rows.GetLineFlags(), 0U);
    reg.operations.ToggleShadedLines();
    EXPECT_EQ(reg.rows.GetLineFlags(), QM_GRID_SHADED);
    EXPECT_TRUE(reg.document.IsModified());
}

TEST(QMRegisterOperations, ColumnsComeAndGoAndTheFocusStays)
{
    WorkingRegister reg;
    reg.Show();
    reg.model.SetFocusRow(2);
    for (const uint32_t uColumn : {QM_COLUMN_DATE, QM_COLUMN_BALANCE, QM_COLUMN_CATEGORY}) {
        const bool bBefore = QMIsColumnShown(reg.Header(), uColumn);
        reg.operations.ToggleColumn(uColumn);
        EXPECT_EQ(QMIsColumnShown(reg.Header(), uColumn), !bBefore);
    }
    EXPECT_EQ(reg.rows.GetColumnNames(), (Texts{"Cleared", "Number", "Description", "Debit",
                                                "Credit", "Tag", "Memo", "Category", ""}));
    EXPECT_EQ(reg.rows.GetSelectedRow(), 2);
    EXPECT_EQ(reg.model.GetStoredFocusRow(), 2);
    EXPECT_TRUE(reg.document.IsModified());
}
