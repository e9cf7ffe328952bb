#include "toolkit/vbuttonpictures.h"

#include <shlwapi.h>

#include "toolkit/vgdiobjects.h"

namespace {

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
bool FillWithAlpha(VImageList& images, std::span<const VButtonPicture> pictures)
{
    if (!images.Create(nAlphaSize, nAlphaSize, static_cast<int>(pictures.size()), 1,
                       ILC_COLOR32 | ILC_MASK)) {
        return false;
    }
    for (const VButtonPicture& picture : pictures) {
        VBitmap bitmap;
        VBitmap mask;
        if (!bitmap.Load(picture.uBitmap) || !MakeMask(bitmap, mask) ||
            images.Add(bitmap.GetHandle(), mask.GetHandle()) < 0) {
            return false;
        }
    }
    return true;
}

bool FillFromStrip(VImageList& images, UINT uStrip)
{
    VBitmap strip;
    return images.Create(nStripSize, nStripSize, 4, 1, ILC_COLOR24 | ILC_MASK) &&
           strip.Load(uStrip) && images.AddMasked(strip.GetHandle(), crStripMask) >= 0;
}

} // namespace

bool VButtonPictures::Set(VDialog& dialog, std::span<const VButtonPicture> pictures, UINT uStrip,
                          int nLibraryVersion)
{
    const bool bAlpha = nLibraryVersion >= nAlphaVersion;
    bool bAll = bAlpha ? FillWithAlpha(m_images, pictures) : FillFromStrip(m_images, uStrip);
    m_icons = std::vector<VIcon>(pictures.size());
    for (size_t u = 0; u < pictures.size(); ++u) {
        const int nImage = bAlpha ? static_cast<int>(u) : pictures[u].nStrip;
        if (nImage < 0) {
            continue;
        }
        bAll = m_icons[u].Create(m_images, nImage) && bAll;
        dialog.SendItem(pictures[u].nId, BM_SETIMAGE, IMAGE_ICON,
                        reinterpret_cast<LPARAM>(m_icons[u].GetHandle()));
    }
    return bAll;
}

int VButtonPictures::GetLibraryVersion()
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
