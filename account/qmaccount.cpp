#include "account/qmaccount.h"

#include "account/qmaccountreader.h"
#include "account/qmaccountwriter.h"
#include "account/qmscramble.h"

QMAccount::QMAccount(const char* szFileName) : QMFile(szFileName) {}

bool QMAccount::Read()
{
    QMAccountReader reader(*this);
    return reader.Read();
}

bool QMAccount::Write()
{
    // Kept: a version above 2.0 is written, although no reader takes it back.
    if (!IsOpen() || lVersion < QM_VERSION_1_0) {
        return false;
    }
    const QMFileImage image = QMMakeAccountImage(*this);
    if (image.pBytes == nullptr || !CanReplace(image.uSize)) {
        return false;
    }
    Close();
    if (!Create()) {
        return false;
    }
    // All bytes of the file are ready before the file is created anew, and go out by one call. So
    // the old contents are gone for as short a time as can be.
    QMFile::Write(image.pBytes.get(), image.uSize);
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
    if (lNewVersion == QM_VERSION_1_0 || lNewVersion == QM_VERSION_1_1 ||
        lNewVersion == QM_VERSION_2_0) {
        lVersion = lNewVersion;
    }
    return lVersion;
}
