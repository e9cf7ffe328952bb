// The frame's roads to an open document: a name, a command line, a new account.

#include "resources/resource.h"
#include "shell/qmmainframe.h"
#include "toolkit/vfilesystem.h"
#include "toolkit/vmessages.h"
#include "toolkit/vstringlist.h"

namespace {

constexpr DWORD uChildStyle = 0x50CF0000;

VString Quote(const char* szFront, const char* szName, const char* szBehind)
{
    VString sText(szFront);
    sText.Append(szName);
    sText.Append(szBehind);
    return sText;
}

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
        MessageBox(GetHandle(), "Failed to open file. No file name given.", MB_ICONINFORMATION);
        return false;
    }
    VString sName(szName);
    sName.Trim();
    if (!FileExists(sName.GetText())) {
        const VString sText =
            Quote("Failed to open.\nFile '", sName.GetText(), "' does not exist.");
        MessageBox(GetHandle(), sText.GetText(), MB_ICONINFORMATION);
        return false;
    }
    sName = LongName(sName);
    if (ActivateIfOpen(sName.GetText(), true) || CreateDocument(sName.GetText(), false)) {
        return true;
    }
    const VString sText = Quote("Failed to open file '", sName.GetText(), "'.");
    MessageBox(GetHandle(), sText.GetText(), MB_ICONINFORMATION);
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
    // No format is read yet, so that every import fails.
    if (OpenDocument(szPart == nullptr ? "" : szPart) && GetActiveChild() != nullptr) {
        const VString sText =
            Quote("Failed to import transactions from file\n'", sImported.GetText(), "'.");
        MessageBox(GetHandle(), sText.GetText(), MB_ICONINFORMATION);
    }
}

void QMMainFrame::NewDocument()
{
    VString sName("Untitled");
    sName.AppendNumber(m_uNextUntitled++);
    if (!CreateDocument(sName.GetText(), true)) {
        MessageBox(GetHandle(), "Failed to open new Quillmark file.", MB_ICONINFORMATION);
    }
}
