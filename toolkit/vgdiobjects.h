// The drawing objects: each owns one handle and deletes it at its end.
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

    // Takes ownership; what was held before is deleted. False for a null handle.
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

    // Hands the object over to the caller.
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
    // Takes ownership and reads the size.
    bool Attach(HBITMAP hBitmap);
    // From the application's resources.
    bool Load(UINT uId);

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }

private:
    int m_nWidth = 0;
    int m_nHeight = 0;
};

// Selects an object into a surface until its own end. Scopes nest strictly.
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

// Bits of a font's style, as accounts file them.
inline constexpr unsigned V_FONT_BOLD = 1;
inline constexpr unsigned V_FONT_ITALIC = 2;
inline constexpr unsigned V_FONT_UNDERLINE = 4;
inline constexpr unsigned V_FONT_STRIKE_OUT = 8;

// Makes a font of so many points on the screen, whatever it will draw on. A weight of 0 follows the
// style bits. False without a face, without a display, or when the font cannot be made.
bool CreatePointFont(VFont& font, const char* szFace, int nPoints, unsigned uStyle,
                     int nWeight = 0);

// Vertical dots per inch of the display; 0 when it cannot be asked.
int VDisplayDotsPerInch();
