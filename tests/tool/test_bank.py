"""qmktool import and convert of the files of banks: dialects, profiles, dry runs and refusals.

The files are written by hand in the manner of banks and programs of several countries. Each holds
the same three movements as far as its columns can tell them.
"""

import unittest
from typing import NamedTuple

from rules import ORDER_GUESSED
from support import SAMPLE, ToolTestCase, cases, run

# Date, type, check number, amount and description of the entries in every file
RENT = ([2024, 3, 4], 2, 0, 1250.0, "Rent, March")
WAGE = ([2024, 3, 15], 1, 0, 2500.5, "Wage")
CHECK = ([2024, 3, 28], 0, 1001, 75.25, "Books")


class Bank(NamedTuple):
    options: str
    data: bytes
    rows: tuple = (RENT, WAGE, CHECK)
    name: str = "in.csv"


NO_NUMBER = (RENT, WAGE, ([2024, 3, 28], 2, 0, 75.25, "Books"))
BANKS = {
    "american, signed": Bank(
        "--columns Date,Number,Description,Amount --skip 1",
        b'Date,Check,Text,Amount\n03/04/2024,,"Rent, March",-1250.00\n03/15/2024,,Wage,2500.50\n'
        b"03/28/2024,1001,Books,-75.25\n"),
    "american, short years": Bank(
        "--columns Date,Number,Description,Amount",
        b'3/4/24,,"Rent, March","-1,250.00"\n3/15/24,,Wage,"2,500.50"\n3/28/24,1001,Books,-75.25\n'),
    "american, own headings": Bank(
        "--dates mdy", b'Date,Check Number,Description,Amount\n03/04/2024,,"Rent, March",-1250\n'
        b"03/15/2024,,Wage,2500.5\n03/28/2024,1001,Books,-75.25\n"),
    "american, two columns": Bank(
        "--dates mdy", b'Date,Payee,Debit,Credit,Num\n03/04/2024,"Rent, March",1250.00,,\n'
        b"03/15/2024,Wage,,2500.50,\n03/28/2024,Books,75.25,,1001\n"),
    "american, dollars and parentheses": Bank(
        "--columns Date,Description,Amount,Number",
        b'3/4/2024,"Rent, March","($1,250.00)",\n3/15/2024,Wage,"$2,500.50",\n'
        b"3/28/2024,Books,($75.25),1001\n"),
    "american credit card": Bank(
        "--columns Date,Description,Amount --invert",
        b'3/4/2024,"Rent, March",1250.00\n3/15/2024,Wage,-2500.50\n3/28/2024,Books,75.25\n',
        NO_NUMBER),
    "german semicolon": Bank(
        "--separator ; --dates dmy --decimal , --skip 1 --columns Date,Description,Amount,-",
        b"Buchungstag;Text;Betrag;W\xe4hrung\n04.03.2024;Rent, March;-1.250,00;EUR\n"
        b"15.03.2024;Wage;2.500,50;EUR\n28.03.2024;Books;-75,25;EUR\n", NO_NUMBER),
    "german, soll and haben": Bank(
        "--separator ; --dates dmy --decimal , --columns Date,Description,Amount,Sign",
        b'"04.03.24";"Rent, March";"1.250,00";"S"\n"15.03.24";"Wage";"2.500,50";"H"\n'
        b'"28.03.24";"Books";"75,25";"S"\n', NO_NUMBER),
    "german, preamble and sums": Bank(
        "--separator ; --dates dmy --decimal , --skip 4 --columns Date,Description,-,Amount",
        b"Konto;12345\nvon;1.3.\n\nTag;Text;Saldo;Umsatz\n04.03.2024;Rent, March;0,00;-1250,00\n"
        b"15.03.2024;Wage;1,00;2500,50 EUR\n28.03.2024;Books;2,00;-75,25\nSumme;;;\n", NO_NUMBER),
    "swiss apostrophes": Bank(
        "--separator ; --dates dmy --columns Date,Description,Debit,Credit",
        b"04.03.2024;Rent, March;1'250.00;\n15.03.2024;Wage;;2'500.50\n28.03.2024;Books;75.25;\n",
        NO_NUMBER),
    "austrian, text mark and CR LF": Bank(
        "--separator ; --dates dmy --decimal , --columns -,Date,Amount,Description",
        b'\xef\xbb\xbfAT1;04.03.2024;-1250,00;"Rent, March"\r\nAT1;15.03.2024;2500,50;Wage\r\n'
        b"AT1;28.03.2024;-75,25;Books\r\n", NO_NUMBER),
    "french, blanks for thousands": Bank(
        "--separator ; --dates dmy --decimal , --columns Date,Description,Debit,Credit",
        b"04/03/2024;Rent, March;-1\xa0250,00;\n15/03/2024;Wage;;2\xa0500,50\n"
        b"28/03/2024;Books;-75,25;\n", NO_NUMBER),
    "french, UTF-8 narrow blanks": Bank(
        "--separator ; --dates dmy --decimal , --columns Date,Description,Amount",
        "04/03/2024;Rent, March;\u22121\u202f250,00\n15/03/2024;Wage;2\u202f500,50\n"
        "28/03/2024;Books;\u221275,25\n".encode(), NO_NUMBER),
    "dutch, af and bij": Bank(
        "--dates ymd --decimal , --columns Date,Description,Sign,Amount",
        b'"20240304","Rent, March","Af","1250,00"\n"20240315","Wage","Bij","2500,50"\n'
        b'"20240328","Books","Af","75,25"\n', NO_NUMBER),
    "belgian": Bank(
        "--separator ; --dates dmy --decimal , --columns Date,Amount,-,Description",
        b"04-03-2024;-1.250,00;EUR;Rent, March\n15-03-2024;2.500,50;EUR;Wage\n"
        b"28-03-2024;-75,25;EUR;Books\n", NO_NUMBER),
    "british, words of months": Bank(
        "--dates dmy --columns Date,Description,Debit,Credit",
        b'04 Mar 2024,"Rent, March","1,250.00",\n15 Mar 2024,Wage,,"2,500.50"\n'
        b"28-Mar-24,Books,75.25,\n", NO_NUMBER),
    "british, CR and DR": Bank(
        "--dates dmy --columns Date,Description,Amount",
        b'04/03/24,"Rent, March",1250.00 DR\n15/03/24,Wage,2500.50 CR\n28/03/24,Books,75.25 DR\n',
        NO_NUMBER),
    "irish, newest first": Bank(
        "--dates dmy --columns Date,Description,Debit,Credit",
        b'28/03/2024,Books,75.25,\n15/03/2024,Wage,,2500.50\n04/03/2024,"Rent, March",1250.00,\n',
        NO_NUMBER),
    "spanish": Bank(
        "--separator ; --dates dmy --decimal , --columns Date,-,Description,Amount,-",
        b"04/03/2024;05/03/2024;Rent, March;-1.250,00;1,00\n15/03/2024;15/03/2024;Wage;2.500,50;2,00"
        b"\n28/03/2024;28/03/2024;Books;-75,25;3,00\n", NO_NUMBER),
    "italian, tabs": Bank(
        "--separator tab --dates dmy --decimal , --columns Date,Debit,Credit,Description",
        b"04/03/2024\t1.250,00\t\tRent, March\n15/03/2024\t\t2.500,50\tWage\n"
        b"28/03/2024\t75,25\t\tBooks\n", NO_NUMBER),
    "polish, UTF-8": Bank(
        "--separator ; --dates ymd --decimal , --skip 1 --columns Date,Description,Amount",
        "Data;Tytu\u0142;Kwota\n2024-03-04;Rent, March;-1 250,00 PLN\n2024-03-15;Wage;2 500,50 PLN\n"
        "2024-03-28;Books;-75,25 PLN\n".encode(), NO_NUMBER),
    "swedish": Bank(
        "--separator ; --dates ymd --decimal , --columns Date,-,Description,Amount",
        b"2024-03-04;1;Rent, March;-1 250,00\n2024-03-15;2;Wage;2 500,50\n2024-03-28;3;Books;-75,25\n",
        NO_NUMBER),
    "danish": Bank(
        "--separator ; --dates dmy --decimal , --columns Date,Description,Amount",
        b'"04-03-2024";"Rent, March";"-1.250,00"\n"15-03-2024";"Wage";"2.500,50"\n'
        b'"28-03-2024";"Books";"-75,25"\n', NO_NUMBER),
    "canadian, ISO dates": Bank(
        "--dates ymd --columns Date,Number,Description,Amount",
        b'2024-03-04,,"Rent, March",-1250.00\n2024-03-15,,Wage,2500.50\n2024-03-28,1001,Books,-75.25'
        b"\n"),
    "australian, no heading": Bank(
        "--dates dmy --columns Date,Amount,Description",
        b'04/03/2024,"-1250.00","Rent, March"\n15/03/2024,"+2500.50","Wage"\n'
        b'28/03/2024,"-75.25","Books"\n', NO_NUMBER),
    "japanese order, slashes": Bank(
        "--dates ymd --columns Date,Description,Debit,Credit",
        b'2024/03/04,"Rent, March",1250,\n2024/3/15,Wage,,2500.5\n24/3/28,Books,75.25,\n', NO_NUMBER),
    "brazilian": Bank(
        "--separator ; --dates dmy --decimal , --columns Date,Description,Amount",
        b"04/03/2024;Rent, March;-R$ 1.250,00\n15/03/2024;Wage;R$ 2.500,50\n28/03/2024;Books;-R$ 75,25"
        b"\n", NO_NUMBER),
    "indian, grouped by lakh": Bank(
        "--dates dmy --columns Date,Description,Number,Debit,Credit",
        b'04-03-2024,"Rent, March",,"1,250.00",\n15-03-2024,Wage,,,"02,500.50"\n'
        b"28-03-2024,Books,1001,75.25,\n"),
    "spreadsheet, UTF-16 tabs": Bank(
        "--separator tab --dates mdy --columns Date,Number,Description,Amount",
        "\ufeff3/4/2024\t\tRent, March\t-1250\n3/15/2024\t\tWage\t2500.5\n3/28/2024\t1001\tBooks\t"
        "-75.25\n".encode("utf-16-le")),
    "pipes and single quotes": Bank(
        "--separator | --quote ' --dates dmy --columns Date,Description,Amount",
        b"04.03.2024|'Rent, March'|-1250.00\n15.03.2024|'Wage'|2500.50\n28.03.2024|'Books'|-75.25\n",
        NO_NUMBER),
    "another program, with types": Bank(
        "--dates ymd --columns Date,Type,Number,Description,Amount",
        b'2024-03-04,Withdrawal,,"Rent, March",-1250\n2024-03-15,Deposit,,Wage,2500.5\n'
        b"2024-03-28,Check,1001,Books,-75.25\n"),
    "QIF, day first": Bank(
        "--dates dmy --decimal ,",
        b"!Type:Bank\nD04.03'24\nT-1.250,00\nPRent, March\n^\nD15.03.24\nT2.500,50\nPWage\n^\n"
        b"D28/03/2024\nN1001\nT-75,25\nPBooks\n^\n", name="in.qif"),
}


