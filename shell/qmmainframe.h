// QMMainFrame: the top-level window of the program. It owns the registers, the bars, the file
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
#include "shell/qmhelpviewer.h"
#include "shell/qmprinting.h"
#include "toolkit/vmdiframewindow.h"
#include "toolkit/vsplashwindow.h"
#include "tools/qmcalculator.h"

// A message that the frame posts to itself when a command has ended and import orders wait.
inline constexpr UINT QM_ORDERS_MESSAGE = WM_APP;

// How a save ended.
enum class QMSaveEnd
{
    Saved,
    Cancelled, // by the user; the file is as it was
    Failed
};

class QMMainFrame : public VMDIFrameWindow
{
public:
    // szArguments holds the arguments of the program, as QMJoinArguments makes them.
    explicit QMMainFrame(const char* szArguments);
    ~QMMainFrame() override;

    // Reads the settings, makes the window and runs the message loop. Returns the exit code.
    int Run(DWORD uStyle, int nShowCommand, UINT uClientId, UINT uFirstChildId);

    // ---- Documents. Each says in a box what went wrong, except CreateDocument.

    // Opens a file that the user or a command line has named. Returns whether the account is open
    // now.
    bool OpenDocument(const char* szName);
    // Makes a register window for an existing file or for a new account.
    bool CreateDocument(const char* szName, bool bIsNew);
    // Opens every file of a command line and carries out its import order.
    void ProcessCommandLine(const char* szText);
    // Whether a file is open in a register. bActivate makes that register the active one.
    bool ActivateIfOpen(const char* szPath, bool bActivate);

    // Saves the document in place, and shows how far that is when it takes long. Says nothing.
    QMSaveEnd Save(QMRegisterWindow& document);
    // Asks for a name and a format and saves the document there. Returns false when the user
    // cancels, and when the save failed, after a message about it.
    bool SaveUnder(QMRegisterWindow& document);

    // Both choose the format by the extension of the path. They return false when the format
    // failed. An import that the user cancels returns true.
    bool ImportFile(const char* szPath, QMRegisterWindow& document);
    bool ExportFile(const char* szPath, QMRegisterWindow& document);
    // Calls ImportFile and says in a box when it failed.
    void ImportInto(QMRegisterWindow& document, const VString& sPath);

    // ---- Recent files.

    void AddRecent(const char* szPath);
    void RemoveRecent(const char* szPath);
    // Brings the submenu up to date with the list.
    void RebuildRecentMenu();
    // Opens the file in the slot that belongs to a command. Returns true when it is open now, and
    // for a free slot.
    bool OpenRecent(UINT uCommand);

    // ---- Settings.

    // Sets the folder in which the file dialogs start.
    void SetCurrentDirectory(const char* szPath) { m_settings.SetCurrentDirectory(szPath); }
    void SetChildMaximized(bool bMaximized);

    // ---- For the handlers of the commands.

    QMSettings& GetSettings() { return m_settings; }
    QMFileDialogs& GetFileDialogs() { return m_fileDialogs; }
    QMCalculator& GetCalculator() { return m_calculator; }
    // Whether a register that was active when a dialog came up is still open.
    bool HasDocument(const QMRegisterWindow* pDocument) const;
    // Gives the settings to every register.
    void SetRegisterOptions();
    // Opens the program's help: a topic of the file, or the file itself for an empty text. The
    // command is the viewer's. Where there is no viewer nothing happens.
    void ShowHelp(const char* szTopic, UINT uCommand);
    // The document that prints the active register; null before the window is made.
    VPrintDocument* GetPrintDocument() { return m_pPrintDocument.get(); }
    // Stores the page setup of that document.
    void SavePageSetup() const;
    // The active register; null when there is none.
    QMRegisterWindow* GetActiveRegister() const;
    // All registers, in the order in which they were made.
    const std::vector<QMRegisterWindow*>& GetDocuments() const { return m_apChildren; }
    // Returns "Untitled" with the next number, and counts on.
    VString TakeUntitledName();
    // Gives the period of the Transactions Bar to the active register. uId is the control that the
    // user has changed. Returns false when there is no register.
    bool TakePeriod(UINT uId);
    // Both show a sentence in a box. TellOf puts the name of a file between its two parts.
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
    void OnCommandEnded() override;
    bool SaveClosingChild(VMDIChildWindow& child) override;

private:
    // An order of a command line to import a file into an account.
    struct ImportOrder
    {
        VString sImported;
        VString sAccount;
    };

    // ---- The start of the program.

    void ShowSplash();
    void HideSplash();
    void MakePrintDocument();
    void MakeToolbar();
    void MakePeriodBar();
    void RestoreBars();
    VRect GetFirstPlace() const;
    void OpenFirstDocuments();
    void NotePlace(bool bExtent);
    QMRegisterOptions RegisterOptions() const;
    LRESULT TakeArguments(const COPYDATASTRUCT* pData);
    void ProcessArgument(const char* szArgument);
    void ImportFromArgument(const char* szOrder);
    void RunOrder(const ImportOrder& order);
    void RunOrders();
    void ShowTooltip(NMTTDISPINFOA& info);

    bool MoveToOrFromBar(const MSG& message);

    // ---- Commands.

    void RunCommand(const QMCommand& command, UINT uId);
    static bool Perform(const QMCommand& command, QMCommandContext& context);
    // Says that a command failed for lack of memory.
    void TellOfMemory(UINT uMessage, WPARAM wParam);
    bool IsEnabled(const QMCommand& command, UINT uId) const;

    VString m_sArguments;
    QMSettings m_settings;
    VMenu m_menu;
    VMenu m_recentMenu;
    HACCEL m_hAccelDocument;
    uint32_t m_uNextUntitled = 1;
    std::vector<QMRegisterWindow*> m_apChildren; // in the order in which they were made
    // Registers that could not be opened.
    //
    // Kept: their files stay open and locked until the program ends, so a second attempt in the
    // same run fails.
    std::vector<std::unique_ptr<QMRegisterWindow>> m_apRefused;
    std::unique_ptr<VToolbar> m_pToolbar;
    std::unique_ptr<QMTBTrans> m_pPeriodBar;
    uint32_t m_uPreviousPeriod = 0; // the period of the Transactions Bar before its last change
    QMFileDialogs m_fileDialogs;
    QMCalculator m_calculator;
    QMHelpViewer m_helpViewer;
    VString m_sHelpPath;
    std::unique_ptr<VPrintDocument> m_pPrintDocument;
    VSplashWindow* m_pSplash = nullptr; // not valid any more when the user has closed it by a click
    std::vector<ImportOrder> m_orders;  // for accounts that a command works on, until it ends
    bool m_bClosing = false;            // OnClose asks the documents
    UINT m_uClientId = 0;
    UINT m_uFirstChildId = 0;
    bool m_bRestoring = true; // the program, not the user, maximizes the frame
};
