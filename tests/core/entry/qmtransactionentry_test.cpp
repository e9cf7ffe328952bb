#include "entry/qmtransactionentry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/entry_support.h"

namespace {

// ---- The rules, stated a second time as simply as possible.

bool TakesTags(int32_t lType)
{
    return lType == 0 || lType == 5 || lType == 8 || lType == 10;
}

// Each box has a letter: T, E, V, C. A text holds the letters of the boxes that are on, in that
// order.
QMEntryBoxes BoxesFrom(const std::string& sOn)
{
    const auto Has = [&](char c) { return sOn.find(c) != std::string::npos; };
    return {Has('T'), Has('E'), Has('V'), Has('C')};
}

std::string LettersOf(const QMEntryBoxes& boxes)
{
    return std::string(boxes.bTax ? "T" : "") + (boxes.bExpense ? "E" : "") +
           (boxes.bVoided ? "V" : "") + (boxes.bCleared ? "C" : "");
}

// Pressing a box that is on turns only that box off. Pressing one that is off turns it on, and
// turns those off that exclude it.
std::string PressPlainly(const std::string& sOn, char cBox)
{
    if (sOn.find(cBox) != std::string::npos) {
        std::string sLeft = sOn;
        sLeft.erase(sLeft.find(cBox), 1);
        return sLeft;
    }
    std::string sResult;
    for (const char c : std::string("TEVC")) {
        const bool bWasOn = sOn.find(c) != std::string::npos;
        const bool bShutOut = cBox == 'V' || (cBox == 'C' && c == 'V') || (cBox != 'C' && c != 'C');
        if (c == cBox || (bWasOn && !bShutOut)) {
            sResult += c;
        }
    }
    return sResult;
}

// Presses a box as a user does.
std::string Press(QMTransactionEntry& entry, const std::string& sOn, char cBox)
{
    QMEntryBoxes boxes = BoxesFrom(sOn);
    bool& bBox = cBox == 'T'   ? boxes.bTax
                 : cBox == 'E' ? boxes.bExpense
                 : cBox == 'V' ? boxes.bVoided
                               : boxes.bCleared;
    bBox = !bBox;
    entry.ApplyBoxes(boxes);
    return LettersOf(boxes);
}

// Every state that the boxes can be in, also those that the rules forbid.
std::vector<std::string> AllStates()
{
    std::vector<std::string> states;
    for (int n = 0; n < 16; ++n) {
        states.push_back(std::string((n & 1) != 0 ? "T" : "") + ((n & 2) != 0 ? "E" : "") +
                         ((n & 4) != 0 ? "V" : "") + ((n & 8) != 0 ? "C" : ""));
    }
    return states;
}

uint32_t FlagsFor(const std::string& sOn)
{
    const QMEntryBoxes boxes = BoxesFrom(sOn);
    return (boxes.bTax ? 4U : 0U) | (boxes.bExpense ? 2U : 0U) | (boxes.bVoided ? 1U : 0U) |
           (boxes.bCleared ? 0U : 16U);
}

// The fields of the current entry after the user pressed the radio button of another type.
QMEntryFields PressType(QMTransactionEntry& entry, int32_t lType)
{
    QMEntryFields fields = entry.Begin();
    fields.lType = lType;
    entry.ApplyType(fields);
    return fields;
}

} // namespace

TEST(QMTransactionEntry, TypesSwitchNumberDescriptionAndTags)
{
    for (int32_t lType = 0; lType < 12; ++lType) {
        const QMEntrySwitches expected = {.bNumber = lType == 0,
                                          .bDescription = lType == 0,
                                          .bTag = TakesTags(lType),
                                          .bVoided = true,
                                          .bCleared = true};
        EXPECT_EQ(QMSwitchesOfType(lType), expected) << g_typeLabels[static_cast<size_t>(lType)];
    }
    EXPECT_EQ(QMSwitchesOfType(-1), QMEntrySwitches());
    EXPECT_EQ(QMSwitchesOfType(12), QMEntrySwitches());
}

TEST(QMTransactionEntry, ATypePressedDropsTheTagsThatItDoesNotTake)
{
    for (const std::string& sOn : AllStates()) {
        for (int32_t lType = 0; lType < 12; ++lType) {
            EntryArgs args({ProperEntry(QM_TRANS_CHECK, FlagsFor(sOn))});
            QMTransactionEntry entry(args.block);
            ASSERT_EQ(LettersOf(entry.Begin().boxes), sOn);
            std::string sExpected = sOn;
            if (!TakesTags(lType)) {
                std::erase(sExpected, 'T');
                std::erase(sExpected, 'E');
            }
            EXPECT_EQ(LettersOf(PressType(entry, lType).boxes), sExpected)
                << "boxes " << sOn << ", type " << g_typeLabels[static_cast<size_t>(lType)];
        }
    }
}

TEST(QMTransactionEntry, TagsThatWereDroppedDoNotComeBack)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK, 4)});
    QMTransactionEntry entry(args.block);
    QMEntryFields fields = PressType(entry, QM_TRANS_DEPOSIT);
    EXPECT_EQ(LettersOf(fields.boxes), "C");
    fields.lType = QM_TRANS_CHECK;
    entry.ApplyType(fields);
    EXPECT_EQ(LettersOf(fields.boxes), "C");
    entry.ApplyBoxes(fields.boxes);
    EXPECT_EQ(LettersOf(fields.boxes), "C");
}

