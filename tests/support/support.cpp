#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <system_error>

#include "base/vtext.h"

const Texts g_typeLabels = {"Check",
                            "Deposit",
                            "Withdrawal",
                            "Fee",
                            "Direct Deposit",
                            "Direct Debit",
                            "ATM Deposit",
                            "ATM Withdrawal",
                            "Automatic Payment",
                            "Transfer - Credit",
                            "Transfer - Debit",
                            "Interest Paid"};

QMDate MakeDate(const std::string& sText)
{
    unsigned uMonth = 0;
    unsigned uDay = 0;
    unsigned uYear = 0;
    EXPECT_EQ(sscanf(sText.c_str(), "%u/%u/%u", &uMonth, &uDay, &uYear), 3) << sText;
    return QMMakeDate(static_cast<uint16_t>(uYear), static_cast<uint16_t>(uMonth),
                      static_cast<uint16_t>(uDay));
}

std::string DateText(const QMDate& date)
{
    return std::to_string(date.wMonth) + "/" + std::to_string(date.wDay) + "/" +
           std::to_string(date.wYear);
}

QMTransaction MakeTransaction(int32_t lType, const std::string& sDate, float fAmount,
                              uint32_t uFlags, const std::string& sDescription)
{
    QMTransaction transaction;
    transaction.lType = lType;
    transaction.dtDate = MakeDate(sDate);
    transaction.dtCleared = transaction.dtDate;
    transaction.fAmount = fAmount;
    transaction.lFlags = uFlags;
    VCopyText(transaction.szDescription, sDescription.c_str());
    return transaction;
}

int32_t AddTo(QMTransactionStore& store, const QMTransaction& transaction)
{
    return store.Add(std::make_unique<QMTransaction>(transaction));
}

bool IsSame(const QMTransactionFields& a, const QMTransactionFields& b)
{
    return memcmp(&a, &b, sizeof a) == 0;
}

std::string TextOf(const QMTransactionFields& fields)
{
    char szAmount[64];
    snprintf(szAmount, sizeof szAmount, " %d %.2f", static_cast<int>(fields.lType),
             static_cast<double>(fields.fAmount));
    const std::string sText = DateText(fields.dtDate) + szAmount;
    return fields.szDescription[0] == '\0' ? sText : sText + " " + fields.szDescription;
}

Texts ContentsOf(const QMTransactionStore& store)
{
    std::vector<std::string> contents;
    store.ForEach(
        [&](const QMTransaction& transaction) { contents.push_back(TextOf(transaction)); });
    return contents;
}

TemporaryFolder::TemporaryFolder()
{
    std::random_device random;
    std::filesystem::path path;
    do {
        path =
            std::filesystem::temp_directory_path() / ("quillmark-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path));
    m_sPath = path.string();
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code error;
    std::filesystem::remove_all(m_sPath, error);
    EXPECT_FALSE(error) << m_sPath << ": " << error.message();
}

std::string TemporaryFolder::PathOf(const std::string& sName) const
{
    return (std::filesystem::path(m_sPath) / sName).string();
}

Texts TemporaryFolder::GetNames() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_sPath)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReadWholeFile(const std::string& sPath)
{
    std::ifstream file(sPath, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << sPath;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteWholeFile(const std::string& sPath, const std::string& sBytes)
{
    std::ofstream file(sPath, std::ios::binary | std::ios::trunc);
    file.write(sBytes.data(), static_cast<std::streamsize>(sBytes.size()));
    file.close();
    EXPECT_TRUE(file.good()) << sPath;
}
