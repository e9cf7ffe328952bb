#include "exchange/qmxmlparser.h"

#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <utility>

namespace {

QMXmlParser* ParserOf(void* pUserData)
{
    return static_cast<QMXmlParser*>(pUserData);
}

void XMLCALL CharacterData(void* pUserData, const XML_Char* pText, int nLength)
{
    if (pUserData != nullptr && nLength != 0) {
        ParserOf(pUserData)->OnCharacterData(pText, nLength);
    }
}

void XMLCALL StartElement(void* pUserData, const XML_Char* szName, const XML_Char** aszAttributes)
{
    if (pUserData != nullptr) {
        ParserOf(pUserData)->OnStartElement(szName, aszAttributes);
    }
}

void XMLCALL EndElement(void* pUserData, const XML_Char* szName)
{
    if (pUserData != nullptr) {
        ParserOf(pUserData)->OnEndElement(szName);
    }
}

int XMLCALL UnknownEncoding(void* pUserData, const XML_Char* szName, XML_Encoding* pEncoding)
{
    if (pUserData == nullptr || szName == nullptr || pEncoding == nullptr) {
        return 0;
    }
    return ParserOf(pUserData)->OnUnknownEncoding(szName, pEncoding);
}

// Cuts a document into pieces for Expat. When a piece ends within a text, Expat reports the text in
// two parts, but the reader takes a date or an amount from one part only. Expat reports a line feed
// as a part of its own in any case, so pieces end behind line feeds. In UTF-16 the byte of a line
// feed may be half of another character, so such a document stays in one piece. So does a document
// without line feeds.
class PieceBuffer
{
public:
    // Reads more. Returns false when the source fails, when memory runs out, and when the document
    // is longer than Expat can count.
    bool Fill(QMByteSource& source)
    {
        if (!Reserve()) {
            return false;
        }
        const int64_t nRead = source.ReadSome(m_pBytes.get() + m_uLength, m_uSize - m_uLength);
        if (nRead < 0) {
            return false;
        }
        m_uLength += static_cast<size_t>(nRead);
        m_bAtEnd = m_uLength < m_uSize;
        if (m_bFirst && m_uLength >= 2) {
            const auto* p = reinterpret_cast<const unsigned char*>(m_pBytes.get());
            m_bWide = p[0] == 0 || p[1] == 0 || p[0] >= 0xFE;
        }
        m_bFirst = false;
        return true;
    }

    // Bytes up to the last line feed; 0 without one.
    size_t FindPiece() const
    {
        size_t u = m_bWide ? 0 : m_uLength;
        while (u > 0 && m_pBytes[u - 1] != '\n') {
            --u;
        }
        return u;
    }

    void Drop(size_t uCount)
    {
        m_uLength -= uCount;
        memmove(m_pBytes.get(), m_pBytes.get() + uCount, m_uLength);
    }

    bool IsAtEnd() const { return m_bAtEnd; }
    const char* GetBytes() const { return m_pBytes.get(); }
    size_t GetLength() const { return m_uLength; }

private:
    static constexpr size_t uFirstSize = 1 << 18;

    // Makes room for more bytes.
    bool Reserve()
    {
        if (m_uLength < m_uSize) {
            return true;
        }
        const size_t uNew = m_uSize == 0 ? uFirstSize : 2 * m_uSize;
        if (uNew > static_cast<size_t>(std::numeric_limits<int32_t>::max())) {
            return false;
        }
        std::unique_ptr<char[]> pNew(new (std::nothrow) char[uNew]);
        if (pNew == nullptr) {
            return false;
        }
        if (m_uLength > 0) {
            memcpy(pNew.get(), m_pBytes.get(), m_uLength);
        }
        m_pBytes = std::move(pNew);
        m_uSize = uNew;
        return true;
    }

    std::unique_ptr<char[]> m_pBytes;
    size_t m_uSize = 0;
    size_t m_uLength = 0;
    bool m_bFirst = true;
    bool m_bWide = false;
    bool m_bAtEnd = false;
};

} // namespace

QMXmlParser::~QMXmlParser()
{
    CloseParser();
}

void QMXmlParser::CloseParser()
{
    if (pParser != nullptr) {
        XML_ParserFree(pParser);
        pParser = nullptr;
    }
}

void QMXmlParser::OnCharacterData(const char* /*pText*/, int32_t /*lLength*/) {}

void QMXmlParser::OnStartElement(const char* /*szName*/, const char** /*aszAttributes*/) {}

void QMXmlParser::OnEndElement(const char* /*szName*/) {}

int32_t QMXmlParser::OnUnknownEncoding(const char* /*szName*/, XML_Encoding* /*pEncoding*/)
{
    return 0;
}

bool QMXmlParser::OpenParser()
{
    CloseParser();
    pParser = XML_ParserCreate(nullptr);
    if (pParser == nullptr) {
        return false;
    }
    XML_SetUserData(pParser, this);
    XML_SetElementHandler(pParser, StartElement, EndElement);
    XML_SetCharacterDataHandler(pParser, CharacterData);
    XML_SetUnknownEncodingHandler(pParser, UnknownEncoding, this);
    return true;
}

bool QMXmlParser::ParsePiece(const char* pBytes, size_t uLength, bool bLast)
{
    return XML_Parse(pParser, pBytes, static_cast<int>(uLength), bLast ? XML_TRUE : XML_FALSE) ==
           XML_STATUS_OK;
}

bool QMXmlParser::Parse(const char* pBytes, int32_t lLength)
{
    const bool bDone = OpenParser() && ParsePiece(pBytes, static_cast<size_t>(lLength), true);
    CloseParser();
    return bDone;
}

bool QMXmlParser::Parse(QMByteSource& source)
{
    const bool bDone = OpenParser() && ParsePieces(source);
    CloseParser();
    return bDone;
}

bool QMXmlParser::ParsePieces(QMByteSource& source)
{
    PieceBuffer buffer;
    for (;;) {
        if (!buffer.Fill(source)) {
            return false;
        }
        if (buffer.IsAtEnd()) {
            return ParsePiece(buffer.GetBytes(), buffer.GetLength(), true);
        }
        const size_t uPiece = buffer.FindPiece();
        if (uPiece > 0 && !ParsePiece(buffer.GetBytes(), uPiece, false)) {
            return false;
        }
        buffer.Drop(uPiece);
    }
}
