#include "register/qmregistermodel.h"

#include <cstdio>

namespace {

constexpr const char* aWeekdays[7] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                      "Thursday", "Friday", "Saturday"};

// The columns that show a field as it is. Debit and Credit both show the amount; the type decides
// which.
constexpr struct
{
    QMColumn column;
    QMFieldKind kind;
} aTextColumns[] = {
    {QM_ENTRY_DATE, QM_FIELD_DATE},
    {QM_ENTRY_NUMBER, QM_FIELD_NUMBER},
    {QM_ENTRY_DESCRIPTION, QM_FIELD_DESCRIPTION},
    {QM_ENTRY_BALANCE, QM_FIELD_BALANCE},
    {QM_ENTRY_MEMO, QM_FIELD_MEMO},
    {QM_ENTRY_CATEGORY, QM_FIELD_CATEGORY},
};

} // namespace

// One run of RefreshRows. It knows which columns are written, and writes a row.
class QMRegisterModel::Refresh
{
public:
    Refresh(const QMRegisterModel& model, uint32_t uColumnMask) : m_rows(model.m_rows)
    {
        for (int32_t i = 0; i < QM_ENTRY_FILLER; ++i) {
            const auto column = static_cast<QMColumn>(i);
            const bool bInMask = (uColumnMask & QMGetColumnInfo(column).uMask) != 0;
            m_aIndex[i] = bInMask ? model.m_columns.GetListIndex(column) : -1;
        }
    }

    bool WriteRow(int32_t lRow, const QMTransaction& transaction, double dShownBalance)
    {
        for (const auto& text : aTextColumns) {
            if (!WriteField(lRow, text.column, transaction, text.kind, dShownBalance)) {
                return false;
            }
        }
        return WriteAmount(lRow, transaction) &&
               m_rows.SetDecoration(lRow, Decoration(transaction, dShownBalance));
    }

private:
    bool IsWritten(QMColumn column) const { return m_aIndex[column] >= 0; }

    bool WriteField(int32_t lRow, QMColumn column, const QMTransaction& transaction,
                    QMFieldKind kind, double dShownBalance)
    {
        if (!IsWritten(column)) {
            return true;
        }
        const int32_t lLength = transaction.FormatField(kind, m_szText, true, dShownBalance);
        const std::string_view text(m_szText, static_cast<size_t>(lLength < 0 ? 0 : lLength));
        return m_rows.SetCellText(lRow, m_aIndex[column], text);
    }

    bool WriteAmount(int32_t lRow, const QMTransaction& transaction)
    {
        const QMSide side = QMTypeSide(transaction.lType);
        if (side == QMSide::None) {
            return true;
        }
        const bool bDebit = side == QMSide::Debit;
        const QMColumn column = bDebit ? QM_ENTRY_DEBIT : QM_ENTRY_CREDIT;
        const QMColumn other = bDebit ? QM_ENTRY_CREDIT : QM_ENTRY_DEBIT;
        return WriteField(lRow, column, transaction, QM_FIELD_AMOUNT, 0) &&
               (!IsWritten(other) || m_rows.SetCellText(lRow, m_aIndex[other], {}));
    }

    uint32_t Decoration(const QMTransaction& transaction, double dShownBalance) const
    {
        uint32_t uWord = 0;
        if (IsWritten(QM_ENTRY_CLEARED)) {
            if (transaction.HasFlag(QM_TRANS_FLAG_VOIDED)) {
                uWord |= QM_DECOR_VOIDED;
            } else if (!transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)) {
                uWord |= QM_DECOR_CLEARED;
            }
        }
        if (IsWritten(QM_ENTRY_BALANCE)) {
            uWord |= dShownBalance >= 0 ? QM_DECOR_POSITIVE : QM_DECOR_NEGATIVE;
        }
        if (IsWritten(QM_ENTRY_TAG)) {
            if (transaction.HasFlag(QM_TRANS_FLAG_TAX)) {
                uWord |= QM_DECOR_TAX;
            } else if (transaction.HasFlag(QM_TRANS_FLAG_EXPENSE)) {
                uWord |= QM_DECOR_EXPENSE;
            }
        }
        return uWord;
    }

    QMRowList& m_rows;
    int32_t
        m_aIndex[QM_ENTRY_FILLER]; // list index of each column that is written; -1 for the others
    char m_szText[QM_FIELD_TEXT_SIZE];
};

