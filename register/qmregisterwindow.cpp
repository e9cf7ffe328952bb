#include "register/qmregisterwindow.h"

#include "account/qmmerge.h"
#include "account/qmsystemfont_win.h"
#include "base/vtext.h"
#include "entry/qmtransactiondialog.h"
#include "printing/vprintcontext.h"
#include "register/qmregisterpages.h"
#include "resources/resource.h"
#include "toolkit/vapplication.h"
#include "toolkit/vcolors.h"
#include "toolkit/vmdiframewindow.h"
#include "toolkit/vmessages.h"
#include "tools/qmpassworddialog.h"

namespace {

constexpr UINT uListId = 100;

// Passes the register's texts on to the panes of the frame's status bar.
class FramePanes : public QMStatusPanes
{
public:
    explicit FramePanes(VMDIFrameWindow& frame) : m_frame(frame) {}
    void SetPaneText(int nPane, const char* szText) override
    {
        m_frame.SetStatusText(szText, nPane);
    }

private:
    VMDIFrameWindow& m_frame;
};

bool IsSameFont(const LOGFONTA& a, const LOGFONTA& b)
{
    return a.lfHeight == b.lfHeight && a.lfWeight == b.lfWeight && a.lfItalic == b.lfItalic &&
           a.lfUnderline == b.lfUnderline && a.lfStrikeOut == b.lfStrikeOut &&
           VCompare(a.lfFaceName, b.lfFaceName) == 0;
}

} // namespace

void QMRegisterWindow::Document::OnTitleChanged()
{
    if (m_window.IsValid()) {
        m_window.SetText(GetTitle().GetText());
    }
}

QMRegisterWindow::QMRegisterWindow(const QMRegisterOptions& options)
    : m_document(*this),
      m_model(m_document, m_list),
      m_operations(m_document, m_list, m_model, *this),
      m_options(options)
{
    m_operations.SetConfirmRemove(options.bConfirmRemove);
    m_operations.SetSortEditLists(options.bSortEditLists);
    m_model.SetIncludeUncleared(options.bIncludeUncleared);
    m_model.SetPeriodFilter(options.bPeriodFilter, false);
    m_list.SetBalanceColors(options.crBalancePositive, options.crBalanceNegative);
}

void QMRegisterWindow::SetOptions(const QMRegisterOptions& options)
{
    const bool bShows = options.crBalancePositive != m_options.crBalancePositive ||
                        options.crBalanceNegative != m_options.crBalanceNegative ||
                        options.bIncludeUncleared != m_options.bIncludeUncleared;
    m_options = options;
    m_operations.SetConfirmRemove(options.bConfirmRemove);
    m_operations.SetSortEditLists(options.bSortEditLists);
    if (bShows) {
        m_list.SetBalanceColors(options.crBalancePositive, options.crBalanceNegative);
        m_model.SetIncludeUncleared(options.bIncludeUncleared);
        // A row's marks are set anew with its texts, so all columns take part.
        m_model.RefreshRows(0, QM_COLUMN_ALL, true);
    }
}

bool QMRegisterWindow::LoadAccount(VMDIFrameWindow& frame, const char* szFullName, bool bIsNew,
                                   const VChildArgs& args)
{
    auto pAccount = std::make_unique<QMAccount>(szFullName);
    QMAccount& account = *pAccount;
    m_document.SetAccount(std::move(pAccount));
    if (m_document.GetFileName().IsEmpty()) {
        return false;
    }
    if (!bIsNew && (!account.Read() || !AskForPassword(frame))) {
        return false;
    }
    CreatePointFont(m_font, account.header.szFontFace, account.header.lFontSize,
                    account.header.lFontStyle);
    if (!CreateChild(frame, args)) {
        return false;
    }
    // Wine 8 does not put the title of a document that comes up maximized into the frame's caption
    // until the title is set again.
    SetText(args.szTitle);
    return true;
}

bool QMRegisterWindow::AskForPassword(const VWindow& owner)
{
    const VString sPassword(m_document.GetAccount()->header.szPassword,
                            sizeof m_document.GetAccount()->header.szPassword);
    QMPasswordDialog dialog;
    return sPassword.IsEmpty() ||
           dialog.DoModal(owner.GetHandle(), sPassword.GetText(), GetFileName().GetText()) == IDOK;
}

