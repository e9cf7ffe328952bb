#include "account/qmaccountwriter.h"

#include <cstring>
#include <new>

#include "account/qmscramble.h"

namespace {

class ImageBuilder
{
public:
    explicit ImageBuilder(unsigned char* pBytes) : m_pNext(pBytes) {}

    const unsigned char* GetEnd() const { return m_pNext; }

    void Add(const void* pBytes, size_t uSize)
    {
        memcpy(m_pNext, pBytes, uSize);
        m_pNext += uSize;
    }

    void AddScrambled(const void* pBytes, size_t uSize)
    {
        Add(pBytes, uSize);
        QMScramble(m_pNext - uSize, uSize);
    }

    void AddNumber(uint32_t uNumber) { Add(&uNumber, sizeof uNumber); }

    void AddText(const char* szText)
    {
        const size_t uLength = strlen(szText);
        AddNumber(static_cast<uint32_t>(uLength));
        AddScrambled(szText, uLength);
    }

    void AddEntry(const QMTransactionFields& fields, int32_t lVersion)
    {
        if (QMVersionScramblesBlock(lVersion)) {
            AddScrambled(&fields, QM_TRANS_BLOCK_SIZE);
        } else {
            Add(&fields, QM_TRANS_BLOCK_SIZE);
        }
        AddText(fields.szDescription);
        AddText(fields.szMemo);
        if (QMVersionHasCategory(lVersion)) {
            AddText(fields.szCategory);
        }
    }

private:
    unsigned char* m_pNext;
};

void AddFront(ImageBuilder& builder, const QMAccount& account)
{
    builder.AddNumber(account.lMagic);
    builder.AddNumber(static_cast<uint32_t>(account.lVersion));
    builder.AddNumber(static_cast<uint32_t>(account.store.GetCount()));
    builder.AddNumber(QM_HEADER_SIZE);
    QMAccountHeader header = account.header;
    header.bReserved = 0;
    builder.AddScrambled(&header, QM_HEADER_SIZE);
    builder.AddNumber(QM_TRANS_BLOCK_SIZE);
}

// A buffer for the builder that goes to a sink as it fills.
class PieceWriter
{
public:
    explicit PieceWriter(QMByteSink& sink) : m_sink(sink) {}

    // There is always room for the front or for one entry more.
    ImageBuilder& GetBuilder() { return m_builder; }

    // Hands over what is there, unless there is room for more and bAll is not set. Returns false
    // when the sink refused anything so far.
    bool HandOver(bool bAll)
    {
        const auto uLength = static_cast<size_t>(m_builder.GetEnd() - m_aBuffer);
        if (bAll || uLength > sizeof m_aBuffer - uLargestPart) {
            m_bTaken = m_bTaken && m_sink.Write(reinterpret_cast<const char*>(m_aBuffer), uLength);
            m_builder = ImageBuilder(m_aBuffer);
        }
        return m_bTaken;
    }

private:
    // An entry is smaller: its block and three texts with their lengths.
    static constexpr size_t uLargestPart = 2048;
    static_assert(uLargestPart > sizeof(QMTransactionFields) + 3 * sizeof(uint32_t));
    static_assert(uLargestPart > QM_HEADER_SIZE + 5 * sizeof(uint32_t));

    QMByteSink& m_sink;
    bool m_bTaken = true;
    unsigned char m_aBuffer[1 << 15];
    ImageBuilder m_builder{m_aBuffer};
};

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

} // namespace

size_t QMAccountImageSize(const QMAccount& account)
{
    size_t uSize = uFrontSize;
    account.store.ForEach([&](const QMTransaction& transaction) {
        uSize += EntrySize(transaction, account.lVersion);
    });
    return uSize;
}

QMFileImage QMMakeAccountImage(const QMAccount& account)
{
    QMFileImage image;
    image.uSize = QMAccountImageSize(account);
    image.pBytes.reset(new (std::nothrow) unsigned char[image.uSize]);
    if (image.pBytes == nullptr) {
        return image;
    }
    ImageBuilder builder(image.pBytes.get());
    AddFront(builder, account);
    account.store.ForEach(
        [&](const QMTransaction& transaction) { builder.AddEntry(transaction, account.lVersion); });
    return image;
}

bool QMWriteAccountTo(QMByteSink& sink, const QMAccount& account)
{
    PieceWriter writer(sink);
    AddFront(writer.GetBuilder(), account);
    account.store.ForEach([&](const QMTransaction& transaction) {
        writer.GetBuilder().AddEntry(transaction, account.lVersion);
        writer.HandOver(false);
    });
    return writer.HandOver(true);
}
