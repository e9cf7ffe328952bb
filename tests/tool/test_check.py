"""qmktool check: which accounts it finds in order, and what it finds in others."""

import math
import struct
import unittest
from dataclasses import replace
from typing import Any

from support import (FRONT_SIZE, REFUSED, SAMPLE, V1_0, V1_1, V2_0, Day, Entry, Result,
                     ToolTestCase, cases, run)

DAY = Day(2004, 3, 14)
CHECK = Entry(type=0, number=1001, amount=48.6, description=b"Oak Street Hardware")

SOUND = {
    "a check": CHECK,
    "the lowest check number": replace(CHECK, number=1),
    "the highest check number": replace(CHECK, number=9999999),
    "any number in an entry that is no check": Entry(number=4294967295),
    "the highest amount": Entry(amount=1e10),
    "a voided entry without an amount": Entry(amount=0, flags=17),
    "less than a cent": Entry(amount=0.001),
    "the first year": Entry(day=Day(1752, 1, 1)),
    "the last year": Entry(day=Day(3000, 12, 31)),
    "29 February of any year": Entry(day=Day(2003, 2, 29)),
    "cleared the same day": Entry(cleared=DAY),
    "cleared years later": Entry(cleared=Day(2999, 1, 1)),
    "no text at all": Entry(description=b""),
    "the longest texts": Entry(description=b"d" * 255, memo=b"m" * 255, category=b"c" * 127),
    "any other byte in a text": Entry(memo=bytes(range(1, 256))),
    "open": Entry(flags=16),
    "tax": Entry(flags=4),
    "expense and open": Entry(flags=18),
}

# what Validate refuses: the entry, and a word of the reason
REFUSED_ENTRIES = {
    "a type below": (Entry(type=-1), "type"),
    "a type above": (Entry(type=12), "type"),
    "the day 0": (Entry(day=Day(2004, 3, 0)), "day"),
    "31 April": (Entry(day=Day(2004, 4, 31)), "day"),
    "30 February": (Entry(day=Day(2004, 2, 30)), "day"),
    "cleared on 31 June": (Entry(cleared=Day(2004, 6, 31)), "day"),
    "the month 0": (Entry(day=Day(2004, 0, 14)), "month"),
    "the month 13": (Entry(day=Day(2004, 13, 14)), "month"),
    "cleared in month 65535": (Entry(cleared=Day(2004, 65535, 1)), "month"),
    "the year 1751": (Entry(day=Day(1751, 12, 31)), "year"),
    "the year 3001": (Entry(day=Day(3001, 1, 1)), "year"),
    "a year of two digits": (Entry(day=Day(4, 1, 1)), "year"),
    "cleared in the year 3001": (Entry(cleared=Day(3001, 1, 1)), "year"),
    "check number 0": (replace(CHECK, number=0), "check number"),
    "check number 10000000": (replace(CHECK, number=10000000), "check number"),
    "no amount": (Entry(amount=0), "amount"),
    "a negative amount": (Entry(amount=-0.01), "amount"),
    "a negative amount of a voided entry": (Entry(amount=-5, flags=17), "amount"),
    "an amount above the highest": (Entry(amount=1.1e10), "amount"),
    "an infinite amount": (Entry(amount=math.inf), "amount"),
    "an amount that is no number": (Entry(amount=math.nan), "amount"),
    "an amount that is no number in a voided entry": (Entry(amount=math.nan, flags=17), "amount"),
    "expense and tax": (Entry(flags=6), "tags"),
    "voided and tax": (Entry(flags=21), "tags"),
    "voided and expense": (Entry(flags=19), "tags"),
    "an unknown flag": (Entry(flags=8), "tags"),
    "the import mark": (Entry(flags=0x10000000), "tags"),
    "the topmost flag": (Entry(flags=0x80000000), "tags"),
}

# what reading mends: the account's parts, and a word of the line
MENDED = {
    "cleared a day too early": ({"entries": [Entry(cleared=Day(2004, 3, 13))]}, "cleared before"),
    "voided and cleared": ({"entries": [Entry(flags=1)]}, "voided"),
    "a zero within a description": ({"entries": [Entry(description=b"a\0b")]}, "zero byte"),
    "a zero at the end of a memo": ({"entries": [Entry(memo=b"memo\0")]}, "zero byte"),
    "a zero within a category": ({"entries": [Entry(category=b"\0c")]}, "zero byte"),
    "an account number without an end": ({"header": {"szAccountNumber": b"1" * 32}}, "header text"),
    "a password field without an end": ({"header": {"szPassword": b"p" * 16}}, "header text"),
}


