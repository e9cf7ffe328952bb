#include "printing/vprintpreviewdialog.h"

#include <cstdio>

#include "printing/vprintprogressdialog.h"
#include "resources/resource.h"
#include "toolkit/vapplication.h"
#include "toolkit/vmessages.h"

namespace {

// Kept: the caption is misspelled. Whoever looks for the window by its title finds it by this.
constexpr char szCaption[] = "Print Preivew";

constexpr COLORREF crGround = 0x808080;
constexpr COLORREF crShadow = 0x404040;
constexpr int nPageTextLimit = 64;

// The view's distance from the edges of the window.
constexpr int nMargin = 5;
constexpr int nTopMargin = 31;

constexpr VButtonPicture aPictures[] = {
    {IDC_PREVIEW_FIRST, IDB_ARROW_FIRST, 0},   {IDC_PREVIEW_PREVIOUS, IDB_ARROW_PREVIOUS, 1},
    {IDC_PREVIEW_NEXT, IDB_ARROW_NEXT, 2},     {IDC_PREVIEW_LAST, IDB_ARROW_LAST, 3},
    {IDC_PREVIEW_PRINT, IDB_BUTTON_PRINT, -1}, {IDC_PREVIEW_SETUP, IDB_BUTTON_SETUP, -1},
};

constexpr int anButtons[] = {IDC_PREVIEW_PRINT,    IDC_PREVIEW_SETUP, IDC_PREVIEW_FIRST,
                             IDC_PREVIEW_PREVIOUS, IDC_PREVIEW_NEXT,  IDC_PREVIEW_LAST,
                             IDC_PREVIEW_CLOSE};

void DrawFrame(VDrawingSurface& surface, const VRect& rc)
{
    surface.MoveTo(rc.left, rc.top);
    surface.LineTo(rc.right, rc.top);
    surface.LineTo(rc.right, rc.bottom);
    surface.LineTo(rc.left, rc.bottom);
    surface.LineTo(rc.left, rc.top);
}

} // namespace

// ---- The page box.

LRESULT VPageBox::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_CHAR && (wParam == '\r' || wParam == '\n')) {
        m_bEnter = true;
        SendMessageA(GetParent(), WM_COMMAND, static_cast<WPARAM>(GetDlgCtrlID(hWnd)),
                     reinterpret_cast<LPARAM>(hWnd));
        return 0;
    }
    return VControl::DefaultProc(hWnd, uMessage, wParam, lParam);
}

bool VPageBox::TakeEnter()
{
    const bool bEnter = m_bEnter;
    m_bEnter = false;
    return bEnter;
}

// ---- Coming up.

VPrintPreviewDialog::VPrintPreviewDialog()
    : m_aKeysOfButtons{ScrollKeys(m_view), ScrollKeys(m_view), ScrollKeys(m_view),
                       ScrollKeys(m_view), ScrollKeys(m_view), ScrollKeys(m_view),
                       ScrollKeys(m_view)}
{
    GetFlags().Set(V_FLAG_PAINTS);
    // The controls keep their filters from one opening to the next.
    m_editPage.AddFilter(m_keysOfBox);
    for (int i = 0; i < nButtons; ++i) {
        m_aButtons[i].AddFilter(m_aKeysOfButtons[i]);
    }
}

bool VPrintPreviewDialog::Run(VWindow& owner, const VRect& rcOwner,
                              const VPrintPreviewOperations& operations, void* pUser)
{
    if (operations.pfnRender == nullptr) {
        return false;
    }
    m_rcOwner = rcOwner;
    m_operations = operations;
    m_pUser = pUser;
    m_nCurrentPage = 0;
    m_bPageTextShown = false;
    m_fScale = V_PREVIEW_SCALES[V_PREVIEW_FIRST_SCALE].fScale;
    m_bOpened = false;
    const INT_PTR nResult = DoModal(owner.GetHandle(), IDD_PRINTPREVIEW);
    // Where the owner's end took the window along, nothing of this was given back yet.
    m_view.Detach();
    m_context.ilPages.Destroy();
    return nResult != -1 && m_bOpened;
}

