// QMFileDialogs: the frame's four file dialogs, each with its lines of file types.
#pragma once

#include "toolkit/vfiledialog.h"

struct QMFileDialogs
{
    QMFileDialogs();

    VFileDialog open;
    VFileDialog save;
    VFileDialog importFrom;
    VFileDialog exportTo; // "export" is a word of C++
};

// The format version that a line of the save dialog's types (from 1 on) stands for; 0 keeps the
// account's version.
int32_t QMVersionOfFilter(uint32_t uLine);
