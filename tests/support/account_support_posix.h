// What the tests of accounts share on POSIX systems: a volume without room, and a user without
// permission.
#pragma once

#include <csignal>
#include <cstddef>
#include <string>

// A volume of a few pages, mounted on a folder.
class SmallVolume
{
public:
    SmallVolume(const std::string& sFolder, size_t uSize);
    SmallVolume(const SmallVolume&) = delete;
    SmallVolume& operator=(const SmallVolume&) = delete;
    ~SmallVolume();

    // Empty when the volume was mounted; otherwise the reason why the system refused.
    const std::string& GetRefusal() const { return m_sRefusal; }

    // Fills the volume up to the last byte.
    void Fill() const;

private:
    std::string m_sFolder;
    std::string m_sRefusal;
};

// Runs as a user without rights of its own when the tests run as root.
class PlainUserScope
{
public:
    PlainUserScope();
    PlainUserScope(const PlainUserScope&) = delete;
    PlainUserScope& operator=(const PlainUserScope&) = delete;
    ~PlainUserScope();

private:
    bool m_bWasRoot;
};

// Lets no file grow above uSize bytes. A program learns of this limit only when it writes.
class FileSizeScope
{
public:
    explicit FileSizeScope(size_t uSize);
    FileSizeScope(const FileSizeScope&) = delete;
    FileSizeScope& operator=(const FileSizeScope&) = delete;
    ~FileSizeScope();

private:
    unsigned long m_uFormer;
    void (*m_pFormerHandler)(int);
};
