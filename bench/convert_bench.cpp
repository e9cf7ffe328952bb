// Measures qmktool convert as a whole process: exchange files into accounts and back, against loops
// that only read and write the same bytes; the memory that it takes, and files in random order.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "bench/child.h"
#include "bench/exchangefiles.h"
#include "bench/programrun.h"
#include "bench/ratios.h"

namespace {

constexpr struct
{
    QMExchangeKind kind;
    const char* szName;
    double dImport; // at most so many times the loop
} aKinds[] = {
    {QMExchangeKind::Qif, "Qif", 2.5},
    {QMExchangeKind::Csv, "Csv", 2.5},
    // Expat alone takes most of it.
    {QMExchangeKind::Xml, "Xml", 5.5},
};

// A file that a program makes. It is removed with the object.
class MadeFile
{
public:
    explicit MadeFile(const std::string& sName)
        : m_sPath("/tmp/made-" + std::to_string(getpid()) + sName)
    {}
    MadeFile(const MadeFile&) = delete;
    MadeFile& operator=(const MadeFile&) = delete;
    ~MadeFile() { unlink(m_sPath.c_str()); }
    const char* GetPath() const { return m_sPath.c_str(); }

private:
    std::string m_sPath;
};

std::string Add(const std::string& sName, int32_t lCount, const std::vector<std::string>& aszWords)
{
    return AddMeasured(sName, lCount, [aszWords] { return RunProgram(aszWords); });
}

// What the program takes besides the records is not counted.
void ComparePeak(const std::string& sName, int32_t lCount)
{
    static const double dProgram = RunProgram({QMKTOOL_PATH, "--version"}).dPeakBytes;
    const double dRecords = static_cast<double>(lCount) * sizeof(QMTransaction);
    CompareValue(
        sName + ", peak memory to records",
        [sName, dRecords] {
            const double dPeak = GetPeakBytes(sName);
            return dPeak > 0 ? (dPeak - dProgram) / dRecords : 0;
        },
        1.1);
}

// Files that stay until the process ends.
const char* Make(const std::string& sName)
{
    static std::vector<std::unique_ptr<MadeFile>> files;
    files.push_back(std::make_unique<MadeFile>(sName));
    return files.back()->GetPath();
}

// A child process does it, so that this one, and with it every program that it runs, stays small.
const char* MakeIn(QMExchangeKind kind, int32_t lCount, EntryOrder order, const std::string& sName)
{
    const char* szPath = Make(sName + ExtensionOf(kind));
    const Measurement result = MeasureInChild([&](const std::function<void()>&) {
        const std::string sText = MakeExchangeText(kind, lCount, order);
        FILE* pFile = fopen(szPath, "wb");
        return pFile != nullptr && fwrite(sText.data(), 1, sText.size(), pFile) == sText.size() &&
               fclose(pFile) == 0;
    });
    if (!result.bDone) {
        fprintf(stderr, "%s: cannot write\n", szPath);
        exit(1);
    }
    return szPath;
}

void RegisterKind(QMExchangeKind kind, const std::string& sName, double dLimit, int32_t lCount)
{
    const std::string sFile = sName + std::to_string(lCount);
    const char* szIn = MakeIn(kind, lCount, EntryOrder::Sorted, sFile);
    const char* szAccount = Make(sFile + ".qmk");
    const char* szOut = Make(sFile + "out.qmk");
    RunProgram({QMKTOOL_PATH, "convert", szIn, szAccount, "--force"});
    const std::string sLoop =
        Add(sName + "Loop", lCount, {PLAINCONVERT_PATH, szIn, szAccount, szOut});
    const std::string sConvert =
        Add(sName + "Convert", lCount, {QMKTOOL_PATH, "convert", szIn, szOut, "--force"});
    CompareWith(sConvert, sLoop, dLimit);
    ComparePeak(sConvert, lCount);
}

void RegisterShuffled(int32_t lCount)
{
    const std::string sName = "QifConvertShuffled";
    const char* szIn = MakeIn(QMExchangeKind::Qif, lCount, EntryOrder::Shuffled, sName);
    const std::string sShuffled =
        Add(sName, lCount, {QMKTOOL_PATH, "convert", szIn, Make(sName + ".qmk"), "--force"});
    CompareWith(sShuffled, "QifConvert/" + std::to_string(lCount), 1.3);
    ComparePeak(sShuffled, lCount);
}

} // namespace

int main(int argc, char** argv)
{
    for (const auto& kind : aKinds) {
        RegisterKind(kind.kind, kind.szName, kind.dImport, 100000);
    }
    RegisterKind(QMExchangeKind::Qif, "Qif", 0, 1000000);
    RegisterShuffled(1000000);
    return RunWithRatios(argc, argv);
}
