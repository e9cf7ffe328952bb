// QMAccountData: the particulars of an account, the saved look of its register, and its
// transactions.
#pragma once

#include <cstddef>
#include <cstdint>

#include "account/qmdate.h"
#include "account/qmsystemfont.h"
#include "account/qmtransactionstore.h"

// Bits of lFontStyle.
inline constexpr uint32_t QM_FONT_BOLD = 1;
inline constexpr uint32_t QM_FONT_ITALIC = 2;
inline constexpr uint32_t QM_FONT_UNDERLINE = 4;
inline constexpr uint32_t QM_FONT_STRIKE_OUT = 8;

// Values of lDisplayPeriod.
inline constexpr uint32_t QM_ACCNT_DISPLAY_ALL = 0;
inline constexpr uint32_t QM_ACCNT_DISPLAY_PREVIOUS_MONTH = 1;
inline constexpr uint32_t QM_ACCNT_DISPLAY_CURRENT_MONTH = 2;
inline constexpr uint32_t QM_ACCNT_DISPLAY_CURRENT_YEAR = 3;
inline constexpr uint32_t QM_ACCNT_DISPLAY_DATE_RANGE = 4;

// The header block of the account file. It is written as one block, so its layout is that of the
// file: little-endian, and without padding added by the compiler. Each text ends with a zero byte
// within its array, and the rest of the array is zero. Widths are pixels, colours are 0x00BBGGRR,
// flags are 0 or 1.
struct QMAccountHeader
{
    char szAccountNumber[32];
    QMDate dtOpened;
    float fMinimumBalance; // stored and shown only; no balance uses it
    uint8_t bReadOnly;
    uint8_t bReserved;
    char szPassword[16]; // empty for an account without a password
    char szBankName[128];
    char szBankAddress[128];
    char szBankCity[64];
    char szBankState[64];
    char szBankZip[16];
    char szBankPhone[16];
    char szBankHomepage[128];
    char szHolderName[128];
    char szHolderAddress[128];
    char szHolderCity[64];
    char szHolderState[64];
    char szHolderZip[16];
    char szHolderPhone[16];
    uint8_t bGridLines;
    uint8_t bShowDate;
    uint8_t bShowNumber;
    uint8_t bShowDescription;
    uint8_t bShowDebit;
    uint8_t bShowCredit;
    uint8_t bShowBalance;
    uint8_t bShowMemo;
    uint8_t bShowTag;
    uint8_t bReserved2;
    int32_t lWidthDate;
    int32_t lWidthNumber;
    int32_t lWidthDescription;
    int32_t lWidthDebit;
    int32_t lWidthCredit;
    int32_t lWidthBalance;
    int32_t lWidthMemo;
    int32_t lWidthTag;
    uint32_t lFontStyle;
    uint32_t lFontColor;
    char szFontFace[128];
    int32_t lFontSize; // points
    uint8_t bShadedLines;
    uint8_t bShowCleared;
    uint8_t bReserved3[2];
    int32_t lWidthCleared;
    uint8_t bShowCategory;
    uint8_t bReserved4[3];
    int32_t lWidthCategory;
    uint32_t lDisplayPeriod; // QM_ACCNT_DISPLAY_
    QMDate dtPeriodFrom;
    QMDate dtPeriodTo;
};
inline constexpr size_t QM_HEADER_SIZE = 1264;
static_assert(sizeof(QMAccountHeader) == QM_HEADER_SIZE);
static_assert(offsetof(QMAccountHeader, szBankName) == 70);
static_assert(offsetof(QMAccountHeader, bGridLines) == 1030);
static_assert(offsetof(QMAccountHeader, szFontFace) == 1080);
static_assert(offsetof(QMAccountHeader, dtPeriodTo) == 1248);

// The header of a new account. Every column but Category is shown, grid lines and shading are on,
// and the font fields are empty.
QMAccountHeader QMDefaultHeader();

// Sets the font fields of the header. The size in points is worked out from the height in pixels. A
// field that the system could not tell stays as it is.
//
// Kept: only one style bit is set, the first that applies of bold (a weight of exactly 700),
// italic, underline and strike-out.
void QMSetHeaderFont(QMAccountHeader& header, const QMSystemFont& font);

// Puts a zero byte at the end of every text array of the header that has none. Returns how many had
// none.
int32_t QMTerminateHeaderTexts(QMAccountHeader& header);

class QMAccountData
{
public:
    // Makes a new account whose register has the font of the system.
    QMAccountData();
    QMAccountData(const QMAccountData&) = delete;
    QMAccountData& operator=(const QMAccountData&) = delete;
    virtual ~QMAccountData() = default;

    // Copies the header and the transactions. Returns false when there was no memory for the
    // transactions.
    virtual bool AssignFrom(const QMAccountData& other);

    QMAccountHeader header;
    QMTransactionStore store;
};
