// Every report compared with its rules, which are written a second time, and the cases that these
// rules treat in a special way.
#include "reports/qmreport.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/vtext.h"
#include "tests/support/randomaccount.h"
#include "tests/support/reportrules.h"
#include "tests/support/support.h"

namespace {

ReportOrder OrderOf(uint32_t uKind, const char* szFrom = "1/1/2004",
                    const char* szTo = "12/31/2004", const char* szGroup = "All")
{
    ReportOrder order;
    order.uKind = uKind;
    order.dtFrom = MakeDate(szFrom);
    order.dtTo = MakeDate(szTo);
    order.sGroup = szGroup;
    return order;
}

// Draws by the program and by the rules, each on a copy, and compares the two. Returns what was
// drawn.
ReportDrawing DrawBoth(const QMAccountData& account, const ReportOrder& order)
{
    QMAccountData expectedCopy;
    QMAccountData copy;
    EXPECT_TRUE(expectedCopy.AssignFrom(account) && copy.AssignFrom(account));
    const ReportDrawing expected = DrawByRules(expectedCopy, order);
    ReportDrawing drawing = DrawByProgram(copy, order);
    EXPECT_EQ(drawing.bDrawn, expected.bDrawn);
    EXPECT_EQ(drawing.lHeight, expected.lHeight);
    EXPECT_EQ(drawing.acts, expected.acts) << "kind " << order.uKind;
    return drawing;
}

// The texts of those calls that draw one.
std::vector<std::string> TextsOf(const ReportDrawing& drawing)
{
    std::vector<std::string> texts;
    for (const std::string& sAct : drawing.acts) {
        if (sAct.rfind("text", 0) == 0) {
            texts.push_back(sAct.substr(sAct.find('\'') + 1));
            texts.back().pop_back();
        }
    }
    return texts;
}

bool Has(const ReportDrawing& drawing, const std::string& sText)
{
    const auto texts = TextsOf(drawing);
    return std::find(texts.begin(), texts.end(), sText) != texts.end();
}

// The last text before the blank lines at the end. It is a total.
std::string LastText(const ReportDrawing& drawing)
{
    const auto texts = TextsOf(drawing);
    return texts.empty() ? "" : texts.back();
}

// The n-th text after a given one; empty when there is none.
std::string Behind(const ReportDrawing& drawing, const std::string& sText, ptrdiff_t n = 1)
{
    const auto texts = TextsOf(drawing);
    const auto found = std::find(texts.begin(), texts.end(), sText);
    return texts.end() - found > n ? found[n] : "";
}

QMTransaction Entry(int32_t lType, const std::string& sDate, float fAmount, uint32_t uFlags = 0,
                    const std::string& sDescription = "", const char* szMemo = "",
                    const char* szCategory = "")
{
    QMTransaction t = MakeTransaction(lType, sDate, fAmount, uFlags, sDescription);
    VCopyText(t.szMemo, szMemo);
    VCopyText(t.szCategory, szCategory);
    return t;
}

std::string RandomGroup(Random& random, uint32_t uKind)
{
    constexpr const char* apTypes[] = {"Check", "Interest Paid", "ATM Withdrawal", "Fee",
                                       "Nothing"};
    constexpr const char* apTexts[] = {"All", "all", "Rent", "rent", "", "Nowhere", "a"};
    return uKind == QM_REPORT_TYPE ? random.Of(apTypes) : random.Of(apTexts);
}

void CompareAtRandom(uint32_t uSeed, bool bDamaged)
{
    Random random(uSeed);
    QMAccountData account;
    FillAtRandom(account, random, random.Below(60), bDamaged);
    for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT; ++uKind) {
        ReportOrder order = OrderOf(uKind);
        order.sGroup = RandomGroup(random, uKind);
        order.dtFrom = RandomDate(random, false);
        order.dtTo = random.OneIn(2) ? QMMakeDate(2006, 1, 1) : order.dtFrom;
        order.lWidth = random.OneIn(2) ? 651 : static_cast<int32_t>(random.Below(1200));
        order.margins = random.OneIn(2) ? VRect{15, 15, 15, 15} : VRect{72, 0, 72, 0};
        DrawBoth(account, order);
        if (testing::Test::HasFailure()) {
            FAIL() << "seed " << uSeed << ", kind " << uKind;
        }
    }
}

} // namespace

