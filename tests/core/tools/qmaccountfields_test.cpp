#include "tools/qmaccountfields.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "base/vtext.h"
#include "resources/resource.h"

namespace {

constexpr QMAccountPart g_aParts[] = {QMAccountPart::Account, QMAccountPart::Bank,
                                      QMAccountPart::Holder};

const QMAccountField& FieldOf(int nControl)
{
    for (const QMAccountPart part : g_aParts) {
        for (const QMAccountField& field : QMAccountFields(part)) {
            if (field.nControl == nControl) {
                return field;
            }
        }
    }
    static const QMAccountField none = {};
    ADD_FAILURE() << "no field has the control " << nControl;
    return none;
}

float Taken(float fBefore, const char* szText)
{
    QMTakeMinimumBalance(fBefore, szText);
    return fBefore;
}

} // namespace

TEST(QMAccountFields, HaveTheControlsAndLimitsOfTheirPages)
{
    std::string sFields;
    for (const QMAccountPart part : g_aParts) {
        for (const QMAccountField& field : QMAccountFields(part)) {
            sFields += std::to_string(field.nControl) + ':' + std::to_string(field.uSize - 1) + ' ';
        }
        sFields += '|';
    }
    EXPECT_EQ(sFields,
              "1421:31 |1401:127 1402:127 1403:63 1404:63 1405:15 1406:15 1407:127 |"
              "1411:127 1412:127 1413:63 1414:63 1415:15 1416:15 |");
}

TEST(QMAccountFields, AreTheHeadersOwn)
{
    QMAccountHeader header = {};
    QMTakeAccountText(header, FieldOf(IDC_ACCOUNT_NUMBER), "12-345");
    QMTakeAccountText(header, FieldOf(IDC_BANK_NAME), "First Bank");
    QMTakeAccountText(header, FieldOf(IDC_BANK_HOMEPAGE), "http://bank.example/");
    QMTakeAccountText(header, FieldOf(IDC_HOLDER_ZIP), "12345");
    EXPECT_STREQ(header.szAccountNumber, "12-345");
    EXPECT_STREQ(header.szBankName, "First Bank");
    EXPECT_STREQ(header.szBankHomepage, "http://bank.example/");
    EXPECT_STREQ(header.szHolderZip, "12345");
    EXPECT_STREQ(QMGetAccountText(header, FieldOf(IDC_BANK_NAME)).GetText(), "First Bank");
}

// Kept: an emptied edit is not taken over.
TEST(QMAccountFields, KeepTheirTextWhenTheEditIsEmptied)
{
    QMAccountHeader header = {};
    for (const QMAccountPart part : g_aParts) {
        for (const QMAccountField& field : QMAccountFields(part)) {
            QMTakeAccountText(header, field, "before");
            QMTakeAccountText(header, field, "");
            EXPECT_STREQ(QMGetAccountText(header, field).GetText(), "before") << field.nControl;
            QMTakeAccountText(header, field, " ");
            EXPECT_STREQ(QMGetAccountText(header, field).GetText(), " ") << field.nControl;
        }
    }
}

TEST(QMAccountFields, NeverRunOver)
{
    QMAccountHeader header = {};
    const std::string sLong(300, 'x');
    for (const QMAccountPart part : g_aParts) {
        for (const QMAccountField& field : QMAccountFields(part)) {
            QMTakeAccountText(header, field, sLong.c_str());
            EXPECT_EQ(QMGetAccountText(header, field).GetLength(), field.uSize - 1);
        }
    }
    EXPECT_EQ(QMTerminateHeaderTexts(header), 0);
}

TEST(QMAccountFields, AreReadWithoutAnEndInThem)
{
    QMAccountHeader header = {};
    memset(header.szBankHomepage, 'x', sizeof header.szBankHomepage);
    EXPECT_EQ(QMGetAccountText(header, FieldOf(IDC_BANK_HOMEPAGE)).GetLength(), 127U);
}

TEST(QMMinimumBalance, IsShownWithTwoDecimals)
{
    EXPECT_STREQ(QMMinimumBalanceText(0).GetText(), "      0.00");
    EXPECT_STREQ(QMMinimumBalanceText(1234.5F).GetText(), "   1234.50");
    EXPECT_STREQ(QMMinimumBalanceText(-250.25F).GetText(), "   -250.25");
    EXPECT_STREQ(QMMinimumBalanceText(123456789.0F).GetText(), "123456792.00");
    EXPECT_EQ(QMMinimumBalanceText(std::numeric_limits<float>::lowest()).GetLength(), 43U);
}

TEST(QMMinimumBalance, IsReadAsFarAsTheTextIsANumber)
{
    EXPECT_EQ(Taken(5, "100"), 100);
    EXPECT_EQ(Taken(5, "    100.25"), 100.25F);
    EXPECT_EQ(Taken(5, "-3.5"), -3.5F);
    EXPECT_EQ(Taken(5, "1,000"), 1);
    EXPECT_EQ(Taken(5, "7 dollars"), 7);
}

TEST(QMMinimumBalance, StaysWhenTheTextIsNoNumber)
{
    for (const char* szText : {"none", "$5", "-", " ", ".", "+-1"}) {
        EXPECT_EQ(Taken(5, szText), 5) << szText;
    }
}

TEST(QMMinimumBalance, IsZeroForAnEmptyText)
{
    EXPECT_EQ(Taken(5, ""), 0);
}

TEST(QMCopyParticulars, CopiesWhatThePagesEditAndNothingElse)
{
    QMAccountHeader from;
    memset(static_cast<void*>(&from), 'A', sizeof from);
    QMAccountHeader into = {};
    QMCopyParticulars(from, into);
    EXPECT_EQ(QMTerminateHeaderTexts(into), 0);
    EXPECT_EQ(strlen(into.szAccountNumber), 31U);
    EXPECT_EQ(strlen(into.szBankHomepage), 127U);
    EXPECT_EQ(strlen(into.szHolderPhone), 15U);
    EXPECT_EQ(memcmp(&into.dtOpened, &from.dtOpened, sizeof from.dtOpened), 0);
    EXPECT_EQ(memcmp(&into.fMinimumBalance, &from.fMinimumBalance, sizeof(float)), 0);
    EXPECT_EQ(into.bReadOnly, 'A');
    EXPECT_EQ(into.bReserved, 0);
    EXPECT_STREQ(into.szPassword, "");
    // The fields after those of the holder are the look of the register.
    const QMAccountHeader empty = {};
    EXPECT_EQ(memcmp(&into.bGridLines, &empty.bGridLines,
                     sizeof into - offsetof(QMAccountHeader, bGridLines)),
              0);
}
