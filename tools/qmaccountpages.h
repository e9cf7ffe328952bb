// The pages of the sheet "Account Information". They edit a copy of the account's header. The
// caller of the sheet copies it back.
#pragma once

#include "toolkit/vdatepicker.h"
#include "toolkit/vpropertypage.h"
#include "tools/qmaccountfields.h"
#include "tools/qmbrowserlauncher.h"

// What the pages of one sheet share.
struct QMAccountParticulars
{
    QMAccountHeader header = {};
    bool bReadOnlyProtect = false; // the state of the check box while the sheet is open
};

class QMParticularsPage : public VPropertyPage
{
public:
    ~QMParticularsPage() override { Detach(); }

    bool OnInitDialog() override;
    // Copies the controls into the header. Always returns true.
    bool OnOK() override;
    LRESULT OnSetActive() override;

    // Enables the controls that the user may change.
    virtual void UpdateEnabling();

protected:
    QMParticularsPage(QMAccountParticulars& particulars, QMAccountPart part)
        : m_particulars(particulars), m_part(part)
    {}

    QMAccountParticulars& m_particulars;

private:
    QMAccountPart m_part;
};

class QMAccountPage : public QMParticularsPage
{
public:
    explicit QMAccountPage(QMAccountParticulars& particulars);
    ~QMAccountPage() override { Detach(); }

    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    bool OnInitDialog() override;
    bool OnOK() override;
    void UpdateEnabling() override;

private:
    VDatePicker m_opened;
};

class QMBankPage : public QMParticularsPage
{
public:
    explicit QMBankPage(QMAccountParticulars& particulars)
        : QMParticularsPage(particulars, QMAccountPart::Bank)
    {}
    ~QMBankPage() override { Detach(); }

    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;

private:
    void GoToHomepage();

    QMBrowserLauncher m_launcher;
};

class QMHolderPage : public QMParticularsPage
{
public:
    explicit QMHolderPage(QMAccountParticulars& particulars)
        : QMParticularsPage(particulars, QMAccountPart::Holder)
    {}
    ~QMHolderPage() override { Detach(); }
};
