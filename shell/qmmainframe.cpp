#include "shell/qmmainframe.h"

#include <algorithm>

#include "base/vtext.h"
#include "register/qmregisterpages.h"
#include "resources/resource.h"
#include "toolkit/vapplication.h"
#include "toolkit/vmessages.h"
#include "toolkit/vrect_win.h"

namespace {

bool IsLimited(uint32_t uPeriod)
{
    return uPeriod > QM_ACCNT_DISPLAY_ALL && uPeriod <= QM_ACCNT_DISPLAY_DATE_RANGE;
}

BOOL CALLBACK PassOnSystemColors(HWND hWnd, LPARAM /*lParam*/)
{
    SendMessageA(hWnd, WM_SYSCOLORCHANGE, 0, 0);
    return TRUE;
}

} // namespace

QMMainFrame::QMMainFrame(const char* szArguments) : m_sArguments(szArguments)
{
    HINSTANCE hModule = GetApplication().GetResourceModule();
    m_menu.Load(IDR_MAINMENU);
    m_recentMenu.Attach(::GetSubMenu(m_menu.GetSubMenu(QM_MENU_FILE), QM_FILEMENU_RECENT));
    m_hAccelDocument = LoadAcceleratorsA(hModule, MAKEINTRESOURCEA(IDR_ACCEL_DOCUMENT));
    SetFrameAccelerators(LoadAcceleratorsA(hModule, MAKEINTRESOURCEA(IDR_ACCEL_FRAME)));
    RegisterArrangeCommands({IDM_WINDOW_CASCADE, IDM_WINDOW_TILEHORIZONTAL, IDM_WINDOW_TILEVERTICAL,
                             IDM_WINDOW_PREVIOUS, IDM_WINDOW_NEXT, IDM_FILE_CLOSE,
                             IDM_FILE_CLOSEALL});
    SetMemoryFailure([](VWindow& frame, UINT uMessage, WPARAM wParam) {
        static_cast<QMMainFrame&>(frame).TellOfMemory(uMessage, wParam);
    });
}

QMMainFrame::~QMMainFrame()
{
    HideSplash();
}

int QMMainFrame::Run(DWORD uStyle, int nShowCommand, UINT uClientId, UINT uFirstChildId)
{
    m_uClientId = uClientId;
    m_uFirstChildId = uFirstChildId;
    const bool bFirstStart = m_settings.Load();
    if (bFirstStart || m_settings.HasOption(QM_OPTION_SHOW_SPLASH)) {
        ShowSplash();
    }
    m_sHelpPath = m_settings.GetInstallDirectory();
    m_sHelpPath.AppendCharacter('\\');
    m_sHelpPath.Append(ResourceString(IDS_HELPFILE));
    const VString sTitle = ResourceString(IDS_APPLICATION);
    // The window owns the menu: Windows destroys it with the window.
    if (!CreateFrame(m_menu.Release(), sTitle.GetText(), GetFirstPlace(), uStyle, IDC_REBAR,
                     IDC_STATUSBAR)) {
        return 0;
    }
    if (!IsVisible()) {
        Show(nShowCommand);
    }
    return RunMessageLoop(*this);
}

VRect QMMainFrame::GetFirstPlace() const
{
    const VRect place = m_settings.GetPosition();
    const RECT rect = VToRect(place);
    // The screen on which the user left the frame may be gone.
    return MonitorFromRect(&rect, MONITOR_DEFAULTTONULL) == nullptr ? VRect() : place;
}

bool QMMainFrame::OnInitialize()
{
    HMENU hWindowMenu = m_menu.GetSubMenu(QM_MENU_WINDOW);
    if (!VMDIFrameWindow::OnInitialize() ||
        !CreateClient(hWindowMenu, m_uClientId, m_uFirstChildId)) {
        return false;
    }
    SetMainWindow(this);
    MakePrintDocument();
    MakeToolbar();
    MakePeriodBar();
    Show(GetApplication().GetShowCommand());
    RestoreBars();
    m_bRestoring = false;
    RebuildRecentMenu();
    UpdateCommands();
    if (m_pPeriodBar != nullptr) {
        m_pPeriodBar->UpdateDateControls();
    }
    OpenFirstDocuments();
    HideSplash();
    return true;
}

