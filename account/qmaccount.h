// QMAccount: an account together with the file that it lives in.
#pragma once

#include <cstdint>

#include "account/qmaccountdata.h"
#include "account/qmaccountformat.h"
#include "account/qmfile.h"

class QMProgress;

class QMAccount : public QMAccountData, public QMFile
{
public:
    // Makes a new account of format 2.0. The file is not opened.
    explicit QMAccount(const char* szFileName);

    // Opens the file, unless it is open, and reads all of it. The file stays open and locked, even
    // when reading fails. Returns false when the file cannot be opened, is not an account file, or
    // is damaged. Use QMAccountReader to learn which. pProgress may be null; it cannot give the
    // reading up.
    bool Read(QMProgress* pProgress = nullptr);

    // Creates the file anew and writes the account to it. Returns false when the file is not open,
    // when the version is below 1.0, or when the file cannot be created anew. What can be known of
    // that is tested before the old contents are touched.
    //
    // Kept: after the file was created anew, a failing write still returns true. The old contents
    // are gone by then, and the account in memory is what the user has left: the caller goes on as
    // after a save.
    //
    // Afterwards the header in memory is what reading the file would give, and the store's cursor
    // is on the last transaction.
    //
    // pProgress may be null. Until the old contents are gone it may give the work up: the result is
    // false then, and the file is as it was.
    bool Write(QMProgress* pProgress = nullptr);

    // Copies everything but the file. Returns false when memory ran out.
    bool CopyFrom(const QMAccount& other);

    // Sets the format version to 4096, 4352 or 8192, and ignores any other value. Returns the
    // version now in force.
    int32_t SetVersion(int32_t lNewVersion);

    uint32_t lMagic = QM_FILE_MAGIC;
    int32_t lVersion = QM_VERSION_2_0;
};
