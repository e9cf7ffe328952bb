// Exchange files of any size, to measure with.
#pragma once

#include <string>

#include "account/qmtransactionstore.h"
#include "bench/accountfiles.h"
#include "exchange/qmexchange.h"

// The extension, with its dot.
const char* ExtensionOf(QMExchangeKind kind);

// Fills an empty store with the transactions of MakeAccountBytes.
void FillStore(QMTransactionStore& store, int32_t lCount);

// Makes the bytes of a file with these transactions in this order.
std::string MakeExchangeText(QMExchangeKind kind, int32_t lCount, EntryOrder order);

// A file whose name has the extension of the kind, empty or with this text. It is removed with the
// object.
class ExchangeFile
{
public:
    ExchangeFile(QMExchangeKind kind, const std::string& sText);
    ExchangeFile(const ExchangeFile&) = delete;
    ExchangeFile& operator=(const ExchangeFile&) = delete;
    ~ExchangeFile();

    const char* GetPath() const { return m_sPath.c_str(); }

private:
    std::string m_sPath;
};
