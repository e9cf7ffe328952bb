#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "base/vtext.h"
#include "entry/qmtransactionentry.h"
#include "tests/support/entry_support.h"

namespace {

constexpr const char* g_szBadType = "Invalid transaction type.";
constexpr const char* g_szBadNumber = "An invalid check number was entered.";
constexpr const char* g_szBadMonth = "An invalid month was entered.";
constexpr const char* g_szBadDay = "An invalid day was entered.";
constexpr const char* g_szBadYear = "An invalid year was entered.";
constexpr const char* g_szBadAmount = "An invalid amount was entered.";
constexpr const char* g_szBadBoxes = "Invalid check boxes were selected.";

// What Accept says about a valid check after one field was changed; "" for nothing.
template <class TChange>
std::string Judge(TChange change)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK)});
    QMTransactionEntry entry(args.block);
    QMEntryFields fields = entry.Begin();
    change(fields);
    const char* szFault = entry.Accept(fields);
    const bool bStored = IsSame(args.entries[0], entry.GetCurrent());
    EXPECT_EQ(szFault == nullptr, bStored)
        << "Accept must store an entry exactly when it finds no fault";
    return szFault == nullptr ? "" : szFault;
}

std::string JudgeNumber(const char* szNumber)
{
    return Judge([&](QMEntryFields& fields) { fields.sNumber = szNumber; });
}

std::string JudgeDate(const QMDate& date)
{
    return Judge([&](QMEntryFields& fields) { fields.dtDate = fields.dtCleared = date; });
}

std::string JudgeAmount(const char* szAmount, bool bVoided = false)
{
    return Judge([&](QMEntryFields& fields) {
        fields.sAmount = szAmount;
        fields.boxes = {.bVoided = bVoided};
    });
}

// The amount that the fields give, whether accepted or refused.
float ReadAmount(const char* szAmount)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK)});
    QMTransactionEntry entry(args.block);
    QMEntryFields fields = entry.Begin();
    fields.sAmount = szAmount;
    entry.Accept(fields);
    return entry.GetCurrent().fAmount;
}

} // namespace

// ---- What the user is told.

TEST(QMTransactionEntryFlow, TheFirstFaultOfTheOrderIsTold)
{
    const std::vector<std::pair<uint32_t, std::string>> order = {
        {1, g_szBadType},    {16, g_szBadNumber},
        {4, g_szBadMonth},   {2, g_szBadDay},
        {8, g_szBadYear},    {32, "A description was not entered."},
        {64, g_szBadAmount}, {128, "An invalid memo was entered."},
        {256, g_szBadBoxes}};
    for (uint32_t uFaults = 1; uFaults < 1024; ++uFaults) {
        std::string sExpected = "none";
        for (auto it = order.rbegin(); it != order.rend(); ++it) {
            sExpected = (uFaults & it->first) != 0 ? it->second : sExpected;
        }
        const char* szSentence = QMFaultSentence(uFaults);
        EXPECT_EQ(szSentence == nullptr ? "none" : szSentence, sExpected) << "faults " << uFaults;
    }
    EXPECT_EQ(QMFaultSentence(0), nullptr);
}

TEST(QMTransactionEntryFlow, ACategoryHasNoSentence)
{
    EXPECT_EQ(QMFaultSentence(512), nullptr);
}

// ---- Reading and validating.

TEST(QMTransactionEntryFlow, NumbersAreUnsignedDecimals)
{
    const std::vector<std::pair<const char*, uint32_t>> numbers = {{"", 0},
                                                                   {" ", 0},
                                                                   {"abc", 0},
                                                                   {"0", 0},
                                                                   {"1000", 1000},
                                                                   {"  12", 12},
                                                                   {"12abc", 12},
                                                                   {"12 34", 12},
                                                                   {"0007", 7},
                                                                   {"-5", 0},
                                                                   {"4294967295", 4294967295U},
                                                                   {"4294967296", 0},
                                                                   {"9999999999", 0},
                                                                   {"1,000", 1},
                                                                   {"9999999", 9999999}};
    for (const auto& [szText, uNumber] : numbers) {
        EXPECT_EQ(QMReadCheckNumber(szText), uNumber) << szText;
    }
}

