// ToolProgress: shows on standard error how far some work is, when standard error is a terminal and
// the program has worked for more than a second. At the end it removes its line.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "account/qmbytesource.h"
#include "account/qmprogress.h"

class ToolProgress : public QMProgress
{
public:
    // szWhat is a word such as "reading", and uUnit how many steps make one of szUnit.
    ToolProgress(const char* szWhat, uint64_t uUnit, const char* szUnit);
    ToolProgress(const ToolProgress&) = delete;
    ToolProgress& operator=(const ToolProgress&) = delete;
    ~ToolProgress() override { End(); }

    // Never gives up.
    bool OnStep(uint64_t uDone, uint64_t uTotal) override;

    // Removes the line. Nothing is shown after that.
    void End();

private:
    using Clock = std::chrono::steady_clock;

    static Clock::time_point Begun();

    const char* m_szWhat;
    uint64_t m_uUnit;
    const char* m_szUnit;
    bool m_bTold; // whether the line is shown at all
    bool m_bShown = false;
    Clock::time_point m_next; // when to show the line anew
};

// Passes on the bytes of a source, reports them to a progress, and keeps the first ones.
class WatchedByteSource : public QMByteSource
{
public:
    // uTotal is 0 when it is not known.
    WatchedByteSource(QMByteSource& source, uint64_t uTotal);

    int64_t GetSize() override { return m_source.GetSize(); }
    int64_t ReadSome(void* pBuffer, size_t uSize) override;

    uint64_t GetDone() const { return m_uDone; }
    std::string_view GetFront() const { return m_sFront; }

private:
    QMByteSource& m_source;
    ToolProgress m_progress;
    uint64_t m_uTotal;
    uint64_t m_uDone = 0;
    std::string m_sFront;
};
