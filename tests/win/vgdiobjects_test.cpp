#include "toolkit/vgdiobjects.h"

#include <gtest/gtest.h>

#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vimagelist.h"

namespace {

LOGFONTA FontRecord(const VFont& font)
{
    LOGFONTA record = {};
    GetObjectA(font.GetHandle(), sizeof record, &record);
    return record;
}

// A memory device context with its first bitmap, of one pixel.
class Device
{
public:
    Device() { m_surface.Attach(CreateCompatibleDC(nullptr), true); }

    HGDIOBJ Selected(UINT uType) const { return GetCurrentObject(m_surface.GetHandle(), uType); }

    VDrawingSurface m_surface;
};

} // namespace

TEST(VGdiObjects, PensAndBrushesHaveWhatTheyWereMadeOf)
{
    const VPen pen(PS_DASH, 1, RGB(1, 2, 3));
    LOGPEN penRecord = {};
    GetObjectA(pen.GetHandle(), sizeof penRecord, &penRecord);
    EXPECT_EQ(penRecord.lopnStyle, static_cast<UINT>(PS_DASH));
    EXPECT_EQ(penRecord.lopnWidth.x, 1);
    EXPECT_EQ(penRecord.lopnColor, RGB(1, 2, 3));
    const VBrush brush(RGB(4, 5, 6));
    LOGBRUSH brushRecord = {};
    GetObjectA(brush.GetHandle(), sizeof brushRecord, &brushRecord);
    EXPECT_EQ(brushRecord.lbStyle, static_cast<UINT>(BS_SOLID));
    EXPECT_EQ(brushRecord.lbColor, RGB(4, 5, 6));
}

TEST(VGdiObjects, MakingAnewDeletesTheFormer)
{
    VBrush brush(RGB(4, 5, 6));
    HBRUSH hFormer = brush.GetHandle();
    EXPECT_TRUE(brush.Create(RGB(7, 8, 9)));
    EXPECT_EQ(GetObjectType(hFormer), 0U);
    HBRUSH hLast = brush.GetHandle();
    EXPECT_FALSE(brush.Attach(nullptr));
    EXPECT_EQ(GetObjectType(hLast), 0U);
    EXPECT_EQ(brush.GetHandle(), nullptr);
}

TEST(VGdiObjects, DeleteTheirHandleAtTheirEnd)
{
    HGDIOBJ ahGone[3];
    {
        const VPen pen(PS_SOLID, 1, 0);
        const VBrush brush(RGB(1, 1, 1));
        VFont font;
        ASSERT_TRUE(CreatePointFont(font, "Arial", 10, 0));
        ahGone[0] = pen.GetHandle();
        ahGone[1] = brush.GetHandle();
        ahGone[2] = font.GetHandle();
    }
    for (HGDIOBJ hGone : ahGone) {
        EXPECT_EQ(GetObjectType(hGone), 0U);
    }
}

TEST(VBitmap, KnowsItsSize)
{
    VBitmap bitmap;
    EXPECT_EQ(bitmap.GetWidth(), 0);
    EXPECT_TRUE(bitmap.Attach(CreateBitmap(17, 5, 1, 1, nullptr)));
    EXPECT_EQ(bitmap.GetWidth(), 17);
    EXPECT_EQ(bitmap.GetHeight(), 5);
    EXPECT_FALSE(bitmap.Attach(nullptr));
    EXPECT_EQ(bitmap.GetWidth(), 0);
    EXPECT_EQ(bitmap.GetHeight(), 0);
}

TEST(VBitmap, HasNoSizeOnceItsHandleIsGone)
{
    VBitmap bitmap;
    ASSERT_TRUE(bitmap.Attach(CreateBitmap(17, 5, 1, 1, nullptr)));
    bitmap.Destroy();
    EXPECT_EQ(bitmap.GetHandle(), nullptr);
    EXPECT_EQ(bitmap.GetWidth(), 0);
    EXPECT_EQ(bitmap.GetHeight(), 0);

    HBITMAP hBitmap = CreateBitmap(17, 5, 1, 1, nullptr);
    ASSERT_TRUE(bitmap.Attach(hBitmap));
    EXPECT_EQ(bitmap.Release(), hBitmap);
    EXPECT_EQ(bitmap.GetHandle(), nullptr);
    EXPECT_EQ(bitmap.GetWidth(), 0);
    EXPECT_EQ(bitmap.GetHeight(), 0);
    EXPECT_TRUE(DeleteObject(hBitmap)) << "after Release the bitmap belongs to the caller";
}

