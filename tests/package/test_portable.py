"""The portable zips: unzipped into a folder, the programs run."""

import shutil
import unittest

from support import PackageTestCase, wait_until, wine_for


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

    def test_32_bit(self) -> None:
        self.run_from_zip("win32")

    def test_64_bit(self) -> None:
        self.run_from_zip("win64")


if __name__ == "__main__":
    unittest.main()
