// Runs every input of the fuzzers' corpora through the entry points of the fuzzers, which abort
// when they find a fault.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "exchange/qmbankreader.h"
#include "exchange/qmexchange.h"
#include "tests/support/account_support.h"
#include "tests/support/support.h"

// LLVMFuzzerTestOneInput of each fuzzer's source; the build gives it a name of its own.
extern "C" int FuzzAccountReader(const uint8_t* pBytes, size_t uSize);
extern "C" int FuzzAccountReport(const uint8_t* pBytes, size_t uSize);
extern "C" int FuzzBankReader(const uint8_t* pBytes, size_t uSize);
extern "C" int FuzzQifReader(const uint8_t* pBytes, size_t uSize);
extern "C" int FuzzCsvReader(const uint8_t* pBytes, size_t uSize);
extern "C" int FuzzXmlReader(const uint8_t* pBytes, size_t uSize);

namespace {

bool ReadsAsAccount(const std::string& sBytes)
{
    QMAccount account("");
    return ReadBytes(account, sBytes);
}

bool ReadsAs(const char* szName, const std::string& sBytes)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf(szName);
    WriteWholeFile(sPath, sBytes);
    QMTransactionStore store;
    return QMImportFile(sPath.c_str(), store);
}

bool ReadsAsQif(const std::string& sBytes)
{
    return ReadsAs("in.qif", sBytes);
}

bool ReadsAsCsv(const std::string& sBytes)
{
    return ReadsAs("in.csv", sBytes);
}

bool ReadsAsXml(const std::string& sBytes)
{
    return ReadsAs("in.xml", sBytes);
}

bool ReadsAsBank(const std::string& sInput)
{
    const size_t uEnd = sInput.find('\n');
    std::string sProfile = sInput.substr(0, uEnd);
    std::replace(sProfile.begin(), sProfile.end(), '&', '\n');
    QMDialect dialect;
    QMTransactionStore store;
    QMBankReport report;
    std::string sFault;
    return dialect.ReadProfile(sProfile).empty() && uEnd != std::string::npos &&
           QMReadBankCsv(sInput.substr(uEnd + 1), dialect, store, report, sFault);
}

constexpr struct
{
    const char* szFolder;
    size_t uAtLeast; // inputs
    int (*pFuzz)(const uint8_t* pBytes, size_t uSize);
    bool (*pReads)(const std::string& sBytes);
} aCorpora[] = {
    {"account", 40, FuzzAccountReader, ReadsAsAccount},
    {"report", 5, FuzzAccountReport, ReadsAsAccount},
    {"bank", 10, FuzzBankReader, ReadsAsBank},
    {"qif", 20, FuzzQifReader, ReadsAsQif},
    {"csv", 15, FuzzCsvReader, ReadsAsCsv},
    {"xml", 20, FuzzXmlReader, ReadsAsXml},
};

// A corpus and the name of an input in it.
struct Input
{
    size_t uCorpus;
    std::string sName;
};

std::string FolderOf(size_t uCorpus)
{
    return std::string(QUILLMARK_SOURCE_DIR "/fuzz/corpus/") + aCorpora[uCorpus].szFolder;
}

// The names of the inputs, sorted.
std::vector<std::string> NamesIn(const std::string& sFolder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(sFolder, error)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<Input> AllInputs()
{
    std::vector<Input> inputs;
    for (size_t u = 0; u < std::size(aCorpora); ++u) {
        for (const std::string& sName : NamesIn(FolderOf(u))) {
            inputs.push_back({u, sName});
        }
    }
    return inputs;
}

// GoogleTest allows only letters and digits in a test's name.
std::string TestNameOf(const testing::TestParamInfo<Input>& input)
{
    std::string sName = aCorpora[input.param.uCorpus].szFolder + ("_" + input.param.sName);
    std::replace_if(
        sName.begin(), sName.end(), [](char c) { return !isalnum(c); }, '_');
    return sName;
}

void PrintTo(const Input& input, std::ostream* pStream)
{
    *pStream << FolderOf(input.uCorpus) << "/" << input.sName;
}

class Corpus : public testing::TestWithParam<Input>
{};

} // namespace

TEST(Corpora, AreThere)
{
    for (size_t u = 0; u < std::size(aCorpora); ++u) {
        EXPECT_GE(NamesIn(FolderOf(u)).size(), aCorpora[u].uAtLeast) << aCorpora[u].szFolder;
    }
}

// The inputs for the account reader serve the reports too.
TEST(Corpora, OfAccountsGiveReports)
{
    for (const std::string& sName : NamesIn(FolderOf(0))) {
        const std::string sInput = ReadWholeFile(FolderOf(0) + "/" + sName);
        const std::vector<uint8_t> bytes(sInput.begin(), sInput.end());
        EXPECT_EQ(FuzzAccountReport(bytes.data(), bytes.size()), 0) << sName;
    }
}

TEST_P(Corpus, Replay)
{
    const auto& corpus = aCorpora[GetParam().uCorpus];
    const std::string& sName = GetParam().sName;
    const std::string sInput = ReadWholeFile(FolderOf(GetParam().uCorpus) + "/" + sName);
    const std::vector<uint8_t> bytes(sInput.begin(), sInput.end());
    EXPECT_EQ(corpus.pFuzz(bytes.data(), bytes.size()), 0);
    if (sName.rfind("good_", 0) == 0) {
        EXPECT_TRUE(corpus.pReads(sInput));
    } else if (sName.rfind("bad_", 0) == 0) {
        EXPECT_FALSE(corpus.pReads(sInput));
    }
}

INSTANTIATE_TEST_SUITE_P(Inputs, Corpus, testing::ValuesIn(AllInputs()), TestNameOf);