TEST(QMTransactionEntryFlow, ChecksNeedANumberOfAtMostSevenDigits)
{
    EXPECT_EQ(JudgeNumber(""), g_szBadNumber);
    EXPECT_EQ(JudgeNumber("0"), g_szBadNumber);
    EXPECT_EQ(JudgeNumber("none"), g_szBadNumber);
    EXPECT_EQ(JudgeNumber("1"), "");
    EXPECT_EQ(JudgeNumber("9999999"), "");
    EXPECT_EQ(JudgeNumber("10000000"), g_szBadNumber);
}

TEST(QMTransactionEntryFlow, DatesAreThoseOfAnyYearWithA29thOfFebruary)
{
    EXPECT_EQ(JudgeDate(QMMakeDate(2004, 2, 29)), "");
    EXPECT_EQ(JudgeDate(QMMakeDate(2003, 2, 29)), "");
    EXPECT_EQ(JudgeDate(QMMakeDate(2004, 2, 30)), g_szBadDay);
    EXPECT_EQ(JudgeDate(QMMakeDate(2004, 4, 31)), g_szBadDay);
    EXPECT_EQ(JudgeDate(QMMakeDate(2004, 1, 0)), g_szBadDay);
    EXPECT_EQ(JudgeDate(QMMakeDate(2004, 13, 1)), g_szBadMonth);
    EXPECT_EQ(JudgeDate(QMMakeDate(2004, 0, 1)), g_szBadMonth);
    EXPECT_EQ(JudgeDate(QMMakeDate(1751, 1, 1)), g_szBadYear);
    EXPECT_EQ(JudgeDate(QMMakeDate(1752, 1, 1)), "");
    EXPECT_EQ(JudgeDate(QMMakeDate(3000, 12, 31)), "");
    EXPECT_EQ(JudgeDate(QMMakeDate(3001, 1, 1)), g_szBadYear);
}

TEST(QMTransactionEntryFlow, TheClearedDateIsJudgedToo)
{
    const auto SetCleared = [](QMEntryFields& fields) {
        fields.dtCleared = QMMakeDate(3001, 1, 1);
    };
    EXPECT_EQ(Judge(SetCleared), g_szBadYear);
}

TEST(QMTransactionEntryFlow, AmountsEndAtTheFirstStrangeCharacter)
{
    EXPECT_EQ(ReadAmount("12abc"), 12.0F);
    EXPECT_EQ(ReadAmount("1,234.56"), 1.0F);
    EXPECT_EQ(ReadAmount(""), 0.0F);
    EXPECT_EQ(ReadAmount("abc"), 0.0F);
    EXPECT_EQ(ReadAmount("$5"), 0.0F);
    EXPECT_EQ(ReadAmount(" 1.5"), 1.5F);
    EXPECT_EQ(ReadAmount(".5"), 0.5F);
    EXPECT_EQ(ReadAmount("1.5e2x"), 150.0F);
    EXPECT_EQ(ReadAmount("-3.25"), -3.25F);
}

TEST(QMTransactionEntryFlow, AmountsAreAboveZeroAndAtMostTenThousandMillion)
{
    EXPECT_EQ(JudgeAmount("12abc"), "");
    EXPECT_EQ(JudgeAmount("1,234.56"), "");
    EXPECT_EQ(JudgeAmount(""), g_szBadAmount);
    EXPECT_EQ(JudgeAmount("0.00"), g_szBadAmount);
    EXPECT_EQ(JudgeAmount("-1"), g_szBadAmount);
    EXPECT_EQ(JudgeAmount("10000000000"), "");
    EXPECT_EQ(JudgeAmount("1e10"), "");
    const float fNext = std::nextafter(1e10F, 2e10F);
    EXPECT_EQ(JudgeAmount(std::to_string(fNext).c_str()), g_szBadAmount);
    EXPECT_EQ(JudgeAmount("1e39"), g_szBadAmount);
}

TEST(QMTransactionEntryFlow, OnlyAVoidedEntryMayHaveNoAmount)
{
    EXPECT_EQ(JudgeAmount("0.00", true), "");
    EXPECT_EQ(JudgeAmount("", true), "");
    EXPECT_EQ(JudgeAmount("-1", true), g_szBadAmount);
}

TEST(QMTransactionEntryFlow, ACheckNeedsNoDescription)
{
    EXPECT_EQ(Judge([](QMEntryFields& fields) { fields.sDescription = ""; }), "");
}

