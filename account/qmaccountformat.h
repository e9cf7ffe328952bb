// The constants of the account file. docs/file-format.md describes the whole file.
#pragma once

#include <bit>
#include <cstdint>

// Numbers go between file and memory without conversion, so the machine must be little-endian.
static_assert(std::endian::native == std::endian::little);

inline constexpr uint32_t QM_FILE_MAGIC = 0x35763685;

// Format versions 1.0, 1.1 and 2.0. A value between them acts as 1.1.
inline constexpr int32_t QM_VERSION_1_0 = 4096;
inline constexpr int32_t QM_VERSION_1_1 = 4352;
inline constexpr int32_t QM_VERSION_2_0 = 8192;

// Whether the program offers to write that version.
constexpr bool QMIsVersionOffered(int32_t lVersion)
{
    return lVersion == QM_VERSION_1_0 || lVersion == QM_VERSION_1_1 || lVersion == QM_VERSION_2_0;
}

// Whether the transaction block is scrambled. Only format 1.0 does that.
constexpr bool QMVersionScramblesBlock(int32_t lVersion)
{
    return lVersion == QM_VERSION_1_0;
}

// Whether an entry has a category. Format 2.0 introduced it.
constexpr bool QMVersionHasCategory(int32_t lVersion)
{
    return lVersion >= QM_VERSION_2_0;
}
