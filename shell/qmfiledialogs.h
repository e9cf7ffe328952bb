// QMFileDialogs: the four file dialogs of the frame, each with its list of file types.
#pragma once

#include "toolkit/vfiledialog.h"

struct QMFileDialogs
{
    QMFileDialogs();

    VFileDialog open;
    VFileDialog save;
    VFileDialog importFrom;
    VFileDialog exportTo; // "export" is a keyword of C++
};

// The format version for a line (counted from 1) of the save dialog's file types; 0 keeps the
// version of the account.
int32_t QMVersionOfFilter(uint32_t uLine);
