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
    // The file's bytes were made beforehand and go out in one piece, so that the time in which the
    // old contents are gone is as short as it can be.
    QMFile::Write(image.pBytes.get(), image.uSize);
    header.bReserved = 0;
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