bool QMRegisterModel::IsDateShown(const QMDate& date) const
{
    const QMAccountHeader& header = m_document.GetAccount()->header;
    return !m_bPeriodFilter || header.lDisplayPeriod == QM_ACCNT_DISPLAY_ALL ||
           QMDateIsInRange(date, header.dtPeriodFrom, header.dtPeriodTo);
}

bool QMRegisterModel::RebuildRows(bool bWithColumns)
{
    const QMAccount* pAccount = m_document.GetAccount();
    if (pAccount == nullptr || (m_rows.GetRowCount() > 0 && !m_rows.DeleteAllRows())) {
        return false;
    }
    if (bWithColumns) {
        m_columns.LoadFrom(pAccount->header);
        if (!m_rows.RebuildColumns(m_columns)) {
            return false;
        }
    }
    bool bDone = pAccount->store.IsEmpty() || m_rows.SetCapacity(pAccount->store.GetCount());
    pAccount->store.ForEach([&](const QMTransaction& transaction) {
        bDone = bDone && (!IsDateShown(transaction.dtDate) || m_rows.AppendRow());
    });
    if (bDone) {
        m_rows.AdjustFillerColumn();
    }
    return bDone;
}

bool QMRegisterModel::RefreshRows(int32_t lFromPosition, uint32_t uColumnMask, bool bRepaint)
{
    QMAccount* pAccount = m_document.GetAccount();
    if (pAccount == nullptr) {
        return false;
    }
    if (!pAccount->store.IsEmpty()) {
        if (lFromPosition >= pAccount->store.GetCount() ||
            !FillRows(lFromPosition, uColumnMask, pAccount->store)) {
            return false;
        }
    }
    if (bRepaint) {
        m_rows.Repaint();
    }
    return true;
}

bool QMRegisterModel::FillRows(int32_t lFromPosition, uint32_t uColumnMask,
                               QMTransactionStore& store)
{
    Refresh refresh(*this, uColumnMask);
    const int32_t lRowCount = m_rows.GetRowCount();
    int32_t lRow = lFromPosition > m_lFirstShown ? lFromPosition - m_lFirstShown : 0;
    m_dBalance = m_dAvailable = 0;
    m_lFirstShown = -1;
    for (store.First();;) {
        const QMTransaction& transaction = *store.GetCurrentNode();
        transaction.ApplyToBalances(m_dBalance, m_dAvailable);
        if (IsDateShown(transaction.dtDate)) {
            if (m_lFirstShown < 0) {
                m_lFirstShown = store.GetPosition();
            }
            if (store.GetPosition() >= lFromPosition) {
                if (lRow >= lRowCount) {
                    break;
                }
                const double dShown = m_bIncludeUncleared ? m_dAvailable : m_dBalance;
                if (!refresh.WriteRow(lRow++, transaction, dShown)) {
                    return false;
                }
            }
        }
        if (!store.Next()) {
            break;
        }
    }
    if (m_lFirstShown < 0) {
        m_lFirstShown = 0;
    }
    return true;
}

void QMRegisterModel::FindFirstShown()
{
    const QMAccount* pAccount = m_document.GetAccount();
    m_lFirstShown = 0;
    if (pAccount == nullptr) {
        return;
    }
    int32_t lPosition = 0;
    bool bFound = false;
    pAccount->store.ForEach([&](const QMTransaction& transaction) {
        if (!bFound && IsDateShown(transaction.dtDate)) {
            bFound = true;
            m_lFirstShown = lPosition;
        }
        ++lPosition;
    });
}

