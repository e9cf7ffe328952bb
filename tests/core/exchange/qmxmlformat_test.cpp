#include "exchange/qmxmlformat.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {

const Texts refused = {"(refused)"};
const char szDefaults[] = "1/1/2000 1 #1000 0.00 f16 1/1/2000";

// What the content of one transaction element reads as.
std::string Record(const std::string& sContent, const std::string& sType = "deposit")
{
    return FullText(ImportOne("a.xml", "<quillmark><transaction type=\"" + sType + "\">" +
                                           sContent + "</transaction></quillmark>"));
}

std::string Memo(const std::string& sContent)
{
    return ImportOne("a.xml",
                     "<q><transaction type=\"fee\"><memo>" + sContent + "</memo></transaction></q>")
        .szMemo;
}

std::string WrittenRecord(const QMTransaction& transaction)
{
    const std::string sFile = Export("a.xml", {transaction});
    const std::string sRoot = "<quillmark>\n";
    const std::string sEnd = "</quillmark>\n";
    const size_t uBegin = sFile.find(sRoot) + sRoot.size();
    EXPECT_TRUE(sFile.ends_with(sEnd));
    return sFile.substr(uBegin, sFile.size() - sEnd.size() - uBegin);
}

} // namespace

TEST(XmlReader, ReadsAFullRecord)
{
    EXPECT_EQ(Record("\n\t<number>1001</number>\n\t<date>03/14/2004</date>\n"
                     "\t<description>Rent</description>\n\t<amount>12.50</amount>\n"
                     "\t<memo>March</memo>\n\t<category>Home</category>\n"
                     "\t<tag type=\"expense\"></tag>\n\t<tag type=\"cleared\">03/20/2004</tag>\n",
                     "check"),
              "3/14/2004 0 #1001 12.50 f2 3/20/2004 'Rent' 'March' 'Home'");
}

TEST(XmlReader, DoesNotLookAtTheRootElementsName)
{
    for (const char* szRoot : {"quillmark", "anything"}) {
        const std::string sRoot = szRoot;
        EXPECT_EQ(Import("a.xml", "<" + sRoot + "><transaction type='deposit'/></" + sRoot + ">"),
                  Texts{szDefaults});
    }
    EXPECT_EQ(Import("a.xml", "<transaction type='deposit'/>"), Texts{szDefaults});
    EXPECT_EQ(Import("a.xml", "<quillmark/>"), Texts{});
}

TEST(XmlReader, ComparesNamesIgnoringCase)
{
    EXPECT_EQ(Import("a.xml",
                     "<q><TRANSACTION Type='DEPOSIT'><AMOUNT>5</AMOUNT>"
                     "<Tag TYPE='Tax'/></TRANSACTION></q>"),
              Texts{"1/1/2000 1 #1000 5.00 f20 1/1/2000"});
}

