#include "toolkit/vgdiobjects.h"

#include "base/vtext.h"
#include "toolkit/vapplication.h"
#include "toolkit/vdrawingsurface.h"

bool VBitmap::Attach(HBITMAP hBitmap)
{
    BITMAP record = {};
    if (hBitmap != nullptr) {
        GetObjectA(hBitmap, sizeof record, &record);
    }
    m_nWidth = record.bmWidth;
    m_nHeight = record.bmHeight;
    return VGdiObject::Attach(hBitmap);
}

HBITMAP VBitmap::Release()
{
    m_nWidth = m_nHeight = 0;
    return VGdiObject::Release();
}

bool VBitmap::Load(UINT uId)
{
    HINSTANCE hModule = GetApplication().GetResourceModule();
    return Attach(static_cast<HBITMAP>(
        LoadImageA(hModule, MAKEINTRESOURCEA(uId), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
}

VSelectScope::VSelectScope(VDrawingSurface& surface, HGDIOBJ hObject) : m_surface(surface)
{
    if (GetObjectType(hObject) != 0) {
        m_hDisplaced = SelectObject(surface.GetHandle(), hObject);
    }
}

VSelectScope::~VSelectScope()
{
    if (GetObjectType(m_hDisplaced) != 0) {
        SelectObject(m_surface.GetHandle(), m_hDisplaced);
    }
}

int VDisplayDotsPerInch()
{
    VDrawingSurface display;
    if (display.Attach(CreateICA("DISPLAY", nullptr, nullptr, nullptr), true) == nullptr) {
        return 0;
    }
    return display.GetDeviceCaps(LOGPIXELSY);
}

bool CreatePointFont(VFont& font, const char* szFace, int nPoints, unsigned uStyle, int nWeight)
{
    const int nDotsPerInch = VDisplayDotsPerInch();
    if (szFace == nullptr || nDotsPerInch == 0) {
        return false;
    }
    LOGFONTA record = {};
    // A negative lfHeight is the height of the characters, without the space above them.
    record.lfHeight = -MulDiv(nPoints, nDotsPerInch, 72);
    const int nStyleWeight = (uStyle & V_FONT_BOLD) != 0 ? FW_BOLD : FW_DONTCARE;
    record.lfWeight = nWeight != 0 ? nWeight : nStyleWeight;
    record.lfItalic = (uStyle & V_FONT_ITALIC) != 0;
    record.lfUnderline = (uStyle & V_FONT_UNDERLINE) != 0;
    record.lfStrikeOut = (uStyle & V_FONT_STRIKE_OUT) != 0;
    record.lfCharSet = DEFAULT_CHARSET;
    VCopyText(record.lfFaceName, szFace);
    return font.Attach(CreateFontIndirectA(&record));
}
