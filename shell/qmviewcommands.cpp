// The commands of the View menu, and those that the controls of the Transactions Bar send.

#include "resources/resource.h"
#include "shell/qmcommand.h"
#include "shell/qmmainframe.h"

namespace {

// ---- The bars.

bool ToggleToolbar(QMCommandContext& context)
{
    QMMainFrame& frame = context.frame;
    frame.GetSettings().SetFlag(QM_FLAG_TOOLBAR, frame.ToggleBand(IDC_TOOLBAR));
    return true;
}

bool TogglePeriodBar(QMCommandContext& context)
{
    const bool bShown = context.frame.ToggleBand(IDC_TRANSACTIONSBAR);
    context.frame.GetSettings().SetFlag(QM_FLAG_TRANSACTIONS_BAR, bShown);
    for (QMRegisterWindow* pDocument : context.frame.GetDocuments()) {
        pDocument->SetPeriodFilter(bShown);
    }
    return true;
}

bool ToggleStatusBar(QMCommandContext& context)
{
    QMMainFrame& frame = context.frame;
    frame.GetSettings().SetFlag(QM_FLAG_STATUS_BAR, frame.ToggleBar(IDC_STATUSBAR));
    return true;
}

template <UINT uBar>
bool IsBarShown(const QMCommandContext& context)
{
    return context.frame.IsBarVisible(uBar);
}

// ---- The look of the register.

bool ToggleGridLines(QMCommandContext& context)
{
    context.pDocument->GetOperations().ToggleGridLines();
    return true;
}

bool ToggleShadedLines(QMCommandContext& context)
{
    context.pDocument->GetOperations().ToggleShadedLines();
    return true;
}

bool HasGridLines(const QMCommandContext& context)
{
    return context.pDocument != nullptr && context.pDocument->GetHeader().bGridLines != 0;
}

bool HasShadedLines(const QMCommandContext& context)
{
    return context.pDocument != nullptr && context.pDocument->GetHeader().bShadedLines != 0;
}

// The mask bit of a column command: the commands are in the order of the bits.
uint32_t ColumnOf(UINT uId)
{
    return 1U << (uId - IDM_VIEW_DATE);
}

bool ToggleColumn(QMCommandContext& context)
{
    context.pDocument->GetOperations().ToggleColumn(ColumnOf(context.uId));
    return true;
}

bool HasColumn(const QMCommandContext& context)
{
    return context.pDocument != nullptr &&
           QMIsColumnShown(context.pDocument->GetHeader(), ColumnOf(context.uId));
}

constexpr QMCommand aCommands[] = {
    {
        .uFirst = IDM_VIEW_TOOLBAR,
        .pRun = ToggleToolbar,
        .pIsChecked = IsBarShown<IDC_TOOLBAR>,
    },
    {
        .uFirst = IDM_VIEW_TRANSACTIONSBAR,
        .pRun = TogglePeriodBar,
        .pIsChecked = IsBarShown<IDC_TRANSACTIONSBAR>,
    },
    {
        .uFirst = IDM_VIEW_STATUSBAR,
        .pRun = ToggleStatusBar,
        .pIsChecked = IsBarShown<IDC_STATUSBAR>,
    },
    {
        .uFirst = IDM_VIEW_GRIDLINES,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::WritableDocument,
        .szWhat = "change grid lines",
        .pRun = ToggleGridLines,
        .pIsChecked = HasGridLines,
        .bUpdates = true,
    },
    {
        .uFirst = IDM_VIEW_SHADEDLINES,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::WritableDocument,
        .szWhat = "change shade lines",
        .pRun = ToggleShadedLines,
        .pIsChecked = HasShadedLines,
        .bUpdates = true,
    },
    {
        .uFirst = IDM_VIEW_DATE,
        .uLast = IDM_VIEW_CLEARED,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::WritableDocument,
        .szWhat = "change columns",
        .pRun = ToggleColumn,
        .pIsChecked = HasColumn,
        .bUpdates = true,
    },
    {
        .uFirst = IDC_TB_PERIOD,
        .uLast = IDC_TB_TO,
        .offered = QMOffered::WithDocument,
        .pRun = [](QMCommandContext& context) { return context.frame.TakePeriod(context.uId); },
    },
};

} // namespace

constinit const QMCommandTable viewCommands(aCommands);
