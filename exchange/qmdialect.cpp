#include "exchange/qmdialect.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace {

template <class T>
struct Named
{
    const char* szName;
    T value;
};

constexpr Named<QMBankColumn> aColumns[] = {
    {"-", QMBankColumn::Ignored},         {"Date", QMBankColumn::Date},
    {"Number", QMBankColumn::Number},     {"Description", QMBankColumn::Description},
    {"Payee", QMBankColumn::Description}, {"Amount", QMBankColumn::Amount},
    {"Debit", QMBankColumn::Debit},       {"Credit", QMBankColumn::Credit},
    {"Sign", QMBankColumn::Sign},         {"Memo", QMBankColumn::Memo},
    {"Category", QMBankColumn::Category}, {"Type", QMBankColumn::Type},
};

constexpr Named<QMDateOrder> aOrders[] = {
    {"mdy", QMDateOrder::MonthFirst},
    {"dmy", QMDateOrder::DayFirst},
    {"ymd", QMDateOrder::YearFirst},
};

constexpr Named<QMCharacterSet> aEncodings[] = {
    {"auto", QMCharacterSet::Automatic}, {"utf-8", QMCharacterSet::Utf8},
    {"utf-16", QMCharacterSet::Utf16},   {"cp1252", QMCharacterSet::Windows1252},
    {"latin1", QMCharacterSet::Latin1},
};

constexpr Named<bool> aAnswers[] = {{"no", false}, {"yes", true}};

char ToLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool IsSame(std::string_view a, std::string_view b)
{
    bool bSame = a.size() == b.size();
    for (size_t u = 0; bSame && u < a.size(); ++u) {
        bSame = ToLower(a[u]) == ToLower(b[u]);
    }
    return bSame;
}

template <class T, size_t n>
bool Find(const Named<T> (&aTable)[n], std::string_view name, T& value)
{
    for (const Named<T>& entry : aTable) {
        if (IsSame(entry.szName, name)) {
            value = entry.value;
            return true;
        }
    }
    return false;
}

template <class T, size_t n>
const char* NameOf(const Named<T> (&aTable)[n], T value)
{
    for (const Named<T>& entry : aTable) {
        if (entry.value == value) {
            return entry.szName;
        }
    }
    return "";
}

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    const size_t uFirst = text.find_first_not_of(blanks);
    return uFirst == std::string_view::npos
               ? std::string_view()
               : text.substr(uFirst, text.find_last_not_of(blanks) - uFirst + 1);
}

const char* SetSeparator(std::string_view value, char& cSeparator)
{
    if (IsSame(value, "tab")) {
        cSeparator = '\t';
        return nullptr;
    }
    constexpr std::string_view known = ",;|:\t";
    if (value.size() != 1 || known.find(value[0]) == std::string_view::npos) {
        return "it is not one of , ; | : and tab";
    }
    cSeparator = value[0];
    return nullptr;
}

const char* SetQuote(std::string_view value, char& cQuote)
{
    if (IsSame(value, "none")) {
        cQuote = '\0';
        return nullptr;
    }
    if (value != "\"" && value != "'") {
        return "it is not one of \" ' and none";
    }
    cQuote = value[0];
    return nullptr;
}

const char* SetSkip(std::string_view value, int32_t& lSkip)
{
    int32_t lLines = 0;
    const auto result = std::from_chars(value.data(), value.data() + value.size(), lLines);
    if (value.empty() || result.ec != std::errc() || result.ptr != value.data() + value.size() ||
        lLines < 0 || lLines > 1000) {
        return "it is not a number of lines from 0 to 1000";
    }
    lSkip = lLines;
    return nullptr;
}

bool Has(const std::vector<QMBankColumn>& columns, QMBankColumn column)
{
    return std::ranges::find(columns, column) != columns.end();
}

const char* CheckColumns(const std::vector<QMBankColumn>& columns)
{
    if (!Has(columns, QMBankColumn::Date)) {
        return "no column is the Date";
    }
    const bool bSides = Has(columns, QMBankColumn::Debit) || Has(columns, QMBankColumn::Credit);
    if (!bSides && !Has(columns, QMBankColumn::Amount)) {
        return "no column is an Amount, Debit or Credit";
    }
    if (Has(columns, QMBankColumn::Sign) && !Has(columns, QMBankColumn::Amount)) {
        return "a Sign needs an Amount";
    }
    return nullptr;
}

