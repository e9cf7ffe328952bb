"""qmktool report: text, JSON and PDF of the nine reports."""

import random
import re
import shutil
import subprocess
import unittest

from support import (DONE, USAGE, REPO, SAMPLE, Day, Entry, ToolTestCase, cases, posix_only, run)

KINDS = ("statement", "type", "description", "memo", "category", "tax", "expenses", "voided",
         "not-cleared")
NAMES = ("Statement of Account", "Transaction Type", "Description", "Memo", "Category",
         "Tax Deductions", "Expenses", "Voided Checks", "Not Cleared")
YEAR_2004 = ("--from", "1/1/2004", "--to", "12/31/2004")
# A page of 11 inches has margins of 0.75 inches above and below. A line has 14 pixels.
LINES_ON_PAGE = 912 // 14
GOLDEN = REPO / "tests" / "tool" / "reports"
REVERSED = (b"qmktool: The 'From' date does not proceed the 'To' date. "
            b"Please select a valid date range.\n")


def words(kind, *more, file=SAMPLE, dates=YEAR_2004):
    group = ("--group", "Check") if kind == "type" and "--group" not in more else ()
    return ["report", file, "--kind", kind, *group, *dates, *more]


def texts_of(line):
    return [text for _, text in line["cells"]]


def squeezed(text):
    return " ".join(text.split())