TEST(Report, EqualsItsRulesForRandomAccounts)
{
    for (uint32_t uSeed = 0; uSeed < 150 && !HasFailure(); ++uSeed) {
        CompareAtRandom(uSeed, false);
    }
}

TEST(Report, EqualsItsRulesForDamagedAccounts)
{
    for (uint32_t uSeed = 1000; uSeed < 1150 && !HasFailure(); ++uSeed) {
        CompareAtRandom(uSeed, true);
    }
}

TEST(Report, OfNothingStillHasItsHead)
{
    QMAccountData account;
    VCopyText(account.header.szBankName, "First Bank");
    for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT; ++uKind) {
        const ReportDrawing drawing = DrawBoth(account, OrderOf(uKind, "2/3/2004", "2/3/2004"));
        EXPECT_TRUE(drawing.bDrawn);
        EXPECT_GT(drawing.lHeight, 15);
        EXPECT_TRUE(Has(drawing, std::string("First Bank ") + QMGetReportInfo(uKind)->szName));
        EXPECT_TRUE(Has(drawing, "2/3/2004 - 2/3/2004"));
    }
}

TEST(Report, FailsForAnUnsetDateOrAnUnknownKind)
{
    QMAccountData account;
    for (const auto& date : {QMMakeDate(0, 1, 1), QMMakeDate(2004, 0, 1), QMMakeDate(2004, 1, 0)}) {
        ReportOrder order = OrderOf(QM_REPORT_TAX);
        order.dtFrom = date;
        EXPECT_FALSE(DrawBoth(account, order).bDrawn);
        order = OrderOf(QM_REPORT_TAX);
        order.dtTo = date;
        EXPECT_FALSE(DrawBoth(account, order).bDrawn);
    }
    for (const uint32_t uKind : {9U, QM_REPORT_NONE}) {
        EXPECT_FALSE(DrawByProgram(account, OrderOf(uKind)).bDrawn);
        EXPECT_EQ(QMGetReportInfo(uKind), nullptr);
        EXPECT_FALSE(QMReportHasTextGroups(uKind));
    }
}

TEST(Report, FailsWhereItsHeightHasNoNumber)
{
    // With a font of this height every line is too high.
    class Huge : public ReportRecorder
    {
    public:
        QMReportExtent TextExtent(std::string_view) override { return {1, 1 << 29}; }
    } surface;
    QMAccountData account;
    QMReport report(account);
    report.SetRange(MakeDate("1/1/2004"), MakeDate("12/31/2004"));
    VRect page = {0, 0, 651, 0};
    EXPECT_FALSE(report.Measure(QM_REPORT_STATEMENT, surface, page, {15, 15, 15, 15}));
    EXPECT_EQ(page.bottom, 0);
}

TEST(Report, MovesInWholeLinesOnly)
{
    QMAccountData account;
    Random random(7);
    FillAtRandom(account, random, 40, false);
    for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT; ++uKind) {
        const ReportDrawing drawing = DrawBoth(account, OrderOf(uKind));
        EXPECT_EQ((drawing.lHeight - 15) % drawing.lLineHeight, 0);
    }
}

TEST(Report, AWideAmountWidensTheAmountColumnOnly)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "5/5/2004", 1e12F, 16));
    ReportRecorder recorder;
    QMReport report(account);
    report.SetRange(MakeDate("1/1/2004"), MakeDate("12/31/2004"));
    VRect page = {0, 0, 651, 0};
    ASSERT_TRUE(report.Measure(QM_REPORT_NOT_CLEARED, recorder, page, {}));
    const auto& layout = report.GetLayout();
    const auto Width = [](const char* sz) {
        return RecordedExtent(QMReportFont::Normal, sz).lWidth;
    };
    EXPECT_EQ(layout.lAmountWidth, Width("999999995904.00"));
    EXPECT_EQ(layout.lDebitWidth, Width("$9999999.99"));
    EXPECT_EQ(layout.lCreditWidth, Width("$9999999.99"));
    EXPECT_EQ(layout.lDateWidth, Width("Date Cleared"));
    DrawBoth(account, OrderOf(QM_REPORT_NOT_CLEARED));
}

