// Writes JSON, compact, one value after the other.
#pragma once

#include <cstdint>
#include <string_view>

#include "account/qmdate.h"
#include "qmktool/output.h"

class JsonWriter
{
public:
    explicit JsonWriter(Output& output) : m_output(output) {}

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }

    // The name of the value that follows; names are plain ASCII.
    void Name(std::string_view name);

    // Bytes above 127 are written as the code point of the same value: texts have no encoding of
    // their own, and so every byte comes through.
    void Text(std::string_view text);
    void Integer(int64_t nValue);
    void Boolean(bool bValue);
    // As "%.9g", enough for every float; null for what is no number.
    void Single(float fValue);
    // The shortest form that reads back as the same double.
    void Double(double dValue);
    // [year,month,day]
    void Date(const QMDate& date);

    // A line break between values, for the reader's eye.
    void BreakLine() { m_bBreak = true; }

private:
    void Begin(char c);
    void End(char c);
    void Separate();
    void AddCharacter(unsigned char c);

    Output& m_output;
    bool m_bComma = false;
    bool m_bBreak = false;
};
