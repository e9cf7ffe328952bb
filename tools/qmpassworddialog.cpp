#include "tools/qmpassworddialog.h"

#include "base/vtext.h"
#include "resources/resource.h"
#include "toolkit/vmessages.h"

namespace {

constexpr int aPasswordEdits[] = {IDC_PW_CURRENT, IDC_PW_NEW, IDC_PW_NEWAGAIN};

// Prepares those of the three password fields that the dialog has.
void PrepareEdits(VDialog& dialog)
{
    for (const int nId : aPasswordEdits) {
        if (dialog.GetItem(nId) != nullptr) {
            dialog.LimitItemText(nId, QM_PASSWORD_LENGTH);
            // With version 6 of the common controls, Windows would show a round bullet of its own.
            dialog.SendItem(nId, EM_SETPASSWORDCHAR, '*');
            dialog.SetItemText(nId, "");
        }
    }
}

void ShowRefusal(HWND hDialog, const char* szSentence)
{
    MessageBox(hDialog, szSentence, MB_OK | MB_ICONINFORMATION);
}

// Says that the password is wrong, and ends the dialog at the third time.
void Refuse(VDialog& dialog, const QMPasswordCheck& check, const char* szSentence)
{
    ShowRefusal(dialog.GetHandle(), szSentence);
    if (check.IsSpent()) {
        dialog.EndWith(IDCANCEL);
    } else {
        dialog.FocusItem(IDC_PW_CURRENT);
    }
}

} // namespace

// ---- Asking.

INT_PTR QMPasswordDialog::DoModal(HWND hParent, const char* szPassword, const char* szName)
{
    m_check = QMPasswordCheck(szPassword);
    m_strName = szName;
    return VDialog::DoModal(hParent, IDD_PASSWORD);
}

bool QMPasswordDialog::OnInitDialog()
{
    if (!m_strName.IsEmpty()) {
        VString sText = m_strName;
        sText.Append(" is password protected.");
        SetItemText(IDC_PW_EXPLANATION, sText.GetText());
    }
    PrepareEdits(*this);
    return VDialog::OnInitDialog();
}

bool QMPasswordDialog::OnOK()
{
    if (!m_check.IsNeeded() || m_check.Accepts(GetItemText(IDC_PW_CURRENT).GetText())) {
        return true;
    }
    Refuse(*this, m_check, "Invalid password entered.");
    return false;
}

// ---- Setting.

INT_PTR QMSetPasswordDialog::DoModal(HWND hParent, const char* szCurrentPassword)
{
    m_check = QMPasswordCheck(szCurrentPassword);
    m_strNew.Clear();
    return VDialog::DoModal(hParent, IDD_SETPASSWORD);
}

void QMSetPasswordDialog::GetPassword(char (&szField)[QM_PASSWORD_LENGTH + 1]) const
{
    VCopyText(szField, m_strNew.GetText());
}

bool QMSetPasswordDialog::OnInitDialog()
{
    PrepareEdits(*this);
    EnableItem(IDC_PW_CURRENTLABEL, m_check.IsNeeded());
    EnableItem(IDC_PW_CURRENT, m_check.IsNeeded());
    return VDialog::OnInitDialog();
}

bool QMSetPasswordDialog::OnOK()
{
    if (!IsCurrentGiven() || !IsNewGiven()) {
        return false;
    }
    // Kept: the second entry is taken. The two may differ in case.
    m_strNew = GetItemText(IDC_PW_NEWAGAIN);
    return true;
}

bool QMSetPasswordDialog::IsCurrentGiven()
{
    if (!m_check.IsNeeded() || m_check.Accepts(GetItemText(IDC_PW_CURRENT).GetText())) {
        return true;
    }
    Refuse(*this, m_check, "Invalid current password entered.");
    return false;
}

bool QMSetPasswordDialog::IsNewGiven()
{
    switch (QMJudgeNewPassword(GetItemText(IDC_PW_NEW).GetText(),
                               GetItemText(IDC_PW_NEWAGAIN).GetText())) {
        case QMNewPassword::None:
            if (MessageBox(GetHandle(),
                           "Both new password enteries are empty.\n"
                           "Do you want password protection turned off?",
                           MB_YESNO | MB_ICONQUESTION) == IDYES) {
                return true;
            }
            break;
        case QMNewPassword::Differ:
            ShowRefusal(GetHandle(), "New password entries do not match.");
            break;
        default:
            return true;
    }
    FocusItem(IDC_PW_NEW);
    return false;
}
