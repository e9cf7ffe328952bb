// The smaller parts of reports: groups, dates, the cutting into pages.
#include <gtest/gtest.h>

#include "account/qmeditlist.h"
#include "base/vtext.h"
#include "reports/qmreportcut.h"
#include "reports/qmreportdates.h"
#include "reports/qmreportgroups.h"
#include "reports/qmreportkind.h"
#include "tests/support/support.h"

namespace {

std::vector<std::string> TextsOf(const QMEditList& list)
{
    std::vector<std::string> texts;
    for (const QMEditItem* p = list.First(); p != nullptr; p = QMEditList::Next(p)) {
        texts.emplace_back(p->GetText());
    }
    return texts;
}

void AddMemo(QMTransactionStore& store, const std::string& sMemo, int32_t lType = QM_TRANS_CHECK)
{
    QMTransaction t = MakeTransaction(lType, "1/2/2004", 1);
    VCopyText(t.szMemo, sMemo.c_str());
    VCopyText(t.szCategory, sMemo.c_str());
    VCopyText(t.szDescription, sMemo.c_str());
    AddTo(store, t);
}

QMReportDateChoice MonthOf(int32_t lYear, int32_t lMonth)
{
    QMReportDateChoice choice;
    choice.lYear = lYear;
    choice.lMonthIndex = lMonth - 1;
    return choice;
}

} // namespace

TEST(ReportDates, AnOpenEndIsTheFirstOrTheLastDay)
{
    QMTransactionStore store;
    for (const char* szDate : {"2/10/2004", "3/5/2004", "4/20/2004"}) {
        QMTransaction t = MakeTransaction(QM_TRANS_DEPOSIT, szDate, 1);
        t.lFlags = 0;
        t.dtCleared = QMMakeDate(2005, t.dtDate.wMonth, 1);
        AddTo(store, t);
    }
    const auto Close = [&](uint32_t uKind, bool bOpenFrom, QMDate day) {
        QMDate dtFrom = day;
        QMDate dtTo = day;
        QMCloseRange(store, uKind, bOpenFrom, !bOpenFrom, dtFrom, dtTo);
        EXPECT_TRUE(QMDateIsEqual(bOpenFrom ? dtTo : dtFrom, day));
        return bOpenFrom ? QMDateKey(dtFrom) : QMDateKey(dtTo);
    };
    const QMDate day = QMMakeDate(2004, 3, 1);
    EXPECT_EQ(Close(QM_REPORT_TAX, true, day), QMDateKey(QMMakeDate(2004, 2, 10)));
    EXPECT_EQ(Close(QM_REPORT_TAX, false, day), QMDateKey(QMMakeDate(2004, 4, 20)));
    EXPECT_EQ(Close(QM_REPORT_STATEMENT, true, day), QMDateKey(day));
    EXPECT_EQ(Close(QM_REPORT_STATEMENT, false, day), QMDateKey(QMMakeDate(2005, 4, 1)));
    store.Clear();
    EXPECT_EQ(Close(QM_REPORT_TAX, true, day), QMDateKey(day));
    EXPECT_EQ(Close(QM_REPORT_TAX, false, day), QMDateKey(day));
}

TEST(ReportGroups, AreThoseOfASortedEditList)
{
    std::mt19937 random(3);
    for (const int32_t lLimit : {1, 7, 50, 1000}) {
        QMTransactionStore store;
        for (int i = 0; i < 400; ++i) {
            std::string sText;
            for (auto u = random() % 3; u > 0; --u) {
                sText +=
                    static_cast<char>(random() % 2 != 0 ? 'A' + random() % 50 : 1 + random() % 255);
            }
            AddMemo(store, sText, static_cast<int32_t>(random() % 14) - 1);
        }
        for (const uint32_t uField : {QM_FIELD_PAYEE, QM_FIELD_MEMO, QM_FIELD_CATEGORY}) {
            QMEditList list;
            list.SetFlags(QM_EDIT_ALPHABETICAL);
            store.FillEditList(list, uField, lLimit);
            EXPECT_EQ(QMCollectGroups(store, uField, lLimit), TextsOf(list));
        }
    }
}

TEST(ReportGroups, AreTheThousandMostRecent)
{
    QMTransactionStore store;
    for (int i = 0; i <= QM_REPORT_GROUP_LIMIT; ++i) {
        AddMemo(store, "m" + std::to_string(10000 + i));
    }
    const auto groups = QMCollectGroups(store, QM_FIELD_MEMO, QM_REPORT_GROUP_LIMIT);
    ASSERT_EQ(groups.size(), 1000U);
    EXPECT_EQ(groups[0], "m10001");
}

