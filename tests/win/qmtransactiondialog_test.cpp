#include "entry/qmtransactiondialog.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "resources/resource.h"
#include "tests/support/support.h"
#include "tests/win/entrydialog_support.h"
#include "tests/win/support.h"

namespace {

// A new check with the number 1042, as a register gives it.
std::vector<QMTransaction> NewEntry()
{
    QMTransaction entry;
    entry.lNumber = 1042;
    return {entry};
}

// Runs the dialog to add an entry, does the action, and cancels.
void InAddDialog(const ModalDriver::Action& action)
{
    EntryArgs args(NewEntry(), true);
    ModalDriver driver;
    driver.Next([=](HWND hDialog) {
        action(hDialog);
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
}

std::string TodayText()
{
    return DateText(QMToday());
}

Texts ItemsOf(HWND hDialog, int nId)
{
    Texts items;
    const LRESULT lCount = SendDlgItemMessageA(hDialog, nId, CB_GETCOUNT, 0, 0);
    for (LRESULT l = 0; l < lCount; ++l) {
        char szText[256] = "";
        SendDlgItemMessageA(hDialog, nId, CB_GETLBTEXT, static_cast<WPARAM>(l),
                            reinterpret_cast<LPARAM>(szText));
        items.push_back(szText);
    }
    return items;
}

// The left edge of a control and the middle of its height, in pixels of the dialog.
POINT PlaceOf(HWND hDialog, int nId)
{
    RECT rect = {};
    GetWindowRect(GetDlgItem(hDialog, nId), &rect);
    MapWindowPoints(nullptr, hDialog, reinterpret_cast<POINT*>(&rect), 2);
    return {rect.left, (rect.top + rect.bottom) / 2};
}

} // namespace

// ---- The template.

TEST(QMTransactionDialog, HasItsControlsInTabOrder)
{
    InAddDialog([](HWND hDialog) {
        EXPECT_EQ(TabOrder(hDialog), (Texts{"1601 Check",
                                            "1602 Deposit",
                                            "1603 Withdrawal",
                                            "1605 Direct Deposit",
                                            "1608 Direct Debit",
                                            "1606 ATM Deposit",
                                            "1607 ATM Withdrawal",
                                            "1609 Automatic Payment",
                                            "1610 Transfer Credit",
                                            "1611 Transfer Debit",
                                            "1612 Interest Paid",
                                            "1604 Fee",
                                            "1624 Check Number:",
                                            "1613 1042",
                                            "1614 " + ItemText(hDialog, IDC_TX_DATE),
                                            "1625 Description:",
                                            "1615 ",
                                            "1616 0.00",
                                            "1617 ",
                                            "1618 ",
                                            "1619 Tax Deductible",
                                            "1620 Expense",
                                            "1622 Cleared",
                                            "1621 Voided",
                                            "1623 " + ItemText(hDialog, IDC_TX_DATECLEARED),
                                            "2 &Cancel",
                                            "1 &OK",
                                            "1900 Add",
                                            "1903 First",
                                            "1901 Previous",
                                            "1902 Next",
                                            "1904 Last"}));
    });
}

TEST(QMTransactionDialog, NamesEveryControl)
{
    InAddDialog([](HWND hDialog) {
        EXPECT_EQ(NamelessControls(hDialog), Texts());
        EXPECT_EQ(NameOfControl(GetDlgItem(hDialog, IDC_TX_AMOUNT)), "Amount:");
        EXPECT_EQ(NameOfControl(GetDlgItem(hDialog, IDC_TX_DATECLEARED)), "Date Cleared:");
        EXPECT_EQ(NameOfControl(GetDlgItem(hDialog, IDC_TX_FIRST)), "First");
    });
}

TEST(QMTransactionDialog, IsLaidOutWithRoomForEveryText)
{
    InAddDialog([](HWND hDialog) {
        EXPECT_EQ(SizeInUnits(hDialog), "328x190");
        EXPECT_EQ(LayoutFaults(hDialog), Texts());
    });
    EntryArgs args({ProperEntry(QM_TRANS_CHECK)});
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        EXPECT_EQ(LayoutFaults(hDialog), Texts());
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
}

TEST(QMTransactionDialog, HasItsBoxesBesideTheirSigns)
{
    constexpr struct
    {
        int nId;
        int x; // of the sign, 12 by 12
        int y;
    } aSigns[] = {{IDC_TX_TAX, 166, 206},
                  {IDC_TX_EXPENSE, 166, 226},
                  {IDC_TX_CLEARED, 298, 211},
                  {IDC_TX_VOIDED, 298, 237}};
    InAddDialog([&](HWND hDialog) {
        RECT units = {0, 0, 4, 8};
        MapDialogRect(hDialog, &units);
        if (units.right != 6 || units.bottom != 13) {
            GTEST_SKIP() << "this test needs dialog units of 6/4 by 13/8 pixels, and here they are "
                         << units.right << "/4 by " << units.bottom << "/8";
        }
        for (const auto& sign : aSigns) {
            const POINT place = PlaceOf(hDialog, sign.nId);
            EXPECT_GT(place.x, sign.x + 12 + 1) << "control " << sign.nId;
            EXPECT_LT(place.x, sign.x + 12 + 10) << "control " << sign.nId;
            EXPECT_LE(std::abs(place.y - (sign.y + 6)), 1) << "control " << sign.nId;
            const HWND hUnder = ChildWindowFromPointEx(hDialog, {sign.x + 6, sign.y + 6},
                                                       CWP_SKIPINVISIBLE | CWP_SKIPTRANSPARENT);
            EXPECT_TRUE(hUnder == hDialog || VWindow::KindOfWindow(hUnder) == V_KIND_GROUP_BOX);
        }
    });
}

TEST(QMTransactionDialog, LimitsItsTexts)
{
    InAddDialog([](HWND hDialog) {
        EXPECT_EQ(LimitOf(hDialog, IDC_TX_NUMBER), 10);
        EXPECT_EQ(LimitOf(hDialog, IDC_TX_DESCRIPTION), 255);
        EXPECT_EQ(LimitOf(hDialog, IDC_TX_AMOUNT), 15);
        EXPECT_EQ(LimitOf(hDialog, IDC_TX_MEMO), 255);
        EXPECT_EQ(LimitOf(hDialog, IDC_TX_CATEGORY), 127);
    });
}

TEST(QMTransactionDialog, OffersTheListsInTheirOrder)
{
    EntryArgs args(NewEntry(), true);
    args.block.lstDescription.SetFlags(QM_EDIT_BY_ARRIVAL);
    args.block.lstMemo.SetFlags(QM_EDIT_ALPHABETICAL);
    for (const char* szText : {"pear", "Apple", "plum"}) {
        args.block.lstDescription.Add(szText);
        args.block.lstMemo.Add(szText);
    }
    args.block.lstCategory.Add("Housing");
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        EXPECT_EQ(ItemsOf(hDialog, IDC_TX_DESCRIPTION), (Texts{"pear", "Apple", "plum"}));
        EXPECT_EQ(ItemsOf(hDialog, IDC_TX_MEMO), (Texts{"Apple", "pear", "plum"}));
        EXPECT_EQ(ItemsOf(hDialog, IDC_TX_CATEGORY), Texts{"Housing"});
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
}

TEST(QMTransactionDialog, NeedsAnEntry)
{
    EntryArgs args({}, true);
    EXPECT_EQ(RunEntryDialog(args), -1);
}

// ---- Adding.

TEST(QMTransactionDialog, StartsAsAnEmptyCheckOfToday)
{
    // Midnight may come in between.
    const std::string sBefore = TodayText();
    std::string sDate;
    std::string sCleared;
    InAddDialog([&](HWND hDialog) {
        EXPECT_EQ(Text(VWindow::WindowText(hDialog)), "Add Transaction");
        EXPECT_EQ(TypeOn(hDialog), IDC_TX_CHECK);
        EXPECT_EQ(TextsIn(hDialog), "1042||0.00||");
        EXPECT_EQ(BoxesOn(hDialog), "");
        EXPECT_FALSE(IsEnabled(hDialog, IDC_TX_DATECLEARED));
        EXPECT_TRUE(IsShown(hDialog, IDC_TX_ADD) && IsEnabled(hDialog, IDC_TX_ADD));
        EXPECT_EQ(ArrowsOpen(hDialog), "");
        for (const int nId : {IDC_TX_FIRST, IDC_TX_PREVIOUS, IDC_TX_NEXT, IDC_TX_LAST}) {
            EXPECT_FALSE(IsShown(hDialog, nId));
        }
        EXPECT_EQ(FocusedId(hDialog), IDC_TX_CHECK);
        sDate = DateIn(hDialog, IDC_TX_DATE);
        sCleared = DateIn(hDialog, IDC_TX_DATECLEARED);
    });
    EXPECT_TRUE(sDate == sBefore || sDate == TodayText()) << sDate;
    EXPECT_EQ(sCleared, sDate);
}

TEST(QMTransactionDialog, ARunOfAddsKeepsTheDateAndResetsTheRest)
{
    EntryArgs args(NewEntry(), true);
    args.UseCommit();
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        PickDate(hDialog, IDC_TX_DATE, "5/6/2007");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATECLEARED), "5/6/2007");
        Type(hDialog, IDC_TX_DESCRIPTION, "Baker");
        Type(hDialog, IDC_TX_AMOUNT, "12abc");
        Type(hDialog, IDC_TX_MEMO, "bread");
        Type(hDialog, IDC_TX_CATEGORY, "Food");
        Click(hDialog, IDC_TX_CLEARED);
        EXPECT_TRUE(IsEnabled(hDialog, IDC_TX_DATECLEARED));
        PickDate(hDialog, IDC_TX_DATECLEARED, "5/9/2007");
        Click(hDialog, IDC_TX_ADD);
        EXPECT_EQ(TypeOn(hDialog), IDC_TX_CHECK);
        EXPECT_EQ(TextsIn(hDialog), "1001||0.00||");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATE), "5/6/2007");
        EXPECT_EQ(DateIn(hDialog, IDC_TX_DATECLEARED), "5/6/2007");
        EXPECT_EQ(BoxesOn(hDialog), "");
        EXPECT_FALSE(IsEnabled(hDialog, IDC_TX_DATECLEARED));
        EXPECT_EQ(FocusedId(hDialog), IDC_TX_DESCRIPTION);
        Click(hDialog, IDC_TX_DEPOSIT);
        Type(hDialog, IDC_TX_AMOUNT, "500");
        Click(hDialog, IDC_TX_ADD);
        EXPECT_EQ(TypeOn(hDialog), IDC_TX_CHECK);
        EXPECT_TRUE(IsEnabled(hDialog, IDC_TX_NUMBER));
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
    EXPECT_EQ(args.commits,
              (Texts{"5/6/2007 0 12.00 Baker, 100, 200", "5/6/2007 1 500.00, 100, 200"}));
}

