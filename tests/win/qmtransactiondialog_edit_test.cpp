#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/vtext.h"
#include "resources/resource.h"
#include "tests/win/entrydialog_support.h"
#include "tests/win/support.h"

namespace {

// Three entries: a check with a tag, a cleared deposit, a voided fee.
std::vector<QMTransaction> ThreeEntries()
{
    std::vector<QMTransaction> entries = {ProperEntry(QM_TRANS_CHECK, 20),
                                          ProperEntry(QM_TRANS_DEPOSIT, 0),
                                          ProperEntry(QM_TRANS_FEE, 17)};
    entries[1].dtCleared = MakeDate("3/20/2004");
    entries[2].fAmount = 0;
    return entries;
}

// Runs the dialog on these entries, does the action, and cancels.
void InEditDialog(const std::vector<QMTransaction>& entries, const ModalDriver::Action& action)
{
    EntryArgs args(entries);
    ModalDriver driver;
    driver.Next([=](HWND hDialog) {
        action(hDialog);
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
}

} // namespace

TEST(QMTransactionDialogEdit, StartsWithTheFirstEntry)
{
    InEditDialog(ThreeEntries(), [](HWND hDialog) {
        EXPECT_EQ(Text(VWindow::WindowText(hDialog)), "Edit Transaction");
        EXPECT_EQ(TypeOn(hDialog), IDC_TX_CHECK);
        EXPECT_EQ(TextsIn(hDialog), "77|Rent|12.50|for March|Housing");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATE), "3/14/2004");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATECLEARED), "3/14/2004");
        EXPECT_EQ(BoxesOn(hDialog), "T");
        EXPECT_FALSE(IsShown(hDialog, IDC_TX_ADD) || IsEnabled(hDialog, IDC_TX_ADD));
        EXPECT_EQ(ArrowsOpen(hDialog), "> >>");
        for (const int nId : {IDC_TX_FIRST, IDC_TX_PREVIOUS, IDC_TX_NEXT, IDC_TX_LAST}) {
            EXPECT_TRUE(IsShown(hDialog, nId));
        }
    });
}

TEST(QMTransactionDialogEdit, StartsWithTheFocusOnOk)
{
    EntryArgs args({ProperEntry(QM_TRANS_DEPOSIT)});
    ModalDriver driver;
    driver.When([](HWND hDialog) { return FocusedId(hDialog) == IDOK; },
                [](HWND hDialog) {
                    EXPECT_EQ(TypeOn(hDialog), IDC_TX_DEPOSIT);
                    Press(hDialog, IDCANCEL);
                });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
}

TEST(QMTransactionDialogEdit, OneEntryHasNoArrowsOpen)
{
    InEditDialog({ProperEntry(QM_TRANS_CHECK)},
                 [](HWND hDialog) { EXPECT_EQ(ArrowsOpen(hDialog), ""); });
}

TEST(QMTransactionDialogEdit, ArrowsShowTheOthers)
{
    InEditDialog(ThreeEntries(), [](HWND hDialog) {
        Click(hDialog, IDC_TX_NEXT);
        EXPECT_EQ(TypeOn(hDialog), IDC_TX_DEPOSIT);
        EXPECT_EQ(TextsIn(hDialog), "|Deposit|12.50|for March|Housing");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATECLEARED), "3/20/2004");
        EXPECT_EQ(BoxesOn(hDialog), "C");
        EXPECT_TRUE(IsEnabled(hDialog, IDC_TX_DATECLEARED));
        EXPECT_EQ(ArrowsOpen(hDialog), "<< < > >>");
        EXPECT_EQ(FocusedId(hDialog), IDOK);
        Click(hDialog, IDC_TX_LAST);
        EXPECT_EQ(TypeOn(hDialog), IDC_TX_FEE);
        EXPECT_EQ(BoxesOn(hDialog), "V");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATECLEARED), "3/14/2004");
        EXPECT_EQ(ArrowsOpen(hDialog), "<< <");
        Click(hDialog, IDC_TX_PREVIOUS);
        EXPECT_EQ(TypeOn(hDialog), IDC_TX_DEPOSIT);
        Click(hDialog, IDC_TX_FIRST);
        EXPECT_EQ(TypeOn(hDialog), IDC_TX_CHECK);
        EXPECT_EQ(ArrowsOpen(hDialog), "> >>");
        EXPECT_EQ(TextsIn(hDialog), "77|Rent|12.50|for March|Housing");
    });
}