TEST(XmlReader, TakesATypeByItsBeginning)
{
    EXPECT_EQ(Record("", "deposited"), szDefaults);
    EXPECT_EQ(Record("", "Direct Deposit"), "1/1/2000 4 #1000 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("", "direct-deposit"), "1/1/2000 4 #1000 0.00 f16 1/1/2000");
}

TEST(XmlReader, DropsATransactionOfAnUnknownTypeOrOfNone)
{
    EXPECT_EQ(Import("a.xml",
                     "<q><transaction type='gift'><amount>5</amount><tag type='tax'/>"
                     "</transaction><transaction><amount>6</amount></transaction>"
                     "<transaction type='deposit'/></q>"),
              Texts{szDefaults})
        << "no value of a dropped transaction may reach the next one";
}

TEST(XmlReader, KeepsWhateverDisagrees)
{
    EXPECT_EQ(Record("<amount>-5.00</amount>"), "1/1/2000 1 #1000 -5.00 f16 1/1/2000");
    EXPECT_EQ(Record("<date>3/14/2004</date><tag type='cleared'>1/1/2003</tag>"),
              "3/14/2004 1 #1000 0.00 f0 1/1/2003");
    EXPECT_EQ(Record("<date>3/14/2004</date>"), "3/14/2004 1 #1000 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("<amount>5</amount>", "fee"), "1/1/2000 3 #1000 5.00 f16 1/1/2000");
}

TEST(XmlReader, LeavesTheNumberAt1000UnseenWhereNoneIsGiven)
{
    EXPECT_EQ(Record(""), szDefaults);
    EXPECT_EQ(Import("a.xml",
                     "<q><transaction type='check'><number>7</number></transaction>"
                     "<transaction type='check'/></q>"),
              (Texts{"1/1/2000 0 #7 0.00 f16 1/1/2000", "1/1/2000 0 #1000 0.00 f16 1/1/2000"}));
}

TEST(XmlReader, KnowsElementsByTheirBeginning)
{
    EXPECT_EQ(Record("<payee>a</payee><numb>7</numb><memorandum>m</memorandum>"),
              "1/1/2000 1 #7 0.00 f16 1/1/2000 'a' 'm'");
    EXPECT_EQ(Record("<date>3/14/2004</date><date-cleared>4/1/2004</date-cleared>"),
              "4/1/2004 1 #1000 0.00 f16 1/1/2000")
        << "date-cleared begins with date, so it sets the date";
    EXPECT_EQ(Record("<debit>5</debit><credit>6</credit><voided>yes</voided><other>x</other>"),
              szDefaults);
}

TEST(XmlReader, AppliesTagsInTheOrderInWhichTheyCome)
{
    EXPECT_EQ(Record("<tag type='voided'/><tag type='cleared'/>"),
              "1/1/2000 1 #1000 0.00 f1 1/1/2000");
    EXPECT_EQ(Record("<tag type='cleared'/><tag type='voided'/>"),
              "1/1/2000 1 #1000 0.00 f17 1/1/2000");
    EXPECT_EQ(Record("<tag type='tax-deductible'/><tag type='expense'/>"),
              "1/1/2000 1 #1000 0.00 f18 1/1/2000");
    EXPECT_EQ(Record("<tag type='other'/><tag/><tagged type='voided'/>"), szDefaults);
}

TEST(XmlReader, ReadsTheDateOfAClearedTagAlone)
{
    EXPECT_EQ(Record("<tag type='cleared'>3/14/2004</tag>"), "1/1/2000 1 #1000 0.00 f0 3/14/2004");
    EXPECT_EQ(Record("<tag type='voided'>3/14/2004</tag>"), "1/1/2000 1 #1000 0.00 f17 1/1/2000");
    EXPECT_EQ(Record("<tag type='cleared'><date>3/14/2004</date></tag>"),
              "3/14/2004 1 #1000 0.00 f0 1/1/2000")
        << "an element inside the tag must set its own field";
    EXPECT_EQ(Record("<tag type='cleared'/><tag>3/14/2004</tag>"),
              "1/1/2000 1 #1000 0.00 f0 3/14/2004")
        << "the type of the last tag must stay until another field comes";
    EXPECT_EQ(Record("<tag type='cleared'/><memo/><tag>3/14/2004</tag>"),
              "1/1/2000 1 #1000 0.00 f0 1/1/2000");
}

TEST(XmlReader, JoinsThePiecesOfATextAndOfNothingElse)
{
    EXPECT_EQ(Memo("a&lt;b&gt;c"), "a<b>c");
    EXPECT_EQ(Memo("<![CDATA[a<b]]>c"), "a<bc");
    EXPECT_EQ(Record("<amount>1&#50;</amount>"), "1/1/2000 1 #1000 2.00 f16 1/1/2000")
        << "of an amount in pieces the last piece must count";
}

TEST(XmlReader, LosesABlankThatIsAPieceOfItsOwn)
{
    EXPECT_EQ(Memo("a&amp; &amp;b"), "a&&b");
    EXPECT_EQ(Memo("a &amp; b"), "a & b");
    EXPECT_EQ(Memo("one\ntwo"), "onetwo");
    EXPECT_EQ(Memo(" "), "");
    EXPECT_EQ(Memo("  "), "  ");
}

TEST(XmlReader, CutsAPieceAt256BytesAndATextAtItsField)
{
    EXPECT_EQ(Memo(std::string(300, 'x')), std::string(255, 'x'));
    EXPECT_EQ(Memo(std::string(250, 'x') + "&lt;" + std::string(300, 'y')),
              std::string(250, 'x') + "<yyyy");
    EXPECT_EQ(Memo(std::string(300, 'x') + "&lt;"), std::string(255, 'x'));
    const QMTransaction record =
        ImportOne("a.xml", "<q><transaction type='check'><category>" + std::string(300, 'c') +
                               "</category><description>" + std::string(300, 'd') +
                               "</description></transaction></q>");
    EXPECT_EQ(record.szCategory, std::string(127, 'c'));
    EXPECT_EQ(record.szDescription, std::string(255, 'd'));
}

TEST(XmlReader, LeavesATextWhereAnEmptyElementFollows)
{
    EXPECT_EQ(Record("<memo>m</memo><memo/>"), "1/1/2000 1 #1000 0.00 f16 1/1/2000 '' 'm'");
}

TEST(XmlReader, EndsTheRecordAtTheInnerOfTwoNestedTransactions)
{
    EXPECT_EQ(Record("<memo>a</memo><transaction type='fee'><amount>5</amount></transaction>"
                     "<memo>b</memo>"),
              "1/1/2000 3 #1000 5.00 f16 1/1/2000 '' 'a'");
}

TEST(XmlReader, StoresUtf8AsItComes)
{
    EXPECT_EQ(Memo("caf\xC3\xA9"), "caf\xC3\xA9");
    EXPECT_EQ(Memo("&#233;"), "\xC3\xA9");
    EXPECT_EQ(ImportOne("a.xml",
                        "<?xml version='1.0' encoding='ISO-8859-1'?><transaction "
                        "type='fee'><memo>\xE9</memo></transaction>")
                  .szMemo,
              std::string("\xC3\xA9"));
}

TEST(XmlReader, ReadsWindows1252AsIso88591AndRefusesOtherUnknownEncodings)
{
    const std::string sRest = "'?><transaction type='fee'><memo>a\x80\xE9</memo></transaction>";
    for (const char* szName : {"Windows-1252", "WINDOWS-1252"}) {
        EXPECT_EQ(ImportOne("a.xml", std::string("<?xml version='1.0' encoding='") + szName + sRest)
                      .szMemo,
                  std::string("a\xC2\x80\xC3\xA9"))
            << szName;
    }
    for (const char* szName : {"Windows-1251", "cp1252", "Windows-12520"}) {
        EXPECT_EQ(Import("a.xml", std::string("<?xml version='1.0' encoding='") + szName + sRest),
                  refused)
            << szName;
    }
}

TEST(XmlReader, KeepsNothingOfADocumentThatIsNotWellFormed)
{
    const std::string sGood = "<q><transaction type='deposit'></transaction>";
    const std::string aFiles[] = {
        "",
        " ",
        "text",
        sGood,
        sGood + "</p>",
        sGood + "</q><q/>",
        sGood + "&unknown;</q>",
        sGood + "<memo>a & b</memo></q>",
        sGood + "\xE9</q>",
        sGood + std::string(1, '\0') + "</q>",
        "<q><transaction type='deposit' type='fee'/></q>",
    };
    for (const std::string& sFile : aFiles) {
        EXPECT_EQ(Import("a.xml", sFile), refused) << sFile;
    }
    EXPECT_EQ(Import("a.xml", sGood + "</q>"), Texts{szDefaults});
}

TEST(XmlReader, LeavesTheStoreOnAnyFailure)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a.xml");
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "3/14/2004", 5));
    QMXmlFormat format;
    WriteWholeFile(sPath, "<q><transaction type='fee'/><q>");
    EXPECT_FALSE(format.Import(sPath.c_str(), store));
    EXPECT_FALSE(format.Import(folder.PathOf("absent").c_str(), store));
    EXPECT_FALSE(format.Import(folder.GetPath().c_str(), store));
    EXPECT_FALSE(format.Import(nullptr, store));
    EXPECT_EQ(store.GetCount(), 1);
    WriteWholeFile(sPath, "<q><transaction type='fee'/><transaction type='fee'/></q>");
    EXPECT_TRUE(format.Import(sPath.c_str(), store))
        << "the failed imports must leave nothing behind";
    EXPECT_EQ(store.GetCount(), 2);
}

