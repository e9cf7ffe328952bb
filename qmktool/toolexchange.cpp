#include "qmktool/toolexchange.h"
#include "account/qmmerge.h"

#include <cerrno>
#include <string>

#include "account/qmfile.h"
#include "exchange/qmimportreview.h"
#include "exchange/qmstdiofile.h"
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

VFileFault FaultOfWriting()
{
    switch (errno) {
        case EACCES:
            return VFileFault::NoAccess;
        case ENAMETOOLONG:
            return VFileFault::NameTooLong;
        case ENOSPC:
        case EFBIG:
            return VFileFault::NoRoom;
        default:
            return VFileFault::Other;
    }
}

// StagingFile: a new file beside another one, with a name that nobody else uses. It is removed with
// the object. The formats can only write to files, so they write here, and the bytes are read back.
class StagingFile
{
public:
    explicit StagingFile(const char* szBeside) : m_sBeside(szBeside) {}
    StagingFile(const StagingFile&) = delete;
    StagingFile& operator=(const StagingFile&) = delete;
    ~StagingFile()
    {
        if (m_bMade) {
            remove(m_sPath.c_str());
        }
    }

    VFileFault Fill(QMTransactionStore& store, QMExchangeKind kind)
    {
        const VFileFault fault = Make();
        if (fault != VFileFault::None) {
            return fault;
        }
        QMStdioFile pFile = QMCreateTextFile(m_sPath.c_str());
        if (pFile == nullptr) {
            return FaultOfWriting();
        }
        errno = 0;
        const bool bWritten = QMExportTo(pFile.get(), kind, store) && ferror(pFile.get()) == 0;
        return fclose(pFile.release()) == 0 && bWritten ? VFileFault::None : FaultOfWriting();
    }

    bool ReadBack(std::string& sBytes) const
    {
        const QMStdioFile pFile = QMOpenForReading(m_sPath.c_str());
        if (pFile == nullptr) {
            return false;
        }
        char aBlock[1 << 16];
        size_t uRead;
        do {
            uRead = fread(aBlock, 1, sizeof aBlock, pFile.get());
            sBytes.append(aBlock, uRead);
        } while (uRead == sizeof aBlock);
        return ferror(pFile.get()) == 0;
    }

private:
    // Takes the first name that is free: another qmktool may be at work here, or may have been
    // killed.
    VFileFault Make()
    {
        constexpr int nTries = 100;
        for (int i = 1; i <= nTries; ++i) {
            m_sPath = m_sBeside + ".part-" + std::to_string(i);
            const VFileFault fault = VWriteWholeFile(m_sPath.c_str(), "", 0, false);
            if (fault != VFileFault::Exists && fault != VFileFault::NotAFile) {
                m_bMade = fault == VFileFault::None;
                return fault;
            }
        }
        return VFileFault::Other;
    }

    std::string m_sBeside;
    std::string m_sPath;
    bool m_bMade = false;
};

// Makes the bytes of the file by way of a staging file on the same volume. Nothing of that stays.
VFileFault MakeBytes(QMTransactionStore& store, const char* szFile, std::string& sBytes)
{
    // A fault of szFile itself is found first, so that the message is about szFile.
    VFileFault fault = VCanReplaceFile(szFile, 0);
    if (fault != VFileFault::None) {
        return fault;
    }
    StagingFile staging(szFile);
    fault = staging.Fill(store, ExchangeKindOf(szFile));
    if (fault == VFileFault::None && !staging.ReadBack(sBytes)) {
        fault = VFileFault::Other;
    }
    return fault;
}

} // namespace

int32_t ImportInto(QMAccount& account, const char* szFile)
{
    QMTransactionStore store;
    if (!QMImportFile(szFile, store)) {
        RefuseFile("import", szFile, ImportFault(szFile));
        return -1;
    }
    QMMarkForImport(store, [](int32_t) { return true; });
    const int32_t lCount = QMMergeMarked(store, account.store);
    if (lCount < 0) {
        RefuseFile("import", szFile, "there is not enough memory");
    }
    return lCount;
}

bool WriteExchangeFile(QMTransactionStore& store, const char* szFile, bool bReplace)
{
    // A file that will be refused anyway needs no staging file.
    if (!bReplace && FileExists(szFile)) {
        return ReportWriting(szFile, VFileFault::Exists);
    }
    std::string sBytes;
    VFileFault fault = MakeBytes(store, szFile, sBytes);
    if (fault == VFileFault::None) {
        fault = VWriteWholeFile(szFile, sBytes.data(), sBytes.size(), bReplace);
    }
    return ReportWriting(szFile, fault);
}