const char* SetColumns(std::string_view value, std::vector<QMBankColumn>& columns)
{
    std::vector<QMBankColumn> found;
    for (bool bMore = true; bMore;) {
        const size_t uComma = value.find(',');
        QMBankColumn column;
        if (!Find(aColumns, Trimmed(value.substr(0, uComma)), column)) {
            return "a column is not one of Date, Number, Description, Amount, Debit, Credit, Sign, "
                   "Memo, Category, Type and -";
        }
        if (column != QMBankColumn::Ignored && Has(found, column)) {
            return "a column stands in it twice";
        }
        found.push_back(column);
        bMore = uComma != std::string_view::npos;
        value.remove_prefix(bMore ? uComma + 1 : value.size());
    }
    if (const char* szFault = CheckColumns(found)) {
        return szFault;
    }
    columns = found;
    return nullptr;
}

} // namespace

std::string QMBankColumnNames(const std::vector<QMBankColumn>& columns)
{
    std::string sNames;
    for (const QMBankColumn column : columns) {
        sNames += sNames.empty() ? "" : ",";
        sNames += NameOf(aColumns, column);
    }
    return sNames;
}

const char* QMDialect::Set(std::string_view name, std::string_view value)
{
    if (name == "separator") {
        return SetSeparator(value, cSeparator);
    }
    if (name == "quote") {
        return SetQuote(value, cQuote);
    }
    if (name == "skip") {
        return SetSkip(value, lSkip);
    }
    if (name == "columns") {
        return SetColumns(value, columns);
    }
    if (name == "dates") {
        bDatesTold = Find(aOrders, value, dates);
        return bDatesTold ? nullptr : "it is not one of mdy, dmy and ymd";
    }
    if (name == "encoding") {
        return Find(aEncodings, value, encoding)
                   ? nullptr
                   : "it is not one of auto, utf-8, utf-16, cp1252 and latin1";
    }
    if (name == "invert") {
        return Find(aAnswers, value, bInvert) ? nullptr : "it is neither yes nor no";
    }
    if (name == "decimal") {
        if (value != "," && value != ".") {
            return "it is neither , nor .";
        }
        cDecimal = value[0];
        return nullptr;
    }
    return "a profile has no such name";
}

std::string QMDialect::GetProfile() const
{
    const auto Line = [](const char* szName, const std::string& sValue) {
        return std::string(szName) + " = " + sValue + "\n";
    };
    std::string sText = Line("separator", cSeparator == '\t' ? "tab" : std::string(1, cSeparator));
    sText += Line("quote", cQuote == '\0' ? "none" : std::string(1, cQuote));
    sText += Line("dates", NameOf(aOrders, dates));
    sText += Line("decimal", std::string(1, cDecimal));
    sText += Line("encoding", NameOf(aEncodings, encoding));
    sText += Line("skip", std::to_string(lSkip));
    if (!columns.empty()) {
        sText += Line("columns", QMBankColumnNames(columns));
    }
    return sText + Line("invert", NameOf(aAnswers, bInvert));
}

std::string QMDialect::ReadProfile(std::string_view text)
{
    for (int nLine = 1; !text.empty(); ++nLine) {
        const size_t uEnd = text.find('\n');
        const std::string_view line = Trimmed(text.substr(0, uEnd));
        text.remove_prefix(uEnd == std::string_view::npos ? text.size() : uEnd + 1);
        if (line.empty() || line[0] == '#') {
            continue;
        }
        const size_t uEqual = line.find('=');
        const char* szFault =
            uEqual == std::string_view::npos
                ? "it has no ="
                : Set(Trimmed(line.substr(0, uEqual)), Trimmed(line.substr(uEqual + 1)));
        if (szFault != nullptr) {
            return "line " + std::to_string(nLine) + ": " + szFault;
        }
    }
    return {};
}
