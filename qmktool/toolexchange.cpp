#include "qmktool/toolexchange.h"
#include "account/qmmerge.h"

#include <string>

#include "account/qmfile.h"
#include "qmktool/toolerror.h"

namespace {

// Why nothing came of the file.
const char* ImportFault(const char* szFile)
{
    QMFile file(szFile);
    if (!file.OpenForReading()) {
        return VFileFaultText(file.GetFault());
    }
    if (file.GetSize() == 0) {
        return "the file is empty";
    }
    return ExchangeKindOf(szFile) == QMExchangeKind::Xml ? "it is not a well-formed XML document"
                                                         : "it holds no line of text";
}

} // namespace

int32_t ImportInto(QMAccount& account, const char* szFile)
{
    QMTransactionStore store;
    if (!QMImportFile(szFile, store)) {
        RefuseFile("import", szFile, ImportFault(szFile));
        return -1;
    }
    const int32_t lCount = QMMergeAll(store, account.store);
    if (lCount < 0) {
        RefuseFile("import", szFile, "there is not enough memory");
    }
    return lCount;
}

bool WriteExchangeFile(QMTransactionStore& store, const char* szFile, bool bReplace)
{
    return WriteToolFile(szFile, bReplace, [&](QMByteSink& sink) {
        return QMExportTo(sink, ExchangeKindOf(szFile), store);
    });
}