class Banks(ToolTestCase):

    def rows(self, account: str = "out.qmk") -> list[tuple]:
        listing = self.assert_done(run("list", self.folder / account, "--json")).json()
        return [(row["dtDate"], row["lType"], row["lNumber"], row["fAmount"], row["szDescription"])
                for row in listing["rows"]]

    def test_every_bank(self) -> None:
        for name, bank in cases(BANKS.items()):
            with self.subTest(name):
                source = self.write(bank.name, bank.data)
                result = self.assert_done(run("convert", source, self.folder / "out.qmk", "--force",
                                              *bank.options.split()))
                self.assertEqual(self.rows(), list(bank.rows), str(result))

    def test_a_profile_says_the_same_as_options(self) -> None:
        for name, bank in cases(BANKS.items()):
            words = iter(bank.options.split())
            lines = [f"{word[2:]} = {'yes' if word == '--invert' else next(words)}" for word in words]
            with self.subTest(name):
                profile = self.write("bank.profile", "\n".join(["# a remark", *lines]).encode())
                source = self.write(bank.name, bank.data)
                self.assert_done(run("convert", source, self.folder / "out.qmk", "--force",
                                     "--profile", profile))
                self.assertEqual(self.rows(), list(bank.rows))

    def test_the_proposed_profile_reads_the_same(self) -> None:
        """A user must decide only what no file can tell: the order of dates, and the sign of a
        card."""
        for name, bank in cases(BANKS.items()):
            with self.subTest(name):
                source = self.write(bank.name, bank.data)
                proposed = self.assert_done(run("import", source, "--detect")).out
                self.assertNotIn(b"dates = ?", proposed)
                if "--invert" in bank.options:
                    proposed = proposed.replace(b"invert = no", b"invert = yes")
                profile = self.write("bank.profile", proposed)
                self.assert_done(run("convert", source, self.folder / "out.qmk", "--force",
                                     "--profile", profile))
                self.assertEqual(self.rows(), list(bank.rows), proposed.decode())

    def detected(self, data: bytes, *options: str, name: str = "in.csv") -> dict[str, tuple]:
        """The values of a proposed profile by their names, each with how sure it is."""
        lines = self.assert_done(run("convert", self.write(name, data), "--detect", *options)).lines()
        self.assertEqual(self.names_in_folder(), [name])
        found = {}
        for before, line in zip(lines, lines[1:]):
            if not line.startswith(b"#"):
                key, _, value = line.decode().partition(" = ")
                found[key] = (value, before.decode()[2:].partition(":")[0])
        return found

    def test_days_below_13_are_never_guessed(self) -> None:
        for mark, dates in (("/", "3/4/2024 12/11/2024"), (".", "03.04.2024 05.06.2024"),
                            ("-", "1-2-24 3-4-24")):
            data = "".join(f"{day};x;5,25\n" for day in dates.split())
            with self.subTest(mark):
                self.assertEqual(self.detected(data.encode())["dates"], ("?", "not known"))
                told = self.detected(data.encode(), "--dates", "dmy")
                self.assertEqual(told["dates"], ("dmy", "told"))
                (self.folder / "in.csv").unlink()
        self.assertEqual(self.detected(b"!Type:Bank\nD3/4/24\nT5.00\n^\n", name="in.qif")["dates"],
                         ("?", "not known"))

    def test_a_profile_that_leaves_the_order_open_is_refused(self) -> None:
        source = self.write("in.csv", b"3/4/2024,Books,5.25\n")
        profile = self.write("bank.profile", self.assert_done(run("import", source, "--detect")).out)
        self.assert_refused(run("convert", source, self.folder / "out.qmk", "--profile", profile),
                            profile, "it is not one of mdy, dmy and ymd")

    def test_how_sure_each_guess_is(self) -> None:
        self.assertEqual(self.detected(b"Tag;Text;Betrag\n14.03.2024;B\xfccher;-5,25\n"
                                       b"02.03.2024;Lohn;5,25\n"), {
            "encoding": ("cp1252", "likely"), "separator": (";", "sure"),
            "quote": ('"', "a guess"), "dates": ("dmy", "sure"), "decimal": (",", "sure"),
            "skip": ("1", "sure"), "columns": ("Date,Description,Amount", "sure"),
            "invert": ("no", "likely")})
        self.assertEqual(self.detected(b"3/3/2024,5\n3/3/2024,6\n")["dates"], ("mdy", "sure"))
        self.assertEqual(self.detected(b"3/13/2024,5\n13/3/2024,6\n")["dates"], ("?", "not known"))
        self.assertEqual(self.detected(b"3/13/2024,5,6\n3/14/2024,7,8\n")["columns"][1], "a guess")

    def test_a_balance_is_no_amount(self) -> None:
        data = b"13/3/2024,-5.00,95.00\n14/3/2024,-10.00,85.00\n15/3/2024,20.00,105.00\n"
        self.assertEqual(self.detected(data)["columns"][0], "Date,Amount,-")

    def test_nothing_to_detect(self) -> None:
        for name, data, reason in (
                ("in.csv", b"", "both a date and an amount"),
                ("in.csv", b"Date,Amount\n", "both a date and an amount"),
                ("in.csv", b"\0\xff" * 5000, "both a date and an amount"),
                ("in.qif", b"!Type:Bank\n", "no record with a date and an amount"),
                ("in.xml", b"<a/>", "only .csv and .qif files have one"),
                ("in.qmk", SAMPLE.read_bytes(), "")):
            with self.subTest(name, data=data[:9]):
                source = self.write(name, data)
                words = (["import"] if name != "in.qmk" else ["convert"])
                self.assert_refused(run(*words, source, "--detect"), source, reason)
        self.assert_refused(run("import", self.folder / "none.csv", "--detect"),
                            self.folder / "none.csv", "no such file")
        self.assert_usage(run("import", "--detect"))
        self.assert_usage(run("list", SAMPLE, "--detect"))
        self.assert_usage(run("import", "in.csv", "b.qmk", "c.qmk", "--detect"))
        self.assert_usage(run("import", "in.csv", "--detect=yes"))

    def test_days_below_13_are_told_when_they_were_read(self) -> None:
        account = self.write("account.qmk", SAMPLE.read_bytes())
        told = b"month and day perhaps exchanged: every day is below 13 (see --dates)"
        columns = ("--columns", "Date,Amount")
        for data, options, doubtful in (
                (b"3/4/2024,5\n", columns, True), (b"3/4/2024,5\n3/13/2024,5\n", columns, False),
                (b"3/3/2024,5\n", columns, False), (b"2024-03-04,5\n", columns, False),
                (b"4 Mar 2024,5\n", columns, False),
                (b"3/4/2024,5\n", (*columns, "--dates", "mdy"), False),
                (b"3/4/2024,5\n", (*columns, "--dates", "dmy"), False),
                (b"Date,Amount\n3/4/2024,5\n", (), True),
                (b"Date,Amount\n3/14/2024,5\n3/4/2024,5\n", (), False)):
            with self.subTest(data, options=options):
                out = self.assert_done(run("import", self.write("in.csv", data), account,
                                           "--dry-run", *options)).out
                self.assertEqual(told in out, doubtful, out)

    def test_the_command_line_has_the_last_word(self) -> None:
        profile = self.write("bank.profile", b"dates = mdy\ncolumns = Date,Amount\n")
        source = self.write("in.csv", b"3/4/2024,5\n")
        self.assert_done(run("convert", source, self.folder / "out.qmk", "--dates", "dmy",
                             "--profile", profile))
        self.assertEqual(self.rows(), [([2024, 4, 3], 1, 0, 5, "")])

    def test_a_profile_that_is_none(self) -> None:
        source = self.write("in.csv", b"3/4/2024,5\n")
        for data, reason in ((b"dates = ?\n", "line 1: it is not one of mdy, dmy and ymd"),
                             (b"\ncolour = red\n", "line 2: a profile has no such name"),
                             (b"dates\n", "line 1: it has no =")):
            profile = self.write("bank.profile", data)
            self.assert_refused(run("convert", source, self.folder / "out.qmk", "--profile",
                                    profile), profile, reason)
        missing = self.folder / "missing.profile"
        self.assert_refused(run("convert", source, self.folder / "out.qmk", "--profile", missing),
                            missing, "no such file")
        self.assertIn(b"cannot use the profile", run("convert", source, "out.qmk", "--profile",
                                                     missing, cwd=self.folder).err)
        self.assertFalse((self.folder / "out.qmk").exists())

    def test_the_last_line_tells_what_is_missing(self) -> None:
        source = self.write("in.csv", "Date,Amount\n3/4/2024,x\nsoon,5\n3/5/2024,6,\u0416\n".encode())
        result = self.assert_done(run("convert", source, "out.qmk", "--columns", "Date,Amount,Memo",
                                      cwd=self.folder))
        self.assertEqual(result.out, b"out.qmk: format 2.0, 3 transactions, 1 without a date, 1 "
                         b"without an amount, 1 other line passed over, 1 character replaced"
                         + ORDER_GUESSED + b"\n")

    def test_nothing_of_use_is_refused(self) -> None:
        source = self.write("in.csv", BANKS["german semicolon"].data)
        account = self.write("account.qmk", SAMPLE.read_bytes())
        self.assert_refused(run("import", source, account, "--columns", "Date,Amount"), source,
                            "no row of it has a date or an amount in this dialect")
        self.assert_refused(run("import", source, account), source,
                            "none of its records has a date or an amount")
        self.assert_refused(run("import", self.write("in.xml", b"<a/>"), account, "--dates", "dmy"),
                            self.folder / "in.xml", "an XML file has no dialects")
        self.assertEqual(account.read_bytes(), SAMPLE.read_bytes())


if __name__ == "__main__":
    unittest.main()