class Report(ToolTestCase):

    def test_texts_of_the_sample(self):
        for kind in cases(KINDS):
            with self.subTest(kind):
                result = self.assert_done(run(*words(kind)))
                self.assertEqual(result.out, (GOLDEN / f"{kind}.txt").read_bytes())

    def test_json_and_text_say_the_same(self):
        for kind in cases(KINDS):
            with self.subTest(kind):
                report = self.assert_done(run(*words(kind, "--json"))).json()
                text = self.assert_done(run(*words(kind))).out.decode("latin-1").split("\n")
                self.assertEqual(list(report), ["kind", "name", "from", "to", "height", "lines"])
                number = KINDS.index(kind)
                self.assertEqual((report["kind"], report["name"]), (number, NAMES[number]))
                self.assertEqual((report["from"], report["to"]), ([2004, 1, 1], [2004, 12, 31]))
                for line in report["lines"]:
                    self.assertEqual(list(line), ["line", "bold", "shaded", "cells"])
                    joined = squeezed(" ".join(texts_of(line)))
                    self.assertEqual(squeezed(text[line["line"]]), joined)
                numbers = [line["line"] for line in report["lines"]]
                self.assertEqual(numbers, sorted(set(numbers)))
                self.assertEqual(report["height"], numbers[-1] + 2)

    def test_json_of_a_month(self):
        report = self.assert_done(
            run("report", SAMPLE, "--kind", "statement", "--month", "2/2004", "--json")).json()
        self.assertEqual((report["from"], report["to"]), ([2004, 2, 1], [2004, 2, 29]))
        lines = {line["line"]: line for line in report["lines"]}
        self.assertEqual(lines[0]["cells"][1], ["dates", "2/1/2004 - 2/29/2004"])
        self.assertEqual(lines[3], {"line": 3, "bold": True, "shaded": False,
                                    "cells": [["title", "Statement Summary"]]})
        self.assertEqual([place for place, _ in lines[5]["cells"]], ["label", "sign", "amount"])

    def test_places(self):
        entries = [Entry(type=0, day=Day(2004, 1, 2), number=77, amount=50.0, memo=b"Loan"),
                   Entry(type=1, day=Day(2004, 1, 3), amount=20.0, memo=b"Loan")]
        file = self.write_account(entries=entries)
        report = self.assert_done(run(*words("memo", "--json", file=file))).json()
        self.assertEqual([line["cells"] for line in report["lines"]][1:], [
            [["title", "Memo"]],
            [["label", "Loan"]],
            [["date", "Date"], ["number", "Number"], ["description", "Description"],
             ["debit", "Debit"], ["credit", "Credit"]],
            [["date", " 1/ 2/2004"], ["number", "77"], ["description", "Refund"],
             ["debit", "50.00"]],
            [["date", " 1/ 3/2004"], ["description", "Deposit - Refund - Loan"],
             ["credit", "20.00"]],
            [["label", "Subtotals"], ["debit-total", "(50.00)"], ["total", "20.00"]],
            [["label", "Total - Loan:  2 Transactions"], ["total", "(30.00)"]]])
        self.assertEqual([line["shaded"] for line in report["lines"]],
                         [False, False, False, False, True, False, False, False])
        none = self.assert_done(run(*words("tax", "--json", file=file))).json()
        self.assertEqual(none["lines"][3]["cells"], [["centre", "--- No Transactions ---"]])
        early = self.assert_done(run(*words("statement", "--json", file=file,
                                            dates=("--month", "1/2003")))).json()
        self.assertEqual(early["lines"][-1]["cells"],
                         [["indented", "No statement details available."]])

    def test_wide_totals_keep_their_places(self):
        """A total as wide as its column, or wider, must not move into the column of amounts."""
        for amount in (1e8, 1e9, 1e10):
            file = self.write_account(entries=[
                Entry(type=1, day=Day(2004, 1, 3), amount=amount, flags=16)])
            for kind, column in (("statement", "amount"), ("not-cleared", "credit")):
                report = self.assert_done(run(*words(kind, "--json", file=file))).json()
                for line in report["lines"][1:]:
                    last_place, last_text = line["cells"][-1]
                    if re.fullmatch(r"\d+\.\d\d", last_text):
                        is_sum = line["cells"][0][1].startswith(("Total", "Subtotals"))
                        self.assertEqual(last_place, "total" if is_sum else column, line)

    def test_groups(self):
        one = self.assert_done(run(*words("category", "--group", "Groceries", "--json"))).json()
        self.assertEqual(len([line for line in one["lines"]
                              if line["cells"][0] == ["date", "Date"]]), 1)
        self.assertEqual(self.assert_done(run(*words("category", "--group", "All"))).out,
                         self.assert_done(run(*words("category"))).out)
        self.assertEqual(self.assert_done(run(*words("type", "--group", "check"))).out,
                         self.assert_done(run(*words("type", "--group", "Check"))).out)

    def test_bytes_above_127(self):
        # The file keeps every byte but 0xDF, which comes back as a blank.
        text = bytes(range(128, 0xDF)) + bytes(range(0xE0, 256))
        file = self.write_account(entries=[Entry(type=0, description=text)])
        report = self.assert_done(run(*words("tax", "--json", file=file))).json()
        self.assertEqual(report["height"], 9)
        report = self.assert_done(run(*words("type", "--json", file=file))).json()
        self.assertIn(["description", text.decode("latin-1")], report["lines"][4]["cells"])

    def test_wrong_use(self):
        wrong = [
            ["report"], ["report", SAMPLE], ["report", SAMPLE, "--kind"],
            ["report", SAMPLE, "--kind", "tax"], ["report", SAMPLE, "--kind", "graph", *YEAR_2004],
            ["report", SAMPLE, "--kind", "type", *YEAR_2004],
            ["report", SAMPLE, "--kind", "type", "--group", "Cheque", *YEAR_2004],
            words("tax", "--group", "Car"), words("statement", "--group", "All"),
            words("tax", "--month", "3/2004"), words("tax", dates=("--month", "13/2004")),
            words("tax", dates=("--month", "3-2004")), words("tax", dates=("--month", "3/1751")),
            words("tax", dates=("--month", "")), words("tax", dates=("--from", "2/30/2004")),
            words("tax", "--paper", "a4"), words("tax", "--force"),
            words("tax", "--json", "--pdf", self.folder / "out.pdf"),
            words("tax", "--pdf", self.folder / "out.pdf", "--paper", "a5"),
        ]
        for line in cases(wrong):
            with self.subTest(line):
                self.assert_usage(run(*line))
        self.assertEqual(self.names_in_folder(), [])

    def test_a_period_with_one_end(self):
        days = [Day(2004, 2, 10), Day(2004, 3, 5), Day(2004, 4, 20)]
        # Cleared ten days later, but for the last, which is not cleared.
        entries = [Entry(1, day, 1000, 10.0, flags | 2, Day(day.year, day.month, day.day + 10))
                   for day, flags in zip(days, (0, 0, 16))]
        file = self.write_account(entries=entries)
        for kind, first, last in (("expenses", "2/10/2004", "4/20/2004"),
                                  ("statement", "2/20/2004", "3/15/2004")):
            for half, whole in (
                    (("--from", "3/1/2004"), ("--from", "3/1/2004", "--to", last)),
                    (("--to", "3/31/2004"), ("--from", first, "--to", "3/31/2004")),
                    # Beyond all transactions, the period is the day that is told.
                    (("--from", "1/1/2020"), ("--from", "1/1/2020", "--to", "1/1/2020")),
                    (("--to", "1/1/1990"), ("--from", "1/1/1990", "--to", "1/1/1990"))):
                with self.subTest(kind=kind, half=half):
                    one = self.assert_done(run(*words(kind, file=file, dates=half)))
                    both = self.assert_done(run(*words(kind, file=file, dates=whole)))
                    self.assertEqual(one.out, both.out)

    def test_an_open_end_of_an_account_without_good_dates(self):
        file = self.write_account(entries=[Entry(1, Day(0, 0, 0), flags=2),
                                           Entry(1, Day(2004, 13, 1), flags=2)])
        for half, dates in ((("--from", "1/1/2000"), [[2000, 1, 1], [3000, 12, 31]]),
                            (("--to", "1/1/2000"), [[1752, 1, 1], [2000, 1, 1]])):
            report = self.assert_done(run(*words("expenses", "--json", file=file, dates=half))).json()
            self.assertEqual([report["from"], report["to"]], dates)

    def test_reversed_range(self):
        result = run(*words("tax", dates=("--from", "2/2/2004", "--to", "2/1/2004")))
        self.assertEqual((result.code, result.out, result.err), (USAGE, b"", REVERSED))

    def test_password(self):
        file = self.write_account(header={"szPassword": b"secret"})
        self.assert_refused(run(*words("tax", file=file)), file, "password")
        self.assert_done(run(*words("tax", "--password", "Secret", file=file)))

    def test_damaged_accounts(self):
        """Every report must run for an account that can be read although it is damaged."""
        source = random.Random(5)
        entries = [Entry(type=source.choice((-1, 0, 3, 11, 12, 2**31 - 1)),
                         day=Day(source.randrange(65536), source.randrange(30), source.randrange(99)),
                         number=source.choice((0, 5, 2**32 - 1)),
                         amount=source.choice((float("nan"), float("inf"), -5.0, 3e38, 1e-9)),
                         flags=source.randrange(2**32), cleared=Day(2004, 2, 31),
                         description=bytes(source.randrange(1, 256) for _ in range(255)),
                         memo=bytes(source.randrange(1, 256) for _ in range(255)),
                         category=bytes(source.randrange(1, 256) for _ in range(127)))
                   for _ in range(60)]
        file = self.write_account(entries=entries, header={"lFontSize": -7})
        out = self.folder / "out.pdf"
        whole = ("--from", "1/1/1752", "--to", "12/31/3000")
        for kind in cases(KINDS):
            for more in ((), ("--json",), ("--pdf", out, "--force")):
                result = self.assert_done(run(*words(kind, *more, file=file, dates=whole)))
                if more == ("--json",):
                    self.assertEqual(result.json()["kind"], KINDS.index(kind))


