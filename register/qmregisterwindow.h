// QMRegisterWindow: the document window that shows one account's register.
#pragma once

#include "account/qmdocument.h"
#include "register/qmregisterlist.h"
#include "register/qmregisteroperations.h"
#include "toolkit/vmdichildwindow.h"

// What the frame hands to every register.
struct QMRegisterOptions
{
    COLORREF crBalancePositive;
    COLORREF crBalanceNegative;
    bool bConfirmRemove;
    bool bIncludeUncleared;
    bool bSortEditLists;
    bool bPeriodFilter; // the Transactions Bar shows
};

class QMRegisterWindow : public VMDIChildWindow, private QMRegisterView
{
public:
    explicit QMRegisterWindow(const QMRegisterOptions& options);

    // ---- Virtual operations.

    bool QueryClose(bool bForced) override;
    bool OnCreate() override;
    void OnActivated() override { UpdateStatusBar(false); }
    void OnDeactivated() override { UpdateStatusBar(true); }
    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    // Reads the account of that name, or starts a new one, and makes the window; a password is
    // asked for. False when the file does not read or the password was not given; the file then
    // stays open and locked as long as this object lives.
    bool LoadAccount(VMDIFrameWindow& frame, const char* szFullName, bool bIsNew,
                     const char* szTitle, const VRect& rect, DWORD uStyle, HMENU hMenu,
                     HMENU hWindowMenu, HACCEL hAccelerators);

    VString GetFullName() const { return m_document.GetFullName(); }
    bool IsReadOnly() const { return m_document.IsReadOnly(); }
    QMRegisterModel& GetModel() { return m_model; }
    QMDocument& GetDocument() { return m_document; }
    QMRegisterOperations& GetOperations() { return m_operations; }
    bool HasSelection() const { return m_model.HasSelection(); }
    // Of the account, which an open window has.
    const QMAccountHeader& GetHeader() const { return m_document.GetAccount()->header; }
    const VString& GetFileName() const { return m_document.GetFileName(); }

    // Gives the register another font and text colour, which go into the account's header; nothing
    // happens when both are what it has.
    void SetFont(const LOGFONTA& font, COLORREF crText);

    // Saves under another name, in the format of that version word, and shows what was written. On
    // false nothing is changed.
    bool SaveAs(const char* szFullName, int32_t lVersion);

    // Runs the dialog that sets, changes or removes the account's password.
    void SetPassword();

    // Shows all transactions, or those of the account's period alone.
    void SetPeriodFilter(bool bEnabled);
    // As QMRegisterModel's.
    void SetPeriod(uint32_t uSelection, QMDate& dtFrom, QMDate& dtTo, bool bReload);

    // Sizes each column to its longest text or its heading.
    void AutoSizeColumns() { m_list.AutoSizeAll(); }

    // Takes over the transactions that an import review marked; their number, or -1 for lack of
    // memory.
    int32_t MergeMarked(QMTransactionStore& from);

    // What the frame's command for an account in read-only mode says.
    static constexpr char szReadOnly[] = "This command cannot be performed in read-only mode.";

    void UpdateStatusBar(bool bClear);

private:
    // The document, whose title is the window's.
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
    bool RunTransactionDialog(QMTransactionDialogArgs& args) override;
    void UpdateStatusBar() override { UpdateStatusBar(false); }

    // Of several registers, only the one on top speaks through the frame's bars.
    bool IsOnTop() const;
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
    bool m_bReady = false; // the list stands
};
