#include "account/qmaccountdata.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "base/vtext.h"
#include "tests/support/account_support.h"
#include "tests/support/support.h"

namespace {

QMSystemFont MakeFont(int nHeight, int nDotsPerInch)
{
    QMSystemFont font;
    font.bKnown = true;
    VCopyText(font.szFace, "Tahoma");
    font.nHeight = nHeight;
    font.nWeight = 400;
    font.nDotsPerInch = nDotsPerInch;
    return font;
}

QMAccountHeader WithFont(const QMSystemFont& font)
{
    QMAccountHeader header = QMDefaultHeader();
    QMSetHeaderFont(header, font);
    return header;
}

uint32_t StyleOf(int nWeight, bool bItalic, bool bUnderline, bool bStrikeOut)
{
    QMSystemFont font = MakeFont(-11, 96);
    font.nWeight = nWeight;
    font.bItalic = bItalic;
    font.bUnderline = bUnderline;
    font.bStrikeOut = bStrikeOut;
    return WithFont(font).lFontStyle;
}

} // namespace

TEST(AccountHeader, FieldsLieWhereTheFileHasThem)
{
    constexpr struct
    {
        const char* szName;
        size_t uOffset;
        size_t uSize;
    } aExpected[] = {
        {"szAccountNumber", 0, 32},   {"dtOpened", 32, 16},           {"fMinimumBalance", 48, 4},
        {"bReadOnly", 52, 1},         {"bReserved", 53, 1},           {"szPassword", 54, 16},
        {"szBankName", 70, 128},      {"szBankAddress", 198, 128},    {"szBankCity", 326, 64},
        {"szBankState", 390, 64},     {"szBankZip", 454, 16},         {"szBankPhone", 470, 16},
        {"szBankHomepage", 486, 128}, {"szHolderName", 614, 128},     {"szHolderAddress", 742, 128},
        {"szHolderCity", 870, 64},    {"szHolderState", 934, 64},     {"szHolderZip", 998, 16},
        {"szHolderPhone", 1014, 16},  {"bGridLines", 1030, 1},        {"bShowDate", 1031, 1},
        {"bShowNumber", 1032, 1},     {"bShowDescription", 1033, 1},  {"bShowDebit", 1034, 1},
        {"bShowCredit", 1035, 1},     {"bShowBalance", 1036, 1},      {"bShowMemo", 1037, 1},
        {"bShowTag", 1038, 1},        {"bReserved2", 1039, 1},        {"lWidthDate", 1040, 4},
        {"lWidthNumber", 1044, 4},    {"lWidthDescription", 1048, 4}, {"lWidthDebit", 1052, 4},
        {"lWidthCredit", 1056, 4},    {"lWidthBalance", 1060, 4},     {"lWidthMemo", 1064, 4},
        {"lWidthTag", 1068, 4},       {"lFontStyle", 1072, 4},        {"lFontColor", 1076, 4},
        {"szFontFace", 1080, 128},    {"lFontSize", 1208, 4},         {"bShadedLines", 1212, 1},
        {"bShowCleared", 1213, 1},    {"bReserved3", 1214, 2},        {"lWidthCleared", 1216, 4},
        {"bShowCategory", 1220, 1},   {"bReserved4", 1221, 3},        {"lWidthCategory", 1224, 4},
        {"lDisplayPeriod", 1228, 4},  {"dtPeriodFrom", 1232, 16},     {"dtPeriodTo", 1248, 16},
    };
    ASSERT_EQ(HeaderFields().size(), std::size(aExpected));
    size_t uEnd = 0;
    for (size_t u = 0; u < std::size(aExpected); ++u) {
        const HeaderField& field = HeaderFields()[u];
        EXPECT_STREQ(field.szName, aExpected[u].szName);
        EXPECT_EQ(field.uOffset, aExpected[u].uOffset) << field.szName;
        EXPECT_EQ(field.uSize, aExpected[u].uSize) << field.szName;
        EXPECT_EQ(field.uOffset, uEnd) << field.szName;
        uEnd = field.uOffset + field.uSize;
    }
    EXPECT_EQ(uEnd, sizeof(QMAccountHeader));
    EXPECT_EQ(uEnd, 1264U);
}

TEST(AccountHeader, TransactionBlockLiesWhereTheFileHasIt)
{
    EXPECT_EQ(offsetof(QMTransactionFields, lType), 0U);
    EXPECT_EQ(offsetof(QMTransactionFields, dtDate), 4U);
    EXPECT_EQ(offsetof(QMTransactionFields, lNumber), 20U);
    EXPECT_EQ(offsetof(QMTransactionFields, fAmount), 24U);
    EXPECT_EQ(offsetof(QMTransactionFields, lFlags), 28U);
    EXPECT_EQ(offsetof(QMTransactionFields, dtCleared), 32U);
}

