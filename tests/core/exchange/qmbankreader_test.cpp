// Files of banks: values, quotes, encodings, columns, and every dialect read back.
#include "exchange/qmbankreader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "exchange/qmtextdecoder.h"
#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {

QMDialect DialectOf(const std::string& sProfile)
{
    QMDialect dialect;
    EXPECT_EQ(dialect.ReadProfile(sProfile), "");
    return dialect;
}

std::vector<std::string> Read(const std::string& sProfile, const std::string& sBytes,
                              QMBankReport* pReport = nullptr)
{
    QMTransactionStore store;
    QMBankReport report;
    std::string sFault;
    if (!QMReadBankCsv(sBytes, DialectOf(sProfile), store, report, sFault)) {
        return {"refused: " + sFault};
    }
    std::vector<std::string> texts;
    for (const QMTransaction& transaction : RecordsOf(store)) {
        texts.push_back(FullText(transaction));
    }
    if (pReport != nullptr) {
        *pReport = report;
    }
    return texts;
}

std::string DateOf(const std::string& sText, QMDateOrder order)
{
    QMDate date = QMMakeDate(1, 1, 1);
    return QMParseBankDate(sText, order, date) ? DateText(date) : "(none)";
}

double AmountOf(const std::string& sText, char cDecimal)
{
    double dAmount = 1e9;
    return QMParseBankAmount(sText, cDecimal, dAmount) ? dAmount : NAN;
}

const std::string sColumns = "columns = Date,Description,Amount\n";

} // namespace

TEST(BankDate, ReadsTheOrdersOfTheWorld)
{
    const struct
    {
        const char* szText;
        QMDateOrder order;
        const char* szDate;
    } aDates[] = {
        {"3/14/2004", QMDateOrder::MonthFirst, "3/14/2004"},
        {"14.03.2004", QMDateOrder::DayFirst, "3/14/2004"},
        {"14-3-04", QMDateOrder::DayFirst, "3/14/2004"},
        {"14/03'04", QMDateOrder::DayFirst, "3/14/2004"},
        {"2004-03-14", QMDateOrder::DayFirst, "3/14/2004"},
        {"2004-03-14T09:30:00Z", QMDateOrder::YearFirst, "3/14/2004"},
        {"04.03.14", QMDateOrder::YearFirst, "3/14/2004"},
        {"20040314", QMDateOrder::YearFirst, "3/14/2004"},
        {"14032004", QMDateOrder::DayFirst, "3/14/2004"},
        {"03142004", QMDateOrder::MonthFirst, "3/14/2004"},
        {"14 Mar 2004", QMDateOrder::DayFirst, "3/14/2004"},
        {"Mar 14, 2004", QMDateOrder::MonthFirst, "3/14/2004"},
        {"14-March-99", QMDateOrder::DayFirst, "3/14/1999"},
        {"1/1/69", QMDateOrder::MonthFirst, "1/1/2069"},
        {"1/1/70", QMDateOrder::MonthFirst, "1/1/1970"},
    };
    for (const auto& date : aDates) {
        EXPECT_EQ(DateOf(date.szText, date.order), date.szDate) << date.szText;
    }
}

TEST(BankDate, RefusesWhatIsNoDay)
{
    for (const char* szText :
         {"", "x", "31.04.2004", "14.13.2004", "0.1.2004", "14.03", "1.1.1751", "31/12/3001",
          "Betrag 3 2004", "99999999999", "12345678", "2004", "14.März.2004"}) {
        EXPECT_EQ(DateOf(szText, QMDateOrder::DayFirst), "(none)") << szText;
    }
    EXPECT_EQ(DateOf("03/04/2004", QMDateOrder::YearFirst), "(none)")
        << "a year at the end does not fit the order year, month, day";
}

TEST(BankAmount, ReadsSignsMarksAndCurrencies)
{
    const struct
    {
        const char* szText;
        char cDecimal;
        double dAmount;
    } aAmounts[] = {
        {"1,234.56", '.', 1234.56},
        {"1.234,56", ',', 1234.56},
        {"-5", '.', -5},
        {"+5,10", ',', 5.1},
        {"1'234.50", '.', 1234.5},
        {"1 234,50", ',', 1234.5},
        {"1\xA0"
         "234,50",
         ',', 1234.5},
        {"(12.00)", '.', -12},
        {"12.00-", '.', -12},
        {"$12.00", '.', 12},
        {"-$12.00", '.', -12},
        {"\x80 7,5", ',', 7.5},
        {"12,00 EUR", ',', 12},
        {"12.00 DR", '.', -12},
        {"12.00 CR", '.', 12},
        {".5", '.', 0.5},
        {"5.", '.', 5},
        {"1.234.567", ',', 1234567},
    };
    for (const auto& amount : aAmounts) {
        EXPECT_DOUBLE_EQ(AmountOf(amount.szText, amount.cDecimal), amount.dAmount) << amount.szText;
    }
    for (const char* szText : {"", "-", "EUR", "1.2.3", "12.34.56", "1.234,5", "5x5"}) {
        EXPECT_TRUE(std::isnan(AmountOf(szText, '.'))) << szText;
    }
}

