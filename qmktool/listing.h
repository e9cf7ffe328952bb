// Writing transactions as a register.
#pragma once

#include "account/qmtransactionstore.h"
#include "qmktool/output.h"

// Writes the transactions, which move out of the store, with a running balance from 0. Nothing is
// written of an empty store.
void WriteStore(Output& output, QMTransactionStore& store);
