#include "entry/qmentrypictures.h"

#include <shlwapi.h>

#include "resources/resource.h"
#include "toolkit/vdrawingsurface.h"

namespace {

constexpr struct
{
    UINT uBitmap;
    int x;
    int y;
} aSignPlaces[] = {
    {IDB_SIGN_TAX, 166, 206},
    {IDB_SIGN_EXPENSE, 166, 226},
    {IDB_SIGN_CLEARED, 298, 211},
    {IDB_SIGN_VOIDED, 298, 237},
};

// The arrows in the order of their strip. Add comes last, and is not in the strip.
constexpr struct
{
    int nId;
    UINT uBitmap;
} aButtonPictures[] = {
    {IDC_TX_FIRST, IDB_ARROW_FIRST}, {IDC_TX_PREVIOUS, IDB_ARROW_PREVIOUS},
    {IDC_TX_NEXT, IDB_ARROW_NEXT},   {IDC_TX_LAST, IDB_ARROW_LAST},
    {IDC_TX_ADD, IDB_BUTTON_ADD},
};

constexpr int nAlphaVersion = 6; // the first version that draws alpha, and pictures beside a text
constexpr int nAlphaSize = 16;
constexpr int nStripSize = 10;
constexpr COLORREF crStripMask = 0xC0C0C0;

// Windows draws a disabled button without alpha and shows everything that the mask does not cover.
// So the mask is made from the alpha.
bool MakeMask(const VBitmap& picture, VBitmap& mask)
{
    constexpr uint8_t uHalf = 128;
    DIBSECTION section = {};
    if (GetObjectA(picture.GetHandle(), sizeof section, &section) != sizeof section ||
        section.dsBm.bmBitsPixel != 32 || section.dsBm.bmWidth != nAlphaSize ||
        section.dsBm.bmHeight != nAlphaSize) {
        return false;
    }
    const auto* pAlpha = static_cast<const uint8_t*>(section.dsBm.bmBits) + 3;
    uint8_t aBits[nAlphaSize * nAlphaSize / 8] = {};
    for (int i = 0; i < nAlphaSize * nAlphaSize; ++i) {
        // The lines of the picture go from bottom to top, those of the mask from top to bottom.
        const int nFlipped = (nAlphaSize - 1 - i / nAlphaSize) * nAlphaSize + i % nAlphaSize;
        if (pAlpha[static_cast<ptrdiff_t>(nFlipped) * 4] < uHalf) {
            aBits[i / 8] = static_cast<uint8_t>(aBits[i / 8] | 0x80 >> i % 8);
        }
    }
    return mask.Attach(CreateBitmap(nAlphaSize, nAlphaSize, 1, 1, aBits));
}

// Stops at the first picture that is missing: each later one would get the index of the one before
// it.
bool FillWithAlpha(VImageList& images)
{
    if (!images.Create(nAlphaSize, nAlphaSize, static_cast<int>(std::size(aButtonPictures)), 1,
                       ILC_COLOR32 | ILC_MASK)) {
        return false;
    }
    for (const auto& picture : aButtonPictures) {
        VBitmap bitmap;
        VBitmap mask;
        if (!bitmap.Load(picture.uBitmap) || !MakeMask(bitmap, mask) ||
            images.Add(bitmap.GetHandle(), mask.GetHandle()) < 0) {
            return false;
        }
    }
    return true;
}

bool FillFromStrip(VImageList& images)
{
    VBitmap strip;
    return images.Create(nStripSize, nStripSize, 4, 1, ILC_COLOR24 | ILC_MASK) &&
           strip.Load(IDB_ARROW_STRIP) && images.AddMasked(strip.GetHandle(), crStripMask) >= 0;
}

} // namespace

bool QMEntryPictures::LoadSigns()
{
    bool bAll = true;
    for (int i = 0; i < nSigns; ++i) {
        bAll = m_aSigns[i].Load(aSignPlaces[i].uBitmap) && bAll;
    }
    return bAll;
}

void QMEntryPictures::DrawSigns(VDrawingSurface& surface) const
{
    VMemorySurface picture(surface);
    for (int i = 0; i < nSigns; ++i) {
        const VSelectScope scope(picture, m_aSigns[i].GetHandle());
        // SRCAND leaves the dialog's background where the sign is white.
        surface.BitBlt(aSignPlaces[i].x, aSignPlaces[i].y, m_aSigns[i].GetWidth(),
                       m_aSigns[i].GetHeight(), picture, 0, 0, SRCAND);
    }
}

bool QMEntryPictures::SetButtons(VDialog& dialog, int nLibraryVersion)
{
    const bool bAlpha = nLibraryVersion >= nAlphaVersion;
    bool bAll = bAlpha ? FillWithAlpha(m_images) : FillFromStrip(m_images);
    if (!bAlpha) {
        // Without a picture the text is to stand at the right, where it stands beside a picture
        // too.
        HWND hAdd = dialog.GetItem(IDC_TX_ADD);
        SetWindowLongPtrA(hAdd, GWL_STYLE, GetWindowLongPtrA(hAdd, GWL_STYLE) | BS_RIGHT);
    }
    for (int i = 0; i < (bAlpha ? nButtons : nButtons - 1); ++i) {
        bAll = m_aIcons[i].Create(m_images, i) && bAll;
        dialog.SendItem(aButtonPictures[i].nId, BM_SETIMAGE, IMAGE_ICON,
                        reinterpret_cast<LPARAM>(m_aIcons[i].GetHandle()));
    }
    return bAll;
}

int QMEntryPictures::GetLibraryVersion()
{
    HMODULE hLibrary = GetModuleHandleA("comctl32.dll");
    const auto pEntry = reinterpret_cast<DLLGETVERSIONPROC>(
        reinterpret_cast<void*>(GetProcAddress(hLibrary, "DllGetVersion")));
    DLLVERSIONINFO version = {};
    version.cbSize = sizeof version;
    return pEntry != nullptr && SUCCEEDED(pEntry(&version))
               ? static_cast<int>(version.dwMajorVersion)
               : 0;
}
