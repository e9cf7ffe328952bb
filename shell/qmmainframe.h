// QMMainFrame: the program's one top-level window. It owns the open registers, the bars and the
// settings.
#pragma once

#include <memory>
#include <vector>

#include "register/qmregisterwindow.h"
#include "shell/qmbars.h"
#include "shell/qmsettings.h"
#include "toolkit/vmdiframewindow.h"
#include "toolkit/vsplashwindow.h"

// What a second start of the program hands to the first.
inline constexpr char QM_ARGUMENT_SEPARATOR = ',';

class QMMainFrame : public VMDIFrameWindow
{
public:
    // szArguments holds the program's own arguments, each with a comma behind it.
    explicit QMMainFrame(const char* szArguments);
    ~QMMainFrame() override;

    // Reads the settings, makes the window and runs the message loop. Returns the exit code.
    int Run(DWORD uStyle, int nShowCommand, UINT uClientId, UINT uFirstChildId);

    // Opens a file that the user or a command line named; true when the account is open now. What
    // goes wrong is said in a box.
    bool OpenDocument(const char* szName);
    // Makes a register window, of the file or of a new account.
    bool CreateDocument(const char* szName, bool bIsNew);
    // Opens every file of a command line.
    void ProcessCommandLine(const char* szText);
    // Whether a file is open in a register; bActivate brings it to the front.
    bool ActivateIfOpen(const char* szPath, bool bActivate);

    // ---- Virtual operations.

    bool OnClose(bool bForced) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    bool OnInitialize() override;
    std::unique_ptr<VStatusBar> CreateStatusBar() override;
    std::unique_ptr<VToolbar> CreateToolbar() override;
    void OnUpdateCommand(HMENU hMenu, UINT uId, bool& bEnabled, bool& bChecked) override;
    void OnChildCreated(VMDIChildWindow& child) override;
    void OnChildActivated(VMDIChildWindow& child) override;
    void OnChildDeactivated(VMDIChildWindow& child) override;
    void OnChildDestroyed(VMDIChildWindow& child) override;
    void OnChildGone(VMDIChildWindow& child) override;

private:
    struct Command;
    static const Command aCommands[];

    void ShowSplash();
    void HideSplash();
    void MakeToolbar();
    void RestoreBars();
    void NoteChildMaximized(const VMDIChildWindow& child);
    void NotePlace(bool bExtent);
    QMRegisterOptions RegisterOptions() const;
    QMRegisterWindow* GetActiveRegister() const;
    LRESULT TakeArguments(const COPYDATASTRUCT* pData);
    void ProcessArgument(const char* szArgument);
    void ImportFromArgument(const char* szOrder);
    void ShowTooltip(NMTTDISPINFOA& info);

    // ---- Commands.

    void NewDocument();
    void Exit();
    void ToggleToolbarBand();
    void ToggleStatusBar();

    VString m_sArguments;
    QMSettings m_settings;
    VMenu m_menu;
    HACCEL m_hAccelDocument;
    uint32_t m_uNextUntitled = 1;
    std::vector<QMRegisterWindow*> m_apChildren; // in the order of their creation
    // Registers that could not be opened. Their files stay open, and locked, with them.
    std::vector<std::unique_ptr<QMRegisterWindow>> m_apRefused;
    std::unique_ptr<VToolbar> m_pToolbar;
    VSplashWindow* m_pSplash = nullptr; // live only as long as the user lets it
    UINT m_uClientId = 0;
    UINT m_uFirstChildId = 0;
    bool m_bRestoring = true; // sizes and moves are not the user's yet
};
