#include "printing/vprintdocument.h"

#include <algorithm>
#include <climits>

#include "printing/vprintjob.h"

namespace {

// Windows must not report a missing printer before the user wants to print.
constexpr DWORD uDefaultPrinter = PD_RETURNDEFAULT | PD_RETURNDC | PD_NOWARNING;
constexpr DWORD uDefaultPage = PSD_RETURNDEFAULT | PSD_INTHOUSANDTHSOFINCHES | PSD_NOWARNING;
constexpr DWORD uPrint = PD_RETURNDC | PD_NOSELECTION | PD_HIDEPRINTTOFILE;

uint16_t ToPage(int n)
{
    return static_cast<uint16_t>(std::clamp<int>(n, 0, USHRT_MAX));
}

VPrinterMeasures MeasurePrinter(const VDrawingSurface& surface)
{
    const auto Ask = [&](int nX, int nY) {
        return VSize{surface.GetDeviceCaps(nX), surface.GetDeviceCaps(nY)};
    };
    return {Ask(LOGPIXELSX, LOGPIXELSY), Ask(HORZRES, VERTRES),
            Ask(PHYSICALOFFSETX, PHYSICALOFFSETY), Ask(PHYSICALWIDTH, PHYSICALHEIGHT)};
}

} // namespace

VPrintDocument::VPrintDocument(VWindow& owner) : m_owner(owner)
{
    GetDefaults();
}

void VPrintDocument::GetDefaults()
{
    if (!m_printDialog.Run(m_owner.GetHandle(), uDefaultPrinter)) {
        return;
    }
    m_devMode.Attach(m_printDialog.GetDeviceMode());
    m_devNames.Attach(m_printDialog.GetDeviceNames());
    m_pageSetup.Run(m_owner.GetHandle(), uDefaultPage);
    {
        // The dialog made handles of its own.
        const VGlobalMemory mode(m_pageSetup.GetDeviceMode());
        const VGlobalMemory names(m_pageSetup.GetDeviceNames());
    }
    ShareDevice();
}

void VPrintDocument::ShareDevice()
{
    m_printDialog.SetDevice(m_devMode.GetHandle(), m_devNames.GetHandle());
    m_pageSetup.SetDevice(m_devMode.GetHandle(), m_devNames.GetHandle());
}

void VPrintDocument::SetRenderCallback(VRenderCallback pfnRender, uintptr_t uUser, void* pOwner)
{
    m_pfnRender = pfnRender;
    m_uRenderUser = uUser;
    m_pRenderOwner = pOwner;
}

void VPrintDocument::SetDevice(HGLOBAL hDevMode, HGLOBAL hDevNames)
{
    m_devMode.Attach(hDevMode);
    m_devNames.Attach(hDevNames);
    ShareDevice();
    const VLockedDeviceMode mode(hDevMode);
    if (mode.Get() != nullptr && GetSurface().GetHandle() != nullptr) {
        GetSurface().ResetDC(*mode.Get());
    }
}

bool VPrintDocument::RenderToContext(VPrintContext& context)
{
    const VDrawingSurface& printer = GetSurface();
    const VClientSurface screen(m_owner.GetHandle());
    if (m_pfnRender == nullptr || printer.GetHandle() == nullptr || screen.GetHandle() == nullptr) {
        return false;
    }
    context.pSurface = &GetSurface();
    context.rcMargins = m_pageSetup.GetMargins();
    context.rcMinMargins = m_pageSetup.GetMinMargins();
    const VSize sizeScreen = {screen.GetDeviceCaps(LOGPIXELSX), screen.GetDeviceCaps(LOGPIXELSY)};
    if (!VMeasurePage(MeasurePrinter(printer), sizeScreen, context)) {
        return false;
    }
    context.szTitle = "printdoc";
    context.ilPages.Destroy();
    context.nPages = 0;
    return m_pfnRender(context, m_uRenderUser, m_pRenderOwner);
}

bool VPrintDocument::ChoosePrinter(VPrintContext& context)
{
    m_printDialog.SetPages(context.nFromPage, context.nToPage);
    m_printDialog.SetPageLimits(1, context.nPages);
    m_printDialog.SetCopies(context.nCopies);
    m_printDialog.SetCollated(true);
    if (!m_printDialog.Run(m_owner.GetHandle(), uPrint)) {
        return false;
    }
    m_devMode.Replace(m_printDialog.GetDeviceMode());
    m_devNames.Replace(m_printDialog.GetDeviceNames());
    ShareDevice();
    context.nFromPage = ToPage(m_printDialog.GetFirstPage());
    context.nToPage = ToPage(m_printDialog.GetLastPage());
    context.nCopies = ToPage(m_printDialog.GetCopies());
    return true;
}

bool VPrintDocument::Print()
{
    VPrintContext context;
    if (!RenderToContext(context)) {
        return false;
    }
    context.nToPage = ToPage(context.nPages);
    if (!ChoosePrinter(context)) {
        return true;
    }
    // Another printer may have another paper.
    context.ilPages.Destroy();
    return RenderToContext(context) && PrintJob(context, m_owner);
}

bool VPrintDocument::Preview()
{
    VPrintPreviewOperations operations;
    operations.pfnRender = [](void* pUser, VPrintContext& context) {
        return static_cast<VPrintDocument*>(pUser)->RenderToContext(context);
    };
    operations.pfnPrint = [](void* pUser) { return static_cast<VPrintDocument*>(pUser)->Print(); };
    operations.pfnSetup = [](void* pUser) {
        return static_cast<VPrintDocument*>(pUser)->PageSetup();
    };
    return m_preview.Run(m_owner, m_owner.GetWindowRect(), operations, this);
}

bool VPrintDocument::PageSetup()
{
    // So that the dialog proposes no least margins of its own.
    const VRect rcMinMargins = m_pageSetup.GetMinMargins();
    m_pageSetup.SetMinMargins(VRect());
    if (!m_pageSetup.Run(m_owner.GetHandle(), PSD_INTHOUSANDTHSOFINCHES)) {
        m_pageSetup.SetMinMargins(rcMinMargins);
        return false;
    }
    m_devMode.Replace(m_pageSetup.GetDeviceMode());
    m_devNames.Replace(m_pageSetup.GetDeviceNames());
    SetDevice(m_devMode.GetHandle(), m_devNames.GetHandle());
    return true;
}
