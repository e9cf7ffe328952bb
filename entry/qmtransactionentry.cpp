#include "entry/qmtransactionentry.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "account/qmmoney.h"
#include "base/vtext.h"

namespace {

// The first fault that is found gives the sentence. Validate never reports the description and the
// memo, and the category has no sentence.
constexpr struct
{
    uint32_t uFault;
    const char* szSentence;
} aSentences[] = {
    {QM_FAULT_TYPE, "Invalid transaction type."},
    {QM_FAULT_NUMBER, "An invalid check number was entered."},
    {QM_FAULT_MONTH, "An invalid month was entered."},
    {QM_FAULT_DAY, "An invalid day was entered."},
    {QM_FAULT_YEAR, "An invalid year was entered."},
    {QM_FAULT_DESCRIPTION, "A description was not entered."},
    {QM_FAULT_AMOUNT, "An invalid amount was entered."},
    {QM_FAULT_MEMO, "An invalid memo was entered."},
    {QM_FAULT_FLAGS, "Invalid check boxes were selected."},
};

VString NumberText(uint32_t uNumber)
{
    VString sText;
    sText.AppendNumber(uNumber);
    return sText;
}

VString AmountText(const QMTransaction& transaction)
{
    char szText[64];
    QMFormatMoney(transaction.GetRoundedAmount(), 0, szText, sizeof szText);
    return VString(szText);
}

QMEntryBoxes BoxesOf(const QMTransaction& transaction)
{
    return {.bTax = transaction.HasFlag(QM_TRANS_FLAG_TAX),
            .bExpense = transaction.HasFlag(QM_TRANS_FLAG_EXPENSE),
            .bVoided = transaction.HasFlag(QM_TRANS_FLAG_VOIDED),
            .bCleared = !transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)};
}

uint32_t FlagsOf(const QMEntryBoxes& boxes)
{
    return (boxes.bTax ? QM_TRANS_FLAG_TAX : 0) | (boxes.bExpense ? QM_TRANS_FLAG_EXPENSE : 0) |
           (boxes.bVoided ? QM_TRANS_FLAG_VOIDED : 0) |
           (boxes.bCleared ? 0 : QM_TRANS_FLAG_NOT_CLEARED);
}

} // namespace

QMEntrySwitches QMSwitchesOfType(int32_t lType)
{
    switch (lType) {
        case QM_TRANS_CHECK:
            return {.bNumber = true, .bDescription = true, .bTag = true};
        case QM_TRANS_DIRECT_DEBIT:
        case QM_TRANS_AUTOMATIC_PAYMENT:
        case QM_TRANS_TRANSFER_DEBIT:
            return {.bTag = true};
        default:
            return {};
    }
}

const char* QMFaultSentence(uint32_t uFaults)
{
    for (const auto& known : aSentences) {
        if ((uFaults & known.uFault) != 0) {
            return known.szSentence;
        }
    }
    return nullptr;
}

uint32_t QMReadCheckNumber(const char* szText)
{
    while (VIsSpace(*szText)) {
        ++szText;
    }
    uint32_t uNumber = 0;
    std::from_chars(szText, szText + strlen(szText), uNumber);
    return uNumber;
}

QMTransactionEntry::QMTransactionEntry(QMTransactionDialogArgs& args) : m_args(args)
{
    TakeEntry();
}

void QMTransactionEntry::TakeEntry()
{
    m_current.CopyFrom(m_args.pTransactions[m_nIndex]);
}

VString QMTransactionEntry::CurrentDescription() const
{
    char szText[QM_FIELD_TEXT_SIZE];
    m_current.GetFieldText(QM_FIELD_DESCRIPTION, szText, false, 0);
    return VString(szText);
}

QMEntryFields QMTransactionEntry::Begin()
{
    if (!IsAddMode()) {
        return ShowCurrent(m_current.lType);
    }
    QMEntryFields fields;
    fields.lType = QM_TRANS_CHECK;
    ApplyBoxes(fields.boxes);
    ApplyType(fields);
    return fields;
}

QMEntryFields QMTransactionEntry::ShowCurrent(int32_t lType)
{
    QMEntryFields fields;
    fields.lType = QMTypeLabel(lType) == nullptr ? -1 : lType;
    fields.dtDate = m_current.dtDate;
    fields.dtCleared = m_current.dtCleared;
    fields.sAmount = AmountText(m_current);
    fields.sMemo = m_current.szMemo;
    fields.sCategory = m_current.szCategory;
    fields.boxes = m_states = BoxesOf(m_current);
    ApplyType(fields);
    return fields;
}

