// The dialogs of Windows for colour, font, print and page setup, behind the toolkit's classes.

#include <gtest/gtest.h>

#include <algorithm>

#include <windows.h>

#include <dlgs.h> // needs the former

#include "printing/vpagesetupdialog.h"
#include "printing/vprintdialog.h"
#include "tests/win/modaldriver.h"
#include "tests/win/support.h"
#include "toolkit/colordialog.h"
#include "toolkit/fontdialog.h"

namespace {

ModalDriver::Action Pressing(int nId)
{
    return [=](HWND hDialog) { Press(hDialog, nId); };
}

// Notes what it gives to Windows.
template <class TDialog, class TRecord>
class Watched : public TDialog
{
public:
    ~Watched() override { this->Detach(); }

    void OnBeforeShow(TRecord& record) override
    {
        m_shown = record;
        record.Flags |= m_uMoreFlags;
    }
    bool OnOK() override { return m_nRefusals-- <= 0; }

    TRecord m_shown = {};
    DWORD m_uMoreFlags = 0;
    int m_nRefusals = 0;
};

using WatchedColor = Watched<ColorDialog, CHOOSECOLORA>;
using WatchedFont = Watched<FontDialog, CHOOSEFONTA>;
using WatchedPrint = Watched<VPrintDialog, PRINTDLGA>;
using WatchedPageSetup = Watched<VPageSetupDialog, PAGESETUPDLGA>;

// ---- Ids in the colour dialog of Windows.

constexpr int nIdRed = 706;
constexpr int nIdGreen = 707;
constexpr int nIdBlue = 708;
constexpr int nIdAddCustom = 712;

void TypeColor(HWND hDialog, COLORREF cr)
{
    Type(hDialog, nIdRed, std::to_string(GetRValue(cr)).c_str());
    Type(hDialog, nIdGreen, std::to_string(GetGValue(cr)).c_str());
    Type(hDialog, nIdBlue, std::to_string(GetBValue(cr)).c_str());
}

int CALLBACK FoundFace(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM lFound)
{
    *reinterpret_cast<bool*>(lFound) = true;
    return 0;
}

bool HasFace(const char* szFace)
{
    LOGFONTA font = {};
    font.lfCharSet = DEFAULT_CHARSET;
    lstrcpynA(font.lfFaceName, szFace, LF_FACESIZE);
    bool bFound = false;
    HDC hDC = GetDC(nullptr);
    EnumFontFamiliesExA(hDC, &font, FoundFace, reinterpret_cast<LPARAM>(&bFound), 0);
    ReleaseDC(nullptr, hDC);
    return bFound;
}

// A font that this system has, and not the first one of its list.
const char* SomeFace()
{
    for (const char* szFace : {"Tahoma", "Liberation Sans", "DejaVu Sans"}) {
        if (HasFace(szFace)) {
            return szFace;
        }
    }
    ADD_FAILURE() << "none of the usual fonts is installed";
    return "";
}

LOGFONTA FontOf(int nHeight)
{
    LOGFONTA font = {};
    font.lfHeight = nHeight;
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = ANSI_CHARSET;
    lstrcpynA(font.lfFaceName, SomeFace(), LF_FACESIZE);
    return font;
}

// Memory as the dialogs of Windows pass it around.
class ScopedGlobal
{
public:
    explicit ScopedGlobal(size_t uSize) : m_hMemory(GlobalAlloc(GHND, uSize)) {}
    ScopedGlobal(const ScopedGlobal&) = delete;
    ScopedGlobal& operator=(const ScopedGlobal&) = delete;
    ~ScopedGlobal() { GlobalFree(m_hMemory); }

    HGLOBAL Get() const { return m_hMemory; }
    DEVMODEA Mode() const
    {
        DEVMODEA mode = {};
        const size_t uSize = GlobalSize(m_hMemory);
        memcpy(&mode, GlobalLock(m_hMemory), uSize < sizeof mode ? uSize : sizeof mode);
        GlobalUnlock(m_hMemory);
        return mode;
    }

private:
    HGLOBAL m_hMemory;
};

bool HasPrinter()
{
    PRINTDLGA record = {};
    record.lStructSize = sizeof record;
    record.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
    const bool bHas = PrintDlgA(&record) != FALSE;
    GlobalFree(record.hDevMode);
    GlobalFree(record.hDevNames);
    return bHas;
}

} // namespace

