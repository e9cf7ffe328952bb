// VPrintContext: the record in which a print document and its client meet.
#pragma once

#include <windows.h>

#include "base/vstring.h"
#include "printing/vpagemeasures.h"
#include "toolkit/vimagelist.h"

class VDrawingSurface;

// The measures are those of the printer that is chosen at the moment; see VPageMeasures. A client
// reads sizePage and rcPrintable and fills in what stands below nCopies.
struct VPrintContext : VPageMeasures
{
    VDrawingSurface* pSurface = nullptr; // of the printer, which the document owns
    // Pages count from 1.
    uint16_t nFromPage = 1;
    uint16_t nToPage = 1;
    uint16_t nCopies = 1; // what was asked for; the printer's driver makes them

    VString szTitle;    // of the document, as the spooler shows it
    VImageList ilPages; // a picture of sizePage for each page
    int32_t nPages = 0; // as many as there are pictures
};
