// VPropertySheet: the sheet of tabbed pages of Windows. VTabbedSheet: one that has a caption and
// knows whether it ended by OK.
#pragma once

#include "base/vlist.h"
#include "toolkit/vpropertypage.h"

class VPropertySheet : public VDialog
{
public:
    VPropertySheet() : VDialog(V_KIND_PROPERTY_SHEET) {}
    ~VPropertySheet() override { Detach(); }

    // Adds a page after those added before. The caller still owns it, and it must live until the
    // sheet has ended. A template of 0 uses the page's own; a null hInstance means the resource
    // module of the application. A page can be in one sheet at a time. Returns false for a page
    // without a template, and for one that is in this sheet already.
    bool AddPage(VPropertyPage& page, UINT uTemplate, HINSTANCE hInstance = nullptr);
    int32_t GetPageCount() const { return m_pages.GetCount(); }

    // Runs the sheet until it ends. uFlags are those of PROPSHEETHEADER. Returns false when it
    // could not be shown.
    bool RunModal(HWND hOwner, UINT uStartPage = 0, DWORD uFlags = 0);
    // Shows the sheet and returns at once. The window is destroyed when the sheet ends.
    bool OpenModeless(HWND hOwner, UINT uStartPage = 0, DWORD uFlags = 0);

    // Calls OnOK of the pages for OK and Apply, and OnCancel for Cancel. A page that returns false
    // becomes the current one and keeps the sheet open. Apply never ends the sheet.
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    // The sheet of Windows must get WM_DESTROY too, to clean up. So the message counts as not
    // handled.
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
    std::unique_ptr<PROPSHEETPAGEA[]>
        m_records; // the records of the pages, while the sheet is open
};

class VTabbedSheet : public VPropertySheet
{
public:
    ~VTabbedSheet() override { Detach(); }

    // Runs the sheet with the caption "TITLE - SUBTITLE", or "TITLE" when the subtitle is null or
    // empty. Returns false when it could not be shown.
    bool Run(HWND hOwner, const char* szTitle, const char* szSubtitle, UINT uStartPage = 0,
             DWORD uFlags = 0);

    // Whether OK was pressed in the last run and OnOK of the sheet returned true.
    //
    // Kept: a page that refuses OK does not change this. When the user presses Cancel after that,
    // it still returns true.
    bool IsOK() const { return m_bOK; }

    bool OnInitDialog() override;
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;

private:
    VString m_sTitle;
    VString m_sSubtitle;
    bool m_bOK = false;
};
