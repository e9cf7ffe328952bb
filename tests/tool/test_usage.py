"""The command line: help, version, and every mistake that a user can make in it"""

import unittest

from support import COMMANDS, SAMPLE, ToolTestCase, cases, posix_only, run

OPTIONS = ("--json", "--from", "--to", "--cleared-balance", "--format", "--force", "--password",
           "--help", "--version", "--limit", "--last", "--all", "--dry-run", "--skip-known",
           "--profile", "--separator", "--quote", "--dates", "--decimal", "--encoding", "--skip",
           "--columns", "--invert", "--detect", "--csv", "-h", "help COMMAND")
FILE = "missing.qmk"
FIRST_DAY, LAST_DAY = ("--from", "1/1/2004"), ("--to", "12/31/2004")

WRONG_WORDS = {
    "no command": [],
    "unknown command": ["show", FILE],
    "command in capitals": ["LIST", FILE],
    "option in front of the command": ["--json", "info", FILE],
    "empty command": [""],
    "unknown option": ["list", FILE, "--jsonn"],
    "shortened option": ["list", FILE, "--js"],
    "option in capitals": ["info", FILE, "--JSON"],
    "value for an option that takes none": ["info", FILE, "--json=yes"],
    "period whose ends are exchanged": ["list", FILE, "--from", "3/1/2004", "--to", "2/1/2004"],
    "first and last rows at once": ["list", FILE, "--limit", "3", "--last", "3"],
    "a negative number of rows": ["list", FILE, "--limit", "-1"],
    "a number of rows in words": ["list", FILE, "--last", "3x"],
    "half a period and a month for a report": ["report", FILE, "--kind", "tax", *FIRST_DAY,
                                               "--month", "3/2004"],
    "a period for convert": ["convert", FILE, "b.csv", *FIRST_DAY],
    "dialect of an account": ["convert", FILE, "b.csv", "--dates", "dmy"],
    "help for no command": ["help", "lists"],
    "help for two commands": ["help", "list", "info"],
    "all for list": ["list", FILE, "--all"],
    "unknown order of dates": ["import", "a.csv", FILE, "--dates", "mmdd"],
    "unknown separator": ["import", "a.csv", FILE, "--separator", "x"],
    "unknown quote": ["import", "a.csv", FILE, "--quote", "x"],
    "unknown decimal": ["import", "a.csv", FILE, "--decimal", ";"],
    "unknown encoding": ["import", "a.csv", FILE, "--encoding", "ebcdic"],
    "lines to skip in words": ["import", "a.csv", FILE, "--skip", "two"],
    "columns without a date": ["import", "a.csv", FILE, "--columns", "Amount"],
    "columns without an amount": ["convert", "a.csv", FILE, "--columns", "Date,Memo"],
    "an unknown column": ["convert", "a.csv", FILE, "--columns", "Date,Amount,Colour"],
    "dry run for list": ["list", FILE, "--dry-run"],
    "skip known for convert": ["convert", "a.csv", FILE, "--skip-known"],
    "short option": ["list", "-j", FILE],
    "a lone dash": ["info", "-"],
    "version behind a command": ["list", FILE, "--version"],
    "json for check": ["check", FILE, "--json"],
    "json for convert": ["convert", FILE, FILE, "--json"],
    "period for info": ["info", FILE, *FIRST_DAY, *LAST_DAY],
    "cleared balance for check": ["check", FILE, "--cleared-balance"],
    "force for list": ["list", FILE, "--force"],
    "format for info": ["info", FILE, "--format", "2.0"],
    "no file for info": ["info"],
    "no file for list": ["list", "--json"],
    "no file for check": ["check"],
    "no file for convert": ["convert"],
    "one file for convert": ["convert", FILE],
    "no file behind the end of options": ["info", "--"],
    "two files for info": ["info", FILE, "b.qmk"],
    "two files for list": ["list", FILE, "b.qmk"],
    "two files for check": ["check", FILE, "b.qmk"],
    "three files for convert": ["convert", FILE, "b.qmk", "c.qmk"],
    "no file for import": ["import"],
    "one file for import": ["import", "a.qif"],
    "three files for import": ["import", "a.qif", FILE, "b.qmk"],
    "format for import": ["import", "a.qif", FILE, "--format", "2.0"],
    "force for import": ["import", "a.qif", FILE, "--force"],
    "json for import": ["import", "a.qif", FILE, "--json"],
    "format of accounts for QIF": ["convert", FILE, "b.qif", "--format", "2.0"],
    "format of accounts for CSV": ["convert", FILE, "b.CSV", "--format", "1.0"],
    "format of accounts for XML": ["convert", "a.csv", "b.xml", "--format", "1.1"],
    "an option behind the end of options": ["info", FILE, "--", "--json"],
    "no value for the password": ["info", FILE, "--password"],
    "no value for the first day": ["list", FILE, *LAST_DAY, "--from"],
    "no value for the last day": ["list", FILE, *FIRST_DAY, "--to"],
    "no value for the format": ["convert", FILE, "b.qmk", "--format"],
    "unknown format": ["convert", FILE, "b.qmk", "--format", "3.0"],
    "format by its word": ["convert", FILE, "b.qmk", "--format", "8192"],
    "shortened format": ["convert", FILE, "b.qmk", "--format", "2"],
}

