#include "exchange/qmimportdialog.h"

#include <algorithm>

#include "resources/resource.h"
#include "toolkit/vmessages.h"

namespace {

constexpr UINT uTicked = INDEXTOSTATEIMAGEMASK(2);
constexpr UINT uUnticked = INDEXTOSTATEIMAGEMASK(1);

// The strip below the list and the controls in it, in pixels.
constexpr int nStripHeight = 40;
constexpr int nControlRise = 32; // from the top of the controls to the bottom of the dialog
constexpr int nControlHeight = 24;
constexpr int nBoxWidth = 98;
constexpr int nImportAllLeft = 8;
constexpr int nClearAllLeft = 114;
constexpr int nButtonWidth = 68;
constexpr int nButtonStep = 76;
// However narrow the dialog is, the buttons stay right of the check boxes.
constexpr int nImportLeast = 294;
constexpr int nCancelLeast = 196;

// Keeps a window from painting until the end of the scope. Then the window is painted once.
class PaintPause
{
public:
    explicit PaintPause(VWindow& window) : m_window(window) { m_window.Send(WM_SETREDRAW, FALSE); }
    PaintPause(const PaintPause&) = delete;
    PaintPause& operator=(const PaintPause&) = delete;
    ~PaintPause()
    {
        m_window.Send(WM_SETREDRAW, TRUE);
        m_window.Invalidate(true);
    }

private:
    VWindow& m_window;
};

bool IsTickChange(const NMLISTVIEW& change)
{
    return (change.uChanged & LVIF_STATE) != 0 &&
           ((change.uOldState ^ change.uNewState) & LVIS_STATEIMAGEMASK) != 0;
}

} // namespace

INT_PTR QMImportDialog::DoModal(HWND hParent, QMTransactionStore& store)
{
    m_pStore = &store;
    const INT_PTR nResult = VDialog::DoModal(hParent, IDD_IMPORT);
    m_pStore = nullptr;
    return nResult == IDC_IMPORT_IMPORT ? nResult : IDCANCEL;
}

// ---- The start.

bool QMImportDialog::OnInitDialog()
{
    const VWaitCursor wait;
    if (!VDialog::OnInitDialog() || !AttachControls() || !MakeList() || !InsertRows()) {
        return false;
    }
    ShowIcon(IDI_QUILLMARK);
    // Without WS_CLIPCHILDREN the dialog would erase the area of the list at each new size, and
    // flicker.
    SetLong(GWL_STYLE, GetLong(GWL_STYLE) | WS_CLIPCHILDREN);
    const VRect client = GetClientRect();
    LayOut(client.GetWidth(), client.GetHeight());
    FocusList();
    return true;
}

bool QMImportDialog::AttachControls()
{
    if (!m_importAll.Attach(GetItem(IDC_IMPORT_ALL)) ||
        !m_clearAll.Attach(GetItem(IDC_IMPORT_CLEARALL)) || !m_cancel.Attach(GetItem(IDCANCEL)) ||
        !m_import.Attach(GetItem(IDC_IMPORT_IMPORT))) {
        return false;
    }
    m_importAll.Enable(true);
    m_clearAll.Enable(true);
    m_importAll.SetCheck(QM_BOX_ON);
    m_clearAll.SetCheck(QM_BOX_ON);
    return true;
}

bool QMImportDialog::MakeList()
{
    constexpr DWORD uStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | LVS_REPORT |
                             LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
    VRect rect = GetClientRect();
    rect.bottom -= nStripHeight;
    if (!m_list.Create(GetHandle(), rect, uStyle, WC_LISTVIEWA, "", IDC_IMPORT_LIST) ||
        !m_list.OnCreate()) {
        return false;
    }
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES | LVS_EX_SUBITEMIMAGES |
                            LVS_EX_DOUBLEBUFFER);
    m_list.SetLineFlag(QM_GRID_VERTICAL, true);
    m_list.SetLineFlag(QM_GRID_HORIZONTAL, false);
    for (int32_t i = 0; i < QM_IMPORT_COUNT; ++i) {
        const QMImportColumnInfo& info = QMGetImportColumnInfo(static_cast<QMImportColumn>(i));
        if (m_list.InsertColumn(i, info.szHeading, info.alignment, info.lWidth) < 0) {
            return false;
        }
    }
    // Only the cleared mark is drawn. The column given for the others has none.
    m_list.SetPaintedColumns(QM_IMPORT_CHECK, QM_IMPORT_CHECK, QM_IMPORT_CLEARED);
    return true;
}

