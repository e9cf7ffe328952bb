// QMCsvRows: takes a text apart into rows and cells, with quotes as in RFC 4180.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class QMCsvRows
{
public:
    // The text must exist as long as rows are taken. With a quote of 0 there are no quotes.
    QMCsvRows(std::string_view text, char cSeparator, char cQuote)
        : m_text(text), m_cSeparator(cSeparator), m_cQuote(cQuote)
    {}

    // Skips lines, whatever they hold.
    void SkipLines(int nLines);

    // Takes the next row. Within quotes, separators and line ends belong to the cell, and two
    // quotes stand for one. A quote that is never closed takes the rest of the text. Returns false
    // at the end.
    bool Next(std::vector<std::string>& cells);

    // How many bytes of the text were taken.
    size_t GetPosition() const { return m_uNext; }

private:
    bool AtLineEnd() const { return m_text[m_uNext] == '\n' || m_text[m_uNext] == '\r'; }
    void TakeLineEnd();
    std::string TakeCell();
    void TakeQuoted(std::string& sCell);

    std::string_view m_text;
    char m_cSeparator;
    char m_cQuote;
    size_t m_uNext = 0;
};
