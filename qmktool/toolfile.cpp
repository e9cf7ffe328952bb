#include "qmktool/toolfile.h"

#include "qmktool/toolerror.h"

bool IsAccountName(const char* szFile)
{
    VString sFolder;
    VString sFileName;
    VSplitPath(szFile, sFolder, sFileName);
    const int32_t lDot = sFileName.FindLast('.');
    return lDot >= 0 && sFileName.Mid(static_cast<uint32_t>(lDot)).CompareNoCase(".qmk") == 0;
}

QMExchangeKind ExchangeKindOf(const char* szFile)
{
    const QMExchangeKind kind = QMKindOfPath(szFile);
    return kind == QMExchangeKind::Text ? QMExchangeKind::None : kind;
}

bool ReportWriting(const char* szFile, VFileFault fault)
{
    if (fault == VFileFault::Exists) {
        RefuseFile("write", szFile, "the file exists already (replace it with --force)");
    } else if (fault != VFileFault::None) {
        RefuseFile("write", szFile, VFileFaultText(fault));
    }
    return fault == VFileFault::None;
}
