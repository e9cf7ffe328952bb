"""qmktool list: the register as text and as JSON, compared with the rules stated in rules.py."""

import math
import random
import struct
import unittest
from dataclasses import replace
from pathlib import Path
from typing import Any

import rules
from support import (HEADER_KEYS, SAMPLE, V1_0, V1_1, V2_0, Day, Entry, Result, ToolTestCase,
                     cases, load_json, run)

ROW_KEYS = ["position", "lType", "dtDate", "lNumber", "fAmount", "lFlags", "dtCleared",
            "szDescription", "szMemo", "szCategory", "decoration", "columns"]
LIST_KEYS = ["version", "count", "lFirstShown", "dBalance", "dAvailable", "rows"]

FLAGS = (0, 16, 1, 17, 2, 18, 4, 20, 22, 23, 8, 0x10000010, 0xFFFFFFFF)
ODD_TYPES = (-1, 12, -2147483648, 2147483647)
ODD_AMOUNTS = (0.0, -0.0, 0.004, 0.005, 1.005, 0.015, 2.675, -12.34, 1e10, 99999.995)
ODD_NUMBERS = (0, 7, 99999, 100000, 9999999, 2147483647, 2147483648, 4294967295)
ODD_DAYS = (Day(2004, 13, 40), Day(1, 0, 0), Day(65535, 65535, 65535), Day(2100, 9, 9))


class RandomEntries:
    """Entries of all kinds, valid and not; the same seed gives the same entries."""

    def __init__(self, seed: int) -> None:
        self._random = random.Random(seed)

    def make(self, count: int) -> list[Entry]:
        return [self._entry() for _ in range(count)]

    def _odd(self, odd: Any, usual: Any) -> Any:
        return self._random.choice(odd) if self._random.random() < 0.08 else usual

    def _day(self) -> Day:
        return self._odd(ODD_DAYS, Day(self._random.randint(1998, 2004),
                                       self._random.randint(1, 12), self._random.randint(1, 28)))

    def _text(self, longest: int) -> bytes:
        length = self._random.choice((0, 0, 1, 2, 3, 12, 25, longest))
        return bytes(self._random.randint(1, 255) for _ in range(length))

    def _entry(self) -> Entry:
        return Entry(
            type=self._odd(ODD_TYPES, self._random.randrange(12)), day=self._day(),
            number=self._odd(ODD_NUMBERS, self._random.randint(1, 20000)),
            amount=self._odd(ODD_AMOUNTS, self._random.randint(1, 500000) / 100),
            flags=self._random.choice(FLAGS), cleared=self._random.choice((None, self._day())),
            description=self._text(255), memo=self._text(255), category=self._text(127))


def latin(text: bytes) -> str:
    return text.decode("latin-1")


def nine_digits(value: float) -> str:
    return "%.9g" % value


def expected_json(row: rules.Row) -> dict[str, Any]:
    entry = row.entry
    values = (row.position, entry.type, list(entry.day), entry.number, nine_digits(entry.amount),
              entry.flags, list(entry.cleared), latin(entry.description), latin(entry.memo),
              latin(entry.category), row.decoration,
              {name: latin(text) for name, text in row.columns.items()})
    return dict(zip(ROW_KEYS, values, strict=True))


def rows_of(result: Result) -> list[dict[str, Any]]:
    """The rows with their amounts as they are written."""
    rows = result.json()["rows"]
    written = load_json(result.out, parse_float=str, parse_int=str)["rows"]
    return [{**row, "fAmount": text["fAmount"]} for row, text in zip(rows, written, strict=True)]


class ListTestCase(ToolTestCase):

    def listed(self, file: Path, *options: str) -> Result:
        return self.assert_done(run("list", file, *options))

    def assert_lists(self, entries: list[Entry], *options: str, version: int = V2_0,
                     **expected: Any) -> Result:
        """The text and the JSON must be what the rules give."""
        file = self.write_account(entries=entries, version=version)
        register = rules.register_of(entries, version, **expected)
        result = self.listed(file, "--json", *options)
        self.assert_rows(rows_of(result), register)
        listing = result.json()
        first = register.rows[0].position if register.rows else 0
        self.assertEqual([listing[key] for key in LIST_KEYS[:-1]],
                         [version, len(entries), first, register.balance, register.available])
        self.assertEqual(self.listed(file, *options).lines(), rules.text_lines(register))
        return result

    def assert_rows(self, rows: list[dict[str, Any]], register: rules.Register) -> None:
        self.assertEqual(len(rows), len(register.rows))
        for row, expected in zip(rows, register.rows):
            with self.subTest(position=expected.position, type=expected.entry.type):
                self.assertEqual(row, expected_json(expected))
                self.assertEqual(list(row), ROW_KEYS)
                self.assertEqual(list(row["columns"]), list(rules.COLUMNS))


