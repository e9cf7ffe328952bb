#include "shell/qmprogressdialog.h"

#include "resources/resource.h"
#include "toolkit/vmodalowner.h"

namespace {

constexpr int nParts = 1000; // of the progress bar

} // namespace

QMProgressDialog::QMProgressDialog(HWND hOwner, const char* szTask)
    : m_hOwner(VModalOwner(hOwner)), m_sTask(szTask), m_uNext(GetTickCount() + uDelay)
{}

QMProgressDialog::~QMProgressDialog()
{
    // The owner must be enabled before this window closes. Otherwise Windows would activate a
    // window of another program.
    if (m_bDisabled) {
        EnableWindow(m_hOwner, TRUE);
    }
    const bool bFocus = IsValid() && GetActiveWindow() == GetHandle();
    Detach();
    if (bFocus && IsWindow(m_hFocus)) {
        ::SetFocus(m_hFocus);
    }
}

bool QMProgressDialog::OnStep(uint64_t uDone, uint64_t uTotal)
{
    // GetTickCount starts again at 0 after 49 days, so only differences may be compared.
    if (static_cast<LONG>(GetTickCount() - m_uNext) < 0) {
        return m_bNoReturn || !m_bCancelled;
    }
    if (!m_bOpen) {
        Open();
    }
    if (IsValid() && uTotal > 0) {
        SendItem(IDC_PROGRESS_BAR, PBM_SETPOS, static_cast<WPARAM>(uDone * nParts / uTotal));
    }
    Answer();
    m_uNext = GetTickCount() + uPause;
    return m_bNoReturn || !m_bCancelled;
}

void QMProgressDialog::Open()
{
    m_bOpen = true;
    m_hFocus = ::GetFocus();
    m_bDisabled = !EnableWindow(m_hOwner, FALSE);
    if (CreateModeless(m_hOwner, IDD_PROGRESS)) {
        Show();
    }
}

bool QMProgressDialog::OnInitDialog()
{
    SetItemText(IDC_PROGRESS_TASK, m_sTask.GetText());
    SendItem(IDC_PROGRESS_BAR, PBM_SETRANGE32, 0, nParts);
    if (m_bNoReturn) {
        DisableCancel();
    }
    return VDialog::OnInitDialog();
}

void QMProgressDialog::OnNoReturn()
{
    m_bNoReturn = true;
    if (IsValid()) {
        DisableCancel();
    }
}

void QMProgressDialog::DisableCancel()
{
    EnableItem(IDCANCEL, false);
    EnableMenuItem(GetSystemMenu(GetHandle(), FALSE), SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
}

void QMProgressDialog::Answer()
{
    MSG message = {};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // WM_QUIT must end the message loop to which this work returns, not this one.
            PostQuitMessage(static_cast<int>(message.wParam));
            m_bCancelled = true;
            return;
        }
        if (!IsValid() || !IsDialogMessageA(GetHandle(), &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

bool QMProgressDialog::OnCancel()
{
    if (!m_bNoReturn) {
        m_bCancelled = true;
        DisableCancel();
    }
    return false;
}

bool QMProgressDialog::OnClose(bool bForced)
{
    return bForced ? VDialog::OnClose(true) : OnCancel();
}
