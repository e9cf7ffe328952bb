// VFileDialog: the system's dialogs to open a file and to save one.
#pragma once

#include "base/vstringlist.h"
#include "toolkit/vcommondialog.h"

class VFileDialog : public VCommonDialog
{
public:
    // A path, or a folder with all chosen names, must fit in here, in bytes.
    static constexpr DWORD uBufferSize = 16384;

    // The window ends here, while the operations below still are this object's.
    ~VFileDialog() override { Detach(); }

    // A line of the type list, as "Text Files (*.txt)" and "txt".
    void AddFilter(const char* szDescription, const char* szExtension);

    // Shows the dialog; true when the user chose at least one name. A null file name stands for the
    // one chosen last, a null directory for the one chosen last or else the process's own. Flags
    // are the system's (OFN_...); a dialog to save takes no multiple selection. After a cancel, and
    // when the dialog could not be shown, the names are those of before.
    bool Run(HWND hOwner, bool bOpen, DWORD uFlags = 0, const char* szFileName = nullptr,
             const char* szDirectory = nullptr, const char* szDefaultExtension = nullptr,
             const char* szTitle = nullptr);

    // Without a backslash at its end.
    const VString& GetDirectory() const { return m_sDirectory; }
    // The one chosen path; empty after a choice of several.
    const VString& GetPath() const { return m_sFileName; }
    // The chosen line of the type list, from 1 on.
    uint32_t GetFilterIndex() const { return m_uFilterIndex; }

    // The next path of a multiple selection; false, with sPath unchanged, behind the last.
    bool NextPath(VString& sPath);

    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;

    // ---- Virtual operations, behind those of VDialog.

    virtual void OnInitDone() {}
    virtual void OnSelectionChange() {}
    // False refuses the name.
    virtual bool OnFileOK(const char* /*szPath*/) { return true; }
    virtual void OnFolderChange() {}
    virtual void OnHelp() {}
    // One of the system's OFN_SHARE... codes.
    virtual LRESULT OnShareViolation(const char* /*szPath*/) { return OFN_SHAREWARN; }
    virtual void OnFilterChange(uint32_t uIndex) { m_uFilterIndex = uIndex; }
    // May change the record before the dialog is shown.
    virtual void OnBeforeShow(OPENFILENAMEA& /*record*/) {}

private:
    VString InitialDirectory(const char* szDirectory) const;
    bool TakeNames(const OPENFILENAMEA& record);
    VString m_sFilterText; // pairs of description and pattern, with a line feed behind each
    VString m_sFileName;
    VString m_sFileTitle; // the names of a multiple selection, with a tab between
    VString m_sDirectory;
    VStringList m_names = VStringList("", '\t');
    uint32_t m_uFilterIndex = 1;
};