TEST(QMTransactionDialog, OkAddsOneMoreAndCloses)
{
    EntryArgs args(NewEntry(), true);
    args.UseCommit();
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        PickDate(hDialog, IDC_TX_DATE, "5/6/2007");
        Type(hDialog, IDC_TX_AMOUNT, "7.25");
        Press(hDialog, IDOK);
    });
    EXPECT_EQ(RunEntryDialog(args), IDOK);
    EXPECT_EQ(args.commits, Texts{"5/6/2007 0 7.25, 100, 200"});
}

TEST(QMTransactionDialog, EnterIsOkAndEscapeIsCancel)
{
    EntryArgs args(NewEntry(), true);
    args.UseCommit();
    {
        ModalDriver driver;
        driver.Next([](HWND hDialog) {
            Type(hDialog, IDC_TX_AMOUNT, "1");
            PostKey(GetDlgItem(hDialog, IDC_TX_AMOUNT), VK_RETURN);
        });
        EXPECT_EQ(RunEntryDialog(args), IDOK);
    }
    ModalDriver driver;
    driver.Next([](HWND hDialog) { PostKey(GetDlgItem(hDialog, IDC_TX_AMOUNT), VK_ESCAPE); });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
    EXPECT_EQ(args.commits.size(), 1U);
}

