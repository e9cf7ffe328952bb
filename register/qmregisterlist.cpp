#include "register/qmregisterlist.h"

#include <algorithm>
#include <cstring>

#include "resources/resource.h"

bool QMRegisterList::CreateList(VWindow& parent, UINT uId)
{
    constexpr DWORD uStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | LVS_REPORT |
                             LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | LVS_OWNERDATA;
    if (!Create(parent.GetHandle(), parent.GetClientRect(), uStyle, WC_LISTVIEWA, "", uId)) {
        return false;
    }
    SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_SUBITEMIMAGES | LVS_EX_DOUBLEBUFFER);
    return OnCreate();
}

bool QMRegisterList::OnCreate()
{
    return QMGridList::OnCreate() && m_headingCleared.Load(IDB_HEADING_CLEARED) &&
           m_headingTag.Load(IDB_HEADING_TAG);
}

LRESULT QMRegisterList::OnGetDisplayInfo(NMLVDISPINFOA* pInfo, LRESULT& /*lResult*/)
{
    LVITEMA& item = pInfo->item;
    if ((item.mask & LVIF_TEXT) != 0) {
        const std::string_view text = m_rows.GetCellText(item.iItem, item.iSubItem);
        const size_t uLength = std::min(text.size(), sizeof m_szText - 1);
        memcpy(m_szText, text.data(), uLength);
        m_szText[uLength] = '\0';
        item.pszText = m_szText;
    }
    return -1;
}

LRESULT QMRegisterList::OnCustomDraw(NMLVCUSTOMDRAW* pDraw, LRESULT& lResult)
{
    if (pDraw->nmcd.dwDrawStage == CDDS_PREPAINT) {
        m_bChanged = false;
    }
    return QMGridList::OnCustomDraw(pDraw, lResult);
}

LRESULT QMRegisterList::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    const LRESULT lResult = QMGridList::DefaultProc(hWnd, uMessage, wParam, lParam);
    if (uMessage == LVM_GETITEMA || uMessage == LVM_GETITEMW) {
        // A list of the style LVS_OWNERDATA keeps no item data and does not ask for it. So the
        // answer comes from the table.
        auto* pItem = reinterpret_cast<LVITEMA*>(lParam);
        if ((pItem->mask & LVIF_PARAM) != 0) {
            pItem->lParam = static_cast<LPARAM>(m_rows.GetDecoration(pItem->iItem));
        }
    } else if (uMessage == WM_NOTIFY) {
        // The list of Wine 8 does not pass HDN_ITEMCHANGED on to its parent. Here it is caught on
        // the way to the list. The new width is in force by now.
        const UINT uCode = reinterpret_cast<NMHDR*>(lParam)->code;
        if (uCode == HDN_ITEMCHANGEDA || uCode == HDN_ITEMCHANGEDW) {
            SendMessageA(GetParent(), WM_NOTIFY, wParam, lParam);
        }
    }
    return lResult;
}

bool QMRegisterList::RebuildColumns(const QMColumnTable& columns)
{
    m_bChangesColumns = true;
    for (int nColumn = GetColumnCount() - 1; nColumn >= 0; --nColumn) {
        DeleteColumn(nColumn);
    }
    bool bDone = m_rows.RebuildColumns(columns);
    for (int32_t i = 0; i < QM_ENTRY_COUNT && bDone; ++i) {
        const auto column = static_cast<QMColumn>(i);
        if (columns.IsVisible(column)) {
            const QMColumnInfo& info = QMGetColumnInfo(column);
            bDone = InsertColumn(columns.GetListIndex(column), info.szHeading, info.alignment,
                                 columns.GetWidth(column)) >= 0;
        }
    }
    SetHeadingPicture(columns.GetListIndex(QM_ENTRY_CLEARED), m_headingCleared);
    SetHeadingPicture(columns.GetListIndex(QM_ENTRY_TAG), m_headingTag);
    SetPaintedColumns(columns.GetListIndex(QM_ENTRY_BALANCE), columns.GetListIndex(QM_ENTRY_TAG),
                      columns.GetListIndex(QM_ENTRY_CLEARED));
    m_pColumns = &columns;
    m_bChangesColumns = false;
    return bDone;
}

void QMRegisterList::SetHeadingPicture(int nColumn, const VBitmap& picture)
{
    auto* hHeader = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    if (nColumn < 0 || hHeader == nullptr) {
        return;
    }
    HDITEMA item = {};
    item.mask = HDI_BITMAP | HDI_FORMAT;
    item.fmt = HDF_BITMAP | HDF_CENTER;
    item.hbm = picture.GetHandle();
    SendMessageA(hHeader, HDM_SETITEMA, static_cast<WPARAM>(nColumn),
                 reinterpret_cast<LPARAM>(&item));
}

void QMRegisterList::AdjustFillerColumn()
{
    if (m_pColumns == nullptr || m_bChangesColumns) {
        return;
    }
    // The model has put all rows into the table by now, so the control can be told their number.
    if (GetItemCount() != m_rows.GetRowCount()) {
        SetItemCount(m_rows.GetRowCount());
    }
    int nUsed = 0;
    for (int32_t i = 0; i < QM_ENTRY_FILLER; ++i) {
        const auto column = static_cast<QMColumn>(i);
        nUsed +=
            m_pColumns->IsVisible(column) ? GetColumnWidth(m_pColumns->GetListIndex(column)) : 0;
    }
    const int nFiller = m_pColumns->GetListIndex(QM_ENTRY_FILLER);
    const int nWidth = std::max(GetClientRect().right - nUsed, 0);
    if (GetColumnWidth(nFiller) == nWidth) {
        return;
    }
    m_bChangesColumns = true;
    DeleteColumn(nFiller);
    InsertColumn(nFiller + 1, "", QMAlignment::Centre, nWidth);
    m_bChangesColumns = false;
}

