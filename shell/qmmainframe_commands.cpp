// The frame's commands: one table of what each needs, does and says, and the small ones themselves.

#include <iterator>

#include "resources/resource.h"
#include "shell/qmmainframe.h"
#include "toolkit/vdialog.h"
#include "toolkit/vmessages.h"

namespace {

// When a command's menu item is enabled.
enum class Offered
{
    Always,
    WithDocument,
    WithTwoDocuments,
    WithSelection,
    WithTag // and the selection's transactions may have that tag
};

constexpr char szCannotSave[] = "Cannot save file...\nNo document window is selected.";
constexpr char szCannotColumn[] = "Cannot change columns...\nNo document window is selected.";
constexpr char szCannotToggle[] = "Cannot toggle tag...\nNo document window is selected.";

constexpr struct
{
    UINT uId;
    uint32_t uTag;
} aTags[] = {
    {IDM_TRANSACTION_TAX, QM_TRANS_FLAG_TAX},
    {IDM_TRANSACTION_EXPENSE, QM_TRANS_FLAG_EXPENSE},
    {IDM_TRANSACTION_VOIDED, QM_TRANS_FLAG_VOIDED},
    // By way of its opposite.
    {IDM_TRANSACTION_CLEARED, QM_TRANS_FLAG_NOT_CLEARED},
};

uint32_t TagOf(UINT uId)
{
    for (const auto& tag : aTags) {
        if (tag.uId == uId) {
            return tag.uTag;
        }
    }
    return 0;
}

// The menu has the columns in the order of their bits.
uint32_t ColumnOf(UINT uId)
{
    return 1U << (uId - IDM_VIEW_DATE);
}

bool IsLimited(uint32_t uPeriod)
{
    return uPeriod > QM_ACCNT_DISPLAY_ALL && uPeriod <= QM_ACCNT_DISPLAY_DATE_RANGE;
}

} // namespace

// A command that is not in the table, nor an arrangement of windows, is disabled.
struct QMMainFrame::Command
{
    UINT uFirst; // the commands from here to uLast have this row
    UINT uLast;
    Offered offered;
    bool (QMMainFrame::*pRun)(UINT uId); // null for what the base class carries out
    bool (QMMainFrame::*pIsChecked)(UINT uId) const = nullptr;
    const char* szNoDocument = nullptr; // null where none is needed
    bool bReadOnlyStops = false;
    const char* szNoSelection = nullptr; // null where none is needed
    const char* szFailure = nullptr;     // null where the operation says it
    bool bUpdates = false;               // menu and toolbar follow
};

