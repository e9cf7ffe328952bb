#include "qmktool/toolfile.h"

#include <cstring>

#include "base/vnewfile.h"
#include "qmktool/toolerror.h"

namespace {

class NewFileSink : public QMByteSink
{
public:
    explicit NewFileSink(VNewFile& file) : m_file(file) {}

    bool Write(const char* pBytes, size_t uSize) override
    {
        m_fault = m_file.Write(pBytes, uSize);
        return m_fault == VFileFault::None;
    }
    VFileFault GetFault() const { return m_fault; }

private:
    VNewFile& m_file;
    VFileFault m_fault = VFileFault::None;
};

} // namespace

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

bool IsStandardStream(const char* szFile)
{
    return strcmp(szFile, "-") == 0;
}

bool WriteToolFile(const char* szFile, bool bReplace,
                   const std::function<bool(QMByteSink& sink)>& write)
{
    VNewFile file;
    NewFileSink sink(file);
    VFileFault fault = file.Create(szFile, bReplace);
    if (fault == VFileFault::None) {
        fault = write(sink) ? file.PutInPlace() : sink.GetFault();
    }
    if (fault == VFileFault::Exists) {
        RefuseFile("write", szFile, "the file exists already (replace it with --force)");
    } else if (fault != VFileFault::None) {
        RefuseFile("write", szFile, VFileFaultText(fault));
    }
    return fault == VFileFault::None;
}