class ReportPdf(ToolTestCase):

    def make(self, kind, *more, file=SAMPLE):
        out = self.folder / f"{kind}.pdf"
        result = self.assert_done(run(*words(kind, "--pdf", out, "--force", *more, file=file)))
        self.assertEqual(result.out, b"")
        return out

    def test_same_bytes(self):
        for kind in cases(KINDS):
            first = self.make(kind).read_bytes()
            self.assertTrue(first.startswith(b"%PDF-1."))
            self.assertEqual(self.make(kind).read_bytes(), first)
            self.assertIn(f"(First Example Bank {NAMES[KINDS.index(kind)]})".encode(), first)
            self.assertIn(b"(D:20041231", first)

    def test_force(self):
        out = self.write("old.pdf", b"old")
        self.assert_refused(run(*words("tax", "--pdf", out)), out, "exists")
        self.assertEqual(out.read_bytes(), b"old")
        self.assert_done(run(*words("tax", "--pdf", out, "--force")))

    def test_paper(self):
        for more, box in (((), b"[ 0 0 612 792 ]"), (("--paper", "letter"), b"[ 0 0 612 792 ]"),
                          (("--paper", "a4"), b"[ 0 0 595.5 842.25 ]")):
            self.assertIn(b"/MediaBox " + box, self.make("tax", *more).read_bytes())

    def test_shades_lie_below_rules_and_texts(self):
        """A shade that is drawn later could cover the rule beside it, because viewers round."""
        for kind in cases(KINDS):
            shaded = 0
            streams = re.findall(rb"\nstream\r?\n(.*?)endstream", self.make(kind).read_bytes(),
                                 re.DOTALL)
            for stream in streams:
                shades = [match.start() for match in re.finditer(rb"^0\.92\d* g", stream,
                                                                 re.MULTILINE)]
                inks = [match.start() for match in re.finditer(rb"^(?:0 g|0\.25\d* g|BT)", stream,
                                                               re.MULTILINE)]
                if shades and inks:
                    self.assertLess(shades[-1], inks[0], kind)
                    shaded += 1
            self.assertGreater(shaded, 0, kind)

    @posix_only
    def test_lines_are_those_of_the_json(self):
        if shutil.which("pdftotext") is None:
            self.skipTest("pdftotext is not installed")
        for kind in KINDS:
            out = self.make(kind)
            text = subprocess.run(["pdftotext", "-layout", str(out), "-"], check=True,
                                  capture_output=True).stdout.decode("utf-8")
            pages = text.split("\f")[:-1]
            report = run(*words(kind, "--json")).json()
            self.assertEqual(len(pages), report["height"] // LINES_ON_PAGE + 1)
            # No line may be cut in two, and each must be on the page of its number.
            for number, page in enumerate(pages):
                found = [squeezed(line) for line in page.split("\n") if line.strip()]
                expected = [squeezed(" ".join(texts_of(line))) for line in report["lines"]
                            if line["line"] // LINES_ON_PAGE == number]
                self.assertEqual(found, expected, (kind, number))


if __name__ == "__main__":
    unittest.main()