TEST(XmlReader, RefusesADocumentThatGrowsWithoutMeasure)
{
    std::string sFile = "<!DOCTYPE q [<!ENTITY e0 \"0123456789\">";
    for (int i = 1; i < 10; ++i) {
        const std::string sInner = "&e" + std::to_string(i - 1) + ";";
        sFile += "<!ENTITY e" + std::to_string(i) + " \"";
        for (int j = 0; j < 10; ++j) {
            sFile += sInner;
        }
        sFile += "\">";
    }
    EXPECT_EQ(Import("a.xml", sFile + "]><q><transaction type='fee'><memo>&e9;</memo>"
                                      "</transaction></q>"),
              refused);
}

// Kept: the document type has the name DOCUMENT, and the root element another one.
TEST(XmlWriter, WritesTheWholeDocumentWordForWord)
{
    QMTransaction check = MakeFull(0, "3/4/2004", 1234.5F, "Rent", "March", "Home", 0);
    check.lNumber = 1001;
    check.dtCleared = MakeDate("3/20/2004");
    EXPECT_EQ(
        Export("a.xml", {check}),
        "<?xml version=\"1.0\" standalone=\"yes\"?>\n"
        "<!DOCTYPE DOCUMENT [\n"
        "<!ELEMENT quillmark    (transaction)*>\n"
        "<!ELEMENT transaction  (number?, date, description?, amount, memo?, category?, tag*)>\n"
        "<!ATTLIST transaction  type (check | deposit | withdrawal | fee | direct-deposit | "
        "direct-debit | atm-deposit | atm-withdrawal | auto-payment | transfer-credit | "
        "transfer-debit | interest) #REQUIRED>\n"
        "<!ELEMENT number       (#PCDATA)*>\n"
        "<!ELEMENT date         (#PCDATA)*>\n"
        "<!ELEMENT description  (#PCDATA)*>\n"
        "<!ELEMENT amount       (#PCDATA)*>\n"
        "<!ELEMENT memo         (#PCDATA)*>\n"
        "<!ELEMENT category     (#PCDATA)*>\n"
        "<!ELEMENT tag          (date)?>\n"
        "<!ATTLIST tag          type (voided | expense | tax-deductible | cleared) #REQUIRED>\n"
        "]>\n"
        "\n"
        "<quillmark>\n"
        "<transaction type=\"check\">\n"
        "\t<number>1001</number>\n"
        "\t<date>03/04/2004</date>\n"
        "\t<description>Rent</description>\n"
        "\t<amount>1234.50</amount>\n"
        "\t<memo>March</memo>\n"
        "\t<category>Home</category>\n"
        "\t<tag type=\"cleared\">03/20/2004</tag>\n"
        "</transaction>\n"
        "</quillmark>\n");
}

