#include "exchange/qmcsvrows.h"

void QMCsvRows::TakeLineEnd()
{
    const char cFirst = m_text[m_uNext++];
    const bool bPair = cFirst == '\r' && m_uNext < m_text.size() && m_text[m_uNext] == '\n';
    m_uNext += bPair ? 1 : 0;
}

void QMCsvRows::SkipLines(int nLines)
{
    for (; nLines > 0 && m_uNext < m_text.size(); --nLines) {
        while (m_uNext < m_text.size() && !AtLineEnd()) {
            ++m_uNext;
        }
        if (m_uNext < m_text.size()) {
            TakeLineEnd();
        }
    }
}

bool QMCsvRows::Next(std::vector<std::string>& cells)
{
    cells.clear();
    if (m_uNext >= m_text.size()) {
        return false;
    }
    for (;;) {
        cells.push_back(TakeCell());
        if (m_uNext >= m_text.size()) {
            return true;
        }
        if (AtLineEnd()) {
            TakeLineEnd();
            return true;
        }
        ++m_uNext; // the separator
    }
}

std::string QMCsvRows::TakeCell()
{
    std::string sCell;
    if (m_cQuote != '\0' && m_uNext < m_text.size() && m_text[m_uNext] == m_cQuote) {
        TakeQuoted(sCell);
    }
    while (m_uNext < m_text.size() && m_text[m_uNext] != m_cSeparator && !AtLineEnd()) {
        sCell += m_text[m_uNext++];
    }
    return sCell;
}

void QMCsvRows::TakeQuoted(std::string& sCell)
{
    ++m_uNext;
    while (m_uNext < m_text.size()) {
        const char c = m_text[m_uNext++];
        if (c != m_cQuote) {
            sCell += c;
        } else if (m_uNext < m_text.size() && m_text[m_uNext] == m_cQuote) {
            sCell += m_cQuote;
            ++m_uNext;
        } else {
            return;
        }
    }
}
