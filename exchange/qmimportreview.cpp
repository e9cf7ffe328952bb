#include "exchange/qmimportreview.h"

#include <algorithm>

#include "register/qmrowlist.h"

namespace {

constexpr QMImportColumnInfo aColumns[QM_IMPORT_COUNT] = {
    {"", QMAlignment::Centre, 50},           {"Cleared", QMAlignment::Centre, 30},
    {"Date", QMAlignment::Right, 55},        {"Number", QMAlignment::Right, 50},
    {"Description", QMAlignment::Left, 250}, {"Debit", QMAlignment::Right, 60},
    {"Credit", QMAlignment::Right, 60},      {"Memo", QMAlignment::Left, 240},
    {"Category", QMAlignment::Left, 240},    {"", QMAlignment::Centre, 256},
};

// The field that a column shows; QM_FIELD_COUNT when it shows none.
uint32_t FieldOf(const QMTransaction& transaction, QMImportColumn column)
{
    switch (column) {
        case QM_IMPORT_DATE:
            return QM_FIELD_DATE;
        case QM_IMPORT_NUMBER:
            return QM_FIELD_NUMBER;
        case QM_IMPORT_DESCRIPTION:
            return QM_FIELD_DESCRIPTION;
        case QM_IMPORT_DEBIT:
            return transaction.IsDebitType() ? QM_FIELD_AMOUNT : QM_FIELD_COUNT;
        case QM_IMPORT_CREDIT:
            return transaction.IsCreditType() ? QM_FIELD_AMOUNT : QM_FIELD_COUNT;
        case QM_IMPORT_MEMO:
            return QM_FIELD_MEMO;
        case QM_IMPORT_CATEGORY:
            return QM_FIELD_CATEGORY;
        default:
            return QM_FIELD_COUNT;
    }
}

} // namespace

const QMImportColumnInfo& QMGetImportColumnInfo(QMImportColumn column)
{
    return aColumns[column];
}

QMImportColumn QMFindImportColumn(const int32_t (&aWidth)[QM_IMPORT_COUNT], int32_t lPixels)
{
    int32_t lRight = 0;
    for (int32_t i = 0; i < QM_IMPORT_COUNT && lPixels >= 0; ++i) {
        lRight += aWidth[i];
        if (lPixels < lRight) {
            return static_cast<QMImportColumn>(i);
        }
    }
    return QM_IMPORT_COUNT;
}

int32_t QMImportFillerWidth(const int32_t (&aWidth)[QM_IMPORT_COUNT], int32_t lWindow)
{
    int32_t lLeft = lWindow;
    for (int32_t i = 0; i < QM_IMPORT_FILLER; ++i) {
        lLeft -= aWidth[i];
    }
    return std::max(lLeft, 0);
}

const char* QMImportText(const QMTransaction& transaction, QMImportColumn column, char* szBuffer)
{
    // For QM_FIELD_COUNT, GetFieldText makes the text empty.
    transaction.GetFieldText(FieldOf(transaction, column), szBuffer, true, 0);
    return szBuffer;
}

// A voided transaction has no mark of its own: its description ends in "(voided)".
uint32_t QMImportDecoration(const QMTransaction& transaction)
{
    return transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED) ? 0 : QM_DECOR_CLEARED;
}

QMBoxState QMNextBoxState(uint32_t uState)
{
    return uState == QM_BOX_ON ? QM_BOX_OFF : QM_BOX_ON;
}

const QMTransaction* QMToggleImportCleared(QMTransactionStore& store, int32_t lRow)
{
    if (!store.MoveTo(lRow)) {
        return nullptr;
    }
    store.ToggleCleared();
    return store.GetCurrentNode();
}

void QMSetImportCleared(QMTransactionStore& store, bool bCleared)
{
    store.First();
    for (int32_t lRow = 0; lRow < store.GetCount(); ++lRow) {
        store.SetCleared(bCleared);
        store.Next();
    }
}
