// qmktool: looks into, checks, converts and fills account files from the command line.

#include <cstdio>
#include <cstring>
#include <new>
#include <string>

#include "qmktool/commandtable.h"
#include "qmktool/output.h"
#include "qmktool/toolerror.h"
#include "qmktool/tooloptions.h"

namespace {

bool Asks(const char* szWord, const char* szOption)
{
    return strcmp(szWord, szOption) == 0;
}

int Print(const std::string& sText)
{
    Output output;
    output.Add(sText);
    return output.Finish();
}

bool AsksForHelp(const char* szWord)
{
    return Asks(szWord, "--help") || Asks(szWord, "-h");
}

int RefuseCommand(const char* szWord)
{
    if (const char* szOther = SuggestCommand(szWord)) {
        WriteError("unknown command '%s'; did you mean '%s'? (see qmktool --help)", szWord,
                   szOther);
    } else {
        WriteError("unknown command '%s' (see qmktool --help)", szWord);
    }
    return QM_EXIT_USAGE;
}

int PrintHelp(const char* szCommand)
{
    if (szCommand == nullptr) {
        return Print(ToolHelp());
    }
    const ToolCommand* pCommand = FindToolCommand(szCommand);
    return pCommand == nullptr ? RefuseCommand(szCommand) : Print(ToolHelp(*pCommand));
}

int RunCommand(const ToolCommand& command, int nWords, char** aszWords)
{
    for (int i = 0; i < nWords && !Asks(aszWords[i], "--"); ++i) {
        if (AsksForHelp(aszWords[i])) {
            return Print(ToolHelp(command));
        }
    }
    ToolOptions options;
    return ParseToolOptions(command, nWords, aszWords, options) ? command.pRun(options)
                                                                : QM_EXIT_USAGE;
}

int Run(int nWords, char** aszWords)
{
    if (nWords < 2) {
        WriteError("a command is missing (see qmktool --help)");
        return QM_EXIT_USAGE;
    }
    const char* szFirst = aszWords[1];
    const bool bHelp = Asks(szFirst, "help");
    if (bHelp && nWords > 3) {
        WriteError("one word too many: '%s' (see qmktool --help)", aszWords[3]);
        return QM_EXIT_USAGE;
    }
    if (AsksForHelp(szFirst) || bHelp) {
        return PrintHelp(bHelp && nWords == 3 ? aszWords[2] : nullptr);
    }
    if (Asks(szFirst, "--version")) {
        return Print("qmktool " QUILLMARK_VERSION "\n");
    }
    const ToolCommand* pCommand = FindToolCommand(szFirst);
    return pCommand == nullptr ? RefuseCommand(szFirst)
                               : RunCommand(*pCommand, nWords - 2, aszWords + 2);
}

} // namespace

int main(int argc, char** argv)
try {
    return Run(argc, argv);
} catch (const std::bad_alloc&) {
    fputs("qmktool: not enough memory\n", stderr);
    return QM_EXIT_REFUSED;
}
