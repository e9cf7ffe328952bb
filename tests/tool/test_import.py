"""qmktool import: a QIF, CSV or XML file merged into an account file."""

import os
import unittest
from collections import Counter
from pathlib import Path
from typing import Any, Iterable

import formats
import rules
from exchange_support import NOT_XML, plain_entries
from formats import KINDS, READERS, WRITERS
from rules import NOT_CLEARED
from support import (IS_WINDOWS, SAMPLE, V1_0, V1_1, V2_0, Day, Entry, Result, ToolTestCase, cases,
                     make_account, posix_only, run)

if not IS_WINDOWS:
    import fcntl
    import resource

HEADER = {"szAccountNumber": b"12-345", "szBankName": b"First Example Bank", "bReadOnly": 0,
          "dtOpened": Day(2003, 1, 2), "lDisplayPeriod": 3, "dtPeriodFrom": Day(2004, 1, 1),
          "dtPeriodTo": Day(2004, 12, 31)}
OLD = [Entry(0, Day(2004, 3, 1), 1001, 20.0, 0, None, b"Oak Street", b"gate", b"House"),
       Entry(1, Day(2004, 2, 1), 1000, 250.0, 0, None, b"Refund")]
NEW_QIF = (b"!Type:Bank\nD2/1/2004\nT5.00\nPDeposit\n^\nD3/1/2004\nN1001\nT-20.00\nPOak Street\n^\n"
           b"D1/1/2004\nT-7.50\nPFee\nLBank\nCX\n^\n")
NEW = [Entry(1, Day(2004, 2, 1), 0, 5.0, NOT_CLEARED, None, b""),
       Entry(0, Day(2004, 3, 1), 1001, 20.0, NOT_CLEARED, None, b"Oak Street"),
       Entry(3, Day(2004, 1, 1), 0, 7.5, 0, None, b"", b"", b"Bank")]


def look(entry: Entry) -> tuple[Any, ...]:
    """The values by which two transactions count as the same."""
    return (entry.day, rules.as_single(entry.amount) * (-1 if entry.type in rules.DEBITS else 1),
            entry.number if entry.type == 0 else 0, entry.description.removeprefix(b" - "))


def told(old: list[Entry], new: list[Entry], source: Path) -> bytes:
    """The text of the last line after the count."""
    known = sum((Counter(map(look, old)) & Counter(map(look, new))).values())
    days = [entry.day for entry in new]
    counts = ((sum(not 1 <= day.month <= 12 for day in days), b"without a date"),
              (days.count(Day(2000, 1, 1)), b"of 1/1/2000, as those without a date are"),
              (sum(entry.amount == 0 for entry in new), b"without an amount"))
    text = b"".join(b", %d %s" % (count, what) for count, what in counts if count)
    # Files that the program writes have the month first.
    own = source.suffix == ".xml" or source.read_bytes().startswith(formats.CSV_HEADER)
    text += b"" if own else rules.order_note(days)
    return text + (b", %d that it seems to have already" % known if known else b"")


class ImportTestCase(ToolTestCase):

    def setUp(self) -> None:
        super().setUp()
        self.account = self.write_account("account.qmk", OLD, header=HEADER)
        self.source = self.write("in.qif", NEW_QIF)

    def run_import(self, *options: str, **settings: Any) -> Result:
        return run("import", self.source, self.account, *options, **settings)

    def assert_imports(self, entries: Iterable[Entry], count: int, header: Any = None,
                       **settings: Any) -> None:
        """The account file must have the bytes of the entries, in the order of the register."""
        result = self.assert_done(run("import", self.source.name, self.account.name,
                                      cwd=self.folder, **settings))
        every = list(entries)
        old, new = every[:len(every) - count], every[len(every) - count:]
        self.assertEqual(result.out, b"%d transaction%s imported into %s%s\n" % (
            count, b"" if count == 1 else b"s", self.account.name.encode(), told(old, new, self.source)))
        expected = make_account(formats.in_order(entries), V2_0, header or HEADER)
        self.assertTrue(self.account.read_bytes() == expected, "other bytes than expected")
        self.assertEqual(self.names_in_folder(), sorted({self.account.name, self.source.name}))

    def assert_untouched(self, result: Result, file: Path, reason: str, before: bytes,
                         *others: str) -> None:
        self.assert_refused(result, file, reason)
        self.assertEqual(self.account.read_bytes(), before)
        self.assertEqual(self.names_in_folder(), sorted(["account.qmk", *others]))


