#include "account/qmdocument.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/core/allocationfault.h"
#include "tests/support/account_support.h"
#include "tests/support/support.h"

namespace {

class TestedDocument : public QMDocument
{
public:
    int nTitles = 0;

protected:
    void OnTitleChanged() override { ++nTitles; }
};

class DocumentTest : public testing::Test
{
protected:
    std::string PathOf(const char* szName) const { return m_folder.PathOf(szName); }

    // Opens the small account, kept in a file of that version.
    void OpenSmall(uint32_t uVersion)
    {
        WriteWholeFile(PathOf("a.qmk"), SmallAccount(uVersion));
        auto pAccount = std::make_unique<QMAccount>(PathOf("a.qmk").c_str());
        ASSERT_TRUE(pAccount->Read());
        m_document.SetAccount(std::move(pAccount));
    }

    void AddDeposit()
    {
        AddTo(m_document.GetAccount()->store,
              MakeTransaction(QM_TRANS_DEPOSIT, "3/16/2004", 5, 16, "added"));
        m_document.MarkModified();
    }

    // After a failed Save As: the document still belongs to the small account, changed and not
    // saved.
    void ExpectUntouched()
    {
        EXPECT_TRUE(m_document.IsModified());
        EXPECT_EQ(m_document.GetFullName(), PathOf("a.qmk").c_str());
        EXPECT_EQ(m_document.GetAccount()->store.GetCount(), 3);
        ASSERT_TRUE(m_document.GetAccount()->IsOpen());
        EXPECT_EQ(BytesOfFile(*m_document.GetAccount()), SmallAccount(8192));
    }

    // Moves the store's cursor to the first transaction and returns its category.
    std::string FirstCategory()
    {
        m_document.GetAccount()->store.First();
        return m_document.GetAccount()->store.GetCurrentNode()->szCategory;
    }

    TemporaryFolder m_folder;
    TestedDocument m_document;
};

} // namespace

TEST_F(DocumentTest, WithoutAccountRefusesEverything)
{
    EXPECT_EQ(m_document.GetAccount(), nullptr);
    EXPECT_EQ(m_document.GetHeader(true), nullptr);
    EXPECT_FALSE(m_document.IsModified());
    EXPECT_FALSE(m_document.IsReadOnly());
    EXPECT_FALSE(m_document.Save());
    EXPECT_FALSE(m_document.SaveAs(PathOf("b.qmk").c_str(), 8192));
    QMAccountData data;
    EXPECT_FALSE(m_document.CopyAccount(data));
    QMTransactionStore store;
    EXPECT_EQ(m_document.GetTransactions(store), -1);
    uint32_t uSelection = 9;
    QMDate dtFrom = MakeDate("1/1/2001");
    QMDate dtTo = dtFrom;
    m_document.GetPeriod(uSelection, dtFrom, dtTo);
    EXPECT_EQ(uSelection, 9U);
    EXPECT_EQ(DateText(dtFrom), "1/1/2001");
    EXPECT_TRUE(m_folder.GetNames().empty());
}

TEST_F(DocumentTest, NamesComeFromTheAccountsFile)
{
    OpenSmall(8192);
    EXPECT_EQ(m_document.GetFileName(), "a.qmk");
    EXPECT_EQ(m_document.GetFolder(), m_folder.PathOf("").c_str());
    EXPECT_EQ(m_document.GetFullName(), PathOf("a.qmk").c_str());
    m_document.SetAccount(std::make_unique<QMAccount>("Untitled"));
    EXPECT_EQ(m_document.GetFileName(), "Untitled");
    EXPECT_TRUE(m_document.GetFolder().IsEmpty());
    EXPECT_EQ(m_document.GetFullName(), "Untitled");
}

TEST_F(DocumentTest, TitleShowsUnsavedChanges)
{
    OpenSmall(8192);
    EXPECT_FALSE(m_document.IsModified());
    EXPECT_EQ(m_document.GetTitle(), "a.qmk");
    m_document.MarkModified();
    EXPECT_TRUE(m_document.IsModified());
    EXPECT_EQ(m_document.GetTitle(), "a.qmk *");
    m_document.ClearModified();
    EXPECT_EQ(m_document.GetTitle(), "a.qmk");
}

TEST_F(DocumentTest, TellsEveryTimeTheTitleIsSet)
{
    OpenSmall(8192);
    const int nOpened = m_document.nTitles;
    EXPECT_GT(nOpened, 0);
    m_document.MarkModified();
    m_document.MarkModified();
    m_document.ClearModified();
    EXPECT_EQ(m_document.nTitles, nOpened + 3);
}

