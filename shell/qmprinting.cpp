#include "shell/qmprinting.h"

namespace {

constexpr int32_t lMissing = QMPageSetup::lMissing;

void SetOrientation(VPrintDocument& document, DEVMODEA& mode, int32_t lOrientation)
{
    // Kept: the printer's least margins turn with the paper, and the user's do not.
    document.SetMinMargins(
        VTurnMargins(document.GetMinMargins(), mode.dmOrientation, lOrientation));
    mode.dmOrientation = static_cast<short>(lOrientation);
    mode.dmFields |= DM_ORIENTATION;
}

} // namespace

void QMApplyPageSetup(VPrintDocument& document, const QMPageSetup& stored)
{
    VRect rcMargins = document.GetMargins();
    QMReadMargins(stored.sMargins.GetText(), rcMargins);
    document.SetMargins(rcMargins);
    {
        const VLockedDeviceMode lock(document.GetDeviceMode());
        if (lock.Get() == nullptr) {
            return;
        }
        DEVMODEA& mode = *lock.Get();
        if (stored.lOrientation != lMissing) {
            SetOrientation(document, mode, stored.lOrientation);
        }
        if (stored.lPaperSize != lMissing) {
            mode.dmPaperSize = static_cast<short>(stored.lPaperSize);
            mode.dmFields |= DM_PAPERSIZE;
        }
        if (stored.lPaperSource != lMissing) {
            mode.dmDefaultSource = static_cast<short>(stored.lPaperSource);
            mode.dmFields |= DM_DEFAULTSOURCE;
        }
    }
    // The printer's surface follows before anything is printed.
    document.SetDevice(document.GetDeviceMode(), document.GetDeviceNames());
}

QMPageSetup QMDescribePageSetup(const VPrintDocument& document)
{
    QMPageSetup setup;
    setup.sMargins = QMWriteMargins(document.GetMargins());
    const VLockedDeviceMode lock(document.GetDeviceMode());
    if (lock.Get() != nullptr) {
        setup.lOrientation = lock.Get()->dmOrientation;
        setup.lPaperSize = lock.Get()->dmPaperSize;
        setup.lPaperSource = lock.Get()->dmDefaultSource;
    }
    return setup;
}
