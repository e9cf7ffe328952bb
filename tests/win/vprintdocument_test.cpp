// The print document, with the tests' own printer.

#include "printing/vprintdocument.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <dlgs.h> // needs the former

#include "printing/vprintprogressdialog.h"
#include "resources/resource.h"
#include "shell/qmprinting.h"
#include "tests/win/dialog_support.h"
#include "tests/win/printer_support.h"
#include "tests/win/support.h"

namespace {

struct Client
{
    std::string sTitle;
    int nPages = 2;
    int nRendered = 0;
    bool bRenders = true;
    VPageMeasures last;
    std::function<void()> onSecond; // when it renders for the job

    static bool Render(VPrintContext& context, uintptr_t uUser, void* pOwner)
    {
        EXPECT_EQ(uUser, 17U);
        auto& client = *static_cast<Client*>(pOwner);
        ++client.nRendered;
        client.last = context;
        if (client.nRendered % 2 == 0 && client.onSecond) {
            client.onSecond();
        }
        EXPECT_EQ(Text(context.szTitle), "printdoc");
        EXPECT_EQ(context.ilPages.GetImageCount(), 0);
        context.szTitle = client.sTitle.c_str();
        context.nPages = client.nPages;
        const VSize& size = context.sizePage;
        context.ilPages.Create(size.cx, size.cy, client.nPages, 1, ILC_COLORDDB);
        const VClientSurface screen(GetDesktopWindow());
        for (int nPage = 0; nPage < client.nPages; ++nPage) {
            VBitmap bitmap;
            bitmap.Attach(CreateCompatibleBitmap(screen.GetHandle(), size.cx, size.cy));
            context.ilPages.Add(bitmap.GetHandle());
        }
        return client.bRenders;
    }
};

class PrintDocumentTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_owner));
        m_owner.Show(SW_SHOWNOACTIVATE);
        m_client.sTitle = PrintedDocument::MakeTitle("document ");
    }

    void TearDown() override
    {
        EXPECT_TRUE(IsWindowEnabled(m_owner.GetHandle()));
        EXPECT_EQ(FindForemostDialog(), nullptr);
    }

    static ModalDriver::Action Pressing(int nId)
    {
        return [=](HWND hDialog) { Press(hDialog, nId); };
    }

    VWindow m_owner;
    Client m_client;
};

#define NEEDS_A_PRINTER()               \
    if (!WhyNoPrinter().empty()) {      \
        GTEST_SKIP() << WhyNoPrinter(); \
    }                                   \
    VPrintDocument document(m_owner);   \
    document.SetRenderCallback(&Client::Render, 17, &m_client)

} // namespace

TEST_F(PrintDocumentTest, WithoutAPrinterEveryOperationFails)
{
    if (WhyNoPrinter().empty()) {
        GTEST_SKIP() << "this test needs a system without a printer";
    }
    VPrintDocument document(m_owner);
    document.SetRenderCallback(&Client::Render, 17, &m_client);
    EXPECT_FALSE(document.Print());
    EXPECT_FALSE(document.Preview());
    EXPECT_EQ(m_client.nRendered, 0);
    EXPECT_EQ(document.GetDeviceMode(), nullptr);
    QMPageSetup stored;
    stored.sMargins = "0100 0200 0300 0400";
    stored.lOrientation = 2;
    QMApplyPageSetup(document, stored);
    EXPECT_EQ(document.GetMargins(), (VRect{100, 200, 300, 400}));
    EXPECT_EQ(QMDescribePageSetup(document).lOrientation, -1);
}

TEST_F(PrintDocumentTest, StartsWithTheDefaultPrinter)
{
    NEEDS_A_PRINTER();
    EXPECT_NE(document.GetDeviceMode(), nullptr);
    EXPECT_NE(document.GetDeviceNames(), nullptr);
    EXPECT_NE(document.GetSurface().GetHandle(), nullptr);
    EXPECT_EQ(document.GetSurface().GetDeviceCaps(LOGPIXELSX), 300);
    EXPECT_GT(document.GetPaperSize().cx, 0);
}

