#include "printing/vprintjob.h"

#include <algorithm>

#include "printing/vprintcontext.h"
#include "printing/vprintprogressdialog.h"
#include "printing/vprinttiles.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"
#include "toolkit/vmessages.h"

namespace {

class Job
{
public:
    Job(VPrintContext& context, VWindow& owner, const VDrawingSurface& screen)
        : m_context(context), m_printer(*context.pSurface), m_owner(owner), m_screen(screen)
    {}

    bool Run()
    {
        m_progress.Create(m_owner, m_context.szTitle);
        m_printer.SetAbortProc(AbortPump);
        m_owner.Enable(false);
        const bool bSent = Send();
        const bool bCanceled = m_progress.IsCanceled();
        // Before its dialog goes, so that the owner is active again and no other program is.
        // Kept: this holds for an owner that a modal preview disabled before, too.
        m_owner.Enable(true);
        m_progress.Detach();
        return bCanceled || bSent;
    }

private:
    bool Send()
    {
        VMemorySurface memory(m_printer);
        if (memory.GetHandle() == nullptr ||
            m_context.nPages != m_context.ilPages.GetImageCount() || !HoldRange()) {
            return false;
        }
        DOCINFOA document = {};
        document.cbSize = sizeof document;
        document.lpszDocName = m_context.szTitle.GetText();
        if (m_printer.StartDoc(document) <= 0) {
            return false;
        }
        for (int nPage = m_context.nFromPage; nPage <= m_context.nToPage; ++nPage) {
            m_progress.SetPage(nPage);
            if (!SendPage(memory, nPage)) {
                m_printer.AbortDoc();
                return false;
            }
        }
        return m_printer.EndDoc() > 0;
    }

    bool HoldRange()
    {
        m_context.nFromPage = std::max<uint16_t>(m_context.nFromPage, 1);
        if (m_context.nPages < m_context.nToPage) {
            m_context.nToPage = static_cast<uint16_t>(m_context.nPages);
        }
        return m_context.ilPages.GetIconSize(m_nWidth, m_nHeight);
    }

    bool SendPage(VMemorySurface& memory, int nPage)
    {
        if (m_printer.StartPage() < 1) {
            return false;
        }
        VBitmap page;
        if (!page.Attach(CreateCompatibleBitmap(m_printer.GetHandle(), m_nWidth, m_nHeight))) {
            return false;
        }
        const VSelectScope scope(memory, page.GetHandle());
        return memory.PatBlt(0, 0, m_nWidth, m_nHeight, WHITENESS) &&
               m_context.ilPages.Draw(nPage - 1, memory, 0, 0) && GoesOn() &&
               m_printer.SetStretchBltMode(BLACKONWHITE) != 0 &&
               (StretchWhole(memory) || StretchTiles(memory)) && GoesOn() &&
               m_printer.EndPage() >= 1;
    }

    // Not every driver calls the procedure for each page, and without a call the job would neither
    // show how far it is nor notice a Cancel.
    bool GoesOn() { return AbortPump(m_printer.GetHandle(), 0) != 0; }

    bool StretchWhole(const VMemorySurface& memory)
    {
        return m_printer.StretchBlt(0, 0, m_context.sizeDevice.cx, m_context.sizeDevice.cy, memory,
                                    0, 0, m_nWidth, m_nHeight, SRCCOPY);
    }

    bool StretchTiles(const VMemorySurface& memory)
    {
        const auto Dots = [](const VDrawingSurface& surface) {
            return VSize{surface.GetDeviceCaps(LOGPIXELSX), surface.GetDeviceCaps(LOGPIXELSY)};
        };
        const VPrintTiling tiling = {
            Dots(m_printer), Dots(m_screen), m_context.sizeDevice, {m_nWidth, m_nHeight}};
        return VForEachPrintTile(tiling, [&](const VPrintTile& tile) {
            return m_printer.StretchBlt(tile.x, tile.y, tile.w, tile.h, memory, tile.sx, tile.sy,
                                        tile.sw, tile.sh, SRCCOPY);
        });
    }

    VPrintContext& m_context;
    VDrawingSurface& m_printer;
    VWindow& m_owner;
    const VDrawingSurface& m_screen;
    VPrintProgressDialog m_progress;
    int m_nWidth = 0; // of the pictures
    int m_nHeight = 0;
};

} // namespace

bool PrintJob(VPrintContext& context, VWindow& owner)
{
    if (context.pSurface == nullptr || context.pSurface->GetHandle() == nullptr) {
        return false;
    }
    const VClientSurface screen(owner.GetHandle());
    if (screen.GetHandle() == nullptr) {
        return false;
    }
    if ((context.pSurface->GetDeviceCaps(RASTERCAPS) & RC_STRETCHDIB) == 0) {
        MessageBox(owner.GetHandle(), "Printer does not support image scaling.", "Device Error",
                   MB_OK);
        return false;
    }
    return Job(context, owner, screen).Run();
}

BOOL CALLBACK AbortPump(HDC /*hDC*/, int /*nCode*/)
{
    VPrintProgressDialog* pProgress = VPrintProgressDialog::GetRunning();
    MSG message;
    while (pProgress != nullptr && pProgress->IsValid() &&
           PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // It is for the program's own loop.
            PostQuitMessage(static_cast<int>(message.wParam));
            pProgress->Cancel();
            return FALSE;
        }
        if (!IsDialogMessageA(pProgress->GetHandle(), &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    return pProgress != nullptr && pProgress->IsValid() && !pProgress->IsCanceled();
}
