// QMStatement: the report that a user holds against the bank's paper statement. It goes by the day
// on which a transaction was cleared.
#pragma once

#include "reports/qmreportgroups.h"
#include "reports/qmreportpage.h"

// The lines of the summary.
enum QMSummaryRow : int32_t
{
    QM_SUMMARY_BEGINNING = 0,
    QM_SUMMARY_DEPOSITS = 1,
    QM_SUMMARY_WITHDRAWALS = 2,
    QM_SUMMARY_INTEREST = 3,
    QM_SUMMARY_FEES = 4,
    QM_SUMMARY_ENDING = 5,
    QM_SUMMARY_ROW_COUNT = 6,
};

// What the details list apart.
enum class QMStatementGroup : int32_t
{
    None = -1, // a type outside the table
    Deposits = 0,
    Checks = 1,
    OtherWithdrawals = 2,
    Interest = 3,
    Fees = 4,
};
inline constexpr int32_t QM_STATEMENT_GROUP_COUNT = 5;

QMStatementGroup QMStatementGroupOf(int32_t lType);

class QMStatement
{
public:
    // The store is in the order of the dates cleared, and the selected are those of it that were
    // cleared in the range. Both must outlive this.
    QMStatement(const QMTransactionStore& store, const QMReportRows& selected, const QMDate& dtFrom,
                const QMDate& dtTo);

    // One pass, measuring or drawing. Widens the layout's Amount column to the summary's values, so
    // the measuring pass must come first. Always true.
    bool Draw(QMReportPage& page) const;

    double GetValue(QMSummaryRow row) const { return m_aValue[row]; }
    // Those that count in the summary, which is less than the rows where voided ones are cleared.
    int32_t GetCount(QMStatementGroup group) const;

private:
    // A section of its own: how its titles read and what it lists.
    struct Section
    {
        const char* szName;
        QMStatementGroup group;
        QMSummaryRow total;
    };

    void AddUpBeginning(const QMTransactionStore& store, const QMDate& dtFrom, const QMDate& dtTo);
    void AddUp(const QMTransaction& transaction);
    void WidenAmounts(QMReportPage& page) const;

    void DrawTitle(QMReportPage& page, const char* szTitle) const;
    void DrawSummary(QMReportPage& page) const;
    void DrawDetails(QMReportPage& page) const;
    void DrawSection(QMReportPage& page, const Section& section) const;
    void DrawWithdrawals(QMReportPage& page) const;
    // The rows below their heads; the sum is made where it is drawn, in the drawing pass.
    double DrawRows(QMReportPage& page, QMStatementGroup group) const;
    void DrawSubsection(QMReportPage& page, QMStatementGroup group, const char* szName) const;
    void DrawCountTitle(QMReportPage& page, const char* szName, int32_t lCount) const;
    void DrawTotal(QMReportPage& page, const char* szName, double dValue) const;

    const QMReportRows& RowsOf(QMStatementGroup group) const
    {
        return m_aRows[static_cast<int32_t>(group)];
    }

    const QMReportRows& m_selected;
    double m_aValue[QM_SUMMARY_ROW_COUNT] = {};
    int32_t m_aCount[QM_STATEMENT_GROUP_COUNT] = {};
    QMReportRows m_aRows[QM_STATEMENT_GROUP_COUNT];
};
