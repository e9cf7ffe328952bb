// What the register model needs of the list that shows its rows.
#pragma once

#include <cstdint>
#include <string_view>

#include "register/qmcolumntable.h"

// Bits of a row's decoration word: which colour and marks the row is painted with.
inline constexpr uint32_t QM_DECOR_POSITIVE = 1; // the balance shown is 0 or more
inline constexpr uint32_t QM_DECOR_NEGATIVE = 2;
inline constexpr uint32_t QM_DECOR_TAX = 4;
inline constexpr uint32_t QM_DECOR_EXPENSE = 8;
inline constexpr uint32_t QM_DECOR_VOIDED = 16;
inline constexpr uint32_t QM_DECOR_CLEARED = 32;

// Bits of the grid's flags.
inline constexpr uint32_t QM_GRID_SHADED = 1;
inline constexpr uint32_t QM_GRID_HORIZONTAL = 2;
inline constexpr uint32_t QM_GRID_VERTICAL = 4;

// Rows count from 0; columns are list indices, from 0, of the visible ones. Each operation answers
// whether it succeeded.
class QMRowList
{
public:
    virtual ~QMRowList() = default;

    // Makes the columns anew, those of the table that are visible. Called with no rows in the list.
    virtual bool RebuildColumns(const QMColumnTable& columns) = 0;
    // The filler column takes the width that is left.
    virtual void AdjustFillerColumn() = 0;

    virtual bool DeleteAllRows() = 0;
    // Room for that many rows is wanted; the number of rows stays.
    virtual bool SetCapacity(int32_t lRows) = 0;
    virtual bool AppendRow() = 0;
    // Makes an empty row in front of lRow; behind the last one when there is no such row.
    virtual bool InsertRow(int32_t lRow) = 0;
    // Deletes rows one after another: each number counts in the list that the ones before it left.
    // Numbers of no row are passed over. Falling numbers go in one pass. Nothing is selected then.
    virtual void DeleteRows(const int32_t* pRows, int32_t lCount) = 0;
    virtual int32_t GetRowCount() const = 0;
    virtual bool SetCellText(int32_t lRow, int32_t lColumn, std::string_view text) = 0;
    virtual bool SetDecoration(int32_t lRow, uint32_t uDecoration) = 0;

    // Selects, focuses and brings into view this one row.
    virtual bool SelectRow(int32_t lRow) = 0;
    virtual int32_t GetSelectedCount() const = 0;
    // The next selected row behind lAfter, which need be no row (-1 for the first of all); -1 for
    // none.
    virtual int32_t GetNextSelected(int32_t lAfter) const = 0;

    // QM_GRID_ bits: which lines are drawn.
    virtual void SetLineFlag(uint32_t uBit, bool bOn) = 0;

    virtual void Repaint() = 0;
};
