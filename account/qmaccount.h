// QMAccount: the document behind one register: an account and the file it lives in.
#pragma once

#include <cstdint>

#include "account/qmaccountdata.h"
#include "account/qmaccountformat.h"
#include "account/qmfile.h"

class QMAccount : public QMAccountData, public QMFile
{
public:
    // A new account of format 2.0; its file stays closed.
    explicit QMAccount(const char* szFileName);

    // Opens the file unless it is open, and reads it whole; the file stays open, on failure too.
    // False when it cannot be opened, is no account file, or is damaged. QMAccountReader, which
    // does the work, can tell more.
    bool Read();

    // Writes the file anew. False when it is not open, when the version is below 1.0, or when it
    // cannot be made anew; whatever can be known of that beforehand is tested before the old
    // contents are touched. From then on the results of writing are not looked at. The header in
    // memory ends up as reading the file would give it; the store's cursor ends on the last
    // transaction.
    bool Write();

    // Copies everything but the file; false without memory.
    bool CopyFrom(const QMAccount& other);

    // Sets the format version to 4096, 4352 or 8192; any other value is ignored. Returns the
    // version now in force.
    int32_t SetVersion(int32_t lNewVersion);

    uint32_t lMagic = QM_FILE_MAGIC;
    int32_t lVersion = QM_VERSION_2_0;
};
