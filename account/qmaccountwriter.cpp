#include "account/qmaccountwriter.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

#include "account/qmentrybuilder.h"
#include "account/qmpackedtransactions.h"

namespace {

void AddFront(QMEntryBuilder& builder, const QMAccount& account, int32_t lVersion, int32_t lCount)
{
    builder.AddNumber(account.lMagic);
    builder.AddNumber(static_cast<uint32_t>(lVersion));
    builder.AddNumber(static_cast<uint32_t>(lCount));
    builder.AddNumber(QM_HEADER_SIZE);
    QMAccountHeader header = account.header;
    header.bReserved = 0;
    builder.AddScrambled(&header, QM_HEADER_SIZE);
    builder.AddNumber(QM_TRANS_BLOCK_SIZE);
}

constexpr size_t uLengthSize = sizeof(uint32_t);
constexpr size_t uFrontSize = 4 * uLengthSize + QM_HEADER_SIZE + uLengthSize;

size_t EntrySize(const QMTransactionFields& fields, int32_t lVersion)
{
    size_t uSize = QM_TRANS_BLOCK_SIZE + 2 * uLengthSize;
    uSize += strlen(fields.szDescription) + strlen(fields.szMemo);
    if (QMVersionHasCategory(lVersion)) {
        uSize += uLengthSize + strlen(fields.szCategory);
    }
    return uSize;
}

// Calls f(transaction) for each one of a large store, in order. The transactions of a sorted store
// lie here and there in memory, and the way to the next one is known only once this one is fetched.
// So the second half is looked up from the last one on, while f is at work on the first half: both
// wait for memory at the same time, and all of the second half can be fetched ahead.
template <class F>
void ForEachScattered(const QMTransactionStore& store, std::vector<const QMTransaction*>& behind,
                      F f)
{
    constexpr size_t uAhead = 8;
    const QMListNode* p = nullptr;
    const QMListNode* pBack = nullptr;
    store.ForEachWhile([&](const QMTransaction& first) { return p = &first, false; });
    store.ForEachFromLastWhile([&](const QMTransaction& last) { return pBack = &last, false; });
    const auto Fetch = [](const QMTransaction& transaction) {
        __builtin_prefetch(&transaction);
        __builtin_prefetch(transaction.szDescription);
        __builtin_prefetch(transaction.szMemo);
        __builtin_prefetch(transaction.szCategory);
    };
    const auto uFront = static_cast<size_t>(store.GetCount()) - behind.size();
    const QMListNode* pAhead = p;
    for (size_t u = 0; u < uFront && p != nullptr; ++u, p = p->GetNext()) {
        // The links of what comes next are followed before it is written.
        for (int nSteps = u == 0 ? 4 : 1; nSteps > 0 && pAhead != nullptr; --nSteps) {
            pAhead = pAhead->GetNext();
        }
        if (pAhead != nullptr) {
            Fetch(*static_cast<const QMTransaction*>(pAhead));
        }
        if (u < behind.size() && pBack != nullptr) {
            behind[behind.size() - 1 - u] = static_cast<const QMTransaction*>(pBack);
            pBack = pBack->GetPrevious();
            __builtin_prefetch(pBack);
        }
        f(*static_cast<const QMTransaction*>(p));
    }
    for (size_t u = 0; u < behind.size(); ++u) {
        Fetch(*behind[std::min(u + uAhead, behind.size() - 1)]);
        f(*behind[u]);
    }
}

constexpr int32_t lLargeStore = 20000;

template <class F>
void ForEachToWrite(const QMTransactionStore& store, F f)
{
    if (store.GetCount() < lLargeStore) {
        store.ForEach(f);
        return;
    }
    std::vector<const QMTransaction*> behind;
    try {
        behind.resize(static_cast<size_t>(store.GetCount()) / 2);
    } catch (const std::bad_alloc&) {
        // The short way needs memory, the long one none.
        store.ForEach(f);
        return;
    }
    ForEachScattered(store, behind, f);
}

size_t ImageSize(const QMAccount& account, int32_t lVersion)
{
    size_t uSize = uFrontSize;
    account.store.ForEach(
        [&](const QMTransaction& transaction) { uSize += EntrySize(transaction, lVersion); });
    return uSize;
}

} // namespace

QMFileImage QMMakeAccountImage(const QMAccount& account, int32_t lVersion, QMProgress* pProgress)
{
    QMFileImage image;
    image.uSize = ImageSize(account, lVersion);
    image.pBytes.reset(new (std::nothrow) unsigned char[image.uSize]);
    if (image.pBytes == nullptr) {
        return image;
    }
    QMEntryBuilder builder(image.pBytes.get());
    AddFront(builder, account, lVersion, account.store.GetCount());
    bool bGoesOn = true;
    account.store.ForEach([&](const QMTransaction& transaction) {
        const auto uDone = static_cast<size_t>(builder.GetEnd() - image.pBytes.get());
        bGoesOn = bGoesOn && (pProgress == nullptr || pProgress->OnStep(uDone, image.uSize));
        if (bGoesOn) {
            builder.AddEntry(transaction, lVersion);
        }
    });
    if (!bGoesOn) {
        image.pBytes.reset();
    }
    return image;
}

QMFileImage QMMakeAccountImage(const QMAccount& account)
{
    return QMMakeAccountImage(account, account.lVersion, nullptr);
}

bool QMReplaceByImage(QMFile& file, const QMFileImage& image, QMProgress* pProgress)
{
    if (image.pBytes == nullptr || !file.CanReplace(image.uSize)) {
        return false;
    }
    file.Close();
    if (!file.Create()) {
        return false;
    }
    // All bytes of the file are ready before it is created anew. So the old contents are gone for
    // as short a time as can be: nothing gives the work up from here on.
    if (pProgress != nullptr) {
        pProgress->OnNoReturn();
    }
    constexpr size_t uPart = 1 << 22;
    size_t uDone = 0;
    while (uDone < image.uSize) {
        const size_t uNext = std::min(uPart, image.uSize - uDone);
        file.Write(image.pBytes.get() + uDone, uNext);
        uDone += uNext;
        if (pProgress != nullptr) {
            pProgress->OnStep(uDone, image.uSize);
        }
    }
    return true;
}

bool QMWriteAccountTo(QMByteSink& sink, const QMAccount& account, QMProgress* pProgress)
{
    QMPieceWriter writer(sink);
    AddFront(writer.GetBuilder(), account, account.lVersion, account.store.GetCount());
    const auto uTotal = static_cast<uint64_t>(account.store.GetCount());
    uint64_t uDone = 0;
    bool bGoesOn = true;
    ForEachToWrite(account.store, [&](const QMTransaction& transaction) {
        bGoesOn = bGoesOn && (pProgress == nullptr || pProgress->OnStep(uDone++, uTotal));
        if (bGoesOn) {
            writer.GetBuilder().AddEntry(transaction, account.lVersion);
            bGoesOn = writer.HandOver(false);
        }
    });
    return bGoesOn && writer.HandOver(true);
}

bool QMWriteAccountTo(QMByteSink& sink, const QMAccount& account, QMPackedTransactions& packed,
                      QMProgress* pProgress)
{
    QMPieceWriter writer(sink);
    AddFront(writer.GetBuilder(), account, account.lVersion, packed.GetCount());
    return writer.HandOver(true) && packed.WriteTo(sink, pProgress);
}
