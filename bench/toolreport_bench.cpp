// Measures qmktool report as a whole process, by processor time: against qmktool list, and long PDF
// files against short ones.

#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "bench/programrun.h"
#include "bench/ratios.h"
#include "bench/reportaccounts.h"

namespace {

constexpr int32_t lMany = 100000;
constexpr int32_t lLinesOnPage = 65; // of letter paper

// Adds a run of qmktool with the account's file behind the first word.
std::string AddProgram(const std::string& sName, const std::shared_ptr<ReportFile>& pFile,
                       int32_t lCount, std::vector<std::string> words)
{
    words.insert(words.begin(), QMKTOOL_PATH);
    words.insert(words.begin() + 2, pFile->GetPath());
    return AddMeasured(sName, lCount, [pFile, words] { return RunProgram(words); });
}

std::vector<std::string> ReportWords(const char* szKind, const char* szPdf = nullptr)
{
    std::vector<std::string> words = {"report",   "--kind", szKind,      "--from",
                                      "1/1/1900", "--to",   "12/31/2900"};
    if (szPdf != nullptr) {
        words.insert(words.end(), {"--pdf", szPdf, "--force"});
    }
    return words;
}

void RegisterProgram()
{
    const auto pFile = std::make_shared<ReportFile>(lMany);
    const std::string sList = AddProgram("ToolList", pFile, lMany, {"list"});
    const std::string sReport = AddProgram("ToolStatement", pFile, lMany, ReportWords("statement"));
    CompareWith(sReport, sList, 2);
}

// The expenses are three tenths of the transactions.
void RegisterPdf()
{
    constexpr int32_t lShort = 100 * lLinesOnPage * 10 / 3;
    const auto pShort = std::make_shared<ReportFile>(lShort);
    const auto pLong = std::make_shared<ReportFile>(10 * lShort);
    static const std::string sPdf = std::string(pLong->GetPath()) + ".pdf";
    atexit([] { unlink(sPdf.c_str()); });
    const auto words = ReportWords("expenses", sPdf.c_str());
    const std::string sShort = AddProgram("Pdf100Pages", pShort, lShort, words);
    const std::string sLong = AddProgram("Pdf1000Pages", pLong, 10 * lShort, words);
    CompareWith(sLong, sShort, 11);
    CompareValue(
        "Pdf1000Pages to Pdf100Pages, peak memory",
        [=] {
            const double dShort = GetPeakBytes(sShort);
            return dShort > 0 ? GetPeakBytes(sLong) / dShort : 0;
        },
        11);
}

} // namespace

int main(int argc, char** argv)
{
    RegisterProgram();
    RegisterPdf();
    return RunWithRatios(argc, argv);
}
