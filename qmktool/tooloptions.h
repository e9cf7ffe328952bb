// The command line of qmktool.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "account/qmdate.h"

struct ToolOptions
{
    std::vector<const char*> aFiles;
    bool bJson = false;
    bool bForce = false;
    bool bClearedBalance = false;
    const char* szPassword = nullptr;
    bool bPeriod = false; // dtFrom and dtTo were given
    QMDate dtFrom;
    QMDate dtTo;
    int32_t lVersion = 0; // of the format to write; 0 keeps the file's
};

// What a command takes.
struct ToolCommand
{
    const char* szName;
    size_t uFiles;
    const char* szOptions; // their names, each with a blank before and behind
    int (*pRun)(const ToolOptions& options);
};

// Reads the words behind the command's name. On a fault it writes one line to standard error and
// returns false.
bool ParseToolOptions(const ToolCommand& command, int nWords, char** aszWords,
                      ToolOptions& options);
