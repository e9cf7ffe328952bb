// VPropertyPage: one page of a property sheet.
#pragma once

#include "toolkit/vdialog.h"

class VPropertyPage : public VDialog
{
public:
    VPropertyPage() : VDialog(V_KIND_PROPERTY_PAGE) {}
    // The window ends here, while the operations below still are this object's.
    ~VPropertyPage() override { Detach(); }

    // The dialog that the page shows when it is added to a sheet without another.
    void SetTemplate(UINT uTemplate, HINSTANCE hInstance = nullptr);
    bool HasTemplate() const { return m_uTemplate != 0; }

    // The system's record of the page.
    PROPSHEETPAGEA MakeRecord();

    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;

    // ---- Virtual operations, behind those of VDialog: the sheet's notifications.

    virtual void OnHelp() {}
    // Not 0 keeps the page the current one.
    virtual LRESULT OnKillActive() { return 0; }
    // Not 0 refuses: -1 for the next page, else the number of a page's template.
    virtual LRESULT OnSetActive() { return 0; }
    // False keeps a wizard on the page.
    virtual bool OnWizardBack() { return true; }
    virtual bool OnWizardNext() { return true; }
    // Not 0 keeps the wizard open.
    virtual LRESULT OnWizardFinish() { return 0; }
    // No notification: the page itself calls it, to bring its members into its controls.
    virtual void FillControls() {}

    VPropertyPage* m_pNextPage = nullptr; // link of the sheet's list, which alone touches it

private:
    UINT m_uTemplate = 0;
    HINSTANCE m_hTemplateModule = nullptr; // null for the application's resource module
};
