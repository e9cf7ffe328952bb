#include "toolkit/vregkey.h"

#include <gtest/gtest.h>

#include "tests/win/support.h"
#include "toolkit/vapplication.h"

namespace {

class VRegKeyTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_key.Create(m_path.Get()));
        ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, m_path.Get(), 0, KEY_ALL_ACCESS, &m_hRaw),
                  ERROR_SUCCESS);
    }

    void TearDown() override { RegCloseKey(m_hRaw); }

    // The byte after the value is not zero. Windows would take a zero for a forgotten terminator.
    void Store(const char* szName, DWORD uType, const std::string& sBytes) const
    {
        const std::string sGuarded = sBytes + 'X';
        ASSERT_EQ(
            RegSetValueExA(m_hRaw, szName, 0, uType, reinterpret_cast<const BYTE*>(sGuarded.data()),
                           static_cast<DWORD>(sBytes.size())),
            ERROR_SUCCESS);
    }

    // The type and the bytes of a value, as "type:bytes"; empty when it does not exist.
    std::string Stored(const char* szName) const
    {
        char szBytes[4096];
        DWORD uSize = sizeof szBytes;
        DWORD uType = 0;
        if (RegQueryValueExA(m_hRaw, szName, nullptr, &uType, reinterpret_cast<BYTE*>(szBytes),
                             &uSize) != ERROR_SUCCESS) {
            return "";
        }
        return std::to_string(uType) + ":" + std::string(szBytes, uSize);
    }

    // The text that ReadText gives for a value; "unchanged" when it returns false.
    std::string Read(const char* szName) const
    {
        VString sText("unchanged");
        const bool bRead = m_key.ReadText(szName, sText);
        return (bRead ? "true:" : "false:") + Text(sText);
    }

    ScopedRegistryPath m_path{"key"};
    VRegKey m_key;
    HKEY m_hRaw = nullptr;
};

bool Exists(const char* szPath)
{
    VRegKey key;
    return key.Open(szPath);
}

} // namespace

TEST(VRegKey, OpensOnlyWhatIsThere)
{
    const ScopedRegistryPath path("open");
    VRegKey key;
    EXPECT_FALSE(key.IsOpen());
    EXPECT_FALSE(key.Open(path.Get()));
    EXPECT_FALSE(key.IsOpen());
    EXPECT_TRUE(key.Create(path.Get()));
    EXPECT_TRUE(key.IsOpen());
    key.Close();
    EXPECT_FALSE(key.IsOpen());
    key.Close();
    EXPECT_TRUE(key.Open(path.Get()));
}

TEST(VRegKey, OneThatIsOpenDoesNotOpenAgain)
{
    const ScopedRegistryPath path("open");
    VRegKey key;
    ASSERT_TRUE(key.Create(path.Get()));
    EXPECT_FALSE(key.Open(path.Get()));
    EXPECT_FALSE(key.Create(path.Get()));
    EXPECT_TRUE(key.IsOpen());
    EXPECT_TRUE(key.WriteNumber("n", 3));
}

TEST(VRegKey, NeedsAPathAndAHive)
{
    VRegKey key;
    EXPECT_FALSE(key.Open(nullptr));
    EXPECT_FALSE(key.Open(""));
    EXPECT_FALSE(key.Open("Software", nullptr));
    EXPECT_FALSE(key.Create(nullptr));
    EXPECT_FALSE(key.Create(""));
    EXPECT_FALSE(key.Create("Software", nullptr));
    EXPECT_FALSE(key.IsOpen());
    EXPECT_TRUE(key.Open("Software"));
}

TEST(VRegKey, CreateMakesTheWholeChain)
{
    const ScopedRegistryPath path("chain");
    const std::string sDeep = std::string(path.Get()) + "\\one\\two";
    {
        VRegKey key;
        ASSERT_TRUE(key.Create(sDeep.c_str()));
        ASSERT_TRUE(key.WriteText("t", "kept"));
    }
    EXPECT_TRUE(Exists((std::string(path.Get()) + "\\one").c_str()));
    VRegKey key;
    ASSERT_TRUE(key.Create(sDeep.c_str()));
    VString sText;
    EXPECT_TRUE(key.ReadText("t", sText));
    EXPECT_EQ(Text(sText), "kept");
}

