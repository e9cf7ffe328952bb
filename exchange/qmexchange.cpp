#include "exchange/qmexchange.h"

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

// From a path or a source of bytes.
template <class T>
bool Import(QMExchangeKind kind, T&& from, QMTransactionStore& store)
{
    switch (kind) {
        case QMExchangeKind::Qif:
            return QMQifFormat().Import(from, store);
        case QMExchangeKind::Csv:
            return QMCsvFormat().Import(from, store);
        case QMExchangeKind::Xml:
            return QMXmlFormat().Import(from, store);
        default:
            return false;
    }
}

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

bool QMImportFile(const char* szPath, QMTransactionStore& store)
{
    return Import(QMKindOfPath(szPath), szPath, store);
}

bool QMImportFrom(QMByteSource& source, QMExchangeKind kind, QMTransactionStore& store)
{
    return Import(kind, source, store);
}

bool QMExportFile(const char* szPath, QMTransactionStore& store)
{
    const QMExchangeKind kind = QMKindOfPath(szPath);
    return IsWritten(kind) &&
           QMWriteExchangeFile(szPath, [&](QMByteSink& sink) { QMExportTo(sink, kind, store); });
}

bool QMExportTo(QMByteSink& sink, QMExchangeKind kind, QMTransactionStore& store)
{
    switch (kind) {
        case QMExchangeKind::Qif:
            return QMQifFormat::WriteTo(sink, store);
        case QMExchangeKind::Csv:
            return QMCsvFormat::WriteTo(sink, store);
        case QMExchangeKind::Xml:
            return QMXmlFormat::WriteTo(sink, store);
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
