// Account files of any size, to measure with.
#pragma once

#include <cstddef>
#include <string>

#include "account/qmaccountwriter.h"

enum class EntryOrder
{
    Sorted,
    NewestFirst,
    Shuffled
};

// Makes the bytes of an account of format 2.0 with lCount plausible entries of about 110 bytes
// each, in this order. The same arguments give the same bytes.
QMFileImage MakeAccountBytes(int32_t lCount, EntryOrder order);

// A file with these bytes. It is removed with the object.
class AccountFile
{
public:
    AccountFile(int32_t lCount, EntryOrder order);
    AccountFile(const AccountFile&) = delete;
    AccountFile& operator=(const AccountFile&) = delete;
    ~AccountFile();

    const char* GetPath() const { return m_sPath.c_str(); }

private:
    std::string m_sPath;
};
