// Feeds arbitrary bytes to the reader of banks' files. The first line is a profile, with "&" for
// its line ends. The rest is the file.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/qmbankreader.h"
#include "exchange/qmdialectguess.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize);

namespace {

void Check(bool bHolds, const char* szWhat)
{
    if (!bHolds) {
        fprintf(stderr, "bank reader: %s\n", szWhat);
        abort();
    }
}

void CheckRecord(const QMTransaction& transaction)
{
    Check(transaction.IsTypeValid(), "a type is unknown");
    Check(QMCheckDate(transaction.dtDate) == 0, "a date is no day");
    Check(!std::isnan(transaction.fAmount) && transaction.fAmount >= 0, "an amount has a sign");
    Check(strpbrk(transaction.szDescription, "\r\n") == nullptr &&
              strpbrk(transaction.szMemo, "\r\n") == nullptr &&
              strpbrk(transaction.szCategory, "\r\n") == nullptr,
          "a text has several lines");
}

using Guesser = bool (*)(std::string_view, const QMDialect&, const std::vector<std::string>&,
                         QMDialectGuess&, std::string&);

// Puts a value where the profile leaves it to the user.
void Decide(std::string& sProfile, const std::string& sName, const char* szValue)
{
    const size_t uOpen = sProfile.find("\n" + sName + "?\n");
    if (uOpen != std::string::npos) {
        sProfile.replace(uOpen + 1 + sName.size(), 1, szValue);
    }
}

// What is proposed is a profile, but for the values that the user must decide.
void CheckGuess(Guesser guesser, const std::string& sFile)
{
    QMDialectGuess guess;
    std::string sFault;
    const bool bGuessed = guesser(sFile, QMDialect(), {}, guess, sFault);
    Check(bGuessed == sFault.empty(), "a guess fails without a reason");
    if (!bGuessed) {
        return;
    }
    std::string sProfile = guess.GetProfile();
    Decide(sProfile, "dates = ", "dmy");
    Decide(sProfile, "columns = ", "Date,Amount");
    QMDialect dialect;
    Check(dialect.ReadProfile(sProfile).empty(), "a proposal is no profile");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize)
{
    const std::string sInput(pBytes, pBytes + uSize);
    const size_t uEnd = sInput.find('\n');
    std::string sProfile = sInput.substr(0, uEnd);
    for (char& c : sProfile) {
        c = c == '&' ? '\n' : c;
    }
    QMDialect dialect;
    dialect.ReadProfile(sProfile);
    const std::string sFile = uEnd == std::string::npos ? "" : sInput.substr(uEnd + 1);
    QMTransactionStore store;
    QMBankReport report;
    std::string sFault;
    const bool bRead = QMReadBankCsv(sFile, dialect, store, report, sFault);
    Check(bRead == !store.IsEmpty() && bRead == sFault.empty(), "a refusal gives records");
    store.ForEach(CheckRecord);
    QMDialect again;
    Check(again.ReadProfile(dialect.GetProfile()).empty() &&
              again.GetProfile() == dialect.GetProfile(),
          "a profile does not read back");
    QMTranslateQif(sFile, dialect, report);
    CheckGuess(QMGuessCsvDialect, sFile);
    CheckGuess(QMGuessQifDialect, sFile);
    return 0;
}
