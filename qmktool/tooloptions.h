// The command line of qmktool.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "account/qmdate.h"
#include "base/vcharacters.h"
#include "exchange/qmexchange.h"
#include "qmktool/commandtable.h"

struct ToolOptions
{
    std::vector<const char*> aFiles;
    bool bJson = false;
    bool bForce = false;
    bool bClearedBalance = false;
    const char* szPassword = nullptr;
    bool bAll = false;
    bool bDryRun = false;
    bool bSkipKnown = false;
    bool bDetect = false;
    bool bCsv = false;
    // The encoding of the texts of an account. JSON has their bytes unless bEncoding is set.
    VEncoding encoding = VEncoding::Windows1252;
    bool bEncoding = false;
    // The formats of IN and OUT where these are "-"; otherwise None.
    QMExchangeKind fromKind = QMExchangeKind::None;
    QMExchangeKind toKind = QMExchangeKind::None;
    int32_t lLimit = -1; // rows from the first one on; below 0 all
    int32_t lLast = -1;  // rows up to the last one; below 0 all
    bool bFrom = false;  // whether dtFrom or dtTo was given; the other one is then far away
    bool bTo = false;
    QMDate dtFrom;
    QMDate dtTo;
    // For a report, as the user gave them; null if not given.
    const char* szKind = nullptr;
    const char* szGroup = nullptr;
    const char* szMonth = nullptr;
    const char* szPdf = nullptr;
    const char* szPaper = nullptr;
    const char* szProfile = nullptr; // file with a dialect
    // Names and values of the dialect in the order of the command line. Each value is valid.
    std::vector<std::pair<std::string, std::string>> dialect;
    int32_t lVersion = 0; // the format version to write; 0 keeps that of the file
};

// Reads the words after the name of the command. On a fault, writes one line to standard error and
// returns false.
bool ParseToolOptions(const ToolCommand& command, int nWords, char** aszWords,
                      ToolOptions& options);
