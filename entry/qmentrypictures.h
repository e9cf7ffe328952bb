// The pictures of the transaction dialog: signs beside its boxes, and those on its buttons.
#pragma once

#include "toolkit/vdialog.h"
#include "toolkit/vgdiobjects.h"
#include "toolkit/vimagelist.h"

// Must outlive the dialog's window.
class QMEntryPictures
{
public:
    // False when a sign is missing; the others are drawn all the same.
    bool LoadSigns();
    // At fixed pixels of the dialog, beside which its template has the boxes.
    void DrawSigns(VDrawingSurface& surface) const;

    // Gives the buttons what a control library of that version can show: from 6 on pictures of 16
    // by 16 with alpha, on all of them; before, arrows alone, of 10 by 10. False when a picture is
    // missing; its button then has none.
    bool SetButtons(VDialog& dialog, int nLibraryVersion);

    // The first number of the present control library's version.
    static int GetLibraryVersion();

private:
    static constexpr int nSigns = 4;
    static constexpr int nButtons = 5;

    VBitmap m_aSigns[nSigns];
    VImageList m_images;
    VIcon m_aIcons[nButtons];
};
