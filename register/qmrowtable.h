// QMRowTable: rows of texts in memory, compact enough for a million of them.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "register/qmrowlist.h"

// The texts lie in a few large blocks of memory, so a row needs no allocation of its own. A text
// that is written again takes the place of the old one if it fits there.
class QMRowTable : public QMRowList
{
public:
    bool RebuildColumns(const QMColumnTable& columns) override;
    void AdjustFillerColumn() override {}

    bool DeleteAllRows() override;
    bool SetCapacity(int32_t lRows) override;
    bool AppendRow() override;
    bool InsertRow(int32_t lRow) override;
    void DeleteRows(const int32_t* pRows, int32_t lCount) override;
    int32_t GetRowCount() const override { return static_cast<int32_t>(m_aDecorations.size()); }
    // Returns false for a cell outside the table, for a text of more than 65535 bytes, and when
    // memory ran out.
    bool SetCellText(int32_t lRow, int32_t lColumn, std::string_view text) override;
    bool SetDecoration(int32_t lRow, uint32_t uDecoration) override;

    bool SelectRow(int32_t lRow) override;
    int32_t GetSelectedCount() const override { return m_lSelected < 0 ? 0 : 1; }
    int32_t GetNextSelected(int32_t lAfter) const override
    {
        return m_lSelected > lAfter ? m_lSelected : -1;
    }
    void SetLineFlag(uint32_t /*uBit*/, bool /*bOn*/) override {}
    void Repaint() override {}

    int32_t GetColumnCount() const { return m_lColumns; }
    // The text of a cell, valid until the table changes; empty outside the table.
    std::string_view GetCellText(int32_t lRow, int32_t lColumn) const;
    // The decoration word of a row; 0 outside the table.
    uint32_t GetDecoration(int32_t lRow) const;
    // The selected row; -1 for none.
    int32_t GetSelectedRow() const { return m_lSelected; }

private:
    // Stored before each text.
    struct Extent
    {
        uint16_t uRoom;
        uint16_t uLength;
    };

    bool HasRow(int32_t lRow) const { return lRow >= 0 && lRow < GetRowCount(); }
    bool HasCell(int32_t lRow, int32_t lColumn) const;
    size_t CellIndex(int32_t lRow, int32_t lColumn) const;
    void MoveRow(int32_t lFrom, int32_t lTo);
    void DeleteFallingRows(const int32_t* pRows, int32_t lCount);
    char* At(uint32_t uPlace) const;
    uint32_t Allocate(size_t uSize);

    // Where a text is: the upper bits hold the number of the block, the lower ones the offset in
    // it, in units of uUnit bytes.
    static constexpr uint32_t uUnit = 8;
    static constexpr uint32_t uBlockBits = 17;
    static constexpr uint32_t uUnitsPerBlock = 1U << uBlockBits;
    static constexpr uint32_t uNoText = 0;

    int32_t m_lColumns = 0;
    int32_t m_lSelected = -1;
    std::vector<uint32_t> m_aCells; // the places of the texts, row by row
    std::vector<uint8_t> m_aDecorations;
    std::vector<std::unique_ptr<char[]>> m_apBlocks;
    uint32_t m_uNextUnit = 0; // the next free unit of the last block
};