// ---- Printing.

void QMMainFrame::MakePrintDocument()
{
    m_pPrintDocument = std::make_unique<VPrintDocument>(*this);
    m_pPrintDocument->SetRenderCallback(
        [](VPrintContext& context, uintptr_t /*uUser*/, void* pOwner) {
            auto& frame = *static_cast<QMMainFrame*>(pOwner);
            QMRegisterWindow* pActive = frame.GetActiveRegister();
            return pActive != nullptr &&
                   pActive->PrintRegister(context,
                                          frame.m_settings.GetPrintingOptions() & QM_PRINT_ALL);
        },
        0, this);
    QMApplyPageSetup(*m_pPrintDocument, m_settings.ReadPageSetup());
}

void QMMainFrame::SavePageSetup() const
{
    m_settings.WritePageSetup(QMDescribePageSetup(*m_pPrintDocument));
}

void QMMainFrame::OpenFirstDocuments()
{
    const bool bArguments = !m_sArguments.IsEmpty();
    if (!bArguments && !m_settings.HasOption(QM_OPTION_RELOAD_LAST_FILE)) {
        return;
    }
    Show();
    HideSplash();
    // A large account takes long to load. Without this, the bars would stay black until then.
    RedrawWindow(GetHandle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    if (bArguments) {
        ProcessCommandLine(m_sArguments.GetText());
    } else {
        OpenRecent(IDM_FILE_RECENT_FIRST);
    }
}

void QMMainFrame::ShowSplash()
{
    auto pSplash = std::make_unique<VSplashWindow>();
    if (pSplash->ShowBitmap(IDB_SPLASH)) {
        pSplash->GetFlags().Set(V_FLAG_DELETE_SELF);
        m_pSplash = pSplash.release();
    }
}

void QMMainFrame::HideSplash()
{
    // A click closes the splash window and deletes its object.
    if (m_pSplash != nullptr && IsLive(m_pSplash)) {
        m_pSplash->OnClose(true);
    }
    m_pSplash = nullptr;
}

// ---- Bars.

std::unique_ptr<VStatusBar> QMMainFrame::CreateStatusBar()
{
    return std::make_unique<QMStatusBar>();
}

std::unique_ptr<VToolbar> QMMainFrame::CreateToolbar()
{
    return std::make_unique<QMToolbar>();
}

void QMMainFrame::MakeToolbar()
{
    if (GetRebar() == nullptr) {
        return;
    }
    m_pToolbar = CreateToolbar();
    if (!static_cast<QMToolbar&>(*m_pToolbar).CreateToolbar(*GetRebar(), IDC_TOOLBAR)) {
        m_pToolbar.reset();
        return;
    }
    const SIZE size = m_pToolbar->GetMaxSize();
    GetRebar()->AddBand(*m_pToolbar, nullptr, size.cx, size.cy);
    SetMirroredToolbar(m_pToolbar->GetHandle());
}

void QMMainFrame::MakePeriodBar()
{
    if (GetRebar() == nullptr) {
        return;
    }
    m_pPeriodBar = std::make_unique<QMTBTrans>();
    if (!m_pPeriodBar->CreateBar(*GetRebar(), *this, IDC_TRANSACTIONSBAR)) {
        m_pPeriodBar.reset();
        return;
    }
    GetRebar()->AddBand(*m_pPeriodBar, "Transactions", QMTBTrans::nWidth, QMTBTrans::nHeight);
}

void QMMainFrame::RestoreBars()
{
    if (!m_settings.ReloadFlags()) {
        return;
    }
    const DWORD uFlags = m_settings.GetFlags();
    if ((uFlags & QM_FLAG_FRAME_MAXIMIZED) != 0) {
        Maximize();
    }
    if (IsBarVisible(IDC_STATUSBAR) != ((uFlags & QM_FLAG_STATUS_BAR) != 0)) {
        ToggleBar(IDC_STATUSBAR);
    }
    if (IsBarVisible(IDC_TRANSACTIONSBAR) != ((uFlags & QM_FLAG_TRANSACTIONS_BAR) != 0)) {
        ToggleBand(IDC_TRANSACTIONSBAR);
    }
    if (IsBarVisible(IDC_TOOLBAR) != ((uFlags & QM_FLAG_TOOLBAR) != 0)) {
        ToggleBand(IDC_TOOLBAR);
    }
    m_settings.WriteFlags();
}

bool QMMainFrame::TakePeriod(UINT uId)
{
    QMRegisterWindow* pActive = GetActiveRegister();
    if (pActive == nullptr || m_pPeriodBar == nullptr) {
        return false;
    }
    const auto uPeriod = static_cast<uint32_t>(m_pPeriodBar->GetSelection());
    QMDate dtFrom;
    QMDate dtTo;
    if (uPeriod == QM_ACCNT_DISPLAY_DATE_RANGE && !IsLimited(m_uPreviousPeriod)) {
        // A new range of dates starts as that of all transactions.
        pActive->SetPeriod(QM_ACCNT_DISPLAY_ALL, dtFrom, dtTo, false);
        pActive->SetPeriod(QM_ACCNT_DISPLAY_DATE_RANGE, dtFrom, dtTo, true);
        m_pPeriodBar->SetDates(dtFrom, dtTo);
    } else if (IsLimited(uPeriod)) {
        m_pPeriodBar->GetDates(dtFrom, dtTo);
        pActive->SetPeriod(uPeriod, dtFrom, dtTo, true);
    } else {
        pActive->SetPeriod(QM_ACCNT_DISPLAY_ALL, dtFrom, dtTo, true);
    }
    if (uId == IDC_TB_PERIOD) {
        pActive->SetFocus();
    }
    m_uPreviousPeriod = uPeriod;
    return true;
}

// ---- Messages.

bool QMMainFrame::PreTranslate(MSG& message)
{
    // Keys of the documents, such as Ctrl+F4, must not act while the calculator is active.
    if (m_calculator.IsActive()) {
        return false;
    }
    return MoveToOrFromBar(message) ||
           (m_pPeriodBar != nullptr && m_pPeriodBar->PreTranslate(message)) ||
           VMDIFrameWindow::PreTranslate(message);
}

// F6 moves the focus between the register and the Transactions Bar, Esc from the bar to the
// register.
bool QMMainFrame::MoveToOrFromBar(const MSG& message)
{
    QMRegisterWindow* pActive = GetActiveRegister();
    const bool bKey =
        message.message == WM_KEYDOWN && (message.wParam == VK_F6 || message.wParam == VK_ESCAPE);
    if (!bKey || pActive == nullptr || m_pPeriodBar == nullptr ||
        !IsBarVisible(IDC_TRANSACTIONSBAR) || GetKeyState(VK_CONTROL) < 0 ||
        GetKeyState(VK_MENU) < 0) {
        return false;
    }
    const bool bInBar = IsChild(m_pPeriodBar->GetHandle(), message.hwnd) != FALSE;
    if (bInBar && !m_pPeriodBar->IsListOpen()) {
        pActive->SetFocus();
        return true;
    }
    if (!bInBar && message.wParam == VK_F6) {
        m_pPeriodBar->FocusList();
        return true;
    }
    return false;
}

LRESULT QMMainFrame::OnSize(UINT uType, int nWidth, int nHeight)
{
    if (uType == SIZE_RESTORED) {
        NotePlace(true);
    }
    const bool bTold = uType == SIZE_RESTORED || uType == SIZE_MAXIMIZED;
    if (bTold && !m_bRestoring) {
        m_settings.SetFlag(QM_FLAG_FRAME_MAXIMIZED, uType == SIZE_MAXIMIZED);
    }
    return VMDIFrameWindow::OnSize(uType, nWidth, nHeight);
}

void QMMainFrame::NotePlace(bool bExtent)
{
    const VRect place = GetWindowRect();
    if (bExtent) {
        m_settings.WriteExtent(place.GetWidth(), place.GetHeight());
    } else {
        m_settings.WriteOrigin(place.left, place.top);
    }
}

LRESULT QMMainFrame::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_COPYDATA) {
        return TakeArguments(reinterpret_cast<COPYDATASTRUCT*>(lParam));
    }
    if (uMessage == QM_ORDERS_MESSAGE) {
        RunOrders();
        return 0;
    }
    if (uMessage == WM_SYSCOLORCHANGE) {
        // Windows sends it to top-level windows only, and common controls keep copies.
        EnumChildWindows(hWnd, &PassOnSystemColors, 0);
    }
    if (uMessage == WM_SYSCOLORCHANGE || uMessage == WM_SETTINGCHANGE) {
        for (QMRegisterWindow* pDocument : m_apChildren) {
            pDocument->FollowSystemColors();
        }
    }
    if (uMessage == WM_MOVE && !IsIconic(hWnd) && !IsZoomed(hWnd)) {
        NotePlace(false);
    }
    return VMDIFrameWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
}