TEST(VBitmap, LoadsFromTheResources)
{
    VBitmap bitmap;
    ASSERT_TRUE(bitmap.Load(IDB_TEST));
    EXPECT_EQ(bitmap.GetWidth(), 32);
    EXPECT_EQ(bitmap.GetHeight(), 16);
    Device device;
    const VSelectScope scope(device.m_surface, bitmap.GetHandle());
    EXPECT_EQ(GetPixel(device.m_surface.GetHandle(), 15, 8), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(device.m_surface.GetHandle(), 16, 8), RGB(0, 0, 255));
    VBitmap missing;
    EXPECT_FALSE(missing.Load(999));
}

TEST(VSelectScope, PutsBackWhatItDisplaced)
{
    Device device;
    const VPen pen(PS_SOLID, 1, RGB(1, 2, 3));
    const VBrush brush(RGB(1, 2, 3));
    HGDIOBJ hPen = device.Selected(OBJ_PEN);
    HGDIOBJ hBrush = device.Selected(OBJ_BRUSH);
    {
        const VSelectScope penScope(device.m_surface, pen.GetHandle());
        EXPECT_EQ(device.Selected(OBJ_PEN), pen.GetHandle());
        {
            const VSelectScope brushScope(device.m_surface, brush.GetHandle());
            EXPECT_EQ(device.Selected(OBJ_BRUSH), brush.GetHandle());
        }
        EXPECT_EQ(device.Selected(OBJ_BRUSH), hBrush);
        EXPECT_EQ(device.Selected(OBJ_PEN), pen.GetHandle());
    }
    EXPECT_EQ(device.Selected(OBJ_PEN), hPen);
}

TEST(VSelectScope, IgnoresWhatIsNoObject)
{
    Device device;
    HGDIOBJ hPen = device.Selected(OBJ_PEN);
    HGDIOBJ hDeleted = CreatePen(PS_SOLID, 1, 5);
    DeleteObject(hDeleted);
    for (HGDIOBJ hInvalid : {static_cast<HGDIOBJ>(nullptr), hDeleted}) {
        const VSelectScope scope(device.m_surface, hInvalid);
        EXPECT_EQ(device.Selected(OBJ_PEN), hPen);
    }
    EXPECT_EQ(device.Selected(OBJ_PEN), hPen);
}

TEST(VSelectScope, LeavesTheObjectWhereTheDisplacedOneIsGone)
{
    Device device;
    const VPen pen(PS_SOLID, 1, RGB(1, 2, 3));
    HGDIOBJ hStock = device.Selected(OBJ_PEN);
    HGDIOBJ hShort = CreatePen(PS_SOLID, 1, 5);
    SelectObject(device.m_surface.GetHandle(), hShort);
    {
        const VSelectScope scope(device.m_surface, pen.GetHandle());
        DeleteObject(hShort);
    }
    EXPECT_EQ(device.Selected(OBJ_PEN), pen.GetHandle());
    SelectObject(device.m_surface.GetHandle(), hStock);
}

TEST(CreatePointFont, MakesTheHeightOfCharactersOnTheDisplay)
{
    const int nDotsPerInch = VDisplayDotsPerInch();
    ASSERT_GT(nDotsPerInch, 0);
    for (const int nPoints : {6, 8, 9, 10, 12, 24, 72}) {
        VFont font;
        ASSERT_TRUE(CreatePointFont(font, "Arial", nPoints, 0));
        const LOGFONTA record = FontRecord(font);
        EXPECT_EQ(record.lfHeight, -MulDiv(nPoints, nDotsPerInch, 72)) << "points " << nPoints;
        EXPECT_EQ(record.lfWidth, 0);
        EXPECT_EQ(record.lfEscapement, 0);
        EXPECT_EQ(record.lfOrientation, 0);
        EXPECT_EQ(record.lfCharSet, 1);
        EXPECT_EQ(record.lfOutPrecision, 0);
        EXPECT_EQ(record.lfClipPrecision, 0);
        EXPECT_EQ(record.lfQuality, 0);
        EXPECT_EQ(record.lfPitchAndFamily, 0);
        EXPECT_STREQ(record.lfFaceName, "Arial");
    }
}

TEST(CreatePointFont, FollowsTheBitsOfTheStyle)
{
    for (unsigned uStyle = 0; uStyle < 32; ++uStyle) {
        VFont font;
        ASSERT_TRUE(CreatePointFont(font, "Times New Roman", 10, uStyle));
        const LOGFONTA record = FontRecord(font);
        EXPECT_EQ(record.lfWeight, (uStyle & 1) != 0 ? 700 : 0) << "style " << uStyle;
        EXPECT_EQ(record.lfItalic != 0, (uStyle & 2) != 0) << "style " << uStyle;
        EXPECT_EQ(record.lfUnderline != 0, (uStyle & 4) != 0) << "style " << uStyle;
        EXPECT_EQ(record.lfStrikeOut != 0, (uStyle & 8) != 0) << "style " << uStyle;
    }
}

