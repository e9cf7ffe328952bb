// The two dialogs for an account's password: asking for it, and setting it.
#pragma once

#include "toolkit/vdialog.h"
#include "tools/qmpasswordrules.h"

class QMPasswordDialog : public VDialog
{
public:
    // Asks for the password of what has that name (empty for no name). IDOK when it was given,
    // IDCANCEL otherwise, which the third wrong entry is, too.
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
    // Asks for the present password, if there is one, and for a new one. IDOK when there is a new
    // one for GetPassword, IDCANCEL otherwise.
    INT_PTR DoModal(HWND hParent, const char* szCurrentPassword);

    // Copies the new password; an empty one turns the protection off.
    void GetPassword(char (&szField)[QM_PASSWORD_LENGTH + 1]) const;

    bool OnInitDialog() override;
    bool OnOK() override;

private:
    bool IsCurrentGiven();
    bool IsNewGiven();

    QMPasswordCheck m_check{""};
    VString m_strNew;
};
