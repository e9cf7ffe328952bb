// The rules of the import review: what each row shows, and what its boxes do to the transactions
// that were read. Row r of the review is the store's transaction at position r.
#pragma once

#include <cstdint>

#include "account/qmtransactionstore.h"
#include "register/qmcolumntable.h"

enum QMImportColumn : int32_t
{
    QM_IMPORT_CHECK, // the list's own check boxes
    QM_IMPORT_CLEARED,
    QM_IMPORT_DATE,
    QM_IMPORT_NUMBER,
    QM_IMPORT_DESCRIPTION,
    QM_IMPORT_DEBIT,
    QM_IMPORT_CREDIT,
    QM_IMPORT_MEMO,
    QM_IMPORT_CATEGORY,
    QM_IMPORT_FILLER, // takes up the width that the others leave
    QM_IMPORT_COUNT,
};

struct QMImportColumnInfo
{
    const char* szHeading;
    QMAlignment alignment;
    int32_t lWidth; // pixels
};

const QMImportColumnInfo& QMGetImportColumnInfo(QMImportColumn column);

// The column at a distance from the left edge of the first, given the width of each in pixels;
// QM_IMPORT_COUNT to the left of the first and to the right of the last.
QMImportColumn QMFindImportColumn(const int32_t (&aWidth)[QM_IMPORT_COUNT], int32_t lPixels);

// What the filler has of a window's width in pixels, given the width of each column; never below 0.
int32_t QMImportFillerWidth(const int32_t (&aWidth)[QM_IMPORT_COUNT], int32_t lWindow);

// A row's text in a column, in a buffer of at least QM_FIELD_TEXT_SIZE bytes. Returns the buffer.
const char* QMImportText(const QMTransaction& transaction, QMImportColumn column, char* szBuffer);

// A row's decoration word: QM_DECOR_CLEARED for a cleared transaction, else 0.
uint32_t QMImportDecoration(const QMTransaction& transaction);

// The state of a box for all rows, with the values that the platform gives them.
enum QMBoxState : uint32_t
{
    QM_BOX_OFF = 0,
    QM_BOX_ON = 1,
    QM_BOX_MIXED = 2, // the rows differ, or may
};

// What a press makes of a box: mixed goes to on.
QMBoxState QMNextBoxState(uint32_t uState);

// Turns the row's transaction from cleared to not cleared or back. Returns it, still owned by the
// store; null when there is no such row.
const QMTransaction* QMToggleImportCleared(QMTransactionStore& store, int32_t lRow);

// Sets every transaction cleared or not cleared.
void QMSetImportCleared(QMTransactionStore& store, bool bCleared);

// Gives each transaction the mark by which the import takes it, or takes the mark off, by what
// isTicked(lRow) answers. Rows are asked for in their order, each once.
template <class F>
void QMMarkForImport(QMTransactionStore& store, F isTicked)
{
    store.First();
    for (int32_t lRow = 0; lRow < store.GetCount(); ++lRow) {
        store.SetImportMark(isTicked(lRow));
        store.Next();
    }
}
