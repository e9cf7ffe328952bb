#include "register/qmprintplan.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

constexpr int32_t lGap = 4; // above the page number, and below the names

int32_t Bounded(int64_t lNumber)
{
    return static_cast<int32_t>(std::clamp<int64_t>(lNumber, std::numeric_limits<int32_t>::min(),
                                                    std::numeric_limits<int32_t>::max()));
}

} // namespace

bool QMPrintPlan::Make(const QMPrintMeasures& measures)
{
    const int64_t lNames = measures.bNames ? int64_t{measures.lNamesHeight} + lGap : 0;
    const int64_t lNumber = measures.bPageNumbers ? int64_t{measures.lNumberHeight} + lGap : 0;
    m_lTableTop = Bounded(int64_t{measures.rcPrintable.top} + measures.lHeadingHeight + 1 + lNames);
    m_lLimit = Bounded(int64_t{measures.rcPrintable.bottom} - lNumber);
    try {
        FindStrips(measures);
        FindParts(measures);
    } catch (const std::bad_alloc&) {
        return false;
    }
    const int64_t lPages =
        static_cast<int64_t>(m_aStrips.size()) * static_cast<int64_t>(m_aParts.size());
    m_lPages = Bounded(lPages);
    return m_lPages == lPages;
}

void QMPrintPlan::FindStrips(const QMPrintMeasures& measures)
{
    const int64_t lRoom = int64_t{measures.rcPrintable.right} - measures.rcPrintable.left;
    int64_t lUsed = 1;
    m_aStrips.assign(1, {0, -1});
    for (size_t u = 0; u < measures.aColumnWidths.size(); ++u) {
        const auto lColumn = static_cast<int32_t>(u);
        const int64_t lWidth = measures.aColumnWidths[u];
        if (lWidth < 0) {
            continue;
        }
        if (lUsed + lWidth > lRoom) {
            // Kept: a strip ends at the column before this one in the table, which may be hidden.
            // Its pages then have no line at their right edge. And when this is the first column,
            // too wide for the paper, the first strip is empty and prints all the same: page
            // numbers would change without it.
            m_aStrips.back().lLast = lColumn - 1;
            m_aStrips.push_back({lColumn, lColumn});
            lUsed = 1;
        }
        m_aStrips.back().lLast = lColumn;
        // Neighbours share a line.
        lUsed += lWidth - 1;
    }
}

void QMPrintPlan::FindParts(const QMPrintMeasures& measures)
{
    const int64_t lHeight = std::max(measures.lRowHeight, 0);
    int64_t y = m_lTableTop;
    m_aParts.assign(1, {0, -1});
    for (int32_t lRow = 0; lRow < measures.lRows; ++lRow) {
        if (y + lHeight > m_lLimit) {
            // Paper too low for a single row gives each row a page of its own, behind an empty one.
            m_aParts.push_back({lRow, lRow});
            y = m_lTableTop;
        }
        m_aParts.back().lLast = lRow;
        y += lHeight;
    }
}

QMPrintPage QMPrintPlan::GetPage(int32_t lPage) const
{
    const int32_t lParts = GetPartCount();
    const Range& strip = m_aStrips[static_cast<size_t>(lPage / lParts)];
    const Range& part = m_aParts[static_cast<size_t>(lPage % lParts)];
    return {strip.lFirst, strip.lLast, part.lFirst, part.lLast};
}

int32_t QMCentreInCell(int32_t lCell, int32_t lPicture)
{
    return std::max(lCell / 2 - lPicture / 2, 0);
}
