// qmktool: looks into, checks, converts and fills account files from the command line.

#include <cstdio>
#include <cstring>
#include <new>

#include "qmktool/commands.h"
#include "qmktool/output.h"
#include "qmktool/toolerror.h"

namespace {

constexpr ToolCommand aCommands[] = {
    {"info", 1, " --json --password ", RunInfo},
    {"list", 1, " --json --from --to --cleared-balance --password ", RunList},
    {"check", 1, " --password ", RunCheck},
    {"convert", 2, " --format --force --password ", RunConvert},
    {"import", 2, " --password ", RunImport},
    {"report", 1, " --kind --group --month --from --to --json --pdf --paper --force --password ",
     RunReport},
};

constexpr char szHelp[] =
    "qmktool looks into, checks, converts and fills Quillmark account files.\n"
    "\n"
    "  qmktool info FILE [--json]\n"
    "      the account's particulars and the number of its transactions\n"
    "  qmktool list FILE [--json] [--from M/D/YYYY --to M/D/YYYY] [--cleared-balance]\n"
    "      the register, of all days or of a period; with --cleared-balance the\n"
    "      balance column counts cleared transactions only\n"
    "  qmktool check FILE\n"
    "      whether the file is sound: format, entries, anything that had to be mended\n"
    "  qmktool convert IN OUT [--format 1.0|1.1|2.0] [--force]\n"
    "      writes the transactions anew, from and to any of the files .qmk, .qif, .csv\n"
    "      and .xml; an account has the format given, without one that of an IN account\n"
    "      and otherwise 2.0; an OUT that exists is replaced with --force only\n"
    "  qmktool import IN ACCOUNT\n"
    "      adds every transaction of a .qif, .csv or .xml file to an account, which is\n"
    "      then of format 2.0; nothing is tested for duplicates\n"
    "  qmktool report FILE --kind KIND [--group TEXT]\n"
    "                 (--month M/YYYY | --from M/D/YYYY --to M/D/YYYY)\n"
    "                 [--json | --pdf OUT [--paper letter|a4] [--force]]\n"
    "      a report, as text, JSON or a PDF file. KIND is statement, type, description,\n"
    "      memo, category, tax, expenses, voided or not-cleared; --group is the name of\n"
    "      a type, which the kind type needs, or a text of description, memo or category\n"
    "  qmktool --help\n"
    "  qmktool --version\n"
    "\n"
    "  --password TEXT   opens an account that has a password\n"
    "  --                takes every word behind it as a file name\n"
    "\n"
    "Exit code: 0 done, 1 refused (the reason on standard error), 2 wrong usage.\n";

bool Asks(const char* szWord, const char* szOption)
{
    return strcmp(szWord, szOption) == 0;
}

int Print(const char* szText)
{
    Output output;
    output.Add(szText);
    return output.Finish();
}

int Run(int nWords, char** aszWords)
{
    for (int i = 1; i < nWords && !Asks(aszWords[i], "--"); ++i) {
        if (Asks(aszWords[i], "--help")) {
            return Print(szHelp);
        }
    }
    if (nWords < 2) {
        WriteError("a command is missing (see qmktool --help)");
        return QM_EXIT_USAGE;
    }
    if (Asks(aszWords[1], "--version")) {
        return Print("qmktool " QUILLMARK_VERSION "\n");
    }
    for (const ToolCommand& command : aCommands) {
        if (strcmp(aszWords[1], command.szName) == 0) {
            ToolOptions options;
            return ParseToolOptions(command, nWords - 2, aszWords + 2, options)
                       ? command.pRun(options)
                       : QM_EXIT_USAGE;
        }
    }
    WriteError("unknown command '%s' (see qmktool --help)", aszWords[1]);
    return QM_EXIT_USAGE;
}

} // namespace

int main(int argc, char** argv)
try {
    return Run(argc, argv);
} catch (const std::bad_alloc&) {
    fputs("qmktool: not enough memory\n", stderr);
    return QM_EXIT_REFUSED;
}
