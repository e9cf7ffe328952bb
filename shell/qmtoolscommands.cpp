// The commands of the Tools menu.

#include "register/qmregisterwindow.h"
#include "resources/resource.h"
#include "shell/qmcommand.h"

namespace {

bool AutoSizeColumns(QMCommandContext& context)
{
    context.pDocument->AutoSizeColumns();
    return true;
}

constexpr QMCommand aCommands[] = {
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
