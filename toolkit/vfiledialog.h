// VFileDialog: the dialogs of Windows to open a file and to save one.
#pragma once

#include "base/vstringlist.h"
#include "toolkit/vcommondialog.h"

// What one run of a file dialog asks for.
struct VFileDialogArgs
{
    bool bOpen = true; // false: the dialog to save
    // Those of OPENFILENAME. A dialog to save ignores OFN_ALLOWMULTISELECT.
    DWORD uFlags = 0;
    const char* szFileName = nullptr;  // null: the name chosen last
    const char* szDirectory = nullptr; // null: that chosen last, before there is one the process's
    const char* szDefaultExtension = nullptr;
    const char* szTitle = nullptr; // null: that of Windows
};

class VFileDialog : public VCommonDialog
{
public:
    // The size of the buffer for the chosen names, in bytes. A path, or a folder with all the names
    // in it, must fit.
    static constexpr DWORD uBufferSize = 16384;

    ~VFileDialog() override { Detach(); }

    // Adds a line to the list of file types, such as "Text Files (*.txt)" and "txt".
    void AddFilter(const char* szDescription, const char* szExtension);

    // Shows the dialog. Returns true when the user chose at least one name. After Cancel, and when
    // the dialog could not be shown, the names are as before.
    bool Run(HWND hOwner, const VFileDialogArgs& args);

    // The folder chosen last, without a backslash at its end.
    const VString& GetDirectory() const { return m_sDirectory; }
    // The path of the chosen file; empty when several were chosen.
    const VString& GetPath() const { return m_sFileName; }
    // The chosen line of the list of file types, counted from 1.
    uint32_t GetFilterIndex() const { return m_uFilterIndex; }

    // The next path of several chosen files. Returns false, and leaves sPath as it is, after the
    // last.
    bool NextPath(VString& sPath);

    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;

    // ---- Virtual operations, after those of VDialog.

    virtual void OnInitDone() {}
    virtual void OnSelectionChange() {}
    // Called with a chosen name. False refuses it, and the dialog stays open.
    virtual bool OnFileOK(const char* /*szPath*/) { return true; }
    virtual void OnFolderChange() {}
    virtual void OnHelp() {}
    // Returns one of OFN_SHAREFALLTHROUGH, OFN_SHARENOWARN and OFN_SHAREWARN.
    virtual LRESULT OnShareViolation(const char* /*szPath*/) { return OFN_SHAREWARN; }
    virtual void OnFilterChange(uint32_t uIndex) { m_uFilterIndex = uIndex; }
    // Called before the dialog is shown. An override may change the record.
    virtual void OnBeforeShow(OPENFILENAMEA& /*record*/) {}

private:
    VString InitialDirectory(const char* szDirectory) const;
    bool TakeNames(const OPENFILENAMEA& record);
    VString m_sFilterText; // description and pattern of each type, with a line feed after each
    VString m_sFileName;
    VString m_sFileTitle; // the names of several files, with a tab between them
    VString m_sDirectory;
    VStringList m_names = VStringList("", '\t');
    uint32_t m_uFilterIndex = 1;
};
