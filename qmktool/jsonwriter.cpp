#include "qmktool/jsonwriter.h"

#include <charconv>
#include <cmath>

void JsonWriter::Separate()
{
    if (m_bComma) {
        m_output.Add(',');
    }
    if (m_bBreak) {
        m_output.Add('\n');
    }
    m_bComma = true;
    m_bBreak = false;
}

void JsonWriter::Begin(char c)
{
    Separate();
    m_output.Add(c);
    m_bComma = false;
}

void JsonWriter::End(char c)
{
    m_output.Add(c);
    m_bComma = true;
}

void JsonWriter::Name(std::string_view name)
{
    Text(name);
    m_output.Add(':');
    m_bComma = false;
}

void JsonWriter::Text(std::string_view text)
{
    Separate();
    m_output.Add('"');
    for (size_t u = 0; u < text.size();) {
        AddCharacter(m_bCharacters ? VTakeCharacter(text, u, m_output.GetEncoding())
                                   : static_cast<unsigned char>(text[u++]));
    }
    m_output.Add(std::string_view("\""));
}

void JsonWriter::AddCharacter(uint32_t uCharacter)
{
    if (uCharacter == '"' || uCharacter == '\\') {
        m_output.Add('\\');
    }
    if (uCharacter >= ' ' && uCharacter <= '~') {
        m_output.Add(static_cast<char>(uCharacter));
    } else if (uCharacter == VNoCharacter) {
        AddEscape(VReplacementCharacter);
    } else if (uCharacter < 0x10000) {
        AddEscape(uCharacter);
    } else {
        // JSON writes such a character as a surrogate pair of UTF-16.
        AddEscape(0xD800 + ((uCharacter - 0x10000) >> 10));
        AddEscape(0xDC00 + (uCharacter & 0x3FF));
    }
}

void JsonWriter::AddEscape(uint32_t uUnit)
{
    constexpr char szHex[] = "0123456789abcdef";
    const char szEscape[] = {'\\',
                             'u',
                             szHex[uUnit >> 12],
                             szHex[uUnit >> 8 & 15],
                             szHex[uUnit >> 4 & 15],
                             szHex[uUnit & 15]};
    m_output.Add(std::string_view(szEscape, sizeof szEscape));
}

void JsonWriter::Integer(int64_t nValue)
{
    Separate();
    char szDigits[24];
    const auto result = std::to_chars(szDigits, szDigits + sizeof szDigits, nValue);
    m_output.Add(std::string_view(szDigits, static_cast<size_t>(result.ptr - szDigits)));
}

void JsonWriter::Boolean(bool bValue)
{
    Separate();
    m_output.Add(bValue ? std::string_view("true") : std::string_view("false"));
}

void JsonWriter::Single(float fValue)
{
    Separate();
    if (!std::isfinite(fValue)) {
        m_output.Add(std::string_view("null"));
        return;
    }
    char szDigits[32];
    const auto result = std::to_chars(szDigits, szDigits + sizeof szDigits,
                                      static_cast<double>(fValue), std::chars_format::general, 9);
    m_output.Add(std::string_view(szDigits, static_cast<size_t>(result.ptr - szDigits)));
}

void JsonWriter::Double(double dValue)
{
    Separate();
    if (!std::isfinite(dValue)) {
        m_output.Add(std::string_view("null"));
        return;
    }
    char szDigits[32];
    const auto result = std::to_chars(szDigits, szDigits + sizeof szDigits, dValue);
    m_output.Add(std::string_view(szDigits, static_cast<size_t>(result.ptr - szDigits)));
}

void JsonWriter::Date(const QMDate& date)
{
    BeginArray();
    Integer(date.wYear);
    Integer(date.wMonth);
    Integer(date.wDay);
    EndArray();
}
