// The sheet "Options" and its three pages, driven by their controls.

#include "tools/qmoptionspages.h"

#include <gtest/gtest.h>

#include "base/vtext.h"
#include "resources/resource.h"
#include "tests/win/dialog_support.h"
#include "tests/win/support.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vpropertysheet.h"

namespace {

constexpr int g_nIdRed = 706; // of the system's colour dialog

class QMOptionsPagesTest : public testing::Test
{
protected:
    explicit QMOptionsPagesTest(uint32_t uGeneral = 11) : m_general(uGeneral) {}

    bool Run()
    {
        VTabbedSheet sheet;
        EXPECT_TRUE(sheet.AddPage(m_general, IDD_GENERAL_OPTIONS));
        EXPECT_TRUE(sheet.AddPage(m_printing, IDD_PRINTING_OPTIONS));
        EXPECT_TRUE(sheet.AddPage(m_display, IDD_DISPLAY_OPTIONS));
        EXPECT_TRUE(sheet.Run(nullptr, "Options", "", 0, PSH_NOAPPLYNOW));
        return sheet.IsOK();
    }

    void GiveFont()
    {
        LOGFONTA font = {};
        font.lfHeight = -13;
        VCopyText(font.lfFaceName, "Tahoma");
        m_display.SetFont(font, 0x112233);
    }

    // The colour that a swatch shows.
    COLORREF ColorOf(int nSwatch) const
    {
        const VRect area = {4, 4, 20, 10};
        VClientSurface surface(m_display.GetItem(nSwatch));
        return GetPixel(surface.GetHandle(), area.left, area.top);
    }

    QMGeneralOptionsPage m_general;
    QMPrintingOptionsPage m_printing{3};
    QMDisplayOptionsPage m_display{0x85AD4B, 0x2842C9};
    ModalDriver m_driver;
};

// With bits that have no box.
class QMOddOptionsTest : public QMOptionsPagesTest
{
protected:
    QMOddOptionsTest() : QMOptionsPagesTest(0xFFFFFFF0) {}
};

} // namespace

// Kept: "Spash" and "Negitive" are misspelled.
TEST_F(QMOptionsPagesTest, ShowWhatIsSet)
{
    m_driver.Next([&](HWND hSheet) {
        EXPECT_EQ(Text(VWindow::WindowText(hSheet)), "Options");
        HWND hPage = m_general.GetHandle();
        EXPECT_EQ(TabOrder(hPage),
                  (Texts{"1212 Reload Last File", "1211 Confirm Remove Transaction",
                         "1213 Show Spash Screen", "1001 Include Uncleared Transactions In Balance",
                         "1002 Sort Edit Lists Alphabetically", "1912 Defaults..."}));
        EXPECT_EQ(LayoutFaults(hPage), Texts());
        EXPECT_TRUE(IsOn(hPage, IDC_OPTION_RELOAD));
        EXPECT_TRUE(IsOn(hPage, IDC_OPTION_CONFIRM));
        EXPECT_FALSE(IsOn(hPage, IDC_OPTION_SPLASH));
        EXPECT_TRUE(IsOn(hPage, IDC_OPTION_UNCLEARED));
        EXPECT_FALSE(IsOn(hPage, IDC_OPTION_SORT));
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        hPage = m_printing.GetHandle();
        EXPECT_EQ(TabOrder(hPage), (Texts{"1214 Page Numbers", "1215 Bank Name",
                                          "1216 Account Holder Name", "1912 Defaults..."}));
        EXPECT_EQ(LayoutFaults(hPage), Texts());
        EXPECT_TRUE(IsOn(hPage, IDC_OPTION_PAGENUMBERS));
        EXPECT_FALSE(IsOn(hPage, IDC_OPTION_HOLDERNAME));
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        hPage = m_display.GetHandle();
        EXPECT_EQ(TabOrder(hPage), (Texts{"1210 ", "1911 Select", "1217 ", "1916 Select", "1218 ",
                                          "1917 Select", "1912 Defaults..."}));
        EXPECT_NE(FindWindowExA(hPage, nullptr, "Static", "Negitive Balance Text Color:"), nullptr);
        EXPECT_EQ(LayoutFaults(hPage), Texts());
        EXPECT_EQ(NamelessControls(hPage), Texts());
        Press(hSheet, IDCANCEL);
    });
    EXPECT_FALSE(Run());
}