TEST(QMTransactionDialog, WhatIsRefusedStaysAsTyped)
{
    EntryArgs args(NewEntry(), true);
    args.UseCommit();
    std::string sSentence;
    std::string sCaption;
    for (const int nButton : {IDC_TX_ADD, static_cast<int>(IDOK)}) {
        ModalDriver driver;
        driver.Next([=](HWND hDialog) {
            Type(hDialog, IDC_TX_NUMBER, "");
            Type(hDialog, IDC_TX_DESCRIPTION, "typed");
            Type(hDialog, IDC_TX_AMOUNT, "-5x");
            Press(hDialog, nButton);
        });
        driver.Next(AnswerBox(IDOK, &sSentence, &sCaption));
        driver.Again([](HWND hDialog) {
            EXPECT_EQ(TextsIn(hDialog), "|typed|-5x||");
            Press(hDialog, IDCANCEL);
        });
        EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
        EXPECT_EQ(sSentence, "An invalid check number was entered.");
        EXPECT_EQ(sCaption, "Window tests") << "the caption must be the name of the application";
    }
    EXPECT_TRUE(args.commits.empty());
    EXPECT_TRUE(IsSame(args.entries[0], NewEntry()[0]));
}

TEST(QMTransactionDialog, AnEmptyEntryIsRefusedForItsAmount)
{
    EntryArgs args(NewEntry(), true);
    std::string sSentence;
    ModalDriver driver;
    driver.Next([](HWND hDialog) { Press(hDialog, IDOK); });
    driver.Next(AnswerBox(IDOK, &sSentence));
    driver.Again([](HWND hDialog) {
        EXPECT_EQ(FocusedId(hDialog), IDC_TX_AMOUNT);
        EXPECT_EQ(SendDlgItemMessageA(hDialog, IDC_TX_AMOUNT, EM_GETSEL, 0, 0), MAKELRESULT(0, 4))
            << "the whole text must be selected";
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
    EXPECT_EQ(sSentence, "An invalid amount was entered.");
}

TEST(QMTransactionDialog, AnEntryThatTheCallerRefusesStaysAsTyped)
{
    EntryArgs args(NewEntry(), true);
    args.UseCommit();
    args.bAccepts = false;
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        Type(hDialog, IDC_TX_DESCRIPTION, "typed");
        Type(hDialog, IDC_TX_AMOUNT, "3");
        Click(hDialog, IDC_TX_ADD);
        EXPECT_EQ(TextsIn(hDialog), "1042|typed|3||");
        SendMessageA(hDialog, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(TextsIn(hDialog), "1042|typed|3||");
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
    EXPECT_EQ(args.commits.size(), 2U);
    EXPECT_STREQ(args.entries[0].szDescription, "typed");
}

// ---- Types and boxes.

TEST(QMTransactionDialog, EveryTypeOpensItsFields)
{
    constexpr struct
    {
        int nId;
        const char* szDescription;
        bool bTag;
    } aTypes[] = {{IDC_TX_DEPOSIT, "Deposit", false},
                  {IDC_TX_WITHDRAWAL, "Withdrawal", false},
                  {IDC_TX_FEE, "Fee", false},
                  {IDC_TX_DIRECTDEPOSIT, "Direct Deposit", false},
                  {IDC_TX_DIRECTDEBIT, "Direct Debit", true},
                  {IDC_TX_ATMDEPOSIT, "ATM Deposit", false},
                  {IDC_TX_ATMWITHDRAWAL, "ATM Withdrawal", false},
                  {IDC_TX_AUTOMATICPAYMENT, "Automatic Payment", true},
                  {IDC_TX_TRANSFERCREDIT, "Transfer - Credit", false},
                  {IDC_TX_TRANSFERDEBIT, "Transfer - Debit", true},
                  {IDC_TX_INTEREST, "Interest Paid", false}};
    InAddDialog([&](HWND hDialog) {
        for (const auto& type : aTypes) {
            Click(hDialog, IDC_TX_CHECK);
            EXPECT_EQ(TextsIn(hDialog), "1042||0.00||");
            Click(hDialog, IDC_TX_TAX);
            ASSERT_EQ(BoxesOn(hDialog), "T");
            Click(hDialog, type.nId);
            EXPECT_EQ(TypeOn(hDialog), type.nId);
            EXPECT_EQ(TextsIn(hDialog), std::string("|") + type.szDescription + "|0.00||");
            for (const int nId :
                 {IDC_TX_NUMBERLABEL, IDC_TX_NUMBER, IDC_TX_DESCRIPTIONLABEL, IDC_TX_DESCRIPTION}) {
                EXPECT_FALSE(IsEnabled(hDialog, nId)) << "control " << nId;
            }
            EXPECT_EQ(IsEnabled(hDialog, IDC_TX_TAX), type.bTag);
            EXPECT_EQ(IsEnabled(hDialog, IDC_TX_EXPENSE), type.bTag);
            EXPECT_TRUE(IsEnabled(hDialog, IDC_TX_VOIDED) && IsEnabled(hDialog, IDC_TX_CLEARED));
            EXPECT_EQ(BoxesOn(hDialog), type.bTag ? "T" : "");
            Click(hDialog, IDC_TX_TAX); // off again, where it is open
        }
        Click(hDialog, IDC_TX_CHECK);
        for (const int nId : {IDC_TX_NUMBERLABEL, IDC_TX_NUMBER, IDC_TX_DESCRIPTIONLABEL,
                              IDC_TX_DESCRIPTION, IDC_TX_TAX, IDC_TX_EXPENSE}) {
            EXPECT_TRUE(IsEnabled(hDialog, nId)) << "control " << nId;
        }
    });
}

TEST(QMTransactionDialog, BoxesShutOneAnotherOut)
{
    constexpr struct
    {
        int nId;
        const char* szOn;
    } aPresses[] = {{IDC_TX_TAX, "T"},     {IDC_TX_CLEARED, "TC"}, {IDC_TX_EXPENSE, "EC"},
                    {IDC_TX_VOIDED, "V"},  {IDC_TX_CLEARED, "C"},  {IDC_TX_CLEARED, ""},
                    {IDC_TX_VOIDED, "V"},  {IDC_TX_TAX, "T"},      {IDC_TX_TAX, ""},
                    {IDC_TX_EXPENSE, "E"}, {IDC_TX_TAX, "T"}};
    InAddDialog([&](HWND hDialog) {
        std::string sPressed;
        for (const auto& press : aPresses) {
            sPressed += " " + std::to_string(press.nId);
            Click(hDialog, press.nId);
            EXPECT_EQ(BoxesOn(hDialog), press.szOn) << sPressed;
            const bool bCleared = std::string(press.szOn).find('C') != std::string::npos;
            EXPECT_EQ(IsEnabled(hDialog, IDC_TX_DATECLEARED), bCleared) << sPressed;
        }
    });
}

TEST(QMTransactionDialog, TheKeyboardAloneReachesEverything)
{
    InAddDialog([](HWND hDialog) {
        std::vector<int> reached;
        for (int n = 0; n < 40; ++n) {
            reached.push_back(FocusedId(hDialog));
            SendMessageA(hDialog, WM_NEXTDLGCTL, FALSE, FALSE);
            if (FocusedId(hDialog) == reached.front()) {
                break;
            }
        }
        EXPECT_EQ(reached,
                  (std::vector<int>{IDC_TX_CHECK, IDC_TX_NUMBER, IDC_TX_DATE, IDC_TX_DESCRIPTION,
                                    IDC_TX_AMOUNT, IDC_TX_MEMO, IDC_TX_CATEGORY, IDC_TX_TAX,
                                    IDC_TX_EXPENSE, IDC_TX_CLEARED, IDC_TX_VOIDED, IDCANCEL, IDOK,
                                    IDC_TX_ADD}));
    });
}

TEST(QMTransactionDialog, ComingByARadioButtonPressesNothing)
{
    InAddDialog([](HWND hDialog) {
        Type(hDialog, IDC_TX_DESCRIPTION, "typed");
        SetFocus(GetDlgItem(hDialog, IDC_TX_NUMBER));
        SetFocus(GetDlgItem(hDialog, IDC_TX_CHECK));
        EXPECT_EQ(TextsIn(hDialog), "1042|typed|0.00||");
    });
}

TEST(QMTransactionDialog, ArrowKeysMoveTheType)
{
    EntryArgs args(NewEntry(), true);
    ModalDriver driver;
    driver.Next([](HWND hDialog) { PostKey(GetDlgItem(hDialog, IDC_TX_CHECK), VK_DOWN); });
    driver.When([](HWND hDialog) { return TypeOn(hDialog) == IDC_TX_DEPOSIT; },
                [](HWND hDialog) {
                    EXPECT_EQ(TextsIn(hDialog), "|Deposit|0.00||");
                    Press(hDialog, IDCANCEL);
                });
    EXPECT_EQ(RunEntryDialog(args), IDCANCEL);
}