TEST(QMTransactionEntryFlow, BoxesThatShutOneAnotherOutAreRefused)
{
    const auto JudgeBoxes = [](const QMEntryBoxes& boxes) {
        return Judge([&](QMEntryFields& fields) { fields.boxes = boxes; });
    };
    EXPECT_EQ(JudgeBoxes({.bTax = true, .bExpense = true}), g_szBadBoxes);
    EXPECT_EQ(JudgeBoxes({.bTax = true, .bVoided = true}), g_szBadBoxes);
    EXPECT_EQ(JudgeBoxes({.bExpense = true, .bVoided = true}), g_szBadBoxes);
    EXPECT_EQ(JudgeBoxes({.bTax = true, .bCleared = true}), "");
    EXPECT_EQ(JudgeBoxes({.bVoided = true, .bCleared = true}), "");
}

TEST(QMTransactionEntryFlow, AnUnknownTypeIsKeptAndRefused)
{
    for (const int32_t lType : {-1, 12, INT32_MIN, INT32_MAX}) {
        EntryArgs args({ProperEntry(lType)});
        QMTransactionEntry entry(args.block);
        const QMEntryFields fields = entry.Begin();
        EXPECT_EQ(fields.lType, -1);
        EXPECT_STREQ(fields.sDescription.GetText(), "");
        EXPECT_STREQ(entry.Accept(fields), g_szBadType);
        EXPECT_EQ(entry.GetCurrent().lType, lType);
    }
}

TEST(QMTransactionEntryFlow, ReadsEveryFieldOfACheck)
{
    EntryArgs args({QMTransaction()});
    QMTransactionEntry entry(args.block);
    QMEntryFields fields;
    fields.lType = QM_TRANS_CHECK;
    fields.sNumber = "1234";
    fields.sDescription = VString(std::string(300, 'd').c_str());
    fields.dtDate = MakeDate("5/6/2007");
    fields.dtCleared = MakeDate("5/7/2007");
    fields.sAmount = "99.95";
    fields.sMemo = VString(std::string(300, 'm').c_str());
    fields.sCategory = VString(std::string(300, 'c').c_str());
    fields.boxes = {.bExpense = true, .bCleared = true};
    EXPECT_EQ(entry.Accept(fields), nullptr);
    const QMTransaction& stored = args.entries[0];
    EXPECT_EQ(stored.lNumber, 1234U);
    EXPECT_EQ(std::string(stored.szDescription), std::string(255, 'd'));
    EXPECT_EQ(DateText(stored.dtDate), "5/6/2007");
    EXPECT_EQ(DateText(stored.dtCleared), "5/7/2007");
    EXPECT_EQ(stored.fAmount, 99.95F);
    EXPECT_EQ(std::string(stored.szMemo), std::string(255, 'm'));
    EXPECT_EQ(std::string(stored.szCategory), std::string(127, 'c'));
    EXPECT_EQ(stored.lFlags, 2U);
}

TEST(QMTransactionEntryFlow, OtherTypesKeepTheStoredNumberAndDescription)
{
    for (int32_t lType = 1; lType < QM_TRANS_TYPE_COUNT; ++lType) {
        EntryArgs args({ProperEntry(QM_TRANS_CHECK)});
        QMTransactionEntry entry(args.block);
        QMEntryFields fields = entry.Begin();
        fields.lType = lType;
        entry.ApplyType(fields);
        EXPECT_EQ(entry.Accept(fields), nullptr);
        EXPECT_EQ(args.entries[0].lType, lType);
        EXPECT_EQ(args.entries[0].lNumber, 77U);
        EXPECT_STREQ(args.entries[0].szDescription, "Rent");
    }
}

TEST(QMTransactionEntryFlow, WhatWasRefusedStaysInTheWorkingCopyAlone)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK)});
    QMTransactionEntry entry(args.block);
    QMEntryFields fields = entry.Begin();
    fields.sAmount = "-8";
    fields.sMemo = "typed";
    EXPECT_STREQ(entry.Accept(fields), g_szBadAmount);
    EXPECT_EQ(entry.GetCurrent().fAmount, -8.0F);
    EXPECT_STREQ(entry.GetCurrent().szMemo, "typed");
    EXPECT_TRUE(IsSame(args.entries[0], ProperEntry(QM_TRANS_CHECK)));
}

