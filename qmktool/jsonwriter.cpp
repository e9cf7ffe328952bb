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
    for (const char c : text) {
        AddCharacter(static_cast<unsigned char>(c));
    }
    m_output.Add(std::string_view("\""));
}

void JsonWriter::AddCharacter(unsigned char c)
{
    constexpr char szHex[] = "0123456789abcdef";
    if (c == '"' || c == '\\') {
        m_output.Add('\\');
        m_output.Add(static_cast<char>(c));
    } else if (c < ' ' || c > '~') {
        const char szEscape[] = {'\\', 'u', '0', '0', szHex[c >> 4], szHex[c & 15]};
        m_output.Add(std::string_view(szEscape, sizeof szEscape));
    } else {
        m_output.Add(static_cast<char>(c));
    }
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