TEST_F(DocumentTest, HeaderIsTheAccountsAndMarkedOnDemand)
{
    OpenSmall(8192);
    EXPECT_EQ(m_document.GetHeader(false), &m_document.GetAccount()->header);
    EXPECT_FALSE(m_document.IsModified());
    EXPECT_EQ(m_document.GetHeader(true), &m_document.GetAccount()->header);
    EXPECT_TRUE(m_document.IsModified());
}

TEST_F(DocumentTest, ReadOnlyMarkAndPeriodComeFromTheHeader)
{
    OpenSmall(8192);
    EXPECT_FALSE(m_document.IsReadOnly());
    QMAccountHeader* pHeader = m_document.GetHeader(false);
    pHeader->bReadOnly = 1;
    pHeader->lDisplayPeriod = QM_ACCNT_DISPLAY_DATE_RANGE;
    pHeader->dtPeriodFrom = MakeDate("1/2/2003");
    pHeader->dtPeriodTo = MakeDate("4/5/2006");
    EXPECT_TRUE(m_document.IsReadOnly());
    uint32_t uSelection = 0;
    QMDate dtFrom;
    QMDate dtTo;
    m_document.GetPeriod(uSelection, dtFrom, dtTo);
    EXPECT_EQ(uSelection, QM_ACCNT_DISPLAY_DATE_RANGE);
    EXPECT_EQ(DateText(dtFrom), "1/2/2003");
    EXPECT_EQ(DateText(dtTo), "4/5/2006");
}

TEST_F(DocumentTest, CopiesAreTheCallersOwn)
{
    OpenSmall(8192);
    m_document.GetHeader(false)->lWidthMemo = 111;
    QMAccountData data;
    EXPECT_TRUE(m_document.CopyAccount(data));
    EXPECT_EQ(data.header.lWidthMemo, 111);
    EXPECT_EQ(data.store.GetCount(), 2);
    QMTransactionStore store;
    AddTo(store, MakeTransaction(QM_TRANS_FEE, "1/1/2001", 1));
    EXPECT_EQ(m_document.GetTransactions(store), 2);
    const auto contents = ContentsOf(m_document.GetAccount()->store);
    EXPECT_EQ(ContentsOf(store), contents);
    store.Clear();
    data.store.Clear();
    data.header.lWidthMemo = 5;
    EXPECT_EQ(ContentsOf(m_document.GetAccount()->store), contents);
    EXPECT_EQ(m_document.GetHeader(false)->lWidthMemo, 111);
    EXPECT_FALSE(m_document.IsModified());
}

TEST_F(DocumentTest, CopyOfNothingHasNoTransactions)
{
    m_document.SetAccount(std::make_unique<QMAccount>("Untitled"));
    QMTransactionStore store;
    EXPECT_EQ(m_document.GetTransactions(store), 0);
}

TEST_F(DocumentTest, SaveWritesTheFileAndClearsTheMark)
{
    OpenSmall(8192);
    AddDeposit();
    EXPECT_TRUE(m_document.Save());
    EXPECT_FALSE(m_document.IsModified());
    EXPECT_TRUE(m_document.GetAccount()->IsOpen());
    QMAccount again("");
    EXPECT_TRUE(ReadBytes(again, BytesOfFile(*m_document.GetAccount())));
    EXPECT_EQ(ContentsOf(again.store), ContentsOf(m_document.GetAccount()->store));
    EXPECT_EQ(again.store.GetCount(), 3);
    EXPECT_EQ(m_folder.GetNames(), std::vector<std::string>{"a.qmk"});
}

TEST_F(DocumentTest, SaveTurnsOlderFormatsInto20)
{
    for (const uint32_t uVersion : {4096U, 4352U, 5000U, 8191U}) {
        OpenSmall(uVersion);
        EXPECT_TRUE(m_document.Save()) << "version " << uVersion;
        EXPECT_EQ(m_document.GetAccount()->lVersion, 8192) << "version " << uVersion;
        const std::string sFile = BytesOfFile(*m_document.GetAccount());
        EXPECT_EQ(NumberAt(sFile, uVersionOffset), 8192U);
        QMAccount again("");
        EXPECT_TRUE(ReadBytes(again, sFile));
        EXPECT_EQ(ContentsOf(again.store), ContentsOf(m_document.GetAccount()->store));
        m_document.GetAccount()->Close();
    }
}

