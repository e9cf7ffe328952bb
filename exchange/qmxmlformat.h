// QMXmlFormat: transactions as an XML document.
#pragma once

#include "account/qmprogress.h"
#include "account/qmtransaction.h"
#include "account/qmtransactionstore.h"
#include "base/vstring.h"
#include "exchange/qmtemporaryrecords.h"
#include "exchange/qmtextwriter.h"
#include "exchange/qmxmlparser.h"

class QMXmlFormat : public QMXmlParser
{
public:
    // Replaces the contents of the store by the transactions of a document. Returns false, and
    // leaves the store as it is, when the file cannot be read or is empty, when the document is not
    // well formed or has an unknown encoding, and when memory ran out.
    //
    // Kept: values are taken as they are. A type that does not fit the sign of its amount stays,
    // and so does the sign.
    bool Import(const char* szPath, QMTransactionStore& store);
    bool Import(QMByteSource& source, QMTransactionStore& store);

    // Gives the transactions to a taker as they are read. On false it may have got some of them.
    bool Import(QMByteSource& source, QMRecordTaker& taker);

    // Of the records of the last import.
    const QMImportTally& GetTally() const { return m_records.GetTally(); }

    // Writes the store from its first transaction on. The store's cursor is on the last one
    // afterwards. A transaction of an unknown type is left out. Returns false when the file cannot
    // be created.
    //
    // Kept: for a store without transactions, and for one whose last transaction has an unknown
    // type, this never returns. Call QMExportObstacle first.
    bool Export(const char* szPath, QMTransactionStore& store);

    // Writes to a sink. Returns false when the sink refused anything.
    static bool WriteTo(QMByteSink& sink, QMTransactionStore& store,
                        QMProgress* pProgress = nullptr);

    void OnCharacterData(const char* pText, int32_t lLength) override;
    void OnStartElement(const char* szName, const char** aszAttributes) override;
    void OnEndElement(const char* szName) override;
    int32_t OnUnknownEncoding(const char* szName, XML_Encoding* pEncoding) override;

private:
    void Begin(QMRecordTaker* pTaker);
    void StartTransaction(const char** aszAttributes);
    void StartField(const char* szName, const char** aszAttributes);
    void SetTag(int32_t lRole);
    void GatherText(const char* szPiece);
    void EndField();
    void EndTransaction();

    QMTransactionStore storeTemp; // the records that were read so far
    int32_t nCurrentType = -1;    // of the open transaction; -1 for none or one left out
    int32_t nCurrentRole = -1;    // the QMFieldRole of the open child element; -1 without one
    int32_t nCurrentTag = -1;     // the role that the open tag element names; -1 without one
    QMTransaction txPending;      // the record that is being read
    VString strText; // the text of a description, memo or category, as far as it was read

    QMTemporaryRecords m_records{storeTemp};
};
