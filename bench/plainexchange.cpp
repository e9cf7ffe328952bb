#include "bench/plainexchange.h"

#include <sys/stat.h>

#include <expat.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "account/qmtransaction.h"

namespace {

// Records one after another, in pieces, so that none of them is ever moved.
class Records
{
public:
    QMTransactionFields& Add()
    {
        if (m_uCount % uPiece == 0) {
            // Memory that is not cleared, so that each record is written only once.
            void* pPiece = operator new[](sizeof(QMTransactionFields) * uPiece);
            m_apPieces[m_uCount / uPiece].reset(static_cast<QMTransactionFields*>(pPiece));
        }
        const size_t uRecord = m_uCount++;
        return m_apPieces[uRecord / uPiece][uRecord % uPiece];
    }
    size_t GetCount() const { return m_uCount; }

private:
    static constexpr size_t uPiece = 1024;

    std::unique_ptr<QMTransactionFields[]> m_apPieces[1024];
    size_t m_uCount = 0;
};

void ReadDate(const char* szText, QMDate& date)
{
    char* pEnd;
    date.wMonth = static_cast<uint16_t>(strtol(szText, &pEnd, 10));
    date.wDay = static_cast<uint16_t>(strtol(pEnd + 1, &pEnd, 10));
    date.wYear = static_cast<uint16_t>(strtol(pEnd + 1, &pEnd, 10));
}

void ReadField(QMTransactionFields& record, char cField, const char* szText)
{
    switch (cField) {
        case 'D':
            ReadDate(szText, record.dtDate);
            break;
        case 'N':
            record.lNumber = static_cast<uint32_t>(atoi(szText));
            break;
        case 'T':
            record.fAmount = strtof(szText, nullptr);
            break;
        case 'P':
            strcpy(record.szDescription, szText);
            break;
        case 'M':
            strcpy(record.szMemo, szText);
            break;
        case 'L':
            strcpy(record.szCategory, szText);
            break;
        default:
            break;
    }
}

} // namespace

bool PlainWrite(const char* szPath, const std::string& sText)
{
    FILE* pFile = fopen(szPath, "w");
    const char* pEnd = sText.data() + sText.size();
    for (const char* p = sText.data(); p < pEnd;) {
        const auto uRest = static_cast<size_t>(pEnd - p);
        const auto* pLineEnd = static_cast<const char*>(memchr(p, '\n', uRest));
        const size_t uLine = pLineEnd == nullptr ? uRest : static_cast<size_t>(pLineEnd - p) + 1;
        fwrite(p, 1, uLine, pFile);
        p += uLine;
    }
    return fclose(pFile) == 0;
}

size_t PlainReadQif(const char* szPath)
{
    FILE* pFile = fopen(szPath, "r");
    static Records records;
    QMTransactionFields* pRecord = &records.Add();
    char szLine[1024];
    while (fgets(szLine, sizeof szLine, pFile) != nullptr) {
        szLine[strcspn(szLine, "\n")] = '\0';
        if (szLine[0] == '^') {
            pRecord = &records.Add();
        } else {
            ReadField(*pRecord, szLine[0], szLine + 1);
        }
    }
    fclose(pFile);
    return records.GetCount() - 1;
}

size_t PlainReadCsv(const char* szPath)
{
    constexpr char szFields[] = "DNPTML";
    FILE* pFile = fopen(szPath, "r");
    static Records records;
    char szLine[1024];
    if (fgets(szLine, sizeof szLine, pFile) == nullptr) {
        return 0;
    }
    while (fgets(szLine, sizeof szLine, pFile) != nullptr) {
        QMTransactionFields& record = records.Add();
        char* pCell = szLine;
        for (size_t u = 0; u < strlen(szFields); ++u) {
            char* pComma = strchr(pCell, ',');
            *pComma = '\0';
            ReadField(record, szFields[u], pCell);
            pCell = pComma + 1;
        }
        for (char* pTag = pCell; (pTag = strchr(pTag, 'T')) != nullptr; ++pTag) {
            record.lFlags = record.lFlags << 1 | 1;
        }
    }
    fclose(pFile);
    return records.GetCount();
}

bool ParseOnly(const char* szPath)
{
    FILE* pFile = fopen(szPath, "rb");
    struct stat status;
    fstat(fileno(pFile), &status);
    const auto uSize = static_cast<size_t>(status.st_size);
    const std::unique_ptr<char[]> pBytes(new char[uSize]);
    const bool bRead = fread(pBytes.get(), 1, uSize, pFile) == uSize;
    fclose(pFile);
    XML_Parser pParser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(
        pParser, [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
    XML_SetCharacterDataHandler(pParser, [](void*, const XML_Char*, int) {});
    const bool bParsed = bRead && XML_Parse(pParser, pBytes.get(), static_cast<int>(uSize), 1) != 0;
    XML_ParserFree(pParser);
    return bParsed;
}