TEST_F(DocumentTest, SaveMakesAFileThatIsNotThere)
{
    m_document.SetAccount(std::make_unique<QMAccount>(PathOf("new.qmk").c_str()));
    AddDeposit();
    EXPECT_TRUE(m_document.Save());
    EXPECT_FALSE(m_document.IsModified());
    EXPECT_EQ(m_folder.GetNames(), std::vector<std::string>{"new.qmk"});
    EXPECT_EQ(NumberAt(BytesOfFile(*m_document.GetAccount()), uCountOffset), 1U);
}

TEST_F(DocumentTest, SaveFailsWhereTheFolderIsMissing)
{
    const std::string sPath = (std::filesystem::path(PathOf("none")) / "new.qmk").string();
    m_document.SetAccount(std::make_unique<QMAccount>(sPath.c_str()));
    AddDeposit();
    EXPECT_FALSE(m_document.Save());
    EXPECT_TRUE(m_document.IsModified());
    EXPECT_TRUE(m_folder.GetNames().empty());
}

// The account was never saved. Meanwhile somebody else made a file of its name.
TEST_F(DocumentTest, SaveFailsForAFileThatTheAccountDoesNotHold)
{
    m_document.SetAccount(std::make_unique<QMAccount>(PathOf("a.qmk").c_str()));
    AddDeposit();
    WriteWholeFile(PathOf("a.qmk"), "other");
    EXPECT_FALSE(m_document.Save());
    EXPECT_TRUE(m_document.IsModified());
    EXPECT_EQ(ReadWholeFile(PathOf("a.qmk")), "other");
}

TEST_F(DocumentTest, SaveWithoutMemoryLeavesTheFile)
{
    OpenSmall(8192);
    AddDeposit();
    bool bSaved;
    {
        const AllocationFault fault;
        bSaved = m_document.Save();
    }
    EXPECT_FALSE(bSaved);
    ExpectUntouched();
}

TEST_F(DocumentTest, SaveAsGoesOnWithTheNewFile)
{
    OpenSmall(8192);
    AddDeposit();
    const auto contents = ContentsOf(m_document.GetAccount()->store);
    EXPECT_TRUE(m_document.SaveAs(PathOf("b.qmk").c_str(), 0));
    EXPECT_FALSE(m_document.IsModified());
    EXPECT_EQ(m_document.GetTitle(), "b.qmk");
    EXPECT_EQ(m_document.GetFullName(), PathOf("b.qmk").c_str());
    EXPECT_TRUE(m_document.GetAccount()->IsOpen());
    EXPECT_EQ(ContentsOf(m_document.GetAccount()->store), contents);
    EXPECT_EQ(ReadWholeFile(PathOf("a.qmk")), SmallAccount(8192)); // free again, and as it was
    AddDeposit();
    EXPECT_TRUE(m_document.Save());
    EXPECT_EQ(NumberAt(BytesOfFile(*m_document.GetAccount()), uCountOffset), 4U);
}

TEST_F(DocumentTest, SaveAsTakesTheVersionAskedFor)
{
    constexpr struct
    {
        uint32_t uPresent;
        int32_t lAsked;
        int32_t lThen;
    } aCases[] = {{8192, 0, 8192},    {8192, 4096, 4096}, {8192, 4352, 4352}, {8192, 8192, 8192},
                  {8192, 5000, 8192}, {4096, 0, 4096},    {4096, 8192, 8192}, {4352, 4096, 4096},
                  {5000, 0, 5000},    {5000, 4352, 4352}, {4352, -1, 4352}};
    for (const auto& versions : aCases) {
        OpenSmall(versions.uPresent);
        EXPECT_TRUE(m_document.SaveAs(PathOf("b.qmk").c_str(), versions.lAsked));
        EXPECT_EQ(m_document.GetAccount()->lVersion, versions.lThen)
            << "version " << versions.uPresent << " saved as " << versions.lAsked;
        const std::string sFile = BytesOfFile(*m_document.GetAccount());
        EXPECT_EQ(NumberAt(sFile, uVersionOffset), static_cast<uint32_t>(versions.lThen));
        const bool bCategory = versions.uPresent == 8192 && versions.lThen == 8192;
        EXPECT_EQ(FirstCategory(), bCategory ? "House" : "");
        if (versions.uPresent == 8192 || versions.lThen != 8192) {
            EXPECT_EQ(sFile, SmallAccount(static_cast<uint32_t>(versions.lThen)));
        }
        m_document.GetAccount()->Close();
    }
}

