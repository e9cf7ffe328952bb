"""qmktool info: an account's particulars, as text and as JSON."""

import math
import unittest
from typing import Any

from support import (FIELD_BY_KEY, HEADER_KEYS, SAMPLE, V1_0, V1_1, V2_0, Day, Entry,
                     ToolTestCase, cases, load_json, run)

JSON_KEYS = ["bHasPassword" if key == "szPassword" else key for key in HEADER_KEYS]
NEVER_SHOWN = ("szPassword",)

# A different value for every field
FULL_HEADER: dict[str, Any] = {
    "szAccountNumber": b"00-11-22", "dtOpened": Day(1999, 12, 31), "fMinimumBalance": 250.25,
    "bReadOnly": 1, "szPassword": b"", "szBankName": b"Bank", "szBankAddress": b"1 Street",
    "szBankCity": b"Town", "szBankState": b"Ohio", "szBankZip": b"44101", "szBankPhone": b"555-1",
    "szBankHomepage": b"http://b.example/", "szHolderName": b"Ann", "szHolderAddress": b"2 Lane",
    "szHolderCity": b"Village", "szHolderState": b"Utah", "szHolderZip": b"84101",
    "szHolderPhone": b"555-2", "bGridLines": 0, "bShowDate": 1, "bShowNumber": 0,
    "bShowDescription": 1, "bShowDebit": 0, "bShowCredit": 1, "bShowBalance": 0, "bShowMemo": 1,
    "bShowTag": 0, "lWidthDate": -1, "lWidthNumber": 2, "lWidthDescription": 2147483647,
    "lWidthDebit": -2147483648, "lWidthCredit": 5, "lWidthBalance": 6, "lWidthMemo": 7,
    "lWidthTag": 8, "lFontStyle": 15, "lFontColor": 0xFFFFFFFF, "szFontFace": b"Face",
    "lFontSize": -9, "bShadedLines": 0, "bShowCleared": 1, "lWidthCleared": 10,
    "bShowCategory": 1, "lWidthCategory": 11, "lDisplayPeriod": 4294967295,
    "dtPeriodFrom": Day(2004, 2, 29), "dtPeriodTo": Day(65535, 65535, 65535),
}

# The bytes of a text, and the text in the JSON
ESCAPES = {
    b'say "no"': rb'"say \"no\""',
    b"C:\\new": rb'"C:\\new"',
    b"a\tb\r\n": rb'"a\u0009b\u000d\u000a"',
    b"\x01\x1f\x7f": rb'"\u0001\u001f\u007f"',
    b"caf\xe9 \x80\xff": rb'"caf\u00e9 \u0080\u00ff"',
    b"</script>": rb'"</script>"',
    b"\\u0041": rb'"\\u0041"',
}

HOUSEHOLD_TEXT = b"""\
Format             2.0 (8192)
Transactions       447
Account number     12-345-678
Date opened        1/2/2003
Minimum balance    100.00
Read-only          no
Password           no
Bank               First Example Bank
  Address          1 Market Square, Elderbrook, Maine 04999
  Phone            207-555-0140
  Homepage         http://www.bank.example/
Holder             Nora and Philip Wren
  Address          27 Bittersweet Lane, Elderbrook, Maine 04999
  Phone            207-555-0162
Columns            Cleared, Date, Number, Description, Debit, Credit, Balance, Tag, Memo, Category
Font               MS Shell Dlg, 8 points
Period             All
"""


def expected_value(key: str, value: Any) -> Any:
    """A header value as it comes out of the JSON."""
    if isinstance(value, bytes):
        return value.replace(b"\xdf", b" ").decode("latin-1")
    return list(value) if isinstance(value, Day) else value


