// How the frame comes to an open document: by a name, by a command line, or as a new account.

#include <algorithm>

#include "base/vfilesystem.h"
#include "base/vstringlist.h"
#include "resources/resource.h"
#include "shell/qmmainframe.h"
#include "toolkit/vmessages.h"

namespace {

constexpr DWORD uChildStyle = 0x50CF0000;

VString LongName(const VString& sName)
{
    char szLong[260];
    const DWORD uLength = GetLongPathNameA(sName.GetText(), szLong, sizeof szLong);
    return uLength > 0 && uLength < sizeof szLong ? VString(szLong) : sName;
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

void QMMainFrame::SetRegisterOptions()
{
    for (QMRegisterWindow* pDocument : m_apChildren) {
        pDocument->SetOptions(RegisterOptions());
    }
}

bool QMMainFrame::HasDocument(const QMRegisterWindow* pDocument) const
{
    return std::find(m_apChildren.begin(), m_apChildren.end(), pDocument) != m_apChildren.end();
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
    pRegister.release(); // from here on it is deleted with its window
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
