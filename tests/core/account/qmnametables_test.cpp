#include "account/qmnametables.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>

namespace {

struct Entry
{
    const char* szName;
    int32_t lValue;
};

constexpr Entry aTypeNames[] = {
    {"Check", 0},
    {"Deposit", 1},
    {"Withdrawal", 2},
    {"Fee", 3},
    {"Direct Deposit", 4},
    {"direct-deposit", 4},
    {"Direct Debit", 5},
    {"direct-debit", 5},
    {"ATM Deposit", 6},
    {"atm-deposit", 6},
    {"ATM Withdrawal", 7},
    {"atm-withdrawal", 7},
    {"Automatic Payment", 8},
    {"auto-payment", 8},
    {"Transfer - Credit", 9},
    {"transfer-credit", 9},
    {"Transfer - Debit", 10},
    {"transfer-debit", 10},
    {"Interest Paid", 11},
    {"interest", 11},
};

// The value that the entry gives when exactly its own text is looked up.
constexpr Entry aFieldNames[] = {
    {"Date", 0},        {"Number", 1},   {"Num", 1},          {"Check", 1}, {"Check Number", 1},
    {"Description", 2}, {"Payee", 2},    {"Amount", 3},       {"Debit", 4}, {"Withdrawal", 4},
    {"Withdraw", 4},    {"Credit", 5},   {"Deposit", 5},      {"Memo", 6},  {"Category", 7},
    {"Tag", 8},         {"Voided", 9},   {"Cancel", 9},       {"Tax", 10},  {"Tax Deductible", 10},
    {"Expense", 11},    {"Cleared", 12}, {"Date Cleared", 0},
};

template <class F>
std::string Mapped(std::string sText, F f)
{
    for (char& c : sText) {
        c = static_cast<char>(f(static_cast<unsigned char>(c)));
    }
    return sText;
}

// In its own spelling, in capitals, in small letters, and as the beginning of a longer text.
void ExpectEntry(int32_t (*pLookup)(const char*), const Entry& entry)
{
    const std::string sName = entry.szName;
    for (const std::string& sText :
         {sName, Mapped(sName, [](int c) { return tolower(c); }),
          Mapped(sName, [](int c) { return toupper(c); }), sName + " and more", sName + "s"}) {
        EXPECT_EQ(pLookup(sText.c_str()), entry.lValue) << sText;
    }
    for (const std::string& sText : {" " + sName, "x" + sName}) {
        EXPECT_EQ(pLookup(sText.c_str()), -1) << sText;
    }
}

} // namespace

TEST(QMTypeLabel, NamesTheTwelveTypesAndTheirSides)
{
    struct
    {
        QMTransactionType type;
        int32_t lValue;
        const char* szLabel;
        QMSide side;
    } const aTypes[] = {
        {QM_TRANS_CHECK, 0, "Check", QMSide::Debit},
        {QM_TRANS_DEPOSIT, 1, "Deposit", QMSide::Credit},
        {QM_TRANS_WITHDRAWAL, 2, "Withdrawal", QMSide::Debit},
        {QM_TRANS_FEE, 3, "Fee", QMSide::Debit},
        {QM_TRANS_DIRECT_DEPOSIT, 4, "Direct Deposit", QMSide::Credit},
        {QM_TRANS_DIRECT_DEBIT, 5, "Direct Debit", QMSide::Debit},
        {QM_TRANS_ATM_DEPOSIT, 6, "ATM Deposit", QMSide::Credit},
        {QM_TRANS_ATM_WITHDRAWAL, 7, "ATM Withdrawal", QMSide::Debit},
        {QM_TRANS_AUTOMATIC_PAYMENT, 8, "Automatic Payment", QMSide::Debit},
        {QM_TRANS_TRANSFER_CREDIT, 9, "Transfer - Credit", QMSide::Credit},
        {QM_TRANS_TRANSFER_DEBIT, 10, "Transfer - Debit", QMSide::Debit},
        {QM_TRANS_INTEREST_PAID, 11, "Interest Paid", QMSide::Credit},
    };
    EXPECT_EQ(std::size(aTypes), static_cast<size_t>(QM_TRANS_TYPE_COUNT));
    for (const auto& test : aTypes) {
        EXPECT_EQ(test.type, test.lValue);
        EXPECT_STREQ(QMTypeLabel(test.lValue), test.szLabel);
        EXPECT_EQ(QMTypeSide(test.lValue), test.side) << test.szLabel;
    }
}

