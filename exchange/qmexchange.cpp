#include "exchange/qmexchange.h"

#include <cstring>

#include "base/vtext.h"
#include "exchange/qmcsvformat.h"
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
    switch (QMKindOfPath(szPath)) {
        case QMExchangeKind::Qif:
            return QMQifFormat().Import(szPath, store);
        case QMExchangeKind::Csv:
            return QMCsvFormat().Import(szPath, store);
        case QMExchangeKind::Xml:
            return QMXmlFormat().Import(szPath, store);
        default:
            return false;
    }
}

bool QMExportFile(const char* szPath, QMTransactionStore& store)
{
    switch (QMKindOfPath(szPath)) {
        case QMExchangeKind::Qif:
            return QMQifFormat().Export(szPath, store);
        case QMExchangeKind::Csv:
            return QMCsvFormat().Export(szPath, store);
        case QMExchangeKind::Xml:
            return QMXmlFormat().Export(szPath, store);
        default:
            return false;
    }
}

bool QMExportTo(FILE* pFile, QMExchangeKind kind, QMTransactionStore& store)
{
    switch (kind) {
        case QMExchangeKind::Qif:
            QMQifFormat::WriteTo(pFile, store);
            return true;
        case QMExchangeKind::Csv:
            QMCsvFormat::WriteTo(pFile, store);
            return true;
        case QMExchangeKind::Xml:
            QMXmlFormat::WriteTo(pFile, store);
            return true;
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
