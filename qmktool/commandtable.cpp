#include "qmktool/commandtable.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "qmktool/commands.h"

namespace {

// Commands that mean the same by an option that others take otherwise.
#define QM_SHOWING " info list report "
#define QM_EXCHANGING " convert import "

constexpr ToolOption aOptions[] = {
    {"--json", nullptr, "writes JSON, with every byte of the texts"},
    {"--csv", nullptr, "writes CSV, in UTF-8"},
    {"--encoding", "NAME", "cp1252 or utf-8: what the texts of the account are", QM_SHOWING},
    {"--from", "M/D/YYYY", "the first day; YYYY-MM-DD is understood as well", QM_SHOWING},
    {"--to", "M/D/YYYY", "the last day", QM_SHOWING},
    {"--limit", "N", "the first N rows"},
    {"--last", "N", "the last N rows"},
    {"--cleared-balance", nullptr, "the balance column counts cleared transactions only"},
    {"--all", nullptr, "every finding, not the first twenty alone"},
    {"--format", "1.0|1.1|2.0", "the format of the account that is written"},
    {"--force", nullptr, "replaces OUT when it exists"},
    {"--from", "FORMAT", "qif, csv or xml, when IN is -, standard input", QM_EXCHANGING},
    {"--to", "FORMAT", "qif, csv or xml, when OUT is -, standard output", QM_EXCHANGING},
    {"--detect", nullptr, "proposes a profile for a bank's file and writes nothing else"},
    {"--dry-run", nullptr, "shows the transactions and writes nothing"},
    {"--skip-known", nullptr, "leaves out transactions that the account has already"},
    {"--profile", "FILE", "takes the dialect of a bank's file from a small text file"},
    {"--separator", "CHAR", "between the columns: , ; | : or tab"},
    {"--quote", "CHAR", "around texts: \" ' or none"},
    {"--dates", "mdy|dmy|ymd", "the order of month, day and year"},
    {"--decimal", ".|,", "before the cents"},
    {"--encoding", "NAME", "auto, utf-8, utf-16, cp1252 or latin1", QM_EXCHANGING},
    {"--skip", "LINES", "lines before the records"},
    {"--columns", "NAMES", "what the columns hold, such as Date,-,Description,Amount"},
    {"--invert", nullptr, "positive amounts were spent"},
    {"--kind", "KIND",
     "statement, type, description, memo, category, tax, expenses, voided or not-cleared"},
    {"--group", "TEXT", "one type, which the kind type needs, or one text of the kind"},
    {"--month", "M/YYYY", "the month of the report, instead of --from and --to"},
    {"--pdf", "OUT", "writes a PDF file"},
    {"--paper", "letter|a4", "of the PDF file"},
    {"--password", "TEXT", "opens an account that has a password"},
};

#undef QM_SHOWING
#undef QM_EXCHANGING

#define DIALECT_OPTIONS                                                                      \
    " --detect --dry-run --profile --separator --quote --dates --decimal --encoding --skip " \
    "--columns "                                                                             \
    "--invert "

constexpr ToolCommand aCommands[] = {
    {"info", "FILE", 1, " --json --encoding --password ",
     "the account's particulars and the number of its transactions", RunInfo},
    {"list", "FILE", 1,
     " --json --csv --encoding --from --to --limit --last --cleared-balance --password ",
     "the register, of all days or of a period", RunList},
    {"check", "FILE", 1, " --all --password ",
     "whether the file is sound: format, entries, anything that had to be mended", RunCheck},
    {"convert", "IN OUT", 2, " --format --force --from --to" DIALECT_OPTIONS "--password ",
     "writes the transactions anew, from and to any of the files .qmk, .qif, .csv\n"
     "and .xml; an account has the format given, without one that of an IN account\n"
     "and otherwise 2.0; an OUT that exists is replaced with --force only; of a file\n"
     "that is none of accounts, - is standard input or output",
     RunConvert},
    {"report", "FILE", 1,
     " --kind --group --month --from --to --json --encoding --pdf --paper --force --password ",
     "a report of a month or a period, as text, JSON or a PDF file", RunReport},
    {"import", "IN ACCOUNT", 2, " --skip-known --from" DIALECT_OPTIONS "--password ",
     "adds every transaction of a .qif, .csv or .xml file to an account, which is\n"
     "then of format 2.0; how many it seems to have already is told; IN may be -,\n"
     "standard input",
     RunImport},
};

#undef DIALECT_OPTIONS

// Whether a word stands among others that have a blank before and after them.
bool IsAmong(const char* szWords, const char* szWord)
{
    const std::string sWord = std::string(" ") + szWord + " ";
    return strstr(szWords, sWord.c_str()) != nullptr;
}

bool Takes(const ToolCommand& command, const ToolOption& option)
{
    return IsAmong(command.szOptions, option.szName) &&
           (option.szOnly == nullptr || IsAmong(option.szOnly, command.szName));
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

std::string OptionLine(const ToolOption& option)
{
    std::string sLine = std::string("  ") + option.szName;
    if (option.szValue != nullptr) {
        sLine += std::string(" ") + option.szValue;
    }
    sLine.resize(std::max(sLine.size() + 2, size_t{24}), ' ');
    return sLine + option.szText + "\n";
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

std::span<const ToolCommand> ToolCommands()
{
    return aCommands;
}

std::span<const ToolOption> AllToolOptions()
{
    return aOptions;
}

const ToolCommand* FindToolCommand(std::string_view name)
{
    for (const ToolCommand& command : aCommands) {
        if (command.szName == name) {
            return &command;
        }
    }
    return nullptr;
}

const ToolOption* FindToolOption(const ToolCommand& command, std::string_view name)
{
    for (const ToolOption& option : aOptions) {
        if (option.szName == name && Takes(command, option)) {
            return &option;
        }
    }
    return nullptr;
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
        sText += OptionLine(option);
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
        if (Takes(command, option)) {
            sText += OptionLine(option);
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
        if (Takes(command, option)) {
            suggestion.Offer(option.szName);
        }
    }
    return suggestion.Get();
}