TEST(VRegKey, ClosesItselfAtItsEnd)
{
    const ScopedRegistryPath path("end");
    DWORD uBefore = 0;
    DWORD uAfter = 0;
    GetProcessHandleCount(GetCurrentProcess(), &uBefore);
    for (int n = 0; n < 20; ++n) {
        VRegKey key;
        ASSERT_TRUE(key.Create(path.Get()));
    }
    GetProcessHandleCount(GetCurrentProcess(), &uAfter);
    EXPECT_LT(uAfter, uBefore + 20);
}

TEST(VRegKey, TheAccessAskedForIsTheAccessGiven)
{
    const ScopedRegistryPath path("access");
    VRegKey made;
    ASSERT_TRUE(made.Create(path.Get()));
    VRegKey key;
    ASSERT_TRUE(key.Open(path.Get(), HKEY_CURRENT_USER, KEY_READ));
    EXPECT_FALSE(key.WriteNumber("n", 3));
    EXPECT_FALSE(key.WriteText("t", "x"));
    EXPECT_EQ(key.ReadNumber("n", 8), 8U);
}

TEST(VRegKey, TheProgramsOwnKeyHasVendorAndProduct)
{
    const ScopedRegistryPath path("vendor");
    const std::string sVendor = std::string(path.Get()).substr(sizeof "Software\\" - 1);
    {
        VRegKey key;
        EXPECT_TRUE(key.CreateAppKey(sVendor.c_str(), "Product"));
        EXPECT_FALSE(key.CreateAppKey(sVendor.c_str(), "Second"));
    }
    EXPECT_TRUE(Exists((std::string(path.Get()) + "\\Product").c_str()));
    EXPECT_FALSE(Exists((std::string(path.Get()) + "\\Second").c_str()));
    VRegKey key;
    EXPECT_TRUE(key.CreateAppKey(sVendor.c_str(), nullptr));
    EXPECT_TRUE(Exists((std::string(path.Get()) + "\\" + GetApplication().GetName()).c_str()));
}

TEST_F(VRegKeyTest, TextsAreWrittenWithTheirTerminator)
{
    EXPECT_TRUE(m_key.WriteText("t", "two words"));
    EXPECT_EQ(Stored("t"), std::string("1:two words") + '\0');
    EXPECT_EQ(Read("t"), "true:two words");
    EXPECT_TRUE(m_key.WriteText("t", "2nd"));
    EXPECT_EQ(Read("t"), "true:2nd");
}

TEST_F(VRegKeyTest, AnEmptyTextDeletesTheValue)
{
    for (const char* szNothing : {"", static_cast<const char*>(nullptr)}) {
        ASSERT_TRUE(m_key.WriteText("t", "something"));
        EXPECT_TRUE(m_key.WriteText("t", szNothing));
        EXPECT_EQ(Stored("t"), "");
        EXPECT_EQ(Read("t"), "false:unchanged");
    }
    EXPECT_FALSE(m_key.WriteText("t", "")); // there is nothing left to delete
}

TEST_F(VRegKeyTest, TextsAreReadUpToTheirLimit)
{
    for (const size_t uLength : {1U, 1022U, 1023U}) {
        const std::string sText(uLength, 'k');
        ASSERT_TRUE(m_key.WriteText("t", sText.c_str()));
        EXPECT_EQ(Read("t"), "true:" + sText);
    }
    // With the terminator they have 1025 and 1026 bytes.
    for (const size_t uLength : {1024U, 1025U}) {
        ASSERT_TRUE(m_key.WriteText("t", std::string(uLength, 'k').c_str()));
        EXPECT_EQ(Read("t"), "false:unchanged");
    }
}

TEST_F(VRegKeyTest, TextsWithoutATerminatorAreReadToTheirEnd)
{
    for (const size_t uLength : {3U, 1023U, 1024U}) {
        Store("t", REG_SZ, std::string(uLength, 'm'));
        EXPECT_EQ(Read("t"), "true:" + std::string(uLength, 'm')) << "length " << uLength;
    }
    Store("t", REG_SZ, std::string(1025, 'm'));
    EXPECT_EQ(Read("t"), "false:unchanged");
    Store("t", REG_SZ, std::string("ab\0cd", 5));
    EXPECT_EQ(Read("t"), "true:ab");
    Store("t", REG_SZ, "");
    EXPECT_EQ(Read("t"), "true:");
}

