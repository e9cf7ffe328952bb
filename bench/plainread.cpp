#include "bench/plainread.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "account/qmaccountdata.h"

namespace {

void Unscramble(char* p, size_t uSize)
{
    for (size_t u = 0; u + 4 <= uSize; u += 4) {
        const char a = p[u];
        const char b = p[u + 1];
        p[u] = p[u + 3];
        p[u + 1] = p[u + 2];
        p[u + 2] = b;
        p[u + 3] = a;
    }
    for (size_t u = 0; u < uSize; ++u) {
        p[u] = p[u] == ' ' ? ' ' : static_cast<char>(~p[u]);
    }
}

const char* CopyText(const char* p, char* szText)
{
    uint32_t uLength;
    memcpy(&uLength, p, sizeof uLength);
    memcpy(szText, p + sizeof uLength, uLength);
    szText[uLength] = '\0';
    Unscramble(szText, uLength);
    return p + sizeof uLength + uLength;
}

} // namespace

PlainAccount PlainRead(const char* szPath)
{
    PlainAccount account;
    FILE* pFile = fopen(szPath, "rb");
    struct stat status;
    fstat(fileno(pFile), &status);
    const auto uSize = static_cast<size_t>(status.st_size);
    const std::unique_ptr<char[]> pBytes(new char[uSize]);
    if (fread(pBytes.get(), 1, uSize, pFile) != uSize) {
        abort();
    }
    fclose(pFile);
    memcpy(&account.lCount, pBytes.get() + 8, sizeof account.lCount);
    // Memory that is not cleared, so that each record is written only once.
    void* pRecords = operator new[](sizeof(QMTransactionFields) *
                                    static_cast<size_t>(account.lCount));
    account.aRecords.reset(static_cast<QMTransactionFields*>(pRecords));
    const char* p = pBytes.get() + 20 + QM_HEADER_SIZE;
    for (int32_t i = 0; i < account.lCount; ++i) {
        QMTransactionFields& record = account.aRecords[static_cast<size_t>(i)];
        memcpy(&record.lType, p, QM_TRANS_BLOCK_SIZE);
        p = CopyText(p + QM_TRANS_BLOCK_SIZE, record.szDescription);
        p = CopyText(p, record.szMemo);
        p = CopyText(p, record.szCategory);
    }
    return account;
}
