#include "register/qmcolumntable.h"

#include <algorithm>
#include <iterator>

namespace {

using H = QMAccountHeader;

#define COLUMN(name, heading, alignment, mask)                                          \
    {                                                                                   \
#name, heading, QMAlignment::alignment, mask, &H::lWidth##name, &H::bShow##name \
    }

constexpr QMColumnInfo aColumns[QM_ENTRY_COUNT] = {
    COLUMN(Cleared, "", Centre, QM_COLUMN_CLEARED),
    COLUMN(Date, "Date", Right, QM_COLUMN_DATE),
    COLUMN(Number, "Number", Right, QM_COLUMN_NUMBER),
    COLUMN(Description, "Description", Left, QM_COLUMN_DESCRIPTION),
    COLUMN(Debit, "Debit", Right, QM_COLUMN_DEBIT),
    COLUMN(Credit, "Credit", Right, QM_COLUMN_CREDIT),
    COLUMN(Balance, "Balance", Right, QM_COLUMN_BALANCE),
    COLUMN(Tag, "", Centre, QM_COLUMN_TAG),
    COLUMN(Memo, "Memo", Left, QM_COLUMN_MEMO),
    COLUMN(Category, "Category", Left, QM_COLUMN_CATEGORY),
    {"", "", QMAlignment::Centre, 0, nullptr, nullptr},
};

#undef COLUMN

} // namespace

const QMColumnInfo& QMGetColumnInfo(QMColumn column)
{
    return aColumns[column];
}

bool QMIsColumnShown(const QMAccountHeader& header, uint32_t uColumn)
{
    for (const QMColumnInfo& info : aColumns) {
        if (info.uMask == uColumn && info.pShown != nullptr) {
            return header.*info.pShown != 0;
        }
    }
    return false;
}

QMColumnTable::QMColumnTable()
{
    std::fill(std::begin(m_aIndex), std::end(m_aIndex), -1);
    std::fill(std::begin(m_aWidth), std::end(m_aWidth), 0);
}

void QMColumnTable::LoadFrom(const QMAccountHeader& header)
{
    m_lVisible = 0;
    for (int32_t i = 0; i < QM_ENTRY_COUNT; ++i) {
        const QMColumnInfo& info = aColumns[i];
        const bool bVisible = info.pShown == nullptr || header.*info.pShown != 0;
        m_aIndex[i] = bVisible ? m_lVisible++ : -1;
        m_aWidth[i] = info.pWidth == nullptr ? 0 : header.*info.pWidth;
    }
}

QMColumn QMColumnTable::FindColumnAt(int32_t lPixels) const
{
    int32_t lRight = 0;
    for (int32_t i = 0; i < QM_ENTRY_FILLER; ++i) {
        const auto column = static_cast<QMColumn>(i);
        if (!IsVisible(column)) {
            continue;
        }
        lRight += m_aWidth[i];
        if (lPixels < lRight) {
            return column;
        }
    }
    return QM_ENTRY_FILLER;
}
