// What the tests of accounts share on POSIX systems: a system that is out of room or of permission.
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

    // Empty when the volume is there; otherwise why the system refused it.
    const std::string& GetRefusal() const { return m_sRefusal; }

    // Leaves not a single free byte.
    void Fill() const;

private:
    std::string m_sFolder;
    std::string m_sRefusal;
};

// A user without rights of its own, where the tests run as root.
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

// Files cannot grow above uSize bytes, and nothing tells so beforehand.
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