// Save As reads the account back from the file. So what the older format cannot hold is lost at
// once.
TEST_F(DocumentTest, SaveAsAnOlderFormatDropsTheCategories)
{
    for (const int32_t lVersion : {4096, 4352}) {
        OpenSmall(8192);
        EXPECT_EQ(FirstCategory(), "House");
        const auto contents = ContentsOf(m_document.GetAccount()->store);
        EXPECT_TRUE(m_document.SaveAs(PathOf("b.qmk").c_str(), lVersion));
        EXPECT_EQ(FirstCategory(), "");
        EXPECT_EQ(ContentsOf(m_document.GetAccount()->store), contents);
        m_document.GetAccount()->Close();
    }
}

TEST_F(DocumentTest, SaveAsReplacesAnExistingFile)
{
    OpenSmall(8192);
    WriteWholeFile(PathOf("b.qmk"), std::string(100000, 'x'));
    EXPECT_TRUE(m_document.SaveAs(PathOf("b.qmk").c_str(), 0));
    EXPECT_EQ(BytesOfFile(*m_document.GetAccount()), SmallAccount(8192));
}

TEST_F(DocumentTest, SaveAsOfAnAccountWithoutAFile)
{
    m_document.SetAccount(std::make_unique<QMAccount>("Untitled"));
    AddDeposit();
    EXPECT_EQ(m_document.GetTitle(), "Untitled *");
    EXPECT_TRUE(m_document.SaveAs(PathOf("b.qmk").c_str(), 0));
    EXPECT_EQ(m_document.GetTitle(), "b.qmk");
    EXPECT_EQ(m_document.GetAccount()->store.GetCount(), 1);
    EXPECT_EQ(m_folder.GetNames(), std::vector<std::string>{"b.qmk"});
}

TEST_F(DocumentTest, SaveAsRefusesAnEmptyName)
{
    OpenSmall(8192);
    AddDeposit();
    EXPECT_FALSE(m_document.SaveAs("", 8192));
    EXPECT_FALSE(m_document.SaveAs(nullptr, 8192));
    ExpectUntouched();
}

TEST_F(DocumentTest, SaveAsFailsWhereTheTargetCannotBe)
{
    OpenSmall(8192);
    AddDeposit();
    const std::string sMissing = (std::filesystem::path(PathOf("none")) / "b.qmk").string();
    const std::string sTooLong = PathOf(std::string(300, 'b').c_str());
    for (const std::string& sPath : {sMissing, sTooLong, m_folder.GetPath()}) {
        EXPECT_FALSE(m_document.SaveAs(sPath.c_str(), 4096)) << sPath;
        ExpectUntouched();
    }
    EXPECT_EQ(m_folder.GetNames(), std::vector<std::string>{"a.qmk"});
}

TEST_F(DocumentTest, SaveAsFailsOnALockedFile)
{
    OpenSmall(8192);
    AddDeposit();
    WriteWholeFile(PathOf("b.qmk"), "held");
    QMFile holder(PathOf("b.qmk").c_str());
    ASSERT_TRUE(holder.Open());
    EXPECT_FALSE(m_document.SaveAs(PathOf("b.qmk").c_str(), 8192));
    ExpectUntouched();
    EXPECT_EQ(BytesOfFile(holder), "held");
}

// The present file is open, and an open file cannot be opened a second time.
TEST_F(DocumentTest, SaveAsFailsOnThePresentFile)
{
    OpenSmall(8192);
    AddDeposit();
    EXPECT_FALSE(m_document.SaveAs(PathOf("a.qmk").c_str(), 4096));
    ExpectUntouched();
    EXPECT_EQ(m_document.GetAccount()->lVersion, 8192);
}

TEST_F(DocumentTest, SaveAsWithoutMemoryLeavesTheDocument)
{
    OpenSmall(8192);
    AddDeposit();
    const std::string sPath = PathOf("b.qmk");
    int nBefore = 0;
    for (bool bSaved = false; !bSaved; ++nBefore) {
        {
            const AllocationFault fault(nBefore);
            bSaved = m_document.SaveAs(sPath.c_str(), 8192);
        }
        if (!bSaved) {
            ExpectUntouched();
        }
    }
    EXPECT_GT(nBefore, 5); // the copy, its transactions, its bytes
}
