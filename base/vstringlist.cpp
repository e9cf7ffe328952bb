#include "base/vstringlist.h"

VStringList::VStringList(const char* szText, char cSeparator)
    : m_sText(szText), m_cSeparator(cSeparator)
{}

const char* VStringList::Next()
{
    if (m_uPosition >= m_sText.GetLength()) {
        return nullptr;
    }
    uint32_t uEnd = m_uPosition;
    while (uEnd < m_sText.GetLength() && m_sText.GetAt(uEnd) != m_cSeparator) {
        ++uEnd;
    }
    m_sToken = m_sText.Mid(m_uPosition, uEnd - m_uPosition);
    m_uPosition = uEnd + 1;
    return m_sToken.GetText();
}
