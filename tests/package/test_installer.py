"""The installer: what it puts where, what it asks before, and what is left when it has gone.

It is a 32-bit program, as every installer of its kind, so that a 32-bit Wine runs it. The installer
of the 64-bit program is opened and not run.
"""

import os
import shutil
import subprocess
import unittest
from pathlib import Path

from support import (LIMIT_S, VERSION, WINDOWS_FILES, WORK, PackageTestCase, files_below, output_of,
                     setup_of, wait_until, wine_for)

HKCU = "HKEY_CURRENT_USER\\"
SETTINGS = HKCU + "Software\\Tarn Software"
CLASSES = HKCU + "Software\\Classes"
UNINSTALL = HKCU + "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Quillmark"
PROGID = CLASSES + "\\Quillmark.Account"
RECENT = SETTINGS + "\\Quillmark\\Recent File List"
DONE, GIVEN_UP, RUNNING, UNWRITABLE = 0, 1, 2, 3
SETUP, REMOVAL = "Quillmark Setup", "Quillmark Uninstall"  # titles of windows
QUESTION = "Quillmark is running. Save your accounts, close it, and choose Retry."


def written(text: str) -> str:
    """A text as a .reg file has it."""
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


class InstallerTests(PackageTestCase):
    """Each test has the machine of a user who never had the program."""

    @classmethod
    def setUpClass(cls) -> None:
        cls.wine = wine_for("win32")
        cls.addClassCleanup(cls.wine.end)
        cls.target = cls.wine.drive / "My Programs" / "Quill mark"
        cls.link = next((cls.wine.drive / "users").glob(
            "*/AppData/Roaming/Microsoft/Windows/Start Menu/Programs")) / "Quillmark.lnk"
        # A place without blanks, for the command line of install().
        shutil.copy(setup_of("win32"), cls.wine.drive / "windows" / "setup.exe")
        WORK.mkdir(parents=True, exist_ok=True)
        cls.boxes = WORK / "boxes.exe"
        output_of("i686-w64-mingw32-g++-win32", "-std=c++20", "-O1", "-static", "-Wall", "-Wextra",
                  "-Werror", "-o", cls.boxes, Path(__file__).with_name("boxes.cpp"))

    def setUp(self) -> None:
        super().setUp()
        self.link.unlink(missing_ok=True)
        shutil.rmtree(self.target.parent, ignore_errors=True)
        for key in (SETTINGS, CLASSES + "\\.qmk", PROGID, UNINSTALL):
            self.wine.run("reg", "delete", key, "/f")
        self.addCleanup(self.wine.run, "taskkill", "/F", "/IM", "quillmark.exe")

    def start_setup(self, *options: str, folder: Path | None = None) -> subprocess.Popen:
        # The folder is the last word and has no quotes: so the installer asks.
        words = ["C:\\windows\\setup.exe", *options,
                 "/D=" + self.wine.name_of(folder or self.target)]
        return self.wine.start("cmd", "/c", " ".join(words))

    def install(self, *options: str, folder: Path | None = None) -> int:
        return self.start_setup("/S", *options, folder=folder).wait(LIMIT_S)

    def press(self, title: str, *buttons: str) -> None:
        """One after another, each as soon as it is there."""
        for button in buttons:
            wait_until(f"'{button}' can be pressed",
                       lambda name=button: self.wine.run(self.boxes, "press", title, name) == 0)

    def texts(self, title: str) -> str:
        """What the windows of this title say."""
        return self.wine.output_of(self.boxes, "texts", title)

    def question(self) -> str:
        """The number of the box that asks to close the program; empty where there is none."""
        asking = [window for window in self.texts(SETUP).split("window ") if QUESTION in window]
        return asking[0].split()[0] if asking else ""

    def uninstall(self) -> None:
        # It works from a copy of itself, in a folder for the moment, and returns at once.
        self.wine.run(self.target / "uninstall.exe", "/S")
        self.wait_for_uninstaller()

    def wait_for_uninstaller(self) -> None:
        wait_until("the uninstaller has ended", lambda: not self.wine.processes("~nsu"))

    def files(self) -> set[str]:
        """All files of the drive but those of Windows itself and of its folder for the moment."""
        return {name for name in files_below(self.wine.drive)
                if not name.startswith("windows/") and "/Temp/" not in name}

    def values(self) -> dict[tuple[str, str], str]:
        return self.wine.registry(HKCU + "Software")

    def expected_values(self, with_files: bool = True) -> dict[tuple[str, str], str]:
        folder = self.wine.name_of(self.target)
        program = folder + "\\quillmark.exe"
        sample = self.values()[(UNINSTALL, "SampleTime")]
        size = sum((self.target / name).stat().st_size for name in WINDOWS_FILES)
        texts = {
            (UNINSTALL, "DisplayName"): "Quillmark",
            (UNINSTALL, "DisplayVersion"): VERSION,
            (UNINSTALL, "DisplayIcon"): program,
            (UNINSTALL, "Publisher"): "Tarn Software",
            (UNINSTALL, "InstallLocation"): folder,
            (UNINSTALL, "UninstallString"): f'"{folder}\\uninstall.exe"',
            (UNINSTALL, "QuietUninstallString"): f'"{folder}\\uninstall.exe" /S',
        }
        if with_files:
            texts |= {
                (CLASSES + "\\.qmk", "@"): "Quillmark.Account",
                (PROGID, "@"): "Quillmark Account",
                (PROGID + "\\DefaultIcon", "@"): program + ",1",
                (PROGID + "\\shell\\open\\command", "@"): f'"{program}" "%1"',
            }
        return {name: written(text) for name, text in texts.items()} | {
            (UNINSTALL, "SampleTime"): sample,
            (UNINSTALL, "EstimatedSize"): f"dword:{(size + 1023) // 1024:08x}",
            (UNINSTALL, "NoModify"): "dword:00000001",
            (UNINSTALL, "NoRepair"): "dword:00000001",
        }

    def open_and_close(self, *words: Path | str, account: Path) -> None:
        """Starts something that is to open the account in the program, and closes the program."""
        started = self.wine.start(*words)
        name = written(self.wine.name_of(account))
        wait_until("the account is open", lambda: name in self.wine.registry(RECENT).values())
        self.wine.close_program()
        started.wait(60)

    def start_program(self, *before: str, what: Path | None = None) -> subprocess.Popen:
        """For the first time; `before` is a command that starts the program or its link."""
        started = self.wine.start(*before, what or self.target / "quillmark.exe")
        wait_until("the first start has written its settings",
                   lambda: len(self.wine.registry(RECENT)) == 10)
        wait_until("the window is there", lambda: self.wine.has_window("Quillmark"))
        return started

    def merge_classes(self) -> None:
        """Windows looks for a file's program among the user's classes before the machine's. Wine 8
        knows those of the machine alone: they get here what the installer wrote for the user."""
        file = self.folder / "classes.reg"
        self.wine.run("regedit", "/E", file, CLASSES)
        text = file.read_text(encoding="utf-16").replace(HKCU, "HKEY_LOCAL_MACHINE\\")
        file.write_text(text, encoding="utf-16")
        self.wine.run("regedit", "/S", file)
        for key in (".qmk", "Quillmark.Account"):
            self.addCleanup(self.wine.run, "reg", "delete", f"HKLM\\Software\\Classes\\{key}", "/f")

    def assert_installed(self) -> None:
        self.assertEqual(files_below(self.target), sorted([*WINDOWS_FILES, "uninstall.exe"]))
        self.assertTrue(self.link.is_file())

    def test_it_adds_what_is_listed_and_takes_it_back(self) -> None:
        files, values = self.files(), self.values()
        self.assertEqual(self.install(), DONE)
        self.assert_installed()
        new = {name: value for name, value in self.values().items() if values.get(name) != value}
        self.assertEqual(new, self.expected_values())
        self.assertEqual(values.keys() - self.values().keys(), set())
        ours = {str(path.relative_to(self.wine.drive))
                for path in (self.link, *self.target.iterdir())}
        self.assertEqual(self.files() - files, ours)
        # The first start is still a first start.
        self.assertEqual(self.wine.registry(SETTINGS), {})

        self.uninstall()
        self.assertEqual(self.wine.registry(UNINSTALL), {})
        self.assertEqual(self.files(), files)
        self.assertEqual(self.values(), values)
        self.assertFalse(self.target.exists())

    def test_the_program_starts_from_the_menu_and_by_its_files(self) -> None:
        self.assertEqual(self.install(), DONE)
        started = self.start_program("start", "/wait", what=self.link)
        self.wine.close_program()
        started.wait(60)

        folder = self.wine.drive / "Geld & Güter"
        folder.mkdir()
        account = folder / "Bücher 1 & 2.qmk"
        shutil.copy(self.target / "household.qmk", account)
        self.merge_classes()
        self.open_and_close("start", "/wait", account, account=account)

        settings = self.wine.registry(SETTINGS)
        self.uninstall()
        self.assertEqual(self.wine.registry(SETTINGS), settings)
        self.assertTrue(account.exists())

    def test_an_update_waits_for_the_program_and_loses_nothing(self) -> None:
        self.assertEqual(self.install(), DONE)
        sample = self.target / "household.qmk"
        started = self.wine.start(self.target / "quillmark.exe", sample)
        wait_until("the account is open", lambda: written(self.wine.name_of(sample)) in
                   self.wine.registry(RECENT).values())
        (self.target / "README.txt").write_text("the old one")
        self.assertEqual(self.install(), RUNNING)
        self.assertEqual((self.target / "README.txt").read_text(), "the old one")
        # From another folder, too, and before the uninstaller takes anything away.
        other = self.wine.drive / "Other"
        self.assertEqual(self.install(folder=other), RUNNING)
        self.assertFalse(other.exists())
        self.uninstall()
        self.assert_installed()
        self.assertTrue(self.wine.registry(UNINSTALL))
        self.wine.close_program()
        started.wait(60)

        # What the user saved in the sample is the user's.
        sample.write_bytes(sample.read_bytes()[:-1] + b"\0")
        os.utime(sample, (1e9, 1e9))
        saved = sample.read_bytes()
        settings = self.wine.registry(SETTINGS)
        self.assertEqual(self.install(), DONE)
        self.assertNotEqual((self.target / "README.txt").read_text(), "the old one")
        self.assertEqual(self.wine.registry(SETTINGS), settings)
        self.assertEqual(sample.read_bytes(), saved)
        self.uninstall()
        self.assertEqual(files_below(self.target), ["household.qmk"])
        self.assertEqual(sample.read_bytes(), saved)

    def test_an_update_asks_its_user_to_close_the_program(self) -> None:
        self.assertEqual(self.install(), DONE)
        readme = self.target / "README.txt"
        readme.write_text("the old one")
        program = self.start_program()
        values = self.values()

        setup = self.start_setup()
        self.press(SETUP, "I Agree", "Next >", "Install")
        wait_until("the installer asks", self.question)
        self.press(SETUP, "Cancel")
        self.assertEqual(setup.wait(LIMIT_S), GIVEN_UP)
        self.assertEqual(readme.read_text(), "the old one")
        self.assertEqual(self.values(), values)
        self.assertTrue(self.wine.is_running())

        setup = self.start_setup()
        self.press(SETUP, "I Agree", "Next >", "Install")
        wait_until("the installer asks", self.question)
        first = self.question()
        self.press(SETUP, "Retry")
        wait_until("it asks again", lambda: self.question() not in ("", first))
        self.assertEqual(readme.read_text(), "the old one")
        self.wine.close_program()
        program.wait(LIMIT_S)
        self.press(SETUP, "Retry", "Finish")
        self.assertEqual(setup.wait(LIMIT_S), DONE)
        self.assertNotEqual(readme.read_text(), "the old one")
        self.assert_installed()
        wait_until("the last page has started the program", self.wine.is_running)
        wait_until("the window is there", lambda: self.wine.has_window("Quillmark"))
        self.wine.close_program()

    def test_a_program_without_a_window_here_is_noticed(self) -> None:
        self.assertEqual(self.install(), DONE)
        program = self.start_program("explorer", "/desktop=Other,800x600")
        self.assertEqual(self.install(), RUNNING)
        self.wine.run("taskkill", "/F", "/IM", "quillmark.exe")
        wait_until("the program has ended", lambda: not self.wine.is_running())
        self.assertEqual(self.install(), DONE)
        program.terminate()  # the other desktop stays
        program.wait(LIMIT_S)

    def test_a_file_that_cannot_be_written_is_told(self) -> None:
        (self.target / "README.txt" / "in the way").mkdir(parents=True)
        self.assertEqual(self.install(), UNWRITABLE)
        self.assertEqual(self.wine.registry(UNINSTALL), {})

    def test_the_uninstaller_says_what_stays(self) -> None:
        self.assertEqual(self.install(), DONE)
        self.wine.run(self.target / "uninstall.exe")
        wait_until("it has told", lambda: "Your accounts (the .qmk files) and your settings stay."
                   in self.texts(REMOVAL))
        self.press(REMOVAL, "Uninstall", "Close")
        self.wait_for_uninstaller()
        self.assertFalse(self.target.exists())

    def test_the_files_of_accounts_can_be_left_alone(self) -> None:
        values = self.values()
        self.assertEqual(self.install("/NOASSOC"), DONE)
        new = {name: value for name, value in self.values().items() if values.get(name) != value}
        self.assertEqual(new, self.expected_values(with_files=False))
        # An update asks no more for them than the installation did.
        self.assertEqual(self.install(), DONE)
        self.assertEqual(self.wine.registry(PROGID), {})
        self.uninstall()
        self.assertEqual(self.values(), values)

    def test_what_opens_accounts_otherwise_stays_or_comes_back(self) -> None:
        key = "HKCU\\Software\\Classes\\.qmk"

        def owner() -> str | None:
            return self.wine.registry(CLASSES + "\\.qmk").get((CLASSES + "\\.qmk", "@"))

        self.wine.run("reg", "add", key, "/ve", "/d", "Other.File", "/f")
        self.assertEqual(self.install(), DONE)
        self.assertEqual(owner(), '"Quillmark.Account"')
        self.assertEqual(self.install(), DONE)
        self.uninstall()
        self.assertEqual(owner(), '"Other.File"')

        self.assertEqual(self.install(), DONE)
        self.wine.run("reg", "add", key, "/ve", "/d", "Third.File", "/f")
        self.uninstall()
        self.assertEqual(owner(), '"Third.File"')

        self.wine.run("reg", "delete", key, "/ve", "/f")
        self.wine.run("reg", "add", key, "/v", "Content Type", "/d", "x/y", "/f")
        self.assertEqual(self.install(), DONE)
        self.uninstall()
        self.assertEqual(self.wine.registry(CLASSES + "\\.qmk"),
                         {(CLASSES + "\\.qmk", "Content Type"): '"x/y"'})


if __name__ == "__main__":
    unittest.main()
