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
    {.uFirst = IDM_HELP_ABOUT, .pRun = ShowAbout},
};

} // namespace

constinit const QMCommandTable windowCommands(aCommands);
