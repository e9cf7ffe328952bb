// VPropertySheet: the system's sheet of tabbed pages. VTabbedSheet: one with a caption of its own
// that tells whether it ended by OK.
#pragma once

#include "base/vlist.h"
#include "toolkit/vpropertypage.h"

class VPropertySheet : public VDialog
{
public:
    VPropertySheet() : VDialog(V_KIND_PROPERTY_SHEET) {}
    // The window ends here, while the operations below still are this object's.
    ~VPropertySheet() override { Detach(); }

    // Puts a page behind those added before; it stays the caller's and must outlive the sheet's
    // run. A template of 0 keeps the page's own, and a null instance stands for the application's
    // resources. A page is in one sheet at a time; false for one that has no template, or is in
    // this sheet already.
    bool AddPage(VPropertyPage& page, UINT uTemplate, HINSTANCE hInstance = nullptr);
    int32_t GetPageCount() const { return m_pages.GetCount(); }

    // Shows the sheet until it is ended; flags are the system's (PSH_...). False when it could not
    // be shown.
    bool RunModal(HWND hOwner, UINT uStartPage = 0, DWORD uFlags = 0);
    // Shows the sheet and returns at once; it is destroyed when it ends.
    bool OpenModeless(HWND hOwner, UINT uStartPage = 0, DWORD uFlags = 0);

    // The pages' OnOK at OK and Apply, their OnCancel at Cancel: a page that refuses becomes the
    // current one and keeps the sheet open. Apply never goes further than that.
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    // The system's sheet cleans up here, though this window handles the message.
    void OnDestroy() override;
    void OnFinalDestroy() override;

private:
    using PageList = VList<VPropertyPage, &VPropertyPage::m_pNextPage>;

    static int CALLBACK OnSheetEvent(HWND hSheet, UINT uEvent, LPARAM lParam);
    bool MakeRecords();
    INT_PTR ShowSheet(HWND hOwner, UINT uStartPage, DWORD uFlags);
    bool HasPage(const VPropertyPage& page) const;
    bool AskPages(bool bOK);

    PageList m_pages;
    PROPSHEETHEADERA m_header = {};
    std::unique_ptr<PROPSHEETPAGEA[]> m_records; // of the pages, while the sheet is up
};

class VTabbedSheet : public VPropertySheet
{
public:
    // The window ends here, while the operations below still are this object's.
    ~VTabbedSheet() override { Detach(); }

    // Runs the sheet under the caption "title - subtitle", or the title alone where the subtitle is
    // null or empty. False when it could not be shown.
    bool Run(HWND hOwner, const char* szTitle, const char* szSubtitle, UINT uStartPage = 0,
             DWORD uFlags = 0);

    // Whether OK was pressed in the last run and OnOK agreed. The pages are not asked: one that
    // refuses keeps the sheet open, and a Cancel after that leaves this true.
    bool IsOK() const { return m_bOK; }

    bool OnInitDialog() override;
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;

private:
    VString m_sTitle;
    VString m_sSubtitle;
    bool m_bOK = false;
};
