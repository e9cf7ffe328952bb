#include "qmktool/toolprogress.h"

#include <algorithm>
#include <cstdio>

#include "qmktool/terminal.h"

namespace {

constexpr std::chrono::milliseconds firstAfter(1000);
constexpr std::chrono::milliseconds nextAfter(200);
constexpr int nLineWidth = 40;
constexpr size_t uFrontSize = 256;
constexpr uint64_t uMegabyte = 1000000;

} // namespace

ToolProgress::ToolProgress(const char* szWhat, uint64_t uUnit, const char* szUnit)
    : m_szWhat(szWhat),
      m_uUnit(uUnit),
      m_szUnit(szUnit),
      m_bTold(IsTerminal(stderr)),
      m_next(Begun() + firstAfter)
{}

// A command may do several works one after another. The second counts from the first of them.
ToolProgress::Clock::time_point ToolProgress::Begun()
{
    static const Clock::time_point begun = Clock::now();
    return begun;
}

void ToolProgress::End()
{
    if (m_bShown) {
        fprintf(stderr, "\r%*s\r", nLineWidth, "");
    }
    m_bShown = m_bTold = false;
}

bool ToolProgress::OnStep(uint64_t uDone, uint64_t uTotal)
{
    if (!m_bTold) {
        return true;
    }
    const Clock::time_point now = Clock::now();
    if (now < m_next) {
        return true;
    }
    m_next = now + nextAfter;
    m_bShown = true;
    char szLine[nLineWidth + 1];
    if (uTotal > 0) {
        const double dShare = static_cast<double>(uDone) / static_cast<double>(uTotal);
        snprintf(szLine, sizeof szLine, "%s: %d %%", m_szWhat, static_cast<int>(100 * dShare));
    } else {
        snprintf(szLine, sizeof szLine, "%s: %llu %s", m_szWhat,
                 static_cast<unsigned long long>(uDone / m_uUnit), m_szUnit);
    }
    fprintf(stderr, "\r%-*s", nLineWidth, szLine);
    fflush(stderr);
    return true;
}

WatchedByteSource::WatchedByteSource(QMByteSource& source, uint64_t uTotal)
    : m_source(source), m_progress("reading", uMegabyte, "MB"), m_uTotal(uTotal)
{}

int64_t WatchedByteSource::ReadSome(void* pBuffer, size_t uSize)
{
    const int64_t nRead = m_source.ReadSome(pBuffer, uSize);
    if (nRead > 0) {
        const size_t uWanted = uFrontSize - std::min(uFrontSize, m_sFront.size());
        m_sFront.append(static_cast<const char*>(pBuffer),
                        std::min(uWanted, static_cast<size_t>(nRead)));
        m_uDone += static_cast<uint64_t>(nRead);
        m_progress.OnStep(m_uDone, m_uTotal);
    }
    return nRead;
}
