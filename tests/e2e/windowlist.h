// A list in report form of another program. It is read through memory in that program.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/vrect.h"

class WindowList
{
public:
    using Row = std::vector<std::string>;

    WindowList(HANDLE hProcess, HWND hList) : m_hProcess(hProcess), m_hList(hList) {}

    HWND GetHandle() const { return m_hList; }
    HWND GetHeader() const;

    int GetRowCount() const;
    int GetColumnCount() const;
    int GetColumnWidth(int nColumn) const;
    void SetColumnWidth(int nColumn, int nWidth) const;

    // The texts of rows, with all columns.
    std::vector<Row> ReadRows(int nFirst, int nCount) const;
    std::string ReadCell(int nRow, int nColumn) const;
    // The data of rows.
    std::vector<uint32_t> ReadData(int nFirst, int nCount) const;

    // The rows that are selected, and the one with the focus (-1 for none).
    std::vector<int> GetSelectedRows() const;
    int GetFocusedRow() const;
    bool IsRowVisible(int nRow) const;
    // Where a cell is on the screen.
    VRect GetCellRect(int nRow, int nColumn) const;
    // Selects and focuses only this row, as a click does.
    void SelectRow(int nRow) const;
    // Sets the state bits of uMask in a row; -1 means all rows.
    void SetState(int nRow, UINT uState, UINT uMask) const;

    // Clicks in the middle of a cell. uHeld has the MK_ bits of the keys that are held down.
    // Returns at once.
    void Click(int nRow, int nColumn, WPARAM uHeld = 0) const;
    void DoubleClick(int nRow, int nColumn) const;
    // Double-clicks in the first column below the last row.
    void DoubleClickBelow() const;

    // The headings, and their formats (HDF_).
    std::vector<std::string> GetHeadings() const;
    std::vector<int> GetHeadingFormats() const;
    // Sets the width of a column as the end of a drag in the header does.
    void SetHeadingWidth(int nColumn, int nWidth) const;

private:
    struct Heading
    {
        std::string sText;
        int nFormat;
    };
    Heading ReadHeading(int nColumn) const;
    VRect CellInClient(int nRow, int nColumn) const;
    LPARAM CellPoint(int nRow, int nColumn) const;
    void PostDoubleClick(LPARAM lPoint) const;

    HANDLE m_hProcess;
    HWND m_hList;
};
