#include "toolkit/vfiledialog.h"

#include <algorithm>
#include <new>

#include "base/vfileselection.h"
#include "base/vfilesystem.h"
#include "base/vtext.h"

namespace {

constexpr DWORD uFlagsAlways =
    OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | OFN_ENABLEHOOK | OFN_ENABLESIZING;

DWORD DialogFlags(bool bOpen, DWORD uFlags)
{
    if (bOpen) {
        return uFlags | uFlagsAlways | OFN_FILEMUSTEXIST;
    }
    return (uFlags & ~static_cast<DWORD>(OFN_ALLOWMULTISELECT)) | uFlagsAlways |
           OFN_OVERWRITEPROMPT;
}

// The filter as OPENFILENAME wants it: zeroes for line feeds, and one more zero at the end. Null
// when memory ran out.
std::unique_ptr<char[]> FilterRecord(const VString& sFilter)
{
    const size_t uLength = sFilter.GetLength();
    std::unique_ptr<char[]> szFilter(new (std::nothrow) char[uLength + 2]);
    if (szFilter != nullptr) {
        VCopyText(szFilter.get(), uLength + 2, sFilter.GetText());
        std::replace(szFilter.get(), szFilter.get() + uLength, '\n', '\0');
    }
    return szFilter;
}

} // namespace

void VFileDialog::AddFilter(const char* szDescription, const char* szExtension)
{
    m_sFilterText.Append(szDescription);
    m_sFilterText.Append("\n*.");
    m_sFilterText.Append(szExtension);
    m_sFilterText.AppendCharacter('\n');
}

VString VFileDialog::InitialDirectory(const char* szDirectory) const
{
    if (szDirectory != nullptr && *szDirectory != '\0') {
        return VString(szDirectory);
    }
    if (!m_sDirectory.IsEmpty()) {
        return m_sDirectory;
    }
    char szCurrent[MAX_PATH] = "";
    const DWORD uLength = GetCurrentDirectoryA(sizeof szCurrent, szCurrent);
    return VString(uLength < sizeof szCurrent ? szCurrent : "");
}

bool VFileDialog::Run(HWND hOwner, const VFileDialogArgs& args)
{
    const VString sDirectory = InitialDirectory(args.szDirectory);
    const std::unique_ptr<char[]> szFilter = FilterRecord(m_sFilterText);
    const std::unique_ptr<char[]> szNames(new (std::nothrow) char[uBufferSize]);
    if (szFilter == nullptr || szNames == nullptr) {
        return false;
    }
    const bool bGiven = args.szFileName != nullptr && *args.szFileName != '\0';
    VCopyText(szNames.get(), uBufferSize, bGiven ? args.szFileName : m_sFileName.GetText());
    m_uFilterIndex = 1;

    OPENFILENAMEA record = {};
    record.lStructSize = sizeof record;
    record.hwndOwner = hOwner;
    record.lpstrFilter = szFilter.get();
    record.nFilterIndex = m_uFilterIndex;
    record.lpstrFile = szNames.get();
    record.nMaxFile = uBufferSize;
    record.lpstrInitialDir = sDirectory.GetText();
    record.lpstrTitle = args.szTitle;
    record.lpstrDefExt = args.szDefaultExtension;
    record.lCustData = HookData();
    record.lpfnHook = &HookProc<OPENFILENAMEA>;
    record.Flags = DialogFlags(args.bOpen, args.uFlags);
    OnBeforeShow(record);
    const BOOL bChosen = args.bOpen ? GetOpenFileNameA(&record) : GetSaveFileNameA(&record);
    return bChosen && TakeNames(record);
}

bool VFileDialog::TakeNames(const OPENFILENAMEA& record)
{
    m_sFileName.Clear();
    m_sFileTitle.Clear();
    m_sDirectory.Clear();
    m_names = VStringList("", '\t');
    if ((record.Flags & OFN_ALLOWMULTISELECT) == 0) {
        m_sFileName = VString(record.lpstrFile, record.nMaxFile);
        const uint32_t uOffset = record.nFileOffset;
        m_sDirectory = m_sFileName.Left(uOffset == 0 ? 0 : uOffset - 1);
        return !m_sFileName.IsEmpty();
    }
    VFileSelection selection;
    const bool bChosen = selection.Read(record.lpstrFile, record.nMaxFile, &FileExists);
    m_sFileName = selection.sPath;
    m_sFileTitle = selection.sNames;
    m_sDirectory = selection.sDirectory;
    m_names = VStringList(m_sFileTitle.GetText(), '\t');
    return bChosen;
}

bool VFileDialog::NextPath(VString& sPath)
{
    const char* szName = m_names.Next();
    if (szName == nullptr) {
        return false;
    }
    sPath = VFileSelection::Join(m_sDirectory, szName);
    return true;
}

LRESULT VFileDialog::OnNotify(UINT /*uId*/, NMHDR* pHeader)
{
    const auto* pNotice = reinterpret_cast<const OFNOTIFYA*>(pHeader);
    switch (pHeader->code) {
        case CDN_INITDONE:
            OnInitDone();
            return 0;
        case CDN_SELCHANGE:
            OnSelectionChange();
            return 0;
        case CDN_FOLDERCHANGE:
            OnFolderChange();
            return 0;
        case CDN_HELP:
            OnHelp();
            return 0;
        case CDN_TYPECHANGE:
            OnFilterChange(pNotice->lpOFN->nFilterIndex);
            return 0;
        case CDN_FILEOK:
            return AnswerNotification(OnFileOK(pNotice->lpOFN->lpstrFile) ? 0 : 1);
        case CDN_SHAREVIOLATION:
            return AnswerNotification(OnShareViolation(pNotice->pszFile));
        default:
            return V_NOT_HANDLED;
    }
}