TEST(BankRows, KeepQuotesAsInRfc4180)
{
    EXPECT_EQ(Read(sColumns,
                   "1/2/2004,\"Smith, \"\"J\"\"\",5\r\n1/3/2004,\"two\nlines\",-6\r"
                   "1/4/2004,in \"side\",7"),
              (std::vector<std::string>{"1/2/2004 1 #0 5.00 f16 1/2/2004 'Smith, \"J\"'",
                                        "1/3/2004 2 #0 6.00 f16 1/3/2004 'two lines'",
                                        "1/4/2004 1 #0 7.00 f16 1/4/2004 'in \"side\"'"}));
    EXPECT_EQ(Read(sColumns + "quote = none\n", "1/2/2004,\"a\",5").front(),
              "1/2/2004 1 #0 5.00 f16 1/2/2004 '\"a\"'");
    EXPECT_EQ(Read(sColumns, "1/2/2004,x,5\n1/3/2004,\"never closed,6\n").size(), 2U);
}

TEST(BankRows, TakeTheirColumnsFromTheHeadingWhereNoneAreGiven)
{
    EXPECT_EQ(Read("",
                   "Date,Payee,Debit,Credit,Check Number\n1/2/2004,a,5,,\n1/3/2004,b,,6,\n"
                   "1/4/2004,c,7,0.00,1001\n"),
              (std::vector<std::string>{"1/2/2004 2 #0 5.00 f16 1/2/2004 'a'",
                                        "1/3/2004 1 #0 6.00 f16 1/3/2004 'b'",
                                        "1/4/2004 0 #1001 7.00 f16 1/4/2004 'c'"}));
    EXPECT_EQ(Read("", "a,b\n1/2/2004,5\n").front(),
              "refused: its first line names no date and amount (give --columns)");
}

TEST(BankRows, TellWhatIsMissing)
{
    QMBankReport report;
    EXPECT_EQ(
        Read(sColumns, "Date,Text,Amount\n1/2/2004,a,x\nsoon,b,5\n,,\n\nSum,,\n1/3/2004,\xE9,1\n",
             &report)
            .size(),
        3U);
    EXPECT_EQ(report.lWithoutDate, 1);
    EXPECT_EQ(report.lWithoutAmount, 1);
    EXPECT_EQ(report.lPassedOver, 3);
    EXPECT_EQ(Read(sColumns, "a,b,c\n").front(),
              "refused: no row of it has a date or an amount in this dialect");
}

TEST(BankRows, TakeTheSideFromAWordOrFromAnInvertedSign)
{
    const std::string sWithSign = "columns = Date,Amount,Sign\n";
    EXPECT_EQ(Read(sWithSign, "1/2/2004,5,D\n1/3/2004,5,CR\n1/4/2004,5,Af\n1/5/2004,5,?\n"),
              (std::vector<std::string>{
                  "1/2/2004 2 #0 5.00 f16 1/2/2004", "1/3/2004 1 #0 5.00 f16 1/3/2004",
                  "1/4/2004 2 #0 5.00 f16 1/4/2004", "1/5/2004 2 #0 0.00 f16 1/5/2004"}));
    EXPECT_EQ(Read(sColumns + "invert = yes\n", "1/2/2004,a,5").front(),
              "1/2/2004 2 #0 5.00 f16 1/2/2004 'a'");
}

TEST(BankRows, TakeADescriptionAsItStands)
{
    EXPECT_EQ(Read(sColumns, "1/2/2004,Feeding Program,-5").front(),
              "1/2/2004 2 #0 5.00 f16 1/2/2004 'Feeding Program'");
}

