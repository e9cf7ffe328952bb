// VPrintDocument: something that can be printed, whatever it is.
//
// A client gives it one callback that fills a VPrintContext with a picture for each page. The
// document does the rest: the measures of printer and paper, the print dialog, the job, the
// preview, the page setup. All operations answer false on failure and leave the words to their
// caller.
#pragma once

#include "printing/vdevicehandles.h"
#include "printing/vpagesetupdialog.h"
#include "printing/vprintcontext.h"
#include "printing/vprintdialog.h"
#include "printing/vprintpreviewdialog.h"

// Fills the context from nothing, each time it is called: it may be called several times for one
// command. On true, nPages is the number of pictures in ilPages. The two last arguments are what
// SetRenderCallback was given.
using VRenderCallback = bool (*)(VPrintContext& context, uintptr_t uUser, void* pOwner);

class VPrintDocument
{
public:
    // Gets the default printer and its page setup, without a word. Without a printer there is a
    // document all the same, and its operations fail. The owner of the dialogs must outlive it.
    explicit VPrintDocument(VWindow& owner);
    VPrintDocument(const VPrintDocument&) = delete;
    VPrintDocument& operator=(const VPrintDocument&) = delete;

    void SetRenderCallback(VRenderCallback pfnRender, uintptr_t uUser, void* pOwner);

    // Takes the two handles over, for printing and for the page setup, and gives the printer's
    // surface what the device mode says. They may be those that the document has.
    void SetDevice(HGLOBAL hDevMode, HGLOBAL hDevNames);

    // Asks for printer and pages, and prints. A cancel counts as done.
    bool Print();
    // Shows the pages in a window over the owner's; false when they cannot be shown.
    bool Preview();
    // Runs the page setup; true when the user accepted it.
    bool PageSetup();

    // Measures the page and has the client fill the context with pictures. What the context holds
    // of pages before is destroyed.
    bool RenderToContext(VPrintContext& context);

    // ---- What the dialogs hold. Margins are thousandths of an inch; pages count from 1.

    HGLOBAL GetDeviceMode() const { return m_devMode.GetHandle(); }
    HGLOBAL GetDeviceNames() const { return m_devNames.GetHandle(); }
    // Without a handle when there is no printer.
    VDrawingSurface& GetSurface() { return m_printDialog.GetSurface(); }
    int GetFirstPage() const { return m_printDialog.GetFirstPage(); }
    int GetLastPage() const { return m_printDialog.GetLastPage(); }
    int GetLowestPage() const { return m_printDialog.GetLowestPage(); }
    int GetHighestPage() const { return m_printDialog.GetHighestPage(); }
    const VRect& GetMargins() const { return m_pageSetup.GetMargins(); }
    void SetMargins(const VRect& rcMargins) { m_pageSetup.SetMargins(rcMargins); }
    const VRect& GetMinMargins() const { return m_pageSetup.GetMinMargins(); }
    void SetMinMargins(const VRect& rcMargins) { m_pageSetup.SetMinMargins(rcMargins); }
    const SIZE& GetPaperSize() const { return m_pageSetup.GetPaperSize(); }

private:
    void GetDefaults();
    void ShareDevice();
    bool ChoosePrinter(VPrintContext& context);

    VWindow& m_owner;
    VRenderCallback m_pfnRender = nullptr;
    uintptr_t m_uRenderUser = 0;
    void* m_pRenderOwner = nullptr;
    // What both dialogs hold handles of.
    VGlobalMemory m_devMode;
    VGlobalMemory m_devNames;
    VPrintDialog m_printDialog;
    VPageSetupDialog m_pageSetup;
    VPrintPreviewDialog m_preview;
};
