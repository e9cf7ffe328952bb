// The commands of the Transaction menu.

#include "account/qmtransaction.h"
#include "register/qmregisterwindow.h"
#include "resources/resource.h"
#include "shell/qmcommand.h"

namespace {

constexpr struct
{
    UINT uId;
    uint32_t uTag;
} aTags[] = {
    {IDM_TRANSACTION_TAX, QM_TRANS_FLAG_TAX},
    {IDM_TRANSACTION_EXPENSE, QM_TRANS_FLAG_EXPENSE},
    {IDM_TRANSACTION_VOIDED, QM_TRANS_FLAG_VOIDED},
    // The flag means the opposite, so clearing it clears the transaction.
    {IDM_TRANSACTION_CLEARED, QM_TRANS_FLAG_NOT_CLEARED},
};

QMRegisterOperations& Operations(QMCommandContext& context)
{
    return context.pDocument->GetOperations();
}

constexpr QMCommand aCommands[] = {
    {
        .uFirst = IDM_TRANSACTION_ADD,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::WritableDocument,
        .szWhat = "add transaction",
        .pRun = [](QMCommandContext& context) { return Operations(context).AddTransaction(); },
        .bTellsFailure = true,
        .bUpdates = true,
    },
    {
        .uFirst = IDM_TRANSACTION_EDIT,
        .offered = QMOffered::WithSelection,
        .needs = QMNeeds::Selection,
        .szWhat = "edit transaction",
        .pRun = [](QMCommandContext& context) { return Operations(context).EditTransactions(); },
        .bTellsFailure = true,
        .bUpdates = true,
    },
    {
        .uFirst = IDM_TRANSACTION_REMOVE,
        .offered = QMOffered::WithSelection,
        .needs = QMNeeds::Selection,
        .szWhat = "remove transaction",
        .pRun = [](QMCommandContext& context) { return Operations(context).RemoveTransactions(); },
        .bTellsFailure = true,
        .bUpdates = true,
    },
    {
        .uFirst = IDM_TRANSACTION_TAX,
        .uLast = IDM_TRANSACTION_CLEARED,
        .offered = QMOffered::WithTag,
        .needs = QMNeeds::Selection,
        .szWhat = "toggle tag",
        .pRun =
            [](QMCommandContext& context) {
                return Operations(context).ToggleTag(QMTagOfCommand(context.uId));
            },
        .bTellsFailure = true,
    },
};

} // namespace

constinit const QMCommandTable transactionCommands(aCommands);

uint32_t QMTagOfCommand(UINT uId)
{
    for (const auto& tag : aTags) {
        if (tag.uId == uId) {
            return tag.uTag;
        }
    }
    return 0;
}