TEST(TextDecoder, KnowsTheEncodings)
{
    const struct
    {
        std::string sBytes;
        QMCharacterSet encoding;
        const char* szText;
        int32_t lReplaced;
    } aTexts[] = {
        {"caf\xC3\xA9 \xE2\x82\xAC", QMCharacterSet::Automatic, "caf\xE9 \x80", 0},
        {"\xEF\xBB\xBF"
         "a",
         QMCharacterSet::Utf8, "a", 0},
        {"caf\xE9", QMCharacterSet::Automatic, "caf\xE9", 0},
        {"caf\xE9", QMCharacterSet::Utf8, "caf?", 1},
        {"\xD0\x96\xF0\x9F\x98\x80", QMCharacterSet::Utf8, "??", 2},
        {"\xC0\x80\xED\xA0\x80", QMCharacterSet::Utf8, "?????", 5},
        {std::string("\xFF\xFE"
                     "a\0\xE9\0",
                     6),
         QMCharacterSet::Automatic, "a\xE9", 0},
        {std::string("\xFE\xFF\0a\x20\xAC", 6), QMCharacterSet::Utf16, "a\x80", 0},
        {std::string("a\0b", 3), QMCharacterSet::Utf16, "a?", 1},
        {std::string("\x3D\xD8\0\xDE", 4), QMCharacterSet::Utf16, "?", 1},
        {"\x80\xE9", QMCharacterSet::Latin1, "?\xE9", 1},
        {"\x80\xE9", QMCharacterSet::Windows1252, "\x80\xE9", 0},
        {"\xE2\x88\x92"
         "5",
         QMCharacterSet::Utf8, "-5", 0},
    };
    for (const auto& text : aTexts) {
        int32_t lReplaced = -1;
        EXPECT_EQ(QMDecodeText(text.sBytes, text.encoding, lReplaced), text.szText);
        EXPECT_EQ(lReplaced, text.lReplaced) << text.szText;
    }
}

TEST(Dialect, RefusesValuesAndSaysWhy)
{
    const struct
    {
        const char* szName;
        std::vector<std::string> values;
    } aRefused[] = {
        {"separator", {"", "x", ";;", "\"", "\n"}},
        {"quote", {"", "x", "\"\""}},
        {"dates", {"", "mmdd", "dym", "m/d/y"}},
        {"decimal", {"", ";", ",,"}},
        {"encoding", {"", "utf8", "ebcdic"}},
        {"skip", {"", "-1", "1001", "x", "1x", "99999999999"}},
        {"columns",
         {"", "Date", "Amount", "Date,Amount,Date", "Date,Amount,Colour", "Date,Sign",
          "Date,Debit,Sign", "Date,,Amount,x"}},
        {"invert", {"", "1", "maybe"}},
        {"colour", {"red"}},
    };
    for (const auto& refused : aRefused) {
        for (const std::string& sValue : refused.values) {
            QMDialect dialect;
            const std::string sBefore = dialect.GetProfile();
            EXPECT_NE(dialect.Set(refused.szName, sValue), nullptr)
                << refused.szName << " = " << sValue;
            EXPECT_EQ(dialect.GetProfile(), sBefore) << refused.szName << " = " << sValue;
        }
    }
}

TEST(Dialect, ReadsItsOwnProfileAndNamesTheLineOfAFault)
{
    const std::string sProfile =
        "separator = tab\nquote = '\ndates = dmy\ndecimal = ,\n"
        "encoding = latin1\nskip = 7\ncolumns = Date,-,Debit,Credit\n"
        "invert = yes\n";
    EXPECT_EQ(DialectOf("# a remark\n\n" + sProfile).GetProfile(), sProfile);
    EXPECT_EQ(QMDialect().ReadProfile("skip = 1\ndates = ?\n"),
              "line 2: it is not one of mdy, dmy and ymd");
    EXPECT_EQ(QMDialect().ReadProfile("skip"), "line 1: it has no =");
}

TEST(QifDialect, IsTurnedIntoTheOwnOne)
{
    QMBankReport report;
    EXPECT_EQ(
        QMTranslateQif("!Type:Bank\r\nD14.03'04\r\nT-1.234,56\r\nPDr Who\r\n^\nDsoon\nTx\n^\n",
                       DialectOf("dates = dmy\ndecimal = ,\n"), report),
        "!Type:Bank\nD3/14/2004\nT-1234.5600\nPDr Who\n^\n\n\n^\n");
    EXPECT_EQ(report.lWithoutDate, 1);
    EXPECT_EQ(report.lWithoutAmount, 1);
}

namespace {

std::string Quoted(const std::string& sText, char cQuote)
{
    std::string sQuoted(1, cQuote);
    for (const char c : sText) {
        sQuoted += std::string(c == cQuote ? 2 : 1, c);
    }
    return sQuoted + cQuote;
}

// Random records, written as a bank of that dialect would write them.
class RandomBank
{
public:
    explicit RandomBank(uint32_t uSeed) : m_random(uSeed) {}

