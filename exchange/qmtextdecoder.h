// Turns the bytes of a file from elsewhere into those of the Windows code page 1252, in which an
// account holds its texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "exchange/qmdialect.h"

// Decodes the bytes, without a byte-order mark. A character that the code page does not have, and
// bytes that are no character, become question marks, which lReplaced counts.
std::string QMDecodeText(std::string_view bytes, QMCharacterSet encoding, int32_t& lReplaced);
