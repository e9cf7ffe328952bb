#include "tests/win/printer_support.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commdlg.h>

#include "tests/win/support.h"

std::string WhyNoPrinter()
{
    if (!PrintedDocument::HasSpooler()) {
        return "the spooler of the tests does not run";
    }
    PRINTDLGA record = {};
    record.lStructSize = sizeof record;
    record.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
    const bool bHas = PrintDlgA(&record) != FALSE;
    GlobalFree(record.hDevMode);
    GlobalFree(record.hDevNames);
    return bHas ? "" : "the system has no printer";
}

PrintedDocument AwaitPrinted(const std::string& sTitle)
{
    PrintedDocument document;
    EXPECT_TRUE(PumpUntil([&] { return document.Find(sTitle); }, 120000))
        << sTitle << " was not printed";
    return document;
}
