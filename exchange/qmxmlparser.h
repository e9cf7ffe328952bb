// QMXmlParser: Expat's callbacks as virtual operations.
#pragma once

#include <cstdint>

#include <expat.h>

// Names, attributes and texts come as UTF-8, whatever the document's encoding.
class QMXmlParser
{
public:
    QMXmlParser() = default;
    QMXmlParser(const QMXmlParser&) = delete;
    QMXmlParser& operator=(const QMXmlParser&) = delete;
    virtual ~QMXmlParser();

    // The text is not terminated and lLength is above 0. A text may come in several pieces.
    virtual void OnCharacterData(const char* pText, int32_t lLength);

    // The attributes are names and values in turn, with a null behind the last value.
    virtual void OnStartElement(const char* szName, const char** aszAttributes);
    virtual void OnEndElement(const char* szName);

    // Fills in an encoding that Expat does not know. 0 refuses it, and with it the document.
    virtual int32_t OnUnknownEncoding(const char* szName, XML_Encoding* pEncoding);

    // Parses a whole document. False when it is not well formed, and for lack of memory.
    bool Parse(const char* pBytes, int32_t lLength);

private:
    void CloseParser();

    XML_Parser pParser = nullptr;
};
