// JsonWriter: writes compact JSON, one value after another.
#pragma once

#include <cstdint>
#include <string_view>

#include "account/qmdate.h"
#include "qmktool/output.h"

class JsonWriter
{
public:
    // With bCharacters, texts are decoded into characters by the encoding of the output.
    explicit JsonWriter(Output& output, bool bCharacters = false)
        : m_output(output), m_bCharacters(bCharacters)
    {}

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }

    // Writes the name of the next value. It must be plain ASCII without quotes.
    void Name(std::string_view name);

    // Writes a text, in ASCII. Without bCharacters, a byte above 127 becomes the code point of the
    // same value: an account does not name the encoding of its texts, and so no byte is lost. With
    // bCharacters, a character above 127 becomes its code point, and a byte that is no character
    // becomes U+FFFD.
    void Text(std::string_view text);
    void Integer(int64_t nValue);
    void Boolean(bool bValue);
    // Writes a float as "%.9g" does, which is enough to read the same float back. Infinity and what
    // is not a number become null.
    void Single(float fValue);
    // Writes the shortest form that gives the same double when it is read.
    void Double(double dValue);
    // Writes [year,month,day].
    void Date(const QMDate& date);

    // Starts a new line before the next value, for human readers.
    void BreakLine() { m_bBreak = true; }

private:
    void Begin(char c);
    void End(char c);
    void Separate();
    void AddCharacter(uint32_t uCharacter);
    void AddEscape(uint32_t uUnit);

    Output& m_output;
    bool m_bCharacters;
    bool m_bComma = false;
    bool m_bBreak = false;
};
