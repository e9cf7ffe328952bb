// What the tests of accounts share: account files put together byte by byte.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "account/qmaccountreader.h"

// The scrambling of account files once more, byte for byte as the format describes it.
std::string Scrambled(std::string sBytes);
std::string Unscrambled(std::string sBytes);

// A number's or a record's bytes as they stand in memory, and back; fewer bytes leave the rest of
// the record at its defaults.
template <class T>
std::string BytesOf(const T& object)
{
    return {reinterpret_cast<const char*>(&object), sizeof object};
}

template <class T>
T FromBytes(const std::string& sBytes)
{
    T object;
    memcpy(static_cast<void*>(&object), sBytes.data(), std::min(sizeof object, sBytes.size()));
    return object;
}

uint32_t NumberAt(const std::string& sBytes, size_t uOffset);
void PutNumber(std::string& sBytes, size_t uOffset, uint32_t uNumber);

// Places in an account file whose header has its full size.
inline constexpr size_t uVersionOffset = 4;
inline constexpr size_t uCountOffset = 8;
inline constexpr size_t uHeaderSizeOffset = 12;
inline constexpr size_t uHeaderOffset = 16;
inline constexpr size_t uBlockSizeOffset = 1280;
inline constexpr size_t uEntriesOffset = 1284;

// One transaction of an account file, nothing scrambled.
struct EntryParts
{
    std::string sBlock;
    std::string sDescription;
    std::string sMemo;
    std::string sCategory;
};

// An account file, nothing scrambled. The sizes in the file are those of sHeader and of the first
// block.
struct AccountParts
{
    uint32_t uVersion = 8192;
    std::string sHeader;
    std::vector<EntryParts> entries;
};

// The header of a new account without a font, by the format's table of offsets and defaults.
std::string DefaultHeaderBytes();

EntryParts EntryOf(const QMTransactionFields& fields);

// The bytes of the file.
std::string JoinAccount(const AccountParts& parts);

// A file of two transactions, all three texts of the first filled.
std::string SmallAccount(uint32_t uVersion);

// Reads the bytes from a place in memory with nothing behind them.
bool ReadBytes(QMAccount& account, const std::string& sBytes, QMReadReport* pReport = nullptr);

// The account's file, as it would be written.
std::string ImageOf(const QMAccount& account);

// All bytes of an open file, which others may be unable to read.
std::string BytesOfFile(QMFile& file);

// What a field of the header is called and where it lies in memory, in the order of the fields.
struct HeaderField
{
    const char* szName;
    size_t uOffset;
    size_t uSize;
};
const std::vector<HeaderField>& HeaderFields();