// ---- Fonts. They come first: once fonts were listed, the colour dialog keeps more objects of
// Windows, and the first run of the tests must see that.

TEST(FontDialog, GivesBackTheFontAndColorThatItStartedWith)
{
    const LOGFONTA font = FontOf(-16);
    WatchedFont dialog;
    dialog.SetColor(RGB(255, 0, 0));
    ModalDriver driver;
    driver.Next([&](HWND hDialog) {
        EXPECT_EQ(dialog.GetHandle(), hDialog);
        Press(hDialog, IDOK);
    });
    ASSERT_TRUE(dialog.Run(nullptr, &font, CF_SCREENFONTS | CF_EFFECTS));
    EXPECT_EQ(dialog.m_shown.Flags,
              DWORD{CF_SCREENFONTS | CF_EFFECTS | CF_ENABLEHOOK | CF_INITTOLOGFONTSTRUCT});
    EXPECT_STREQ(dialog.GetFont().lfFaceName, SomeFace());
    EXPECT_EQ(dialog.GetFont().lfHeight, -16);
    EXPECT_EQ(dialog.GetColor(), RGB(255, 0, 0));
    EXPECT_EQ(dialog.GetHandle(), nullptr);
}

TEST(FontDialog, TakesTheChosenSizeAndColor)
{
    FontDialog dialog;
    dialog.SetFont(FontOf(-16));
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        HWND hSizes = GetDlgItem(hDialog, cmb3);
        const auto lSize = SendMessageA(hSizes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                        reinterpret_cast<LPARAM>("24"));
        EXPECT_GE(lSize, 0);
        SendMessageA(hSizes, CB_SETCURSEL, static_cast<WPARAM>(lSize), 0);
        SendMessageA(hDialog, WM_COMMAND, MAKEWPARAM(cmb3, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(hSizes));
        HWND hColors = GetDlgItem(hDialog, cmb4);
        SendMessageA(hColors, CB_SETCURSEL, 1, 0);
        SendMessageA(hDialog, WM_COMMAND, MAKEWPARAM(cmb4, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(hColors));
        Press(hDialog, IDOK);
    });
    // Without a font, the dialog starts with the object's own.
    ASSERT_TRUE(dialog.Run(nullptr, nullptr, CF_SCREENFONTS | CF_EFFECTS));
    HDC hDC = GetDC(nullptr);
    EXPECT_EQ(dialog.GetFont().lfHeight, -MulDiv(24, GetDeviceCaps(hDC, LOGPIXELSY), 72));
    ReleaseDC(nullptr, hDC);
    EXPECT_STREQ(dialog.GetFont().lfFaceName, SomeFace());
    EXPECT_EQ(dialog.GetColor(), RGB(128, 0, 0)); // the second in the system's list
}

TEST(FontDialog, ACancelChangesNothing)
{
    const LOGFONTA other = FontOf(-40);
    FontDialog dialog;
    dialog.SetFont(FontOf(-16));
    dialog.SetColor(RGB(1, 2, 3));
    ModalDriver driver;
    driver.Next(Pressing(IDCANCEL));
    EXPECT_FALSE(dialog.Run(nullptr, &other));
    EXPECT_EQ(dialog.GetFont().lfHeight, -16);
    EXPECT_EQ(dialog.GetColor(), RGB(1, 2, 3));
}

// ---- Colours.

TEST(ColorDialog, StartsWithTheColorThatItIsGiven)
{
    WatchedColor dialog;
    ModalDriver driver;
    driver.Next([&](HWND hDialog) {
        EXPECT_EQ(dialog.GetHandle(), hDialog);
        EXPECT_EQ(VWindow::FromHandle(hDialog), &dialog);
        Press(hDialog, IDOK);
    });
    EXPECT_TRUE(dialog.Run(nullptr, RGB(0, 0, 255), CC_FULLOPEN));
    EXPECT_EQ(dialog.GetColor(), RGB(0, 0, 255));
    EXPECT_EQ(dialog.m_shown.Flags, DWORD{CC_RGBINIT | CC_ENABLEHOOK | CC_FULLOPEN});
    EXPECT_EQ(dialog.GetHandle(), nullptr);
    EXPECT_EQ(dialog.GetKind(), 36);
}

