// VButtonPictures: pictures on a dialog's buttons, as the control library at hand can show them.
#pragma once

#include <span>
#include <vector>

#include "toolkit/vdialog.h"
#include "toolkit/vimagelist.h"

// A button and its pictures, by their ids.
struct VButtonPicture
{
    int nId;
    UINT uBitmap; // 16 by 16 pixels with straight alpha
    int nStrip;   // which picture of the strip; -1 where the strip has none for it
};

// Must outlive the dialog's window.
class VButtonPictures
{
public:
    // From version 6 of the library on, gives every button its picture with alpha, beside its text
    // if it has one; before, those that have one get their picture of the strip: 10 by 10 pixels
    // each, 0xC0C0C0 left out. False when a picture is missing; its button then has none.
    bool Set(VDialog& dialog, std::span<const VButtonPicture> pictures, UINT uStrip,
             int nLibraryVersion);

    // The first version that draws alpha, and pictures beside a text.
    static constexpr int nAlphaVersion = 6;
    // The first number of the present control library's version.
    static int GetLibraryVersion();

private:
    VImageList m_images;
    std::vector<VIcon> m_icons;
};