class RandomAccounts(ListTestCase):
    """Hundreds of rows at a time, every text of every column."""

    def test_every_format(self) -> None:
        for version in (V1_0, V1_1, 5000, V2_0):
            with self.subTest(version=version):
                self.assert_lists(RandomEntries(version).make(150), version=version)

    def test_cleared_balance(self) -> None:
        self.assert_lists(RandomEntries(2).make(300), "--cleared-balance", cleared_balance=True)

    def test_a_period(self) -> None:
        self.assert_lists(RandomEntries(3).make(300), "--from", "2/15/2000", "--to", "11/3/2002",
                          period=(Day(2000, 2, 15), Day(2002, 11, 3)))

    def test_a_period_with_the_cleared_balance(self) -> None:
        self.assert_lists(RandomEntries(4).make(200), "--cleared-balance", "--from", "1/1/2001",
                          "--to", "12/31/2001", cleared_balance=True,
                          period=(Day(2001, 1, 1), Day(2001, 12, 31)))

    def test_sums_of_huge_amounts(self) -> None:
        entries = [Entry(type=index % 2, amount=3e38 / (index + 1)) for index in range(6)]
        self.assert_lists(entries)


class Columns(ListTestCase):
    """Each rule in a test of its own, with the texts spelled out."""

    def columns_of(self, *entries: Entry, options: tuple[str, ...] = ()) -> list[dict[str, str]]:
        file = self.write_account(entries=entries)
        return [row["columns"] for row in self.listed(file, "--json", *options).json()["rows"]]

    def test_the_twelve_types(self) -> None:
        entries = [Entry(type=kind, number=42, amount=1234.5, description=b"Ann")
                   for kind in range(12)]
        for kind, columns in enumerate(self.columns_of(*entries)):
            with self.subTest(rules.LABELS[kind]):
                number, text = ("   42", "Ann") if kind == 0 else (
                    "     ", rules.LABELS[kind] + " - Ann")
                used, empty = ("Debit", "Credit") if kind in rules.DEBITS else ("Credit", "Debit")
                self.assertEqual(
                    (columns["Number"], columns["Description"], columns[used], columns[empty]),
                    (number, text, "   1234.50", ""))

    def test_a_type_outside_the_table_shows_nothing_and_counts_nowhere(self) -> None:
        entries = [Entry(amount=5), Entry(type=12, memo=b"memo", flags=4, category=b"House"),
                   Entry(amount=7)]
        columns = self.columns_of(*entries)
        self.assertEqual(set(columns[1].values()), {""})
        self.assertEqual(columns[2]["Balance"], "12.00")

    def test_descriptions(self) -> None:
        table = (
            (Entry(type=1, description=b""), "Deposit"),
            (Entry(type=1, description=b"x"), "Deposit"),
            (Entry(type=1, description=b"xy"), "Deposit - xy"),
            (Entry(type=0, description=b""), ""),
            (Entry(type=0, description=b"x"), "x"),
            (Entry(type=0, description=b"x", flags=1), "x   (voided)"),
            (Entry(type=3, description=b"x", flags=17), "Fee   (voided)"),
            (Entry(type=9, description=b"in", flags=17), "Transfer - Credit - in   (voided)"),
            (Entry(type=0, description=b"d" * 255, flags=17), "d" * 255),
            (Entry(type=0, description=b"d" * 250, flags=17), "d" * 250 + "   (v"),
            (Entry(type=8, description=b"d" * 255), "Automatic Payment - " + "d" * 235),
        )
        columns = self.columns_of(*(entry for entry, _ in table))
        for shown, (entry, text) in zip(columns, table, strict=True):
            with self.subTest(text[:40], length=len(entry.description)):
                self.assertEqual(shown["Description"], text)

    def test_tags(self) -> None:
        table = ((0, ""), (16, "NC"), (2, "E"), (4, "T"), (17, "V, NC"), (1, "V, NC"),
                 (18, "E, NC"), (20, "T, NC"), (22, "E, T, NC"), (23, "V, E, T, NC"), (8, ""),
                 (0x10000000, ""))
        columns = self.columns_of(*(Entry(flags=flags) for flags, _ in table))
        for shown, (flags, text) in zip(columns, table, strict=True):
            with self.subTest(flags=flags):
                self.assertEqual(shown["Tag"], text)

    def test_dates(self) -> None:
        table = ((Day(1752, 1, 2), " 1/ 2/52"), (Day(1999, 12, 31), "12/31/99"),
                 (Day(2000, 10, 1), "10/ 1/00"), (Day(2004, 2, 29), " 2/29/04"))
        columns = self.columns_of(*(Entry(day=day) for day, _ in table))
        self.assertEqual([shown["Date"] for shown in columns], [text for _, text in table])

    def test_amounts_are_rounded_to_cents_before_they_are_summed(self) -> None:
        entries = [Entry(amount=0.004)] * 3 + [Entry(amount=1.005), Entry(amount=0.006)]
        self.assertEqual([shown["Balance"] for shown in self.columns_of(*entries)],
                         ["0.00", "0.00", "0.00", "1.00", "1.01"])

    def test_the_two_balances(self) -> None:
        entries = (Entry(type=0, amount=10), Entry(amount=25, flags=16), Entry(amount=99, flags=17))
        for options, balances in (((), ["-10.00", "15.00", "15.00"]),
                                  (("--cleared-balance",), ["-10.00", "-10.00", "-10.00"])):
            with self.subTest(options=options):
                columns = self.columns_of(*entries, options=options)
                self.assertEqual([shown["Balance"] for shown in columns], balances)
        listing = self.listed(self.folder / "account.qmk", "--json").json()
        self.assertEqual((listing["dBalance"], listing["dAvailable"]), (-10, 15))

    def test_an_entry_is_mended_at_reading(self) -> None:
        entries = [Entry(cleared=Day(2004, 3, 13)), Entry(flags=1)]
        file = self.write_account(entries=entries)
        first, second = self.listed(file, "--json").json()["rows"]
        self.assertEqual(first["dtCleared"], [2004, 3, 14])
        self.assertEqual(second["lFlags"], 17)


