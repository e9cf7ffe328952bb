#include "tests/e2e/windowlist.h"

#include <algorithm>

#include "tests/e2e/remoteprocess.h"
#include "tests/e2e/wait.h"
#include "tests/e2e/windowaccess.h"

namespace {

constexpr size_t uTextSize = 300;
constexpr int nBatch = 64; // rows whose texts are fetched at once

// A question to the list, and room for its answer, in the memory of the other program.
struct Cell
{
    LVITEMA item;
    char szText[uTextSize];
};

WPARAM AsIndex(int nIndex)
{
    return static_cast<WPARAM>(nIndex);
}

} // namespace

HWND WindowList::GetHeader() const
{
    auto* hHeader = reinterpret_cast<HWND>(SendTo(m_hList, LVM_GETHEADER));
    if (!IsWindow(hHeader)) {
        FailTest("the list has lost its header window");
    }
    return hHeader;
}

int WindowList::GetRowCount() const
{
    return static_cast<int>(SendTo(m_hList, LVM_GETITEMCOUNT));
}

int WindowList::GetColumnCount() const
{
    return static_cast<int>(SendTo(GetHeader(), HDM_GETITEMCOUNT));
}

int WindowList::GetColumnWidth(int nColumn) const
{
    return static_cast<int>(SendTo(m_hList, LVM_GETCOLUMNWIDTH, AsIndex(nColumn)));
}

void WindowList::SetColumnWidth(int nColumn, int nWidth) const
{
    SendTo(m_hList, LVM_SETCOLUMNWIDTH, AsIndex(nColumn), nWidth);
}

std::vector<WindowList::Row> WindowList::ReadRows(int nFirst, int nCount) const
{
    const int nColumns = GetColumnCount();
    const auto uCells = static_cast<size_t>(nColumns * nBatch);
    RemoteMemory memory(m_hProcess, uCells * sizeof(Cell));
    std::vector<Cell> cells(uCells);
    std::vector<Row> rows;
    for (int nBegin = nFirst; nBegin < nFirst + nCount; nBegin += nBatch) {
        const int nRows = std::min(nBatch, nFirst + nCount - nBegin);
        for (size_t u = 0; u < uCells; ++u) {
            cells[u] = {};
            cells[u].item.iSubItem = static_cast<int>(u) % nColumns;
            cells[u].item.pszText = memory.At(u * sizeof(Cell) + offsetof(Cell, szText));
            cells[u].item.cchTextMax = uTextSize;
        }
        memory.Write(0, cells.data(), uCells * sizeof(Cell));
        for (int i = 0; i < nRows * nColumns; ++i) {
            SendTo(m_hList, LVM_GETITEMTEXTA, AsIndex(nBegin + i / nColumns),
                   memory.AsParameter(static_cast<size_t>(i) * sizeof(Cell)));
        }
        memory.Read(0, cells.data(), uCells * sizeof(Cell));
        for (int i = 0; i < nRows * nColumns; ++i) {
            if (i % nColumns == 0) {
                rows.emplace_back();
            }
            rows.back().emplace_back(cells[static_cast<size_t>(i)].szText);
        }
    }
    return rows;
}

std::string WindowList::ReadCell(int nRow, int nColumn) const
{
    RemoteMemory memory(m_hProcess, sizeof(Cell));
    Cell cell = {};
    cell.item.iSubItem = nColumn;
    cell.item.pszText = memory.At(offsetof(Cell, szText));
    cell.item.cchTextMax = uTextSize;
    memory.Write(0, &cell, sizeof cell);
    SendTo(m_hList, LVM_GETITEMTEXTA, AsIndex(nRow), memory.AsParameter());
    memory.Read(0, &cell, sizeof cell);
    return cell.szText;
}

std::vector<uint32_t> WindowList::ReadData(int nFirst, int nCount) const
{
    const auto uCount = static_cast<size_t>(nCount);
    if (uCount == 0) {
        return {};
    }
    RemoteMemory memory(m_hProcess, uCount * sizeof(LVITEMA));
    std::vector<LVITEMA> items(uCount);
    for (size_t u = 0; u < uCount; ++u) {
        items[u] = {};
        items[u].mask = LVIF_PARAM;
        items[u].iItem = nFirst + static_cast<int>(u);
    }
    memory.Write(0, items.data(), uCount * sizeof(LVITEMA));
    for (size_t u = 0; u < uCount; ++u) {
        SendTo(m_hList, LVM_GETITEMA, 0, memory.AsParameter(u * sizeof(LVITEMA)));
    }
    memory.Read(0, items.data(), uCount * sizeof(LVITEMA));
    std::vector<uint32_t> data;
    for (const LVITEMA& item : items) {
        data.push_back(static_cast<uint32_t>(item.lParam));
    }
    return data;
}

std::vector<int> WindowList::GetSelectedRows() const
{
    std::vector<int> rows;
    for (int nRow = -1;;) {
        nRow = static_cast<int>(SendTo(m_hList, LVM_GETNEXTITEM, AsIndex(nRow), LVNI_SELECTED));
        if (nRow < 0) {
            return rows;
        }
        rows.push_back(nRow);
    }
}

int WindowList::GetFocusedRow() const
{
    return static_cast<int>(SendTo(m_hList, LVM_GETNEXTITEM, AsIndex(-1), LVNI_FOCUSED));
}