const QMMainFrame::Command QMMainFrame::aCommands[] = {
    {IDM_FILE_NEW, IDM_FILE_NEW, Offered::Always, &QMMainFrame::NewDocument},
    {IDM_FILE_OPEN, IDM_FILE_OPEN, Offered::Always, &QMMainFrame::OpenDocuments},
    {IDM_FILE_CLOSE, IDM_FILE_CLOSE, Offered::WithDocument, nullptr},
    {IDM_FILE_CLOSEALL, IDM_FILE_CLOSEALL, Offered::WithDocument, nullptr},
    {IDM_FILE_SAVE, IDM_FILE_SAVE, Offered::WithDocument, &QMMainFrame::SaveDocument, nullptr,
     szCannotSave, true},
    {IDM_FILE_SAVEAS, IDM_FILE_SAVEAS, Offered::WithDocument, &QMMainFrame::SaveDocumentAs, nullptr,
     szCannotSave, true},
    {IDM_FILE_SAVEALL, IDM_FILE_SAVEALL, Offered::WithDocument, &QMMainFrame::SaveAllDocuments},
    // An account in read-only mode takes imports all the same.
    {IDM_FILE_IMPORT, IDM_FILE_IMPORT, Offered::WithDocument, &QMMainFrame::ImportTransactions,
     nullptr, "Cannot import file...\nNo document window is selected."},
    {IDM_FILE_EXPORT, IDM_FILE_EXPORT, Offered::WithDocument, &QMMainFrame::ExportTransactions,
     nullptr, "Cannot export file...\nNo document window is selected."},
    {IDM_FILE_PASSWORD, IDM_FILE_PASSWORD, Offered::WithDocument, &QMMainFrame::SetPassword,
     nullptr, "Cannot set password...\nNo document window is selected."},
    {IDM_FILE_RECENT_FIRST, IDM_FILE_RECENT_LAST, Offered::Always, &QMMainFrame::OpenRecentCommand},
    {IDM_FILE_EXIT, IDM_FILE_EXIT, Offered::Always, &QMMainFrame::Exit},
    {IDM_VIEW_TOOLBAR, IDM_VIEW_TOOLBAR, Offered::Always, &QMMainFrame::ToggleToolbarBand,
     &QMMainFrame::IsToolbarShown},
    {IDM_VIEW_TRANSACTIONSBAR, IDM_VIEW_TRANSACTIONSBAR, Offered::Always,
     &QMMainFrame::TogglePeriodBand, &QMMainFrame::IsPeriodBarShown},
    {IDM_VIEW_STATUSBAR, IDM_VIEW_STATUSBAR, Offered::Always, &QMMainFrame::ToggleStatusBar,
     &QMMainFrame::IsStatusBarShown},
    {IDM_VIEW_GRIDLINES, IDM_VIEW_GRIDLINES, Offered::WithDocument, &QMMainFrame::ToggleGridLines,
     &QMMainFrame::HasGridLines, "Cannot change grid lines...\nNo document window is selected.",
     true, nullptr, nullptr, true},
    {IDM_VIEW_SHADEDLINES, IDM_VIEW_SHADEDLINES, Offered::WithDocument,
     &QMMainFrame::ToggleShadedLines, &QMMainFrame::HasShadedLines,
     "Cannot change shade lines...\nNo document window is selected.", true, nullptr, nullptr, true},
    {IDM_VIEW_DATE, IDM_VIEW_CLEARED, Offered::WithDocument, &QMMainFrame::ToggleColumn,
     &QMMainFrame::HasColumn, szCannotColumn, true, nullptr, nullptr, true},
    {IDM_TRANSACTION_ADD, IDM_TRANSACTION_ADD, Offered::WithDocument, &QMMainFrame::AddTransaction,
     nullptr, "Cannot add transaction...\nNo document window is selected.", true, nullptr,
     "Failed to add transaction.", true},
    {IDM_TRANSACTION_EDIT, IDM_TRANSACTION_EDIT, Offered::WithSelection,
     &QMMainFrame::EditTransactions, nullptr,
     "Cannot edit transaction...\nNo document window is selected.", true,
     "Cannot edit transaction.\nNo transaction is selected.", "Failed to edit transaction.", true},
    {IDM_TRANSACTION_REMOVE, IDM_TRANSACTION_REMOVE, Offered::WithSelection,
     &QMMainFrame::RemoveTransactions, nullptr,
     "Cannot remove transaction...\nNo document window is selected.", true,
     "Cannot remove transaction.\nNo transaction is selected.", "Failed to remove transaction.",
     true},
    {IDM_TRANSACTION_TAX, IDM_TRANSACTION_CLEARED, Offered::WithTag, &QMMainFrame::ToggleTag,
     nullptr, szCannotToggle, true, "Cannot toggle tag.\nNo transaction is selected.",
     "Failed to toggle tag."},
    {IDM_TOOLS_AUTOSIZE, IDM_TOOLS_AUTOSIZE, Offered::WithDocument, &QMMainFrame::AutoSizeColumns,
     nullptr, "Cannot autosize columns...\nNo document window is selected."},
    {IDM_WINDOW_CASCADE, IDM_WINDOW_CASCADE, Offered::WithDocument, nullptr},
    {IDM_WINDOW_TILEHORIZONTAL, IDM_WINDOW_TILEVERTICAL, Offered::WithDocument, nullptr},
    {IDM_WINDOW_NEXT, IDM_WINDOW_PREVIOUS, Offered::WithTwoDocuments, nullptr},
    {IDM_HELP_ABOUT, IDM_HELP_ABOUT, Offered::Always, &QMMainFrame::ShowAbout},
    {IDC_TB_PERIOD, IDC_TB_TO, Offered::WithDocument, &QMMainFrame::TakePeriod},
};

const QMMainFrame::Command* QMMainFrame::FindCommand(UINT uId)
{
    for (const Command& command : aCommands) {
        if (uId >= command.uFirst && uId <= command.uLast) {
            return &command;
        }
    }
    return nullptr;
}

