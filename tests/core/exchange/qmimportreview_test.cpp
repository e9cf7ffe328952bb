#include "exchange/qmimportreview.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "register/qmrowlist.h"
#include "tests/support/support.h"

namespace {

constexpr uint32_t uNotCleared = QM_TRANS_FLAG_NOT_CLEARED;

using Widths = int32_t[QM_IMPORT_COUNT];

// The widths that a new list has.
constexpr Widths aDefaultWidths = {50, 30, 55, 50, 250, 60, 60, 240, 240, 256};

QMImportColumn ColumnAt(size_t uIndex)
{
    return static_cast<QMImportColumn>(uIndex);
}

std::string TextIn(const QMTransaction& transaction, QMImportColumn column)
{
    char szBuffer[QM_FIELD_TEXT_SIZE] = "left from before";
    EXPECT_EQ(QMImportText(transaction, column, szBuffer), szBuffer);
    return szBuffer;
}

std::vector<std::string> TextsOf(const QMTransaction& transaction)
{
    std::vector<std::string> texts;
    for (size_t u = 0; u < QM_IMPORT_COUNT; ++u) {
        texts.push_back(TextIn(transaction, ColumnAt(u)));
    }
    return texts;
}

// Transactions of these flags, one day after the other.
void Fill(QMTransactionStore& store, const std::vector<uint32_t>& flags)
{
    for (size_t u = 0; u < flags.size(); ++u) {
        AddTo(store, MakeTransaction(QM_TRANS_DEPOSIT, "3/" + std::to_string(u + 1) + "/2004", 1,
                                     flags[u]));
    }
}

std::vector<uint32_t> FlagsOf(const QMTransactionStore& store)
{
    std::vector<uint32_t> flags;
    store.ForEach([&](const QMTransaction& transaction) { flags.push_back(transaction.lFlags); });
    return flags;
}

} // namespace

TEST(QMImportReview, HasTenColumnsInTheirFixedOrder)
{
    const QMImportColumnInfo aExpected[] = {
        {"", QMAlignment::Centre, 50},           {"Cleared", QMAlignment::Centre, 30},
        {"Date", QMAlignment::Right, 55},        {"Number", QMAlignment::Right, 50},
        {"Description", QMAlignment::Left, 250}, {"Debit", QMAlignment::Right, 60},
        {"Credit", QMAlignment::Right, 60},      {"Memo", QMAlignment::Left, 240},
        {"Category", QMAlignment::Left, 240},    {"", QMAlignment::Centre, 256},
    };
    ASSERT_EQ(std::size(aExpected), size_t{QM_IMPORT_COUNT});
    for (size_t u = 0; u < std::size(aExpected); ++u) {
        const QMImportColumnInfo& info = QMGetImportColumnInfo(ColumnAt(u));
        EXPECT_STREQ(info.szHeading, aExpected[u].szHeading) << "column " << u;
        EXPECT_EQ(info.alignment, aExpected[u].alignment) << "column " << u;
        EXPECT_EQ(info.lWidth, aExpected[u].lWidth) << "column " << u;
    }
}

TEST(QMImportReview, FindsTheColumnUnderAPosition)
{
    const struct
    {
        int32_t lPixels;
        QMImportColumn column;
    } aCases[] = {
        {0, QM_IMPORT_CHECK},      {49, QM_IMPORT_CHECK},        {50, QM_IMPORT_CLEARED},
        {79, QM_IMPORT_CLEARED},   {80, QM_IMPORT_DATE},         {135, QM_IMPORT_NUMBER},
        {184, QM_IMPORT_NUMBER},   {185, QM_IMPORT_DESCRIPTION}, {434, QM_IMPORT_DESCRIPTION},
        {435, QM_IMPORT_DEBIT},    {495, QM_IMPORT_CREDIT},      {555, QM_IMPORT_MEMO},
        {795, QM_IMPORT_CATEGORY}, {1034, QM_IMPORT_CATEGORY},   {1035, QM_IMPORT_FILLER},
        {1290, QM_IMPORT_FILLER},  {1291, QM_IMPORT_COUNT},      {-1, QM_IMPORT_COUNT},
    };
    for (const auto& test : aCases) {
        EXPECT_EQ(QMFindImportColumn(aDefaultWidths, test.lPixels), test.column)
            << "pixels " << test.lPixels;
    }
}

