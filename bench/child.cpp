#include "bench/child.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double PeakBytes()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

Measurement Measure(const std::function<bool(const std::function<void()>&)>& work)
{
    Measurement result;
    const double dBefore = PeakBytes();
    const double dStart = ProcessorSeconds();
    result.bDone = work([&] {
        result.dSeconds = ProcessorSeconds() - dStart;
        result.dPeakBytes = PeakBytes() - dBefore;
    });
    return result;
}

} // namespace

Measurement MeasureInChild(const std::function<bool(const std::function<void()>&)>& work)
{
    Measurement result;
    int anPipe[2];
    if (pipe(anPipe) != 0) {
        return result;
    }
    const pid_t nChild = fork();
    if (nChild == 0) {
        result = Measure(work);
        _exit(write(anPipe[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(anPipe[1]);
    if (read(anPipe[0], &result, sizeof result) != sizeof result) {
        result.bDone = false;
    }
    close(anPipe[0]);
    waitpid(nChild, nullptr, 0);
    return result;
}