// ---- Showing.

TEST(QMTransactionEntryFlow, AnEntryToEditComesWhole)
{
    QMTransaction given = ProperEntry(QM_TRANS_CHECK, QM_TRANS_FLAG_TAX);
    given.dtCleared = MakeDate("3/15/2004");
    given.fAmount = 1234.567F;
    EntryArgs args({given});
    QMTransactionEntry entry(args.block);
    const QMEntryFields fields = entry.Begin();
    EXPECT_EQ(fields.lType, QM_TRANS_CHECK);
    EXPECT_STREQ(fields.sNumber.GetText(), "77");
    EXPECT_STREQ(fields.sDescription.GetText(), "Rent");
    EXPECT_EQ(DateText(fields.dtDate), "3/14/2004");
    EXPECT_EQ(DateText(fields.dtCleared), "3/15/2004");
    EXPECT_STREQ(fields.sAmount.GetText(), "1234.57");
    EXPECT_STREQ(fields.sMemo.GetText(), "for March");
    EXPECT_STREQ(fields.sCategory.GetText(), "Housing");
    EXPECT_EQ(fields.boxes, (QMEntryBoxes{.bTax = true, .bCleared = true}));
}

TEST(QMTransactionEntryFlow, AVoidedDescriptionComesWithoutTheWordForIt)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK, 17)});
    QMTransactionEntry entry(args.block);
    EXPECT_STREQ(entry.Begin().sDescription.GetText(), "Rent");
}

TEST(QMTransactionEntryFlow, AnEntryToAddComesAsAnEmptyCheckWithItsNumber)
{
    QMTransaction given;
    given.lNumber = 1042;
    EntryArgs args({given}, true);
    QMTransactionEntry entry(args.block);
    const QMEntryFields fields = entry.Begin();
    EXPECT_EQ(fields.lType, QM_TRANS_CHECK);
    EXPECT_STREQ(fields.sNumber.GetText(), "1042");
    EXPECT_STREQ(fields.sDescription.GetText(), "");
    EXPECT_STREQ(fields.sAmount.GetText(), "0.00");
    EXPECT_STREQ(fields.sMemo.GetText(), "");
    EXPECT_STREQ(fields.sCategory.GetText(), "");
    EXPECT_EQ(fields.boxes, QMEntryBoxes());
}

// ---- Add and OK.

TEST(QMTransactionEntryFlow, AnEntryThatIsAddedMakesRoomForTheNext)
{
    EntryArgs args({QMTransaction()}, true);
    args.UseCommit();
    QMTransactionEntry entry(args.block);
    QMEntryFields fields = entry.Begin();
    fields.dtDate = fields.dtCleared = MakeDate("5/6/2007");
    fields.sAmount = "20";
    fields.sDescription = "Baker";
    fields.sMemo = "bread";
    fields.boxes = {.bTax = true};
    entry.ApplyBoxes(fields.boxes);
    ASSERT_EQ(entry.Accept(fields), nullptr);
    ASSERT_TRUE(entry.Commit());
    EXPECT_EQ(args.commits, std::vector<std::string>{"5/6/2007 0 20.00 Baker, 100, 200"});
    const QMEntryFields next = entry.BeginNext();
    EXPECT_EQ(next.lType, QM_TRANS_CHECK);
    EXPECT_EQ(DateText(next.dtDate), "5/6/2007");
    EXPECT_EQ(DateText(next.dtCleared), "5/6/2007");
    EXPECT_STREQ(next.sNumber.GetText(), "1001");
    EXPECT_STREQ(next.sDescription.GetText(), "");
    EXPECT_STREQ(next.sAmount.GetText(), "0.00");
    EXPECT_STREQ(next.sMemo.GetText(), "");
    EXPECT_EQ(next.boxes, QMEntryBoxes());
    // The next entry has no amount yet and would be refused. That is why a run of entries ends with
    // Cancel.
    EXPECT_STREQ(entry.Accept(next), g_szBadAmount);
}

