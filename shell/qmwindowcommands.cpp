// The commands of the Window and Help menus. The toolkit's frame carries out the arrangements.

#include "resources/resource.h"
#include "shell/qmcommand.h"
#include "shell/qmmainframe.h"
#include "toolkit/vdialog.h"

namespace {

bool ShowAbout(QMCommandContext& context)
{
    VDialog dialog;
    return dialog.DoModal(context.frame.GetHandle(), IDD_ABOUT) == IDOK;
}

// The viewer's own commands.
enum
{
    HelpTopic = 0,
    HelpContents = 1,
    HelpIndex = 2
};

bool ShowGettingStarted(QMCommandContext& context)
{
    context.frame.ShowHelp("::/html\\qm_gettingstarted.htm", HelpTopic);
    return true;
}

bool ShowHelpContents(QMCommandContext& context)
{
    context.frame.ShowHelp("", HelpContents);
    return true;
}

bool ShowHelpIndex(QMCommandContext& context)
{
    context.frame.ShowHelp("", HelpIndex);
    return true;
}

constexpr QMCommand aCommands[] = {
    {.uFirst = IDM_WINDOW_CASCADE, .offered = QMOffered::WithDocument},
    {
        .uFirst = IDM_WINDOW_TILEHORIZONTAL,
        .uLast = IDM_WINDOW_TILEVERTICAL,
        .offered = QMOffered::WithDocument,
    },
    {
        .uFirst = IDM_WINDOW_NEXT,
        .uLast = IDM_WINDOW_PREVIOUS,
        .offered = QMOffered::WithTwoDocuments,
    },
    {.uFirst = IDM_HELP_GETTINGSTARTED, .pRun = ShowGettingStarted},
    {.uFirst = IDM_HELP_CONTENTS, .pRun = ShowHelpContents},
    {.uFirst = IDM_HELP_INDEX, .pRun = ShowHelpIndex},
    {.uFirst = IDM_HELP_ABOUT, .pRun = ShowAbout},
};

} // namespace

constinit const QMCommandTable windowCommands(aCommands);
