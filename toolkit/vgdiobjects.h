// The drawing objects. Each owns one handle and deletes it at its end.
#pragma once

#include <windows.h>

class VDrawingSurface;

template <class THandle>
class VGdiObject
{
public:
    VGdiObject() = default;
    VGdiObject(const VGdiObject&) = delete;
    VGdiObject& operator=(const VGdiObject&) = delete;
    ~VGdiObject() { Destroy(); }

    // Takes a handle and owns it; the one held so far is deleted. Returns false for a null handle.
    bool Attach(THandle hObject)
    {
        Destroy();
        m_hObject = hObject;
        return hObject != nullptr;
    }

    void Destroy()
    {
        if (m_hObject != nullptr) {
            DeleteObject(m_hObject);
            m_hObject = nullptr;
        }
    }

    // Gives the handle to the caller, who owns it then.
    THandle Release()
    {
        THandle hObject = m_hObject;
        m_hObject = nullptr;
        return hObject;
    }

    THandle GetHandle() const { return m_hObject; }

private:
    THandle m_hObject = nullptr;
};

class VPen : public VGdiObject<HPEN>
{
public:
    VPen() = default;
    VPen(int nStyle, int nWidth, COLORREF crColor) { Create(nStyle, nWidth, crColor); }
    bool Create(int nStyle, int nWidth, COLORREF crColor)
    {
        return Attach(CreatePen(nStyle, nWidth, crColor));
    }
};

class VBrush : public VGdiObject<HBRUSH>
{
public:
    VBrush() = default;
    explicit VBrush(COLORREF crColor) { Create(crColor); }
    bool Create(COLORREF crColor) { return Attach(CreateSolidBrush(crColor)); }
};

class VFont : public VGdiObject<HFONT>
{};

class VBitmap : public VGdiObject<HBITMAP>
{
public:
    // Takes a bitmap, owns it and reads its size.
    bool Attach(HBITMAP hBitmap);
    // As in the base class. The size is 0 by 0 afterwards.
    void Destroy() { Attach(nullptr); }
    HBITMAP Release();
    // Loads the bitmap of that id from the resource module of the application.
    bool Load(UINT uId);

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }

private:
    int m_nWidth = 0;
    int m_nHeight = 0;
};

// Selects an object into a surface, and selects the former one back at its end. Scopes must end in
// the reverse order of their beginning.
class VSelectScope
{
public:
    VSelectScope(VDrawingSurface& surface, HGDIOBJ hObject);
    VSelectScope(const VSelectScope&) = delete;
    VSelectScope& operator=(const VSelectScope&) = delete;
    ~VSelectScope();

private:
    VDrawingSurface& m_surface;
    HGDIOBJ m_hDisplaced = nullptr;
};

// Bits of a font's style, with the values that they have in account files.
inline constexpr unsigned V_FONT_BOLD = 1;
inline constexpr unsigned V_FONT_ITALIC = 2;
inline constexpr unsigned V_FONT_UNDERLINE = 4;
inline constexpr unsigned V_FONT_STRIKE_OUT = 8;

// Makes a font of nPoints points on the screen, also when it is used on another device. With a
// weight of 0 the style bits decide. Returns false for an empty face name, without a display, and
// when Windows cannot make the font.
bool CreatePointFont(VFont& font, const char* szFace, int nPoints, unsigned uStyle,
                     int nWeight = 0);

// The vertical dots per inch of the display; 0 when Windows cannot tell.
int VDisplayDotsPerInch();