TEST(QMImportReview, FindsNoColumnOfNoWidth)
{
    const Widths aWidths = {0, 30, 0, 50};
    EXPECT_EQ(QMFindImportColumn(aWidths, 0), QM_IMPORT_CLEARED);
    EXPECT_EQ(QMFindImportColumn(aWidths, 30), QM_IMPORT_NUMBER);
    EXPECT_EQ(QMFindImportColumn(aWidths, 80), QM_IMPORT_COUNT);
}

TEST(QMImportReview, LeavesTheFillerWhatTheOthersDoNotTake)
{
    EXPECT_EQ(QMImportFillerWidth(aDefaultWidths, 1500), 465);
    EXPECT_EQ(QMImportFillerWidth(aDefaultWidths, 1036), 1);
    EXPECT_EQ(QMImportFillerWidth(aDefaultWidths, 1035), 0);
    EXPECT_EQ(QMImportFillerWidth(aDefaultWidths, 300), 0);
    EXPECT_EQ(QMImportFillerWidth(aDefaultWidths, 0), 0);
}

TEST(QMImportReview, ShowsACheckOnTheDebitSide)
{
    QMTransaction check = MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 12.5F, uNotCleared, "Rent");
    check.lNumber = 123;
    strcpy(check.szMemo, "March");
    strcpy(check.szCategory, "Home");
    const std::vector<std::string> expected = {"",           "", " 3/14/04", "  123", "Rent",
                                               "     12.50", "", "March",    "Home",  ""};
    EXPECT_EQ(TextsOf(check), expected);
}

TEST(QMImportReview, ShowsADepositOnTheCreditSide)
{
    const QMTransaction deposit =
        MakeTransaction(QM_TRANS_DEPOSIT, "12/1/1999", 1000, uNotCleared, "Pay");
    const std::vector<std::string> expected = {
        "", "", "12/ 1/99", "     ", "Deposit - Pay", "", "   1000.00", "", "", ""};
    EXPECT_EQ(TextsOf(deposit), expected);
}

TEST(QMImportReview, ShowsEachTypeOnOneSide)
{
    const std::set<int32_t> debits = {0, 2, 3, 5, 7, 8, 10};
    for (int32_t lType = 0; lType < 12; ++lType) {
        const QMTransaction transaction = MakeTransaction(lType, "3/14/2004", 3);
        const bool bDebit = debits.count(lType) != 0;
        EXPECT_EQ(TextIn(transaction, QM_IMPORT_DEBIT), bDebit ? "      3.00" : "")
            << "type " << lType;
        EXPECT_EQ(TextIn(transaction, QM_IMPORT_CREDIT), bDebit ? "" : "      3.00")
            << "type " << lType;
    }
}

TEST(QMImportReview, TellsAVoidedOneByItsSuffix)
{
    const QMTransaction voided =
        MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 1, QM_TRANS_FLAG_VOIDED | uNotCleared, "Rent");
    EXPECT_EQ(TextIn(voided, QM_IMPORT_DESCRIPTION), "Rent   (voided)");
    EXPECT_EQ(QMImportDecoration(voided), 0U);
}

TEST(QMImportReview, ShowsNothingOfAnUnknownType)
{
    const QMTransaction unknown = MakeTransaction(12, "3/14/2004", 1, uNotCleared, "Rent");
    EXPECT_EQ(TextsOf(unknown), std::vector<std::string>(QM_IMPORT_COUNT));
}

TEST(QMImportReview, MarksTheClearedAndNothingElse)
{
    EXPECT_EQ(QMImportDecoration(MakeTransaction(0, "3/14/2004", 1, uNotCleared)), 0U);
    for (const uint32_t uFlags : {0U, QM_TRANS_FLAG_VOIDED, QM_TRANS_FLAG_EXPENSE,
                                  QM_TRANS_FLAG_TAX, QM_TRANS_FLAG_IMPORT}) {
        EXPECT_EQ(QMImportDecoration(MakeTransaction(0, "3/14/2004", 1, uFlags)), 32U)
            << "flags " << uFlags;
        EXPECT_EQ(QMImportDecoration(MakeTransaction(0, "3/14/2004", 1, uFlags | uNotCleared)), 0U)
            << "flags " << uFlags;
    }
}

