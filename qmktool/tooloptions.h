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
    bool bPeriod = false; // true when dtFrom and dtTo were given
    QMDate dtFrom;
    QMDate dtTo;
    // Of a report, as they were given; null for those that were not.
    const char* szKind = nullptr;
    const char* szGroup = nullptr;
    const char* szMonth = nullptr;
    const char* szPdf = nullptr;
    const char* szPaper = nullptr;
    int32_t lVersion = 0; // the format version to write; 0 keeps that of the file
};

// What a command accepts.
struct ToolCommand
{
    const char* szName;
    size_t uFiles;
    const char* szOptions; // their names, each with a blank before and after it
    int (*pRun)(const ToolOptions& options);
};

// Reads the words after the name of the command. On a fault it writes one line to standard error
// and returns false.
bool ParseToolOptions(const ToolCommand& command, int nWords, char** aszWords,
                      ToolOptions& options);
