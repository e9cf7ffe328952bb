// Writing transactions as a register.
#pragma once

#include "account/qmtransactionstore.h"
#include "qmktool/output.h"

// Writes the transactions with a running balance that starts at 0, and moves them out of the store.
// Writes nothing when the store is empty.
void WriteStore(Output& output, QMTransactionStore& store);
