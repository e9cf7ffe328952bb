// QMXmlParser: the callbacks of Expat as virtual operations.
#pragma once

#include <cstdint>

#include <expat.h>

#include "account/qmbytesource.h"

// Names, attributes and texts are UTF-8, whatever the encoding of the document is.
class QMXmlParser
{
public:
    QMXmlParser() = default;
    QMXmlParser(const QMXmlParser&) = delete;
    QMXmlParser& operator=(const QMXmlParser&) = delete;
    virtual ~QMXmlParser();

    // The text does not end with a zero; lLength is above 0. A text may come in several pieces.
    virtual void OnCharacterData(const char* pText, int32_t lLength);

    // aszAttributes holds names and values in turn, and a null after the last value.
    virtual void OnStartElement(const char* szName, const char** aszAttributes);
    virtual void OnEndElement(const char* szName);

    // Describes an encoding that Expat does not know. 0 refuses the encoding and so the document.
    virtual int32_t OnUnknownEncoding(const char* szName, XML_Encoding* pEncoding);

    // Parses a whole document. Returns false when it is not well formed, and when memory ran out.
    bool Parse(const char* pBytes, int32_t lLength);

    // The same for a source, piece by piece: a document of any length takes little memory. Texts
    // come in the same pieces as from a document in memory. False also when the source fails.
    bool Parse(QMByteSource& source);

private:
    bool OpenParser();
    bool ParsePiece(const char* pBytes, size_t uLength, bool bLast);
    bool ParsePieces(QMByteSource& source);
    void CloseParser();

    XML_Parser pParser = nullptr;
};