TEST_F(PrintDocumentTest, MeasuresThePageForItsClient)
{
    NEEDS_A_PRINTER();
    document.SetMargins({750, 500, 1000, 250});
    VPrintContext context;
    ASSERT_TRUE(document.RenderToContext(context));
    const VDrawingSurface& printer = document.GetSurface();
    EXPECT_EQ(context.sizeDevice,
              (VSize{printer.GetDeviceCaps(HORZRES), printer.GetDeviceCaps(VERTRES)}));
    EXPECT_EQ(context.sizePage.cx,
              static_cast<int>(context.sizeDevice.cx * 0.32 + 0.5)); // 96 of 300
    EXPECT_EQ(context.rcMarginsScreen, (VRect{72, 48, 96, 24}));
    EXPECT_EQ(context.nPages, 2);
    EXPECT_EQ(context.pSurface, &printer);
    // The same once more, from the beginning.
    ASSERT_TRUE(document.RenderToContext(context));
    EXPECT_EQ(m_client.nRendered, 2);
}

TEST_F(PrintDocumentTest, FailsWithoutAClientOrWithOneThatFails)
{
    NEEDS_A_PRINTER();
    m_client.bRenders = false;
    EXPECT_FALSE(document.Print());
    EXPECT_FALSE(document.Preview());
    document.SetRenderCallback(nullptr, 0, nullptr);
    EXPECT_FALSE(document.Print());
    EXPECT_FALSE(document.Preview());
}

TEST_F(PrintDocumentTest, ACancelOfThePrintDialogIsNoFailure)
{
    NEEDS_A_PRINTER();
    ModalDriver driver(60000);
    driver.Next(Pressing(IDCANCEL));
    EXPECT_TRUE(document.Print());
    EXPECT_EQ(m_client.nRendered, 1);
}

TEST_F(PrintDocumentTest, PrintsWhatItsClientRendersForThePrinterThatWasChosen)
{
    NEEDS_A_PRINTER();
    ModalDriver driver(60000);
    driver.Next(Pressing(IDOK));
    ASSERT_TRUE(document.Print());
    EXPECT_EQ(m_client.nRendered, 2);
    EXPECT_EQ(document.GetLowestPage(), 1);
    EXPECT_EQ(document.GetHighestPage(), 2);
    EXPECT_EQ(AwaitPrinted(m_client.sTitle).GetPageCount(), 2);
}

TEST_F(PrintDocumentTest, PrintsARangeOfPages)
{
    NEEDS_A_PRINTER();
    m_client.nPages = 5;
    ModalDriver driver(60000);
    driver.Next([](HWND hDialog) {
        CheckRadioButton(hDialog, rad1, rad3, rad3);
        Click(hDialog, rad3);
        Type(hDialog, edt1, "2");
        Type(hDialog, edt2, "4");
        Press(hDialog, IDOK);
    });
    ASSERT_TRUE(document.Print());
    EXPECT_EQ(document.GetFirstPage(), 2);
    EXPECT_EQ(document.GetLastPage(), 4);
    EXPECT_EQ(AwaitPrinted(m_client.sTitle).GetPageCount(), 3);
}

TEST_F(PrintDocumentTest, TakesPaperAndResolutionOfThePrinterThatIsChosen)
{
    NEEDS_A_PRINTER();
    ModalDriver driver(60000);
    driver.Next([](HWND hDialog) {
        EXPECT_NE(SendDlgItemMessageA(hDialog, cmb4, CB_SELECTSTRING, static_cast<WPARAM>(-1),
                                      reinterpret_cast<LPARAM>("Fine")),
                  CB_ERR);
        SendMessageA(hDialog, WM_COMMAND, MAKEWPARAM(cmb4, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(hDialog, cmb4)));
        Press(hDialog, IDOK);
    });
    EXPECT_EQ(document.GetSurface().GetDeviceCaps(LOGPIXELSX), 300);
    ASSERT_TRUE(document.Print());
    EXPECT_EQ(document.GetSurface().GetDeviceCaps(LOGPIXELSX), 600);
    // Letter, less margins of a quarter and half an inch.
    EXPECT_EQ(m_client.last.sizeDevice, (VSize{4725, 6150}));
    EXPECT_EQ(m_client.last.sizePage, (VSize{756, 984}));
    EXPECT_EQ(m_client.last.sizePhysical, (VSize{816, 1056}));
    EXPECT_EQ(AwaitPrinted(m_client.sTitle).GetPrinter(), "Fine");
}