bool QMRegisterWindow::OnCreate()
{
    SetClassLongPtrA(GetHandle(), GCLP_HICON,
                     reinterpret_cast<LONG_PTR>(LoadIconA(GetApplication().GetResourceModule(),
                                                          MAKEINTRESOURCEA(IDI_REGISTER))));
    if (!m_list.CreateList(*this, uListId)) {
        return false;
    }
    // Screen readers take this for the name of the list.
    m_list.SetText("Transactions");
    ShowFont(m_document.GetAccount()->header.lFontColor);
    m_list.Send(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(CLR_NONE));
    m_bReady = m_model.ShowAll();
    return m_bReady;
}

void QMRegisterWindow::ShowFont(COLORREF crText)
{
    m_list.Send(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.GetHandle()), TRUE);
    const bool bSystemColors = VNeedsSystemColors();
    m_list.SetSystemColors(bSystemColors);
    m_list.Send(LVM_SETTEXTCOLOR, 0,
                static_cast<LPARAM>(bSystemColors ? GetSysColor(COLOR_WINDOWTEXT) : crText));
}

void QMRegisterWindow::FollowSystemColors()
{
    m_list.Send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOW)));
    ShowFont(GetFontColor());
}

LOGFONTA QMRegisterWindow::GetFont() const
{
    LOGFONTA font = {};
    GetObjectA(m_font.GetHandle(), sizeof font, &font);
    return font;
}

void QMRegisterWindow::SetFont(const LOGFONTA& font, COLORREF crText)
{
    QMAccountHeader* pHeader = m_document.GetHeader(false);
    if (pHeader == nullptr || (IsSameFont(font, GetFont()) && crText == pHeader->lFontColor)) {
        return;
    }
    VFont old; // the list uses it until it has the new one
    old.Attach(m_font.Release());
    m_font.Attach(CreateFontIndirectA(&font));
    QMSetHeaderFont(*pHeader, QMDescribeFont(font, VDisplayDotsPerInch()));
    pHeader->lFontColor = crText;
    ShowFont(crText);
    m_document.MarkModified();
}

LRESULT QMRegisterWindow::OnSize(UINT /*uType*/, int nWidth, int nHeight)
{
    if (m_list.IsValid()) {
        m_list.Move({0, 0, nWidth, nHeight});
        m_list.AdjustFillerColumn();
    }
    // DefMDIChildProc must see the message too: it keeps the frame's caption and buttons right.
    return V_NOT_HANDLED;
}

LRESULT QMRegisterWindow::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_ERASEBKGND && m_list.IsValid()) {
        return 1;
    }
    const LRESULT lResult = VMDIChildWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
    if (uMessage == WM_SETFOCUS && m_list.IsValid()) {
        m_list.SetFocus();
    }
    return lResult;
}

LRESULT QMRegisterWindow::OnNotify(UINT /*uId*/, NMHDR* pHeader)
{
    if (!m_bReady) {
        return V_NOT_HANDLED;
    }
    if (pHeader->hwndFrom == m_list.GetHandle()) {
        FollowFocus();
        if (pHeader->code == NM_CLICK) {
            OnListClick(*reinterpret_cast<NMITEMACTIVATE*>(pHeader));
        } else if (pHeader->code == NM_DBLCLK) {
            OnListDoubleClick();
        }
    } else {
        FollowWidths();
    }
    return V_NOT_HANDLED;
}

bool QMRegisterWindow::IsOnTop() const
{
    return GetFrame()->GetActiveChild() == this;
}

void QMRegisterWindow::FollowFocus()
{
    if (m_model.SetFocusRow(m_list.GetFocusedRow()) && IsOnTop()) {
        GetFrame()->UpdateCommands();
        UpdateStatusBar();
    }
}

void QMRegisterWindow::OnListClick(const NMITEMACTIVATE& click)
{
    if (GetFrame()->IsBusy()) {
        // Somebody posted it: the user cannot get here.
        return;
    }
    const VCommandScope running(*GetFrame(), this);
    if (IsReadOnly()) {
        Tell(szReadOnly);
    } else if (m_model.HasSelection() &&
               m_model.GetColumns().FindColumnAt(click.ptAction.x) == QM_ENTRY_CLEARED) {
        m_operations.ToggleTag(QM_TRANS_FLAG_NOT_CLEARED);
    }
}

void QMRegisterWindow::OnListDoubleClick()
{
    if (GetFrame()->IsBusy()) {
        return;
    }
    const VCommandScope running(*GetFrame(), this);
    if (IsReadOnly()) {
        Tell(szReadOnly);
    } else if (m_model.HasSelection()) {
        m_operations.EditTransactions();
    } else {
        m_operations.AddTransaction();
    }
}