TEST(Report, EveryKindHasADateColumnForTheWordsDateCleared)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_CHECK, "5/5/2004", 10, 4));
    const int32_t lWidth = RecordedExtent(QMReportFont::Normal, "Date Cleared").lWidth;
    for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT; ++uKind) {
        ReportRecorder recorder;
        QMReport report(account);
        report.SetRange(MakeDate("1/1/2004"), MakeDate("12/31/2004"));
        report.SetGroup(QM_REPORT_ALL_GROUPS);
        VRect page = {0, 0, 651, 0};
        ASSERT_TRUE(report.Measure(uKind, recorder, page, {}));
        EXPECT_EQ(report.GetLayout().lDateWidth, lWidth) << "kind " << uKind;
    }
}

TEST(Report, ALongDescriptionRunsOnUnderTheAmount)
{
    QMAccountData account;
    const std::string sLong(255, 'w');
    AddTo(account.store, Entry(QM_TRANS_CHECK, "5/5/2004", 10, 4, sLong));
    const ReportDrawing drawing = DrawBoth(account, OrderOf(QM_REPORT_TAX));
    EXPECT_EQ(Behind(drawing, sLong), "10.00");
}

TEST(Statement, WithNothingClearedShowsTheBalanceAndSaysSo)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/5/2003", 100));
    AddTo(account.store, Entry(QM_TRANS_CHECK, "6/5/2004", 30, QM_TRANS_FLAG_NOT_CLEARED));
    const ReportDrawing drawing =
        DrawBoth(account, OrderOf(QM_REPORT_STATEMENT, "2/1/2004", "2/28/2004"));
    EXPECT_EQ(Behind(drawing, "Beginning Balance", 2), "100.00");
    EXPECT_EQ(Behind(drawing, "Deposits", 2), "0.00");
    EXPECT_EQ(Behind(drawing, "Ending Balance", 2), "100.00");
    EXPECT_EQ(LastText(drawing), "No statement details available.");
}

// Kept: with nothing cleared in the range, what was cleared after it counts as well.
TEST(Statement, BeforeTheFirstClearedDateBeginsWithTheWholeBalance)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/5/2004", 100));
    AddTo(account.store, Entry(QM_TRANS_FEE, "6/5/2004", 30));
    const ReportDrawing drawing =
        DrawBoth(account, OrderOf(QM_REPORT_STATEMENT, "2/1/2003", "2/28/2003"));
    EXPECT_EQ(Behind(drawing, "Beginning Balance", 2), "70.00");
}

TEST(Statement, BeginsAtTheFirstTransactionInTheRangeClearedOrNot)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/5/2004", 100));
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "3/5/2004", 7, QM_TRANS_FLAG_NOT_CLEARED));
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "4/5/2004", 50));
    const ReportDrawing drawing =
        DrawBoth(account, OrderOf(QM_REPORT_STATEMENT, "3/1/2004", "3/31/2004"));
    EXPECT_EQ(Behind(drawing, "Beginning Balance", 2), "100.00");
    // When the first transaction is in the range, there is nothing before it.
    const ReportDrawing all = DrawBoth(account, OrderOf(QM_REPORT_STATEMENT));
    EXPECT_EQ(Behind(all, "Beginning Balance", 2), "0.00");
}

TEST(Statement, OfChecksAloneHasOneSection)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_CHECK, "1/5/2004", 10));
    AddTo(account.store, Entry(QM_TRANS_CHECK, "1/6/2004", 20));
    const ReportDrawing drawing = DrawBoth(account, OrderOf(QM_REPORT_STATEMENT));
    EXPECT_TRUE(Has(drawing, "Withdrawals:  2 Transactions"));
    EXPECT_TRUE(Has(drawing, "Checks:  2 Transactions"));
    EXPECT_TRUE(Has(drawing, "Other Withdrawals:  0 Transactions"));
    EXPECT_TRUE(Has(drawing, "--- No Transactions ---"));
    EXPECT_EQ(Behind(drawing, "Total Other Withdrawals"), "0.00");
    EXPECT_EQ(Behind(drawing, "Total Withdrawals"), "30.00");
    for (const char* szTitle :
         {"Deposits:  0 Transactions", "Total Deposits", "Total Fees", "Total Interest Paid"}) {
        EXPECT_FALSE(Has(drawing, szTitle)) << szTitle;
    }
}

