#include "account/qmfile.h"

#include <cstring>

#include "base/vtext.h"

QMFile::QMFile(const char* szFileName) : m_bNameCut(strlen(szFileName) > uMaxNameLength)
{
    VCopyText(m_szFileName, szFileName);
}

QMFile::~QMFile()
{
    Close();
}

bool QMFile::OpenWith(VFileFault (*pOpen)(const char* szFileName, intptr_t& hFile))
{
    if (m_bOpen) {
        return true;
    }
    m_fault = m_bNameCut ? VFileFault::NameTooLong : pOpen(m_szFileName, m_hFile);
    m_bOpen = m_fault == VFileFault::None;
    return m_bOpen;
}

bool QMFile::CanReplace(uint64_t uSize)
{
    m_fault = m_bNameCut ? VFileFault::NameTooLong : VCanReplaceFile(m_szFileName, uSize);
    return m_fault == VFileFault::None;
}

bool QMFile::Read(void* pBuffer, size_t uSize)
{
    return ReadSome(pBuffer, uSize) >= 0;
}