TEST_F(VRegKeyTest, OtherTypesAreNoTexts)
{
    Store("t", REG_DWORD, std::string("abcd"));
    EXPECT_EQ(Read("t"), "false:unchanged");
    Store("t", REG_BINARY, std::string("abcd\0", 5));
    EXPECT_EQ(Read("t"), "false:unchanged");
    Store("t", REG_EXPAND_SZ, std::string("%PATH%\0", 7));
    EXPECT_EQ(Read("t"), "true:%PATH%");
}

TEST_F(VRegKeyTest, NumbersComeBack)
{
    for (const DWORD u : {1U, 8760651U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        EXPECT_TRUE(m_key.WriteNumber("n", u));
        EXPECT_EQ(m_key.ReadNumber("n", 5), u);
    }
    ASSERT_TRUE(m_key.WriteNumber("n", 0x04030201));
    EXPECT_EQ(Stored("n"), "4:\x01\x02\x03\x04");
}

TEST_F(VRegKeyTest, AZeroWritesTheFallback)
{
    EXPECT_TRUE(m_key.WriteNumber("n", 0));
    EXPECT_EQ(m_key.ReadNumber("n", 5), 0U);
    EXPECT_TRUE(m_key.WriteNumber("n", 0, 44));
    EXPECT_EQ(m_key.ReadNumber("n", 5), 44U);
    EXPECT_TRUE(m_key.WriteNumber("n", 3, 44));
    EXPECT_EQ(m_key.ReadNumber("n", 5), 3U);
}

TEST_F(VRegKeyTest, MissingAndOtherValuesAreNoNumbers)
{
    EXPECT_EQ(m_key.ReadNumber("n", 5), 5U);
    EXPECT_EQ(m_key.ReadNumber(nullptr, 6), 6U);
    Store("n", REG_SZ, std::string("12\0", 3));
    EXPECT_EQ(m_key.ReadNumber("n", 5), 5U);
    Store("n", REG_BINARY, std::string("abcd"));
    EXPECT_EQ(m_key.ReadNumber("n", 5), 5U);
    Store("n", REG_DWORD, std::string("ab"));
    EXPECT_EQ(m_key.ReadNumber("n", 5), 5U);
    Store("n", REG_QWORD, std::string("abcdefgh"));
    EXPECT_EQ(m_key.ReadNumber("n", 5), 5U);
}

TEST_F(VRegKeyTest, ValuesAreDeleted)
{
    ASSERT_TRUE(m_key.WriteNumber("n", 3));
    EXPECT_TRUE(m_key.DeleteValue("n"));
    EXPECT_FALSE(m_key.DeleteValue("n"));
    EXPECT_FALSE(m_key.DeleteValue(nullptr));
    EXPECT_EQ(Stored("n"), "");
}

TEST_F(VRegKeyTest, AClosedKeyDoesNothing)
{
    ASSERT_TRUE(m_key.WriteNumber("n", 3));
    ASSERT_TRUE(m_key.WriteText("t", "text"));
    m_key.Close();
    EXPECT_EQ(m_key.ReadNumber("n", 9), 9U);
    EXPECT_EQ(Read("t"), "false:unchanged");
    EXPECT_FALSE(m_key.WriteNumber("n", 4));
    EXPECT_FALSE(m_key.WriteText("t", "other"));
    EXPECT_FALSE(m_key.WriteText("t", ""));
    EXPECT_FALSE(m_key.DeleteValue("n"));
    EXPECT_EQ(Stored("n"), std::string("4:\x03\0\0\0", 6));
}

TEST_F(VRegKeyTest, ANullNameIsNoValue)
{
    EXPECT_EQ(Read(nullptr), "false:unchanged");
    EXPECT_FALSE(m_key.WriteText(nullptr, "x"));
    EXPECT_FALSE(m_key.WriteNumber(nullptr, 1));
}
