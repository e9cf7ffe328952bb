// The About box: version, licence and building blocks, with room for each of them.

#include <gtest/gtest.h>

#include "resources/resource.h"
#include "tests/win/dialog_support.h"
#include "tests/win/support.h"
#include "toolkit/vdialog.h"

namespace {

// All texts of a dialog, each with a line feed after it.
std::string TextsOf(HWND hDialog)
{
    std::string sTexts;
    for (HWND h = GetWindow(hDialog, GW_CHILD); h != nullptr; h = GetWindow(h, GW_HWNDNEXT)) {
        sTexts += Text(VWindow::WindowText(h)) + "\n";
    }
    return sTexts;
}

} // namespace

TEST(About, NamesVersionLicenceAndBuildingBlocks)
{
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        const std::string sTexts = TextsOf(hDialog);
        for (const char* szPart : {"Quillmark " QUILLMARK_VERSION "\n", "MIT License",
                                   "the Quillmark authors", "Expat", "MinGW-w64"}) {
            EXPECT_NE(sTexts.find(szPart), std::string::npos) << szPart << " in " << sTexts;
        }
        EXPECT_EQ(LayoutFaults(hDialog), std::vector<std::string>());
        EXPECT_EQ(FocusedId(hDialog), IDOK);
        Press(hDialog, IDOK);
    });
    VDialog dialog;
    EXPECT_EQ(dialog.DoModal(nullptr, IDD_ABOUT), IDOK);
}