TEST(AccountHeader, NewOneHasItsDefaultsAndNothingElse)
{
    EXPECT_EQ(BytesOf(QMDefaultHeader()), DefaultHeaderBytes());
}

TEST(AccountHeader, NewOneShowsEveryColumnButCategory)
{
    const QMAccountHeader header = QMDefaultHeader();
    const int32_t aWidths[] = {header.lWidthCleared,     header.lWidthDate,  header.lWidthNumber,
                               header.lWidthDescription, header.lWidthDebit, header.lWidthCredit,
                               header.lWidthBalance,     header.lWidthTag,   header.lWidthMemo,
                               header.lWidthCategory};
    const int32_t aExpected[] = {30, 55, 50, 250, 60, 60, 75, 30, 240, 240};
    EXPECT_TRUE(std::equal(std::begin(aWidths), std::end(aWidths), std::begin(aExpected)));
    for (const uint8_t bShown :
         {header.bShowCleared, header.bShowDate, header.bShowNumber, header.bShowDescription,
          header.bShowDebit, header.bShowCredit, header.bShowBalance, header.bShowTag,
          header.bShowMemo, header.bGridLines, header.bShadedLines}) {
        EXPECT_EQ(bShown, 1);
    }
    EXPECT_EQ(header.bShowCategory, 0);
    EXPECT_EQ(header.lDisplayPeriod, QM_ACCNT_DISPLAY_ALL);
    EXPECT_EQ(header.lFontColor, 0U);
}

TEST(AccountHeader, FontSizeIsPointsRoundedToTheNearest)
{
    constexpr struct
    {
        int nHeight;
        int nDotsPerInch;
        int32_t lPoints;
    } aSizes[] = {
        {-11, 96, 8},                 // 8.25
        {-12, 96, 9},                 // 9
        {-13, 96, 10},                // 9.75
        {-16, 96, 12}, {-11, 120, 7}, // 6.6
        {-10, 96, 8},                 // 7.5 goes away from zero
        {-14, 96, 11},                // 10.5
        {-2, 96, 2},                  // 1.5
        {-1, 145, 0},                 // 0.497
        {-1, 144, 1},                 // 0.5
        {0, 96, 0},    {11, 96, -8},  // a height of whole lines stays turned round
        {10, 96, -8},  {-1000, 72, 1000},
    };
    for (const auto& size : aSizes) {
        EXPECT_EQ(WithFont(MakeFont(size.nHeight, size.nDotsPerInch)).lFontSize, size.lPoints)
            << "height " << size.nHeight << " at " << size.nDotsPerInch << " dots per inch";
    }
}

TEST(AccountHeader, FontStyleIsTheFirstThatHolds)
{
    EXPECT_EQ(StyleOf(400, false, false, false), 0U);
    EXPECT_EQ(StyleOf(700, false, false, false), QM_FONT_BOLD);
    EXPECT_EQ(StyleOf(700, true, true, true), QM_FONT_BOLD);
    EXPECT_EQ(StyleOf(400, true, true, true), QM_FONT_ITALIC);
    EXPECT_EQ(StyleOf(400, false, true, true), QM_FONT_UNDERLINE);
    EXPECT_EQ(StyleOf(400, false, false, true), QM_FONT_STRIKE_OUT);
}

// Only a weight of exactly 700 is bold. Heavier ones are not.
TEST(AccountHeader, FontIsBoldAtExactly700)
{
    for (const int nWeight : {0, 600, 699, 701, 800, 900}) {
        EXPECT_EQ(StyleOf(nWeight, false, false, false), 0U) << "weight " << nWeight;
        EXPECT_EQ(StyleOf(nWeight, true, false, false), QM_FONT_ITALIC) << "weight " << nWeight;
    }
}

TEST(AccountHeader, FontFaceIsFilledUpWithZeroes)
{
    QMAccountHeader header = QMDefaultHeader();
    memset(header.szFontFace, 'x', sizeof header.szFontFace);
    QMSetHeaderFont(header, MakeFont(-11, 96));
    EXPECT_EQ(BytesOf(header.szFontFace), "Tahoma" + std::string(122, '\0'));
    QMSystemFont font = MakeFont(-11, 96);
    memset(font.szFace, 'y', sizeof font.szFace - 1);
    QMSetHeaderFont(header, font);
    EXPECT_EQ(BytesOf(header.szFontFace), std::string(127, 'y') + '\0');
}

TEST(AccountHeader, FontSetsNothingButItsFields)
{
    QMAccountHeader header = WithFont(MakeFont(-11, 96));
    memset(header.szFontFace, 0, sizeof header.szFontFace);
    header.lFontSize = 0;
    EXPECT_EQ(BytesOf(header), DefaultHeaderBytes());
}

