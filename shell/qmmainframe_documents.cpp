// How the frame comes to an open document: by a name, by a command line, or as a new account.

#include <algorithm>

#include "base/vfilesystem.h"
#include "base/vstringlist.h"
#include "resources/resource.h"
#include "shell/qmcommandline.h"
#include "shell/qmmainframe.h"
#include "shell/qmprogressdialog.h"
#include "toolkit/vmessages.h"

namespace {

constexpr DWORD uChildStyle = WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW;
constexpr char szExtension[] = "qmk";

VString LongName(const VString& sName)
{
    char szLong[260];
    const DWORD uLength = GetLongPathNameA(sName.GetText(), szLong, sizeof szLong);
    return uLength > 0 && uLength < sizeof szLong ? VString(szLong) : sName;
}

// Saves with its progress shown. Nothing else works on the document meanwhile.
template <class F>
QMSaveEnd Watched(QMMainFrame& frame, const QMRegisterWindow& document, F save)
{
    const VCommandScope running(frame, &document);
    QMProgressDialog progress(frame.GetHandle(), "Saving account...");
    if (save(progress)) {
        return QMSaveEnd::Saved;
    }
    return progress.IsCancelled() ? QMSaveEnd::Cancelled : QMSaveEnd::Failed;
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
    sName = LongName(QMFullName(sName));
    if (ActivateIfOpen(sName.GetText(), true) || CreateDocument(sName.GetText(), false)) {
        return true;
    }
    TellOf("Failed to open file '", sName, "'.");
    return false;
}

bool QMMainFrame::ActivateIfOpen(const char* szPath, bool bActivate)
{
    const auto found = std::ranges::find_if(m_apChildren, [&](const QMRegisterWindow* pChild) {
        return pChild->GetFullName().CompareNoCase(szPath) == 0;
    });
    if (found == m_apChildren.end()) {
        return false;
    }
    if (bActivate) {
        ActivateChild(**found);
    }
    return true;
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
    const VChildArgs args = {.szTitle = szName,
                             .uStyle = bMaximized ? uChildStyle | WS_MAXIMIZE : uChildStyle,
                             .hMenu = GetMenu(GetHandle()),
                             .hWindowMenu = GetWindowMenu(),
                             .hAccelerators = m_hAccelDocument};
    if (!pRegister->LoadAccount(*this, szName, bIsNew, args)) {
        m_apRefused.push_back(std::move(pRegister));
        return false;
    }
    static_cast<void>(pRegister.release()); // from here on it is deleted with its window
    if (!bIsNew) {
        AddRecent(szName);
        RebuildRecentMenu();
    }
    return true;
}

void QMMainFrame::ProcessCommandLine(const char* szText)
{
    const VCommandScope running(*this);
    VStringList arguments(szText, QM_ARGUMENT_SEPARATOR);
    while (const char* szArgument = arguments.Next()) {
        ProcessArgument(szArgument);
    }
}

void QMMainFrame::ProcessArgument(const char* szArgument)
{
    if (!QMIsOption(szArgument)) {
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
    RunOrder({QMFullName(sImported), szPart == nullptr ? "" : szPart});
}

// Opens the account at once, and imports into it when no command works on it.
void QMMainFrame::RunOrder(const ImportOrder& order)
{
    if (!OpenDocument(order.sAccount.GetText()) || GetActiveRegister() == nullptr) {
        return;
    }
    QMRegisterWindow& document = *GetActiveRegister();
    if (IsBusyWith(document)) {
        // The running command needs the transactions to keep their positions.
        m_orders.push_back({order.sImported, document.GetFullName()});
        return;
    }
    ImportInto(document, order.sImported);
}

void QMMainFrame::OnCommandEnded()
{
    if (!m_orders.empty()) {
        // Functions of the command have not returned yet, so the orders must wait for a message.
        Post(QM_ORDERS_MESSAGE);
    }
}

void QMMainFrame::RunOrders()
{
    const std::vector<ImportOrder> orders = std::move(m_orders);
    m_orders.clear();
    for (const ImportOrder& order : orders) {
        RunOrder(order);
    }
}

// ---- Saving.

QMSaveEnd QMMainFrame::Save(QMRegisterWindow& document)
{
    return Watched(*this, document,
                   [&](QMProgress& progress) { return document.GetDocument().Save(&progress); });
}

bool QMMainFrame::SaveUnder(QMRegisterWindow& document)
{
    VFileDialog& dialog = m_fileDialogs.save;
    const VString sName = document.GetFullName();
    if (!dialog.Run(GetHandle(), {.bOpen = false,
                                  .uFlags = OFN_HIDEREADONLY,
                                  .szFileName = sName.GetText(),
                                  .szDirectory = m_settings.GetCurrentDirectory().GetText(),
                                  .szDefaultExtension = szExtension})) {
        return false;
    }
    const VWaitCursor wait;
    SetCurrentDirectory(dialog.GetDirectory().GetText());
    const VString sPath = dialog.GetPath();
    const QMSaveEnd end = Watched(*this, document, [&](QMProgress& progress) {
        return document.SaveAs(sPath.GetText(), QMVersionOfFilter(dialog.GetFilterIndex()),
                               &progress);
    });
    if (end != QMSaveEnd::Saved) {
        if (end == QMSaveEnd::Failed) {
            TellOf("Failed to save file '", sPath, "'.");
        }
        return false;
    }
    AddRecent(sPath.GetText());
    RebuildRecentMenu();
    return true;
}

bool QMMainFrame::SaveClosingChild(VMDIChildWindow& child)
{
    auto& document = static_cast<QMRegisterWindow&>(child);
    if (!document.GetDocument().GetAccount()->IsOpen()) {
        // The account was never saved, and the user did not choose its present name.
        return SaveUnder(document);
    }
    // Kept: a save that fails here is not told, and the window closes.
    return Save(document) != QMSaveEnd::Cancelled;
}
