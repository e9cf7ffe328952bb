#include "fuzz/exchangecheck.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include "account/qmmerge.h"
#include "exchange/qmexchange.h"
#include "exchange/qmlinefile.h"
#include "exchange/qmlinereader.h"
#include "exchange/qmstdiofile.h"

namespace {

constexpr uint32_t uKnownFlags =
    QM_TRANS_FLAG_VOIDED | QM_TRANS_FLAG_EXPENSE | QM_TRANS_FLAG_TAX | QM_TRANS_FLAG_NOT_CLEARED;
constexpr const char* aszExtensions[] = {".qif", ".csv", ".xml"};

void Check(bool bHolds, const char* szWhat)
{
    if (!bHolds) {
        fprintf(stderr, "exchange: %s\n", szWhat);
        abort();
    }
}

// Fuzzers run side by side: each process has scratch files of its own.
const std::string& ProcessName()
{
    static const std::string sName = "exchange-" + std::to_string(std::random_device()());
    return sName;
}

// A file that is removed at the end of the object. TMPDIR names its folder, which is best kept in
// memory.
class ScratchFile
{
public:
    explicit ScratchFile(const char* szExtension)
        : m_sPath((std::filesystem::temp_directory_path() / (ProcessName() + szExtension)).string())
    {}
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() { remove(m_sPath.c_str()); }

    void Write(const uint8_t* pBytes, size_t uSize)
    {
        const QMStdioFile pFile(fopen(m_sPath.c_str(), "wb"));
        // For an empty input the pointer may be null.
        const bool bWritten =
            pFile != nullptr && (uSize == 0 || fwrite(pBytes, 1, uSize, pFile.get()) == uSize);
        Check(bWritten, "the scratch file cannot be written");
    }
    const char* GetPath() const { return m_sPath.c_str(); }

private:
    std::string m_sPath;
};

bool HasEnd(const char* szText, size_t uSize)
{
    return strnlen(szText, uSize) < uSize;
}

bool IsBroken(const char* szText)
{
    return strpbrk(szText, "\r\n") != nullptr;
}

// What must hold after an import of any format.
void CheckRecord(const QMTransaction& transaction, const QMTransaction* pBefore)
{
    Check(pBefore == nullptr || !QMDateIsBefore(transaction.dtDate, pBefore->dtDate),
          "the store is out of order");
    Check(transaction.IsTypeValid(), "a type is unknown");
    Check((transaction.lFlags & ~uKnownFlags) == 0, "a flag is unknown");
    Check(!std::isnan(transaction.fAmount), "an amount is not a number");
    Check(HasEnd(transaction.szDescription, sizeof transaction.szDescription) &&
              HasEnd(transaction.szMemo, sizeof transaction.szMemo) &&
              HasEnd(transaction.szCategory, sizeof transaction.szCategory),
          "a text has no end");
}

// What the text formats set right. XML takes the values as they are.
void CheckSettled(const QMTransaction& transaction)
{
    const QMTransaction& t = transaction;
    Check(t.fAmount >= 0, "an amount is negative");
    Check(!QMDateIsBefore(t.dtCleared, t.dtDate), "a date cleared is too early");
    Check(t.lType != QM_TRANS_CHECK || t.lNumber != 0, "a check has no number");
    Check(t.fAmount > 0 ? t.IsCreditType() || t.IsDebitType() : true, "an amount has no side");
    Check(!IsBroken(t.szDescription) && !IsBroken(t.szMemo) && !IsBroken(t.szCategory),
          "a text has several lines");
}

void CheckStore(const QMTransactionStore& store, bool bSettled)
{
    const QMTransaction* pBefore = nullptr;
    int32_t lCount = 0;
    store.ForEach([&](const QMTransaction& transaction) {
        CheckRecord(transaction, pBefore);
        if (bSettled) {
            CheckSettled(transaction);
        }
        pBefore = &transaction;
        ++lCount;
    });
    Check(lCount == store.GetCount(), "the store miscounts its transactions");
}

int32_t CountWritten(const QMTransactionStore& store, QMExchangeKind kind)
{
    int32_t lCount = 0;
    store.ForEach([&](const QMTransaction& transaction) {
        const bool bLeftOut =
            kind == QMExchangeKind::Qif && transaction.HasFlag(QM_TRANS_FLAG_VOIDED);
        lCount += bLeftOut ? 0 : 1;
    });
    return lCount;
}

// Writes the store and reads it again. Both may fail to give the same back: an XML document may be
// one that no parser accepts, and a text of several lines may read as other records.
void CheckWriting(QMTransactionStore& store, const char* szExtension, bool bOneLiners)
{
    const ScratchFile file(szExtension);
    const QMExchangeKind kind = QMKindOfPath(file.GetPath());
    if (QMExportObstacle(kind, store) != nullptr) {
        return;
    }
    Check(QMExportFile(file.GetPath(), store), "the store cannot be written");
    QMTransactionStore again;
    const bool bRead = QMImportFile(file.GetPath(), again);
    Check(bRead || kind == QMExchangeKind::Xml, "what was written does not read");
    CheckStore(again, kind != QMExchangeKind::Xml);
    if (bRead && (bOneLiners || kind == QMExchangeKind::Xml)) {
        Check(again.GetCount() == CountWritten(store, kind), "the count has changed");
    }
}

// The account after all of these transactions were imported.
void CheckMerge(QMTransactionStore& store)
{
    QMTransactionStore account;
    account.Add(std::make_unique<QMTransaction>());
    store.First();
    for (int32_t i = 0; i < store.GetCount(); ++i) {
        store.SetImportMark(i % 2 == 0);
        store.Next();
    }
    const int32_t lCount = QMMergeMarked(store, account);
    Check(lCount == (store.GetCount() + 1) / 2 && account.GetCount() == lCount + 1,
          "the merge miscounts");
    CheckStore(account, false);
    CheckStore(store, false);
}

// Joins the characters of all lines.
class Collector : public QMLineReader
{
public:
    explicit Collector(int32_t nMaxLine) : m_nMaxLine(nMaxLine) {}

