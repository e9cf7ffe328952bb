// The constants of the account file; docs/file-format.md describes the whole.
#pragma once

#include <bit>
#include <cstdint>

// Records are copied between file and memory as they stand.
static_assert(std::endian::native == std::endian::little);

inline constexpr uint32_t QM_FILE_MAGIC = 0x35763685;

// Format versions 1.0, 1.1 and 2.0. Words between them act as 1.1.
inline constexpr int32_t QM_VERSION_1_0 = 4096;
inline constexpr int32_t QM_VERSION_1_1 = 4352;
inline constexpr int32_t QM_VERSION_2_0 = 8192;

// Format 1.0 alone scrambles the transaction block.
constexpr bool QMVersionScramblesBlock(int32_t lVersion)
{
    return lVersion == QM_VERSION_1_0;
}

// Format 2.0 brought the category.
constexpr bool QMVersionHasCategory(int32_t lVersion)
{
    return lVersion >= QM_VERSION_2_0;
}
