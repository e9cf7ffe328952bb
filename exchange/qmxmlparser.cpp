#include "exchange/qmxmlparser.h"

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

bool QMXmlParser::Parse(const char* pBytes, int32_t lLength)
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
    const bool bDone = XML_Parse(pParser, pBytes, lLength, XML_TRUE) == XML_STATUS_OK;
    CloseParser();
    return bDone;
}
