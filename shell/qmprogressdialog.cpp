#include "shell/qmprogressdialog.h"

#include "resources/resource.h"

namespace {

constexpr int nParts = 1000; // of the progress bar

} // namespace

QMProgressDialog::QMProgressDialog(HWND hOwner, const char* szTask)
    : m_hOwner(hOwner), m_sTask(szTask), m_uNext(GetTickCount() + uDelay)
{}

QMProgressDialog::~QMProgressDialog()
{
    // Before the window goes: Windows would make another program's window the active one.
    if (m_bDisabled) {
        EnableWindow(m_hOwner, TRUE);
    }
    Detach();
}

bool QMProgressDialog::OnStep(uint64_t uDone, uint64_t uTotal)
{
    // The clock of GetTickCount begins anew after 49 days.
    if (static_cast<LONG>(GetTickCount() - m_uNext) < 0) {
        return !m_bCancelled;
    }
    if (!m_bOpen) {
        Open();
    }
    if (IsValid() && uTotal > 0) {
        SendItem(IDC_PROGRESS_BAR, PBM_SETPOS, static_cast<WPARAM>(uDone * nParts / uTotal));
    }
    Answer();
    m_uNext = GetTickCount() + uPause;
    return !m_bCancelled;
}

void QMProgressDialog::Open()
{
    m_bOpen = true;
    m_bDisabled = !EnableWindow(m_hOwner, FALSE);
    if (CreateModeless(m_hOwner, IDD_PROGRESS)) {
        Show();
    }
}

bool QMProgressDialog::OnInitDialog()
{
    SetItemText(IDC_PROGRESS_TASK, m_sTask.GetText());
    SendItem(IDC_PROGRESS_BAR, PBM_SETRANGE32, 0, nParts);
    return VDialog::OnInitDialog();
}

void QMProgressDialog::Answer()
{
    MSG message = {};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // It is for the loop that this work is to return to.
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
    m_bCancelled = true;
    EnableItem(IDCANCEL, false);
    return false;
}

bool QMProgressDialog::OnClose(bool bForced)
{
    return bForced ? VDialog::OnClose(true) : OnCancel();
}
