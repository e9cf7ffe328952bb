#include "tests/support/account_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "account/qmaccountwriter.h"
#include "base/vtext.h"
#include "tests/support/support.h"

namespace {

void ComplementAll(std::string& sBytes)
{
    for (char& c : sBytes) {
        c = c == ' ' ? ' ' : static_cast<char>(~c);
    }
}

void SwapGroups(std::string& sBytes)
{
    const auto uGroups = static_cast<std::ptrdiff_t>(sBytes.size() / 4);
    for (std::ptrdiff_t u = 0; u < uGroups; ++u) {
        std::reverse(sBytes.begin() + 4 * u, sBytes.begin() + 4 * u + 4);
    }
}

std::string TextBytes(const std::string& sText)
{
    return BytesOf(static_cast<uint32_t>(sText.size())) + Scrambled(sText);
}

} // namespace

std::string Scrambled(std::string sBytes)
{
    ComplementAll(sBytes);
    SwapGroups(sBytes);
    return sBytes;
}

std::string Unscrambled(std::string sBytes)
{
    SwapGroups(sBytes);
    ComplementAll(sBytes);
    return sBytes;
}

uint32_t NumberAt(const std::string& sBytes, size_t uOffset)
{
    uint32_t uNumber = 0;
    for (size_t u = 4; u-- > 0;) {
        uNumber = uNumber << 8 | static_cast<unsigned char>(sBytes.at(uOffset + u));
    }
    return uNumber;
}

void PutNumber(std::string& sBytes, size_t uOffset, uint32_t uNumber)
{
    for (size_t u = 0; u < 4; ++u) {
        sBytes.at(uOffset + u) = static_cast<char>(uNumber >> 8 * u);
    }
}

std::string DefaultHeaderBytes()
{
    constexpr size_t aShown[] = {1030, 1031, 1032, 1033, 1034, 1035, 1036, 1037, 1038, 1212, 1213};
    constexpr struct
    {
        size_t uOffset;
        uint32_t uPixels;
    } aWidths[] = {{1040, 55}, {1044, 50},  {1048, 250}, {1052, 60}, {1056, 60},
                   {1060, 75}, {1064, 240}, {1068, 30},  {1216, 30}, {1224, 240}};
    std::string sHeader(1264, '\0');
    for (const size_t uOffset : aShown) {
        sHeader[uOffset] = 1;
    }
    for (const auto& width : aWidths) {
        PutNumber(sHeader, width.uOffset, width.uPixels);
    }
    return sHeader;
}

EntryParts EntryOf(const QMTransactionFields& fields)
{
    return {BytesOf(fields).substr(0, 48), fields.szDescription, fields.szMemo, fields.szCategory};
}

std::string JoinAccount(const AccountParts& parts)
{
    const size_t uBlockSize = parts.entries.empty() ? 48 : parts.entries.front().sBlock.size();
    std::string sFile("\x85\x36\x76\x35");
    sFile += BytesOf(parts.uVersion) + BytesOf(static_cast<uint32_t>(parts.entries.size()));
    sFile += BytesOf(static_cast<uint32_t>(parts.sHeader.size())) + Scrambled(parts.sHeader);
    sFile += BytesOf(static_cast<uint32_t>(uBlockSize));
    for (const EntryParts& entry : parts.entries) {
        sFile += parts.uVersion == 4096 ? Scrambled(entry.sBlock) : entry.sBlock;
        sFile += TextBytes(entry.sDescription) + TextBytes(entry.sMemo);
        sFile += parts.uVersion >= 8192 ? TextBytes(entry.sCategory) : "";
    }
    return sFile;
}

std::string SmallAccount(uint32_t uVersion)
{
    QMTransaction first = MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 48.6F, 0, "Hardware");
    VCopyText(first.szMemo, "hinges");
    VCopyText(first.szCategory, "House");
    const QMTransaction second = MakeTransaction(QM_TRANS_DEPOSIT, "3/15/2004", 250);
    return JoinAccount({uVersion, DefaultHeaderBytes(), {EntryOf(first), EntryOf(second)}});
}

bool ReadBytes(QMAccount& account, const std::string& sBytes, QMReadReport* pReport)
{
    const auto pBytes = std::make_unique<char[]>(sBytes.size());
    memcpy(pBytes.get(), sBytes.data(), sBytes.size());
    QMMemorySource source(pBytes.get(), sBytes.size());
    QMAccountReader reader(account);
    const bool bRead = reader.ReadFrom(source);
    if (pReport != nullptr) {
        *pReport = reader.GetReport();
    }
    return bRead;
}

std::string ImageOf(const QMAccount& account)
{
    const QMFileImage image = QMMakeAccountImage(account);
    EXPECT_NE(image.pBytes, nullptr);
    return {reinterpret_cast<const char*>(image.pBytes.get()), image.uSize};
}

std::string BytesOfFile(QMFile& file)
{
    const int64_t nSize = file.GetSize();
    EXPECT_GE(nSize, 0);
    EXPECT_TRUE(file.Seek(0));
    std::string sBytes(static_cast<size_t>(std::max<int64_t>(nSize, 0)), '\0');
    EXPECT_EQ(file.ReadSome(sBytes.data(), sBytes.size()), nSize);
    return sBytes;
}

const std::vector<HeaderField>& HeaderFields()
{
#define FIELD(field)                                                             \
    {                                                                            \
#field, offsetof(QMAccountHeader, field), sizeof(QMAccountHeader::field) \
    }
    static const std::vector<HeaderField> fields = {
        FIELD(szAccountNumber), FIELD(dtOpened),          FIELD(fMinimumBalance),
        FIELD(bReadOnly),       FIELD(bReserved),         FIELD(szPassword),
        FIELD(szBankName),      FIELD(szBankAddress),     FIELD(szBankCity),
        FIELD(szBankState),     FIELD(szBankZip),         FIELD(szBankPhone),
        FIELD(szBankHomepage),  FIELD(szHolderName),      FIELD(szHolderAddress),
        FIELD(szHolderCity),    FIELD(szHolderState),     FIELD(szHolderZip),
        FIELD(szHolderPhone),   FIELD(bGridLines),        FIELD(bShowDate),
        FIELD(bShowNumber),     FIELD(bShowDescription),  FIELD(bShowDebit),
        FIELD(bShowCredit),     FIELD(bShowBalance),      FIELD(bShowMemo),
        FIELD(bShowTag),        FIELD(bReserved2),        FIELD(lWidthDate),
        FIELD(lWidthNumber),    FIELD(lWidthDescription), FIELD(lWidthDebit),
        FIELD(lWidthCredit),    FIELD(lWidthBalance),     FIELD(lWidthMemo),
        FIELD(lWidthTag),       FIELD(lFontStyle),        FIELD(lFontColor),
        FIELD(szFontFace),      FIELD(lFontSize),         FIELD(bShadedLines),
        FIELD(bShowCleared),    FIELD(bReserved3),        FIELD(lWidthCleared),
        FIELD(bShowCategory),   FIELD(bReserved4),        FIELD(lWidthCategory),
        FIELD(lDisplayPeriod),  FIELD(dtPeriodFrom),      FIELD(dtPeriodTo),
    };
#undef FIELD
    return fields;
}