bool QMImportDialog::InsertRows()
{
    const PaintPause pause(m_list);
    m_list.SetItemCount(m_pStore->GetCount());
    int nRow = 0;
    bool bDone = true;
    m_pStore->ForEach(
        [&](const QMTransaction& transaction) { bDone = bDone && InsertRow(nRow++, transaction); });
    SetAllTicks(true);
    return bDone;
}

bool QMImportDialog::InsertRow(int nRow, const QMTransaction& transaction)
{
    if (m_list.InsertItem(nRow, "") != nRow) {
        return false;
    }
    char szBuffer[QM_FIELD_TEXT_SIZE];
    for (int32_t i = QM_IMPORT_DATE; i < QM_IMPORT_FILLER; ++i) {
        const char* szText = QMImportText(transaction, static_cast<QMImportColumn>(i), szBuffer);
        if (*szText != '\0') {
            m_list.SetItemText(nRow, i, szText);
        }
    }
    return m_list.SetItemData(nRow, static_cast<LPARAM>(QMImportDecoration(transaction)));
}

void QMImportDialog::FocusList()
{
    constexpr UINT uState = LVIS_SELECTED | LVIS_FOCUSED;
    m_list.SetItemState(0, uState, uState);
    // The list comes first in the order of the Tab key. Windows may have set the focus to the first
    // control of the template before the list was made.
    SetWindowPos(m_list.GetHandle(), HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    Post(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(m_list.GetHandle()), TRUE);
}

// ---- Sizes.

LRESULT QMImportDialog::OnSize(UINT uType, int nWidth, int nHeight)
{
    LayOut(nWidth, nHeight);
    return VDialog::OnSize(uType, nWidth, nHeight);
}

void QMImportDialog::LayOut(int nWidth, int nHeight)
{
    if (!m_list.IsValid()) {
        return;
    }
    HDWP hMoves = BeginDeferWindowPos(5);
    const auto Place = [&](const VWindow& control, int x, int y, int w, int h) {
        if (hMoves != nullptr) {
            hMoves = DeferWindowPos(hMoves, control.GetHandle(), nullptr, x, y, w, h,
                                    SWP_NOZORDER | SWP_NOACTIVATE);
        }
    };
    if (nWidth >= 3 && nHeight > nStripHeight) {
        Place(m_list, 0, 0, nWidth, nHeight - nStripHeight);
    }
    const int y = nHeight - nControlRise;
    const int nImportLeft = std::max(nImportLeast, nWidth - nButtonStep);
    const int nCancelLeft = std::max(nCancelLeast, nImportLeft - nButtonStep);
    Place(m_importAll, nImportAllLeft, y, nBoxWidth, nControlHeight);
    Place(m_clearAll, nClearAllLeft, y, nBoxWidth, nControlHeight);
    Place(m_import, nImportLeft, y, nButtonWidth, nControlHeight);
    Place(m_cancel, nCancelLeft, y, nButtonWidth, nControlHeight);
    if (hMoves != nullptr) {
        EndDeferWindowPos(hMoves);
    }
    FitFiller(nWidth);
}

void QMImportDialog::FitFiller(int nWidth)
{
    int32_t aWidth[QM_IMPORT_COUNT];
    ReadWidths(aWidth);
    const int32_t lFiller = QMImportFillerWidth(aWidth, nWidth);
    if (lFiller != aWidth[QM_IMPORT_FILLER]) {
        m_list.SetColumnWidth(QM_IMPORT_FILLER, lFiller);
    }
}

void QMImportDialog::ReadWidths(int32_t (&aWidth)[QM_IMPORT_COUNT]) const
{
    for (int32_t i = 0; i < QM_IMPORT_COUNT; ++i) {
        aWidth[i] = m_list.GetColumnWidth(i);
    }
}

// ---- Rows.

bool QMImportDialog::IsTicked(int nRow) const
{
    return m_list.GetItemState(nRow, LVIS_STATEIMAGEMASK) == uTicked;
}

void QMImportDialog::SetAllTicks(bool bTicked)
{
    m_bSetsTicks = true;
    m_list.SetItemState(-1, bTicked ? uTicked : uUnticked, LVIS_STATEIMAGEMASK);
    m_bSetsTicks = false;
}

LRESULT QMImportDialog::OnNotify(UINT /*uId*/, NMHDR* pHeader)
{
    if (pHeader->hwndFrom != m_list.GetHandle()) {
        return V_NOT_HANDLED;
    }
    if (pHeader->code == NM_CLICK) {
        OnListClick(reinterpret_cast<NMITEMACTIVATE*>(pHeader)->ptAction.x);
    } else if (pHeader->code == LVN_ITEMCHANGED && !m_bSetsTicks &&
               IsTickChange(*reinterpret_cast<NMLISTVIEW*>(pHeader))) {
        // The user can tick rows with the space bar as well as with the mouse.
        m_importAll.SetCheck(QM_BOX_MIXED);
    }
    return V_NOT_HANDLED;
}

// Kept: the column under the mouse is looked up as if the list were not scrolled sideways. In a
// scrolled list a click then acts on another column than the one under the mouse.
void QMImportDialog::OnListClick(int nPixels)
{
    if (m_list.GetSelectedCount() == 0) {
        return;
    }
    int32_t aWidth[QM_IMPORT_COUNT];
    ReadWidths(aWidth);
    const QMImportColumn column = QMFindImportColumn(aWidth, nPixels);
    if (column == QM_IMPORT_CHECK) {
        m_importAll.SetCheck(QM_BOX_MIXED);
    } else if (column == QM_IMPORT_CLEARED) {
        ToggleCleared(m_list.GetNextItem(-1, LVNI_FOCUSED));
    }
}

void QMImportDialog::ToggleCleared(int nRow)
{
    const QMTransaction* pTransaction = QMToggleImportCleared(*m_pStore, nRow);
    if (pTransaction == nullptr) {
        return;
    }
    m_clearAll.SetCheck(QM_BOX_MIXED);
    m_list.SetItemData(nRow, static_cast<LPARAM>(QMImportDecoration(*pTransaction)));
    m_list.Send(LVM_REDRAWITEMS, static_cast<WPARAM>(nRow), nRow);
}

// ---- The boxes and buttons.

LRESULT QMImportDialog::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    switch (uId) {
        case IDC_IMPORT_ALL:
            PressImportAll();
            return 0;
        case IDC_IMPORT_CLEARALL:
            PressClearAll();
            return 0;
        case IDC_IMPORT_IMPORT:
            Import();
            return 0;
        default:
            return VDialog::OnCommand(uNotifyCode, uId, hControl);
    }
}

void QMImportDialog::PressImportAll()
{
    const VWaitCursor wait;
    const PaintPause pause(m_list);
    const QMBoxState state = QMNextBoxState(m_importAll.GetCheck());
    m_importAll.SetCheck(state);
    SetAllTicks(state == QM_BOX_ON);
}

void QMImportDialog::PressClearAll()
{
    const VWaitCursor wait;
    const PaintPause pause(m_list);
    const QMBoxState state = QMNextBoxState(m_clearAll.GetCheck());
    m_clearAll.SetCheck(state);
    QMSetImportCleared(*m_pStore, state == QM_BOX_ON);
    // Only the marks change: no text of a row depends on the cleared state.
    int nRow = 0;
    m_pStore->ForEach([&](const QMTransaction& transaction) {
        m_list.SetItemData(nRow++, static_cast<LPARAM>(QMImportDecoration(transaction)));
    });
}

void QMImportDialog::Import()
{
    QMMarkForImport(*m_pStore, [this](int32_t lRow) { return IsTicked(lRow); });
    EndWith(IDC_IMPORT_IMPORT);
}
