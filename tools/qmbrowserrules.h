// How a web address reaches a browser: what is asked of one that runs, which program opens pages,
// and how that program is started.
#pragma once

#include <cstdint>

#include "base/vstring.h"

// The DDE services of the two browsers that are known, and the topic that both answer to.
inline constexpr char QM_BROWSER_SERVICE_FIRST[] = "IEXPLORE";
inline constexpr char QM_BROWSER_SERVICE_SECOND[] = "NETSCAPE";
inline constexpr char QM_BROWSER_TOPIC[] = "WWW_OpenURL";

// The service of the browser whose program has that path; an empty path counts as the first's.
const char* QMServiceOfBrowser(const char* szPath);

// The other one of the two, ignoring case; null for a service that is neither.
const char* QMOtherBrowserService(const char* szService);

// What a browser is asked for, to show the address in any of its windows. The address goes in as it
// stands, whatever it holds.
VString QMBrowserItem(const char* szUrl);

// Says whether a file exists.
using QMFileTest = bool (*)(const char* szPath);

// The program that a command of the registry starts, in lower case and without its arguments; empty
// when there is none. A path between quotes is taken as it stands. In a text without quotes the
// path is the longest beginning that exists as a file, none of which lies behind the first "%".
VString QMProgramOfCommand(const char* szCommand, QMFileTest pExists);

// Whether the system would run the program through its command interpreter, to which parts of an
// address are commands.
bool QMNeedsInterpreter(const char* szProgram);

// The program and the address as its argument, without quotes.
VString QMBrowserCommandLine(const char* szProgram, const char* szUrl);
