// QMStatement: the report that a user compares with the bank's statement. Its dates are the days on
// which transactions were cleared.
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

// The sections of the details.
enum class QMStatementGroup : int32_t
{
    None = -1, // an unknown type
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
    // The store must be in the order of the dates cleared. selected holds its transactions that
    // were cleared in the range. Both must live longer than this object.
    QMStatement(const QMTransactionStore& store, const QMReportRows& selected, const QMDate& dtFrom,
                const QMDate& dtTo);

    // One pass, to measure or to draw. It widens the Amount column of the layout for the values of
    // the summary, so the pass that measures must come first. Always returns true.
    bool Draw(QMReportPage& page) const;

    double GetValue(QMSummaryRow row) const { return m_aValue[row]; }
    // How many transactions count in the summary. Voided transactions that are cleared have rows
    // but do not count.
    int32_t GetCount(QMStatementGroup group) const;

private:
    // A section: its titles, and what it lists.
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
    // Draws the rows. Returns their sum, which only the pass that draws works out.
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