bool VPrintPreviewDialog::OnInitDialog()
{
    SetText(szCaption);
    m_hIcon = LoadIconA(GetApplication().GetResourceModule(), MAKEINTRESOURCEA(IDI_QUILLMARK));
    Send(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(m_hIcon));
    if (!VDialog::OnInitDialog() || !Refresh()) {
        return false;
    }
    VString sCaption(szCaption);
    sCaption.Append(" - ");
    sCaption.Append(m_context.szTitle);
    SetText(sCaption.GetText());
    Move(m_rcOwner);
    if (!AttachControls() || !MakeView()) {
        return false;
    }
    m_nCurrentPage = 0;
    UpdateNavigation();
    ShowPage(true);
    // The system gives the focus to the first control when this returns.
    Post(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetItem(IDC_PREVIEW_CLOSE)), TRUE);
    m_bOpened = true;
    return true;
}

bool VPrintPreviewDialog::AttachControls()
{
    m_arrows.Set(*this, aPictures, IDB_ARROW_STRIP, VButtonPictures::GetLibraryVersion());
    LimitItemText(IDC_PREVIEW_PAGE, nPageTextLimit);
    bool bAll = m_editPage.Attach(GetItem(IDC_PREVIEW_PAGE)) &&
                m_cboScale.Attach(GetItem(IDC_PREVIEW_SCALE));
    for (int i = 0; i < nButtons && bAll; ++i) {
        bAll = m_aButtons[i].Attach(GetItem(anButtons[i]));
    }
    for (const VPreviewScale* pScale = V_PREVIEW_SCALES; pScale->szText != nullptr; ++pScale) {
        m_cboScale.Add(pScale->szText);
    }
    m_cboScale.Select(V_PREVIEW_FIRST_SCALE);
    return bAll;
}

VRect VPrintPreviewDialog::PlaceOfView(int nWidth, int nHeight) const
{
    return {nMargin, nTopMargin, nWidth - nMargin, nHeight - nMargin};
}

bool VPrintPreviewDialog::MakeView()
{
    const VRect client = GetClientRect();
    constexpr DWORD uStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_HSCROLL | WS_VSCROLL;
    if (!m_view.Create(GetHandle(), PlaceOfView(client.right, client.bottom), uStyle, nullptr, "",
                       0)) {
        return false;
    }
    m_view.SetFlags(V_VIEW_CENTRED);
    m_view.SetBackground(crGround);
    return true;
}

// ---- Pages.

bool VPrintPreviewDialog::Refresh()
{
    if (!m_operations.pfnRender(m_pUser, m_context)) {
        return false;
    }
    m_nPageCount = m_context.ilPages.GetImageCount();
    m_nCurrentPage = VHoldPage(m_nCurrentPage, m_nPageCount);
    return true;
}

bool VPrintPreviewDialog::ShowPage(bool bRedraw)
{
    if (m_nPageCount <= 0) {
        return true;
    }
    VBitmap picture;
    if (!Compose(picture)) {
        return false;
    }
    m_view.SetBitmap(picture.Release());
    if (bRedraw) {
        m_view.Redraw();
    } else {
        m_view.Invalidate();
    }
    return true;
}

bool VPrintPreviewDialog::DrawSheet(VDrawingSurface& surface, VBitmap& sheet)
{
    const VSize& size = m_context.sizePhysical;
    const VClientSurface screen(m_view.GetHandle());
    if (!sheet.Attach(CreateCompatibleBitmap(screen.GetHandle(), size.cx, size.cy))) {
        return false;
    }
    const VSelectScope scope(surface, sheet.GetHandle());
    const VSize offset = VPreviewOffset(m_context.sizePhysicalOffset);
    return surface.PatBlt(0, 0, size.cx, size.cy, WHITENESS) &&
           m_context.ilPages.Draw(m_nCurrentPage, surface, offset.cx, offset.cy);
}

