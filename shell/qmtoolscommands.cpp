// The commands of the Tools menu.

#include "register/qmregisterwindow.h"
#include "reports/qmreportdialog.h"
#include "resources/resource.h"
#include "shell/qmcommand.h"
#include "shell/qmmainframe.h"
#include "shell/qmsheetcommands.h"
#include "tools/qmbrowserlauncher.h"

namespace {

bool AutoSizeColumns(QMCommandContext& context)
{
    context.pDocument->AutoSizeColumns();
    return true;
}

// Kept: unlike the bank page's own button, this does not ask whether there is an address.
bool ShowBankWebpage(QMCommandContext& context)
{
    const QMAccountHeader* pHeader = context.pDocument->GetDocument().GetHeader(false);
    if (pHeader == nullptr) {
        context.frame.Tell(
            QMCannot("launch browser", "No document is currently active.").GetText());
        return false;
    }
    const VString sUrl(pHeader->szBankHomepage, sizeof pHeader->szBankHomepage - 1);
    QMBrowserLauncher launcher;
    if (launcher.Launch(sUrl.GetText()) == QMBrowserLauncher::Done) {
        return true;
    }
    VString sPath;
    QMBrowserLauncher::FindBrowser(sPath);
    context.frame.TellOf("Could not launch browser\n'", sPath, "'.");
    return false;
}

bool ShowCalculator(QMCommandContext& context)
{
    return context.frame.GetCalculator().Show(context.frame.GetHandle(), HKEY_CURRENT_USER,
                                              QMSettings::GetKeyPath(), "Calculator Position");
}

bool RunReports(QMCommandContext& context)
{
    const QMDocument& document = context.pDocument->GetDocument();
    QMReportDialog dialog;
    if (!document.CopyAccount(dialog.GetAccount())) {
        context.frame.Tell(QMCannot("run reports", "No document is currently active.").GetText());
        return false;
    }
    dialog.DoModal(context.frame.GetHandle(), document.GetFileName().GetText());
    return true;
}

constexpr QMCommand aCommands[] = {
    {
        .uFirst = IDM_TOOLS_REPORTS,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::Document,
        .szWhat = "run reports",
        .pRun = RunReports,
    },
    {
        .uFirst = IDM_TOOLS_BANKWEBPAGE,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::Document,
        .szWhat = "launch browser",
        .pRun = ShowBankWebpage,
    },
    {.uFirst = IDM_TOOLS_CALCULATOR, .pRun = ShowCalculator},
    {.uFirst = IDM_TOOLS_OPTIONS, .pRun = QMSetOptions},
    {
        .uFirst = IDM_TOOLS_AUTOSIZE,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::Document,
        .szWhat = "autosize columns",
        .pRun = AutoSizeColumns,
    },
};

} // namespace

constinit const QMCommandTable toolsCommands(aCommands);
