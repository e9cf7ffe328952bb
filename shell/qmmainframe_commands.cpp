// How the frame finds and carries out its commands, which are rows of tables. CONTRIBUTING.md tells
// step by step how to add one. A command that is in the menu and in no table stays disabled.

#include "register/qmregisterwindow.h"
#include "shell/qmcommand.h"
#include "shell/qmmainframe.h"
#include "toolkit/vmessages.h"

namespace {

// What the command lacks, as a sentence for the user; empty when it lacks nothing.
VString FindLack(const QMCommand& command, const QMRegisterWindow* pDocument)
{
    if (command.needs >= QMNeeds::Document && pDocument == nullptr) {
        return QMCannot(command.szWhat);
    }
    if (command.needs >= QMNeeds::WritableDocument && pDocument->IsReadOnly()) {
        return {QMRegisterWindow::szReadOnly};
    }
    if (command.needs >= QMNeeds::Selection && !pDocument->HasSelection()) {
        return QMNothingSelected(command.szWhat);
    }
    return {};
}

} // namespace

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

LRESULT QMMainFrame::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    const VWaitCursor wait;
    if (m_calculator.IsActive()) {
        m_calculator.Post(WM_COMMAND, MAKEWPARAM(uId, uNotifyCode));
        return 0;
    }
    if (IsBusy()) {
        // It was posted from outside: the user cannot get here while a dialog is open.
        return 0;
    }
    if (Arrange(uId)) {
        return 0;
    }
    const QMCommand* pCommand = QMFindCommand(uId);
    if (pCommand != nullptr && pCommand->pRun != nullptr) {
        RunCommand(*pCommand, uId);
        return 0;
    }
    if (VMDIChildWindow* pChild = GetActiveChild()) {
        pChild->OnCommand(uNotifyCode, uId, hControl);
    }
    // DefFrameProc handles the commands of the window list in the Window menu.
    return V_NOT_HANDLED;
}

void QMMainFrame::RunCommand(const QMCommand& command, UINT uId)
{
    QMCommandContext context = {*this, GetActiveRegister(), uId};
    const VString sLack = FindLack(command, context.pDocument);
    if (!sLack.IsEmpty()) {
        Tell(sLack.GetText());
        return;
    }
    if (!Perform(command, context) && command.bTellsFailure) {
        Tell(QMFailedTo(command.szWhat).GetText());
    }
    if (command.bUpdates) {
        UpdateCommands();
    }
}

bool QMMainFrame::Perform(const QMCommand& command, QMCommandContext& context)
{
    if (command.bCloses) {
        return command.pRun(context);
    }
    const bool bOnDocument = command.needs != QMNeeds::Nothing;
    const VCommandScope running(context.frame, bOnDocument ? context.pDocument : nullptr);
    return command.pRun(context);
}

void QMMainFrame::TellOfMemory(UINT uMessage, WPARAM wParam)
{
    const QMCommand* pCommand = uMessage == WM_COMMAND ? QMFindCommand(LOWORD(wParam)) : nullptr;
    if (pCommand != nullptr) {
        const char* szWhat = pCommand->szWhat;
        Tell(QMFailedTo(szWhat == nullptr ? "complete the command" : szWhat).GetText());
    }
}

bool QMMainFrame::IsEnabled(const QMCommand& command, UINT uId) const
{
    QMRegisterWindow* pActive = GetActiveRegister();
    if (command.offered == QMOffered::Always) {
        return true;
    }
    if (pActive == nullptr) {
        return false;
    }
    switch (command.offered) {
        case QMOffered::WithTwoDocuments:
            return m_apChildren.size() > 1;
        case QMOffered::WithSelection:
            return pActive->HasSelection();
        case QMOffered::WithTag:
            return pActive->HasSelection() &&
                   pActive->GetOperations().CanToggleTag(QMTagOfCommand(uId));
        default:
            return true;
    }
}

void QMMainFrame::OnUpdateCommand(HMENU /*hMenu*/, UINT uId, bool& bEnabled, bool& bChecked)
{
    if (uId >= m_uFirstChildId && uId < m_uFirstChildId + 100) {
        // A line of the window list. Windows sets its check mark by itself; this keeps it as it is.
        bChecked = GetActiveChild() != nullptr &&
                   GetDlgCtrlID(GetActiveChild()->GetHandle()) == static_cast<int>(uId);
        return;
    }
    const QMCommand* pCommand = QMFindCommand(uId);
    bEnabled = pCommand != nullptr && IsEnabled(*pCommand, uId);
    bChecked = pCommand != nullptr && pCommand->pIsChecked != nullptr &&
               pCommand->pIsChecked({*this, GetActiveRegister(), uId});
}