TEST(AccountHeader, UnknownFontLeavesEverything)
{
    QMAccountHeader header = WithFont(MakeFont(-16, 96));
    const std::string sBefore = BytesOf(header);
    QMSystemFont font = MakeFont(-40, 120);
    font.bKnown = false;
    font.nWeight = 700;
    QMSetHeaderFont(header, font);
    EXPECT_EQ(BytesOf(header), sBefore);
}

TEST(AccountHeader, UnknownDisplayLeavesTheSizeOnly)
{
    QMAccountHeader header = WithFont(MakeFont(-16, 96));
    QMSystemFont font = MakeFont(-40, 0);
    font.nWeight = 700;
    VCopyText(font.szFace, "Courier");
    QMSetHeaderFont(header, font);
    EXPECT_EQ(header.lFontSize, 12);
    EXPECT_EQ(header.lFontStyle, QM_FONT_BOLD);
    EXPECT_STREQ(header.szFontFace, "Courier");
}

TEST(AccountHeader, TextsWithoutEndAreCutToTheirFields)
{
    std::string sExpected(sizeof(QMAccountHeader), 'x');
    auto header = FromBytes<QMAccountHeader>(sExpected);
    int32_t lTexts = 0;
    for (const HeaderField& field : HeaderFields()) {
        if (strncmp(field.szName, "sz", 2) == 0) {
            sExpected[field.uOffset + field.uSize - 1] = '\0';
            ++lTexts;
        }
    }
    EXPECT_EQ(lTexts, 16);
    EXPECT_EQ(QMTerminateHeaderTexts(header), lTexts);
    EXPECT_EQ(BytesOf(header), sExpected);
    EXPECT_EQ(QMTerminateHeaderTexts(header), 0);
}

TEST(AccountHeader, TextsWithAnEndAreLeft)
{
    QMAccountHeader header = QMDefaultHeader();
    VCopyText(header.szBankZip, "123456789012345");
    VCopyText(header.szPassword, "p");
    header.szPassword[15] = 'x'; // behind the end
    const std::string sBefore = BytesOf(header);
    EXPECT_EQ(QMTerminateHeaderTexts(header), 0);
    EXPECT_EQ(BytesOf(header), sBefore);
}

TEST(AccountData, NewOneHasTheSystemsFont)
{
    const QMAccountData data;
    EXPECT_EQ(BytesOf(data.header), BytesOf(WithFont(QMQuerySystemFont())));
    EXPECT_TRUE(data.store.IsEmpty());
    EXPECT_EQ(data.store.GetSortMode(), QM_SORT_DATE);
}

TEST(AccountData, SystemFontIsThatOfTheProgramWhereThereAreNoWindows)
{
    const QMSystemFont font = QMQuerySystemFont();
    EXPECT_TRUE(font.bKnown);
#ifdef _WIN32
    EXPECT_STRNE(font.szFace, "");
    EXPECT_NE(font.nHeight, 0);
#else
    const QMAccountHeader header = QMAccountData().header;
    EXPECT_STREQ(header.szFontFace, "MS Shell Dlg");
    EXPECT_EQ(header.lFontSize, 8);
    EXPECT_EQ(header.lFontStyle, 0U);
    QMAccountHeader plain = header;
    memset(plain.szFontFace, 0, sizeof plain.szFontFace);
    plain.lFontSize = 0;
    EXPECT_EQ(BytesOf(plain), DefaultHeaderBytes());
#endif
}

TEST(AccountData, AssignFromCopiesHeaderAndStore)
{
    QMAccountData other;
    other.header = FromBytes<QMAccountHeader>(std::string(1264, 0x5A));
    AddTo(other.store, MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 1));
    AddTo(other.store, MakeTransaction(QM_TRANS_DEPOSIT, "3/13/2004", 2));
    other.store.Resort(QM_SORT_DATE_DESCENDING);
    QMAccountData data;
    AddTo(data.store, MakeTransaction(QM_TRANS_FEE, "1/1/2001", 9));
    EXPECT_TRUE(data.AssignFrom(other));
    EXPECT_EQ(BytesOf(data.header), std::string(1264, 0x5A));
    EXPECT_EQ(ContentsOf(data.store), ContentsOf(other.store));
    EXPECT_EQ(data.store.GetSortMode(), QM_SORT_DATE_DESCENDING);
    EXPECT_EQ(other.store.GetCount(), 2);
}

TEST(AccountData, AssignFromMakesACopyOfItsOwn)
{
    QMAccountData other;
    AddTo(other.store, MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 1));
    QMAccountData data;
    EXPECT_TRUE(data.AssignFrom(other));
    other.header.lWidthDate = 99;
    other.store.GetCurrentNode()->fAmount = 5;
    EXPECT_EQ(data.header.lWidthDate, 55);
    EXPECT_EQ(data.store.GetCurrentNode()->fAmount, 1);
    EXPECT_TRUE(data.AssignFrom(data));
    EXPECT_EQ(data.store.GetCount(), 1);
}