bool VPrintPreviewDialog::Compose(VBitmap& picture)
{
    const VClientSurface screen(m_view.GetHandle());
    VMemorySurface paper(screen);
    VMemorySurface target(screen);
    VBitmap sheet;
    if (paper.GetHandle() == nullptr || target.GetHandle() == nullptr || !DrawSheet(paper, sheet)) {
        return false;
    }
    const VSize& size = m_context.sizePhysical;
    const VPreviewPicture layout = VLayOutPreview(size, m_fScale);
    if (!picture.Attach(CreateCompatibleBitmap(screen.GetHandle(), layout.sizePicture.cx,
                                               layout.sizePicture.cy))) {
        return false;
    }
    const VSelectScope paperScope(paper, sheet.GetHandle());
    const VSelectScope targetScope(target, picture.GetHandle());
    const VBrush ground(crGround);
    const VBrush shadow(crShadow);
    target.FillRect({0, 0, layout.sizePicture.cx, layout.sizePicture.cy}, ground.GetHandle());
    const VRect& rc = layout.rcSheet;
    if (target.SetStretchBltMode(HALFTONE) == 0 ||
        !target.StretchBlt(rc.left, rc.top, rc.GetWidth(), rc.GetHeight(), paper, 0, 0, size.cx,
                           size.cy, SRCCOPY)) {
        return false;
    }
    DrawFrame(target, layout.rcFrame);
    target.FillRect(layout.rcShadowRight, shadow.GetHandle());
    target.FillRect(layout.rcShadowBottom, shadow.GetHandle());
    return true;
}

void VPrintPreviewDialog::UpdateNavigation()
{
    char szText[40];
    snprintf(szText, sizeof szText, "%d of %d", static_cast<int>(m_nCurrentPage) + 1,
             static_cast<int>(m_nPageCount));
    SetItemText(IDC_PREVIEW_PAGE, szText);
    m_bPageTextShown = false;
    // Before a button that has the focus is disabled.
    FocusItem(IDC_PREVIEW_CLOSE);
    const VPageButtons useful = VUsefulPageButtons(m_nCurrentPage, m_nPageCount);
    EnableItem(IDC_PREVIEW_FIRST, useful.bFirst);
    EnableItem(IDC_PREVIEW_PREVIOUS, useful.bPrevious);
    EnableItem(IDC_PREVIEW_NEXT, useful.bNext);
    EnableItem(IDC_PREVIEW_LAST, useful.bLast);
}

void VPrintPreviewDialog::TurnTo(int64_t lPage)
{
    const VWaitCursor wait;
    m_nCurrentPage = VHoldPage(lPage, m_nPageCount);
    ShowPage(true);
    UpdateNavigation();
}

// ---- Commands.

LRESULT VPrintPreviewDialog::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    // This window stays enabled while a job that it started runs, and there must be one job alone.
    const bool bPrinting = VPrintProgressDialog::GetRunning() != nullptr;
    switch (uId) {
        case IDC_PREVIEW_CLOSE:
            EndWith(IDCANCEL);
            return 0;
        case IDC_PREVIEW_PRINT:
            if (!bPrinting && m_operations.pfnPrint != nullptr) {
                m_operations.pfnPrint(m_pUser);
                ComeBack();
            }
            return 0;
        case IDC_PREVIEW_SETUP:
            if (!bPrinting && m_operations.pfnSetup != nullptr) {
                OnSetup();
                ComeBack();
            }
            return 0;
        case IDC_PREVIEW_FIRST:
            TurnTo(0);
            return 0;
        case IDC_PREVIEW_PREVIOUS:
            TurnTo(int64_t{m_nCurrentPage} - 1);
            return 0;
        case IDC_PREVIEW_NEXT:
            TurnTo(int64_t{m_nCurrentPage} + 1);
            return 0;
        case IDC_PREVIEW_LAST:
            TurnTo(int64_t{m_nPageCount} - 1);
            return 0;
        case IDC_PREVIEW_SCALE:
            if (uNotifyCode == CBN_SELCHANGE) {
                OnScale();
            }
            return 0;
        case IDC_PREVIEW_PAGE:
            OnPageBox(uNotifyCode);
            return 0;
        default:
            return VDialog::OnCommand(uNotifyCode, uId, hControl);
    }
}

