// QMEntryPictures: the pictures of the transaction dialog: the signs beside its check boxes, and
// those on its buttons.
#pragma once

#include "toolkit/vbuttonpictures.h"
#include "toolkit/vgdiobjects.h"

// The object must live longer than the dialog's window, which draws with its pictures.
class QMEntryPictures
{
public:
    // Loads the four signs. Returns false when one is missing; the others are drawn all the same.
    bool LoadSigns();
    // Draws the signs. Their places are fixed in pixels; the template puts the check boxes beside
    // them.
    void DrawSigns(VDrawingSurface& surface) const;

    // Gives the buttons the pictures that a common-controls library of this version can show. From
    // version 6 on, all five get one of 16 by 16 pixels with alpha. Before it, the four arrows
    // alone get one, of 10 by 10 pixels. Returns false when a picture is missing; its button then
    // has none.
    bool SetButtons(VDialog& dialog, int nLibraryVersion);

    // The first number of the version of the common-controls library that is loaded.
    static int GetLibraryVersion() { return VButtonPictures::GetLibraryVersion(); }

private:
    static constexpr int nSigns = 4;

    VBitmap m_aSigns[nSigns];
    VButtonPictures m_buttons;
};
