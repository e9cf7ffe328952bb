"""What qmktool prints for people: characters, columns, colours, progress; CSV; standard streams"""

import csv
import io
import os
import re
import signal
import subprocess
import time
import unittest
from pathlib import Path
from typing import Any

import formats
import rules
from support import (DONE, FRONT_SIZE, IS_WINDOWS, PROGRAM, REFUSED, SAMPLE, Day, Entry, Result,
                     ToolTestCase, cases, make_account, posix_only, run, with_number)

if not IS_WINDOWS:
    import pty

RED, PLAIN = b"\x1b[31m", b"\x1b[0m"
TEXTS = ("Café", "漢字かな", "e\u0301te\u0301", "😀 paid", "한국어", "\u202egnp.exe", "plain",
         "tab\there", "\x1b[2J", "\x9b31m", "a\u200bb", "ÄÖÜ ß €")


def in_terminal(*words: Any, **variables: str) -> tuple[int, bytes, bytes]:
    """Runs the program with standard output and standard error in terminals of their own."""
    environment = {**os.environ, "TERM": "xterm", **variables}
    environment = {name: value for name, value in environment.items()
                   if name != "NO_COLOR" or "NO_COLOR" in variables}
    masters, slaves = zip(pty.openpty(), pty.openpty())
    with subprocess.Popen([*PROGRAM, *map(str, words)], stdin=subprocess.DEVNULL,
                          stdout=slaves[0], stderr=slaves[1], env=environment) as program:
        texts = [read_terminal(master, slave) for master, slave in zip(masters, slaves)]
    return program.returncode, texts[0].replace(b"\r\n", b"\n"), texts[1]


def read_terminal(master: int, slave: int | None) -> bytes:
    """Everything that programs write to a terminal, until none has it open."""
    if slave is not None:
        os.close(slave)
    data = b""
    while True:
        try:
            piece = os.read(master, 65536)
        except OSError:  # so Linux tells that the other end is closed
            piece = b""
        if not piece:
            os.close(master)
            return data
        data += piece


class Characters(ToolTestCase):

    def test_texts_in_columns(self) -> None:
        entries = [Entry(0, Day(2004, 3, day), 1000 + day, 1.0, 0, None, text.encode(),
                         text[::-1].encode(), b"House") for day, text in enumerate(TEXTS, 1)]
        account = self.write_account(entries=entries)
        for encoding in ("utf-8", "cp1252"):
            lines = self.assert_done(run("list", account, "--encoding", encoding)).lines()
            self.assertEqual(lines, rules.text_lines(rules.register_of(entries), encoding))

    def test_every_byte_is_shown_and_none_is_sent(self) -> None:
        every = [bytes(range(first, first + 32)).lstrip(b"\0") for first in range(0, 256, 32)]
        entries = [Entry(0, description=text, memo=text[::-1]) for text in every]
        account = self.write_account(entries=entries)
        held = rules.register_of(entries)
        for encoding in ("utf-8", "cp1252"):
            result = self.assert_done(run("list", account, "--encoding", encoding))
            self.assertEqual(result.lines(), rules.text_lines(held, encoding))
            sent = set(result.out.decode("utf-8")) - {"\n"}
            self.assertFalse([one for one in sent if not one.isprintable() and one != "\xad"
                              and one != "\xa0"])

    def test_info_and_report_by_their_encoding(self) -> None:
        account = self.write_account(header={"szBankName": "Zoë 銀行".encode()},
                                     entries=[Entry(0, memo="漢".encode(), flags=2),
                                              Entry(0, memo=b"ab", flags=2)])
        info = self.assert_done(run("info", account, "--encoding", "utf-8"))
        self.assertIn("Bank               Zoë 銀行".encode(), info.lines())
        report = self.assert_done(run("report", account, "--kind", "expenses", "--month", "3/2004",
                                      "--encoding=utf-8"))
        self.assertIn("Zoë 銀行".encode(), report.out)

    def test_json_has_the_bytes_unless_an_encoding_is_told(self) -> None:
        account = self.write_account(entries=[Entry(0, description="é漢😀".encode() + b"\xff\x1b")])

        def described(*options: str) -> str:
            result = self.assert_done(run("list", account, "--json", *options))
            return result.json()["rows"][0]["szDescription"]

        self.assertEqual(described().encode("latin-1"), "é漢😀".encode() + b"\xff\x1b")
        self.assertEqual(described("--encoding", "utf-8"), "é漢😀\ufffd\x1b")
        self.assertEqual(described("--encoding", "cp1252"),
                         ("é漢😀".encode() + b"\xff\x1b").decode("cp1252", "replace"))

    def test_refused_values(self) -> None:
        for words in (["list", SAMPLE, "--encoding", "latin1"], ["list", SAMPLE, "--encoding", ""],
                      ["info", SAMPLE, "--encoding", "UTF-16"], ["check", SAMPLE, "--encoding"],
                      ["list", SAMPLE, "--encoding"], ["list", SAMPLE, "--csv", "--json"],
                      ["info", SAMPLE, "--csv"], ["list", SAMPLE, "--csv=yes"],
                      ["report", SAMPLE, "--kind", "tax", "--month", "3/2004", "--pdf", "x.pdf",
                       "--encoding", "utf-8"]):
            with self.subTest(words):
                self.assert_usage(run(*words, cwd=self.folder))