TEST(QMTypeLabel, HasNothingForAValueOutsideTheTable)
{
    for (const int32_t lType : {-1, 12, 100, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(QMTypeLabel(lType), nullptr) << "type " << lType;
        EXPECT_EQ(QMTypeSide(lType), QMSide::None) << "type " << lType;
    }
}

TEST(LookupTypeName, FindsEveryEntryAndLongerTextsThatBeginWithIt)
{
    for (const Entry& entry : aTypeNames) {
        ExpectEntry(LookupTypeName, entry);
    }
}

TEST(LookupTypeName, TakesTheFirstEntryWithWhichTheTextBegins)
{
    EXPECT_EQ(LookupTypeName("Checking account"), QM_TRANS_CHECK);
    EXPECT_EQ(LookupTypeName("Deposited"), QM_TRANS_DEPOSIT);
    EXPECT_EQ(LookupTypeName("feed the cat"), QM_TRANS_FEE);
    EXPECT_EQ(LookupTypeName("Interesting"), QM_TRANS_INTEREST_PAID);
    EXPECT_EQ(LookupTypeName("direct deposit, direct debit"), QM_TRANS_DIRECT_DEPOSIT);
}

TEST(LookupTypeName, FindsNothingForOtherTexts)
{
    for (const char* szText :
         {"", " ", "Chec", "Direct", "Direct  Deposit", "Transfer", "Transfer-", "Transfer -Credit",
          "ATM", "Auto Payment", "Intere", "0", "Withdraw"}) {
        EXPECT_EQ(LookupTypeName(szText), -1) << szText;
    }
    EXPECT_EQ(LookupTypeName(nullptr), -1);
}

TEST(LookupFieldName, FindsEveryEntryAndLongerTextsThatBeginWithIt)
{
    for (const Entry& entry : aFieldNames) {
        ExpectEntry(LookupFieldName, entry);
    }
}

TEST(LookupFieldName, NumbersTheRolesAsTheTableHoldsThem)
{
    const QMFieldRole aRoles[] = {
        QM_ROLE_DATE,   QM_ROLE_NUMBER,  QM_ROLE_DESCRIPTION, QM_ROLE_AMOUNT,      QM_ROLE_DEBIT,
        QM_ROLE_CREDIT, QM_ROLE_MEMO,    QM_ROLE_CATEGORY,    QM_ROLE_TAG,         QM_ROLE_VOIDED,
        QM_ROLE_TAX,    QM_ROLE_EXPENSE, QM_ROLE_CLEARED,     QM_ROLE_DATE_CLEARED};
    int32_t lExpected = 0;
    for (const QMFieldRole role : aRoles) {
        EXPECT_EQ(role, lExpected++);
    }
}

TEST(LookupFieldName, DateTakesDateClearedTooSoThatItsOwnRoleIsNeverFound)
{
    EXPECT_EQ(LookupFieldName("Date Cleared"), QM_ROLE_DATE);
    EXPECT_EQ(LookupFieldName("DATE CLEARED"), QM_ROLE_DATE);
    std::set<int32_t> found;
    for (const Entry& entry : aFieldNames) {
        found.insert(LookupFieldName(entry.szName));
    }
    EXPECT_EQ(found.size(), 13u);
    EXPECT_FALSE(found.contains(QM_ROLE_DATE_CLEARED));
}

TEST(LookupFieldName, TakesTheFirstEntryWithWhichTheTextBegins)
{
    EXPECT_EQ(LookupFieldName("Numeral"), QM_ROLE_NUMBER);
    EXPECT_EQ(LookupFieldName("Checked"), QM_ROLE_NUMBER);
    EXPECT_EQ(LookupFieldName("Taxi"), QM_ROLE_TAX);
    EXPECT_EQ(LookupFieldName("Cancelled"), QM_ROLE_VOIDED);
    EXPECT_EQ(LookupFieldName("Withdrawn"), QM_ROLE_DEBIT);
    EXPECT_EQ(LookupFieldName("dates"), QM_ROLE_DATE);
}

TEST(LookupFieldName, FindsNothingForOtherTexts)
{
    for (const char* szText : {"", " ", "Dat", "Nu", "Chec", "Type", "Void", "Clear", "Desc",
                               "Transaction Date", "Balance", "\"Date\""}) {
        EXPECT_EQ(LookupFieldName(szText), -1) << szText;
    }
    EXPECT_EQ(LookupFieldName(nullptr), -1);
}