    QMDialect MakeDialect()
    {
        QMDialect dialect;
        dialect.cSeparator = ",;|\t"[Below(4)];
        dialect.cQuote = "\"'"[Below(2)];
        dialect.dates = static_cast<QMDateOrder>(Below(3));
        dialect.cDecimal = ".,"[Below(2)];
        dialect.encoding = QMCharacterSet::Windows1252;
        dialect.lSkip = static_cast<int32_t>(Below(3));
        dialect.bInvert = Below(2) == 1;
        dialect.columns = {QMBankColumn::Memo,     QMBankColumn::Date,       QMBankColumn::Type,
                           QMBankColumn::Amount,   QMBankColumn::Ignored,    QMBankColumn::Number,
                           QMBankColumn::Category, QMBankColumn::Description};
        std::shuffle(dialect.columns.begin(), dialect.columns.end(), m_random);
        return dialect;
    }

    QMTransaction MakeRecord()
    {
        QMTransaction record =
            MakeFull(static_cast<int32_t>(Below(12)), "1/1/2000",
                     static_cast<float>(1 + Below(999999)) / 100, Text(), Text(), Text());
        record.dtDate =
            QMMakeDate(static_cast<uint16_t>(1971 + Below(98)),
                       static_cast<uint16_t>(1 + Below(12)), static_cast<uint16_t>(1 + Below(28)));
        record.dtCleared = record.dtDate;
        record.lNumber = record.lType == QM_TRANS_CHECK ? 1 + Below(9999999) : 0;
        return record;
    }

    std::string Cell(const QMTransaction& record, QMBankColumn column, const QMDialect& dialect)
    {
        switch (column) {
            case QMBankColumn::Date:
                return Date(record.dtDate, dialect.dates);
            case QMBankColumn::Amount:
                return Amount(record, dialect);
            case QMBankColumn::Type:
                return QMTypeLabel(record.lType);
            case QMBankColumn::Number:
                return record.lNumber == 0 ? "" : std::to_string(record.lNumber);
            case QMBankColumn::Memo:
                return record.szMemo;
            case QMBankColumn::Category:
                return record.szCategory;
            case QMBankColumn::Description:
                return record.szDescription;
            default:
                return Text();
        }
    }

private:
    uint32_t Below(uint32_t uLimit) { return static_cast<uint32_t>(m_random()) % uLimit; }

    std::string Text()
    {
        std::string sText;
        for (uint32_t u = Below(12); u > 0; --u) {
            sText += ",;|\"'.- abcXYZ\xE9\x80"[Below(16)];
        }
        // Blanks around a text are not kept.
        return sText.empty() ? sText : "q" + sText + "z";
    }

    static std::string Date(const QMDate& date, QMDateOrder order)
    {
        char szText[48];
        if (order == QMDateOrder::YearFirst) {
            snprintf(szText, sizeof szText, "%04d-%02d-%02d", date.wYear, date.wMonth, date.wDay);
        } else if (order == QMDateOrder::DayFirst) {
            snprintf(szText, sizeof szText, "%02d.%02d.%04d", date.wDay, date.wMonth, date.wYear);
        } else {
            snprintf(szText, sizeof szText, "%d/%d/%02d", date.wMonth, date.wDay, date.wYear % 100);
        }
        return szText;
    }

    static std::string Amount(const QMTransaction& record, const QMDialect& dialect)
    {
        char szText[48];
        snprintf(szText, sizeof szText, "%.2f", record.GetRoundedAmount());
        std::string sText = szText;
        sText[sText.find('.')] = dialect.cDecimal;
        if (sText.size() > 6) {
            sText.insert(sText.size() - 6, 1, dialect.cDecimal == '.' ? ',' : '.');
        }
        return (record.IsDebitType() != dialect.bInvert ? "-" : "") + sText;
    }

    std::mt19937 m_random;
};

} // namespace

TEST(BankProperty, ARandomRegisterInAnyDialectReadsBackAsItself)
{
    for (uint32_t uSeed = 1; uSeed <= 150; ++uSeed) {
        RandomBank bank(uSeed);
        const QMDialect dialect = bank.MakeDialect();
        std::string sFile(static_cast<size_t>(dialect.lSkip), '\n');
        QMTransactionStore store;
        for (int i = 0; i < 20; ++i) {
            const QMTransaction record = bank.MakeRecord();
            AddTo(store, record);
            std::string sRow;
            for (const QMBankColumn column : dialect.columns) {
                sRow += (sRow.empty() ? "" : std::string(1, dialect.cSeparator)) +
                        Quoted(bank.Cell(record, column, dialect), dialect.cQuote);
            }
            sFile += sRow + "\r\n";
        }
        std::vector<std::string> expected;
        for (const QMTransaction& record : RecordsOf(store)) {
            expected.push_back(FullText(record));
        }
        QMBankReport report;
        ASSERT_EQ(Read(dialect.GetProfile(), sFile, &report), expected) << "seed " << uSeed << "\n"
                                                                        << dialect.GetProfile();
        ASSERT_EQ(report.lWithoutDate + report.lWithoutAmount + report.lPassedOver, 0);
    }
}
