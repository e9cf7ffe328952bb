// Converts the bytes of a file into those of the Windows code page 1252, which accounts hold.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "exchange/qmdialect.h"

// Decodes the bytes and drops a byte order mark. A character that the code page does not have, and
// bytes that are no character, become question marks. lReplaced counts them.
std::string QMDecodeText(std::string_view bytes, QMCharacterSet encoding, int32_t& lReplaced);
