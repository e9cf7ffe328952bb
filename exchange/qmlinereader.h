// QMLineReader: reads a text file line by line.
#pragma once

#include <cstdint>

class QMByteSource;
class QMLineFile;

class QMLineReader
{
public:
    QMLineReader() = default;
    QMLineReader(const QMLineReader&) = delete;
    QMLineReader& operator=(const QMLineReader&) = delete;
    virtual ~QMLineReader() = default;

    // Called for each line. Lines are counted from 1. The text ends with a zero and may be changed;
    // for a blank line it is null and the length 0. False ends the reading.
    virtual bool ParseLine(char* szText, int32_t lLine, int32_t lLength);

    // Calls ParseLine for the lines of a file as QMLineFile reads them. Blank lines are counted,
    // and passed on only with bDeliverBlank. nMaxLine is the room for a line; 0 means the default.
    // Returns true when at least one line was passed on: a file that is empty or cannot be opened
    // gives false.
    bool Read(const char* szPath, bool bDeliverBlank, int32_t nMaxLine);
    bool Read(QMByteSource& source, bool bDeliverBlank, int32_t nMaxLine);

private:
    bool Deliver(QMLineFile& file, bool bDeliverBlank);
};
