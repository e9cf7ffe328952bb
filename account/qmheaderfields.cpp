#include "account/qmheaderfields.h"

// The compiler works out the offset and the size of a field. Only its kind is stated.
#define FIELD(kind, name)                                                                         \
    {                                                                                             \
#name, QMHeaderKind::kind, offsetof(QMAccountHeader, name), sizeof(QMAccountHeader::name) \
    }

namespace {

constexpr QMHeaderField aFields[] = {
    FIELD(Text, szAccountNumber),  FIELD(Date, dtOpened),         FIELD(Real, fMinimumBalance),
    FIELD(Flag, bReadOnly),        FIELD(Text, szPassword),       FIELD(Text, szBankName),
    FIELD(Text, szBankAddress),    FIELD(Text, szBankCity),       FIELD(Text, szBankState),
    FIELD(Text, szBankZip),        FIELD(Text, szBankPhone),      FIELD(Text, szBankHomepage),
    FIELD(Text, szHolderName),     FIELD(Text, szHolderAddress),  FIELD(Text, szHolderCity),
    FIELD(Text, szHolderState),    FIELD(Text, szHolderZip),      FIELD(Text, szHolderPhone),
    FIELD(Flag, bGridLines),       FIELD(Flag, bShowDate),        FIELD(Flag, bShowNumber),
    FIELD(Flag, bShowDescription), FIELD(Flag, bShowDebit),       FIELD(Flag, bShowCredit),
    FIELD(Flag, bShowBalance),     FIELD(Flag, bShowMemo),        FIELD(Flag, bShowTag),
    FIELD(Signed, lWidthDate),     FIELD(Signed, lWidthNumber),   FIELD(Signed, lWidthDescription),
    FIELD(Signed, lWidthDebit),    FIELD(Signed, lWidthCredit),   FIELD(Signed, lWidthBalance),
    FIELD(Signed, lWidthMemo),     FIELD(Signed, lWidthTag),      FIELD(Unsigned, lFontStyle),
    FIELD(Unsigned, lFontColor),   FIELD(Text, szFontFace),       FIELD(Signed, lFontSize),
    FIELD(Flag, bShadedLines),     FIELD(Flag, bShowCleared),     FIELD(Signed, lWidthCleared),
    FIELD(Flag, bShowCategory),    FIELD(Signed, lWidthCategory), FIELD(Unsigned, lDisplayPeriod),
    FIELD(Date, dtPeriodFrom),     FIELD(Date, dtPeriodTo),
};

} // namespace

#undef FIELD

std::span<const QMHeaderField> QMHeaderFields()
{
    return aFields;
}
