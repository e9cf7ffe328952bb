// The program in a dark scheme of the system's colours, as people use who do not see well: all
// texts can be read.

#include "tests/e2e/screen.h"
#include "tests/e2e/work_test.h"
#include "tests/support/readability_win.h"

namespace {

// Lets controls be drawn without a theme, in the system's colours, while the object lives. Those of
// Wine 8 do not follow the colours. Windows takes no notice of it, and has themes of its own for
// high contrast.
class ScopedNoTheme
{
public:
    ScopedNoTheme()
    {
        RegCreateKeyExA(HKEY_CURRENT_USER,
                        "Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager", 0, nullptr, 0,
                        KEY_ALL_ACCESS, nullptr, &m_hKey, nullptr);
        DWORD uSize = sizeof m_szBefore - 1;
        m_bWas = RegQueryValueExA(m_hKey, szName, nullptr, nullptr,
                                  reinterpret_cast<BYTE*>(m_szBefore), &uSize) == ERROR_SUCCESS;
        Set("0");
    }
    ScopedNoTheme(const ScopedNoTheme&) = delete;
    ScopedNoTheme& operator=(const ScopedNoTheme&) = delete;
    ~ScopedNoTheme()
    {
        if (m_bWas) {
            Set(m_szBefore);
        } else {
            RegDeleteValueA(m_hKey, szName);
        }
        RegCloseKey(m_hKey);
    }

private:
    static constexpr char szName[] = "ThemeActive";

    void Set(const char* szText) const
    {
        RegSetValueExA(m_hKey, szName, 0, REG_SZ, reinterpret_cast<const BYTE*>(szText),
                       static_cast<DWORD>(strlen(szText) + 1));
    }

    HKEY m_hKey = nullptr;
    char m_szBefore[16] = "";
    bool m_bWas = false;
};

class DarkColorsTest : public WorkTest
{
protected:
    // Waits until a part of the screen shows something that can be read on this ground.
    static void AwaitReadable(const std::string& sWhat, const VRect& part, COLORREF crGround)
    {
        Await(sWhat + " in letters to be read", [&] {
            const ScreenPicture screen;
            const auto At = [&](int x, int y) { return screen.At(x, y); };
            return GroundOf(At, part) == crGround && ContrastIn(At, part) > fReadable;
        });
    }

    // The same for every text that stands in a dialog.
    static void AwaitReadableTexts(HWND hDialog)
    {
        const std::vector<HWND> children = ChildrenOf(hDialog);
        EXPECT_FALSE(children.empty());
        for (HWND hChild : children) {
            const std::string sClass = WindowClass(hChild);
            if (IsWindowVisible(hChild) && !WindowText(hChild).empty() &&
                (sClass == "Static" || sClass == "Edit" || sClass == "Button")) {
                const VRect place = WindowRect(hChild);
                const VRect inside = {place.left + 3, place.top + 1, place.right - 3,
                                      place.bottom - 1};
                AwaitReadable(WindowText(hChild), inside, crGround);
            }
        }
    }

    DialogWindow Begin(UINT uCommand, const std::string& sCaption) const
    {
        m_program.Post(uCommand);
        return AwaitDialog(m_program, sCaption);
    }

    // Shows a page of a sheet and returns it.
    static HWND ShowPage(const DialogWindow& sheet, int nPage)
    {
        SendTo(sheet.GetHandle(), PSM_SETCURSEL, static_cast<WPARAM>(nPage), 0);
        HWND hPage = nullptr;
        Await("a page", [&] {
            hPage = reinterpret_cast<HWND>(SendTo(sheet.GetHandle(), PSM_GETCURRENTPAGEHWND));
            return hPage != nullptr && IsWindowVisible(hPage);
        });
        return hPage;
    }

    static constexpr COLORREF crGround = 0x000000;
    ScopedNoTheme m_noTheme;
    ScopedDarkColors m_dark;
};

} // namespace

