// QMRegisterWindow: the MDI child window that shows the register of one account.
#pragma once

#include "account/qmdocument.h"
#include "register/qmregisterlist.h"
#include "register/qmregisteroperations.h"
#include "toolkit/vmdichildwindow.h"

// What the frame gives to every register.
struct QMRegisterOptions
{
    COLORREF crBalancePositive;
    COLORREF crBalanceNegative;
    bool bConfirmRemove;
    bool bIncludeUncleared;
    bool bSortEditLists;
    bool bPeriodFilter; // true while the Transactions Bar is shown
};

struct VPrintContext;

class QMRegisterWindow : public VMDIChildWindow, private QMRegisterView
{
public:
    explicit QMRegisterWindow(const QMRegisterOptions& options);

    // ---- Virtual operations.

    bool QueryClose(bool bForced) override;
    bool OnCreate() override;
    void OnActivated() override { ShowPanes(false); }
    void OnDeactivated() override { ShowPanes(true); }
    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    // Reads the account of that name, or starts a new one, asks for its password, and makes the
    // window. Returns false when the file cannot be read or the password was not given.
    //
    // Kept: after such a failure the file stays open and locked for as long as this object lives.
    bool LoadAccount(VMDIFrameWindow& frame, const char* szFullName, bool bIsNew,
                     const VChildArgs& args);

    VString GetFullName() const { return m_document.GetFullName(); }
    bool IsReadOnly() const { return m_document.IsReadOnly(); }
    QMRegisterModel& GetModel() { return m_model; }
    QMDocument& GetDocument() { return m_document; }
    QMRegisterOperations& GetOperations() { return m_operations; }
    bool HasSelection() const { return m_model.HasSelection(); }
    // The header of the account. Only an open window has one.
    const QMAccountHeader& GetHeader() const { return m_document.GetAccount()->header; }
    const VString& GetFileName() const { return m_document.GetFileName(); }

    // Takes over what the user chose, but for the period filter. The rows are brought up to date
    // and painted where that changes what they show.
    void SetOptions(const QMRegisterOptions& options);

    // Takes over the system's colours after they changed.
    void FollowSystemColors();

    // The register's font, and the colour of its text.
    LOGFONTA GetFont() const;
    COLORREF GetFontColor() const { return GetHeader().lFontColor; }

    // Gives the register another font and text colour, and puts both into the account's header.
    // Does nothing when the register has both already.
    void SetFont(const LOGFONTA& font, COLORREF crText);

    // Saves the account under another name, in the format version lVersion, and shows what was
    // written. On false nothing has changed. See QMDocument::SaveAs for pProgress.
    bool SaveAs(const char* szFullName, int32_t lVersion, QMProgress* pProgress);

    // Runs the dialog that sets, changes or removes the password of the account.
    void SetPassword();

    // Shows all transactions, or only those of the account's period.
    void SetPeriodFilter(bool bEnabled);
    // See QMRegisterModel::SetPeriod.
    void SetPeriod(uint32_t uSelection, QMDate& dtFrom, QMDate& dtTo, bool bReload);

    // Fills the context with the pages of what the list shows. The flags are QM_PRINT_ bits.
    // Returns false without a window or an account, and when memory for the pages cannot be had.
    bool PrintRegister(VPrintContext& context, uint32_t uFlags);

    // Sizes each column to its widest text or its heading.
    void AutoSizeColumns() { m_list.AutoSizeAll(); }

    // Merges the transactions that an import review has marked into the account. Returns their
    // number; -1 when memory ran out, and when pProgress gave the work up.
    int32_t MergeMarked(QMTransactionStore& from, QMProgress* pProgress);

    // The sentence of every command that a read-only account refuses.
    static constexpr char szReadOnly[] = "This command cannot be performed in read-only mode.";

private:
    // The document. Its title is the caption of the window.
    class Document : public QMDocument
    {
    public:
        explicit Document(QMRegisterWindow& window) : m_window(window) {}

    protected:
        void OnTitleChanged() override;

    private:
        QMRegisterWindow& m_window;
    };

    // ---- QMRegisterView.

    bool Ask(const char* szQuestion) override;
    void Tell(const char* szText) override;
    QMDialogEnd RunTransactionDialog(QMTransactionDialogArgs& args) override;
    void UpdateStatusBar() override;

    // Whether this register is the active one. Only the active register may write to the frame's
    // bars.
    bool IsOnTop() const;
    void ShowPanes(bool bClear);
    bool AskForPassword(const VWindow& owner);
    bool AskToSave();
    void ReloadRows();
    void OnListClick(const NMITEMACTIVATE& click);
    void OnListDoubleClick();
    void ShowFont(COLORREF crText);
    void FollowFocus();
    void FollowWidths();

    Document m_document;
    QMRegisterList m_list;
    QMRegisterModel m_model;
    QMRegisterOperations m_operations;
    VFont m_font;
    QMRegisterOptions m_options;
    bool m_bReady = false; // the list has been made
};
