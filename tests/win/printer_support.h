// The tests' own printer: a spooler that turns documents into files.
#pragma once

#include <string>

#include "tests/support/printeddocument.h"

// Why a test that needs a printer cannot run; empty when there is one.
std::string WhyNoPrinter();

// Waits for a document. The running test fails when it does not come.
PrintedDocument AwaitPrinted(const std::string& sTitle);