LRESULT QMMainFrame::TakeArguments(const COPYDATASTRUCT* pData)
{
    // Any process can send this message. Trust only cbData bytes, and end the copy with a zero.
    const VString sText(static_cast<const char*>(pData->lpData), pData->cbData);
    ProcessCommandLine(sText.GetText());
    return 1;
}

LRESULT QMMainFrame::OnNotify(UINT uId, NMHDR* pHeader)
{
    if (pHeader->code == TTN_GETDISPINFOA) {
        ShowTooltip(*reinterpret_cast<NMTTDISPINFOA*>(pHeader));
        return 0;
    }
    return VMDIFrameWindow::OnNotify(uId, pHeader);
}

void QMMainFrame::ShowTooltip(NMTTDISPINFOA& info)
{
    VCopyText(info.szText, GetCommandText(static_cast<UINT>(info.hdr.idFrom)).sTooltip.GetText());
    info.lpszText = info.szText;
}

void QMMainFrame::ShowHelp(const char* szTopic, UINT uCommand)
{
    VString sFile = m_sHelpPath;
    sFile.Append(szTopic);
    m_helpViewer.Call(GetHandle(), sFile.GetText(), uCommand, 0);
}

bool QMMainFrame::OnClose(bool /*bForced*/)
{
    // Even at the end of the Windows session, objects that a running command uses must stay.
    if (IsBusy() || m_bClosing) {
        return false;
    }
    if (IsIconic(GetHandle())) {
        Restore();
    }
    m_bClosing = true;
    const bool bClosed = CloseChildren();
    m_bClosing = false;
    // An order that came while a document was asking is carried out first.
    if (!bClosed || !m_orders.empty()) {
        return false;
    }
    WinHelpA(GetHandle(), nullptr, HELP_QUIT, 0);
    DestroyWindow(GetHandle());
    PostQuitMessage(0);
    return true;
}