void VPrintPreviewDialog::OnSetup()
{
    if (m_operations.pfnSetup(m_pUser) && Refresh()) {
        ShowPage(true);
        UpdateNavigation();
    }
}

// The dialogs of print and page setup belong to the owner, which is active when they end, and which
// Wine 8 then shows above this window.
void VPrintPreviewDialog::ComeBack()
{
    if (IsValid()) {
        BringWindowToTop(GetHandle());
        SetActiveWindow(GetHandle());
    }
}

void VPrintPreviewDialog::OnScale()
{
    const int nRow = m_cboScale.GetSelection();
    if (nRow >= 0 && V_PREVIEW_SCALES[nRow].fScale != m_fScale) {
        const VWaitCursor wait;
        m_fScale = V_PREVIEW_SCALES[nRow].fScale;
        ShowPage(true);
    }
}

void VPrintPreviewDialog::OnPageBox(UINT uNotifyCode)
{
    if (m_editPage.TakeEnter()) {
        GoToTypedPage();
    } else if (uNotifyCode == EN_SETFOCUS && !m_bPageTextShown) {
        SetItemText(IDC_PREVIEW_PAGE, "");
        m_bPageTextShown = true;
    }
}

void VPrintPreviewDialog::GoToTypedPage()
{
    const uint32_t uPage = VReadPageNumber(GetItemText(IDC_PREVIEW_PAGE).GetText());
    if (uPage == 0) {
        return;
    }
    if (int64_t{uPage} <= m_nPageCount) {
        TurnTo(int64_t{uPage} - 1);
        return;
    }
    char szText[60];
    snprintf(szText, sizeof szText, "Page '%lu' does not exist.",
             static_cast<unsigned long>(uPage));
    MessageBox(GetHandle(), szText, MB_ICONINFORMATION);
}

// ---- Messages.

bool VPrintPreviewDialog::ScrollKeys::Filter(VWindow& /*window*/, UINT uMessage, WPARAM wParam,
                                             LPARAM /*lParam*/, LRESULT& lResult, bool& bHandled)
{
    if (uMessage != WM_KEYDOWN || (wParam != VK_PRIOR && wParam != VK_NEXT)) {
        return true;
    }
    m_view.ScrollByKey(wParam);
    lResult = 0;
    bHandled = true;
    return false;
}

LRESULT VPrintPreviewDialog::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_QUERYDRAGICON) {
        return reinterpret_cast<LRESULT>(m_hIcon);
    }
    if (uMessage == WM_MOUSEWHEEL && m_view.IsValid()) {
        m_view.ScrollByWheel(wParam);
        return TRUE;
    }
    return VDialog::DefaultProc(hWnd, uMessage, wParam, lParam);
}

bool VPrintPreviewDialog::OnPaint(VDrawingSurface& surface)
{
    if (!IsIconic(GetHandle())) {
        return false;
    }
    const VRect client = GetClientRect();
    DrawIcon(surface.GetHandle(), (client.right - GetSystemMetrics(SM_CXICON)) / 2,
             (client.bottom - GetSystemMetrics(SM_CYICON)) / 2, m_hIcon);
    return true;
}

LRESULT VPrintPreviewDialog::OnSize(UINT uType, int nWidth, int nHeight)
{
    if (m_view.IsValid() && nWidth > nMargin && nHeight > nTopMargin) {
        m_view.Move(PlaceOfView(nWidth, nHeight));
    }
    return VDialog::OnSize(uType, nWidth, nHeight);
}

void VPrintPreviewDialog::EndWith(INT_PTR nResult)
{
    m_view.Detach();
    m_context.ilPages.Destroy();
    m_nPageCount = 0;
    VDialog::EndWith(nResult);
}
