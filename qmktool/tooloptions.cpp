#include "qmktool/tooloptions.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "account/qmaccountformat.h"
#include "qmktool/toolerror.h"

namespace {

bool Refuse(const char* szFault, const char* szWord)
{
    WriteError("%s '%s' (see qmktool --help)", szFault, szWord);
    return false;
}

// Reads a date such as 3/14/2004. Returns false for anything but digits and slashes, and for a day
// that QMCheckDate refuses.
bool ParseDay(const char* szText, QMDate& date)
{
    const bool bDigits = strspn(szText, "0123456789/") == strlen(szText);
    int nMonth = 0;
    int nDay = 0;
    int nYear = 0;
    char cMore = 0;
    if (!bDigits || sscanf(szText, "%2d/%2d/%4d%c", &nMonth, &nDay, &nYear, &cMore) != 3) {
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
            } else if (!bOptions || szWord[0] != '-') {
                m_options.aFiles.push_back(szWord);
            } else if (!IsTaken(szWord)) {
                return Refuse("unknown option", szWord);
            } else if (!TakeOption(szWord)) {
                return false;
            }
        }
        return CheckWhole();
    }

private:
    bool IsTaken(const char* szOption) const
    {
        const std::string sName = std::string(" ") + szOption + " ";
        return strstr(m_command.szOptions, sName.c_str()) != nullptr;
    }

    bool TakeOption(const char* szOption)
    {
        if (strcmp(szOption, "--json") == 0) {
            m_options.bJson = true;
        } else if (strcmp(szOption, "--force") == 0) {
            m_options.bForce = true;
        } else if (strcmp(szOption, "--cleared-balance") == 0) {
            m_options.bClearedBalance = true;
        } else {
            return TakeValue(szOption);
        }
        return true;
    }

    bool TakeValue(const char* szOption)
    {
        if (m_nNext >= m_nWords) {
            return Refuse("a value is missing behind", szOption);
        }
        const char* szValue = m_aszWords[m_nNext++];
        if (strcmp(szOption, "--format") == 0) {
            return ParseFormat(szValue, m_options.lVersion) || Refuse("unknown format", szValue);
        }
        if (TakeText(szOption, szValue)) {
            return true;
        }
        const bool bFrom = strcmp(szOption, "--from") == 0;
        (bFrom ? m_bFrom : m_bTo) = true;
        return ParseDay(szValue, bFrom ? m_options.dtFrom : m_options.dtTo) ||
               Refuse("not a date in the form M/D/YYYY:", szValue);
    }

    // Options whose command makes sense of their text.
    bool TakeText(const char* szOption, const char* szValue)
    {
        constexpr struct
        {
            const char* szOption;
            const char* ToolOptions::*pMember;
        } aTexts[] = {
            {"--password", &ToolOptions::szPassword}, {"--kind", &ToolOptions::szKind},
            {"--group", &ToolOptions::szGroup},       {"--month", &ToolOptions::szMonth},
            {"--pdf", &ToolOptions::szPdf},           {"--paper", &ToolOptions::szPaper},
        };
        for (const auto& text : aTexts) {
            if (strcmp(szOption, text.szOption) == 0) {
                m_options.*text.pMember = szValue;
                return true;
            }
        }
        return false;
    }

    bool CheckWhole()
    {
        if (m_options.aFiles.size() < m_command.uFiles) {
            return Refuse("a file name is missing behind", m_command.szName);
        }
        if (m_options.aFiles.size() > m_command.uFiles) {
            return Refuse("one file name too many:", m_options.aFiles[m_command.uFiles]);
        }
        if (m_bFrom != m_bTo) {
            return Refuse("a period needs both --from and --to; missing is",
                          m_bFrom ? "--to" : "--from");
        }
        m_options.bPeriod = m_bFrom;
        return true;
    }

    const ToolCommand& m_command;
    int m_nWords;
    char** m_aszWords;
    ToolOptions& m_options;
    int m_nNext = 0;
    bool m_bFrom = false;
    bool m_bTo = false;
};

} // namespace

bool ParseToolOptions(const ToolCommand& command, int nWords, char** aszWords, ToolOptions& options)
{
    return Parser(command, nWords, aszWords, options).Run();
}
