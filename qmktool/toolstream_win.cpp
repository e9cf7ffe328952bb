#include <windows.h>

#include <io.h>

#include <algorithm>
#include <string>

#include "qmktool/toolstream.h"

namespace {

// The console that the stream leads to; null for a file, a pipe or a device.
HANDLE ConsoleOf(FILE* pStream)
{
    // The C library holds the handle as a number.
    HANDLE hStream = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(pStream)));
    DWORD uMode = 0;
    return GetConsoleMode(hStream, &uMode) ? hStream : nullptr;
}

// The manifest makes UTF-8 the code page of this process. This is the code page of the system.
UINT SystemCodePage()
{
    DWORD uPage = CP_ACP;
    GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<wchar_t*>(&uPage), sizeof uPage / sizeof(wchar_t));
    return uPage;
}

// Appends the characters of the line. With bStrict, returns false when a byte is no character in
// this code page.
bool AppendDecoded(UINT uPage, bool bStrict, std::string_view line, std::wstring& sText)
{
    const DWORD uFlags = bStrict ? MB_ERR_INVALID_CHARS : 0;
    const int nSize = static_cast<int>(line.size());
    const int nLength = MultiByteToWideChar(uPage, uFlags, line.data(), nSize, nullptr, 0);
    if (nLength <= 0) {
        return line.empty();
    }
    const size_t uBefore = sText.size();
    sText.resize(uBefore + static_cast<size_t>(nLength));
    return MultiByteToWideChar(uPage, uFlags, line.data(), nSize, sText.data() + uBefore,
                               nLength) == nLength;
}

std::wstring Decoded(std::string_view text)
{
    std::wstring sText;
    while (!text.empty()) {
        const std::string_view line =
            text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
        if (!AppendDecoded(CP_UTF8, true, line, sText)) {
            AppendDecoded(SystemCodePage(), false, line, sText);
        }
        text.remove_prefix(line.size());
    }
    return sText;
}

bool WriteToConsole(HANDLE hConsole, std::wstring_view text)
{
    // Windows 7 takes no more than 64 KiB at a time, and less when memory is short.
    constexpr size_t uStep = 8192;
    while (!text.empty()) {
        DWORD uWritten = 0;
        const auto uCount = static_cast<DWORD>(std::min(text.size(), uStep));
        if (!WriteConsoleW(hConsole, text.data(), uCount, &uWritten, nullptr) || uWritten == 0) {
            return false;
        }
        text.remove_prefix(uWritten);
    }
    return true;
}

} // namespace

bool WriteToStream(FILE* pStream, std::string_view text)
{
    if (HANDLE hConsole = ConsoleOf(pStream)) {
        return WriteToConsole(hConsole, Decoded(text));
    }
    return fwrite(text.data(), 1, text.size(), pStream) == text.size();
}