TEST(XmlWriter, NamesEveryTypeAndWritesNoSignAndNoDescriptionButOfChecks)
{
    const char* const aszTypes[] = {
        "check",          "deposit",         "withdrawal",     "fee",
        "direct-deposit", "direct-debit",    "atm-deposit",    "atm-withdrawal",
        "auto-payment",   "transfer-credit", "transfer-debit", "interest"};
    for (int32_t lType = 1; lType < 12; ++lType) {
        EXPECT_EQ(WrittenRecord(MakeFull(lType, "12/31/1999", 5, "gone", "", "")),
                  std::string("<transaction type=\"") + aszTypes[lType] +
                      "\">\n\t<date>12/31/1999</date>\n\t<amount>5.00</amount>\n"
                      "</transaction>\n");
    }
}

TEST(XmlWriter, WritesATagForEachBit)
{
    const auto Tags = [](uint32_t uFlags) {
        const std::string sRecord = WrittenRecord(MakeFull(1, "1/2/2004", 5, "", "", "", uFlags));
        const std::string sBefore = "<amount>5.00</amount>\n";
        const size_t uBegin = sRecord.find(sBefore) + sBefore.size();
        return sRecord.substr(uBegin, sRecord.find("</transaction>") - uBegin);
    };
    EXPECT_EQ(Tags(16), "");
    EXPECT_EQ(Tags(0), "\t<tag type=\"cleared\">01/02/2004</tag>\n");
    EXPECT_EQ(Tags(17), "\t<tag type=\"voided\"></tag>\n");
    EXPECT_EQ(Tags(7),
              "\t<tag type=\"voided\"></tag>\n\t<tag type=\"expense\"></tag>\n"
              "\t<tag type=\"tax-deductible\"></tag>\n"
              "\t<tag type=\"cleared\">01/02/2004</tag>\n");
}

