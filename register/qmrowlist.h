// QMRowList: what the register model needs of the list that shows its rows.
#pragma once

#include <cstdint>
#include <string_view>

#include "register/qmcolumntable.h"

// Bits of a row's decoration word, which says in which colour and with which marks the row is
// painted.
inline constexpr uint32_t QM_DECOR_POSITIVE = 1; // the balance shown is 0 or more
inline constexpr uint32_t QM_DECOR_NEGATIVE = 2;
inline constexpr uint32_t QM_DECOR_TAX = 4;
inline constexpr uint32_t QM_DECOR_EXPENSE = 8;
inline constexpr uint32_t QM_DECOR_VOIDED = 16;
inline constexpr uint32_t QM_DECOR_CLEARED = 32;

// Bits of the grid flags: what the list draws.
inline constexpr uint32_t QM_GRID_SHADED = 1;
inline constexpr uint32_t QM_GRID_HORIZONTAL = 2;
inline constexpr uint32_t QM_GRID_VERTICAL = 4;

// Rows are counted from 0. Columns are the list indices of the visible columns, from 0. Each
// operation that returns a bool returns whether it succeeded.
class QMRowList
{
public:
    virtual ~QMRowList() = default;

    // Makes the visible columns of the table. Must be called while the list has no rows.
    virtual bool RebuildColumns(const QMColumnTable& columns) = 0;
    // Gives the filler column the width that the others leave.
    virtual void AdjustFillerColumn() = 0;

    virtual bool DeleteAllRows() = 0;
    // Prepares for that many rows. The number of rows does not change.
    virtual bool SetCapacity(int32_t lRows) = 0;
    virtual bool AppendRow() = 0;
    // Inserts an empty row before lRow, or after the last row when there is no row lRow.
    virtual bool InsertRow(int32_t lRow) = 0;
    // Deletes rows one after another: each number counts in the list as the deletions before it
    // left it. A number of no row is passed over. When the numbers fall from one to the next, this
    // takes one pass. Afterwards no row is selected.
    virtual void DeleteRows(const int32_t* pRows, int32_t lCount) = 0;
    virtual int32_t GetRowCount() const = 0;
    virtual bool SetCellText(int32_t lRow, int32_t lColumn, std::string_view text) = 0;
    virtual bool SetDecoration(int32_t lRow, uint32_t uDecoration) = 0;

    // Selects this row alone, gives it the focus and scrolls it into view.
    virtual bool SelectRow(int32_t lRow) = 0;
    virtual int32_t GetSelectedCount() const = 0;
    // The next selected row after lAfter; -1 when there is none. lAfter need not be a row; -1 finds
    // the first.
    virtual int32_t GetNextSelected(int32_t lAfter) const = 0;

    // Switches one of the QM_GRID_ bits.
    virtual void SetLineFlag(uint32_t uBit, bool bOn) = 0;

    virtual void Repaint() = 0;
};
