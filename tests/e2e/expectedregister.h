// What the register of an account must show, computed from its file by the portable model.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct ExpectedRegister
{
    // Reads the file, which nobody may have open, and closes it again. The running test fails when
    // it cannot be read. With bPeriodAlone, only transactions in the account's period count.
    explicit ExpectedRegister(const std::string& sPath, bool bPeriodAlone = false);

    // The texts by row and column of the list, with those of the empty last column.
    std::vector<std::vector<std::string>> rows;
    std::vector<uint32_t> decorations;
    std::vector<std::string> headings;
    std::vector<int> widths; // without that of the last column
    // The texts of the status panes 1 to 4.
    std::vector<std::string> panes;
};
