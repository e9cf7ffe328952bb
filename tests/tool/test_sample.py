"""The sample account and the script that makes it."""

import subprocess
import sys
import unittest
from decimal import Decimal

from support import REPO, SAMPLE, SCRIPTS, V1_0, V1_1, V2_0, ToolTestCase, make_sample, run

SOURCE = REPO / "samples" / "household.txt"
BALANCE, AVAILABLE, COUNT = "4195.04", "3757.50", 447


class Household(ToolTestCase):

    def test_the_script_makes_it_byte_for_byte(self) -> None:
        made = self.folder / "made.qmk"
        subprocess.run([sys.executable, "-B", str(SCRIPTS / "make_sample.py"), str(SOURCE),
                        str(made)], check=True, capture_output=True)
        self.assertTrue(made.read_bytes() == SAMPLE.read_bytes(), "household.qmk is out of date")

    def test_the_totals_of_its_source(self) -> None:
        account = make_sample.read_source(SOURCE, V2_0)
        self.assertEqual((account.balance, account.available, len(account.entries)),
                         (Decimal(BALANCE), Decimal(AVAILABLE), COUNT))

    def test_the_program_reads_the_same_totals(self) -> None:
        """From every format that the script writes."""
        for version in (V1_0, V1_1, V2_0):
            with self.subTest(version=version):
                file = self.write("made.qmk", make_sample.read_source(SOURCE, version).encode())
                lines = self.assert_done(run("list", file)).lines()
                self.assertEqual(len(lines), 1 + COUNT + 2)
                self.assertEqual(lines[-2:], [f"Balance:   {BALANCE}".encode(),
                                              f"Available: {AVAILABLE}".encode()])

    def test_it_shows_all_that_there_is(self) -> None:
        rows = self.assert_done(run("list", SAMPLE, "--json")).json()["rows"]
        self.assertEqual({row["lType"] for row in rows}, set(range(12)))
        self.assertLessEqual({0, 16, 17}, {row["lFlags"] for row in rows})
        for flag in (1, 2, 4, 16):
            self.assertTrue([row for row in rows if row["lFlags"] & flag], flag)
        self.assertGreaterEqual(rows[-1]["dtDate"][0] - rows[0]["dtDate"][0], 1)


if __name__ == "__main__":
    unittest.main()
