#include "qmktool/commandtable.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <vector>

#include "qmktool/commands.h"

namespace {

// The commands that take an option; those that read the files of banks have the dialect in common.
constexpr char szBankFiles[] = " convert import ";

constexpr ToolOption aOptions[] = {
    {"--json", {{" info list report ", nullptr, "writes JSON, with every byte of the texts"}}},
    {"--csv", {{" list ", nullptr, "writes CSV, in UTF-8"}}},
    {"--encoding",
     {{" info list report ", "NAME", "cp1252 or utf-8: what the texts of the account are"},
      {szBankFiles, "NAME", "auto, utf-8, utf-16, cp1252 or latin1: of IN"}}},
    {"--from",
     {{" list report ", "M/D/YYYY", "the first day; YYYY-MM-DD is understood as well"},
      {szBankFiles, "FORMAT", "qif, csv or xml: of IN when it is -"}}},
    {"--to",
     {{" list report ", "M/D/YYYY", "the last day; an end that is not told is open"},
      {" convert ", "FORMAT", "qif, csv or xml: of OUT when it is -"}}},
    {"--limit", {{" list ", "N", "the first N rows"}}},
    {"--last", {{" list ", "N", "the last N rows"}}},
    {"--cleared-balance",
     {{" list ", nullptr, "the balance column counts cleared transactions only"}}},
    {"--all", {{" check ", nullptr, "every finding, not the first twenty alone"}}},
    {"--format", {{" convert ", "1.0|1.1|2.0", "the format of the account that is written"}}},
    {"--force", {{" convert report ", nullptr, "replaces OUT when it exists"}}},
    {"--detect",
     {{szBankFiles, nullptr, "proposes a profile for a bank's file and writes nothing else"}}},
    {"--dry-run", {{szBankFiles, nullptr, "shows the transactions and writes nothing"}}},
    {"--skip-known",
     {{" import ", nullptr, "leaves out transactions that the account has already"}}},
    {"--profile",
     {{szBankFiles, "FILE", "takes the dialect of a bank's file from a small text file"}}},
    {"--separator", {{szBankFiles, "CHAR", "between the columns: , ; | : or tab"}}},
    {"--quote", {{szBankFiles, "CHAR", "around texts: \" ' or none"}}},
    {"--dates", {{szBankFiles, "mdy|dmy|ymd", "the order of month, day and year"}}},
    {"--decimal", {{szBankFiles, ".|,", "before the cents"}}},
    {"--skip", {{szBankFiles, "LINES", "lines before the records"}}},
    {"--columns",
     {{szBankFiles, "NAMES", "what the columns hold, such as Date,-,Description,Amount"}}},
    {"--invert", {{szBankFiles, nullptr, "positive amounts were spent"}}},
    {"--kind",
     {{" report ", "KIND",
       "statement, type, description, memo, category, tax, expenses, voided or not-cleared"}}},
    {"--group",
     {{" report ", "TEXT", "one type, which the kind type needs, or one text of the kind"}}},
    {"--month", {{" report ", "M/YYYY", "the month of the report, instead of --from and --to"}}},
    {"--pdf", {{" report ", "OUT", "writes a PDF file"}}},
    {"--paper", {{" report ", "letter|a4", "of the PDF file"}}},
    {"--password",
     {{" info list check convert report import ", "TEXT", "opens an account that has a password"}}},
};

constexpr ToolCommand aCommands[] = {
    {"info", "FILE", 1, "the account's particulars and the number of its transactions", RunInfo},
    {"list", "FILE", 1, "the register, of all days or of a period", RunList},
    {"check", "FILE", 1,
     "whether the file is sound: format, entries, anything that had to be mended", RunCheck},
    {"convert", "IN OUT", 2,
     "writes the transactions anew, from and to any of the files .qmk, .qif, .csv\n"
     "and .xml; an account has the format given, without one that of an IN account\n"
     "and otherwise 2.0; an OUT that exists is replaced with --force only; of a file\n"
     "that is none of accounts, - is standard input or output",
     RunConvert},
    {"report", "FILE", 1, "a report of a month or a period, as text, JSON or a PDF file",
     RunReport},
    {"import", "IN ACCOUNT", 2,
     "adds every transaction of a .qif, .csv or .xml file to an account, which is\n"
     "then of format 2.0; how many it seems to have already is told; IN may be -,\n"
     "standard input",
     RunImport},
};

bool IsOf(const ToolUse& use, const ToolCommand& command)
{
    const std::string sName = std::string(" ") + command.szName + " ";
    return use.szCommands != nullptr && strstr(use.szCommands, sName.c_str()) != nullptr;
}

// Null when the command does not take the option.
const ToolUse* FindUse(const ToolCommand& command, const ToolOption& option)
{
    const auto* const pUse =
        std::ranges::find_if(option.aUses, [&](const ToolUse& use) { return IsOf(use, command); });
    return pUse == std::end(option.aUses) ? nullptr : pUse;
}

std::string Indented(std::string_view text, const std::string& sBlanks)
{
    std::string sText = sBlanks;
    for (const char c : text) {
        sText += c;
        sText += c == '\n' ? sBlanks : std::string();
    }
    return sText + "\n";
}

constexpr size_t uTextColumn = 24; // where the texts of the options begin

std::string OptionLine(const char* szName, const ToolUse& use)
{
    std::string sLine = std::string("  ") + szName;
    if (use.szValue != nullptr) {
        sLine += std::string(" ") + use.szValue;
    }
    sLine.resize(std::max(sLine.size() + 2, uTextColumn), ' ');
    return sLine + use.szText + "\n";
}

// The commands of a use as they are read: "convert, import".
std::string CommandNames(const ToolUse& use)
{
    std::string sNames;
    for (const ToolCommand& command : aCommands) {
        if (IsOf(use, command)) {
            sNames += (sNames.empty() ? "" : ", ") + std::string(command.szName);
        }
    }
    return sNames;
}

// What the option does, and below it what it does with other commands.
std::string OptionLines(const ToolOption& option)
{
    std::string sLines = OptionLine(option.szName, option.aUses[0]);
    const ToolUse& other = option.aUses[1];
    if (other.szCommands != nullptr) {
        sLines += std::string(uTextColumn, ' ') + "(" + CommandNames(other) + ") " + other.szValue +
                  ": " + other.szText + "\n";
    }
    return sLines;
}

std::string CommandText(const ToolCommand& command)
{
    return std::string("  qmktool ") + command.szName + " " + command.szFiles + " [OPTIONS]\n" +
           Indented(command.szText, "      ");
}

// How many characters must be put in, taken out or changed to make one word of the other.
size_t Distance(std::string_view a, std::string_view b)
{
    std::vector<size_t> row(b.size() + 1);
    for (size_t u = 0; u <= b.size(); ++u) {
        row[u] = u;
    }
    for (size_t i = 1; i <= a.size(); ++i) {
        size_t uDiagonal = row[0];
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t uChanged = uDiagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            uDiagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, uChanged});
        }
    }
    return row[b.size()];
}