class Json(ToolTestCase):

    def header_of(self, **fields: Any) -> dict[str, Any]:
        account = self.write_account(header=fields)
        return self.assert_done(run("info", account, "--json")).json()["header"]

    def test_names_in_the_order_of_the_file(self) -> None:
        info = self.assert_done(run("info", SAMPLE, "--json")).json()
        self.assertEqual(list(info), ["version", "count", "header"])
        self.assertEqual(list(info["header"]), JSON_KEYS)
        self.assertEqual((info["version"], info["count"]), (8192, 447))

    def test_every_field(self) -> None:
        header = self.header_of(**FULL_HEADER)
        for key, value in FULL_HEADER.items():
            if key not in NEVER_SHOWN:
                with self.subTest(key):
                    self.assertEqual(header[key], expected_value(key, value))
                    self.assertNotIsInstance(header[key], bool)

    def test_version_and_count(self) -> None:
        for version, count in ((V1_0, 0), (V1_1, 3), (5000, 1), (V2_0, 2)):
            with self.subTest(version=version, count=count):
                account = self.write_account(entries=[Entry()] * count, version=version)
                info = self.assert_done(run("info", account, "--json")).json()
                self.assertEqual((info["version"], info["count"]), (version, count))

    def test_a_byte_0xdf_comes_back_as_a_blank(self) -> None:
        header = self.header_of(szBankCity=b"stra\xdfe", lWidthMemo=223, dtOpened=Day(2015, 1, 2))
        self.assertEqual((header["szBankCity"], header["lWidthMemo"], header["dtOpened"]),
                         ("stra e", 32, [1824, 1, 2]))

    def test_every_byte_of_a_text(self) -> None:
        low, high, last = bytes(range(1, 128)), bytes(range(128, 255)), b"\xff"
        fields = {"szBankName": low, "szBankAddress": high, "szBankCity": last}
        header = self.header_of(**fields)
        for key, text in fields.items():
            with self.subTest(key):
                self.assertEqual(header[key], expected_value(key, text))

    def test_escapes(self) -> None:
        keys = [key for key in HEADER_KEYS if FIELD_BY_KEY[key].size >= 64
                and FIELD_BY_KEY[key].kind == "text"]
        fields = dict(zip(keys, ESCAPES))
        account = self.write_account(header=fields)
        out = self.assert_done(run("info", account, "--json")).out
        for key, text in fields.items():
            with self.subTest(key, text=text):
                self.assertIn(b'"%s":%s' % (key.encode(), ESCAPES[text]), out)
        self.assertEqual(len(fields), len(ESCAPES))

    def test_numbers_that_are_none(self) -> None:
        for value in (math.nan, math.inf, -math.inf):
            with self.subTest(value=value):
                self.assertIsNone(self.header_of(fMinimumBalance=value)["fMinimumBalance"])

    def test_nine_digits_of_the_minimum_balance(self) -> None:
        for value, text in cases((
                (0.1, "0.100000001"), (1e10, "1e+10"), (-0.0, "-0"), (5, "5"),
                (1.17549435e-38, "1.17549435e-38"), (3.4028234e38, "3.40282347e+38"),
                (123456.789, "123456.789"), (1234567.125, "1234567.12"))):
            with self.subTest(text):
                account = self.write_account(header={"fMinimumBalance": value})
                out = self.assert_done(run("info", account, "--json")).out
                header = load_json(out, parse_float=str, parse_int=str)["header"]
                self.assertEqual(header["fMinimumBalance"], text)


class Text(ToolTestCase):

    def lines_of(self, **fields: Any) -> list[bytes]:
        account = self.write_account(header=fields)
        return self.assert_done(run("info", account)).lines()

    def test_household(self) -> None:
        first, rest = self.assert_done(run("info", SAMPLE)).out.split(b"\n", 1)
        self.assertRegex(first, rb"\AFile {15}\S*household\.qmk\Z")
        self.assertEqual(rest, HOUSEHOLD_TEXT)

    def test_the_display_period(self) -> None:
        days = {"dtPeriodFrom": Day(2004, 2, 1), "dtPeriodTo": Day(2004, 2, 29)}
        for selection, text in cases((
                (0, b"All"), (1, b"Previous Month, 2/1/2004 to 2/29/2004"),
                (2, b"Current Month, 2/1/2004 to 2/29/2004"),
                (3, b"Current Year, 2/1/2004 to 2/29/2004"),
                (4, b"Date Range, 2/1/2004 to 2/29/2004"), (5, b"5, 2/1/2004 to 2/29/2004"))):
            with self.subTest(selection):
                lines = self.lines_of(lDisplayPeriod=selection, **days)
                self.assertIn(b"Period             " + text, lines)

    def test_the_columns_shown(self) -> None:
        shown = dict.fromkeys((key for key in HEADER_KEYS if key.startswith("bShow")), 0)
        lines = self.lines_of(**{**shown, "bShowTag": 1, "bShowDate": 1})
        self.assertIn(b"Columns            Date, Tag", lines)

    def test_read_only(self) -> None:
        self.assertIn(b"Read-only          yes", self.lines_of(bReadOnly=1))

    def test_control_characters_do_not_break_lines(self) -> None:
        lines = self.lines_of(szBankName=b"First\nBank\x1b[31m\x7f", szHolderName=b"Jos\xe9")
        self.assertIn("Bank               First␊Bank␛[31m␡".encode(), lines)
        self.assertIn("Holder             José".encode(), lines)

    def test_an_address_of_parts(self) -> None:
        for parts, text in (({"szBankCity": b"Town", "szBankZip": b"44101"}, b"Town 44101"),
                            ({"szBankAddress": b"1 Street"}, b"1 Street"),
                            ({"szBankState": b"Ohio", "szBankZip": b"1"}, b"Ohio 1"),
                            ({"szBankZip": b"44101"}, b"44101")):
            with self.subTest(text):
                self.assertIn(b"  Address          " + text, self.lines_of(**parts))

    def test_numbers_that_are_none_are_no_crash(self) -> None:
        for value in (math.nan, math.inf, -math.inf, 3.4e38):
            with self.subTest(value=value):
                lines = self.lines_of(fMinimumBalance=value)
                self.assertEqual(len(lines), 18)


if __name__ == "__main__":
    unittest.main()