void QMMainFrame::Tell(const char* szText)
{
    MessageBox(GetHandle(), szText, MB_ICONINFORMATION);
}

void QMMainFrame::TellOf(const char* szFront, const VString& sName, const char* szBehind)
{
    VString sText(szFront);
    sText.Append(sName);
    sText.Append(szBehind);
    Tell(sText.GetText());
}

// ---- The walk over the table.

LRESULT QMMainFrame::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    const VWaitCursor wait;
    if (Arrange(uId)) {
        return 0;
    }
    const Command* pCommand = FindCommand(uId);
    if (pCommand != nullptr && pCommand->pRun != nullptr) {
        RunCommand(*pCommand, uId);
        return 0;
    }
    if (VMDIChildWindow* pChild = GetActiveChild()) {
        pChild->OnCommand(uNotifyCode, uId, hControl);
    }
    // The window menu's list of documents is the frame default's business.
    return V_NOT_HANDLED;
}

// Says what the command lacks.
bool QMMainFrame::IsStopped(const Command& command)
{
    const QMRegisterWindow* pActive = GetActiveRegister();
    const char* szReason = nullptr;
    if (command.szNoDocument != nullptr && pActive == nullptr) {
        szReason = command.szNoDocument;
    } else if (command.bReadOnlyStops && pActive->IsReadOnly()) {
        szReason = QMRegisterWindow::szReadOnly;
    } else if (command.szNoSelection != nullptr && !pActive->HasSelection()) {
        szReason = command.szNoSelection;
    }
    if (szReason != nullptr) {
        Tell(szReason);
    }
    return szReason != nullptr;
}

bool QMMainFrame::RunCommand(const Command& command, UINT uId)
{
    if (IsStopped(command)) {
        return false;
    }
    const bool bDone = (this->*command.pRun)(uId);
    if (!bDone && command.szFailure != nullptr) {
        Tell(command.szFailure);
    }
    if (command.bUpdates) {
        UpdateCommands();
    }
    return bDone;
}

bool QMMainFrame::IsEnabled(const Command& command, UINT uId) const
{
    QMRegisterWindow* pActive = GetActiveRegister();
    if (command.offered == Offered::Always) {
        return true;
    }
    if (pActive == nullptr) {
        return false;
    }
    switch (command.offered) {
        case Offered::WithTwoDocuments:
            return m_apChildren.size() > 1;
        case Offered::WithSelection:
            return pActive->HasSelection();
        case Offered::WithTag:
            return pActive->HasSelection() && pActive->GetOperations().CanToggleTag(TagOf(uId));
        default:
            return true;
    }
}

void QMMainFrame::OnUpdateCommand(HMENU /*hMenu*/, UINT uId, bool& bEnabled, bool& bChecked)
{
    if (uId >= m_uFirstChildId && uId < m_uFirstChildId + 100) {
        // A line of the window menu: its check mark is the system's.
        bChecked = GetActiveChild() != nullptr &&
                   GetDlgCtrlID(GetActiveChild()->GetHandle()) == static_cast<int>(uId);
        return;
    }
    const Command* pCommand = FindCommand(uId);
    bEnabled = pCommand != nullptr && IsEnabled(*pCommand, uId);
    bChecked = pCommand != nullptr && pCommand->pIsChecked != nullptr &&
               (this->*pCommand->pIsChecked)(uId);
}

// ---- The program.

bool QMMainFrame::Exit(UINT /*uId*/)
{
    return OnClose(true);
}

bool QMMainFrame::ShowAbout(UINT /*uId*/)
{
    VDialog dialog;
    return dialog.DoModal(GetHandle(), IDD_ABOUT) == IDOK;
}

// ---- The bars.

bool QMMainFrame::ToggleToolbarBand(UINT /*uId*/)
{
    m_settings.SetFlag(QM_FLAG_TOOLBAR, ToggleBand(IDC_TOOLBAR));
    return true;
}

bool QMMainFrame::TogglePeriodBand(UINT /*uId*/)
{
    const bool bShown = ToggleBand(IDC_TRANSACTIONSBAR);
    m_settings.SetFlag(QM_FLAG_TRANSACTIONS_BAR, bShown);
    for (QMRegisterWindow* pChild : m_apChildren) {
        pChild->SetPeriodFilter(bShown);
    }
    return true;
}