TEST_F(QMOptionsPagesTest, TakeOverTheBoxes)
{
    m_driver.Next([&](HWND hSheet) {
        Click(m_general.GetHandle(), IDC_OPTION_RELOAD);
        Click(m_general.GetHandle(), IDC_OPTION_SORT);
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        Click(m_printing.GetHandle(), IDC_OPTION_PAGENUMBERS);
        Click(m_printing.GetHandle(), IDC_OPTION_HOLDERNAME);
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_general.GetFlags(), 2U | 8U | 16U);
    EXPECT_EQ(m_printing.GetFlags(), 2U | 4U);
}

TEST_F(QMOptionsPagesTest, SetTheDefaultsOfEachPage)
{
    m_driver.Next([&](HWND hSheet) {
        Click(m_general.GetHandle(), IDC_OPTION_SORT);
        Click(m_general.GetHandle(), IDC_OPTION_DEFAULTS);
        EXPECT_TRUE(IsOn(m_general.GetHandle(), IDC_OPTION_SPLASH));
        EXPECT_FALSE(IsOn(m_general.GetHandle(), IDC_OPTION_SORT));
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        Click(m_printing.GetHandle(), IDC_OPTION_BANKNAME);
        Click(m_printing.GetHandle(), IDC_OPTION_DEFAULTS);
        EXPECT_TRUE(IsOn(m_printing.GetHandle(), IDC_OPTION_BANKNAME));
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_general.GetFlags(), 15U);
    EXPECT_EQ(m_printing.GetFlags(), 3U);
}

TEST_F(QMOddOptionsTest, LeaveBitsWithoutABox)
{
    m_driver.Next([&](HWND hSheet) {
        EXPECT_FALSE(IsOn(m_general.GetHandle(), IDC_OPTION_RELOAD));
        EXPECT_TRUE(IsOn(m_general.GetHandle(), IDC_OPTION_SORT));
        Click(m_general.GetHandle(), IDC_OPTION_RELOAD);
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_general.GetFlags(), 0xFFFFFFF1);
}

TEST_F(QMOptionsPagesTest, OfferNoFontWithoutARegister)
{
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        EXPECT_EQ(ItemText(m_display.GetHandle(), IDC_OPTION_FONT), "");
        EXPECT_FALSE(IsEnabled(m_display.GetHandle(), IDC_OPTION_SELECTFONT));
        Click(m_display.GetHandle(), IDC_OPTION_DEFAULTS);
        EXPECT_EQ(ItemText(m_display.GetHandle(), IDC_OPTION_FONT), "");
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
}

TEST_F(QMOptionsPagesTest, ShowTheFontOfTheRegister)
{
    GiveFont();
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        EXPECT_EQ(ItemText(m_display.GetHandle(), IDC_OPTION_FONT), "Tahoma");
        EXPECT_TRUE(IsEnabled(m_display.GetHandle(), IDC_OPTION_SELECTFONT));
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_STREQ(m_display.GetFont().lfFaceName, "Tahoma");
    EXPECT_EQ(m_display.GetFontColor(), 0x112233U);
}

TEST_F(QMOptionsPagesTest, SetFontAndColorsByDefaultsAtOnce)
{
    GiveFont();
    QMDisplayOptionsPage& display = m_display;
    LOGFONTA system = {};
    GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof system, &system);
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        Press(m_display.GetHandle(), IDC_OPTION_SELECTPOSITIVE);
    });
    m_driver.Next([](HWND hColors) {
        Type(hColors, g_nIdRed, "255");
        Press(hColors, IDOK);
    });
    m_driver.Again([&](HWND hSheet) {
        EXPECT_EQ(display.GetPositive(), 0x85ADFFU);
        Click(display.GetHandle(), IDC_OPTION_DEFAULTS);
        EXPECT_EQ(display.GetPositive(), 0x85AD4BU);
        EXPECT_EQ(ItemText(display.GetHandle(), IDC_OPTION_FONT), system.lfFaceName);
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_display.GetFontColor(), 0U);
    EXPECT_EQ(m_display.GetNegative(), 0x2842C9U);
    EXPECT_EQ(m_display.GetFont().lfHeight, system.lfHeight);
}

TEST_F(QMOptionsPagesTest, ChooseAColorAndShowIt)
{
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        Press(m_display.GetHandle(), IDC_OPTION_SELECTNEGATIVE);
    });
    m_driver.Next([](HWND hColors) {
        EXPECT_EQ(ItemText(hColors, g_nIdRed), "201");
        Type(hColors, g_nIdRed, "17");
        Press(hColors, IDOK);
    });
    m_driver.Again([&](HWND hSheet) {
        UpdateWindow(m_display.GetItem(IDC_OPTION_NEGATIVE));
        EXPECT_EQ(ColorOf(IDC_OPTION_NEGATIVE), 0x284211U);
        EXPECT_EQ(ColorOf(IDC_OPTION_POSITIVE), 0x85AD4BU);
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_display.GetNegative(), 0x284211U);
    EXPECT_EQ(m_display.GetPositive(), 0x85AD4BU);
}

TEST_F(QMOptionsPagesTest, KeepAColorWhereTheChoiceIsCancelled)
{
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        Press(m_display.GetHandle(), IDC_OPTION_SELECTPOSITIVE);
    });
    m_driver.Next([](HWND hColors) { Press(hColors, IDCANCEL); });
    m_driver.Again([](HWND hSheet) { Press(hSheet, IDOK); });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_display.GetPositive(), 0x85AD4BU);
}

TEST_F(QMOptionsPagesTest, ChooseAFont)
{
    GiveFont();
    constexpr int nIdFace = 0x470; // the list of faces in the system's dialog
    std::string sChosen;
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        Press(m_display.GetHandle(), IDC_OPTION_SELECTFONT);
    });
    m_driver.Next([&](HWND hFonts) {
        HWND hFaces = GetDlgItem(hFonts, nIdFace);
        SendMessageA(hFaces, CB_SETCURSEL, 0, 0);
        SendMessageA(hFonts, WM_COMMAND, MAKEWPARAM(nIdFace, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(hFaces));
        char szFace[64] = "";
        SendMessageA(hFaces, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(szFace));
        sChosen = szFace;
        Press(hFonts, IDOK);
    });
    m_driver.Again([&](HWND hSheet) {
        EXPECT_EQ(ItemText(m_display.GetHandle(), IDC_OPTION_FONT), sChosen);
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_display.GetFont().lfFaceName, sChosen);
    EXPECT_NE(sChosen, "");
}
