#include "bench/accountfiles.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include "base/vtext.h"
#include "bench/child.h"

namespace {

constexpr const char* aPayees[] = {
    "Corner Grocery",  "City Water Works",          "Northside Garage",
    "Books and Paper", "Riverside Dental Practice", "Rent"};
constexpr const char* aMemos[] = {"", "", "", "weekly", "second half", "see the letter of March"};
constexpr const char* aCategories[] = {"Groceries", "Utilities", "Car", "Leisure", "Health", ""};

template <size_t n>
const char* Pick(const char* const (&aTexts)[n], std::mt19937& random)
{
    return aTexts[random() % n];
}

// Makes entry i of lCount, which are spread over forty years.
void FillEntry(QMTransaction& transaction, int32_t i, int32_t lCount, std::mt19937& random)
{
    const auto lDay = static_cast<int32_t>(int64_t{i} * (40 * 12 * 28) / lCount);
    transaction.lType = static_cast<int32_t>(random() % QM_TRANS_TYPE_COUNT);
    transaction.dtDate =
        QMMakeDate(static_cast<uint16_t>(1975 + lDay / (12 * 28)),
                   static_cast<uint16_t>(lDay / 28 % 12 + 1), static_cast<uint16_t>(lDay % 28 + 1));
    transaction.dtCleared = transaction.dtDate;
    transaction.lNumber = 1000 + static_cast<uint32_t>(i);
    transaction.fAmount = static_cast<float>(random() % 100000 + 1) / 100;
    transaction.lFlags = random() % 4 == 0 ? QM_TRANS_FLAG_NOT_CLEARED : 0;
    VCopyText(transaction.szDescription, Pick(aPayees, random));
    VCopyText(transaction.szMemo, Pick(aMemos, random));
    VCopyText(transaction.szCategory, Pick(aCategories, random));
}

constexpr size_t uFrontSize = 20 + QM_HEADER_SIZE;

// The size in bytes of the entry of format 2.0 that begins there.
size_t EntrySize(const unsigned char* pEntry)
{
    size_t uSize = QM_TRANS_BLOCK_SIZE;
    for (int nText = 0; nText < 3; ++nText) {
        uint32_t uLength;
        memcpy(&uLength, pEntry + uSize, sizeof uLength);
        uSize += sizeof uLength + uLength;
    }
    return uSize;
}

void Reorder(QMFileImage& image, EntryOrder order)
{
    std::vector<const unsigned char*> apEntries;
    for (size_t u = uFrontSize; u < image.uSize; u += EntrySize(image.pBytes.get() + u)) {
        apEntries.push_back(image.pBytes.get() + u);
    }
    if (order == EntryOrder::NewestFirst) {
        std::reverse(apEntries.begin(), apEntries.end());
    } else {
        std::shuffle(apEntries.begin(), apEntries.end(), std::mt19937(7));
    }
    std::unique_ptr<unsigned char[]> pNew(new unsigned char[image.uSize]);
    memcpy(pNew.get(), image.pBytes.get(), uFrontSize);
    unsigned char* p = pNew.get() + uFrontSize;
    for (const unsigned char* pEntry : apEntries) {
        const size_t uSize = EntrySize(pEntry);
        memcpy(p, pEntry, uSize);
        p += uSize;
    }
    image.pBytes = std::move(pNew);
}

} // namespace

QMFileImage MakeAccountBytes(int32_t lCount, EntryOrder order)
{
    std::mt19937 random(42);
    QMAccount account("");
    QMStoreFiller filler(account.store);
    for (int32_t i = 0; i < lCount; ++i) {
        auto pTransaction = std::make_unique<QMTransaction>();
        FillEntry(*pTransaction, i, lCount, random);
        filler.Add(std::move(pTransaction));
    }
    filler.Finish();
    QMFileImage image = QMMakeAccountImage(account);
    if (order != EntryOrder::Sorted) {
        Reorder(image, order);
    }
    return image;
}

AccountFile::AccountFile(int32_t lCount, EntryOrder order)
{
    const char* szFolder = getenv("TMPDIR");
    m_sPath = std::string(szFolder == nullptr ? "/tmp" : szFolder) + "/account-XXXXXX";
    const int nFile = mkstemp(m_sPath.data());
    // A child process does it, so that this process, and with it every later child, stays small.
    const Measurement result = MeasureInChild([&](const std::function<void()>&) {
        const QMFileImage image = MakeAccountBytes(lCount, order);
        const ssize_t nWritten = write(nFile, image.pBytes.get(), image.uSize);
        return nWritten == static_cast<ssize_t>(image.uSize);
    });
    close(nFile);
    if (!result.bDone) {
        fprintf(stderr, "%s: cannot write\n", m_sPath.c_str());
        exit(1);
    }
}

AccountFile::~AccountFile()
{
    unlink(m_sPath.c_str());
}
