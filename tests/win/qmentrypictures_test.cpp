#include "entry/qmentrypictures.h"

#include <gtest/gtest.h>

#include <optional>

#include "resources/resource.h"
#include "tests/support/readability_win.h"
#include "tests/win/dialog_support.h"
#include "tests/win/support.h"
#include "toolkit/vdatepicker.h"
#include "toolkit/vdrawingsurface.h"

namespace {

constexpr int aArrows[] = {IDC_TX_FIRST, IDC_TX_PREVIOUS, IDC_TX_NEXT, IDC_TX_LAST};

// Only the template of the transaction dialog, with pictures for this version of the control
// library.
class PictureDialog : public VDialog
{
public:
    explicit PictureDialog(int nVersion) : m_nVersion(nVersion) {}

    bool OnInitDialog() override
    {
        EXPECT_TRUE(m_pictures.SetButtons(*this, m_nVersion));
        return VDialog::OnInitDialog();
    }

private:
    int m_nVersion;
    VDatePicker m_picker; // makes the class known
    QMEntryPictures m_pictures;
};

// The width of the picture on a button; 0 for none.
int PictureWidth(HWND hDialog, int nId)
{
    const auto hIcon =
        reinterpret_cast<HICON>(SendDlgItemMessageA(hDialog, nId, BM_GETIMAGE, IMAGE_ICON, 0));
    ICONINFO info = {};
    if (hIcon == nullptr || !GetIconInfo(hIcon, &info)) {
        return 0;
    }
    BITMAP bitmap = {};
    GetObjectA(info.hbmMask, sizeof bitmap, &bitmap);
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return bitmap.bmWidth;
}

LONG_PTR StyleOf(HWND hDialog, int nId)
{
    return GetWindowLongPtrA(GetDlgItem(hDialog, nId), GWL_STYLE);
}

// White paper in memory, as large as the dialog.
class Canvas
{
public:
    Canvas()
    {
        VClientSurface screen(nullptr);
        screen.CreateCompatible(m_surface);
        m_bitmap.Attach(CreateCompatibleBitmap(screen.GetHandle(), 492, 309));
        m_scope.emplace(m_surface, m_bitmap.GetHandle());
        m_surface.PatBlt(0, 0, 492, 309, WHITENESS);
    }

    VDrawingSurface m_surface;

private:
    VBitmap m_bitmap;
    std::optional<VSelectScope> m_scope;
};

} // namespace

TEST(QMEntryPictures, AllButtonsHaveThemFromVersion6On)
{
    for (const int nVersion : {6, 7}) {
        ModalDriver driver;
        driver.Next([](HWND hDialog) {
            for (const int nId : aArrows) {
                EXPECT_EQ(PictureWidth(hDialog, nId), 16) << "control " << nId;
            }
            EXPECT_EQ(PictureWidth(hDialog, IDC_TX_ADD), 16);
            EXPECT_EQ(StyleOf(hDialog, IDC_TX_ADD) & 512, 0);
            Press(hDialog, IDCANCEL);
        });
        PictureDialog dialog(nVersion);
        EXPECT_EQ(dialog.DoModal(nullptr, IDD_TRANSACTION), IDCANCEL);
    }
}

TEST(QMEntryPictures, ArrowsAloneHaveThemBeforeVersion6)
{
    for (const int nVersion : {0, 5}) {
        ModalDriver driver;
        driver.Next([](HWND hDialog) {
            for (const int nId : aArrows) {
                EXPECT_EQ(PictureWidth(hDialog, nId), 10) << "control " << nId;
            }
            EXPECT_EQ(PictureWidth(hDialog, IDC_TX_ADD), 0);
            EXPECT_EQ(StyleOf(hDialog, IDC_TX_ADD) & 512, 512);
            Press(hDialog, IDCANCEL);
        });
        PictureDialog dialog(nVersion);
        EXPECT_EQ(dialog.DoModal(nullptr, IDD_TRANSACTION), IDCANCEL);
    }
}

TEST(QMEntryPictures, TheLibrarySaysItsVersion)
{
    // Some systems have a library that can do what version 6 can and reports a lower version.
    EXPECT_GE(QMEntryPictures::GetLibraryVersion(), 5);
}

// Dark strokes could not be seen on a dialog's ground that is dark.
TEST(QMEntryPictures, SignsAreLightOnADarkGround)
{
    const ScopedDarkColors dark;
    QMEntryPictures pictures;
    ASSERT_TRUE(pictures.LoadSigns());
    Canvas canvas;
    canvas.m_surface.PatBlt(0, 0, 492, 309, BLACKNESS);
    pictures.DrawSigns(canvas.m_surface);
    const auto At = [&](int x, int y) { return GetPixel(canvas.m_surface.GetHandle(), x, y); };
    for (const POINT sign : {POINT{166, 206}, POINT{166, 226}, POINT{298, 211}, POINT{298, 237}}) {
        const VRect around = {sign.x - 6, sign.y - 6, sign.x + 18, sign.y + 18};
        EXPECT_EQ(GroundOf(At, around), 0U);
        EXPECT_GT(ContrastIn(At, around), fReadable) << "sign at " << sign.x << ", " << sign.y;
    }
}

TEST(QMEntryPictures, SignsAreDrawnAtTheirPlacesAndNowhereElse)
{
    constexpr struct
    {
        UINT uBitmap;
        int x;
        int y;
    } aSigns[] = {{1807, 166, 206}, {1808, 166, 226}, {1810, 298, 211}, {1809, 298, 237}};
    QMEntryPictures pictures;
    ASSERT_TRUE(pictures.LoadSigns());
    Canvas canvas;
    pictures.DrawSigns(canvas.m_surface);
    for (const auto& sign : aSigns) {
        VBitmap bitmap;
        ASSERT_TRUE(bitmap.Load(sign.uBitmap));
        EXPECT_EQ(bitmap.GetWidth(), 12);
        EXPECT_EQ(bitmap.GetHeight(), 12);
        VMemorySurface picture(canvas.m_surface);
        const VSelectScope scope(picture, bitmap.GetHandle());
        int nDark = 0;
        for (int y = 0; y < 12; ++y) {
            for (int x = 0; x < 12; ++x) {
                const COLORREF crSign = GetPixel(picture.GetHandle(), x, y);
                nDark += crSign != 0xFFFFFF;
                ASSERT_EQ(GetPixel(canvas.m_surface.GetHandle(), sign.x + x, sign.y + y), crSign)
                    << "bitmap " << sign.uBitmap << " at " << x << ", " << y;
            }
        }
        EXPECT_GT(nDark, 20) << "bitmap " << sign.uBitmap;
        canvas.m_surface.PatBlt(sign.x, sign.y, 12, 12, WHITENESS);
    }
    for (int y = 0; y < 309; ++y) {
        for (int x = 0; x < 492; ++x) {
            ASSERT_EQ(GetPixel(canvas.m_surface.GetHandle(), x, y), 0xFFFFFFU);
        }
    }
}
