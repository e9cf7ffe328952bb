#include "bench/programrun.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace {

double SecondsOf(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

} // namespace

Measurement RunProgram(const std::vector<std::string>& words)
{
    char szOutput[] = "/tmp/output-XXXXXX";
    const int nOutput = mkstemp(szOutput);
    std::vector<char*> aszArguments;
    for (const std::string& sWord : words) {
        aszArguments.push_back(const_cast<char*>(sWord.c_str()));
    }
    aszArguments.push_back(nullptr);
    const pid_t nChild = vfork();
    if (nChild == 0) {
        dup2(nOutput, STDOUT_FILENO);
        execv(aszArguments[0], aszArguments.data());
        _exit(127);
    }
    int nStatus = 0;
    rusage usage = {};
    wait4(nChild, &nStatus, 0, &usage);
    close(nOutput);
    unlink(szOutput);
    Measurement result;
    result.bDone = nStatus == 0;
    result.dSeconds = SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime);
    result.dPeakBytes = static_cast<double>(usage.ru_maxrss) * 1024;
    return result;
}
