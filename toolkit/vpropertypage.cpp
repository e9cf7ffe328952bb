#include "toolkit/vpropertypage.h"

#include "toolkit/vapplication.h"

void VPropertyPage::SetTemplate(UINT uTemplate, HINSTANCE hInstance)
{
    m_uTemplate = uTemplate;
    m_hTemplateModule = hInstance;
}

PROPSHEETPAGEA VPropertyPage::MakeRecord()
{
    PROPSHEETPAGEA record = {};
    record.dwSize = sizeof record;
    record.dwFlags = PSP_DEFAULT;
    record.hInstance =
        m_hTemplateModule == nullptr ? GetApplication().GetResourceModule() : m_hTemplateModule;
    record.pszTemplate = MAKEINTRESOURCEA(m_uTemplate);
    record.pfnDlgProc = reinterpret_cast<DLGPROC>(&WindowProc);
    record.lParam = reinterpret_cast<LPARAM>(static_cast<VWindow*>(this));
    return record;
}

LRESULT VPropertyPage::OnNotify(UINT /*uId*/, NMHDR* pHeader)
{
    switch (pHeader->code) {
        case PSN_HELP:
            OnHelp();
            return 0;
        case PSN_KILLACTIVE:
            return AnswerNotification(OnKillActive());
        case PSN_SETACTIVE:
            return AnswerNotification(OnSetActive());
        case PSN_WIZBACK:
            return AnswerNotification(OnWizardBack() ? 0 : -1);
        case PSN_WIZNEXT:
            return AnswerNotification(OnWizardNext() ? 0 : -1);
        case PSN_WIZFINISH:
            return AnswerNotification(OnWizardFinish());
        default:
            return V_NOT_HANDLED;
    }
}