TEST_F(DarkColorsTest, RowsOfTheRegisterCanBeRead)
{
    OpenAccount(CopySample());
    const WindowList list = ActiveList();
    const std::vector<std::string> headings = list.GetHeadings();
    // The last row is selected; those above are not, and of two every other would be shaded.
    for (int nRow = 440; nRow < 446; ++nRow) {
        for (const std::string sHeading : {"Date", "Description", "Balance"}) {
            const auto nColumn = static_cast<int>(
                std::find(headings.begin(), headings.end(), sHeading) - headings.begin());
            VRect cell = list.GetCellRect(nRow, nColumn);
            cell.left += 2; // beside the line
            AwaitReadable(sHeading + " of row " + std::to_string(nRow), cell, crGround);
        }
    }
}

TEST_F(DarkColorsTest, HeadingsAndStatusBarCanBeRead)
{
    OpenAccount(CopySample());
    const WindowList list = ActiveList();
    const VRect header = WindowRect(list.GetHeader());
    for (const int nColumn : {1, 3, 6}) {
        const VRect cell = list.GetCellRect(446, nColumn);
        AwaitReadable("the heading of column " + std::to_string(nColumn),
                      {cell.left + 4, header.top + 3, cell.right - 4, header.bottom - 3}, crGround);
    }
    const VRect bar = WindowRect(m_program.GetStatusBar());
    for (const int nLeft : {bar.left, bar.right - 300}) { // "Ready", and the available balance
        AwaitReadable("the status bar", {nLeft + 4, bar.top + 4, nLeft + 104, bar.bottom - 4},
                      crGround);
    }
}

TEST_F(DarkColorsTest, MarksOfTheRegisterCanBeSeen)
{
    OpenAccount(MakeAccount("marks.qmk", 4, [](QMAccount& account) {
        account.store.First();
        account.store.GetCurrentNode()->lFlags = QM_TRANS_FLAG_TAX;
    }));
    const WindowList list = ActiveList();
    for (const int nColumn : {0, 7}) {
        VRect cell = list.GetCellRect(0, nColumn);
        cell.left += 2;
        AwaitReadable("the mark in column " + std::to_string(nColumn), cell, crGround);
    }
}

TEST_F(DarkColorsTest, AccountInformationCanBeRead)
{
    OpenAccount(CopySample());
    const DialogWindow sheet = Begin(IDM_FILE_ACCOUNTINFO, "Account Information - household.qmk");
    for (int nPage = 0; nPage < 3; ++nPage) {
        AwaitReadableTexts(ShowPage(sheet, nPage));
    }
    // What is disabled can be read as well.
    DialogWindow(m_program.GetProcess(), ShowPage(sheet, 0)).Check(IDC_ACCOUNT_READONLY);
    for (int nPage = 0; nPage < 3; ++nPage) {
        AwaitReadableTexts(ShowPage(sheet, nPage));
    }
}

TEST_F(DarkColorsTest, OptionsCanBeReadAndSwatchesShowTheirColors)
{
    OpenAccount(CopySample());
    const DialogWindow sheet = Begin(IDM_TOOLS_OPTIONS, "Options - household.qmk");
    HWND hPage = ShowPage(sheet, 2);
    AwaitReadableTexts(hPage);
    for (const auto& [nId, crShown] : std::vector<std::pair<int, COLORREF>>{
             {IDC_OPTION_POSITIVE, 0x85AD4B}, {IDC_OPTION_NEGATIVE, 0x2842C9}}) {
        const VRect place = WindowRect(GetDlgItem(hPage, nId));
        Await("the colour of a swatch", [&] {
            const ScreenPicture screen;
            return GroundOf([&](int x, int y) { return screen.At(x, y); }, place) == crShown;
        });
    }
}

TEST_F(DarkColorsTest, CalculatorCanBeRead)
{
    m_program.Open();
    const DialogWindow calculator = Begin(IDM_TOOLS_CALCULATOR, "Calculator");
    calculator.Press(IDM_CALC_5);
    calculator.Press(IDM_CALC_MEMORYSTORE);
    AwaitReadableTexts(calculator.GetHandle()); // the display and the mark of the memory
}

TEST_F(DarkColorsTest, TransactionDialogCanBeRead)
{
    OpenAccount(CopySample());
    AwaitReadableTexts(BeginEditing().GetHandle());
}