TEST(QMTransactionEntry, ATypePressedShowsItsNumberAndDescription)
{
    for (int32_t lStored = 0; lStored < 12; ++lStored) {
        for (int32_t lPressed = 0; lPressed < 12; ++lPressed) {
            EntryArgs args({ProperEntry(lStored)});
            QMTransactionEntry entry(args.block);
            const QMEntryFields fields = PressType(entry, lPressed);
            const std::string& sStored = g_typeLabels[static_cast<size_t>(lStored)];
            const std::string& sPressed = g_typeLabels[static_cast<size_t>(lPressed)];
            // The description of a check is that of the stored type, also when a deposit is stored.
            const std::string sExpected = lPressed != 0  ? sPressed
                                          : lStored == 0 ? "Rent"
                                                         : sStored + " - Rent";
            EXPECT_STREQ(fields.sDescription.GetText(), sExpected.c_str());
            EXPECT_STREQ(fields.sNumber.GetText(), lPressed == 0 ? "77" : "");
        }
    }
}

TEST(QMTransactionEntry, CheckPressedOnADepositWithoutTextShowsDeposit)
{
    EntryArgs args({MakeTransaction(QM_TRANS_DEPOSIT, "3/14/2004", 5)});
    QMTransactionEntry entry(args.block);
    EXPECT_STREQ(PressType(entry, QM_TRANS_CHECK).sDescription.GetText(), "Deposit");
}

TEST(QMTransactionEntry, PressingCheckBringsTheStoredNumberAndDescriptionBack)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK)});
    QMTransactionEntry entry(args.block);
    QMEntryFields fields = entry.Begin();
    fields.sNumber = "5";
    fields.sDescription = "typed";
    entry.ApplyType(fields);
    EXPECT_STREQ(fields.sNumber.GetText(), "77");
    EXPECT_STREQ(fields.sDescription.GetText(), "Rent");
}

TEST(QMTransactionEntry, BoxesFollowEverySequenceOfFourPressesFromEveryState)
{
    const std::string sBoxes = "TEVC";
    for (const std::string& sStart : AllStates()) {
        for (int nSequence = 0; nSequence < 4 * 4 * 4 * 4; ++nSequence) {
            EntryArgs args({ProperEntry(QM_TRANS_CHECK, FlagsFor(sStart))});
            QMTransactionEntry entry(args.block);
            std::string sOn = LettersOf(entry.Begin().boxes);
            std::string sPressed = sStart + ":";
            // These cover all shorter sequences, which are their beginnings.
            for (int nRest = nSequence, nPress = 0; nPress < 4; ++nPress, nRest /= 4) {
                const char cBox = sBoxes[static_cast<size_t>(nRest % 4)];
                sPressed += cBox;
                const std::string sExpected = PressPlainly(sOn, cBox);
                sOn = Press(entry, sOn, cBox);
                ASSERT_EQ(sOn, sExpected) << sPressed;
            }
        }
    }
}

TEST(QMTransactionEntry, VoidedTurnsOffAllAndClearedThenVoidedOnly)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK, 4)});
    QMTransactionEntry entry(args.block);
    EXPECT_EQ(LettersOf(entry.Begin().boxes), "TC");
    EXPECT_EQ(Press(entry, "TC", 'V'), "V");
    EXPECT_EQ(Press(entry, "V", 'C'), "C");
    EXPECT_EQ(Press(entry, "C", 'E'), "EC");
}

TEST(QMTransactionEntry, OfSeveralBoxesThatCameOnTheFirstDecides)
{
    for (const std::string& sOn : AllStates()) {
        EntryArgs args({ProperEntry(QM_TRANS_CHECK)});
        QMTransactionEntry entry(args.block);
        entry.Begin();
        QMEntryBoxes boxes = BoxesFrom(sOn);
        entry.ApplyBoxes(boxes);
        EXPECT_EQ(LettersOf(boxes), sOn.substr(0, 1)) << sOn;
    }
}

TEST(QMTransactionEntry, DatesKeepTheirOrder)
{
    const std::vector<std::string> dates = {"12/31/2003", "1/31/2004", "2/1/2004",
                                            "2/29/2004",  "3/14/2004", "1/1/2005"};
    for (const bool bAddMode : {true, false}) {
        EntryArgs args({ProperEntry(QM_TRANS_CHECK)}, bAddMode);
        const QMTransactionEntry entry(args.block);
        for (size_t uDate = 0; uDate < dates.size(); ++uDate) {
            for (size_t uCleared = 0; uCleared < dates.size(); ++uCleared) {
                const QMDate dtDate = MakeDate(dates[uDate]);
                const QMDate dtCleared = MakeDate(dates[uCleared]);
                const size_t uFollows = bAddMode ? uDate : std::max(uDate, uCleared);
                EXPECT_EQ(DateText(entry.ClearedDateFor(dtDate, dtCleared)), dates[uFollows]);
                EXPECT_EQ(DateText(QMTransactionEntry::DateFor(dtDate, dtCleared)),
                          dates[std::min(uDate, uCleared)]);
            }
        }
    }
}

TEST(QMTransactionEntry, DatesCompareByDayAlone)
{
    EntryArgs args({ProperEntry(QM_TRANS_CHECK)});
    const QMTransactionEntry entry(args.block);
    QMDate dtLater = MakeDate("3/14/2004");
    dtLater.wHour = 23;
    const QMDate dtEarlier = MakeDate("3/14/2004");
    EXPECT_EQ(entry.ClearedDateFor(dtLater, dtEarlier).wHour, 0);
    EXPECT_EQ(QMTransactionEntry::DateFor(dtLater, dtEarlier).wHour, 23);
}
