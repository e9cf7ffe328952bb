#include "printing/vprintprogressdialog.h"

#include <cstdio>

#include "resources/resource.h"

namespace {

VPrintProgressDialog* g_pRunning = nullptr;

} // namespace

VPrintProgressDialog::~VPrintProgressDialog()
{
    if (g_pRunning == this) {
        g_pRunning = nullptr;
    }
    Detach();
}

VPrintProgressDialog* VPrintProgressDialog::GetRunning()
{
    return g_pRunning;
}

bool VPrintProgressDialog::Create(VWindow& owner, const VString& sTitle)
{
    m_sTitle = sTitle;
    if (!CreateModeless(owner.GetHandle(), IDD_PRINTPROGRESS)) {
        return false;
    }
    g_pRunning = this;
    Show();
    Update();
    return true;
}

bool VPrintProgressDialog::OnInitDialog()
{
    m_bRunning = true;
    SetItemText(IDC_PROGRESS_TITLE, m_sTitle.GetText());
    SetItemText(IDC_PROGRESS_STATUS, "Starting Print Job...");
    return VDialog::OnInitDialog();
}

void VPrintProgressDialog::SetPage(int nPage)
{
    if (m_bRunning) {
        char szText[40];
        snprintf(szText, sizeof szText, "Sending Page %d...", nPage);
        SetItemText(IDC_PROGRESS_STATUS, szText);
        UpdateWindow(GetItem(IDC_PROGRESS_STATUS));
    }
}

bool VPrintProgressDialog::OnCancel()
{
    Cancel();
    return true;
}

void VPrintProgressDialog::Cancel()
{
    m_bRunning = false;
    SetItemText(IDC_PROGRESS_STATUS, "Canceling...");
}
