// QMColumnTable: the columns of a register, in their order on the screen.
#pragma once

#include <cstdint>

#include "account/qmaccountdata.h"

// Bits of a column mask.
inline constexpr uint32_t QM_COLUMN_DATE = 1;
inline constexpr uint32_t QM_COLUMN_NUMBER = 2;
inline constexpr uint32_t QM_COLUMN_DESCRIPTION = 4;
inline constexpr uint32_t QM_COLUMN_DEBIT = 8;
inline constexpr uint32_t QM_COLUMN_CREDIT = 16;
inline constexpr uint32_t QM_COLUMN_BALANCE = 32;
inline constexpr uint32_t QM_COLUMN_MEMO = 64;
inline constexpr uint32_t QM_COLUMN_CATEGORY = 128;
inline constexpr uint32_t QM_COLUMN_TAG = 256;
inline constexpr uint32_t QM_COLUMN_CLEARED = 512;
inline constexpr uint32_t QM_COLUMN_ALL = 1023;

enum QMColumn : int32_t
{
    QM_ENTRY_CLEARED,
    QM_ENTRY_DATE,
    QM_ENTRY_NUMBER,
    QM_ENTRY_DESCRIPTION,
    QM_ENTRY_DEBIT,
    QM_ENTRY_CREDIT,
    QM_ENTRY_BALANCE,
    QM_ENTRY_TAG,
    QM_ENTRY_MEMO,
    QM_ENTRY_CATEGORY,
    QM_ENTRY_FILLER, // takes the width that the others leave
    QM_ENTRY_COUNT,
};

enum class QMAlignment
{
    Left,
    Right,
    Centre
};

// What never changes about a column. The columns Tag and Cleared show marks: they have pictures for
// headings and no text. The filler column has no mask bit and no fields in the header.
struct QMColumnInfo
{
    const char* szName;
    const char* szHeading;
    QMAlignment alignment;
    uint32_t uMask;
    int32_t QMAccountHeader::*pWidth;
    uint8_t QMAccountHeader::*pShown;
};

const QMColumnInfo& QMGetColumnInfo(QMColumn column);

// Whether the header shows the column of that mask bit; false for a bit of no column.
bool QMIsColumnShown(const QMAccountHeader& header, uint32_t uColumn);

// How a register shows its columns at the moment.
class QMColumnTable
{
public:
    // All columns are hidden and have no widths.
    QMColumnTable();

    // Takes visibility and widths from the header. The visible columns get list indices in their
    // order.
    void LoadFrom(const QMAccountHeader& header);

    bool IsVisible(QMColumn column) const { return m_aIndex[column] >= 0; }
    // The index in the list; -1 for a hidden column.
    int32_t GetListIndex(QMColumn column) const { return m_aIndex[column]; }
    // The width in pixels.
    int32_t GetWidth(QMColumn column) const { return m_aWidth[column]; }
    void SetWidth(QMColumn column, int32_t lWidth) { m_aWidth[column] = lWidth; }
    // The visible column that is lPixels to the right of the left edge of the first, by the widths
    // here. Beyond all of them it is the filler.
    QMColumn FindColumnAt(int32_t lPixels) const;
    int32_t GetVisibleCount() const { return m_lVisible; }

private:
    int32_t m_aIndex[QM_ENTRY_COUNT];
    int32_t m_aWidth[QM_ENTRY_COUNT];
    int32_t m_lVisible = 0;
};