    bool ParseLine(char* szText, int32_t lLine, int32_t lLength) override
    {
        Check(lLine == ++m_lLines, "a line is miscounted");
        Check((szText == nullptr) == (lLength == 0), "a blank line has a text");
        Check(lLength >= 0 && lLength <= m_nMaxLine - 2, "a line is too long");
        Check(szText == nullptr || szText[lLength] == '\0', "a line has no end");
        m_sAll.append(szText == nullptr ? "" : szText, static_cast<size_t>(lLength));
        return true;
    }

    const std::string& GetAll() const { return m_sAll; }
    bool IsEmpty() const { return m_lLines == 0; }

private:
    int32_t m_nMaxLine;
    int32_t m_lLines = 0;
    std::string m_sAll;
};

std::string WithoutLineEnds(const char* pBytes, size_t uSize)
{
    std::string sText;
    for (const char* p = pBytes; p < pBytes + uSize; ++p) {
        if (*p != '\r' && *p != '\n') {
            sText += *p;
        }
    }
    return sText;
}

} // namespace

void CheckExchangeFile(const char* szExtension, const uint8_t* pBytes, size_t uSize)
{
    QMTransactionStore store;
    store.Add(std::make_unique<QMTransaction>());
    const QMTransaction* pBefore = store.GetCurrentNode();
    ScratchFile file(szExtension);
    file.Write(pBytes, uSize);
    if (!QMImportFile(file.GetPath(), store)) {
        Check(store.GetCount() == 1 && store.GetCurrentNode() == pBefore,
              "a refused file changed the store");
        return;
    }
    const bool bSettled = strcmp(szExtension, ".xml") != 0;
    CheckStore(store, bSettled);
    for (const char* szOther : aszExtensions) {
        CheckWriting(store, szOther, bSettled);
    }
    CheckMerge(store);
}

void CheckLines(int32_t nMaxLine, const uint8_t* pBytes, size_t uSize)
{
    ScratchFile file(".txt");
    file.Write(pBytes, uSize);
    Collector collector(nMaxLine);
    const bool bRead = collector.Read(file.GetPath(), true, nMaxLine);
    Check(bRead != collector.IsEmpty(), "the result is not that of the lines");
    const char* pText = reinterpret_cast<const char*>(pBytes);
    switch (QMTellEncoding(pText, uSize)) {
        case QM_TEXT_PLAIN:
        case QM_TEXT_EIGHT_BIT:
            Check(collector.GetAll() == WithoutLineEnds(pText, uSize), "a character got lost");
            break;
        case QM_TEXT_UTF8:
            // A zero byte ends the line that is handed over.
            Check(memchr(pText, 0, uSize) != nullptr ||
                      collector.GetAll() == WithoutLineEnds(pText + 3, uSize - 3),
                  "a character behind the mark got lost");
            break;
        default:
            Check(collector.GetAll().size() <= uSize / 2, "characters came from nowhere");
            break;
    }
}