// ---- Children.

QMRegisterWindow* QMMainFrame::GetActiveRegister() const
{
    return static_cast<QMRegisterWindow*>(GetActiveChild());
}

VString QMMainFrame::TakeUntitledName()
{
    VString sName("Untitled");
    sName.AppendNumber(m_uNextUntitled++);
    return sName;
}

void QMMainFrame::OnChildCreated(VMDIChildWindow& child)
{
    m_apChildren.push_back(static_cast<QMRegisterWindow*>(&child));
}

void QMMainFrame::SetChildMaximized(bool bMaximized)
{
    m_settings.SetFlag(QM_FLAG_CHILD_MAXIMIZED, bMaximized);
}

void QMMainFrame::OnChildActivated(VMDIChildWindow& child)
{
    if (m_pPeriodBar != nullptr) {
        uint32_t uPeriod = QM_ACCNT_DISPLAY_ALL;
        QMDate dtFrom;
        QMDate dtTo;
        static_cast<QMRegisterWindow&>(child).GetDocument().GetPeriod(uPeriod, dtFrom, dtTo);
        m_pPeriodBar->SetDates(dtFrom, dtTo);
        m_pPeriodBar->SetSelection(static_cast<int32_t>(uPeriod), false);
        m_pPeriodBar->UpdateDateControls();
    }
    SetChildMaximized(child.IsMaximized());
    UpdateCommands();
}

void QMMainFrame::OnChildDeactivated(VMDIChildWindow& child)
{
    SetChildMaximized(child.IsMaximized());
    UpdateCommands();
}

void QMMainFrame::OnChildDestroyed(VMDIChildWindow& child)
{
    m_apChildren.erase(std::remove(m_apChildren.begin(), m_apChildren.end(), &child),
                       m_apChildren.end());
    UpdateCommands();
}

void QMMainFrame::OnChildGone(VMDIChildWindow& /*child*/)
{
    UpdateCommands();
}