class Merged(ImportTestCase):

    def test_new_ones_stand_behind_those_of_their_day(self) -> None:
        self.assert_imports(OLD + NEW, 3)
        days = [(row["dtDate"], row["lType"]) for row in
                self.assert_done(run("list", self.account, "--json")).json()["rows"]]
        self.assertEqual(days, [([2004, 1, 1], 3), ([2004, 2, 1], 1), ([2004, 2, 1], 1),
                                ([2004, 3, 1], 0), ([2004, 3, 1], 0)])

    def test_the_same_file_twice_gives_each_twice(self) -> None:
        self.assert_imports(OLD + NEW, 3)
        self.assert_imports(OLD + NEW + NEW, 3)

    def test_from_every_format(self) -> None:
        entries = rules.register_order(plain_entries(50))
        for kind in KINDS:
            with self.subTest(kind):
                data = WRITERS[kind](entries)
                self.source.unlink()
                self.source = self.write(f"in.{kind}", data)
                self.account = self.write_account("account.qmk", OLD, header=HEADER)
                held = READERS[kind](data)
                self.assert_imports(OLD + held, len(held))

    def test_a_file_that_the_household_exported(self) -> None:
        self.account = self.write("account.qmk", SAMPLE.read_bytes())
        self.source.unlink()
        self.source = self.folder / "in.xml"
        self.assert_done(run("convert", self.account, self.source))
        result = self.assert_done(self.run_import())
        self.assertTrue(result.out.startswith(b"447 transactions imported into "), result.out)
        listing = self.assert_done(run("list", self.account, "--json")).json()
        self.assertEqual(listing["count"], 2 * 447)
        self.assertEqual([round(listing[key], 6) for key in ("dBalance", "dAvailable")],
                         [2 * 4195.04, 2 * 3757.5])

    def test_one_is_told_as_one(self) -> None:
        self.source.write_bytes(b"!Type:Bank\nT-5\n^\n")
        self.assert_imports([*OLD, Entry(2, Day(2000, 1, 1), 0, 5.0, NOT_CLEARED, None, b"")], 1)

    def test_known_ones_are_left_out_when_told_to(self) -> None:
        """Each transaction of the account excludes one equal transaction of the file. The second of
        two equal ones is imported if the account has only one."""
        self.source.write_bytes(NEW_QIF + NEW_QIF[11:])
        result = self.assert_done(self.run_import("--skip-known"))
        self.assertTrue(result.out.endswith(b", 1 that it seems to have already left out\n"))
        expected = make_account(formats.in_order(OLD + [NEW[0], NEW[2]] + NEW), V2_0, HEADER)
        self.assertEqual(self.assert_done(run("list", self.account, "--json")).json()["count"], 7)
        self.assertEqual(len(self.account.read_bytes()), len(expected))
        again = self.assert_done(self.run_import("--skip-known"))
        self.assertTrue(again.out.startswith(b"0 transactions imported"), again.out)

    def test_a_dry_run_shows_the_records_and_writes_nothing(self) -> None:
        before = self.account.read_bytes()
        result = self.assert_done(self.run_import("--dry-run"))
        self.assertEqual(self.account.read_bytes(), before)
        lines = result.lines()
        self.assertEqual(len(lines), 5)
        self.assertIn(b"Oak Street", result.out)
        self.assertTrue(lines[-1].startswith(b"3 transactions to import into "), lines[-1])

    def test_records_without_anything_of_use_are_refused(self) -> None:
        before = self.account.read_bytes()
        for name, data in (("in.qif", b"!Type:Bank\nPx\n^\n"),
                           ("in.csv", b"Datum;Betrag\n14.03.2004;5,00\n"),
                           ("in.xml", b"<a><transaction type='fee'/></a>")):
            with self.subTest(name):
                self.source = self.write(name, data)
                self.assert_refused(self.run_import(), self.source,
                                    "none of its records has a date or an amount")
                self.assertEqual(self.account.read_bytes(), before)

    def test_values_that_an_entry_by_hand_would_be_refused_for(self) -> None:
        self.source.unlink()
        self.source = self.write("in.xml", b"<a><transaction type='deposit'><date>13/45/99</date>"
                                           b"<amount>-5</amount></transaction></a>")
        self.assert_imports([*OLD, Entry(1, Day(99, 13, 45), 1000, -5.0, NOT_CLEARED,
                                         Day(2000, 1, 1), b"")], 1)

    def test_older_formats_become_2_0(self) -> None:
        for version in cases((V1_0, V1_1, 5000, 8191)):
            with self.subTest(version=version):
                old = [rules.as_read(entry, version) for entry in OLD]
                self.account = self.write_account("account.qmk", OLD, version=version,
                                                  header=HEADER)
                self.assert_imports(old + NEW, 3)

    def test_a_read_only_account_takes_an_import(self) -> None:
        """Kept: the mark keeps the user from changing an entry, but not from importing."""
        header = {**HEADER, "bReadOnly": 1}
        self.account = self.write_account("account.qmk", OLD, header=header)
        self.assert_imports(OLD + NEW, 3, header)

    def test_an_empty_account(self) -> None:
        self.account = self.write_account("account.qmk", [], header=HEADER)
        self.assert_imports(NEW, 3)

    def test_an_account_by_any_name(self) -> None:
        self.account.unlink()
        self.account = self.write_account("account.old", OLD, header=HEADER)
        self.assert_imports(OLD + NEW, 3)

    def test_a_file_of_no_transactions_is_refused(self) -> None:
        before = self.account.read_bytes()
        for name, data in (("in.qif", b"!Type:Bank\n"), ("in.csv", b"Date,Amount\n"),
                           ("in.qif", b"\x89PNG\r\n\x1a\n\0\0"), ("in.xml", b"<quillmark/>")):
            with self.subTest(name):
                self.source = self.write(name, data)
                self.assert_refused(self.run_import(), self.source, "it holds no transaction")
                self.assertEqual(self.account.read_bytes(), before)

    def test_nothing_to_import_leaves_the_account_as_it_is(self) -> None:
        """The file must not change, not even from an older format to 2.0."""
        for version in (V1_0, V2_0):
            data = make_account(OLD, version, HEADER)
            self.account.write_bytes(data)
            self.source.write_bytes(b"!Type:Bank\nD2/1/2004\nT250\nPRefund\n^\n")
            result = self.assert_done(self.run_import("--skip-known"))
            self.assertTrue(result.out.startswith(b"0 transactions imported into "), result.out)
            self.assertEqual(self.account.read_bytes(), data)

    def test_what_reading_mended_is_written_mended(self) -> None:
        old = [Entry(flags=1), Entry(cleared=Day(2004, 1, 1))]
        self.account.write_bytes(make_account(old, V2_0, HEADER) + b"trailing bytes")
        self.assert_imports(rules.register_order(old) + NEW, 3)

    def test_many_into_many(self) -> None:
        old = [Entry(day=Day(1990 + index // 300, index // 25 % 12 + 1, index % 25 + 1))
               for index in range(6000)]
        new = old[::-1]
        data = formats.write_csv(new)
        self.account = self.write_account("account.qmk", old, header=HEADER)
        self.source.unlink()
        self.source = self.write("in.csv", data)
        self.assert_imports(old + formats.read_csv(data), len(new))


class Refused(ImportTestCase):

    def setUp(self) -> None:
        super().setUp()
        self.before = self.account.read_bytes()

    def test_what_cannot_be_imported(self) -> None:
        for name in cases(("in.qmk", "in.txt", "in.TXT", "in", "in.qif ", "qif")):
            with self.subTest(name):
                path = self.folder / name
                result = run("import", name, "account.qmk", cwd=self.folder)
                self.assert_untouched(result, name, "only .qif, .csv and .xml files can be "
                                      "imported", self.before, "in.qif")
                self.assertFalse(path.exists() and name != "in.qif ", name)

    def test_files_that_give_nothing(self) -> None:
        for name, data, reason in (("in.csv", b"", "the file is empty"),
                                   ("in.xml", b"", "the file is empty"),
                                   ("in.qif", b"\xff\xfe", "it holds no line of text"),
                                   ("in.xml", formats.write_xml(NEW)[:-3], NOT_XML),
                                   ("in.xml", b"<a>&b;</a>", NOT_XML)):
            with self.subTest(name, data=data[:9]):
                self.source.unlink()
                self.source = self.write(name, data)
                self.assert_untouched(self.run_import(), self.source, reason, self.before, name)

    def test_a_complete_record_in_front_of_damage_is_not_taken(self) -> None:
        self.source = self.write("in.xml", formats.write_xml(NEW) + b"<")
        self.assert_untouched(self.run_import(), self.source, NOT_XML, self.before, "in.qif",
                              "in.xml")

    def test_the_sentence_word_for_word(self) -> None:
        self.assertEqual(run("import", "none.csv", "account.qmk", cwd=self.folder).err,
                         b"qmktool: cannot import 'none.csv': no such file or folder\n")

    def test_an_account_that_does_not_open(self) -> None:
        missing = self.folder / "missing.qmk"
        result = run("import", self.source, missing)
        self.assert_untouched(result, missing, "no such file", self.before, "in.qif")
        self.account.write_bytes(self.before[:-1])
        self.assert_untouched(self.run_import(), self.account, "ends too early",
                              self.before[:-1], "in.qif")
        self.account.write_bytes(NEW_QIF)
        self.assert_untouched(self.run_import(), self.account, "not an account file", NEW_QIF,
                              "in.qif")

    def test_a_password(self) -> None:
        header = {**HEADER, "szPassword": b"Sesame"}
        self.account = self.write_account("account.qmk", OLD, header=header)
        before = self.account.read_bytes()
        self.assert_untouched(self.run_import(), self.account, "password protected", before,
                              "in.qif")
        self.assert_untouched(self.run_import("--password", "sesam"), self.account,
                              "the password is wrong", before, "in.qif")
        self.assert_done(self.run_import("--password", "sEsAmE"))
        self.assertEqual(self.account.read_bytes(),
                         make_account(rules.register_order(OLD + NEW), V2_0, header))

    def test_an_account_marked_read_only_by_the_system(self) -> None:
        other_user = {} if IS_WINDOWS else self.options_of_other_user()
        self.account.chmod(0o444)
        self.addCleanup(self.account.chmod, 0o644)
        if not IS_WINDOWS:
            self.folder.chmod(0o777)
        elif os.name == "posix":
            self.skipTest("the mark of a file binds Windows users alone")
        self.assert_untouched(self.run_import(**other_user), self.account, "permission denied",
                              self.before, "in.qif")

    @posix_only
    def test_a_folder_that_may_not_be_written(self) -> None:
        other_user = self.options_of_other_user()
        self.account.chmod(0o666)
        self.folder.chmod(0o555)
        self.addCleanup(self.folder.chmod, 0o755)
        self.assert_untouched(self.run_import(**other_user), self.account, "permission denied",
                              self.before, "in.qif")

    @posix_only
    def test_an_account_that_another_program_holds(self) -> None:
        with open(self.account, "rb") as held:
            fcntl.flock(held, fcntl.LOCK_EX)
            self.assert_untouched(self.run_import(), self.account, "open in another program",
                                  self.before, "in.qif")
        self.assert_done(self.run_import())

    @posix_only
    def test_a_full_volume(self) -> None:
        self.source.write_bytes(formats.write_qif([Entry(memo=b"m" * 250)] * 2000))
        with self.small_volume() as volume:
            self.account = volume / "account.qmk"
            self.account.write_bytes(self.before)
            self.assert_refused(self.run_import(), self.account, "not enough room")
            self.assertEqual(self.account.read_bytes(), self.before)
            self.assertEqual(self.names_in_folder(volume), ["account.qmk"])

    @posix_only
    def test_a_limit_of_the_file_size(self) -> None:
        result = self.run_import(restore_signals=False, preexec_fn=lambda: resource.setrlimit(
            resource.RLIMIT_FSIZE, (1000, 1000)))
        self.assert_untouched(result, self.account, "not enough room", self.before, "in.qif")

    @posix_only
    def test_killed_while_it_writes(self) -> None:
        result = self.run_import(preexec_fn=lambda: resource.setrlimit(
            resource.RLIMIT_FSIZE, (1000, 1000)))
        self.assertNotEqual(result.code, 0)
        self.assertEqual(self.account.read_bytes(), self.before)


if __name__ == "__main__":
    unittest.main()
