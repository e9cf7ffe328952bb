#include "account/qmaccountwriter.h"
#include "qmktool/commands.h"
#include "qmktool/output.h"
#include "qmktool/toolaccount.h"
#include "toolkit/vfilesystem.h"
#include "toolkit/vtext.h"

namespace {

bool IsAccountFile(const char* szFile)
{
    VString sFolder;
    VString sFileName;
    VSplitPath(szFile, sFolder, sFileName);
    const int32_t lDot = sFileName.FindLast('.');
    return lDot >= 0 && sFileName.Mid(static_cast<uint32_t>(lDot)).CompareNoCase(".qmk") == 0;
}

// Null when the file may be converted from or to as far as its name goes.
const char* KindFault(const char* szFile)
{
    return IsAccountFile(szFile) ? nullptr : "only account files (.qmk) can be converted";
}

int32_t CountCategories(const QMAccount& account)
{
    int32_t lCount = 0;
    account.store.ForEach([&](const QMTransaction& transaction) {
        lCount += transaction.szCategory[0] != '\0' ? 1 : 0;
    });
    return lCount;
}

int WriteAccount(const QMAccount& account, const char* szFile, bool bReplace)
{
    const QMFileImage image = QMMakeAccountImage(account);
    if (image.pBytes == nullptr) {
        return RefuseFile("write", szFile, "there is not enough memory");
    }
    const VFileFault fault = VWriteWholeFile(szFile, image.pBytes.get(), image.uSize, bReplace);
    if (fault == VFileFault::Exists) {
        return RefuseFile("write", szFile, "the file exists already (replace it with --force)");
    }
    if (fault != VFileFault::None) {
        return RefuseFile("write", szFile, VFileFaultText(fault));
    }
    Output output;
    output.AddPrintable(szFile);
    output.Format(": format %s, %d transactions", FormatName(account.lVersion),
                  account.store.GetCount());
    const int32_t lCategories =
        QMVersionHasCategory(account.lVersion) ? 0 : CountCategories(account);
    if (lCategories > 0) {
        output.Format(", %d categories left out", lCategories);
    }
    output.Add('\n');
    return output.Finish();
}

} // namespace

int RunConvert(const ToolOptions& options)
{
    const char* szIn = options.aFiles[0];
    const char* szOut = options.aFiles[1];
    if (const char* szFault = KindFault(szIn)) {
        return RefuseFile("open", szIn, szFault);
    }
    if (const char* szFault = KindFault(szOut)) {
        return RefuseFile("write", szOut, szFault);
    }
    QMReadReport report;
    const auto pAccount = OpenToolAccount(szIn, options, report);
    if (pAccount == nullptr) {
        return QM_EXIT_REFUSED;
    }
    pAccount->SetVersion(options.lVersion);
    return WriteAccount(*pAccount, szOut, options.bForce);
}