NO_DATES = ("2/30/2004", "4/31/2004", "13/1/2004", "0/1/2004", "1/0/2004", "1/32/2004", "1/1/04",
            "1/1/1751", "1/1/3001", "1/1/20040", "x", "", "1/2004", "1/1/", "1//2004", "1-1-2004",
            "2004-2-3", "2004-02-30", "2004-13-01", "04-01-01", "2004-01-01x", "1/1/2004x", "1/1/2004/", " 1/1/2004", "-1/1/2004", "+1/1/2004", "2004/1/1")
DATES = ("2004-01-31", "1/1/2004", "01/01/2004", "2/29/2003", "12/31/3000", "1/1/1752")


class Asked(ToolTestCase):
    """Help and version."""

    def test_help_tells_every_command_and_option(self) -> None:
        text = self.assert_done(run("--help")).out.decode("ascii")
        for word in (*COMMANDS, *OPTIONS, "M/D/YYYY", "1.0|1.1|2.0", "Exit code"):
            with self.subTest(word=word):
                self.assertIn(word, text)

    def test_help_by_its_other_names(self) -> None:
        text = self.assert_done(run("--help")).out
        for words in (["-h"], ["help"]):
            self.assertEqual(self.assert_done(run(*words)).out, text, words)

    def test_help_of_a_command_tells_its_options_and_no_others(self) -> None:
        text = self.assert_done(run("help", "list")).out
        self.assertIn(b"--cleared-balance", text)
        self.assertNotIn(b"--force", text)
        for words in (["list", "--help"], ["list", FILE, "-h"], ["list", "--jsn", "--help"]):
            self.assertEqual(self.assert_done(run(*words)).out, text, words)

    def test_a_word_that_looks_like_another_is_asked_about(self) -> None:
        for words, other in ((["lst"], "list"), (["conv"], "convert"), (["improt"], "import"),
                             (["list", FILE, "--js"], "--json"),
                             (["list", FILE, "--form", "1/1/2004"], "--from"),
                             (["import", "a.csv", FILE, "--seperator", ";"], "--separator")):
            with self.subTest(words):
                result = run(*words)
                self.assert_usage(result)
                self.assertIn(f"did you mean '{other}'?".encode(), result.err)
        self.assertNotIn(b"did you mean", run("frobnicate").err)

    def test_help_behind_the_end_of_options_is_a_file(self) -> None:
        self.assert_refused(run("info", "--", "--help", cwd=self.folder), "--help")

    def test_version(self) -> None:
        self.assertRegex(self.assert_done(run("--version")).out, rb"\Aqmktool \d+\.\d+\.\d+\n\Z")


class Wrong(ToolTestCase):
    """A wrong command line must give code 2, one line on standard error, and nothing on standard
    output."""

    def test_wrong_words(self) -> None:
        for name, words in cases(WRONG_WORDS.items()):
            with self.subTest(name):
                self.assert_usage(run(*words, cwd=self.folder))

    def test_no_dates(self) -> None:
        for index, text in cases(enumerate(NO_DATES)):
            period = (text, LAST_DAY[1]) if index % 2 else (FIRST_DAY[1], text)
            with self.subTest(text):
                self.assert_usage(run("list", FILE, "--from", period[0], "--to", period[1]))

    def test_the_line_names_the_wrong_word(self) -> None:
        for word, words in cases((
                ("shwo", ["shwo", FILE]),
                ("--jsno", ["list", FILE, "--jsno"]),
                ("2/30/2004", ["list", FILE, "--from", "2/30/2004", *LAST_DAY]),
                ("surplus.qmk", ["info", FILE, "surplus.qmk"]),
                ("7.5", ["convert", FILE, "b.qmk", "--format", "7.5"]))):
            with self.subTest(word):
                self.assertIn(f"'{word}'".encode(), run(*words).err)

    def test_a_wrong_command_line_comes_before_the_file(self) -> None:
        """The program must check the whole command line before it opens any file."""
        account = self.write_account()
        self.assert_usage(run("convert", account, self.folder / "out.qmk", "--format", "9"))
        self.assertEqual(self.names_in_folder(), ["account.qmk"])

    @posix_only
    def test_a_word_with_a_line_break_stays_on_one_line(self) -> None:
        self.assert_usage(run("li\nst", FILE))


