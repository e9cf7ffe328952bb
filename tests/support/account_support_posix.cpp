#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>

#include "tests/support/account_support_posix.h"

SmallVolume::SmallVolume(const std::string& sFolder, size_t uSize) : m_sFolder(sFolder)
{
    const std::string sOptions = "mode=0777,size=" + std::to_string(uSize);
    if (mount("tmpfs", sFolder.c_str(), "tmpfs", 0, sOptions.c_str()) != 0) {
        m_sRefusal = std::string("no volume can be mounted here: ") + strerror(errno);
    }
}

SmallVolume::~SmallVolume()
{
    if (m_sRefusal.empty()) {
        EXPECT_EQ(umount2(m_sFolder.c_str(), MNT_DETACH), 0) << strerror(errno);
    }
}

void SmallVolume::Fill() const
{
    std::ofstream file(m_sFolder + "/filler", std::ios::binary | std::ios::app);
    while (file.write("", 1).flush()) {
    }
}

namespace {

constexpr uid_t uNobody = 65534;

} // namespace

// The real user id is set too, because access() tests that one.
PlainUserScope::PlainUserScope() : m_bWasRoot(geteuid() == 0)
{
    if (m_bWasRoot) {
        EXPECT_EQ(setresuid(uNobody, uNobody, 0), 0) << strerror(errno);
    }
}

PlainUserScope::~PlainUserScope()
{
    if (m_bWasRoot) {
        EXPECT_EQ(setresuid(0, 0, 0), 0) << strerror(errno);
    }
}

FileSizeScope::FileSizeScope(size_t uSize)
{
    rlimit limit;
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    m_uFormer = limit.rlim_cur;
    m_pFormerHandler = signal(SIGXFSZ, SIG_IGN);
    limit.rlim_cur = uSize;
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

FileSizeScope::~FileSizeScope()
{
    rlimit limit;
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    limit.rlim_cur = m_uFormer;
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_NE(signal(SIGXFSZ, m_pFormerHandler), SIG_ERR);
}
