#include "entry/qmentrypictures.h"

#include "resources/resource.h"
#include "toolkit/vcolors.h"
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

constexpr VButtonPicture aButtonPictures[] = {
    {IDC_TX_FIRST, IDB_ARROW_FIRST, 0}, {IDC_TX_PREVIOUS, IDB_ARROW_PREVIOUS, 1},
    {IDC_TX_NEXT, IDB_ARROW_NEXT, 2},   {IDC_TX_LAST, IDB_ARROW_LAST, 3},
    {IDC_TX_ADD, IDB_BUTTON_ADD, -1},
};

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
    // Both leave the dialog's ground where a sign is white. MERGEPAINT makes its strokes light.
    const DWORD uRop = VIsDark(GetSysColor(COLOR_BTNFACE)) ? MERGEPAINT : SRCAND;
    for (int i = 0; i < nSigns; ++i) {
        const VSelectScope scope(picture, m_aSigns[i].GetHandle());
        surface.BitBlt(aSignPlaces[i].x, aSignPlaces[i].y, m_aSigns[i].GetWidth(),
                       m_aSigns[i].GetHeight(), picture, 0, 0, uRop);
    }
}

bool QMEntryPictures::SetButtons(VDialog& dialog, int nLibraryVersion)
{
    if (nLibraryVersion < VButtonPictures::nAlphaVersion) {
        // The text alone, on the side where it stands beside a picture, too.
        HWND hAdd = dialog.GetItem(IDC_TX_ADD);
        SetWindowLongPtrA(hAdd, GWL_STYLE, GetWindowLongPtrA(hAdd, GWL_STYLE) | BS_RIGHT);
    }
    return m_buttons.Set(dialog, aButtonPictures, IDB_ARROW_STRIP, nLibraryVersion);
}
