// The frame's commands: one table of what each needs and does.

#include "resources/resource.h"
#include "shell/qmmainframe.h"
#include "toolkit/vmessages.h"

// A command that is not in the table, nor an arrangement of windows, is disabled.
struct QMMainFrame::Command
{
    UINT uId;
    bool bNeedsChild;
    bool bNeedsTwoChildren;
    void (QMMainFrame::*pRun)(); // null for what the base class carries out
};

const QMMainFrame::Command QMMainFrame::aCommands[] = {
    {IDM_FILE_NEW, false, false, &QMMainFrame::NewDocument},
    {IDM_FILE_CLOSE, true, false, nullptr},
    {IDM_FILE_CLOSEALL, true, false, nullptr},
    {IDM_FILE_EXIT, false, false, &QMMainFrame::Exit},
    {IDM_VIEW_TOOLBAR, false, false, &QMMainFrame::ToggleToolbarBand},
    {IDM_VIEW_STATUSBAR, false, false, &QMMainFrame::ToggleStatusBar},
    {IDM_WINDOW_CASCADE, true, false, nullptr},
    {IDM_WINDOW_TILEHORIZONTAL, true, false, nullptr},
    {IDM_WINDOW_TILEVERTICAL, true, false, nullptr},
    {IDM_WINDOW_NEXT, true, true, nullptr},
    {IDM_WINDOW_PREVIOUS, true, true, nullptr},
};

LRESULT QMMainFrame::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    const VWaitCursor wait;
    if (Arrange(uId)) {
        return 0;
    }
    for (const Command& command : aCommands) {
        if (command.uId == uId) {
            (this->*command.pRun)();
            return 0;
        }
    }
    if (VMDIChildWindow* pChild = GetActiveChild()) {
        pChild->OnCommand(uNotifyCode, uId, hControl);
    }
    // The window menu's list of documents is the frame default's business.
    return V_NOT_HANDLED;
}

void QMMainFrame::OnUpdateCommand(HMENU /*hMenu*/, UINT uId, bool& bEnabled, bool& bChecked)
{
    if (uId >= m_uFirstChildId && uId < m_uFirstChildId + 100) {
        // A line of the window menu: its check mark is the system's.
        bChecked = GetActiveChild() != nullptr &&
                   GetDlgCtrlID(GetActiveChild()->GetHandle()) == static_cast<int>(uId);
        return;
    }
    bEnabled = false;
    for (const Command& command : aCommands) {
        if (command.uId == uId) {
            bEnabled = (!command.bNeedsChild || GetActiveChild() != nullptr) &&
                       (!command.bNeedsTwoChildren || m_apChildren.size() > 1);
        }
    }
    if (uId == IDM_VIEW_TOOLBAR) {
        bChecked = IsBarVisible(IDC_TOOLBAR);
    } else if (uId == IDM_VIEW_STATUSBAR) {
        bChecked = IsBarVisible(IDC_STATUSBAR);
    }
}

void QMMainFrame::Exit()
{
    OnClose(true);
}

void QMMainFrame::ToggleToolbarBand()
{
    m_settings.SetFlag(QM_FLAG_TOOLBAR, ToggleBand(IDC_TOOLBAR));
}

void QMMainFrame::ToggleStatusBar()
{
    m_settings.SetFlag(QM_FLAG_STATUS_BAR, ToggleBar(IDC_STATUSBAR));
}