TEST(ColorDialog, ACancelKeepsTheColorChosenBefore)
{
    WatchedColor dialog;
    ModalDriver driver;
    driver.Next(Pressing(IDOK));
    ASSERT_TRUE(dialog.Run(nullptr, RGB(255, 0, 0)));
    driver.Next(Pressing(IDCANCEL));
    EXPECT_FALSE(dialog.Run(nullptr, RGB(0, 255, 0)));
    EXPECT_EQ(dialog.GetColor(), RGB(255, 0, 0));
}

TEST(ColorDialog, TheCloseBoxIsCancel)
{
    WatchedColor dialog;
    ModalDriver driver;
    driver.Next([](HWND hDialog) { PostMessageA(hDialog, WM_CLOSE, 0, 0); });
    EXPECT_FALSE(dialog.Run(nullptr, RGB(255, 0, 0)));
    EXPECT_EQ(dialog.GetHandle(), nullptr);
}

TEST(ColorDialog, TakesATypedColorAndCustomColorsLast)
{
    const COLORREF crTyped = RGB(10, 20, 30);
    WatchedColor first;
    ModalDriver driver;
    driver.Next([&](HWND hDialog) {
        TypeColor(hDialog, crTyped);
        SendMessageA(hDialog, WM_COMMAND, nIdAddCustom, 0);
        Press(hDialog, IDOK);
    });
    ASSERT_TRUE(first.Run(nullptr, RGB(255, 0, 0), CC_FULLOPEN));
    EXPECT_EQ(first.GetColor(), crTyped);

    WatchedColor second;
    driver.Next(Pressing(IDCANCEL));
    second.Run(nullptr, 0, CC_FULLOPEN);
    const COLORREF* pCustom = second.m_shown.lpCustColors;
    EXPECT_NE(std::find(pCustom, pCustom + 16, crTyped), pCustom + 16);
    EXPECT_EQ(pCustom, first.m_shown.lpCustColors);
}

TEST(ColorDialog, AnObjectThatRefusesKeepsTheDialogOpen)
{
    WatchedColor dialog;
    dialog.m_nRefusals = 1;
    ModalDriver driver;
    driver.Next(Pressing(IDOK));
    driver.When([&](HWND) { return dialog.m_nRefusals == 0; }, Pressing(IDOK));
    EXPECT_TRUE(dialog.Run(nullptr, RGB(255, 0, 0)));
}

// ---- Print: what Windows is asked, and what it returns.

TEST(VPrintDialog, AsksWithItsValues)
{
    WatchedPrint dialog;
    dialog.m_uMoreFlags = PD_RETURNDEFAULT | PD_NOWARNING; // nothing is shown
    dialog.SetPages(2, 5);
    dialog.SetPageLimits(1, 9);
    dialog.SetCopies(3);
    dialog.SetCollated(false);
    dialog.Run(nullptr, PD_RETURNDC | PD_NOSELECTION);
    const PRINTDLGA& shown = dialog.m_shown;
    EXPECT_EQ(shown.Flags, DWORD{PD_RETURNDC | PD_NOSELECTION | PD_ENABLEPRINTHOOK});
    EXPECT_EQ(shown.nFromPage, 2);
    EXPECT_EQ(shown.nToPage, 5);
    EXPECT_EQ(shown.nMinPage, 1);
    EXPECT_EQ(shown.nMaxPage, 9);
    EXPECT_EQ(shown.nCopies, 3);
    GlobalFree(dialog.GetDeviceMode());
    GlobalFree(dialog.GetDeviceNames());
}