void QMTransactionEntry::ApplyType(QMEntryFields& fields)
{
    const QMEntrySwitches switches = QMSwitchesOfType(fields.lType);
    fields.sNumber = switches.bNumber ? NumberText(m_current.lNumber) : VString();
    // Kept: the text depends on the stored type, not on the one that was pressed. So a stored
    // deposit that becomes a check shows "Deposit" as its payee, for the user to overtype.
    fields.sDescription =
        switches.bDescription ? CurrentDescription() : VString(QMTypeLabel(fields.lType));
    if (!switches.bTag) {
        m_states.bTax = m_states.bTax && !fields.boxes.bTax;
        m_states.bExpense = m_states.bExpense && !fields.boxes.bExpense;
    }
    fields.boxes = m_states;
}

void QMTransactionEntry::ApplyBoxes(QMEntryBoxes& boxes)
{
    if (boxes.bTax && !m_states.bTax) {
        m_states.bTax = true;
        m_states.bVoided = m_states.bExpense = false;
    } else if (boxes.bExpense && !m_states.bExpense) {
        m_states.bExpense = true;
        m_states.bVoided = m_states.bTax = false;
    } else if (boxes.bVoided && !m_states.bVoided) {
        m_states = {.bVoided = true};
    } else if (boxes.bCleared && !m_states.bCleared) {
        m_states.bCleared = true;
        m_states.bVoided = false;
    } else {
        m_states = boxes;
    }
    boxes = m_states;
}

QMDate QMTransactionEntry::ClearedDateFor(const QMDate& dtDate, const QMDate& dtCleared) const
{
    return IsAddMode() || QMDateIsBefore(dtCleared, dtDate) ? dtDate : dtCleared;
}

QMDate QMTransactionEntry::DateFor(const QMDate& dtDate, const QMDate& dtCleared)
{
    return QMDateIsBefore(dtCleared, dtDate) ? dtCleared : dtDate;
}

void QMTransactionEntry::Read(const QMEntryFields& fields)
{
    if (fields.lType >= 0) {
        m_current.lType = fields.lType;
    }
    // Other types keep the number and the description that they have. What the fields then show
    // does not come from the user.
    if (fields.lType == QM_TRANS_CHECK) {
        m_current.lNumber = QMReadCheckNumber(fields.sNumber.GetText());
        VCopyText(m_current.szDescription, fields.sDescription.GetText());
    }
    m_current.dtDate = fields.dtDate;
    m_current.dtCleared = fields.dtCleared;
    // Kept: a comma is not ignored here, unlike in an import: 1,234.56 reads as 1.
    m_current.fAmount = static_cast<float>(VParseDouble(fields.sAmount.GetText()));
    VCopyText(m_current.szMemo, fields.sMemo.GetText());
    VCopyText(m_current.szCategory, fields.sCategory.GetText());
    m_current.lFlags = FlagsOf(fields.boxes);
}

const char* QMTransactionEntry::Accept(const QMEntryFields& fields)
{
    Read(fields);
    m_uFaults = m_current.Validate();
    const char* szFault = QMFaultSentence(m_uFaults);
    if (szFault == nullptr) {
        m_args.pTransactions[m_nIndex].CopyFrom(m_current);
    }
    return szFault;
}

bool QMTransactionEntry::Commit()
{
    return m_args.pfnCommit == nullptr ||
           m_args.pfnCommit(m_args.pTransactions[m_nIndex], m_args.pUserA[m_nIndex],
                            m_args.pUserB[m_nIndex]);
}

QMEntryFields QMTransactionEntry::BeginNext()
{
    TakeEntry();
    return ShowCurrent(QM_TRANS_CHECK);
}

int32_t QMTransactionEntry::IndexAfter(QMEntryMove move) const
{
    switch (move) {
        case QMEntryMove::First:
            return 0;
        case QMEntryMove::Previous:
            return std::max(m_nIndex - 1, 0);
        case QMEntryMove::Next:
            return std::min(m_nIndex + 1, m_args.nCount - 1);
        default:
            return m_args.nCount - 1;
    }
}

bool QMTransactionEntry::CanMove(QMEntryMove move) const
{
    return !IsAddMode() && IndexAfter(move) != m_nIndex;
}

QMEntryFields QMTransactionEntry::Move(QMEntryMove move)
{
    m_nIndex = IndexAfter(move);
    TakeEntry();
    return ShowCurrent(m_current.lType);
}
