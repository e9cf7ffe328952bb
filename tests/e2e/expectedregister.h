// What the register of an account must show, computed from the file by the portable model.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct ExpectedRegister
{
    // Reads the file, which nobody may have open, and closes it again. The running test fails when
    // it does not read. All transactions, or those of the account's period.
    explicit ExpectedRegister(const std::string& sPath, bool bPeriodAlone = false);

    // By the lists' rows and columns, the empty one at the end included.
    std::vector<std::vector<std::string>> rows;
    std::vector<uint32_t> decorations;
    std::vector<std::string> headings;
    std::vector<int> widths; // without the last column's
    // Texts of the status panes 1 to 4.
    std::vector<std::string> panes;
};
