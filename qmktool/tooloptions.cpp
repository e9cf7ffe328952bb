#include "qmktool/tooloptions.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>

#include "account/qmaccountformat.h"
#include "base/vtext.h"
#include "exchange/qmdialect.h"
#include "qmktool/commands.h"
#include "qmktool/toolerror.h"
#include "qmktool/toolfile.h"

namespace {

bool Refuse(const char* szFault, const char* szWord)
{
    WriteError("%s '%s' (see qmktool --help)", szFault, szWord);
    return false;
}

// Whether the text has the shape, in which a 9 stands for any digit.
bool HasShape(const char* szText, const char* szShape)
{
    for (; *szShape != '\0'; ++szText, ++szShape) {
        if (*szShape == '9' ? !VIsDigit(*szText) : *szText != *szShape) {
            return false;
        }
    }
    return *szText == '\0';
}

bool ParseCount(const char* szText, int32_t& lCount)
{
    const auto result = std::from_chars(szText, szText + strlen(szText), lCount);
    return result.ec == std::errc() && *result.ptr == '\0' && lCount >= 0;
}

// Reads a date such as 3/14/2004 or 2004-03-14. Returns false for anything else, and for a day that
// QMCheckDate refuses.
bool ParseDay(const char* szText, QMDate& date)
{
    const bool bDigits = strspn(szText, "0123456789/") == strlen(szText);
    int nMonth = 0;
    int nDay = 0;
    int nYear = 0;
    char cMore = 0;
    if (HasShape(szText, "9999-99-99")) {
        sscanf(szText, "%4d-%2d-%2d", &nYear, &nMonth, &nDay);
    } else if (!bDigits || sscanf(szText, "%2d/%2d/%4d%c", &nMonth, &nDay, &nYear, &cMore) != 3) {
        return false;
    }
    date = QMMakeDate(static_cast<uint16_t>(nYear), static_cast<uint16_t>(nMonth),
                      static_cast<uint16_t>(nDay));
    return QMCheckDate(date) == 0;
}

bool ParseFormat(const char* szText, int32_t& lVersion)
{
    constexpr struct
    {
        const char* szName;
        int32_t lVersion;
    } aFormats[] = {{"1.0", QM_VERSION_1_0}, {"1.1", QM_VERSION_1_1}, {"2.0", QM_VERSION_2_0}};
    for (const auto& format : aFormats) {
        if (strcmp(szText, format.szName) == 0) {
            lVersion = format.lVersion;
            return true;
        }
    }
    return false;
}

// Parser: reads the words of a command line from left to right.
class Parser
{
public:
    Parser(const ToolCommand& command, int nWords, char** aszWords, ToolOptions& options)
        : m_command(command), m_nWords(nWords), m_aszWords(aszWords), m_options(options)
    {}

    bool Run()
    {
        bool bOptions = true;
        while (m_nNext < m_nWords) {
            const char* szWord = m_aszWords[m_nNext++];
            if (bOptions && strcmp(szWord, "--") == 0) {
                bOptions = false;
            } else if (!bOptions || szWord[0] != '-' || IsStandardStream(szWord)) {
                m_options.aFiles.push_back(szWord);
            } else if (!TakeOption(szWord)) {
                return false;
            }
        }
        return CheckWhole();
    }

private:
    // "--name", "--name VALUE" or "--name=VALUE".
    bool TakeOption(const char* szWord)
    {
        const char* szEqual = strchr(szWord, '=');
        const std::string_view name(
            szWord, szEqual == nullptr ? strlen(szWord) : static_cast<size_t>(szEqual - szWord));
        const ToolUse* pUse = FindToolOption(m_command, name);
        if (pUse == nullptr) {
            return RefuseOption(szWord, name);
        }
        if (pUse->szValue == nullptr) {
            return szEqual == nullptr ? TakeFlag(name)
                                      : Refuse("no value belongs to", std::string(name).c_str());
        }
        if (szEqual != nullptr) {
            return TakeValue(name, szEqual + 1);
        }
        if (m_nNext >= m_nWords) {
            return Refuse("a value is missing behind", szWord);
        }
        return TakeValue(name, m_aszWords[m_nNext++]);
    }

    bool RefuseOption(const char* szWord, std::string_view name) const
    {
        const char* szOther = SuggestOption(m_command, name);
        if (szOther == nullptr) {
            return Refuse("unknown option", szWord);
        }
        WriteError("unknown option '%s'; did you mean '%s'? (see qmktool --help)", szWord, szOther);
        return false;
    }

    bool TakeFlag(std::string_view name)
    {
        const struct
        {
            std::string_view name;
            bool* pFlag;
        } aFlags[] = {
            {"--json", &m_options.bJson},
            {"--force", &m_options.bForce},
            {"--cleared-balance", &m_options.bClearedBalance},
            {"--all", &m_options.bAll},
            {"--dry-run", &m_options.bDryRun},
            {"--skip-known", &m_options.bSkipKnown},
            {"--detect", &m_options.bDetect},
            {"--csv", &m_options.bCsv},
        };
        for (const auto& flag : aFlags) {
            if (flag.name == name) {
                *flag.pFlag = true;
                return true;
            }
        }
        m_options.dialect.emplace_back("invert", "yes");
        return true;
    }

    bool TakeValue(std::string_view name, const char* szValue)
    {
        if (TakeText(name, szValue)) {
            return true;
        }
        if (name == "--format") {
            return ParseFormat(szValue, m_options.lVersion) || Refuse("unknown format", szValue);
        }
        if (name == "--limit" || name == "--last") {
            return ParseCount(szValue, name == "--last" ? m_options.lLast : m_options.lLimit) ||
                   Refuse("not a number of rows:", szValue);
        }
        const bool bFrom = name == "--from";
        if (bFrom || name == "--to") {
            return IsExchange() ? TakeKind(bFrom ? m_options.fromKind : m_options.toKind, szValue)
                                : TakeDay(bFrom, szValue);
        }
        return name == "--encoding" && !IsExchange() ? TakeEncoding(szValue)
                                                     : TakeDialect(name.substr(2), szValue);
    }