int QMRegisterList::WidestText(int nColumn, const int (&anWidths)[256]) const
{
    int nWidest = 0;
    for (int32_t lRow = 0; lRow < m_rows.GetRowCount(); ++lRow) {
        int nWidth = 0;
        for (const char c : m_rows.GetCellText(lRow, nColumn)) {
            nWidth += anWidths[static_cast<unsigned char>(c)];
        }
        nWidest = std::max(nWidest, nWidth);
    }
    return nWidest;
}

void QMRegisterList::AutoSizeAll()
{
    // LVSCW_AUTOSIZE would measure only the rows on the screen, because a list of this style has no
    // texts of its own. So the texts are measured here.
    constexpr int nMargins = 12; // left and right of a text together, as the control leaves them
    VClientSurface surface(GetHandle());
    const VSelectScope font(surface, reinterpret_cast<HGDIOBJ>(Send(WM_GETFONT)));
    int anWidths[256];
    if (m_pColumns == nullptr || !GetCharWidth32A(surface.GetHandle(), 0, 255, anWidths)) {
        return;
    }
    for (int32_t i = 0; i < QM_ENTRY_FILLER; ++i) {
        const int nColumn = m_pColumns->GetListIndex(static_cast<QMColumn>(i));
        if (nColumn < 0) {
            continue;
        }
        const char* szHeading = QMGetColumnInfo(static_cast<QMColumn>(i)).szHeading;
        const int nHeading = surface.TextExtent(szHeading, static_cast<int>(strlen(szHeading))).cx;
        const int nWidest = WidestText(nColumn, anWidths);
        SetColumnWidth(nColumn, nWidest > nHeading ? nWidest + nMargins : LVSCW_AUTOSIZE_USEHEADER);
    }
    AdjustFillerColumn();
}

bool QMRegisterList::DeleteAllRows()
{
    SetItemCount(0);
    return m_rows.DeleteAllRows();
}

bool QMRegisterList::InsertRow(int32_t lRow)
{
    if (!m_rows.InsertRow(lRow)) {
        return false;
    }
    LVITEMA item = {};
    item.iItem = lRow;
    Send(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    SetItemCount(m_rows.GetRowCount());
    return true;
}

void QMRegisterList::DeleteRows(const int32_t* pRows, int32_t lCount)
{
    // The control would send notifications for each single deletion, so it is told only the new
    // number of rows. As after a single deletion, the focus is then on the row that followed, and
    // nothing is selected.
    SetItemState(-1, 0, LVIS_SELECTED);
    m_rows.DeleteRows(pRows, lCount);
    SetItemCount(m_rows.GetRowCount());
    const int32_t lLowest = *std::min_element(pRows, pRows + lCount);
    const int32_t lFocus = std::clamp(lLowest, 0, std::max(m_rows.GetRowCount() - 1, 0));
    SetItemState(lFocus, LVIS_FOCUSED, LVIS_FOCUSED);
}

void QMRegisterList::MarkChanged()
{
    if (!m_bChanged) {
        m_bChanged = true;
        Invalidate();
    }
}

bool QMRegisterList::SetCellText(int32_t lRow, int32_t lColumn, std::string_view text)
{
    MarkChanged();
    return m_rows.SetCellText(lRow, lColumn, text);
}

bool QMRegisterList::SetDecoration(int32_t lRow, uint32_t uDecoration)
{
    MarkChanged();
    return m_rows.SetDecoration(lRow, uDecoration);
}

bool QMRegisterList::SelectRow(int32_t lRow)
{
    constexpr UINT uState = LVIS_SELECTED | LVIS_FOCUSED;
    SetItemState(-1, 0, LVIS_SELECTED);
    return SetItemState(lRow, uState, uState) && EnsureVisible(lRow);
}

int QMRegisterList::GetRowHeight() const
{
    RECT rect = {};
    rect.left = LVIR_BOUNDS;
    return Send(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&rect)) == 0 ? 0
                                                                          : rect.bottom - rect.top;
}

const VBitmap* QMRegisterList::GetHeadingPicture(QMColumn column) const
{
    if (column == QM_ENTRY_CLEARED) {
        return &m_headingCleared;
    }
    return column == QM_ENTRY_TAG ? &m_headingTag : nullptr;
}

bool QMRegisterList::TakeOverWidths(QMColumnTable& columns, QMAccountHeader& header) const
{
    bool bAny = false;
    for (int32_t i = 0; i < QM_ENTRY_FILLER && !m_bChangesColumns; ++i) {
        const auto column = static_cast<QMColumn>(i);
        if (!columns.IsVisible(column)) {
            continue;
        }
        const int nWidth = GetColumnWidth(columns.GetListIndex(column));
        if (nWidth != columns.GetWidth(column)) {
            columns.SetWidth(column, nWidth);
            header.*QMGetColumnInfo(column).pWidth = nWidth;
            bAny = true;
        }
    }
    return bAny;
}
