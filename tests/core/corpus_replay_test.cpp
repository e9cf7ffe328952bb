// Runs every input of the fuzzers' corpora through the fuzzers' entry points, which abort where
// something does not hold.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/core/account_support.h"
#include "tests/core/support.h"

// LLVMFuzzerTestOneInput of account_reader_fuzz.cpp; the build gives it a name of its own.
extern "C" int FuzzAccountReader(const uint8_t* pBytes, size_t uSize);

namespace {

const char* const szAccountCorpus = QUILLMARK_SOURCE_DIR "/fuzz/corpus/account";

// The names of the inputs, sorted.
std::vector<std::string> InputsOf(const char* szFolder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(szFolder, error)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

// A test's name takes letters and digits only.
std::string TestNameOf(const testing::TestParamInfo<std::string>& input)
{
    std::string sName = input.param;
    std::replace_if(
        sName.begin(), sName.end(), [](char c) { return !isalnum(c); }, '_');
    return sName;
}

class AccountCorpus : public testing::TestWithParam<std::string>
{};

} // namespace

TEST(Corpus, OfTheAccountReaderIsThere)
{
    EXPECT_GE(InputsOf(szAccountCorpus).size(), 40U);
}

TEST_P(AccountCorpus, Replay)
{
    const std::string sInput = ReadWholeFile(szAccountCorpus + ("/" + GetParam()));
    const std::vector<uint8_t> bytes(sInput.begin(), sInput.end());
    EXPECT_EQ(FuzzAccountReader(bytes.data(), bytes.size()), 0);
    QMAccount account("");
    const bool bRead = ReadBytes(account, sInput);
    if (GetParam().rfind("good_", 0) == 0) {
        EXPECT_TRUE(bRead);
    } else if (GetParam().rfind("bad_", 0) == 0) {
        EXPECT_FALSE(bRead);
    }
}

INSTANTIATE_TEST_SUITE_P(Inputs, AccountCorpus, testing::ValuesIn(InputsOf(szAccountCorpus)),
                         TestNameOf);