TEST(ReportDates, AMonthEndsByTheCalendar)
{
    EXPECT_EQ(QMLastDayOfMonth(2004, 2), 29);
    EXPECT_EQ(QMLastDayOfMonth(2003, 2), 28);
    EXPECT_EQ(QMLastDayOfMonth(1900, 2), 28);
    EXPECT_EQ(QMLastDayOfMonth(2000, 2), 29);
    EXPECT_EQ(QMLastDayOfMonth(2003, 4), 30);
    EXPECT_EQ(QMLastDayOfMonth(2003, 12), 31);
    EXPECT_EQ(QMLastDayOfMonth(2003, 0), 0);
    EXPECT_EQ(QMLastDayOfMonth(2003, 13), 0);
}

TEST(ReportDates, AMonthIsTheRangeOfItsDays)
{
    QMDate from;
    QMDate to;
    ASSERT_TRUE(QMReadDateRange(MonthOf(2004, 2), from, to));
    EXPECT_EQ(DateText(from) + " " + DateText(to), "2/1/2004 2/29/2004");
    ASSERT_TRUE(QMReadDateRange(MonthOf(2003, 2), from, to));
    EXPECT_EQ(DateText(from) + " " + DateText(to), "2/1/2003 2/28/2003");
}

TEST(ReportDates, ARangeMayBeOneDayButNotReversed)
{
    QMReportDateChoice choice;
    choice.bMonth = false;
    choice.dtFrom = choice.dtTo = MakeDate("5/6/2004");
    choice.dtFrom.wHour = 9; // the time of day does not count
    QMDate from = MakeDate("1/1/2000");
    QMDate to = MakeDate("1/2/2000");
    EXPECT_TRUE(QMReadDateRange(choice, from, to));
    EXPECT_EQ(DateText(from) + " " + DateText(to), "5/6/2004 5/6/2004");
    choice.dtTo = MakeDate("5/5/2004");
    EXPECT_FALSE(QMReadDateRange(choice, from, to));
    EXPECT_EQ(DateText(from) + " " + DateText(to), "5/6/2004 5/6/2004");
}

TEST(ReportDates, StartWithTheLastYearOfTheAccount)
{
    QMTransactionStore store;
    QMReportStart start = QMReportStartOf(store);
    EXPECT_EQ(start.lFirstYear, 2000);
    EXPECT_EQ(start.lLastYear, 2000);
    EXPECT_EQ(start.lMonthIndex, 0);
    EXPECT_EQ(DateText(start.dtFrom) + " " + DateText(start.dtTo), "1/1/2000 12/31/2000");
    AddTo(store, MakeTransaction(QM_TRANS_FEE, "5/6/1752", 1));
    AddTo(store, MakeTransaction(QM_TRANS_FEE, "9/6/3000", 1));
    start = QMReportStartOf(store);
    EXPECT_EQ(start.lFirstYear, 1752);
    EXPECT_EQ(start.lLastYear, 3000);
    EXPECT_EQ(start.lMonthIndex, 8);
    EXPECT_EQ(DateText(start.dtFrom) + " " + DateText(start.dtTo), "1/1/3000 12/31/3000");
    AddTo(store, MakeTransaction(QM_TRANS_FEE, "77/6/65535", 1));
    EXPECT_EQ(QMReportStartOf(store).lMonthIndex, 0);
}

TEST(ReportCut, IsMadeBetweenLines)
{
    QMReportCut cut;
    ASSERT_TRUE(QMCutReport(13 * 100, 13 * 30 + 12, 13, cut));
    EXPECT_EQ(cut.lStep, 13 * 30);
    EXPECT_EQ(cut.lPages, 4);
    // A line that does not fit goes whole to the next page. A report that fills its pages exactly
    // gets an empty page.
    ASSERT_TRUE(QMCutReport(13 * 30, 13 * 30, 13, cut));
    EXPECT_EQ(cut.lPages, 2);
    ASSERT_TRUE(QMCutReport(13 * 29, 13 * 30, 13, cut));
    EXPECT_EQ(cut.lPages, 1);
    EXPECT_FALSE(QMCutReport(13, 12, 13, cut));
    EXPECT_FALSE(QMCutReport(13, -5, 13, cut));
    EXPECT_FALSE(QMCutReport(13, 100, 0, cut));
}
