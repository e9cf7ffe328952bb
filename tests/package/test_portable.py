"""The portable zips: unzipped into a folder, the programs run."""

import shutil
import unittest
from pathlib import Path

from support import PackageTestCase, Wine, wait_until, wine_for


class PortableTests(PackageTestCase):

    def run_from_zip(self, preset: str) -> None:
        wine = wine_for(preset)
        self.addCleanup(wine.end)
        folder = self.unpacked_zip(preset, "Geld & Güter")
        account = folder / "household.qmk"
        started = wine.start(folder / "quillmark.exe", account)
        wait_until("the account is open", lambda: wine.has_window("Quillmark") and
                   "household.qmk" in str(wine.registry(
                       "HKEY_CURRENT_USER\\Software\\Tarn Software").values()))
        wine.close_program()
        self.assertEqual(started.wait(60), 0)

        name = folder / "日本.qmk"
        shutil.copy(account, name)
        told = wine.output_of(folder / "qmktool.exe", "info", name)
        self.assertIn("日本.qmk", told)
        self.assertRegex(told, r"Transactions +447")
        self.look_at_console(wine, folder)

    def look_at_console(self, wine: Wine, folder: Path) -> None:
        """A person can read a list with letters of all kinds."""
        for name, text, encoding in (("Bücher", "Bäckerei Müller, 5 €", "cp1252"),
                                     ("日本", "日本の本 & Bücher", "utf-8")):
            account, source = folder / f"{name} 2.qmk", folder / "source.qif"
            source.write_bytes(f"!Type:Bank\nD01/02/2005\nT-12.00\nP{text}\n^\n".encode(encoding))
            shown = wine.console_output_of(folder / "qmktool.exe", "convert", source, account)
            self.assertIn(f"{account.name}: format 2.0, 1 transaction", shown)
            options = ["--encoding", "utf-8"] if encoding == "utf-8" else []
            shown = wine.console_output_of(folder / "qmktool.exe", "list", account, *options)
            self.assertRegex(shown, rf"1/ 2/05 .*{text} +12\.00 ")

    def test_32_bit(self) -> None:
        self.run_from_zip("win32")

    def test_64_bit(self) -> None:
        self.run_from_zip("win64")


if __name__ == "__main__":
    unittest.main()
