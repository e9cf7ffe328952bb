// The printer of the tests: a spooler whose documents become files.
#pragma once

#include <string>

#include "tests/support/printeddocument.h"

// Why a test that needs a printer cannot run; empty where one can.
std::string WhyNoPrinter();

// Waits for a document; the running test fails when it does not come.
PrintedDocument AwaitPrinted(const std::string& sTitle);
