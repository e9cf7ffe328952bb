#include "register/qmrowtable.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>

bool QMRowTable::RebuildColumns(const QMColumnTable& columns)
{
    DeleteAllRows();
    m_lColumns = columns.GetVisibleCount();
    return true;
}

bool QMRowTable::DeleteAllRows()
{
    m_aCells.clear();
    m_aDecorations.clear();
    m_apBlocks.clear();
    m_uNextUnit = 0;
    m_lSelected = -1;
    return true;
}

bool QMRowTable::SetCapacity(int32_t lRows)
try {
    const auto uRows = static_cast<size_t>(std::max(lRows, 0));
    m_aCells.reserve(uRows * static_cast<size_t>(m_lColumns));
    m_aDecorations.reserve(uRows);
    return true;
} catch (const std::exception&) { // out of memory, or more than a vector holds
    return false;
}

bool QMRowTable::AppendRow()
try {
    m_aCells.resize(m_aCells.size() + static_cast<size_t>(m_lColumns), uNoText);
    m_aDecorations.push_back(0);
    return true;
} catch (const std::exception&) { // out of memory, or more than a vector holds
    return false;
}

bool QMRowTable::InsertRow(int32_t lRow)
{
    if (!AppendRow()) {
        return false;
    }
    const auto lAt = static_cast<ptrdiff_t>(std::clamp(lRow, 0, GetRowCount() - 1));
    const auto itCell = m_aCells.begin() + lAt * m_lColumns;
    std::rotate(itCell, m_aCells.end() - m_lColumns, m_aCells.end());
    std::rotate(m_aDecorations.begin() + lAt, m_aDecorations.end() - 1, m_aDecorations.end());
    return true;
}

void QMRowTable::MoveRow(int32_t lFrom, int32_t lTo)
{
    const auto itFrom = m_aCells.begin() + static_cast<ptrdiff_t>(CellIndex(lFrom, 0));
    std::copy(itFrom, itFrom + m_lColumns,
              m_aCells.begin() + static_cast<ptrdiff_t>(CellIndex(lTo, 0)));
    m_aDecorations[static_cast<size_t>(lTo)] = m_aDecorations[static_cast<size_t>(lFrom)];
}

void QMRowTable::DeleteRows(const int32_t* pRows, int32_t lCount)
{
    m_lSelected = -1;
    int32_t lBegin = 0;
    for (int32_t i = 1; i <= lCount; ++i) {
        if (i == lCount || pRows[i] >= pRows[i - 1]) {
            DeleteFallingRows(pRows + lBegin, i - lBegin);
            lBegin = i;
        }
    }
}

void QMRowTable::DeleteFallingRows(const int32_t* pRows, int32_t lCount)
{
    int32_t lTo = 0;
    for (int32_t lFrom = 0; lFrom < GetRowCount(); ++lFrom) {
        while (lCount > 0 && pRows[lCount - 1] < lFrom) {
            --lCount;
        }
        if (lCount > 0 && pRows[lCount - 1] == lFrom) {
            continue;
        }
        if (lTo != lFrom) {
            MoveRow(lFrom, lTo);
        }
        ++lTo;
    }
    m_aCells.resize(CellIndex(lTo, 0));
    m_aDecorations.resize(static_cast<size_t>(lTo));
}

bool QMRowTable::HasCell(int32_t lRow, int32_t lColumn) const
{
    return HasRow(lRow) && lColumn >= 0 && lColumn < m_lColumns;
}

size_t QMRowTable::CellIndex(int32_t lRow, int32_t lColumn) const
{
    return static_cast<size_t>(lRow) * static_cast<size_t>(m_lColumns) +
           static_cast<size_t>(lColumn);
}

char* QMRowTable::At(uint32_t uPlace) const
{
    const size_t uOffset = size_t{uPlace & (uUnitsPerBlock - 1)} * uUnit;
    return m_apBlocks[uPlace >> uBlockBits].get() + uOffset;
}

uint32_t QMRowTable::Allocate(size_t uSize)
{
    const auto uUnits = static_cast<uint32_t>((uSize + uUnit - 1) / uUnit);
    if (m_apBlocks.empty() || m_uNextUnit + uUnits > uUnitsPerBlock) {
        std::unique_ptr<char[]> pBlock(new (std::nothrow) char[size_t{uUnitsPerBlock} * uUnit]);
        if (pBlock == nullptr || m_apBlocks.size() >= (UINT32_MAX >> uBlockBits)) {
            return uNoText;
        }
        // Place 0 means that a cell has no text, so the first block begins with unit 1.
        m_uNextUnit = m_apBlocks.empty() ? 1 : 0;
        m_apBlocks.push_back(std::move(pBlock));
    }
    const auto uBlock = static_cast<uint32_t>(m_apBlocks.size() - 1);
    const uint32_t uPlace = uBlock << uBlockBits | m_uNextUnit;
    m_uNextUnit += uUnits;
    return uPlace;
}

bool QMRowTable::SetCellText(int32_t lRow, int32_t lColumn, std::string_view text)
try {
    if (!HasCell(lRow, lColumn) || text.size() > UINT16_MAX) {
        return false;
    }
    uint32_t& uPlace = m_aCells[CellIndex(lRow, lColumn)];
    Extent extent = {};
    if (uPlace != uNoText) {
        memcpy(&extent, At(uPlace), sizeof extent);
    }
    if (text.size() > extent.uRoom) {
        const uint32_t uNew = Allocate(sizeof extent + text.size());
        if (uNew == uNoText) {
            return false;
        }
        uPlace = uNew;
        const size_t uUnits = (sizeof extent + text.size() + uUnit - 1) / uUnit;
        const size_t uRoom = uUnits * uUnit - sizeof extent;
        extent.uRoom = static_cast<uint16_t>(std::min<size_t>(uRoom, UINT16_MAX));
    }
    if (uPlace != uNoText) {
        extent.uLength = static_cast<uint16_t>(text.size());
        memcpy(At(uPlace), &extent, sizeof extent);
        text.copy(At(uPlace) + sizeof extent, text.size());
    }
    return true;
} catch (const std::exception&) { // out of memory, or more than a vector holds
    return false;
}

std::string_view QMRowTable::GetCellText(int32_t lRow, int32_t lColumn) const
{
    const uint32_t uPlace = HasCell(lRow, lColumn) ? m_aCells[CellIndex(lRow, lColumn)] : uNoText;
    if (uPlace == uNoText) {
        return {};
    }
    Extent extent;
    memcpy(&extent, At(uPlace), sizeof extent);
    return {At(uPlace) + sizeof extent, extent.uLength};
}

bool QMRowTable::SetDecoration(int32_t lRow, uint32_t uDecoration)
{
    if (!HasRow(lRow)) {
        return false;
    }
    m_aDecorations[static_cast<size_t>(lRow)] = static_cast<uint8_t>(uDecoration);
    return true;
}

uint32_t QMRowTable::GetDecoration(int32_t lRow) const
{
    return HasRow(lRow) ? m_aDecorations[static_cast<size_t>(lRow)] : 0;
}

bool QMRowTable::SelectRow(int32_t lRow)
{
    m_lSelected = HasRow(lRow) ? lRow : -1;
    return m_lSelected >= 0;
}
