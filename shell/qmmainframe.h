// QMMainFrame: the program's one top-level window. It owns the open registers, the bars, the file
// dialogs and the settings.
#pragma once

#include <memory>
#include <vector>

#include "register/qmregisterwindow.h"
#include "register/qmtbtrans.h"
#include "settings/qmrecentlist.h"
#include "settings/qmsettings.h"
#include "shell/qmbars.h"
#include "shell/qmcommand.h"
#include "shell/qmfiledialogs.h"
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

    // ---- Documents. What goes wrong is said in a box, but by CreateDocument.

    // Opens a file that the user or a command line named; true when the account is open now.
    bool OpenDocument(const char* szName);
    // Makes a register window, of the file or of a new account.
    bool CreateDocument(const char* szName, bool bIsNew);
    // Opens every file of a command line.
    void ProcessCommandLine(const char* szText);
    // Whether a file is open in a register; bActivate brings it to the front.
    bool ActivateIfOpen(const char* szPath, bool bActivate);

    // Both choose the format by the path's extension. False when the format failed; an import that
    // the user gave up counts as done.
    bool ImportFile(const char* szPath, QMRegisterWindow& document);
    bool ExportFile(const char* szPath, QMRegisterWindow& document);
    // ImportFile, and its failure in a box.
    void ImportInto(QMRegisterWindow& document, const VString& sPath);

    // ---- Recent files.

    void AddRecent(const char* szPath);
    void RemoveRecent(const char* szPath);
    // Makes the submenu agree with the list.
    void RebuildRecentMenu();
    // Opens what the slot of a command names; true when a window is open for it now, and for a free
    // slot.
    bool OpenRecent(UINT uCommand);

    // ---- Settings.

    // The folder in which the file dialogs start.
    void SetCurrentDirectory(const char* szPath) { m_settings.SetCurrentDirectory(szPath); }
    void SetChildMaximized(bool bMaximized);

    // ---- For the commands' functions.

    QMSettings& GetSettings() { return m_settings; }
    QMFileDialogs& GetFileDialogs() { return m_fileDialogs; }
    // Null for none.
    QMRegisterWindow* GetActiveRegister() const;
    // In the order of their creation.
    const std::vector<QMRegisterWindow*>& GetDocuments() const { return m_apChildren; }
    // "Untitled" with the next number, which is then used up.
    VString TakeUntitledName();
    // The register on top shows the period that the Transactions Bar shows; the command is that of
    // the control that changed. False without a register.
    bool TakePeriod(UINT uId);
    // Shows a box with a sentence. TellOf's has a file's name between its two parts.
    void Tell(const char* szText);
    void TellOf(const char* szFront, const VString& sName, const char* szBehind);

    // ---- Virtual operations.

    bool OnClose(bool bForced) override;
    bool PreTranslate(MSG& message) override;
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
    // ---- Coming up.

    void ShowSplash();
    void HideSplash();
    void MakeToolbar();
    void MakePeriodBar();
    void RestoreBars();
    void OpenFirstDocuments();
    void NotePlace(bool bExtent);
    QMRegisterOptions RegisterOptions() const;
    LRESULT TakeArguments(const COPYDATASTRUCT* pData);
    void ProcessArgument(const char* szArgument);
    void ImportFromArgument(const char* szOrder);
    void ShowTooltip(NMTTDISPINFOA& info);

    // ---- Commands.

    void RunCommand(const QMCommand& command, UINT uId);
    bool IsEnabled(const QMCommand& command, UINT uId) const;

    VString m_sArguments;
    QMSettings m_settings;
    VMenu m_menu;
    VMenu m_recentMenu;
    HACCEL m_hAccelDocument;
    uint32_t m_uNextUntitled = 1;
    std::vector<QMRegisterWindow*> m_apChildren; // in the order of their creation
    // Registers that could not be opened. Their files stay open, and locked, with them.
    std::vector<std::unique_ptr<QMRegisterWindow>> m_apRefused;
    std::unique_ptr<VToolbar> m_pToolbar;
    std::unique_ptr<QMTBTrans> m_pPeriodBar;
    uint32_t m_uPreviousPeriod = 0; // of the Transactions Bar before its last change
    QMFileDialogs m_fileDialogs;
    VSplashWindow* m_pSplash = nullptr; // live only as long as the user lets it
    UINT m_uClientId = 0;
    UINT m_uFirstChildId = 0;
    bool m_bRestoring = true; // sizes and moves are not the user's yet
};