TEST(QMTransactionDialogEdit, WritesTheArrayBack)
{
    EntryArgs args(ThreeEntries());
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        Type(hDialog, IDC_TX_AMOUNT, "44");
        Type(hDialog, IDC_TX_DESCRIPTION, "Landlord");
        Click(hDialog, IDC_TX_LAST);
        Type(hDialog, IDC_TX_MEMO, "a fee");
        PickDate(hDialog, IDC_TX_DATE, "4/1/2004");
        Press(hDialog, IDOK);
    });
    EXPECT_EQ(RunEntryDialog(args), IDOK);
    EXPECT_EQ(TextOf(args.entries[0]), "3/14/2004 0 44.00 Landlord");
    EXPECT_EQ(args.entries[0].lFlags, 20U);
    EXPECT_TRUE(IsSame(args.entries[1], ThreeEntries()[1]))
        << "an entry that was never shown must not change";
    // The dialog shows "Fee", which is not the description. The description stays.
    EXPECT_EQ(TextOf(args.entries[2]), "4/1/2004 3 0.00 Rent");
    EXPECT_STREQ(args.entries[2].szMemo, "a fee");
    EXPECT_EQ(DateText(args.entries[2].dtCleared), "4/1/2004");
    EXPECT_EQ(args.entries[2].lFlags, 17U);
}

TEST(QMTransactionDialogEdit, OkWithoutAChangeKeepsEveryByte)
{
    for (const QMTransaction& given : ThreeEntries()) {
        EntryArgs args({given});
        ModalDriver driver;
        driver.Next([](HWND hDialog) { Press(hDialog, IDOK); });
        EXPECT_EQ(RunEntryDialog(args), IDOK);
        EXPECT_TRUE(IsSame(args.entries[0], given)) << "type " << given.lType;
    }
}

TEST(QMTransactionDialogEdit, ARefusedEntryDoesNotMove)
{
    EntryArgs args(ThreeEntries());
    std::string sSentence;
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        Type(hDialog, IDC_TX_AMOUNT, "");
        Press(hDialog, IDC_TX_NEXT);
    });
    driver.Next(AnswerBox(IDOK, &sSentence));
    driver.Again([](HWND hDialog) {
        EXPECT_EQ(TypeOn(hDialog), IDC_TX_CHECK);
        EXPECT_EQ(TextsIn(hDialog), "77|Rent||for March|Housing");
        EXPECT_EQ(ArrowsOpen(hDialog), "> >>");
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
    EXPECT_EQ(sSentence, "An invalid amount was entered.");
    EXPECT_TRUE(IsSame(args.entries[0], ThreeEntries()[0]));
}

TEST(QMTransactionDialogEdit, TheClearedDateFollowsOnlyALaterDate)
{
    InEditDialog({ThreeEntries()[1]}, [](HWND hDialog) {
        PickDate(hDialog, IDC_TX_DATE, "3/18/2004");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATECLEARED), "3/20/2004");
        PickDate(hDialog, IDC_TX_DATE, "3/22/2004");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATECLEARED), "3/22/2004");
        PickDate(hDialog, IDC_TX_DATECLEARED, "3/25/2004");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATE), "3/22/2004");
        PickDate(hDialog, IDC_TX_DATECLEARED, "3/1/2004");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATE), "3/1/2004");
    });
}

TEST(QMTransactionDialogEdit, CheckOnAStoredDepositShowsItsTypesName)
{
    QMTransaction entry = ProperEntry(QM_TRANS_DEPOSIT);
    VCopyText(entry.szDescription, "");
    InEditDialog({entry}, [](HWND hDialog) {
        Click(hDialog, IDC_TX_CHECK);
        EXPECT_EQ(TextsIn(hDialog), "77|Deposit|12.50|for March|Housing");
    });
}

TEST(QMTransactionDialogEdit, AddDoesNothing)
{
    EntryArgs args(ThreeEntries());
    args.UseCommit();
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        SendMessageA(hDialog, WM_COMMAND, IDC_TX_ADD, 0);
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
    EXPECT_TRUE(args.commits.empty());
}

