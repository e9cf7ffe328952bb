// What the tests of accounts share: account files put together byte by byte.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "account/qmaccountreader.h"

// The scrambling of account files, written a second time from the description of the format, so
// that the product's own is not compared with itself.
std::string Scrambled(std::string sBytes);
std::string Unscrambled(std::string sBytes);

// The bytes of a number or a record, and back. With too few bytes the rest of the record keeps its
// defaults.
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

// Offsets in an account file whose header has its full size.
inline constexpr size_t uVersionOffset = 4;
inline constexpr size_t uCountOffset = 8;
inline constexpr size_t uHeaderSizeOffset = 12;
inline constexpr size_t uHeaderOffset = 16;
inline constexpr size_t uBlockSizeOffset = 1280;
inline constexpr size_t uEntriesOffset = 1284;

// A transaction of an account file, not scrambled.
struct EntryParts
{
    std::string sBlock;
    std::string sDescription;
    std::string sMemo;
    std::string sCategory;
};

// An account file, not scrambled. The sizes in it are those of sHeader and of the first block.
struct AccountParts
{
    uint32_t uVersion = 8192;
    std::string sHeader;
    std::vector<EntryParts> entries;
};

// The header of a new account without a font, by the tables of the format's description.
std::string DefaultHeaderBytes();

EntryParts EntryOf(const QMTransactionFields& fields);

// The bytes of the file.
std::string JoinAccount(const AccountParts& parts);

// A file with two transactions. The first one has all three texts.
std::string SmallAccount(uint32_t uVersion);

// Reads an account from memory. A sanitizer notices each byte that is read beyond its end.
bool ReadBytes(QMAccount& account, const std::string& sBytes, QMReadReport* pReport = nullptr);

// The bytes that writing the account gives.
std::string ImageOf(const QMAccount& account);

// All bytes of a file that is open here. Nobody else can open it.
std::string BytesOfFile(QMFile& file);

// The name of a field of the header and its place in memory, in the order of the fields.
struct HeaderField
{
    const char* szName;
    size_t uOffset;
    size_t uSize;
};
const std::vector<HeaderField>& HeaderFields();