// Keeps the name that looks most like a word.
class Suggestion
{
public:
    explicit Suggestion(std::string_view word) : m_word(word) {}

    void Offer(const char* szName)
    {
        const std::string_view name(szName);
        // A name that begins with the word was shortened, and is as near as can be.
        const bool bShortened = m_word.size() > 2 && name.substr(0, m_word.size()) == m_word;
        const size_t uDistance = bShortened ? 0 : Distance(m_word, name);
        if (uDistance <= std::max(m_word.size() / 3, size_t{1}) && uDistance < m_uBest) {
            m_uBest = uDistance;
            m_szBest = szName;
        }
    }
    const char* Get() const { return m_szBest; }

private:
    std::string_view m_word;
    const char* m_szBest = nullptr;
    size_t m_uBest = 100;
};

} // namespace

const ToolCommand* FindToolCommand(std::string_view name)
{
    for (const ToolCommand& command : aCommands) {
        if (command.szName == name) {
            return &command;
        }
    }
    return nullptr;
}

const ToolUse* FindToolOption(const ToolCommand& command, std::string_view name)
{
    const auto* const pOption = std::ranges::find(
        aOptions, name, [](const ToolOption& option) { return std::string_view(option.szName); });
    return pOption == std::end(aOptions) ? nullptr : FindUse(command, *pOption);
}

std::string ToolHelp()
{
    std::string sText =
        "qmktool looks into, checks, converts and fills Quillmark account files.\n\n";
    for (const ToolCommand& command : aCommands) {
        sText += CommandText(command);
    }
    sText +=
        "  qmktool help COMMAND\n"
        "      the options of a command\n"
        "  qmktool --help, -h, help\n"
        "  qmktool --version\n"
        "\n"
        "Options:\n";
    for (const ToolOption& option : aOptions) {
        sText += OptionLines(option);
    }
    return sText +
           "  --                    takes every word after it as a file name\n"
           "\n"
           "Exit code: 0 done, 1 refused (the reason on standard error), 2 wrong usage.\n";
}

std::string ToolHelp(const ToolCommand& command)
{
    std::string sText = CommandText(command) + "\nOptions:\n";
    for (const ToolOption& option : aOptions) {
        if (const ToolUse* pUse = FindUse(command, option)) {
            sText += OptionLine(option.szName, *pUse);
        }
    }
    return sText;
}

const char* SuggestCommand(std::string_view word)
{
    Suggestion suggestion(word);
    for (const ToolCommand& command : aCommands) {
        suggestion.Offer(command.szName);
    }
    return suggestion.Get();
}

const char* SuggestOption(const ToolCommand& command, std::string_view word)
{
    Suggestion suggestion(word);
    for (const ToolOption& option : aOptions) {
        if (FindUse(command, option) != nullptr) {
            suggestion.Offer(option.szName);
        }
    }
    return suggestion.Get();
}
