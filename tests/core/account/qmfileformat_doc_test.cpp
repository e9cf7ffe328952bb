// Compares docs/file-format.md with the code.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "account/qmaccount.h"
#include "base/vtext.h"
#include "tests/support/account_support.h"
#include "tests/support/support.h"

namespace {

std::vector<std::string> LinesOfPage()
{
    std::istringstream page(ReadWholeFile(QUILLMARK_SOURCE_DIR "/docs/file-format.md"));
    std::vector<std::string> lines;
    std::string sLine;
    while (std::getline(page, sLine)) {
        lines.push_back(sLine);
    }
    return lines;
}

// The bytes of a line such as "00000010  CC D2"; the offset in front must be the one given.
std::string BytesOfLine(const std::string& sLine, size_t uOffset)
{
    std::istringstream line(sLine);
    std::string sWord;
    line >> sWord;
    EXPECT_EQ(std::stoul(sWord, nullptr, 16), uOffset) << sLine;
    std::string sBytes;
    while (line >> sWord) {
        EXPECT_EQ(sWord.size(), 2U) << sLine;
        sBytes += static_cast<char>(std::stoul(sWord, nullptr, 16));
    }
    return sBytes;
}

// All the blocks of the worked example in a row.
std::string ExampleOfPage()
{
    std::string sExample;
    bool bInBlock = false;
    for (const std::string& sLine : LinesOfPage()) {
        if (sLine.rfind("```", 0) == 0) {
            bInBlock = sLine == "```hex";
        } else if (bInBlock) {
            sExample += BytesOfLine(sLine, sExample.size());
        }
    }
    return sExample;
}

// The cells of a table's row, without blanks and code marks at their ends.
std::vector<std::string> CellsOf(const std::string& sLine)
{
    std::vector<std::string> cells;
    std::istringstream line(sLine.substr(1));
    std::string sCell;
    while (std::getline(line, sCell, '|')) {
        const size_t uFirst = sCell.find_first_not_of(" `");
        const size_t uLast = sCell.find_last_not_of(" `");
        cells.push_back(uFirst == std::string::npos ? ""
                                                    : sCell.substr(uFirst, uLast - uFirst + 1));
    }
    return cells;
}

// The rows of the page's tables that begin with an offset and a size, by the name of the field.
std::map<std::string, std::vector<std::string>> FieldRowsOfPage()
{
    std::map<std::string, std::vector<std::string>> rows;
    for (const std::string& sLine : LinesOfPage()) {
        if (sLine.rfind("| ", 0) == 0) {
            const std::vector<std::string> cells = CellsOf(sLine);
            if (cells.size() >= 4 && VIsDigit(cells[0][0])) {
                rows[cells[2]] = cells;
            }
        }
    }
    return rows;
}

void FillExample(QMAccount& account)
{
    account.header = QMDefaultHeader();
    VCopyText(account.header.szAccountNumber, "12-345");
    VCopyText(account.header.szBankName, "First Example Bank");
    account.header.fMinimumBalance = 100;
    QMTransaction check =
        MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 48.6F, 0, "Oak Street Hardware");
    check.lNumber = 1001;
    check.dtCleared = MakeDate("3/18/2004");
    VCopyText(check.szMemo, "gate hinges");
    VCopyText(check.szCategory, "House");
    AddTo(account.store, check);
    AddTo(account.store, MakeTransaction(QM_TRANS_DEPOSIT, "3/15/2004", 250, 17, "Refund"));
}

} // namespace

TEST(FileFormatPage, ExampleIsWhatTheCodeWrites)
{
    QMAccount account("");
    FillExample(account);
    const std::string sExample = ExampleOfPage();
    EXPECT_EQ(sExample.size(), 1445U);
    EXPECT_EQ(sExample, ImageOf(account));
}

TEST(FileFormatPage, ExampleReadsAsThePageTells)
{
    QMAccount expected("");
    FillExample(expected);
    QMAccount account("");
    QMReadReport report;
    ASSERT_TRUE(ReadBytes(account, ExampleOfPage(), &report));
    EXPECT_FALSE(report.IsMended());
    EXPECT_EQ(report.uTrailingBytes, 0U);
    EXPECT_EQ(account.lVersion, 8192);
    EXPECT_EQ(BytesOf(account.header), BytesOf(expected.header));
    ASSERT_EQ(account.store.GetCount(), 2);
    account.store.First();
    expected.store.First();
    do {
        EXPECT_TRUE(IsSame(*account.store.GetCurrentNode(), *expected.store.GetCurrentNode()));
    } while (account.store.Next() && expected.store.Next());
}

TEST(FileFormatPage, HeaderTableIsTheHeader)
{
    const auto rows = FieldRowsOfPage();
    for (const HeaderField& field : HeaderFields()) {
        if (std::string(field.szName).find("Reserved") != std::string::npos) {
            continue;
        }
        ASSERT_TRUE(rows.contains(field.szName)) << field.szName;
        const std::vector<std::string>& cells = rows.at(field.szName);
        EXPECT_EQ(cells[0], std::to_string(field.uOffset)) << field.szName;
        EXPECT_EQ(cells[1], std::to_string(field.uSize)) << field.szName;
    }
}

TEST(FileFormatPage, HeaderTableTellsTheDefaults)
{
    const QMAccountHeader header = QMDefaultHeader();
    const std::string sHeader = BytesOf(header);
    int nChecked = 0;
    for (const HeaderField& field : HeaderFields()) {
        const std::vector<std::string> cells = FieldRowsOfPage()[field.szName];
        if (cells.size() < 5 || !VIsDigit(cells[4][0])) {
            continue;
        }
        const auto uDefault = static_cast<uint32_t>(std::stoul(cells[4]));
        EXPECT_EQ(field.uSize == 1 ? static_cast<uint32_t>(sHeader[field.uOffset])
                                   : NumberAt(sHeader, field.uOffset),
                  uDefault)
            << field.szName;
        ++nChecked;
    }
    EXPECT_EQ(nChecked, 26); // twelve flags, ten widths, four numbers
}

TEST(FileFormatPage, BlockTableIsTheBlock)
{
    const auto rows = FieldRowsOfPage();
    const std::map<std::string, std::pair<size_t, size_t>> fields = {
        {"lType", {offsetof(QMTransactionFields, lType), 4}},
        {"dtDate", {offsetof(QMTransactionFields, dtDate), 16}},
        {"lNumber", {offsetof(QMTransactionFields, lNumber), 4}},
        {"fAmount", {offsetof(QMTransactionFields, fAmount), 4}},
        {"lFlags", {offsetof(QMTransactionFields, lFlags), 4}},
        {"dtCleared", {offsetof(QMTransactionFields, dtCleared), 16}},
    };
    for (const auto& [sName, place] : fields) {
        ASSERT_TRUE(rows.contains(sName)) << sName;
        EXPECT_EQ(rows.at(sName)[0], std::to_string(place.first)) << sName;
        EXPECT_EQ(rows.at(sName)[1], std::to_string(place.second)) << sName;
    }
}