TEST(QMTransactionEntryFlow, WithoutACallersFunctionEveryProperEntryIsAccepted)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK)}, true);
    QMTransactionEntry entry(args.block);
    QMEntryFields fields = entry.Begin();
    fields.lType = QM_TRANS_DIRECT_DEBIT;
    fields.sAmount = "3";
    fields.dtDate = fields.dtCleared = MakeDate("5/6/2007");
    entry.ApplyType(fields);
    fields.boxes.bExpense = true;
    entry.ApplyBoxes(fields.boxes);
    ASSERT_EQ(entry.Accept(fields), nullptr);
    EXPECT_TRUE(entry.Commit());
    // The caller did not prepare the next entry. So it comes back as a check that shows the stored
    // type.
    const QMEntryFields next = entry.BeginNext();
    EXPECT_EQ(next.lType, QM_TRANS_CHECK);
    EXPECT_STREQ(next.sDescription.GetText(), "Direct Debit - Rent");
    EXPECT_STREQ(next.sAmount.GetText(), "3.00");
    EXPECT_EQ(next.boxes, QMEntryBoxes{.bExpense = true});
}

TEST(QMTransactionEntryFlow, AnEntryThatTheCallerRefusesStaysInTheArray)
{
    EntryArgs args({QMTransaction()}, true);
    args.UseCommit();
    args.bAccepts = false;
    QMTransactionEntry entry(args.block);
    QMEntryFields fields = entry.Begin();
    fields.dtDate = fields.dtCleared = MakeDate("5/6/2007");
    fields.sAmount = "20";
    ASSERT_EQ(entry.Accept(fields), nullptr);
    EXPECT_FALSE(entry.Commit());
    EXPECT_EQ(TextOf(args.entries[0]), "5/6/2007 0 20.00");
}

// ---- Moving.

TEST(QMTransactionEntryFlow, MovesStayWithinTheArray)
{
    for (int32_t nCount = 1; nCount <= 4; ++nCount) {
        EntryArgs args(std::vector<QMTransaction>(static_cast<size_t>(nCount)));
        for (int32_t nFrom = 0; nFrom < nCount; ++nFrom) {
            const std::vector<std::pair<QMEntryMove, int32_t>> moves = {
                {QMEntryMove::First, 0},
                {QMEntryMove::Previous, nFrom == 0 ? 0 : nFrom - 1},
                {QMEntryMove::Next, nFrom == nCount - 1 ? nFrom : nFrom + 1},
                {QMEntryMove::Last, nCount - 1}};
            for (const auto& [move, nTo] : moves) {
                QMTransactionEntry entry(args.block);
                for (int32_t n = 0; n < nFrom; ++n) {
                    entry.Move(QMEntryMove::Next);
                }
                ASSERT_EQ(entry.GetIndex(), nFrom);
                EXPECT_EQ(entry.CanMove(move), nTo != nFrom)
                    << nCount << " entries, from entry " << nFrom;
                entry.Move(move);
                EXPECT_EQ(entry.GetIndex(), nTo);
            }
        }
    }
}

TEST(QMTransactionEntryFlow, NothingMovesWhileAdding)
{
    EntryArgs args(std::vector<QMTransaction>(3), true);
    const QMTransactionEntry entry(args.block);
    for (const QMEntryMove move :
         {QMEntryMove::First, QMEntryMove::Previous, QMEntryMove::Next, QMEntryMove::Last}) {
        EXPECT_FALSE(entry.CanMove(move));
    }
}

TEST(QMTransactionEntryFlow, AMoveKeepsWhatWasAcceptedAndShowsTheOther)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK), ProperEntry(QM_TRANS_DEPOSIT, 0)});
    args.UseCommit();
    QMTransactionEntry entry(args.block);
    QMEntryFields fields = entry.Begin();
    fields.sAmount = "44";
    ASSERT_EQ(entry.Accept(fields), nullptr);
    fields = entry.Move(QMEntryMove::Next);
    EXPECT_EQ(fields.lType, QM_TRANS_DEPOSIT);
    EXPECT_STREQ(fields.sNumber.GetText(), "");
    EXPECT_STREQ(fields.sDescription.GetText(), "Deposit");
    EXPECT_STREQ(fields.sAmount.GetText(), "12.50");
    EXPECT_EQ(fields.boxes, QMEntryBoxes{.bCleared = true});
    EXPECT_EQ(args.entries[0].fAmount, 44.0F);
    EXPECT_TRUE(args.commits.empty()) << "a move must not call the function of the caller";
    EXPECT_STREQ(entry.Move(QMEntryMove::First).sAmount.GetText(), "44.00");
}