bool QMRegisterModel::SelectRow(int32_t lRow)
{
    QMAccount* pAccount = m_document.GetAccount();
    if (pAccount == nullptr || lRow < 0 || lRow >= m_rows.GetRowCount()) {
        return false;
    }
    return pAccount->store.MoveTo(m_lFirstShown + lRow) && m_rows.SelectRow(lRow);
}

bool QMRegisterModel::SetFocusRow(int32_t lRow)
{
    if (lRow == m_lFocusRow) {
        return false;
    }
    m_lFocusRow = lRow;
    if (lRow >= 0 && m_document.GetAccount() != nullptr) {
        m_document.GetAccount()->store.MoveTo(m_lFirstShown + lRow);
    }
    return true;
}

void QMRegisterModel::SetPeriod(uint32_t uSelection, QMDate& dtFrom, QMDate& dtTo, bool bReload)
{
    QMAccount* pAccount = m_document.GetAccount();
    if (pAccount == nullptr) {
        return;
    }
    QMAccountHeader& header = pAccount->header;
    bool bChanged = header.lDisplayPeriod != uSelection;
    if (uSelection == QM_ACCNT_DISPLAY_ALL) {
        QMTransaction transaction;
        pAccount->store.First();
        pAccount->store.GetCurrent(transaction);
        dtFrom = transaction.dtDate;
        pAccount->store.Last();
        pAccount->store.GetCurrent(transaction);
        dtTo = transaction.dtDate;
    } else {
        bChanged = bChanged || !QMDateIsEqual(header.dtPeriodFrom, dtFrom) ||
                   !QMDateIsEqual(header.dtPeriodTo, dtTo);
    }
    header.dtPeriodFrom = dtFrom;
    header.dtPeriodTo = dtTo;
    header.lDisplayPeriod = uSelection;
    if (bChanged) {
        m_document.MarkModified();
    }
    if (bReload) {
        Reload(false);
    }
}

void QMRegisterModel::SetPeriodFilter(bool bEnabled, bool bReload)
{
    m_bPeriodFilter = bEnabled;
    if (bReload) {
        Reload(false);
    }
}

bool QMRegisterModel::ShowAll()
{
    return Reload(true);
}

bool QMRegisterModel::Reload(bool bWithColumns)
{
    if (!RebuildRows(bWithColumns) || !RefreshRows(0, QM_COLUMN_ALL, false)) {
        return false;
    }
    m_lFocusRow = m_rows.GetRowCount() - 1;
    return m_lFocusRow < 0 || SelectRow(m_lFocusRow);
}

void QMRegisterModel::UpdateStatusBar(bool bClear, const QMDate& dtToday,
                                      QMStatusPanes& panes) const
{
    if (bClear) {
        for (int nPane = 1; nPane <= QMStatusPanes::nCount; ++nPane) {
            panes.SetPaneText(nPane, "");
        }
        return;
    }
    // A double has at most 309 digits before its point, so the text fits.
    char szText[400];
    const int32_t lSelected = m_rows.GetSelectedCount();
    if (lSelected > 1) {
        snprintf(szText, sizeof szText, " %d Transactions Selected", lSelected);
    } else if (lSelected == 1) {
        snprintf(szText, sizeof szText, " Transaction: %d of %d", m_lFocusRow + 1, GetRowCount());
    } else {
        snprintf(szText, sizeof szText, " No Transaction Selected");
    }
    panes.SetPaneText(1, szText);
    snprintf(szText, sizeof szText, " Balance: $%0.2f", GetBalance(false));
    panes.SetPaneText(2, szText);
    snprintf(szText, sizeof szText, " Available: $%0.2f", GetBalance(true));
    panes.SetPaneText(3, szText);
    snprintf(szText, sizeof szText, " %s, %d/%d/%4d", aWeekdays[dtToday.wDayOfWeek % 7],
             dtToday.wMonth, dtToday.wDay, dtToday.wYear);
    panes.SetPaneText(4, szText);
}
