// The rules of the import review: what each row shows, and what its boxes do to the transactions
// that were read. Row r shows the transaction at store position r.
#pragma once

#include <cstdint>

#include "account/qmtransactionstore.h"
#include "register/qmcolumntable.h"

enum QMImportColumn : int32_t
{
    QM_IMPORT_CHECK, // the check boxes of the list
    QM_IMPORT_CLEARED,
    QM_IMPORT_DATE,
    QM_IMPORT_NUMBER,
    QM_IMPORT_DESCRIPTION,
    QM_IMPORT_DEBIT,
    QM_IMPORT_CREDIT,
    QM_IMPORT_MEMO,
    QM_IMPORT_CATEGORY,
    QM_IMPORT_FILLER, // takes the width that the others leave
    QM_IMPORT_COUNT,
};

struct QMImportColumnInfo
{
    const char* szHeading;
    QMAlignment alignment;
    int32_t lWidth; // in pixels
};

const QMImportColumnInfo& QMGetImportColumnInfo(QMImportColumn column);

// The column that is lPixels to the right of the left edge of the first. aWidth holds the widths in
// pixels. Returns QM_IMPORT_COUNT outside all columns.
QMImportColumn QMFindImportColumn(const int32_t (&aWidth)[QM_IMPORT_COUNT], int32_t lPixels);

// The width that the other columns leave of a window, in pixels; never below 0.
int32_t QMImportFillerWidth(const int32_t (&aWidth)[QM_IMPORT_COUNT], int32_t lWindow);

// Writes the text of a cell into szBuffer, which must have QM_FIELD_TEXT_SIZE bytes, and returns
// szBuffer.
const char* QMImportText(const QMTransaction& transaction, QMImportColumn column, char* szBuffer);

// The decoration word of a row: QM_DECOR_CLEARED for a cleared transaction, else 0.
uint32_t QMImportDecoration(const QMTransaction& transaction);

// The state of a check box that stands for all rows. The values are those of BST_.
enum QMBoxState : uint32_t
{
    QM_BOX_OFF = 0,
    QM_BOX_ON = 1,
    QM_BOX_MIXED = 2, // the rows differ, or may differ
};

// The state after a press. QM_BOX_MIXED becomes QM_BOX_ON.
QMBoxState QMNextBoxState(uint32_t uState);

// Toggles the cleared state of the transaction of a row. Returns the transaction, which the store
// owns; null when there is no such row.
const QMTransaction* QMToggleImportCleared(QMTransactionStore& store, int32_t lRow);

// Makes every transaction cleared or not cleared.
void QMSetImportCleared(QMTransactionStore& store, bool bCleared);

// Sets the import mark in each transaction for which isTicked(lRow) returns true, and clears it in
// the others. isTicked is called once for each row, in their order.
template <class F>
void QMMarkForImport(QMTransactionStore& store, F isTicked)
{
    store.First();
    for (int32_t lRow = 0; lRow < store.GetCount(); ++lRow) {
        store.SetImportMark(isTicked(lRow));
        store.Next();
    }
}
