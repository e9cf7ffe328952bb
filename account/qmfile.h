// QMFile: one file, held open and locked against others.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/vfilesystem.h"

class QMFile
{
public:
    static constexpr size_t uMaxNameLength = 260;

    // Starts closed. A name above uMaxNameLength bytes is kept cut and never opened: the cut name
    // would mean another file.
    explicit QMFile(const char* szFileName);
    QMFile(const QMFile&) = delete;
    QMFile& operator=(const QMFile&) = delete;
    virtual ~QMFile();

    // Open the existing file for reading and writing, or for reading alone; create it anew, with
    // what was there replaced. Nobody else can open it then, nor can this succeed while somebody
    // else has it open. True on success and when already open; otherwise GetFault tells why.
    bool Open();
    bool OpenForReading();
    bool Create();
    void Close();
    bool IsOpen() const { return m_bOpen; }

    // Whether Create and writing uSize bytes could succeed, as far as that can be known without
    // touching the file; GetFault tells why not.
    bool CanReplace(uint64_t uSize);

    // From the beginning of the file. False when closed or on the system's failure.
    bool Seek(uint64_t uOffset);

    // False when closed or on the system's failure. A short count is not reported.
    bool Read(void* pBuffer, size_t uSize);
    bool Write(const void* pBytes, size_t uSize);

    // The number of bytes read, fewer than asked for at the end of the file only; -1 on failure.
    int64_t ReadSome(void* pBuffer, size_t uSize);

    // Bytes in the file; -1 when closed or on failure.
    int64_t GetSize();

    const char* GetFileName() const { return m_szFileName; }
    VFileFault GetFault() const { return m_fault; }

private:
    bool OpenWith(VFileFault (*pOpen)(const char* szFileName, intptr_t& hFile));

    char m_szFileName[uMaxNameLength + 1];
    bool m_bNameCut;
    intptr_t m_hFile = -1; // the platform's descriptor or handle
    bool m_bOpen = false;
    VFileFault m_fault = VFileFault::None;
};