TEST(Statement, CountsOneInTheSingular)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/5/2004", 10));
    EXPECT_TRUE(Has(DrawBoth(account, OrderOf(QM_REPORT_STATEMENT)), "Deposits:  1 Transaction"));
}

// One that is voided and yet cleared comes from other programs' files; the store itself never
// makes one.
// Kept: only the other withdrawals add up their voided rows too.
TEST(Statement, KeepsARowOfAVoidedOneButNotItsAmount)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_WITHDRAWAL, "1/5/2004", 10));
    AddTo(account.store, Entry(QM_TRANS_WITHDRAWAL, "1/6/2004", 5, QM_TRANS_FLAG_VOIDED));
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/7/2004", 3));
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/8/2004", 4, QM_TRANS_FLAG_VOIDED, "Gone"));
    AddTo(account.store, Entry(QM_TRANS_FEE, "1/9/2004", 6, QM_TRANS_FLAG_VOIDED));
    AddTo(account.store, Entry(QM_TRANS_CHECK, "1/9/2004", 8, QM_TRANS_FLAG_VOIDED, "Nowhere"));
    const ReportDrawing drawing = DrawBoth(account, OrderOf(QM_REPORT_STATEMENT));
    EXPECT_TRUE(Has(drawing, "Other Withdrawals:  1 Transaction"));
    EXPECT_EQ(Behind(drawing, "Total Other Withdrawals"), "15.00");
    EXPECT_EQ(Behind(drawing, "Total Withdrawals"), "10.00");
    EXPECT_TRUE(Has(drawing, "Deposits:  1 Transaction"));
    EXPECT_TRUE(Has(drawing, "Deposit - Gone   (voided)"));
    EXPECT_EQ(Behind(drawing, "Total Deposits"), "3.00");
    EXPECT_FALSE(Has(drawing, "Total Fees"));
    EXPECT_FALSE(Has(drawing, "Nowhere   (voided)"));
}

TEST(Statement, OfVoidedOnesAloneEndsWithItsTitle)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/7/2004", 3, QM_TRANS_FLAG_VOIDED));
    EXPECT_EQ(LastText(DrawBoth(account, OrderOf(QM_REPORT_STATEMENT))), "Statement Details");
}

TEST(Statement, ShadesTheFirstRowOfEachSection)
{
    QMAccountData account;
    for (const int32_t lType : {QM_TRANS_DEPOSIT, QM_TRANS_INTEREST_PAID, QM_TRANS_FEE}) {
        AddTo(account.store, Entry(lType, "1/7/2004", 3));
    }
    const ReportDrawing drawing = DrawBoth(account, OrderOf(QM_REPORT_STATEMENT));
    const auto lFills = std::count_if(drawing.acts.begin(), drawing.acts.end(),
                                      [](const auto& s) { return s.rfind("fill", 0) == 0; });
    EXPECT_EQ(lFills, 3);
}

TEST(GroupedReport, HasAGroupForTextsOutsideTheRange)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/7/2003", 3, 0, "", "", "Home"));
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/8/2003", 3, 0, "", "", "Car"));
    const ReportDrawing drawing = DrawBoth(account, OrderOf(QM_REPORT_CATEGORY));
    EXPECT_EQ(Behind(drawing, "Total - Car:  0 Transactions"), "0.00");
    EXPECT_EQ(Behind(drawing, "Total - Home:  0 Transactions"), "0.00");
    const auto texts = TextsOf(drawing);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "--- No Transactions ---"), 2);
}

TEST(GroupedReport, OfDescriptionsTakesGroupsFromChecksOnly)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/7/2004", 3, 0, "Salary"));
    EXPECT_EQ(LastText(DrawBoth(account, OrderOf(QM_REPORT_DESCRIPTION))), "Description");
    // A text of its own is compared with the field itself.
    const ReportDrawing one =
        DrawBoth(account, OrderOf(QM_REPORT_DESCRIPTION, "1/1/2004", "12/31/2004", "Salary"));
    EXPECT_TRUE(Has(one, "Deposit - Salary"));
    EXPECT_EQ(LastText(one), "3.00");
}

