// QMFile: one file, held open and locked so that nobody else can open it.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/vfilesystem.h"

class QMFile
{
public:
    static constexpr size_t uMaxNameLength = 260;

    // The file is not opened. A name longer than uMaxNameLength bytes is cut, and such a file is
    // never opened: the cut name would be that of another file.
    explicit QMFile(const char* szFileName);
    QMFile(const QMFile&) = delete;
    QMFile& operator=(const QMFile&) = delete;
    virtual ~QMFile();

    // Open opens a file for reading and writing, OpenForReading for reading only. Create makes the
    // file anew and discards what was there. Nobody else can open the file while it is open here,
    // and all three fail while somebody else has it open. They return true on success and when the
    // file is open already. Otherwise GetFault tells why.
    bool Open();
    bool OpenForReading();
    bool Create();
    void Close();
    bool IsOpen() const { return m_bOpen; }

    // Whether Create and a write of uSize bytes could succeed, as far as that can be known without
    // touching the file. GetFault tells why not.
    bool CanReplace(uint64_t uSize);

    // Sets the position, in bytes from the beginning of the file. Returns false when the file is
    // closed or the system fails.
    bool Seek(uint64_t uOffset);

    // Return false when the file is closed or the system fails. Reading fewer bytes than asked for,
    // at the end of the file, is no failure.
    bool Read(void* pBuffer, size_t uSize);
    bool Write(const void* pBytes, size_t uSize);

    // Returns how many bytes were read: fewer than uSize at the end of the file only, and -1 on
    // failure.
    int64_t ReadSome(void* pBuffer, size_t uSize);

    // The size of the file in bytes; -1 when it is closed or the system fails.
    int64_t GetSize();

    const char* GetFileName() const { return m_szFileName; }
    VFileFault GetFault() const { return m_fault; }

private:
    bool OpenWith(VFileFault (*pOpen)(const char* szFileName, intptr_t& hFile));

    char m_szFileName[uMaxNameLength + 1];
    bool m_bNameCut;
    intptr_t m_hFile = -1; // file descriptor or HANDLE; -1 when closed
    bool m_bOpen = false;
    VFileFault m_fault = VFileFault::None;
};
