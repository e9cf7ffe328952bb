// VPropertyPage: one page of a property sheet.
#pragma once

#include "toolkit/vdialog.h"

class VPropertyPage : public VDialog
{
public:
    VPropertyPage() : VDialog(V_KIND_PROPERTY_PAGE) {}
    ~VPropertyPage() override { Detach(); }

    // Sets the template that the page uses when AddPage is given none.
    void SetTemplate(UINT uTemplate, HINSTANCE hInstance = nullptr);
    bool HasTemplate() const { return m_uTemplate != 0; }

    // The record that Windows wants for the page.
    PROPSHEETPAGEA MakeRecord();

    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;

    // ---- Virtual operations, after those of VDialog: the notifications of the sheet.

    virtual void OnHelp() {}
    // PSN_KILLACTIVE. A result other than 0 keeps the page the current one.
    virtual LRESULT OnKillActive() { return 0; }
    // PSN_SETACTIVE. 0 accepts; -1 goes to the next page; another number is the template of the
    // page to go to.
    virtual LRESULT OnSetActive() { return 0; }
    // PSN_WIZBACK and PSN_WIZNEXT. False keeps the wizard on the page.
    virtual bool OnWizardBack() { return true; }
    virtual bool OnWizardNext() { return true; }
    // PSN_WIZFINISH. A result other than 0 keeps the wizard open.
    virtual LRESULT OnWizardFinish() { return 0; }
    // Not a notification: the page itself calls it to copy its members into its controls.
    virtual void FillControls() {}

    VPropertyPage* m_pNextPage = nullptr; // link of the sheet's list, which alone touches it

private:
    UINT m_uTemplate = 0;
    HINSTANCE m_hTemplateModule = nullptr; // null for the resource module of the application
};
