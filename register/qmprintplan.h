// QMPrintPlan: how a register is cut into pages, from widths and heights alone.
//
// A register that is wider than the paper makes several strips of columns. The pages go down the
// first strip with all its rows, then down the next.
#pragma once

#include <cstdint>
#include <vector>

#include "base/vrect.h"

// Columns are indices of the column table, rows are the list's. A last one before its first one
// stands for none of them.
struct QMPrintPage
{
    int32_t firstColumn;
    int32_t lastColumn; // may be a hidden column
    int32_t firstRow;
    int32_t lastRow;

    bool operator==(const QMPrintPage&) const = default;
};

struct QMPrintMeasures
{
    VRect rcPrintable;                  // pixels
    std::vector<int32_t> aColumnWidths; // in the order of the table; -1 for a hidden column
    int32_t lRows = 0;
    int32_t lRowHeight = 0;
    int32_t lHeadingHeight = 0;
    int32_t lNamesHeight = 0;  // of the line above the table
    int32_t lNumberHeight = 0; // of the page number
    bool bPageNumbers = false;
    bool bNames = false; // above the table
};

class QMPrintPlan
{
public:
    // Plans for every measure there is, however absurd; false for more pages than a number holds,
    // and for lack of memory.
    bool Make(const QMPrintMeasures& measures);

    int32_t GetPageCount() const { return m_lPages; }
    int32_t GetStripCount() const { return static_cast<int32_t>(m_aStrips.size()); }
    int32_t GetPartCount() const { return static_cast<int32_t>(m_aParts.size()); }
    // From 0 to the count less one.
    QMPrintPage GetPage(int32_t lPage) const;

    // The lower edge of the headings, where the first row of each page begins.
    int32_t GetTableTop() const { return m_lTableTop; }
    // What no row may go beyond.
    int32_t GetLimit() const { return m_lLimit; }

private:
    struct Range
    {
        int32_t lFirst;
        int32_t lLast;
    };

    void FindStrips(const QMPrintMeasures& measures);
    void FindParts(const QMPrintMeasures& measures);

    std::vector<Range> m_aStrips; // of columns
    std::vector<Range> m_aParts;  // of rows
    int32_t m_lPages = 0;
    int32_t m_lTableTop = 0;
    int32_t m_lLimit = 0;
};

// The start of a picture that is centred in a cell, along one axis: the difference of the halves,
// each rounded towards zero, or 0 when the picture is larger.
int32_t QMCentreInCell(int32_t lCell, int32_t lPicture);
