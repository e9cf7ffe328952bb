#include "account/qmaccount.h"

#include "account/qmaccountreader.h"
#include "account/qmaccountwriter.h"
#include "account/qmscramble.h"

QMAccount::QMAccount(const char* szFileName) : QMFile(szFileName) {}

bool QMAccount::Read(QMProgress* pProgress)
{
    QMAccountReader reader(*this, pProgress);
    return reader.Read();
}

bool QMAccount::Write(QMProgress* pProgress)
{
    // Kept: a version above 2.0 is written, although no reader takes it back.
    if (!IsOpen() || lVersion < QM_VERSION_1_0) {
        return false;
    }
    QMProgressPart making(pProgress, 0, 2);
    QMProgressPart writing(pProgress, 1, 2);
    if (!QMReplaceByImage(*this, QMMakeAccountImage(*this, lVersion, &making), &writing)) {
        return false;
    }
    header.bReserved = 0;
    // A byte 0xDF comes back from the file as a blank (see qmscramble.h). The header in memory
    // follows the file.
    QMScramble(&header, sizeof header);
    QMUnscramble(&header, sizeof header);
    if (!store.IsEmpty()) {
        store.Last();
    }
    return true;
}

bool QMAccount::CopyFrom(const QMAccount& other)
{
    lMagic = other.lMagic;
    lVersion = other.lVersion;
    return AssignFrom(other);
}

int32_t QMAccount::SetVersion(int32_t lNewVersion)
{
    if (QMIsVersionOffered(lNewVersion)) {
        lVersion = lNewVersion;
    }
    return lVersion;
}