TEST_F(PrintDocumentTest, APrinterThatVanishesDuringTheJobFailsIt)
{
    if (!StoppedSpooler::IsPossible()) {
        GTEST_SKIP() << "the spooler that runs is not one that a test may stop";
    }
    VPrintDocument document(m_owner);
    document.SetRenderCallback(&Client::Render, 17, &m_client);
    std::unique_ptr<StoppedSpooler> pStopped;
    Record record;
    VRecordingWindow other(record);
    ASSERT_TRUE(CreateTestWindow(other, record));
    record.command = [&](VWindow&) {
        EXPECT_NE(VPrintProgressDialog::GetRunning(), nullptr);
        pStopped = std::make_unique<StoppedSpooler>();
    };
    ModalDriver driver(60000);
    driver.Next(Pressing(IDOK));
    m_client.onSecond = [&] { other.Post(WM_COMMAND); };
    EXPECT_FALSE(document.Print());
    EXPECT_NE(pStopped, nullptr);
    EXPECT_EQ(VPrintProgressDialog::GetRunning(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(m_owner.GetHandle()));
    // With the printer back the next one is printed.
    pStopped.reset();
    m_client.onSecond = nullptr;
    m_client.sTitle += " again";
    driver.Next(Pressing(IDOK));
    EXPECT_TRUE(document.Print());
    EXPECT_EQ(AwaitPrinted(m_client.sTitle).GetPageCount(), 2);
}

TEST_F(PrintDocumentTest, PageSetupTakesMarginsOnOkAlone)
{
    NEEDS_A_PRINTER();
    document.SetMargins({750, 750, 750, 750});
    document.SetMinMargins({10, 20, 30, 40});
    ModalDriver driver(60000);
    driver.Next(Pressing(IDCANCEL));
    EXPECT_FALSE(document.PageSetup());
    EXPECT_EQ(document.GetMargins(), (VRect{750, 750, 750, 750}));
    EXPECT_EQ(document.GetMinMargins(), (VRect{10, 20, 30, 40}));
    driver.Next([](HWND hDialog) {
        Type(hDialog, edt4, "1");
        Press(hDialog, IDOK);
    });
    EXPECT_TRUE(document.PageSetup());
    EXPECT_EQ(document.GetMargins(), (VRect{1000, 750, 750, 750}));
}

// ---- What the settings store.

TEST_F(PrintDocumentTest, AStoredLandscapeTurnsThePaperAndTheLeastMargins)
{
    NEEDS_A_PRINTER();
    VPrintContext upright;
    ASSERT_TRUE(document.RenderToContext(upright));
    ASSERT_LT(upright.sizePage.cx, upright.sizePage.cy);
    document.SetMinMargins({10, 20, 30, 40});
    QMPageSetup stored;
    stored.sMargins = "0100 0200 0300 0400";
    stored.lOrientation = 2;
    QMApplyPageSetup(document, stored);
    EXPECT_EQ(document.GetMargins(), (VRect{100, 200, 300, 400}));
    EXPECT_EQ(document.GetMinMargins(), (VRect{20, 30, 40, 10}));
    VPrintContext landscape;
    ASSERT_TRUE(document.RenderToContext(landscape));
    EXPECT_EQ(landscape.sizePage, (VSize{upright.sizePage.cy, upright.sizePage.cx}));
    const QMPageSetup now = QMDescribePageSetup(document);
    EXPECT_STREQ(now.sMargins.GetText(), "0100 0200 0300 0400");
    EXPECT_EQ(now.lOrientation, 2);
    // Applying what is in force already turns nothing.
    QMApplyPageSetup(document, now);
    EXPECT_EQ(document.GetMinMargins(), (VRect{20, 30, 40, 10}));
}

TEST_F(PrintDocumentTest, WhatIsMissingLeavesThePrintersOwn)
{
    NEEDS_A_PRINTER();
    const QMPageSetup before = QMDescribePageSetup(document);
    QMApplyPageSetup(document, QMPageSetup());
    const QMPageSetup after = QMDescribePageSetup(document);
    EXPECT_STREQ(after.sMargins.GetText(), before.sMargins.GetText());
    EXPECT_EQ(after.lOrientation, before.lOrientation);
    EXPECT_EQ(after.lPaperSize, before.lPaperSize);
    EXPECT_EQ(after.lPaperSource, before.lPaperSource);
}

TEST_F(PrintDocumentTest, AbsurdValuesDoNoHarm)
{
    NEEDS_A_PRINTER();
    for (const int32_t l : {-2, 0, 99, 0x7FFFFFFF}) {
        QMPageSetup stored;
        stored.sMargins = "99999999999 -5 what 7";
        stored.lOrientation = stored.lPaperSize = stored.lPaperSource = l;
        QMApplyPageSetup(document, stored);
        VPrintContext context;
        m_client.nPages = 1;
        document.RenderToContext(context);
        EXPECT_EQ(document.GetMargins().top, -5) << "value " << l;
    }
}
