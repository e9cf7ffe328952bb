// The rules for showing a web address: what a running browser is asked, which program opens pages,
// and how it is started.
#pragma once

#include <cstdint>

#include "base/vstring.h"

// The DDE services of the two browsers that are known, and the topic that both answer to.
inline constexpr char QM_BROWSER_SERVICE_FIRST[] = "IEXPLORE";
inline constexpr char QM_BROWSER_SERVICE_SECOND[] = "NETSCAPE";
inline constexpr char QM_BROWSER_TOPIC[] = "WWW_OpenURL";

// The DDE service of the browser with that path. An empty path counts as the first browser.
const char* QMServiceOfBrowser(const char* szPath);

// The other of the two services, ignoring case; null when szService is neither.
const char* QMOtherBrowserService(const char* szService);

// The DDE item that asks a browser to show the address in any of its windows. The address is put in
// as it is, whatever it holds.
VString QMBrowserItem(const char* szUrl);

// Returns whether a file exists.
using QMFileTest = bool (*)(const char* szPath);

// The program that a command of the registry starts, in lower case and without its arguments; empty
// when there is none. A path in quotes is taken as it is. Without quotes the path is the longest
// beginning of the text that exists as a file and ends before the first "%".
VString QMProgramOfCommand(const char* szCommand, QMFileTest pExists);

// Whether Windows would run the program by its command interpreter, which would take parts of an
// address for commands.
bool QMNeedsInterpreter(const char* szProgram);

// The command line: the program and the address as its argument, without quotes.
VString QMBrowserCommandLine(const char* szProgram, const char* szUrl);