TEST(CreatePointFont, AWeightGoesBeforeTheStyle)
{
    for (const int nWeight : {100, 400, 900}) {
        VFont font;
        ASSERT_TRUE(CreatePointFont(font, "Courier New", 10, V_FONT_BOLD, nWeight));
        EXPECT_EQ(FontRecord(font).lfWeight, nWeight);
    }
}

TEST(CreatePointFont, NeedsAFace)
{
    VFont font;
    EXPECT_FALSE(CreatePointFont(font, nullptr, 10, 0));
    EXPECT_EQ(font.GetHandle(), nullptr);
}

TEST(CreatePointFont, CutsALongFaceAndReplacesTheFormerFont)
{
    VFont font;
    ASSERT_TRUE(CreatePointFont(font, "Arial", 10, 0));
    HFONT hFormer = font.GetHandle();
    ASSERT_TRUE(CreatePointFont(font, "A face name of more than thirty-one characters", 10, 0));
    EXPECT_EQ(GetObjectType(hFormer), 0U);
    EXPECT_STREQ(FontRecord(font).lfFaceName, "A face name of more than thirty");
}

TEST(VImageList, WithoutAListAnswersSo)
{
    VImageList list;
    int cx = 3;
    int cy = 4;
    Device device;
    EXPECT_EQ(list.GetImageCount(), 0);
    EXPECT_FALSE(list.GetIconSize(cx, cy));
    EXPECT_EQ(list.Add(nullptr), -1);
    EXPECT_FALSE(list.Draw(0, device.m_surface, 0, 0));
    list.Destroy();
}

TEST(VImageList, HoldsTheImagesOfABitmap)
{
    VImageList list;
    ASSERT_TRUE(list.Create(16, 16, 2, 2, ILC_COLOR24));
    VBitmap bitmap;
    ASSERT_TRUE(bitmap.Load(IDB_TEST));
    EXPECT_EQ(list.Add(bitmap.GetHandle()), 0);
    EXPECT_EQ(list.GetImageCount(), 2);
    EXPECT_EQ(list.Add(bitmap.GetHandle()), 2);
    EXPECT_EQ(list.GetImageCount(), 4);
    EXPECT_EQ(list.Add(nullptr), -1);
    int cx = 0;
    int cy = 0;
    EXPECT_TRUE(list.GetIconSize(cx, cy));
    EXPECT_EQ(cx, 16);
    EXPECT_EQ(cy, 16);
    EXPECT_EQ(GetObjectType(bitmap.GetHandle()), static_cast<DWORD>(OBJ_BITMAP));
}

TEST(VImageList, DrawsAnImage)
{
    VImageList list;
    ASSERT_TRUE(list.Create(16, 16, 2, 2, ILC_COLOR24));
    VBitmap images;
    ASSERT_TRUE(images.Load(IDB_TEST));
    ASSERT_EQ(list.Add(images.GetHandle()), 0);
    VBitmap paper;
    ASSERT_TRUE(paper.Load(IDB_TEST));
    Device device;
    const VSelectScope scope(device.m_surface, paper.GetHandle());
    device.m_surface.PatBlt(0, 0, 32, 16, WHITENESS);
    EXPECT_TRUE(list.Draw(1, device.m_surface, 10, 0));
    HDC hDC = device.m_surface.GetHandle();
    EXPECT_EQ(GetPixel(hDC, 9, 5), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(hDC, 10, 5), RGB(0, 0, 255));
    EXPECT_EQ(GetPixel(hDC, 25, 5), RGB(0, 0, 255));
    EXPECT_EQ(GetPixel(hDC, 26, 5), RGB(255, 255, 255));
    EXPECT_FALSE(list.Draw(7, device.m_surface, 0, 0));
}

TEST(VImageList, MakingAnewDestroysTheFormer)
{
    VImageList list;
    ASSERT_TRUE(list.Create(16, 16, 2, 2, ILC_COLOR24));
    ASSERT_TRUE(list.Create(8, 9, 1, 1, ILC_COLOR24));
    int cx = 0;
    int cy = 0;
    EXPECT_TRUE(list.GetIconSize(cx, cy));
    EXPECT_EQ(cx, 8);
    EXPECT_EQ(cy, 9);
    EXPECT_EQ(list.GetImageCount(), 0);
    EXPECT_FALSE(list.Create(0, -1, 1, 1, ILC_COLOR24));
    EXPECT_EQ(list.GetHandle(), nullptr);
    list.Destroy();
    EXPECT_EQ(list.GetHandle(), nullptr);
}