    // Whether the command is one of those that read and write the files of other programs.
    bool IsExchange() const { return m_command.pRun == RunConvert || m_command.pRun == RunImport; }

    bool TakeKind(QMExchangeKind& kind, const char* szValue)
    {
        if (strcmp(szValue, "qmk") == 0) {
            return RefuseStream();
        }
        kind = ExchangeKindOf((std::string(".") + szValue).c_str());
        return kind != QMExchangeKind::None ||
               Refuse("not one of the formats qif, csv and xml:", szValue);
    }

    bool TakeEncoding(const char* szValue)
    {
        m_options.bEncoding = true;
        m_options.encoding =
            strcmp(szValue, "utf-8") == 0 ? VEncoding::Utf8 : VEncoding::Windows1252;
        return m_options.encoding == VEncoding::Utf8 || strcmp(szValue, "cp1252") == 0 ||
               Refuse("neither cp1252 nor utf-8:", szValue);
    }

    bool TakeDay(bool bFrom, const char* szValue)
    {
        (bFrom ? m_options.bFrom : m_options.bTo) = true;
        return ParseDay(szValue, bFrom ? m_options.dtFrom : m_options.dtTo) ||
               Refuse("not a date in the form M/D/YYYY or YYYY-MM-DD:", szValue);
    }

    bool TakeDialect(std::string_view name, const char* szValue)
    {
        if (const char* szFault = QMDialect().Set(name, szValue)) {
            WriteError("--%s '%s' is refused: %s (see qmktool --help)", std::string(name).c_str(),
                       szValue, szFault);
            return false;
        }
        m_options.dialect.emplace_back(name, szValue);
        return true;
    }

    // Options whose command makes sense of their text.
    bool TakeText(std::string_view name, const char* szValue)
    {
        constexpr struct
        {
            std::string_view name;
            const char* ToolOptions::*pMember;
        } aTexts[] = {
            {"--password", &ToolOptions::szPassword}, {"--kind", &ToolOptions::szKind},
            {"--group", &ToolOptions::szGroup},       {"--month", &ToolOptions::szMonth},
            {"--profile", &ToolOptions::szProfile},   {"--pdf", &ToolOptions::szPdf},
            {"--paper", &ToolOptions::szPaper},
        };
        const auto* const pFound =
            std::ranges::find(aTexts, name, [](const auto& text) { return text.name; });
        if (pFound == std::end(aTexts)) {
            return false;
        }
        m_options.*pFound->pMember = szValue;
        return true;
    }

    bool CheckWhole()
    {
        // To propose a dialect, the file alone is needed.
        const size_t uNeeded = m_options.bDetect ? 1 : m_command.uFiles;
        if (m_options.aFiles.size() < uNeeded) {
            return Refuse("a file name is missing behind", m_command.szName);
        }
        if (m_options.aFiles.size() > m_command.uFiles) {
            return Refuse("one file name too many:", m_options.aFiles[m_command.uFiles]);
        }
        if (m_options.lLimit >= 0 && m_options.lLast >= 0) {
            return Refuse("the first rows or the last, not both:", "--limit, --last");
        }
        if (m_options.bJson && m_options.bCsv) {
            return Refuse("one or the other, not both:", "--json, --csv");
        }
        return CheckStreams() && CheckPeriod();
    }

    static bool RefuseStream()
    {
        return Refuse("an account is never read from standard input or written to standard output:",
                      "-");
    }

    // "-" may stand for an exchange file only, and an option must name its format.
    bool CheckStreams() const
    {
        for (size_t u = 0; u < m_options.aFiles.size(); ++u) {
            const bool bExchange = IsExchange() && (u == 0 || m_command.pRun == RunConvert);
            if (IsStandardStream(m_options.aFiles[u]) && !bExchange) {
                return RefuseStream();
            }
        }
        return !IsExchange() || (CheckStream(0, m_options.fromKind, "--from") &&
                                 CheckStream(1, m_options.toKind, "--to"));
    }

    bool CheckStream(size_t uFile, QMExchangeKind kind, const char* szOption) const
    {
        const bool bStream =
            uFile < m_options.aFiles.size() && IsStandardStream(m_options.aFiles[uFile]);
        if (bStream == (kind != QMExchangeKind::None)) {
            return true;
        }
        return bStream ? Refuse("the format of '-' is not told; missing is", szOption)
                       : Refuse("only the format of '-' is told by", szOption);
    }

    bool CheckPeriod()
    {
        if (!m_options.bFrom) {
            m_options.dtFrom = QMMakeDate(0, 0, 0);
        }
        if (!m_options.bTo) {
            m_options.dtTo = QMMakeDate(UINT16_MAX, UINT16_MAX, UINT16_MAX);
        }
        // A report has a sentence of its own for that.
        return m_command.pRun == RunReport || !QMDateIsAfter(m_options.dtFrom, m_options.dtTo) ||
               Refuse("the period ends before it begins:", "--from, --to");
    }

    const ToolCommand& m_command;
    int m_nWords;
    char** m_aszWords;
    ToolOptions& m_options;
    int m_nNext = 0;
};

} // namespace

bool ParseToolOptions(const ToolCommand& command, int nWords, char** aszWords, ToolOptions& options)
{
    return Parser(command, nWords, aszWords, options).Run();
}
