#include "bench/exchangefiles.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>
#include <vector>

#include "account/qmaccountreader.h"

namespace {

// How a file of a kind is divided: everything up to the end of szFrontEnd comes first, and each
// record goes up to the end of szRecordEnd.
struct Shape
{
    QMExchangeKind kind;
    const char* szExtension;
    const char* szFrontEnd;
    const char* szRecordEnd;
};

constexpr Shape aShapes[] = {
    {QMExchangeKind::Qif, ".qif", "!Type:Bank\n", "^\n"},
    {QMExchangeKind::Csv, ".csv", "\n", "\n"},
    {QMExchangeKind::Xml, ".xml", "<quillmark>\n", "</transaction>\n"},
};

const Shape& ShapeOf(QMExchangeKind kind)
{
    return *std::find_if(std::begin(aShapes), std::end(aShapes),
                         [=](const Shape& shape) { return shape.kind == kind; });
}

struct StringSink : QMByteSink
{
    bool Write(const char* pBytes, size_t uSize) override
    {
        sText.append(pBytes, uSize);
        return true;
    }

    std::string sText;
};

std::string Reorder(const std::string& sText, const Shape& shape, EntryOrder order)
{
    const std::string_view text(sText);
    const std::string_view end(shape.szRecordEnd);
    const size_t uFront = text.find(shape.szFrontEnd) + std::string_view(shape.szFrontEnd).size();
    std::vector<std::string_view> aRecords;
    size_t uNext = uFront;
    for (size_t uEnd; (uEnd = text.find(end, uNext)) != std::string_view::npos;) {
        uEnd += end.size();
        aRecords.push_back(text.substr(uNext, uEnd - uNext));
        uNext = uEnd;
    }
    if (order == EntryOrder::NewestFirst) {
        std::reverse(aRecords.begin(), aRecords.end());
    } else {
        std::shuffle(aRecords.begin(), aRecords.end(), std::mt19937(7));
    }
    std::string sNew(text.substr(0, uFront));
    for (const std::string_view record : aRecords) {
        sNew += record;
    }
    return sNew.append(text.substr(uNext));
}

} // namespace

const char* ExtensionOf(QMExchangeKind kind)
{
    return ShapeOf(kind).szExtension;
}

void FillStore(QMTransactionStore& store, int32_t lCount)
{
    const QMFileImage image = MakeAccountBytes(lCount, EntryOrder::Sorted);
    QMMemorySource source(image.pBytes.get(), image.uSize);
    QMAccount account("");
    QMAccountReader(account).ReadFrom(source);
    store.TakeFrom(account.store);
}

std::string MakeExchangeText(QMExchangeKind kind, int32_t lCount, EntryOrder order)
{
    QMTransactionStore store;
    FillStore(store, lCount);
    StringSink sink;
    if (!QMExportTo(sink, kind, store)) {
        abort();
    }
    return order == EntryOrder::Sorted ? sink.sText : Reorder(sink.sText, ShapeOf(kind), order);
}

ExchangeFile::ExchangeFile(QMExchangeKind kind, const std::string& sText)
{
    const char* szFolder = getenv("TMPDIR");
    m_sPath = std::string(szFolder == nullptr ? "/tmp" : szFolder) + "/exchange-XXXXXX" +
              ExtensionOf(kind);
    const int nFile = mkstemps(m_sPath.data(), 4);
    const ssize_t nWritten = write(nFile, sText.data(), sText.size());
    close(nFile);
    if (nWritten != static_cast<ssize_t>(sText.size())) {
        fprintf(stderr, "%s: cannot write\n", m_sPath.c_str());
        exit(1);
    }
}

ExchangeFile::~ExchangeFile()
{
    unlink(m_sPath.c_str());
}
