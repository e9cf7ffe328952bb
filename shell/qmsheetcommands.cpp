#include "shell/qmsheetcommands.h"

#include "register/qmregisterwindow.h"
#include "resources/resource.h"
#include "shell/qmmainframe.h"
#include "toolkit/vpropertysheet.h"
#include "tools/qmaccountpages.h"
#include "tools/qmoptionspages.h"

namespace {

struct Page
{
    VPropertyPage& page;
    UINT uTemplate;
    const char* szName;
};

// Adds the pages in their order. The first that fails is said, and ends it.
bool AddPages(QMMainFrame& frame, VTabbedSheet& sheet, const char* szWhat,
              std::initializer_list<Page> pages)
{
    for (const Page& page : pages) {
        if (!sheet.AddPage(page.page, page.uTemplate)) {
            VString sReason("Unable to add ");
            sReason.Append(page.szName);
            sReason.Append(" properties page.");
            frame.Tell(QMCannot(szWhat, sReason.GetText()).GetText());
            return false;
        }
    }
    return true;
}

} // namespace

bool QMSetAccountInformation(QMCommandContext& context)
{
    constexpr char szWhat[] = "set account information";
    QMMainFrame& frame = context.frame;
    const QMAccountHeader* pHeader = context.pDocument->GetDocument().GetHeader(false);
    if (pHeader == nullptr) {
        frame.Tell(QMCannot(szWhat, "No document is currently active.").GetText());
        return false;
    }
    QMAccountParticulars particulars = {*pHeader};
    QMAccountPage account(particulars);
    QMBankPage bank(particulars);
    QMHolderPage holder(particulars);
    VTabbedSheet sheet;
    if (!AddPages(frame, sheet, szWhat,
                  {{account, IDD_ACCOUNT_PAGE, "account"},
                   {bank, IDD_BANK_PAGE, "bank"},
                   {holder, IDD_HOLDER_PAGE, "account holder"}})) {
        return false;
    }
    sheet.Run(frame.GetHandle(), "Account Information", context.pDocument->GetFileName().GetText(),
              0, PSH_NOAPPLYNOW);
    if (sheet.IsOK() && frame.HasDocument(context.pDocument)) {
        QMCopyParticulars(particulars.header, *context.pDocument->GetDocument().GetHeader(true));
    }
    return true;
}

bool QMSetOptions(QMCommandContext& context)
{
    QMMainFrame& frame = context.frame;
    QMSettings& settings = frame.GetSettings();
    QMGeneralOptionsPage general(settings.GetGeneralOptions());
    QMPrintingOptionsPage printing(settings.GetPrintingOptions());
    QMDisplayOptionsPage display(settings.GetBalancePositive(), settings.GetBalanceNegative());
    VTabbedSheet sheet;
    if (!AddPages(frame, sheet, "set options",
                  {{general, IDD_GENERAL_OPTIONS, "general"},
                   {printing, IDD_PRINTING_OPTIONS, "printing"},
                   {display, IDD_DISPLAY_OPTIONS, "display"}})) {
        return false;
    }
    QMRegisterWindow* pDocument = context.pDocument;
    VString sName;
    if (pDocument != nullptr) {
        sName = pDocument->GetFileName();
        display.SetFont(pDocument->GetFont(), pDocument->GetFontColor());
    }
    sheet.Run(frame.GetHandle(), "Options", sName.GetText(), 0, PSH_NOAPPLYNOW);
    if (sheet.IsOK()) {
        settings.SetOptions(general.GetFlags(), printing.GetFlags(), display.GetPositive(),
                            display.GetNegative());
        // The font is that of the account on top alone.
        if (frame.HasDocument(pDocument)) {
            pDocument->SetFont(display.GetFont(), display.GetFontColor());
        }
        frame.SetRegisterOptions();
    }
    return true;
}