TEST(QMTransactionDialogEdit, ADateThatTheCalendarLacksLeavesTheRestInPlace)
{
    // 29 February is a valid date of every year in a file, but not in the control.
    QMTransaction entry = ProperEntry(QM_TRANS_CHECK);
    entry.dtDate = entry.dtCleared = QMMakeDate(2003, 2, 29);
    InEditDialog({entry}, [](HWND hDialog) {
        EXPECT_EQ(TextsIn(hDialog), "77|Rent|12.50|for March|Housing");
        EXPECT_NE(DateIn(hDialog, IDC_TX_DATE), "2/29/2003");
    });
}

namespace {

// 29 February is a valid date of every year in a file, but not in the control.
QMTransaction LeapEntry(const QMDate& dtDate, const QMDate& dtCleared)
{
    QMTransaction entry = ProperEntry(QM_TRANS_CHECK, 0);
    entry.dtDate = dtDate;
    entry.dtCleared = dtCleared;
    return entry;
}

// Runs the dialog on these entries, does the action, and leaves it by OK.
std::vector<QMTransaction> EditAndAccept(const std::vector<QMTransaction>& entries,
                                         const ModalDriver::Action& action)
{
    EntryArgs args(entries);
    ModalDriver driver;
    driver.Next([=](HWND hDialog) {
        action(hDialog);
        Press(hDialog, IDOK);
    });
    EXPECT_EQ(RunEntryDialog(args), IDOK);
    return args.entries;
}

const QMDate dtLeap = QMMakeDate(2023, 2, 29);
const QMDate dtPlain = QMMakeDate(2023, 3, 5);

} // namespace

TEST(QMTransactionDialogEdit, ADateThatTheCalendarLacksIsShownAsTheLastDayOfItsMonth)
{
    InEditDialog({LeapEntry(dtLeap, dtPlain)}, [](HWND hDialog) {
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATE), "2/28/2023");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATECLEARED), "3/5/2023");
    });
}

TEST(QMTransactionDialogEdit, DatesThatNobodyChangedStayAsTheyWereStored)
{
    for (const QMTransaction& given :
         {LeapEntry(dtLeap, dtPlain), LeapEntry(QMMakeDate(2023, 2, 1), dtLeap),
          LeapEntry(dtLeap, dtLeap)}) {
        const QMTransaction left = EditAndAccept({given}, [](HWND) {}).front();
        EXPECT_TRUE(IsSame(left, given)) << TextOf(left);
    }
}

TEST(QMTransactionDialogEdit, DatesThatNobodyChangedStayThroughTheArrows)
{
    const std::vector<QMTransaction> given = {
        LeapEntry(dtLeap, dtLeap), LeapEntry(dtPlain, dtPlain), LeapEntry(dtLeap, dtPlain)};
    const std::vector<QMTransaction> left = EditAndAccept(given, [](HWND hDialog) {
        for (const int nArrow : {IDC_TX_NEXT, IDC_TX_NEXT, IDC_TX_FIRST, IDC_TX_LAST}) {
            Click(hDialog, nArrow);
        }
    });
    for (size_t u = 0; u < given.size(); ++u) {
        EXPECT_TRUE(IsSame(left[u], given[u])) << "entry " << u << ": " << TextOf(left[u]);
    }
}

TEST(QMTransactionDialogEdit, AChangedDateIsTakenAndTheOtherOneStays)
{
    QMTransaction left = EditAndAccept({LeapEntry(dtLeap, dtLeap)}, [](HWND hDialog) {
                             PickDate(hDialog, IDC_TX_DATECLEARED, "3/7/2023");
                         }).front();
    EXPECT_EQ(DateText(left.dtDate), "2/29/2023");
    EXPECT_EQ(DateText(left.dtCleared), "3/7/2023");

    left = EditAndAccept({LeapEntry(dtLeap, dtLeap)}, [](HWND hDialog) {
               PickDate(hDialog, IDC_TX_DATE, "2/3/2023");
           }).front();
    EXPECT_EQ(DateText(left.dtDate), "2/3/2023");
    EXPECT_EQ(DateText(left.dtCleared), "2/29/2023");
}

TEST(QMTransactionDialogEdit, ADateThatWasChangedAndPutBackIsTheOneOnShow)
{
    const QMTransaction left = EditAndAccept({LeapEntry(dtLeap, dtPlain)}, [](HWND hDialog) {
                                   PickDate(hDialog, IDC_TX_DATE, "2/3/2023");
                                   PickDate(hDialog, IDC_TX_DATE, "2/28/2023");
                               }).front();
    EXPECT_EQ(DateText(left.dtDate), "2/28/2023");
}