TEST(XmlWriter, PassesOverAnUnknownType)
{
    const std::vector<QMTransaction> records = {
        MakeFull(1, "1/1/2004", 5, "", "", ""), MakeFull(12, "1/2/2004", 6, "", "", ""),
        MakeFull(-1, "1/3/2004", 6, "", "", ""), MakeFull(2, "1/4/2004", 7, "", "", "")};
    EXPECT_EQ(Import("a.xml", Export("a.xml", records)),
              (Texts{"1/1/2004 1 #1000 5.00 f16 1/1/2000", "1/4/2004 2 #1000 7.00 f16 1/1/2000"}));
}

TEST(XmlWriter, EscapesFiveCharacters)
{
    const std::string sRecord =
        WrittenRecord(MakeFull(0, "1/1/2004", 5, "<a> & 'b' \"c\"", "", "<<>>"));
    EXPECT_NE(sRecord.find("<description>&lt;a&gt; &amp; &apos;b&apos; &quot;c&quot;"
                           "</description>"),
              std::string::npos)
        << sRecord;
    EXPECT_NE(sRecord.find("<category>&lt;&lt;&gt;&gt;</category>"), std::string::npos);
}

TEST(XmlWriter, EscapesTheFirstAmpersandOnlySoThatTwoMakeAFileThatIsRefused)
{
    const std::string sOne = Export("a.xml", {MakeFull(1, "1/1/2004", 5, "", "a & b", "c & d")});
    EXPECT_EQ(Import("a.xml", sOne),
              Texts{"1/1/2004 1 #1000 5.00 f16 1/1/2000 '' 'a & b' 'c & d'"});
    const std::string sTwo = Export("a.xml", {MakeFull(1, "1/1/2004", 5, "", "a & b & c", "")});
    EXPECT_NE(sTwo.find("<memo>a &amp; b & c</memo>"), std::string::npos);
    EXPECT_EQ(Import("a.xml", sTwo), refused);
}

TEST(XmlWriter, MakesAFileThatIsRefusedOfABytePast127)
{
    const std::string sFile = Export("a.xml", {MakeFull(1, "1/1/2004", 5, "", "caf\xE9", "")});
    EXPECT_NE(sFile.find("<memo>caf\xE9</memo>"), std::string::npos);
    EXPECT_EQ(Import("a.xml", sFile), refused);
}

TEST(XmlWriter, FailsWhereTheFileCannotBeMade)
{
    const TemporaryFolder folder;
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "1/1/2004", 5));
    EXPECT_FALSE(QMXmlFormat().Export(folder.PathOf("no/a.xml").c_str(), store));
    EXPECT_FALSE(QMXmlFormat().Export(folder.GetPath().c_str(), store));
    EXPECT_FALSE(QMXmlFormat().Export(nullptr, store));
}

TEST(XmlParser, RefusesUnknownEncodingsAndPassesTheRestByItself)
{
    const std::string sPlain = "<q a='b'>text<r/></q>";
    const std::string sUnknown = "<?xml version='1.0' encoding='unheard-of'?>" + sPlain;
    QMXmlParser parser;
    EXPECT_TRUE(parser.Parse(sPlain.data(), static_cast<int32_t>(sPlain.size())));
    EXPECT_FALSE(parser.Parse(sUnknown.data(), static_cast<int32_t>(sUnknown.size())));
    EXPECT_TRUE(parser.Parse(sPlain.data(), static_cast<int32_t>(sPlain.size())));
    EXPECT_FALSE(parser.Parse("", 0));
    EXPECT_EQ(parser.OnUnknownEncoding("Windows-1252", nullptr), 0);
}

TEST(XmlFormat, KnowsWindows1252InAnyCaseAndNothingElse)
{
    QMXmlFormat format;
    XML_Encoding encoding = {};
    EXPECT_EQ(format.OnUnknownEncoding("latin-9", &encoding), 0);
    EXPECT_EQ(encoding.map[255], 0);
    EXPECT_EQ(format.OnUnknownEncoding("windows-1252", &encoding), 1);
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(encoding.map[i], i);
    }
}
