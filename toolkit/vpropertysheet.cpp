#include "toolkit/vpropertysheet.h"

#include <new>

#include "toolkit/vapplication.h"

namespace {

constexpr UINT uIdApply = 12321; // the id of the Apply button of Windows

// The sheet whose window is being made. PropertySheet gives its callback no value of the caller's,
// so the callback finds the sheet here.
VPropertySheet* g_pStarting = nullptr;

} // namespace

bool VPropertySheet::HasPage(const VPropertyPage& page) const
{
    const VPropertyPage* p = m_pages.GetHead();
    while (p != nullptr && p != &page) {
        p = PageList::GetNext(p);
    }
    return p != nullptr;
}

bool VPropertySheet::AddPage(VPropertyPage& page, UINT uTemplate, HINSTANCE hInstance)
{
    if (HasPage(page) || (uTemplate == 0 && !page.HasTemplate())) {
        return false;
    }
    if (uTemplate != 0) {
        page.SetTemplate(uTemplate, hInstance);
    }
    m_pages.AddTail(&page);
    return true;
}

bool VPropertySheet::MakeRecords()
{
    const auto uCount = static_cast<size_t>(m_pages.GetCount());
    if (uCount == 0) {
        // Wine 8 crashes when it is given a sheet without pages.
        return false;
    }
    m_records.reset(new (std::nothrow) PROPSHEETPAGEA[uCount]);
    if (m_records == nullptr) {
        return false;
    }
    size_t u = 0;
    for (VPropertyPage* p = m_pages.GetHead(); p != nullptr; p = PageList::GetNext(p)) {
        m_records[u++] = p->MakeRecord();
    }
    return true;
}

int CALLBACK VPropertySheet::OnSheetEvent(HWND hSheet, UINT uEvent, LPARAM /*lParam*/)
{
    if (uEvent == PSCB_INITIALIZED && g_pStarting != nullptr) {
        VPropertySheet* pSheet = g_pStarting;
        g_pStarting = nullptr;
        pSheet->Attach(hSheet);
    }
    return 0;
}

// Returns what PropertySheet returns; -1 when the sheet could not be shown.
INT_PTR VPropertySheet::ShowSheet(HWND hOwner, UINT uStartPage, DWORD uFlags)
{
    if (!MakeRecords()) {
        return -1;
    }
    m_header = {};
    m_header.dwSize = sizeof m_header;
    m_header.dwFlags = uFlags | PSH_PROPSHEETPAGE | PSH_USECALLBACK;
    m_header.hwndParent = hOwner;
    m_header.hInstance = GetApplication().GetResourceModule();
    m_header.nPages = static_cast<UINT>(m_pages.GetCount());
    m_header.nStartPage = uStartPage;
    m_header.ppsp = m_records.get();
    m_header.pfnCallback = &OnSheetEvent;
    g_pStarting = this;
    const INT_PTR nResult = PropertySheetA(&m_header);
    g_pStarting = nullptr;
    return nResult;
}

bool VPropertySheet::RunModal(HWND hOwner, UINT uStartPage, DWORD uFlags)
{
    SetModal(true);
    const INT_PTR nResult =
        ShowSheet(hOwner, uStartPage, uFlags & ~static_cast<DWORD>(PSH_MODELESS));
    m_records.reset();
    return nResult != -1;
}

bool VPropertySheet::OpenModeless(HWND hOwner, UINT uStartPage, DWORD uFlags)
{
    SetModal(false);
    const INT_PTR nResult = ShowSheet(hOwner, uStartPage, uFlags | PSH_MODELESS);
    if (nResult == -1 || nResult == 0) {
        m_records.reset();
        return false;
    }
    return true;
}

// Returns false when a page refused.
bool VPropertySheet::AskPages(bool bOK)
{
    int nIndex = 0;
    for (VPropertyPage* p = m_pages.GetHead(); p != nullptr; p = PageList::GetNext(p)) {
        // A page that the user has not looked at has no window.
        if (p->IsValid() && !(bOK ? p->OnOK() : p->OnCancel())) {
            PropSheet_SetCurSel(GetHandle(), nullptr, nIndex);
            return false;
        }
        ++nIndex;
    }
    return true;
}

LRESULT VPropertySheet::OnCommand(UINT /*uNotifyCode*/, UINT uId, HWND /*hControl*/)
{
    if (uId != IDOK && uId != IDCANCEL && uId != uIdApply) {
        return V_NOT_HANDLED;
    }
    if (!AskPages(uId != IDCANCEL) || uId == uIdApply) {
        return 0;
    }
    if (!IsModal()) {
        // The object may be deleted with its window.
        DestroyWindow(GetHandle());
        return 0;
    }
    return V_NOT_HANDLED;
}

void VPropertySheet::OnDestroy()
{
    DefaultProc(GetHandle(), WM_DESTROY, 0, 0);
}

void VPropertySheet::OnFinalDestroy()
{
    if (!IsModal()) {
        m_records.reset();
    }
    VDialog::OnFinalDestroy();
}

// ---- The tabbed sheet.

bool VTabbedSheet::Run(HWND hOwner, const char* szTitle, const char* szSubtitle, UINT uStartPage,
                       DWORD uFlags)
{
    m_sTitle = szTitle;
    m_sSubtitle = szSubtitle;
    m_bOK = false;
    return RunModal(hOwner, uStartPage, uFlags);
}

bool VTabbedSheet::OnInitDialog()
{
    VString sCaption(m_sTitle);
    if (!m_sSubtitle.IsEmpty()) {
        sCaption.Append(" - ");
        sCaption.Append(m_sSubtitle);
    }
    PropSheet_SetTitle(GetHandle(), 0, sCaption.GetText());
    SetLong(GWL_EXSTYLE, GetLong(GWL_EXSTYLE) & ~static_cast<LONG_PTR>(WS_EX_CONTEXTHELP));
    return VPropertySheet::OnInitDialog();
}

LRESULT VTabbedSheet::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    if (uId == IDOK && OnOK()) {
        m_bOK = true;
    }
    return VPropertySheet::OnCommand(uNotifyCode, uId, hControl);
}
