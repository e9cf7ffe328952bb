// QMXmlFormat: transactions as an XML document.
#pragma once

#include <cstdio>

#include "account/qmtransaction.h"
#include "account/qmtransactionstore.h"
#include "base/vstring.h"
#include "exchange/qmtemporaryrecords.h"
#include "exchange/qmxmlparser.h"

class QMXmlFormat : public QMXmlParser
{
public:
    // Reads a document and makes its transactions the contents of the store. Their values are taken
    // as they come: a type that disagrees with the sign of its amount stays, and so does the sign.
    // False, with the store as it was, for a file that cannot be read, an empty one, a document
    // that is not well formed or has an unknown encoding, and for lack of memory.
    bool Import(const char* szPath, QMTransactionStore& store);

    // Writes the store from its first transaction on, which leaves its cursor on the last; one of
    // an unknown type is passed over. False when the file cannot be created. Never returns for a
    // store without transactions, nor for one whose last transaction is of an unknown type:
    // QMExportObstacle tells beforehand.
    bool Export(const char* szPath, QMTransactionStore& store);

    // The same into a file that is open for writing text. Whether that went well is known to the
    // file: ferror, and fclose at the end.
    static void WriteTo(FILE* pFile, QMTransactionStore& store);

    void OnCharacterData(const char* pText, int32_t lLength) override;
    void OnStartElement(const char* szName, const char** aszAttributes) override;
    void OnEndElement(const char* szName) override;
    int32_t OnUnknownEncoding(const char* szName, XML_Encoding* pEncoding) override;

private:
    void Begin();
    void StartTransaction(const char** aszAttributes);
    void StartField(const char* szName, const char** aszAttributes);
    void SetTag(int32_t lRole);
    void GatherText(const char* szPiece);
    void EndField();
    void EndTransaction();

    QMTransactionStore storeTemp; // the records read so far
    int32_t nCurrentType = -1; // type of the open transaction; -1 outside, and in one passed over
    int32_t nCurrentRole = -1; // QMFieldRole of the open child element; -1 without one
    int32_t nCurrentTag = -1;  // role that the open tag element names; -1 otherwise
    QMTransaction txPending;   // the record being read
    VString strText;           // text gathered for description, memo or category

    QMTemporaryRecords m_records{storeTemp};
};
