"""Names of files with letters of any script: in messages, and of files that are read or written"""

import os
import unittest

from support import SAMPLE, ToolTestCase, make_account, run

NAMES = ("Bücher & Söhne", "日本", "Ελλάδα 100%")


class NamesTests(ToolTestCase):

    def test_an_account_is_found_and_its_name_told(self) -> None:
        for name in NAMES:
            with self.subTest(name):
                path = self.write(f"{name}.qmk", make_account())
                result = self.assert_done(run("info", path))
                self.assertIn(os.fsencode(f"{name}.qmk"), result.lines()[0], str(result))

    def test_a_file_that_is_missing_is_named(self) -> None:
        path = self.folder / "日本.qmk"
        self.assert_refused(run("info", path), path, "no such file")

    def test_a_file_is_written_under_its_name(self) -> None:
        for name in ("日本.qif", "Öl.qmk", "日本.pdf"):
            with self.subTest(name):
                words = (("report", SAMPLE, "--kind", "tax", "--month", "4/2004", "--pdf")
                         if name.endswith(".pdf") else ("convert", SAMPLE))
                self.assert_done(run(*words, self.folder / name))
                self.assertIn(name, self.names_in_folder())

    def test_an_exchange_file_is_read(self) -> None:
        source, account = self.folder / "日本.csv", self.write_account("Öl.qmk")
        self.assert_done(run("convert", SAMPLE, source))
        self.assert_done(run("import", source, account))


if __name__ == "__main__":
    unittest.main()
