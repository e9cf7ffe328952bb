#include "tools/qmaccountpages.h"

#include "account/qmdate_win.h"
#include "resources/resource.h"
#include "toolkit/vmessages.h"

namespace {

constexpr int nMinimumBalanceLength = 15;

} // namespace

// ---- What all pages do.

bool QMParticularsPage::OnInitDialog()
{
    for (const QMAccountField& field : QMAccountFields(m_part)) {
        LimitItemText(field.nControl, static_cast<int>(field.uSize) - 1);
        SetItemText(field.nControl, QMGetAccountText(m_particulars.header, field).GetText());
    }
    UpdateEnabling();
    return VPropertyPage::OnInitDialog();
}

bool QMParticularsPage::OnOK()
{
    for (const QMAccountField& field : QMAccountFields(m_part)) {
        QMTakeAccountText(m_particulars.header, field, GetItemText(field.nControl).GetText());
    }
    return true;
}

LRESULT QMParticularsPage::OnSetActive()
{
    // The user may have changed the check box, which is on another page.
    UpdateEnabling();
    return 0;
}

void QMParticularsPage::UpdateEnabling()
{
    for (const QMAccountField& field : QMAccountFields(m_part)) {
        EnableItem(field.nControl, !m_particulars.bReadOnlyProtect);
    }
}

// ---- Account.

QMAccountPage::QMAccountPage(QMAccountParticulars& particulars)
    : QMParticularsPage(particulars, QMAccountPart::Account)
{
    m_particulars.bReadOnlyProtect = false;
}

bool QMAccountPage::OnInitDialog()
{
    const QMAccountHeader& header = m_particulars.header;
    m_opened.Attach(GetItem(IDC_ACCOUNT_OPENED));
    m_opened.SetDate(QMToSystemTime(header.dtOpened));
    LimitItemText(IDC_ACCOUNT_MINIMUM, nMinimumBalanceLength);
    SetItemText(IDC_ACCOUNT_MINIMUM, QMMinimumBalanceText(header.fMinimumBalance).GetText());
    CheckButton(IDC_ACCOUNT_READONLY, header.bReadOnly != 0 ? BST_CHECKED : BST_UNCHECKED);
    m_particulars.bReadOnlyProtect = IsButtonChecked(IDC_ACCOUNT_READONLY);
    return QMParticularsPage::OnInitDialog();
}

void QMAccountPage::UpdateEnabling()
{
    QMParticularsPage::UpdateEnabling();
    EnableItem(IDC_ACCOUNT_OPENED, !m_particulars.bReadOnlyProtect);
    EnableItem(IDC_ACCOUNT_MINIMUM, !m_particulars.bReadOnlyProtect);
}

LRESULT QMAccountPage::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    if (uId != IDC_ACCOUNT_READONLY || uNotifyCode != BN_CLICKED) {
        return QMParticularsPage::OnCommand(uNotifyCode, uId, hControl);
    }
    m_particulars.bReadOnlyProtect = IsButtonChecked(IDC_ACCOUNT_READONLY);
    UpdateEnabling();
    return 0;
}

bool QMAccountPage::OnOK()
{
    QMAccountHeader& header = m_particulars.header;
    header.dtOpened = QMFromSystemTime(m_opened.GetDate());
    QMTakeMinimumBalance(header.fMinimumBalance, GetItemText(IDC_ACCOUNT_MINIMUM).GetText());
    header.bReadOnly = IsButtonChecked(IDC_ACCOUNT_READONLY) ? 1 : 0;
    return QMParticularsPage::OnOK();
}

// ---- Bank.

LRESULT QMBankPage::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    if (uId != IDC_BANK_GO || uNotifyCode != BN_CLICKED) {
        return QMParticularsPage::OnCommand(uNotifyCode, uId, hControl);
    }
    GoToHomepage();
    return 0;
}

// Uses the text that is in the field now, whether the user will press OK or not.
void QMBankPage::GoToHomepage()
{
    const VString sUrl = GetItemText(IDC_BANK_HOMEPAGE);
    if (sUrl.IsEmpty()) {
        MessageBox(GetHandle(), "Please Enter a URL.", MB_ICONINFORMATION);
        if (IsWindowEnabled(GetItem(IDC_BANK_HOMEPAGE))) {
            FocusItem(IDC_BANK_HOMEPAGE);
        }
        return;
    }
    const VWaitCursor wait;
    if (m_launcher.Launch(sUrl.GetText()) != QMBrowserLauncher::Done) {
        VString sText("Could not launch browser '");
        VString sPath;
        QMBrowserLauncher::FindBrowser(sPath);
        sText.Append(sPath);
        sText.Append("'.");
        MessageBox(GetHandle(), sText.GetText(), MB_ICONINFORMATION);
    }
}
