// The two commands that run a sheet of pages.
#pragma once

#include "shell/qmcommand.h"

// Edits the particulars of the account on top, and those only: a read-only account's, too.
bool QMSetAccountInformation(QMCommandContext& context);
// Edits the settings of the program, and the font of the register on top if there is one.
bool QMSetOptions(QMCommandContext& context);