class CheckTestCase(ToolTestCase):

    def check_account(self, *options: str, **account: Any) -> Result:
        return run("check", self.write_account(**account), *options)

    def assert_sound(self, result: Result) -> None:
        lines = self.assert_done(result).lines()
        self.assertEqual(lines[-1], b"sound", str(result))
        self.assertEqual(self.findings_of(result), [])

    def assert_one_finding(self, result: Result, *words: str) -> None:
        self.assert_one_error_line(result, REFUSED)
        self.assertIn(b"account.qmk' is not sound: 1 finding\n", result.err)
        finding, = self.findings_of(result)
        for word in words:
            self.assertIn(word.encode(), finding)
        self.assertNotIn(b"sound", result.out)

    @staticmethod
    def findings_of(result: Result) -> list[bytes]:
        """The lines between the three particulars and the verdict."""
        return [line for line in result.lines()[3:] if line != b"sound"]


class Sound(CheckTestCase):

    def test_the_sample(self) -> None:
        self.assert_sound(result := run("check", SAMPLE))
        self.assertEqual(result.lines()[:2], [b"format: 2.0 (8192)", b"transactions: 447"])

    def test_all_that_is_allowed(self) -> None:
        self.assert_sound(self.check_account(entries=SOUND.values()))

    def test_every_format(self) -> None:
        for version, name in ((V1_0, "1.0"), (V1_1, "1.1"), (5000, "1.1"), (V2_0, "2.0")):
            with self.subTest(version=version):
                result = self.check_account(entries=[CHECK, Entry()], version=version)
                self.assert_sound(result)
                self.assertIn(b"order in the file: by date", result.lines())
                self.assertIn(f"format: {name} ({version})".encode(), result.lines())

    def test_an_empty_account(self) -> None:
        result = self.check_account()
        self.assert_sound(result)
        self.assertIn(b"transactions: 0", result.lines())

    def test_an_order_of_its_own_is_no_fault(self) -> None:
        result = self.check_account(entries=[Entry(day=Day(2004, 3, 15)), Entry()])
        self.assert_sound(result)
        self.assertIn(b"order in the file: not by date", result.lines())


class Found(CheckTestCase):

    def test_each_entry_that_is_refused(self) -> None:
        for name, (entry, word) in cases(REFUSED_ENTRIES.items()):
            with self.subTest(name):
                self.assert_one_finding(self.check_account(entries=[entry]), "position 0: ", word)

    def test_every_refused_entry_of_one_account(self) -> None:
        entries = [entry for entry, _ in REFUSED_ENTRIES.values()]
        findings = self.findings_of(self.check_account("--all", entries=entries))
        self.assertEqual(len(findings), len(entries))

    def test_after_twenty_entries_the_rest_is_summed_up(self) -> None:
        for count, last in ((20, b"position 19: "), (21, b"and 1 more (all of them with --all)"),
                            (500, b"and 480 more (all of them with --all)")):
            result = self.check_account(entries=[Entry(amount=0)] * count)
            self.assertIn(b": %d findings\n" % count, result.err)
            lines = result.lines()
            self.assertEqual(len([line for line in lines if line.startswith(b"position ")]),
                             min(count, 20))
            self.assertTrue(lines[-1].startswith(last), lines[-1])

    def test_several_reasons_of_one_entry(self) -> None:
        entry = Entry(type=77, day=Day(1, 13, 0), amount=-1, flags=8)
        result = self.check_account(entries=[entry])
        self.assertEqual(len(self.findings_of(result)), 5)
        self.assertIn(b": 5 findings\n", result.err)

    def test_the_position_is_that_of_the_register(self) -> None:
        entries = [Entry(amount=0), Entry(day=Day(2004, 3, 13)), Entry(day=Day(2004, 3, 15))]
        self.assert_one_finding(self.check_account(entries=entries), "position 1: ")

    def test_what_reading_mends(self) -> None:
        for name, (account, word) in cases(MENDED.items()):
            options = ("--password", "p" * 15) if "password" in name else ()
            with self.subTest(name):
                self.assert_one_finding(self.check_account(*options, **account), "mended", word)

    def test_mended_entries_are_counted(self) -> None:
        result = self.check_account(entries=[Entry(flags=1), Entry(), Entry(flags=1)])
        self.assert_one_finding(result, "mended", ": 2")

    def test_trailing_bytes(self) -> None:
        for count in (1, 4096):
            with self.subTest(count=count):
                data = SAMPLE.read_bytes() + b"\xff" * count
                result = run("check", self.write("account.qmk", data))
                self.assert_one_finding(result, f"trailing bytes: {count}")

    def test_a_count_below_the_entries_leaves_trailing_bytes(self) -> None:
        data = self.write_account(entries=[Entry()] * 3).read_bytes()
        entry_size = (len(data) - FRONT_SIZE) // 3
        for count in (2, 0):
            with self.subTest(count=count):
                file = self.write("account.qmk", data[:8] + struct.pack("<i", count) + data[12:])
                trailing = entry_size * (3 - count)
                self.assert_one_finding(run("check", file), f"trailing bytes: {trailing}")

    def test_checking_writes_nothing(self) -> None:
        file = self.write_account(entries=[Entry(flags=1)])
        before = file.read_bytes()
        run("check", file)
        self.assertEqual(file.read_bytes(), before)
        self.assertEqual(self.names_in_folder(), ["account.qmk"])


if __name__ == "__main__":
    unittest.main()