class CommaSeparated(ToolTestCase):

    def rows(self, *words: Any) -> list[list[str]]:
        result = run("list", *words, "--csv")
        self.assert_done(result)
        text = result.out.decode("utf-8")
        if not IS_WINDOWS:
            self.assertEqual(text.count("\r\n"), text.count("\n"))
        return list(csv.reader(io.StringIO(text, newline=""), strict=True))

    def test_the_household(self) -> None:
        rows = self.rows(SAMPLE)
        listing = run("list", SAMPLE, "--json").json()["rows"]
        self.assertEqual(rows[0], ["Date", "Number", "Type", "Description", "Debit", "Credit",
                                   "Balance", "Tag", "Memo", "Category"])
        self.assertEqual(len(rows), 1 + len(listing))
        for row, entry in zip(rows[1:], listing):
            shown = entry["columns"]
            self.assertEqual(row, ["%04d-%02d-%02d" % tuple(entry["dtDate"]),
                                   shown["Number"].strip(), rules.LABELS[entry["lType"]],
                                   entry["szDescription"], shown["Debit"].strip(),
                                   shown["Credit"].strip(), shown["Balance"].strip(), shown["Tag"],
                                   entry["szMemo"], entry["szCategory"]])

    def test_texts_that_need_quotes(self) -> None:
        texts = ('a,b', 'say "so"', 'two\r\nlines', '"', 'x"', ',', "caf\u00e9", "=1+1", "\x1b[31m")
        entries = [Entry(0, memo=text.encode("cp1252")) for text in texts]
        rows = self.rows(self.write_account(entries=entries))
        if not IS_WINDOWS:
            self.assertEqual([row[8] for row in rows[1:]], list(texts))

    def test_period_and_limit(self) -> None:
        self.assertEqual(len(self.rows(SAMPLE, "--from", "2003-01-01", "--to", "2003-01-03")), 4)
        self.assertEqual(len(self.rows(SAMPLE, "--last", "2")), 3)
        self.assertEqual(len(self.rows(self.write_account())), 1)


