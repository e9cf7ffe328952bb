// The columns of a register, in their order on screen.
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
    QM_ENTRY_FILLER, // takes up the width that the others leave
    QM_ENTRY_COUNT,
};

enum class QMAlignment
{
    Left,
    Right,
    Centre
};

// What stands fixed about a column. The two columns of marks have pictures for headings and no
// text; the filler has no mask bit and no fields.
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

// By the column's bit; false for one that is no column's.
bool QMIsColumnShown(const QMAccountHeader& header, uint32_t uColumn);

// How a register shows its columns at the moment.
class QMColumnTable
{
public:
    // All hidden, without widths.
    QMColumnTable();

    // Takes over visibility and widths; the visible columns get their list indices in order.
    void LoadFrom(const QMAccountHeader& header);

    bool IsVisible(QMColumn column) const { return m_aIndex[column] >= 0; }
    // -1 for a hidden column.
    int32_t GetListIndex(QMColumn column) const { return m_aIndex[column]; }
    // Pixels.
    int32_t GetWidth(QMColumn column) const { return m_aWidth[column]; }
    void SetWidth(QMColumn column, int32_t lWidth) { m_aWidth[column] = lWidth; }
    // The visible column at a distance from the left edge of the first, by the widths; the filler
    // behind them all.
    QMColumn FindColumnAt(int32_t lPixels) const;
    int32_t GetVisibleCount() const { return m_lVisible; }

private:
    int32_t m_aIndex[QM_ENTRY_COUNT];
    int32_t m_aWidth[QM_ENTRY_COUNT];
    int32_t m_lVisible = 0;
};
