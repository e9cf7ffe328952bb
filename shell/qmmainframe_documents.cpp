// The frame's roads to an open document - a name, a command line, a new account - and to its file.

#include "account/qmaccountformat.h"
#include "base/vfilesystem.h"
#include "base/vstringlist.h"
#include "resources/resource.h"
#include "shell/qmmainframe.h"
#include "toolkit/vmessages.h"

namespace {

constexpr DWORD uChildStyle = 0x50CF0000;
constexpr char szExtension[] = "qmk";
constexpr char szSaveFailed[] = "Failed to save file '";
constexpr char szEnd[] = "'.";

VString LongName(const VString& sName)
{
    char szLong[260];
    const DWORD uLength = GetLongPathNameA(sName.GetText(), szLong, sizeof szLong);
    return uLength > 0 && uLength < sizeof szLong ? VString(szLong) : sName;
}

// By the line of the dialog's type list, from 1 on; 0 keeps the account's version.
int32_t VersionOfFilter(uint32_t uLine)
{
    switch (uLine) {
        case 1:
            return 0;
        case 2:
            return QM_VERSION_1_0;
        case 3:
            return QM_VERSION_1_1;
        default:
            // Who picks all files on purpose gets the newest format.
            return QM_VERSION_2_0;
    }
}

bool IsOption(const char* szArgument)
{
    return *szArgument == '-' || *szArgument == '/';
}

} // namespace

bool QMMainFrame::OpenDocument(const char* szName)
{
    if (szName == nullptr || *szName == '\0') {
        Tell("Failed to open file. No file name given.");
        return false;
    }
    VString sName(szName);
    sName.Trim();
    if (!FileExists(sName.GetText())) {
        TellOf("Failed to open.\nFile '", sName, "' does not exist.");
        return false;
    }
    sName = LongName(sName);
    if (ActivateIfOpen(sName.GetText(), true) || CreateDocument(sName.GetText(), false)) {
        return true;
    }
    TellOf("Failed to open file '", sName, "'.");
    return false;
}

bool QMMainFrame::ActivateIfOpen(const char* szPath, bool bActivate)
{
    for (QMRegisterWindow* pChild : m_apChildren) {
        if (pChild->GetFullName().CompareNoCase(szPath) == 0) {
            if (bActivate) {
                ActivateChild(*pChild);
            }
            return true;
        }
    }
    return false;
}

QMRegisterOptions QMMainFrame::RegisterOptions() const
{
    return {m_settings.GetBalancePositive(),
            m_settings.GetBalanceNegative(),
            m_settings.HasOption(QM_OPTION_CONFIRM_REMOVE),
            m_settings.HasOption(QM_OPTION_INCLUDE_UNCLEARED),
            m_settings.HasOption(QM_OPTION_SORT_EDIT_LISTS),
            IsBarVisible(IDC_TRANSACTIONSBAR)};
}

bool QMMainFrame::CreateDocument(const char* szName, bool bIsNew)
{
    const VWaitCursor wait;
    const VMDIChildWindow* pActive = GetActiveChild();
    const bool bMaximized = pActive != nullptr
                                ? pActive->IsMaximized()
                                : (m_settings.GetFlags() & QM_FLAG_CHILD_MAXIMIZED) != 0;
    auto pRegister = std::make_unique<QMRegisterWindow>(RegisterOptions());
    const DWORD uStyle = bMaximized ? uChildStyle | WS_MAXIMIZE : uChildStyle;
    if (!pRegister->LoadAccount(*this, szName, bIsNew, szName, {}, uStyle, GetMenu(GetHandle()),
                                GetWindowMenu(), m_hAccelDocument)) {
        m_apRefused.push_back(std::move(pRegister));
        return false;
    }
    pRegister.release(); // from here on it goes with its window
    if (!bIsNew) {
        AddRecent(szName);
        RebuildRecentMenu();
    }
    return true;
}

void QMMainFrame::ProcessCommandLine(const char* szText)
{
    VStringList arguments(szText, QM_ARGUMENT_SEPARATOR);
    while (const char* szArgument = arguments.Next()) {
        ProcessArgument(szArgument);
    }
}

void QMMainFrame::ProcessArgument(const char* szArgument)
{
    if (!IsOption(szArgument)) {
        OpenDocument(szArgument);
    } else if (szArgument[1] == 'I') {
        ImportFromArgument(szArgument + 2);
    }
}

void QMMainFrame::ImportFromArgument(const char* szOrder)
{
    VStringList parts(szOrder, '|');
    const char* szPart = parts.Next();
    const VString sImported(szPart == nullptr ? "" : szPart);
    szPart = parts.Next();
    if (OpenDocument(szPart == nullptr ? "" : szPart) && GetActiveRegister() != nullptr) {
        ImportInto(*GetActiveRegister(), sImported);
    }
}

bool QMMainFrame::NewDocument(UINT /*uId*/)
{
    VString sName("Untitled");
    sName.AppendNumber(m_uNextUntitled++);
    const bool bDone = CreateDocument(sName.GetText(), true);
    if (!bDone) {
        Tell("Failed to open new Quillmark file.");
    }
    return bDone;
}

bool QMMainFrame::OpenDocuments(UINT /*uId*/)
{
    if (!m_openDialog.Run(GetHandle(), true, OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY, "",
                          m_settings.GetCurrentDirectory().GetText(), szExtension)) {
        return true;
    }
    const VWaitCursor wait;
    SetCurrentDirectory(m_openDialog.GetDirectory().GetText());
    VString sPath;
    while (m_openDialog.NextPath(sPath)) {
        if (!ActivateIfOpen(sPath.GetText(), true) && !CreateDocument(sPath.GetText(), false)) {
            TellOf("Failed to open file '", sPath, "'.");
            return false;
        }
    }
    return true;
}

// ---- Saving.

bool QMMainFrame::SaveDocument(UINT /*uId*/)
{
    QMRegisterWindow& document = *GetActiveRegister();
    const VString sPath = document.GetFullName();
    if (!FileExists(sPath.GetText())) {
        return SaveUnder(document);
    }
    const bool bDone = document.GetDocument().Save();
    if (!bDone) {
        TellOf(szSaveFailed, sPath, szEnd);
    }
    return bDone;
}

bool QMMainFrame::SaveDocumentAs(UINT /*uId*/)
{
    return SaveUnder(*GetActiveRegister());
}

// A cancelled dialog counts as done.
bool QMMainFrame::SaveUnder(QMRegisterWindow& document)
{
    if (!m_saveDialog.Run(GetHandle(), false, OFN_HIDEREADONLY, document.GetFullName().GetText(),
                          m_settings.GetCurrentDirectory().GetText(), szExtension)) {
        return true;
    }
    const VWaitCursor wait;
    SetCurrentDirectory(m_saveDialog.GetDirectory().GetText());
    const VString& sPath = m_saveDialog.GetPath();
    if (!document.SaveAs(sPath.GetText(), VersionOfFilter(m_saveDialog.GetFilterIndex()))) {
        TellOf(szSaveFailed, sPath, szEnd);
        return false;
    }
    AddRecent(sPath.GetText());
    RebuildRecentMenu();
    return true;
}

bool QMMainFrame::SaveAllDocuments(UINT /*uId*/)
{
    for (QMRegisterWindow* pChild : m_apChildren) {
        if (!pChild->IsReadOnly() && !pChild->GetDocument().Save()) {
            TellOf(szSaveFailed, pChild->GetFileName(), szEnd);
        }
    }
    return true;
}