TEST(GroupedReport, LeavesTheOtherSpellingInNoGroup)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/7/2004", 3, 0, "", "", "HOME"));
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/8/2004", 5, 0, "", "", "Home"));
    const ReportDrawing drawing = DrawBoth(account, OrderOf(QM_REPORT_CATEGORY));
    EXPECT_EQ(Behind(drawing, "Total - Home:  1 Transaction"), "5.00");
    EXPECT_FALSE(Has(drawing, "HOME"));
}

TEST(GroupedReport, PutsATotalBelowZeroInParentheses)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_CHECK, "1/7/2004", 50, 0, "", "Loan"));
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/8/2004", 20, 0, "", "Loan"));
    const ReportDrawing drawing = DrawBoth(account, OrderOf(QM_REPORT_MEMO));
    EXPECT_EQ(Behind(drawing, "Subtotals", 1), "(50.00)");
    EXPECT_EQ(Behind(drawing, "Subtotals", 2), "20.00");
    EXPECT_EQ(LastText(drawing), "(30.00)");
}

TEST(GroupedReport, ReadsTheRoundedTotalForParentheses)
{
    QMAccountData account;
    for (const float f : {0.1F, 0.2F}) {
        AddTo(account.store, Entry(QM_TRANS_CHECK, "1/7/2004", f, 0, "", "Loan"));
    }
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/8/2004", 0.3F, 0, "", "Loan"));
    // The sum of the two, as doubles, is a little more than the third.
    EXPECT_LT(0.3 - (0.1 + 0.2), 0);
    EXPECT_EQ(LastText(DrawBoth(account, OrderOf(QM_REPORT_MEMO))), "0.00");
}

TEST(GroupedReport, OfATypeHasOneGroup)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_CHECK, "1/7/2004", 50));
    AddTo(account.store, Entry(QM_TRANS_FEE, "1/8/2004", 20));
    AddTo(account.store, Entry(-1, "1/8/2004", 20));
    const ReportDrawing fees =
        DrawBoth(account, OrderOf(QM_REPORT_TYPE, "1/1/2004", "12/31/2004", "Fee"));
    EXPECT_TRUE(Has(fees, "Total - Fee:  1 Transaction"));
    const ReportDrawing none =
        DrawBoth(account, OrderOf(QM_REPORT_TYPE, "1/1/2004", "12/31/2004", "Nothing"));
    EXPECT_TRUE(Has(none, "Total - Nothing:  0 Transactions"));
}

TEST(FlagReport, OfVoidedOnesListsEveryType)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/7/2004", 50, 17));
    AddTo(account.store, Entry(QM_TRANS_CHECK, "1/8/2004", 20, 17 | 4));
    const ReportDrawing voided = DrawBoth(account, OrderOf(QM_REPORT_VOIDED));
    EXPECT_EQ(Behind(voided, "Total Voided Checks:  2 Transactions"), "70.00");
    for (const uint32_t uKind : {QM_REPORT_TAX, QM_REPORT_NOT_CLEARED}) {
        EXPECT_EQ(LastText(DrawBoth(account, OrderOf(uKind))), "0.00");
    }
}

TEST(FlagReport, OfTaxAddsUpBothSides)
{
    QMAccountData account;
    AddTo(account.store, Entry(QM_TRANS_CHECK, "1/7/2004", 50, 4));
    AddTo(account.store, Entry(QM_TRANS_DEPOSIT, "1/8/2004", 20, 4));
    EXPECT_EQ(LastText(DrawBoth(account, OrderOf(QM_REPORT_TAX))), "70.00");
}

TEST(FlagReport, OfWhatIsNotClearedGoesByTheDate)
{
    QMAccountData account;
    QMTransaction t = Entry(QM_TRANS_CHECK, "1/7/2004", 50, 16);
    t.dtCleared = MakeDate("1/7/2005");
    AddTo(account.store, t);
    const ReportDrawing drawing = DrawBoth(account, OrderOf(QM_REPORT_NOT_CLEARED));
    EXPECT_TRUE(Has(drawing, " 1/ 7/2004"));
    EXPECT_EQ(LastText(drawing), "(50.00)");
}