TEST(QMImportReview, StepsABoxFromMixedToOn)
{
    EXPECT_EQ(QMNextBoxState(0), QM_BOX_ON);
    EXPECT_EQ(QMNextBoxState(1), QM_BOX_OFF);
    EXPECT_EQ(QMNextBoxState(2), QM_BOX_ON);
}

TEST(QMImportReview, TogglesOneRowsClearedState)
{
    QMTransactionStore store;
    Fill(store, {uNotCleared, QM_TRANS_FLAG_TAX | uNotCleared, uNotCleared});
    const QMTransaction* pToggled = QMToggleImportCleared(store, 1);
    ASSERT_NE(pToggled, nullptr);
    EXPECT_EQ(pToggled, store.GetCurrentNode());
    EXPECT_EQ(QMImportDecoration(*pToggled), QM_DECOR_CLEARED);
    EXPECT_EQ(FlagsOf(store), (std::vector<uint32_t>{uNotCleared, QM_TRANS_FLAG_TAX, uNotCleared}));
    EXPECT_EQ(QMImportDecoration(*QMToggleImportCleared(store, 1)), 0U);
    EXPECT_EQ(FlagsOf(store),
              (std::vector<uint32_t>{uNotCleared, QM_TRANS_FLAG_TAX | uNotCleared, uNotCleared}));
}

// In an account no voided transaction is cleared. The review lets the user make one, because
// imported transactions are taken as they are.
TEST(QMImportReview, TogglesAVoidedOneToo)
{
    QMTransactionStore store;
    Fill(store, {QM_TRANS_FLAG_VOIDED | uNotCleared});
    ASSERT_NE(QMToggleImportCleared(store, 0), nullptr);
    EXPECT_EQ(FlagsOf(store), std::vector<uint32_t>{QM_TRANS_FLAG_VOIDED});
}

TEST(QMImportReview, TogglesNothingWhereNoRowIs)
{
    QMTransactionStore store;
    EXPECT_EQ(QMToggleImportCleared(store, 0), nullptr);
    Fill(store, {uNotCleared, 0});
    EXPECT_EQ(QMToggleImportCleared(store, -1), nullptr);
    EXPECT_EQ(QMToggleImportCleared(store, 2), nullptr);
    EXPECT_EQ(FlagsOf(store), (std::vector<uint32_t>{uNotCleared, 0}));
}

TEST(QMImportReview, SetsAllClearedOrNotCleared)
{
    QMTransactionStore store;
    QMSetImportCleared(store, true);
    EXPECT_TRUE(store.IsEmpty());
    Fill(store, {uNotCleared, QM_TRANS_FLAG_TAX, QM_TRANS_FLAG_VOIDED | uNotCleared});
    QMSetImportCleared(store, true);
    EXPECT_EQ(FlagsOf(store), (std::vector<uint32_t>{0, QM_TRANS_FLAG_TAX, QM_TRANS_FLAG_VOIDED}));
    QMSetImportCleared(store, false);
    EXPECT_EQ(FlagsOf(store), (std::vector<uint32_t>{uNotCleared, QM_TRANS_FLAG_TAX | uNotCleared,
                                                     QM_TRANS_FLAG_VOIDED | uNotCleared}));
}

TEST(QMImportReview, MarksTheTickedRowsAndNoOthers)
{
    constexpr uint32_t uMark = 0x10000000;
    QMTransactionStore store;
    Fill(store, {uNotCleared, uMark, QM_TRANS_FLAG_TAX | uMark, 0});
    std::vector<int32_t> asked;
    QMMarkForImport(store, [&](int32_t lRow) {
        asked.push_back(lRow);
        return lRow % 2 == 0;
    });
    EXPECT_EQ(asked, (std::vector<int32_t>{0, 1, 2, 3}));
    EXPECT_EQ(FlagsOf(store),
              (std::vector<uint32_t>{uNotCleared | uMark, 0, QM_TRANS_FLAG_TAX | uMark, 0}));
}

TEST(QMImportReview, AsksForNoRowOfAnEmptyStore)
{
    QMTransactionStore store;
    QMMarkForImport(store, [](int32_t) {
        ADD_FAILURE();
        return true;
    });
    EXPECT_TRUE(store.IsEmpty());
}