void QMRegisterWindow::FollowWidths()
{
    if (m_list.TakeOverWidths(m_model.GetColumns(), m_document.GetAccount()->header)) {
        m_list.AdjustFillerColumn();
    }
}

void QMRegisterWindow::UpdateStatusBar()
{
    if (IsOnTop()) {
        ShowPanes(false);
    }
}

void QMRegisterWindow::ShowPanes(bool bClear)
{
    FramePanes panes(*GetFrame());
    m_model.UpdateStatusBar(bClear, QMToday(), panes);
}

// ---- Operations.

bool QMRegisterWindow::Ask(const char* szQuestion)
{
    return MessageBox(GetHandle(), szQuestion, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void QMRegisterWindow::Tell(const char* szText)
{
    MessageBox(GetHandle(), szText, MB_ICONINFORMATION);
}

QMDialogEnd QMRegisterWindow::RunTransactionDialog(QMTransactionDialogArgs& args)
{
    QMTransactionDialog dialog;
    switch (dialog.DoModal(GetFrame()->GetHandle(), args)) {
        case IDOK:
            return QMDialogEnd::OK;
        case IDCANCEL:
            return QMDialogEnd::Cancel;
        default:
            return QMDialogEnd::Failed;
    }
}

void QMRegisterWindow::SetPassword()
{
    QMAccountHeader* pHeader = m_document.GetHeader(false);
    QMSetPasswordDialog dialog;
    if (pHeader != nullptr &&
        dialog.DoModal(GetFrame()->GetHandle(), pHeader->szPassword) == IDOK) {
        dialog.GetPassword(pHeader->szPassword);
        m_document.MarkModified();
    }
}

void QMRegisterWindow::ReloadRows()
{
    const int32_t lFocus = m_model.GetStoredFocusRow();
    m_model.RebuildRows(true);
    m_model.RefreshRows(0, QM_COLUMN_ALL, false);
    m_model.SelectRow(lFocus);
    UpdateStatusBar();
}

bool QMRegisterWindow::SaveAs(const char* szFullName, int32_t lVersion, QMProgress* pProgress)
{
    if (!m_document.SaveAs(szFullName, lVersion, pProgress)) {
        return false;
    }
    ReloadRows();
    return true;
}

int32_t QMRegisterWindow::MergeMarked(QMTransactionStore& from, QMProgress* pProgress)
{
    const int32_t lCount = QMMergeMarked(from, m_document.GetAccount()->store, pProgress);
    if (lCount >= 0) {
        ReloadRows();
        m_document.MarkModified();
    }
    return lCount;
}

bool QMRegisterWindow::PrintRegister(VPrintContext& context, uint32_t uFlags)
{
    if (!IsValid() || !m_list.IsValid() || m_document.GetAccount() == nullptr) {
        return false;
    }
    context.szTitle = m_document.GetFileName();
    return QMRegisterPages(m_list, m_model.GetColumns(), m_document.GetAccount()->header)
        .Render(context, uFlags);
}

void QMRegisterWindow::SetPeriodFilter(bool bEnabled)
{
    m_model.SetPeriodFilter(bEnabled, true);
    UpdateStatusBar();
}

void QMRegisterWindow::SetPeriod(uint32_t uSelection, QMDate& dtFrom, QMDate& dtTo, bool bReload)
{
    m_model.SetPeriod(uSelection, dtFrom, dtTo, bReload);
    UpdateStatusBar();
}

bool QMRegisterWindow::AskToSave()
{
    VString sQuestion("Save changes to '");
    sQuestion.Append(m_document.GetFileName());
    sQuestion.Append("'?");
    const int nAnswer =
        MessageBox(GetHandle(), sQuestion.GetText(), MB_YESNOCANCEL | MB_ICONQUESTION);
    return nAnswer == IDNO || (nAnswer == IDYES && GetFrame()->SaveClosingChild(*this));
}

bool QMRegisterWindow::QueryClose(bool bForced)
{
    if (m_document.GetAccount() == nullptr) {
        return false;
    }
    if (m_document.IsModified() && !bForced) {
        const VCommandScope running(*GetFrame(), this);
        if (!AskToSave()) {
            return false;
        }
    }
    m_document.GetAccount()->Close();
    m_bReady = false;
    DestroyChild();
    return true;
}
