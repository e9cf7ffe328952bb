// QMLineReader: reads a text file line by line.
#pragma once

#include <cstdint>

class QMLineReader
{
public:
    QMLineReader() = default;
    QMLineReader(const QMLineReader&) = delete;
    QMLineReader& operator=(const QMLineReader&) = delete;
    virtual ~QMLineReader() = default;

    // One line, counted from 1, as zero-terminated text that may be written over; a blank line has
    // null text and length 0. False ends the reading.
    virtual bool ParseLine(char* szText, int32_t lLine, int32_t lLength);

    // Hands the lines of a file to ParseLine, as QMLineFile takes it apart; blank ones are counted,
    // and handed over when bDeliverBlank is set. nMaxLine is the room for a line, 0 for the
    // default. True when at least one line was handed over: an empty file reads as a failure, as
    // does one that cannot be opened.
    bool Read(const char* szPath, bool bDeliverBlank, int32_t nMaxLine);
};
