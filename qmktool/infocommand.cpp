#include <cstring>

#include "account/qmheaderfields.h"
#include "account/qmmoney.h"
#include "qmktool/commands.h"
#include "qmktool/jsonwriter.h"
#include "qmktool/toolaccount.h"
#include "register/qmcolumntable.h"
#include "register/qmperiod.h"

namespace {

template <class T>
T ValueOf(const QMAccountHeader& header, const QMHeaderField& field)
{
    T value;
    memcpy(&value, reinterpret_cast<const char*>(&header) + field.uOffset, sizeof value);
    return value;
}

void WriteField(JsonWriter& json, const QMAccountHeader& header, const QMHeaderField& field)
{
    json.Name(field.szName);
    switch (field.kind) {
        case QMHeaderKind::Text:
            json.Text(reinterpret_cast<const char*>(&header) + field.uOffset);
            break;
        case QMHeaderKind::Date:
            json.Date(ValueOf<QMDate>(header, field));
            break;
        case QMHeaderKind::Real:
            json.Single(ValueOf<float>(header, field));
            break;
        case QMHeaderKind::Flag:
            json.Integer(ValueOf<uint8_t>(header, field));
            break;
        case QMHeaderKind::Signed:
            json.Integer(ValueOf<int32_t>(header, field));
            break;
        case QMHeaderKind::Unsigned:
            json.Integer(ValueOf<uint32_t>(header, field));
            break;
    }
}

void WriteJson(Output& output, const QMAccount& account, bool bCharacters)
{
    JsonWriter json(output, bCharacters);
    json.BeginObject();
    json.Name("version");
    json.Integer(account.lVersion);
    json.Name("count");
    json.Integer(account.store.GetCount());
    json.Name("header");
    json.BeginObject();
    for (const QMHeaderField& field : QMHeaderFields()) {
        // The password itself is shown to nobody, not even to someone who could open the file.
        if (strcmp(field.szName, "szPassword") == 0) {
            json.Name("bHasPassword");
            json.Boolean(account.header.szPassword[0] != '\0');
        } else {
            WriteField(json, account.header, field);
        }
    }
    json.EndObject();
    json.EndObject();
    output.Add('\n');
}

void WriteLine(Output& output, const char* szName, std::string_view text)
{
    output.Format("%-18s ", szName);
    output.AddShown(text);
    output.Add('\n');
}

std::string DateText(const QMDate& date)
{
    char szText[32];
    snprintf(szText, sizeof szText, "%d/%d/%d", date.wMonth, date.wDay, date.wYear);
    return QMDateKey(date) == 0 ? "" : szText;
}

// "Street, City, State Zip", without the parts that are empty.
std::string Address(const char* szStreet, const char* szCity, const char* szState,
                    const char* szZip)
{
    std::string sAddress;
    for (const char* szPart : {szStreet, szCity, szState, szZip}) {
        if (*szPart != '\0') {
            const char* szSeparator = szPart == szZip ? " " : ", ";
            sAddress += (sAddress.empty() ? "" : szSeparator) + std::string(szPart);
        }
    }
    return sAddress;
}

std::string ShownColumns(const QMAccountHeader& header)
{
    QMColumnTable columns;
    columns.LoadFrom(header);
    std::string sNames;
    for (int32_t i = 0; i < QM_ENTRY_FILLER; ++i) {
        const auto column = static_cast<QMColumn>(i);
        if (columns.IsVisible(column)) {
            sNames += (sNames.empty() ? "" : ", ") + std::string(QMGetColumnInfo(column).szName);
        }
    }
    return sNames;
}

std::string Period(const QMAccountHeader& header)
{
    const uint32_t uPeriod = header.lDisplayPeriod;
    std::string sPeriod = uPeriod <= QM_ACCNT_DISPLAY_DATE_RANGE
                              ? QMPeriodName(static_cast<int>(uPeriod))
                              : std::to_string(uPeriod);
    if (uPeriod != QM_ACCNT_DISPLAY_ALL) {
        sPeriod += ", " + DateText(header.dtPeriodFrom) + " to " + DateText(header.dtPeriodTo);
    }
    return sPeriod;
}

void WriteText(Output& output, const char* szFile, const QMAccount& account)
{
    const QMAccountHeader& header = account.header;
    char szAmount[64];
    QMFormatMoney(static_cast<double>(header.fMinimumBalance), 0, szAmount, sizeof szAmount);
    output.Format("%-18s ", "File");
    output.AddName(szFile);
    output.Add('\n');
    WriteLine(
        output, "Format",
        std::string(FormatName(account.lVersion)) + " (" + std::to_string(account.lVersion) + ")");
    WriteLine(output, "Transactions", std::to_string(account.store.GetCount()));
    WriteLine(output, "Account number", header.szAccountNumber);
    WriteLine(output, "Date opened", DateText(header.dtOpened));
    WriteLine(output, "Minimum balance", szAmount);
    WriteLine(output, "Read-only", header.bReadOnly != 0 ? "yes" : "no");
    WriteLine(output, "Password", header.szPassword[0] != '\0' ? "yes" : "no");
    WriteLine(output, "Bank", header.szBankName);
    WriteLine(
        output, "  Address",
        Address(header.szBankAddress, header.szBankCity, header.szBankState, header.szBankZip));
    WriteLine(output, "  Phone", header.szBankPhone);
    WriteLine(output, "  Homepage", header.szBankHomepage);
    WriteLine(output, "Holder", header.szHolderName);
    WriteLine(output, "  Address",
              Address(header.szHolderAddress, header.szHolderCity, header.szHolderState,
                      header.szHolderZip));
    WriteLine(output, "  Phone", header.szHolderPhone);
    WriteLine(output, "Columns", ShownColumns(header));
    WriteLine(output, "Font",
              std::string(header.szFontFace) + ", " + std::to_string(header.lFontSize) + " points");
    WriteLine(output, "Period", Period(header));
}

} // namespace

int RunInfo(const ToolOptions& options)
{
    QMReadReport report;
    const auto pAccount = OpenToolAccount(options.aFiles[0], options, report);
    if (pAccount == nullptr) {
        return QM_EXIT_REFUSED;
    }
    Output output(options.encoding);
    if (options.bJson) {
        WriteJson(output, *pAccount, options.bEncoding);
    } else {
        WriteText(output, options.aFiles[0], *pAccount);
    }
    return output.Finish();
}
