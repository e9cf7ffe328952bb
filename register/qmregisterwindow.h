// QMRegisterWindow: the document window that shows one account's register.
#pragma once

#include "account/qmdocument.h"
#include "register/qmregisterlist.h"
#include "register/qmregistermodel.h"
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

class QMRegisterWindow : public VMDIChildWindow
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

    // Reads the account of that name, or starts a new one, and makes the window. False when the
    // file does not read or has a password that was not given; it then stays open and locked as
    // long as this object lives.
    bool LoadAccount(VMDIFrameWindow& frame, const char* szFullName, bool bIsNew,
                     const char* szTitle, const VRect& rect, DWORD uStyle, HMENU hMenu,
                     HMENU hWindowMenu, HACCEL hAccelerators);

    VString GetFullName() const { return m_document.GetFullName(); }
    bool IsReadOnly() const { return m_document.IsReadOnly(); }
    QMRegisterModel& GetModel() { return m_model; }
    QMDocument& GetDocument() { return m_document; }

    // Gives the register another font and text colour, which go into the account's header; nothing
    // happens when both are what it has.
    void SetFont(const LOGFONTA& font, COLORREF crText);

    // Shows all transactions, or those of the account's period alone.
    void SetPeriodFilter(bool bEnabled) { m_model.SetPeriodFilter(bEnabled, true); }

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

    bool AskToSave();
    void ShowFont(COLORREF crText);
    void FollowFocus();
    void FollowWidths();

    QMRegisterOptions m_options;
    Document m_document;
    QMRegisterList m_list;
    QMRegisterModel m_model;
    VFont m_font;
    bool m_bReady = false; // the list stands
};
