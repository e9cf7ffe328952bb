// The walk over the tables of commands.
//
// To add a command without a key of its own and without a button:
//   1. resources/resource.h   a number for it, IDM_MENU_NAME;
//   2. resources/menu.rc      its item;
//   3. resources/strings.rc   its prompt, with the same number;
//   4. shell/qmTOPICcommands.cpp, TOPIC being its menu: a row that tells when it is offered, what
//   it
//      needs and which words stand for it, and the function that carries it out.
// What its function needs of the frame it asks for by QMCommandContext; the frame's class does not
// change. A command that is in the menu and in no table stays disabled. A key is a line in
// resources/accelerators.rc, a button one in qmbars.cpp and a picture.

#include "register/qmregisterwindow.h"
#include "shell/qmcommand.h"
#include "shell/qmmainframe.h"
#include "toolkit/vmessages.h"

namespace {

// What the command lacks, as it is said to the user; empty for nothing.
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
    // The window menu's list of documents is the frame default's business.
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
    if (!command.pRun(context) && command.bTellsFailure) {
        Tell(QMFailedTo(command.szWhat).GetText());
    }
    if (command.bUpdates) {
        UpdateCommands();
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
        // A line of the window menu: its check mark is the system's.
        bChecked = GetActiveChild() != nullptr &&
                   GetDlgCtrlID(GetActiveChild()->GetHandle()) == static_cast<int>(uId);
        return;
    }
    const QMCommand* pCommand = QMFindCommand(uId);
    bEnabled = pCommand != nullptr && IsEnabled(*pCommand, uId);
    bChecked = pCommand != nullptr && pCommand->pIsChecked != nullptr &&
               pCommand->pIsChecked({*this, GetActiveRegister(), uId});
}