class Understood(ToolTestCase):

    def test_dates(self) -> None:
        for index, text in cases(enumerate(DATES)):
            period = (text, "12/31/3000") if index % 2 else ("1/1/1752", text)
            with self.subTest(text):
                self.assert_done(run("list", SAMPLE, "--from", period[0], "--to", period[1]))

    def test_options_stand_anywhere_behind_the_command(self) -> None:
        orders = (["list", SAMPLE, "--json", *FIRST_DAY, *LAST_DAY],
                  ["list", "--json", *LAST_DAY, *FIRST_DAY, SAMPLE],
                  ["list", *FIRST_DAY, SAMPLE, *LAST_DAY, "--json"],
                  ["list", *FIRST_DAY, *LAST_DAY, "--json", "--", SAMPLE])
        outputs = {self.assert_done(run(*words)).out for words in orders}
        self.assertEqual(len(outputs), 1)
        self.assertIn(b'"rows":[', outputs.pop())

    def test_a_value_behind_an_equal_sign(self) -> None:
        self.assertEqual(
            self.assert_done(run("list", SAMPLE, "--from=1/1/2004", "--to=2004-12-31")).out,
            self.assert_done(run("list", SAMPLE, *FIRST_DAY, *LAST_DAY)).out)

    def test_a_period_with_one_end(self) -> None:
        for half, whole in ((FIRST_DAY, (*FIRST_DAY, "--to", "12/31/3000")),
                            (LAST_DAY, ("--from", "1/1/1752", *LAST_DAY))):
            self.assertEqual(self.assert_done(run("list", SAMPLE, *half)).out,
                             self.assert_done(run("list", SAMPLE, *whole)).out)

    def test_the_first_and_the_last_rows(self) -> None:
        positions = [row["position"] for row in run("list", SAMPLE, "--json").json()["rows"]]
        for words, rows in ((("--limit", "3"), positions[:3]), (("--last", "3"), positions[-3:]),
                            (("--limit", "0"), []), (("--last", "0"), []),
                            (("--limit", "9999"), positions), (("--last", "9999"), positions)):
            listing = self.assert_done(run("list", SAMPLE, "--json", *words)).json()
            self.assertEqual([row["position"] for row in listing["rows"]], rows, words)

    def test_a_repeated_option_counts_once(self) -> None:
        self.assertEqual(run("info", SAMPLE, "--json", "--json").out,
                         self.assert_done(run("info", SAMPLE, "--json")).out)

    def test_behind_the_end_of_options_every_word_is_a_file(self) -> None:
        self.write("--json.qmk", SAMPLE.read_bytes())
        listed = self.assert_done(run("info", "--json", "--", "--json.qmk", cwd=self.folder))
        self.assertEqual(listed.json()["count"], 447)
        self.assert_done(run("convert", "--", "--json.qmk", "--force.qmk", cwd=self.folder))
        self.assertEqual(self.names_in_folder(), ["--force.qmk", "--json.qmk"])

    @posix_only
    def test_standard_output_that_takes_nothing_is_told(self) -> None:
        for command in ("info", "list", "check"):
            with self.subTest(command), open("/dev/full", "wb") as full:
                result = run(command, SAMPLE, stdout=full)
                self.assert_one_error_line(result, 1)
                self.assertIn(b"standard output", result.err)

    @posix_only
    def test_findings_that_cannot_be_written_are_told_in_one_line(self) -> None:
        file = self.write("account.qmk", SAMPLE.read_bytes() + b"trailing bytes")
        with open("/dev/full", "wb") as full:
            self.assert_one_error_line(run("check", file, stdout=full), 1)


if __name__ == "__main__":
    unittest.main()