TEST(VPrintDialog, StartsWithOnePageAndOneCollatedCopy)
{
    WatchedPrint dialog;
    dialog.m_uMoreFlags = PD_RETURNDEFAULT | PD_NOWARNING;
    dialog.Run(nullptr, 0, true);
    const PRINTDLGA& shown = dialog.m_shown;
    EXPECT_EQ(shown.Flags, DWORD{PD_PRINTSETUP | PD_ENABLESETUPHOOK | PD_COLLATE});
    EXPECT_EQ(shown.nFromPage, 1);
    EXPECT_EQ(shown.nToPage, 1);
    EXPECT_EQ(shown.nMinPage, 1);
    EXPECT_EQ(shown.nMaxPage, 1);
    EXPECT_EQ(shown.nCopies, 1);
    GlobalFree(dialog.GetDeviceMode());
    GlobalFree(dialog.GetDeviceNames());
}

TEST(VPrintDialog, CopiesGoThroughTheDeviceMode)
{
    const ScopedGlobal mode(sizeof(DEVMODEA));
    const ScopedGlobal names(sizeof(DEVNAMES));
    WatchedPrint dialog;
    dialog.m_uMoreFlags = PD_RETURNDEFAULT | PD_NOWARNING; // fails with handles of its own
    dialog.SetDevice(mode.Get(), names.Get());
    dialog.SetCopies(4);
    dialog.SetCollated(true);
    EXPECT_FALSE(dialog.Run(nullptr, 0));
    EXPECT_EQ(dialog.m_shown.Flags & PD_USEDEVMODECOPIESANDCOLLATE,
              DWORD{PD_USEDEVMODECOPIESANDCOLLATE});
    EXPECT_EQ(mode.Mode().dmCopies, 4);
    EXPECT_EQ(mode.Mode().dmCollate, DMCOLLATE_TRUE);
    EXPECT_EQ(dialog.GetDeviceMode(), mode.Get());
    EXPECT_EQ(dialog.GetDeviceNames(), names.Get());
}

TEST(VPrintDialog, LeavesADeviceModeAloneThatIsTooShort)
{
    const ScopedGlobal mode(16);
    WatchedPrint dialog;
    dialog.m_uMoreFlags = PD_RETURNDEFAULT | PD_NOWARNING;
    dialog.SetDevice(mode.Get(), nullptr);
    dialog.SetCopies(4);
    EXPECT_FALSE(dialog.Run(nullptr, 0));
    EXPECT_EQ(dialog.m_shown.Flags & PD_USEDEVMODECOPIESANDCOLLATE, 0U);
}

TEST(VPrintDialog, WithoutAPrinterFailsAndChangesNothing)
{
    if (HasPrinter()) {
        GTEST_SKIP() << "this test needs a system without a printer";
    }
    VPrintDialog dialog;
    dialog.SetPages(2, 5);
    EXPECT_FALSE(dialog.Run(nullptr, PD_RETURNDEFAULT | PD_RETURNDC | PD_NOWARNING));
    EXPECT_EQ(dialog.GetDeviceMode(), nullptr);
    EXPECT_EQ(dialog.GetDeviceNames(), nullptr);
    EXPECT_EQ(dialog.GetSurface().GetHandle(), nullptr);
    EXPECT_EQ(dialog.GetFirstPage(), 2);
    EXPECT_EQ(dialog.GetLastPage(), 5);
}

TEST(VPrintDialog, TakesTheDefaultPrinterAndItsSurface)
{
    if (!HasPrinter()) {
        GTEST_SKIP() << "this test needs a printer";
    }
    VPrintDialog dialog;
    ASSERT_TRUE(dialog.Run(nullptr, PD_RETURNDEFAULT | PD_RETURNDC | PD_NOWARNING));
    EXPECT_NE(dialog.GetDeviceMode(), nullptr);
    EXPECT_NE(dialog.GetDeviceNames(), nullptr);
    EXPECT_NE(dialog.GetSurface().GetHandle(), nullptr);
    GlobalFree(dialog.GetDeviceMode());
    GlobalFree(dialog.GetDeviceNames());
}

TEST(VPrintDialog, IsBoundWhileTheDialogIsUp)
{
    if (!HasPrinter()) {
        GTEST_SKIP() << "this test needs a printer";
    }
    VPrintDialog dialog;
    dialog.SetPageLimits(1, 9);
    dialog.SetPages(1, 9);
    ModalDriver driver;
    driver.Next([&](HWND hDialog) {
        EXPECT_EQ(dialog.GetHandle(), hDialog);
        Press(hDialog, IDCANCEL);
    });
    EXPECT_FALSE(dialog.Run(nullptr, PD_RETURNDC));
    EXPECT_EQ(dialog.GetHandle(), nullptr);
    driver.Next(Pressing(IDOK));
    EXPECT_TRUE(dialog.Run(nullptr, PD_RETURNDC));
    EXPECT_EQ(dialog.GetLastPage(), 9);
    GlobalFree(dialog.GetDeviceMode());
    GlobalFree(dialog.GetDeviceNames());
}