@posix_only
class Terminals(ToolTestCase):

    def setUp(self) -> None:
        super().setUp()
        self.account = self.write_account(entries=[Entry(0, amount=5.0),
                                                   Entry(1, Day(2004, 3, 20), amount=7.0)])

    def test_a_negative_balance_is_red(self) -> None:
        code, out, err = in_terminal("list", self.account)
        self.assertEqual((code, err), (DONE, b""))
        self.assertEqual(out.count(RED), 1)
        self.assertIn(RED + b"-5.00" + PLAIN, out)
        piped = self.assert_done(run("list", self.account)).out
        self.assertEqual(out.replace(RED, b"").replace(PLAIN, b""), piped)

    def test_the_sums_too(self) -> None:
        account = self.write_account(entries=[Entry(0, amount=5.0)])
        lines = in_terminal("list", account)[1].split(b"\n")
        self.assertIn(b"Balance:   " + RED + b"-5.00" + PLAIN, lines)
        self.assertIn(b"Available: " + RED + b"-5.00" + PLAIN, lines)

    def test_none_where_none_are_wanted(self) -> None:
        for variables in ({"NO_COLOR": "1"}, {"TERM": "dumb"}):
            with self.subTest(variables):
                out = in_terminal("list", self.account, **variables)[1]
                self.assertEqual(out, run("list", self.account).out)
        self.assertNotIn(b"\x1b", run("list", self.account).out)
        self.assertNotIn(b"\x1b", in_terminal("list", self.account, "--csv")[1])

    def test_CSV_commands_no_terminal(self) -> None:
        account = self.write_account(entries=[Entry(0, memo=b"\x1b[31m\a")])
        self.assertIn("␛[31m␇".encode(), in_terminal("list", account, "--csv")[1])

    def test_an_empty_NO_COLOR_is_none(self) -> None:
        self.assertIn(RED, in_terminal("list", self.account, NO_COLOR="")[1])

    def convert_slowly(self, err: int) -> tuple[int, bytes]:
        """Feeds a file to standard input and waits more than a second before its second half."""
        data = b"!Type:Bank\n" + b"D3/20/2004\nT5.00\nPBooks\n^\n" * 20000
        words = [*PROGRAM, "convert", "-", "-", "--from", "qif", "--to", "csv"]
        with subprocess.Popen(words, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=err) as program:
            program.stdin.write(data[:len(data) // 2])
            program.stdin.flush()
            time.sleep(1.3)  # the program tells nothing before a second is over
            out = program.communicate(data[len(data) // 2:])[0]
        return program.returncode, out

    def test_progress_of_a_work_beyond_a_second(self) -> None:
        master, slave = pty.openpty()
        code, out = self.convert_slowly(slave)
        told = read_terminal(master, slave)
        self.assertEqual((code, out.count(b"\n")), (DONE, 20001))
        self.assertRegex(told, rb"\rreading: \d+ MB")
        # The program must wipe the line of progress before it prints the last line.
        self.assertRegex(told, rb"\r *\r-: CSV, 20000 transactions\r\n\Z")

    def halted(self, *words: Any, out: Any = subprocess.DEVNULL) -> bytes:
        """What a program tells on a terminal that is halted for more than a second once it has
        begun to read."""
        master, slave = pty.openpty()
        with subprocess.Popen([*PROGRAM, *map(str, words)], stdin=subprocess.DEVNULL, stdout=out,
                              stderr=slave) as program:
            counters = Path(f"/proc/{program.pid}/io")
            while int(re.search(r"rchar: (\d+)", counters.read_text())[1]) < 1000000:
                time.sleep(0.001)
            program.send_signal(signal.SIGSTOP)
            time.sleep(1.3)
            program.send_signal(signal.SIGCONT)
            told = read_terminal(master, slave)
        self.assertEqual(program.returncode, DONE, told)
        return told

    @unittest.skipUnless(Path("/proc/self/io").exists(), "a process does not tell what it has read")
    def test_progress_of_lists_and_accounts(self) -> None:
        count = 300000
        one = make_account([Entry(description=b"Books")])
        account = self.write("many.qmk", with_number(one[:FRONT_SIZE], 8, count) +
                             one[FRONT_SIZE:] * count)
        with open(self.folder / "listed", "wb") as listed:
            for options in ((), ("--csv",), ("--json",)):
                told = self.halted("list", account, *options, out=listed)
                self.assertRegex(told, rb"\rlisting: \d+ % *\r", options)
                self.assertRegex(told, rb"\r +\r\Z", options)
        period = ("--kind", "voided", "--from", "1/1/2000")
        for options in ((), ("--pdf", self.folder / "report.pdf")):
            told = self.halted("report", account, *period, *options)
            self.assertRegex(told, rb"\rreporting: \d+ % *\r", options)
            self.assertRegex(told, rb"\r +\r\Z", options)
        told = self.halted("convert", account, self.folder / "again.qmk")
        self.assertRegex(told, rb"\rwriting: \d+ % *\r")
        self.assertRegex(told, rb"\r +\r\Z")

    def test_no_progress_when_nobody_looks(self) -> None:
        with open(self.folder / "told", "w+b") as err:
            code, _ = self.convert_slowly(err.fileno())
            err.seek(0)
            self.assertEqual((code, err.read()), (DONE, b"-: CSV, 20000 transactions\n"))

    def test_no_progress_of_a_short_work(self) -> None:
        code, _, err = in_terminal("convert", SAMPLE, self.folder / "out.qif")
        self.assertEqual((code, err), (DONE, b""))


class Streams(ToolTestCase):

    ENTRIES = [Entry(0, Day(2004, 3, 20), 1001, 5.0, 0, None, b"Books"),
               Entry(1, Day(2004, 3, 21), 1000, 7.0, 0, None, b"Wage")]

    def fed(self, data: bytes, *words: Any) -> Result:
        source = self.write("fed", data)
        with open(source, "rb") as stdin:
            return run(*words, stdin=stdin, cwd=self.folder)

    def test_each_format_from_standard_input(self) -> None:
        for kind in cases(formats.KINDS):
            data = formats.WRITERS[kind](self.ENTRIES)
            self.write(f"in.{kind}", data)
            self.assert_done(run("convert", f"in.{kind}", "by_name.qmk", cwd=self.folder))
            result = self.fed(data, "convert", "-", "by_stream.qmk", "--from", kind)
            self.assertEqual(self.assert_done(result).out,
                             b"by_stream.qmk: format 2.0, 2 transactions\n")
            self.assertEqual((self.folder / "by_stream.qmk").read_bytes(),
                             (self.folder / "by_name.qmk").read_bytes())
            for name in ("by_name.qmk", "by_stream.qmk"):
                (self.folder / name).unlink()

    def test_each_format_to_standard_output(self) -> None:
        self.write_account(entries=self.ENTRIES)
        for kind in cases(formats.KINDS):
            result = run("convert", "account.qmk", "-", "--to", kind, cwd=self.folder)
            # What the program prints is looked at with the line ends of all systems alike.
            written = formats.WRITERS[kind](self.ENTRIES).replace(b"\r\n", b"\n")
            self.assertEqual((result.code, result.out), (DONE, written), str(result))
            self.assertEqual(result.err.strip(), b"-: %s, 2 transactions" % kind.upper().encode())

    def test_import_from_standard_input(self) -> None:
        account = self.write_account(entries=[])
        data = formats.write_qif(self.ENTRIES)
        result = self.assert_done(self.fed(data, "import", "-", account, "--from=qif"))
        self.assertIn(b"2 transactions imported into ", result.out)
        bank = b"04.03.2024;5,00\n30.03.2024;6,00\n"
        options = ("--from", "csv", "--separator", ";", "--dates", "dmy", "--decimal", ",",
                   "--columns", "Date,Amount")
        self.assert_done(self.fed(bank, "import", "-", account, *options))
        self.assertEqual(run("list", account, "--json").json()["count"], 4)

    def test_nothing_on_standard_input(self) -> None:
        for kind in cases(formats.KINDS):
            self.assert_refused(self.fed(b"", "convert", "-", "out.qmk", "--from", kind), "-",
                                "the file is empty")
        self.assertFalse((self.folder / "out.qmk").exists())

    def test_wrong_words(self) -> None:
        never = "an account is never read from standard input or written to standard output"
        for words, reason in (
                (["convert", "-", "b.qmk"], "missing is '--from'"),
                (["convert", "a.qif", "-"], "missing is '--to'"),
                (["import", "-", "b.qmk"], "missing is '--from'"),
                (["convert", "-", "b.qmk", "--from", "qmk"], never),
                (["convert", "a.qif", "-", "--to", "qmk"], never),
                (["import", "a.qif", "-"], never), (["info", "-"], never), (["list", "-"], never),
                (["check", "-"], never), (["import", "a.qif", "--", "-"], never),
                (["report", "-", "--kind", "tax", "--month", "3/2004"], never),
                (["convert", "-", "b.qmk", "--from", "txt"], "not one of the formats"),
                (["convert", "-", "b.qmk", "--from", ""], "not one of the formats"),
                (["convert", "-", "b.qmk", "--from", "1/1/2004"], "not one of the formats"),
                (["convert", "a.qif", "b.qmk", "--from", "qif"], "only the format of '-'"),
                (["convert", "a.qif", "b.csv", "--to", "csv"], "only the format of '-'"),
                (["import", "a.qif", "b.qmk", "--from", "qif"], "only the format of '-'"),
                (["import", "-", "b.qmk", "--to", "qif"], "unknown option"),
                (["convert", "a.qmk", "-", "--to", "csv", "--format", "2.0"], "--format is for")):
            with self.subTest(words):
                result = run(*words, cwd=self.folder)
                self.assert_usage(result)
                self.assertIn(reason.encode(), result.err)

    def test_a_file_of_that_name(self) -> None:
        self.write("-", self.write_account(entries=self.ENTRIES).read_bytes())
        self.assert_done(run("info", "./-", cwd=self.folder))

    @posix_only
    def test_standard_output_that_takes_nothing(self) -> None:
        account = self.write_account(entries=self.ENTRIES)
        with open("/dev/full", "wb") as full:
            result = run("convert", account, "-", "--to", "csv", stdout=full)
        self.assertEqual((result.code, result.err),
                         (REFUSED, b"qmktool: cannot write to standard output\n"))


if __name__ == "__main__":
    unittest.main()
