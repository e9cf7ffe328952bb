#include "qmktool/toolstream.h"

bool WriteToStream(FILE* pStream, std::string_view text)
{
    return fwrite(text.data(), 1, text.size(), pStream) == text.size();
}