class Order(ListTestCase):

    def test_oldest_first_and_the_day_as_in_the_file(self) -> None:
        days = [Day(2004, 1, 2), Day(2003, 12, 31), Day(2004, 1, 2), Day(2004, 1, 1),
                Day(2003, 12, 31)]
        entries = [Entry(day=day, memo=b"%d" % index) for index, day in enumerate(days)]
        rows = self.assert_lists(entries).json()["rows"]
        self.assertEqual([row["szMemo"] for row in rows], ["1", "4", "3", "0", "2"])


class Periods(ListTestCase):
    ENTRIES = [Entry(day=Day(2004, month, 10), amount=month) for month in (1, 2, 2, 3, 5)]

    def assert_period(self, first: str, last: str, shown: list[int]) -> None:
        file = self.write_account(entries=self.ENTRIES)
        listing = self.listed(file, "--json", "--from", first, "--to", last).json()
        self.assertEqual([row["position"] for row in listing["rows"]], shown)
        self.assertEqual([listing[key] for key in LIST_KEYS[:-1]],
                         [V2_0, 5, shown[0] if shown else 0, 13, 13])

    def test_rows_in_and_out(self) -> None:
        for first, last, shown in cases((
                ("2/1/2004", "2/29/2004", [1, 2]),
                ("2/10/2004", "2/10/2004", [1, 2]),
                ("2/11/2004", "3/9/2004", []),
                ("2/9/2004", "3/10/2004", [1, 2, 3]),
                ("1/1/1752", "12/31/3000", [0, 1, 2, 3, 4]),
                ("1/1/2005", "12/31/2005", []),
                ("1/1/2003", "12/31/2003", []))):
            with self.subTest(first=first, last=last):
                self.assert_period(first, last, shown)

    def test_the_first_balance_counts_what_came_before(self) -> None:
        file = self.write_account(entries=self.ENTRIES)
        result = self.listed(file, "--json", "--from", "3/1/2004", "--to", "4/1/2004")
        row, = result.json()["rows"]
        self.assertEqual(row["columns"]["Balance"], "8.00")

    def test_no_row_leaves_headings_and_sums(self) -> None:
        file = self.write_account(entries=self.ENTRIES)
        lines = self.listed(file, "--from", "1/1/2005", "--to", "1/1/2006").lines()
        self.assertEqual(lines, [b"Date  Number  Description  Debit  Credit  Balance  Tag  Memo  "
                                 b"Category", b"Balance:   13.00", b"Available: 13.00"])


