#include "exchange/qmexchange.h"

#include <cstdio>
#include <cstring>

#include "base/vtext.h"
#include "exchange/qmcsvformat.h"
#include "exchange/qmexchangewriter.h"
#include "exchange/qmqifformat.h"
#include "exchange/qmxmlformat.h"

namespace {

constexpr struct
{
    const char* szExtension;
    QMExchangeKind kind;
} aExtensions[] = {
    {".qif", QMExchangeKind::Qif},
    {".csv", QMExchangeKind::Csv},
    {".xml", QMExchangeKind::Xml},
    {".txt", QMExchangeKind::Text},
};

bool IsWritten(QMExchangeKind kind)
{
    return kind != QMExchangeKind::None && kind != QMExchangeKind::Text;
}

template <class Format, class T, class Into>
bool ImportAs(T&& from, Into& into, QMImportTally* pTally)
{
    Format format;
    const bool bDone = format.Import(from, into);
    if (pTally != nullptr) {
        *pTally = format.GetTally();
    }
    return bDone;
}

// From a path or a source of bytes, into a store or to a taker.
template <class T, class Into>
bool Import(QMExchangeKind kind, T&& from, Into& into, QMImportTally* pTally = nullptr)
{
    switch (kind) {
        case QMExchangeKind::Qif:
            return ImportAs<QMQifFormat>(from, into, pTally);
        case QMExchangeKind::Csv:
            return ImportAs<QMCsvFormat>(from, into, pTally);
        case QMExchangeKind::Xml:
            return ImportAs<QMXmlFormat>(from, into, pTally);
        default:
            return false;
    }
}

// Passes on what a progress is told, and notes that it gave up.
class StoppableProgress : public QMProgress
{
public:
    StoppableProgress(QMProgress* pProgress, bool& bGivenUp)
        : m_pProgress(pProgress), m_bGivenUp(bGivenUp)
    {}
    bool OnStep(uint64_t uDone, uint64_t uTotal) override
    {
        m_bGivenUp = m_bGivenUp || !m_pProgress->OnStep(uDone, uTotal);
        return !m_bGivenUp;
    }

private:
    QMProgress* m_pProgress;
    bool& m_bGivenUp;
};

// Tells a progress of each piece that is read. Once the progress gives up, nothing more is read.
class WatchedSource : public QMByteSource
{
public:
    WatchedSource(FILE* pFile, QMProgress& progress)
        : m_source(pFile), m_progress(progress), m_uTotal(SizeOf(pFile))
    {}

    int64_t GetSize() override { return m_source.GetSize(); }
    int64_t ReadSome(void* pBuffer, size_t uSize) override
    {
        m_bGivenUp = m_bGivenUp || !m_progress.OnStep(m_uDone, m_uTotal);
        const int64_t nRead = m_bGivenUp ? -1 : m_source.ReadSome(pBuffer, uSize);
        m_uDone += nRead > 0 ? static_cast<uint64_t>(nRead) : 0;
        return nRead;
    }
    bool IsGivenUp() const { return m_bGivenUp; }

private:
    static uint64_t SizeOf(FILE* pFile)
    {
        const long lSize = fseek(pFile, 0, SEEK_END) == 0 ? ftell(pFile) : 0;
        rewind(pFile);
        return lSize > 0 ? static_cast<uint64_t>(lSize) : 0;
    }

    QMStdioSource m_source;
    QMProgress& m_progress;
    uint64_t m_uTotal;
    uint64_t m_uDone = 0;
    bool m_bGivenUp = false;
};

} // namespace

QMExchangeKind QMKindOfPath(const char* szPath)
{
    const char* szTail = szPath == nullptr ? nullptr : strrchr(szPath, '.');
    if (szTail != nullptr) {
        for (const auto& entry : aExtensions) {
            if (VCompareNoCase(szTail, entry.szExtension) == 0) {
                return entry.kind;
            }
        }
    }
    return QMExchangeKind::None;
}

bool QMImportFile(const char* szPath, QMTransactionStore& store, QMProgress* pProgress)
{
    const QMExchangeKind kind = QMKindOfPath(szPath);
    if (pProgress == nullptr) {
        return Import(kind, szPath, store);
    }
    const QMStdioFile pFile = QMOpenForReading(szPath);
    if (pFile == nullptr) {
        return false;
    }
    WatchedSource source(pFile.get(), *pProgress);
    QMTransactionStore imported;
    // A text that ends early reads like a shorter text.
    if (!Import(kind, source, imported) || source.IsGivenUp()) {
        return false;
    }
    store.TakeFrom(imported);
    return true;
}

bool QMImportFrom(QMByteSource& source, QMExchangeKind kind, QMTransactionStore& store,
                  QMImportTally* pTally)
{
    return Import(kind, source, store, pTally);
}

bool QMImportTo(QMRecordTaker& taker, QMByteSource& source, QMExchangeKind kind,
                QMImportTally* pTally)
{
    return Import(kind, source, taker, pTally);
}

bool QMExportFile(const char* szPath, QMTransactionStore& store, QMProgress* pProgress)
{
    const QMExchangeKind kind = QMKindOfPath(szPath);
    bool bGivenUp = false;
    StoppableProgress watched(pProgress, bGivenUp);
    const bool bMade = IsWritten(kind) && QMWriteExchangeFile(szPath, [&](QMByteSink& sink) {
                           QMExportTo(sink, kind, store, pProgress == nullptr ? nullptr : &watched);
                       });
    if (bGivenUp) {
        remove(szPath);
    }
    return bMade && !bGivenUp;
}

bool QMExportTo(QMByteSink& sink, QMExchangeKind kind, QMTransactionStore& store,
                QMProgress* pProgress)
{
    switch (kind) {
        case QMExchangeKind::Qif:
            return QMQifFormat::WriteTo(sink, store, pProgress);
        case QMExchangeKind::Csv:
            return QMCsvFormat::WriteTo(sink, store, pProgress);
        case QMExchangeKind::Xml:
            return QMXmlFormat::WriteTo(sink, store, pProgress);
        default:
            return false;
    }
}

const char* QMExportObstacle(QMExchangeKind kind, const QMTransactionStore& store)
{
    const QMTransaction* pLast = nullptr;
    store.ForEach([&](const QMTransaction& transaction) { pLast = &transaction; });
    if (pLast == nullptr) {
        return "the account has no transactions";
    }
    if (kind == QMExchangeKind::Qif && pLast->HasFlag(QM_TRANS_FLAG_VOIDED)) {
        return "the last transaction is voided, and a QIF file cannot end with one that it leaves "
               "out";
    }
    if (kind == QMExchangeKind::Xml && !pLast->IsTypeValid()) {
        return "the last transaction is of an unknown type, and an XML file cannot end with one "
               "that it leaves out";
    }
    return nullptr;
}
