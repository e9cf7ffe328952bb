#include "exchange/qmdialectguess.h"
#include "qmktool/commands.h"
#include "qmktool/output.h"
#include "qmktool/toolerror.h"
#include "qmktool/toolexchange.h"

// Prints the profile of a bank's file, to be kept in a file of its own.
int RunDetect(const ToolOptions& options)
{
    const char* szFile = options.aFiles[0];
    const QMExchangeKind kind = InKindOf(options);
    if (kind != QMExchangeKind::Csv && kind != QMExchangeKind::Qif) {
        return RefuseFile("detect the dialect of", szFile, "only .csv and .qif files have one");
    }
    std::string sBytes;
    QMDialect told;
    std::vector<std::string> names;
    if (!ReadToolFile(szFile, "detect the dialect of", sBytes) ||
        !MakeDialect(options, told, &names)) {
        return QM_EXIT_REFUSED;
    }
    QMDialectGuess guess;
    std::string sFault;
    const bool bCsv = kind == QMExchangeKind::Csv;
    if (bCsv ? !QMGuessCsvDialect(sBytes, told, names, guess, sFault)
             : !QMGuessQifDialect(sBytes, told, names, guess, sFault)) {
        return RefuseFile("detect the dialect of", szFile, sFault.c_str());
    }
    Output output;
    output.Add("# A profile for ");
    output.AddName(szFile);
    output.Add(".\n");
    output.Add(guess.GetProfile());
    return output.Finish();
}
