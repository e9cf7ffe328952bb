#include "exchange/qmlinereader.h"

#include "exchange/qmlinefile.h"

namespace {

bool IsRefusal(QMTextEncoding encoding)
{
    return encoding == QM_TEXT_BAD_ARGUMENT || encoding == QM_TEXT_UNREADABLE;
}

} // namespace

bool QMLineReader::ParseLine(char* /*szText*/, int32_t /*lLine*/, int32_t /*lLength*/)
{
    return true;
}

bool QMLineReader::Read(const char* szPath, bool bDeliverBlank, int32_t nMaxLine)
{
    QMLineFile file;
    return !IsRefusal(file.Open(szPath, nMaxLine)) && Deliver(file, bDeliverBlank);
}

bool QMLineReader::Read(QMByteSource& source, bool bDeliverBlank, int32_t nMaxLine)
{
    QMLineFile file;
    return !IsRefusal(file.Open(source, nMaxLine)) && Deliver(file, bDeliverBlank);
}

bool QMLineReader::Deliver(QMLineFile& file, bool bDeliverBlank)
{
    bool bDelivered = false;
    int32_t lLength = 0;
    int32_t lLine = 1;
    for (char* szText = file.ReadLine(lLength); szText != nullptr;
         szText = file.ReadLine(lLength), ++lLine) {
        if (lLength == 0 && !bDeliverBlank) {
            continue;
        }
        bDelivered = true;
        if (!ParseLine(lLength == 0 ? nullptr : szText, lLine, lLength)) {
            break;
        }
    }
    return bDelivered;
}