class Look(ListTestCase):
    """The saved look of the register must not change a listing."""

    def test_hidden_columns_and_the_saved_period_change_nothing(self) -> None:
        hidden = dict.fromkeys((key for key in HEADER_KEYS if key.startswith("bShow")), 0)
        period = {"lDisplayPeriod": 4, "dtPeriodFrom": Day(2001, 1, 1),
                  "dtPeriodTo": Day(2001, 1, 31), "fMinimumBalance": 500.0, "bReadOnly": 1}
        entries = RandomEntries(5).make(40)
        plain = self.write_account("plain.qmk", entries)
        hiding = self.write_account("hiding.qmk", entries, header=hidden | period)
        for options in ((), ("--json",), ("--json", "--from", "1/1/2000", "--to", "1/1/2003")):
            with self.subTest(options=options):
                self.assertEqual(self.listed(hiding, *options).out,
                                 self.listed(plain, *options).out)


class Json(ListTestCase):

    def test_names_in_order(self) -> None:
        listing = self.listed(SAMPLE, "--json").json()
        self.assertEqual(list(listing), LIST_KEYS)
        self.assertEqual(len(listing["rows"]), 447)

    def test_an_empty_account(self) -> None:
        listing = self.listed(self.write_account(), "--json").json()
        self.assertEqual([listing[key] for key in LIST_KEYS], [V2_0, 0, 0, 0, 0, []])

    def test_numbers_that_are_none(self) -> None:
        for amount in (math.nan, math.inf, -math.inf):
            with self.subTest(amount=amount):
                file = self.write_account(entries=[Entry(amount=1.5), Entry(amount=amount)])
                listing = self.listed(file, "--json").json()
                self.assertEqual([row["fAmount"] for row in listing["rows"]], [1.5, None])
                self.assertEqual((listing["dBalance"], listing["dAvailable"]), (None, None))
                self.assertEqual(len(self.listed(file).lines()), 5)

    def test_any_bits_of_an_amount(self) -> None:
        """The JSON must hold a number or null, whatever the four bytes of the amount are."""
        source = random.Random(6)
        amounts = [struct.unpack("<f", source.randbytes(4))[0] for _ in range(300)]
        file = self.write_account(entries=[Entry(amount=amount, flags=17) for amount in amounts])
        written = [row["fAmount"] for row in rows_of(self.listed(file, "--json"))]
        expected = [nine_digits(a) if math.isfinite(a) else None for a in amounts]
        self.assertEqual(written, expected)
        self.assertEqual(len(self.listed(file).lines()), 303)


class Text(ListTestCase):

    def test_control_characters_do_not_break_lines(self) -> None:
        entry = Entry(type=0, description=b"a\nb\tc\r\x1b\x7f\x1a", memo=b"caf\xe9")
        lines = self.assert_lines(entry)
        self.assertIn("a␊b␉c␍␛␡␚".encode(), lines[1])
        self.assertTrue(lines[1].endswith("  café".encode()), lines[1])

    def test_no_line_ends_in_blanks(self) -> None:
        full = Entry(memo=b"memo", category=b"category", flags=22)
        for entry in (full, replace(full, category=b""), replace(full, category=b"", memo=b""),
                      Entry(type=99)):
            lines = self.assert_lines(full, entry)
            self.assertFalse([line for line in lines if line.endswith(b" ")])

    def assert_lines(self, *entries: Entry) -> list[bytes]:
        lines = self.listed(self.write_account(entries=entries)).lines()
        self.assertEqual(lines, rules.text_lines(rules.register_of(entries)))
        return lines

    def test_an_empty_account(self) -> None:
        lines = self.listed(self.write_account()).lines()
        self.assertEqual(lines[1:], [b"Balance:   0.00", b"Available: 0.00"])


if __name__ == "__main__":
    unittest.main()
