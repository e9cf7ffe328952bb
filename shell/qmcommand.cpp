#include "shell/qmcommand.h"

namespace {

VString Joined(const char* szFront, const char* szWhat, const char* szBehind)
{
    VString sText(szFront);
    sText.Append(szWhat);
    sText.Append(szBehind);
    return sText;
}

} // namespace

const QMCommand* QMFindCommand(UINT uId)
{
    for (const QMCommandTable* pTable : apCommandTables) {
        for (const QMCommand& command : *pTable) {
            if (command.IsFor(uId)) {
                return &command;
            }
        }
    }
    return nullptr;
}

VString QMCannot(const char* szWhat, const char* szReason)
{
    VString sText = Joined("Cannot ", szWhat, "...\n");
    sText.Append(szReason);
    return sText;
}

VString QMNothingSelected(const char* szWhat)
{
    return Joined("Cannot ", szWhat, ".\nNo transaction is selected.");
}

VString QMFailedTo(const char* szWhat)
{
    return Joined("Failed to ", szWhat, ".");
}
