#include "qmktool/toolaccount.h"

#include <algorithm>
#include <string>

#include "account/qmaccountwriter.h"
#include "base/vtext.h"
#include "qmktool/toolfile.h"
#include "qmktool/toolprogress.h"

namespace {

// Why the account could not be read.
std::string Reason(const QMAccount& account, const QMReadReport& report)
{
    if (report.fault == QMReadFault::CannotOpen) {
        return VFileFaultText(account.GetFault());
    }
    std::string sReason = QMReadFaultText(report.fault);
    if (report.lFaultEntry >= 0) {
        sReason += " (in entry " + std::to_string(report.lFaultEntry + 1) + " of " +
                   std::to_string(report.lCount) + ")";
    }
    return sReason;
}

// Why the password does not open the account; null when it does. Upper and lower case are the same.
const char* PasswordFault(const QMAccount& account, const char* szPassword)
{
    if (account.header.szPassword[0] == '\0') {
        return nullptr;
    }
    if (szPassword == nullptr) {
        return "it is password protected (give --password)";
    }
    return VCompareNoCase(szPassword, account.header.szPassword) == 0 ? nullptr
                                                                      : "the password is wrong";
}

} // namespace

std::unique_ptr<QMAccount> OpenToolAccount(const char* szFile, const ToolOptions& options,
                                           QMReadReport& report)
{
    auto pAccount = std::make_unique<QMAccount>(szFile);
    QMAccountReader reader(*pAccount);
    // Opened for reading only, so that a file that the user may not write can be read too.
    bool bRead = pAccount->OpenForReading();
    if (bRead) {
        QMFileSource source(*pAccount);
        WatchedByteSource watched(source,
                                  static_cast<uint64_t>(std::max<int64_t>(pAccount->GetSize(), 0)));
        bRead = reader.ReadFrom(watched);
    }
    report = reader.GetReport();
    if (!bRead) {
        if (!pAccount->IsOpen()) {
            report.fault = QMReadFault::CannotOpen;
        }
        RefuseFile("open", szFile, Reason(*pAccount, report).c_str());
        return nullptr;
    }
    pAccount->Close();
    if (const char* szFault = PasswordFault(*pAccount, options.szPassword)) {
        RefuseFile("open", szFile, szFault);
        return nullptr;
    }
    return pAccount;
}

bool WriteToolAccount(const QMAccount& account, const char* szFile, bool bReplace)
{
    return WriteToolFile(szFile, bReplace, [&](QMByteSink& sink) {
        ToolProgress progress("writing", 1, "transactions");
        return QMWriteAccountTo(sink, account, &progress);
    });
}

bool WriteToolAccount(const QMAccount& account, QMPackedTransactions& packed, const char* szFile,
                      bool bReplace)
{
    return WriteToolFile(szFile, bReplace, [&](QMByteSink& sink) {
        ToolProgress progress("writing", 1, "transactions");
        return QMWriteAccountTo(sink, account, packed, &progress);
    });
}

const char* FormatName(int32_t lVersion)
{
    if (lVersion == QM_VERSION_1_0) {
        return "1.0";
    }
    return lVersion == QM_VERSION_2_0 ? "2.0" : "1.1";
}