bool QMMainFrame::ToggleStatusBar(UINT /*uId*/)
{
    m_settings.SetFlag(QM_FLAG_STATUS_BAR, ToggleBar(IDC_STATUSBAR));
    return true;
}

bool QMMainFrame::IsToolbarShown(UINT /*uId*/) const
{
    return IsBarVisible(IDC_TOOLBAR);
}

bool QMMainFrame::IsPeriodBarShown(UINT /*uId*/) const
{
    return IsBarVisible(IDC_TRANSACTIONSBAR);
}

bool QMMainFrame::IsStatusBarShown(UINT /*uId*/) const
{
    return IsBarVisible(IDC_STATUSBAR);
}

// ---- The register.

bool QMMainFrame::ToggleGridLines(UINT /*uId*/)
{
    GetActiveRegister()->GetOperations().ToggleGridLines();
    return true;
}

bool QMMainFrame::ToggleShadedLines(UINT /*uId*/)
{
    GetActiveRegister()->GetOperations().ToggleShadedLines();
    return true;
}

bool QMMainFrame::ToggleColumn(UINT uId)
{
    GetActiveRegister()->GetOperations().ToggleColumn(ColumnOf(uId));
    return true;
}

bool QMMainFrame::HasGridLines(UINT /*uId*/) const
{
    return GetActiveRegister() != nullptr && GetActiveRegister()->GetHeader().bGridLines != 0;
}

bool QMMainFrame::HasShadedLines(UINT /*uId*/) const
{
    return GetActiveRegister() != nullptr && GetActiveRegister()->GetHeader().bShadedLines != 0;
}

bool QMMainFrame::HasColumn(UINT uId) const
{
    return GetActiveRegister() != nullptr &&
           QMIsColumnShown(GetActiveRegister()->GetHeader(), ColumnOf(uId));
}

bool QMMainFrame::AddTransaction(UINT /*uId*/)
{
    return GetActiveRegister()->GetOperations().AddTransaction();
}

bool QMMainFrame::EditTransactions(UINT /*uId*/)
{
    return GetActiveRegister()->GetOperations().EditTransactions();
}

bool QMMainFrame::RemoveTransactions(UINT /*uId*/)
{
    return GetActiveRegister()->GetOperations().RemoveTransactions();
}

bool QMMainFrame::ToggleTag(UINT uId)
{
    return GetActiveRegister()->GetOperations().ToggleTag(TagOf(uId));
}

bool QMMainFrame::AutoSizeColumns(UINT /*uId*/)
{
    GetActiveRegister()->AutoSizeColumns();
    return true;
}

bool QMMainFrame::SetPassword(UINT /*uId*/)
{
    GetActiveRegister()->SetPassword();
    return true;
}

bool QMMainFrame::TakePeriod(UINT uId)
{
    QMRegisterWindow* pActive = GetActiveRegister();
    if (pActive == nullptr || m_pPeriodBar == nullptr) {
        return false;
    }
    const auto uPeriod = static_cast<uint32_t>(m_pPeriodBar->GetSelection());
    QMDate dtFrom;
    QMDate dtTo;
    if (uPeriod == QM_ACCNT_DISPLAY_DATE_RANGE && !IsLimited(m_uPreviousPeriod)) {
        // The range begins as that of all transactions.
        pActive->SetPeriod(QM_ACCNT_DISPLAY_ALL, dtFrom, dtTo, false);
        pActive->SetPeriod(QM_ACCNT_DISPLAY_DATE_RANGE, dtFrom, dtTo, true);
        m_pPeriodBar->SetDates(dtFrom, dtTo);
    } else if (IsLimited(uPeriod)) {
        m_pPeriodBar->GetDates(dtFrom, dtTo);
        pActive->SetPeriod(uPeriod, dtFrom, dtTo, true);
    } else {
        pActive->SetPeriod(QM_ACCNT_DISPLAY_ALL, dtFrom, dtTo, true);
    }
    if (uId == IDC_TB_PERIOD) {
        pActive->SetFocus();
    }
    m_uPreviousPeriod = uPeriod;
    return true;
}