bool WindowList::IsRowVisible(int nRow) const
{
    const int nTop = static_cast<int>(SendTo(m_hList, LVM_GETTOPINDEX));
    const int nFit = static_cast<int>(SendTo(m_hList, LVM_GETCOUNTPERPAGE));
    return nRow >= nTop && nRow < nTop + nFit;
}

void WindowList::SetState(int nRow, UINT uState, UINT uMask) const
{
    RemoteMemory memory(m_hProcess, sizeof(LVITEMA));
    LVITEMA item = {};
    item.state = uState;
    item.stateMask = uMask;
    memory.Write(0, &item, sizeof item);
    SendTo(m_hList, LVM_SETITEMSTATE, AsIndex(nRow), memory.AsParameter());
}

void WindowList::SelectRow(int nRow) const
{
    constexpr UINT uBoth = LVIS_SELECTED | LVIS_FOCUSED;
    SetState(-1, 0, LVIS_SELECTED);
    SetState(nRow, uBoth, uBoth);
}

// ---- The mouse.

VRect WindowList::CellInClient(int nRow, int nColumn) const
{
    RemoteMemory memory(m_hProcess, sizeof(RECT));
    // The record says what is wanted: all of the row (LVIR_BOUNDS).
    RECT row = {LVIR_BOUNDS, 0, 0, 0};
    memory.Write(0, &row, sizeof row);
    if (SendTo(m_hList, LVM_GETITEMRECT, AsIndex(nRow), memory.AsParameter()) == 0) {
        FailTest("no row " + std::to_string(nRow) + " in the list");
    }
    memory.Read(0, &row, sizeof row);
    int nX = row.left;
    for (int i = 0; i < nColumn; ++i) {
        nX += GetColumnWidth(i);
    }
    return {nX, row.top, nX + GetColumnWidth(nColumn), row.bottom};
}

VRect WindowList::GetCellRect(int nRow, int nColumn) const
{
    const VRect cell = CellInClient(nRow, nColumn);
    POINT origin = {0, 0};
    ClientToScreen(m_hList, &origin);
    return {cell.left + origin.x, cell.top + origin.y, cell.right + origin.x,
            cell.bottom + origin.y};
}

LPARAM WindowList::CellPoint(int nRow, int nColumn) const
{
    const VRect cell = CellInClient(nRow, nColumn);
    return MAKELPARAM((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2);
}

void WindowList::Click(int nRow, int nColumn, WPARAM uHeld) const
{
    const LPARAM lPoint = CellPoint(nRow, nColumn);
    PostMessageA(m_hList, WM_LBUTTONDOWN, MK_LBUTTON | uHeld, lPoint);
    PostMessageA(m_hList, WM_LBUTTONUP, uHeld, lPoint);
}

void WindowList::PostDoubleClick(LPARAM lPoint) const
{
    PostMessageA(m_hList, WM_LBUTTONDOWN, MK_LBUTTON, lPoint);
    PostMessageA(m_hList, WM_LBUTTONUP, 0, lPoint);
    PostMessageA(m_hList, WM_LBUTTONDBLCLK, MK_LBUTTON, lPoint);
    PostMessageA(m_hList, WM_LBUTTONUP, 0, lPoint);
}

void WindowList::DoubleClick(int nRow, int nColumn) const
{
    PostDoubleClick(CellPoint(nRow, nColumn));
}

void WindowList::DoubleClickBelow() const
{
    RECT client = {};
    GetClientRect(m_hList, &client);
    PostDoubleClick(MAKELPARAM(GetColumnWidth(0) / 2, client.bottom - 2));
}

// ---- The header.

WindowList::Heading WindowList::ReadHeading(int nColumn) const
{
    struct Question
    {
        HDITEMA item;
        char szText[uTextSize];
    };
    RemoteMemory memory(m_hProcess, sizeof(Question));
    Question question = {};
    question.item.mask = HDI_TEXT | HDI_FORMAT;
    question.item.pszText = memory.At(offsetof(Question, szText));
    question.item.cchTextMax = uTextSize;
    memory.Write(0, &question, sizeof question);
    SendTo(GetHeader(), HDM_GETITEMA, AsIndex(nColumn), memory.AsParameter());
    memory.Read(0, &question, sizeof question);
    return {question.szText, question.item.fmt};
}

std::vector<std::string> WindowList::GetHeadings() const
{
    std::vector<std::string> headings;
    for (int nColumn = 0; nColumn < GetColumnCount(); ++nColumn) {
        headings.push_back(ReadHeading(nColumn).sText);
    }
    return headings;
}

std::vector<int> WindowList::GetHeadingFormats() const
{
    std::vector<int> formats;
    for (int nColumn = 0; nColumn < GetColumnCount(); ++nColumn) {
        formats.push_back(ReadHeading(nColumn).nFormat);
    }
    return formats;
}

void WindowList::SetHeadingWidth(int nColumn, int nWidth) const
{
    RemoteMemory memory(m_hProcess, sizeof(HDITEMA));
    HDITEMA item = {};
    item.mask = HDI_WIDTH;
    item.cxy = nWidth;
    memory.Write(0, &item, sizeof item);
    SendTo(GetHeader(), HDM_SETITEMA, AsIndex(nColumn), memory.AsParameter());
}
