// The two dialogs for the password of an account: QMPasswordDialog asks for it, QMSetPasswordDialog
// sets it.
#pragma once

#include "toolkit/vdialog.h"
#include "tools/qmpasswordrules.h"

class QMPasswordDialog : public VDialog
{
public:
    // Asks for the password of the file szName; an empty name is left out of the text. Returns IDOK
    // when the right password was given, and IDCANCEL otherwise. The third wrong entry ends the
    // dialog with IDCANCEL.
    INT_PTR DoModal(HWND hParent, const char* szPassword, const char* szName);

    bool OnInitDialog() override;
    bool OnOK() override;

private:
    QMPasswordCheck m_check{""};
    VString m_strName;
};

class QMSetPasswordDialog : public VDialog
{
public:
    // Asks for the present password, if there is one, and for a new one. Returns IDOK when the user
    // gave a new one, which GetPassword then copies; IDCANCEL otherwise.
    INT_PTR DoModal(HWND hParent, const char* szCurrentPassword);

    // Copies the new password. An empty one removes the protection.
    void GetPassword(char (&szField)[QM_PASSWORD_LENGTH + 1]) const;

    bool OnInitDialog() override;
    bool OnOK() override;

private:
    bool IsCurrentGiven();
    bool IsNewGiven();

    QMPasswordCheck m_check{""};
    VString m_strNew;
};