// ---- Page setup.

TEST(VPageSetupDialog, AsksWithTheMarginsThatAreSet)
{
    const VRect rcNone;
    const VRect rcUser = {750, 760, 770, 780};
    const VRect rcLeast = {0, 0, 0, 100}; // one side is enough to be set
    const struct
    {
        VRect rcMargins;
        VRect rcMinMargins;
        DWORD uFlags;
    } tests[] = {
        {rcNone, rcNone, 0},
        {rcUser, rcNone, PSD_MARGINS},
        {rcNone, rcLeast, PSD_MINMARGINS},
        {rcUser, rcLeast, PSD_MARGINS | PSD_MINMARGINS},
    };
    for (const auto& test : tests) {
        WatchedPageSetup dialog;
        dialog.m_uMoreFlags = PSD_RETURNDEFAULT | PSD_NOWARNING; // nothing is shown
        dialog.SetMargins(test.rcMargins);
        dialog.SetMinMargins(test.rcMinMargins);
        dialog.Run(nullptr, PSD_INTHOUSANDTHSOFINCHES);
        const PAGESETUPDLGA& shown = dialog.m_shown;
        EXPECT_EQ(shown.Flags, test.uFlags | PSD_INTHOUSANDTHSOFINCHES | PSD_ENABLEPAGESETUPHOOK);
        EXPECT_EQ(shown.rtMargin.left, test.rcMargins.left);
        EXPECT_EQ(shown.rtMargin.top, test.rcMargins.top);
        EXPECT_EQ(shown.rtMargin.right, test.rcMargins.right);
        EXPECT_EQ(shown.rtMargin.bottom, test.rcMargins.bottom);
        EXPECT_EQ(shown.rtMinMargin.bottom, test.rcMinMargins.bottom);
        GlobalFree(dialog.GetDeviceMode());
        GlobalFree(dialog.GetDeviceNames());
    }
}

TEST(VPageSetupDialog, WithoutAPrinterFailsAndChangesNothing)
{
    if (HasPrinter()) {
        GTEST_SKIP() << "this test needs a system without a printer";
    }
    VPageSetupDialog dialog;
    const VRect rcUser = {750, 750, 750, 750};
    dialog.SetMargins(rcUser);
    EXPECT_FALSE(
        dialog.Run(nullptr, PSD_RETURNDEFAULT | PSD_NOWARNING | PSD_INTHOUSANDTHSOFINCHES));
    EXPECT_EQ(dialog.GetMargins(), rcUser);
    EXPECT_EQ(dialog.GetMinMargins(), VRect());
    EXPECT_EQ(dialog.GetPaperSize().cx, 0);
    EXPECT_EQ(dialog.GetDeviceMode(), nullptr);
}

TEST(VPageSetupDialog, GivesBackMarginsAndPaper)
{
    if (!HasPrinter()) {
        GTEST_SKIP() << "this test needs a printer";
    }
    VPageSetupDialog dialog;
    const VRect rcUser = {750, 760, 770, 780};
    dialog.SetMargins(rcUser);
    ModalDriver driver;
    driver.Next([&](HWND hDialog) {
        EXPECT_EQ(dialog.GetHandle(), hDialog);
        Press(hDialog, IDOK);
    });
    ASSERT_TRUE(dialog.Run(nullptr, PSD_INTHOUSANDTHSOFINCHES));
    EXPECT_EQ(dialog.GetHandle(), nullptr);
    EXPECT_EQ(dialog.GetMargins(), rcUser);
    EXPECT_GT(dialog.GetPaperSize().cx, 0);
    EXPECT_NE(dialog.GetDeviceMode(), nullptr);
    GlobalFree(dialog.GetDeviceMode());
    GlobalFree(dialog.GetDeviceNames());
}
