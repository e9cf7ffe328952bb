#!/usr/bin/env python3
"""Takes the pictures in docs/images from the running program.

Each scene starts the 64-bit program under Wine with settings of its own and copies of the samples,
presses keys, and saves what the frame then shows, in true colour. A browser draws topics of the
help. Needs a build of preset win64, and the packages chromium, xdotool, x11-utils, imagemagick and
xvfb (scripts/setup.sh window pictures), with those of scripts/cups.sh for what is printed
(scripts/setup.sh test). The installer is the one that scripts/package.sh made, and runs where there
is a 32-bit Wine (scripts/setup.sh wine32).

Usage: take_pictures.py [-o FOLDER] [SCENE...]   (without SCENE: all of them)
       take_pictures.py --list

To add a picture, write a function of its name below, with @scene above it. The settings and
accounts in the Wine prefix build/wine-win64 are replaced.
"""

import argparse
import hashlib
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable
from pathlib import Path

REPO = Path(__file__).resolve().parent.parent
WINE = REPO / "scripts" / "wine.sh"
BIN = REPO / "build" / "win64" / "bin"
ACCOUNTS = REPO / "build" / "wine-win64" / "drive_c" / "Accounts"
SETTINGS = r"HKCU\Software\Tarn Software\Quillmark"

# Bits of the setting "Flags"
FRAME_MAXIMIZED, CHILD_MAXIMIZED, TOOLBAR, STATUS_BAR, TRANSACTIONS_BAR = 1, 2, 4, 8, 16
USUAL_BARS = TOOLBAR | STATUS_BAR

# The menu has no letter of its own, and a maximized register has its icon before the first menu.
TOOLS_MENU = ("F10", "Right", "Right", "Right", "Right", "Down")

LIMIT_S = 120  # for a window to come up, on a busy machine
PAUSE_S = 0.4

WAGES = """!Type:Bank
D01/02/2005
T1200.00
PDirect Deposit - Wages
^
D01/05/2005
N101
T-45.20
PCity Library
Mlate fees
^
D01/07/2005
T-80.00
PATM Withdrawal
CX
^
"""


def run(*words: str, **options) -> str:
    done = subprocess.run(words, check=True, capture_output=True, text=True, **options)
    return done.stdout


def wine(*words: str) -> None:
    run(str(WINE), "win64", *words)


class Screen:
    """A display of our own, ended with the object's `end`."""

    def __init__(self) -> None:
        read, write = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            os.environ["DISPLAY"] = f":{pipe.readline().strip()}"

    def end(self) -> None:
        self._server.terminate()
        self._server.wait()


class Program:
    """The running program, driven by keys. Titles are regular expressions."""

    PRESET = "win64"

    def __init__(self, width: int, height: int, flags: int, files: list[str]) -> None:
        self._set_up(width, height, flags)
        names = [rf"C:\Accounts\{name}" for name in files]
        self._process = subprocess.Popen([str(WINE), "win64", str(BIN / "quillmark.exe"), *names],
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_for("Quillmark.*")
        self.settle()

    @staticmethod
    def _set_up(width: int, height: int, flags: int) -> None:
        subprocess.run([str(WINE), "win64", "reg", "delete", SETTINGS, "/f"], check=False,
                       capture_output=True)
        values = {"Position": ("REG_SZ", f"0000 0000 {width:04} {height:04}"),
                  "Flags": ("REG_DWORD", str(flags)),
                  "Options - General": ("REG_DWORD", "10")}  # no splash, no file from last time
        for name, (kind, value) in values.items():
            wine("reg", "add", SETTINGS + r"\Settings", "/v", name, "/t", kind, "/d", value, "/f")
        # Only a very first start writes the usual margins.
        wine("reg", "add", SETTINGS + r"\Page Setup", "/v", "Margins", "/t", "REG_SZ",
             "/d", "0750 0750 0750 0750", "/f")
        shutil.rmtree(ACCOUNTS, ignore_errors=True)
        ACCOUNTS.mkdir(parents=True)
        shutil.copy(REPO / "samples" / "household.qmk", ACCOUNTS)
        (ACCOUNTS / "wages.qif").write_text(WAGES, encoding="ascii")
        wine(str(BIN / "qmktool.exe"), "convert", r"C:\Accounts\wages.qif",
             r"C:\Accounts\savings.qmk")

    def end(self) -> None:
        run(str(WINE), "--end", self.PRESET)
        self._process.send_signal(signal.SIGTERM)
        self._process.wait()

    @staticmethod
    def windows() -> dict[str, tuple[int, int, int, int]]:
        """The titles on the screen, each with left, top, width and height."""
        place = re.compile(r'0x\w+ "(.*)": \(.*\)  (\d+)x(\d+)\+-?\d+\+-?\d+  \+(-?\d+)\+(-?\d+)')
        found = {}
        # xwininfo fails when a window goes while it walks through them.
        tree = subprocess.run(["xwininfo", "-root", "-tree"], check=False, capture_output=True,
                              text=True)
        for match in place.finditer(tree.stdout if tree.returncode == 0 else ""):
            title, *numbers = match.groups()
            width, height, left, top = map(int, numbers)
            found[title] = (left, top, width, height)
        return found

    def place_of(self, title: str) -> tuple[int, int, int, int] | None:
        places = [place for name, place in self.windows().items() if re.fullmatch(title, name)]
        return places[0] if places else None

    def wait_for(self, title: str, gone: bool = False) -> None:
        end = time.monotonic() + LIMIT_S
        while (self.place_of(title) is None) != gone:
            if time.monotonic() > end or self._process.poll() is not None:
                sys.exit(f"take_pictures: no window '{title}' among {sorted(self.windows())}")
            time.sleep(PAUSE_S)

    @staticmethod
    def settle() -> None:
        """Waits until the screen no longer changes."""
        before = ""
        for _ in range(int(LIMIT_S / PAUSE_S)):
            time.sleep(PAUSE_S)
            picture = subprocess.run(["import", "-window", "root", "ppm:-"], check=True,
                                     capture_output=True).stdout
            now = hashlib.sha256(picture).hexdigest()
            if now == before:
                return
            before = now

    def press(self, *keys: str) -> None:
        """Presses keys by their X names, such as ctrl+a, one after another."""
        for key in keys:
            run("xdotool", "key", "--clearmodifiers", key)
            time.sleep(PAUSE_S)
        self.settle()

    def type(self, text: str) -> None:
        run("xdotool", "type", "--delay", "40", text)
        self.settle()

    def click(self, left: int, top: int, title: str = "Quillmark.*") -> None:
        """A click at pixels of the window."""
        place = self.place_of(title)
        run("xdotool", "mousemove", str(place[0] + left), str(place[1] + top), "click", "1")
        self.settle()

    def open_file(self, order: str, path: str) -> None:
        """Chooses a file in a file dialog, which this key opens."""
        self.press(*order.split())
        self.type(path)
        self.press("Return")


class Installer(Program):
    """The running installer of the 32-bit program, at its first page."""

    PRESET = "win32"
    TITLE = "Quillmark Setup ?"

    def __init__(self) -> None:
        made = [path for path in (REPO / "build" / "package").glob("quillmark-*-setup.exe")
                if "-x64-" not in path.name]
        if not made:
            sys.exit("take_pictures: there is no installer: run scripts/package.sh first")
        self._process = subprocess.Popen([str(WINE), self.PRESET, str(made[0])],
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_for(self.TITLE)
        self.settle()


class Printer:
    """A printer of our own, ended with the object's `end`."""

    FOLDER = REPO / "build" / "cups-pictures"

    def __init__(self) -> None:
        self._server = subprocess.Popen([str(REPO / "scripts" / "cups.sh"), str(self.FOLDER)],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        for line in self._server.stdout:
            if not line.strip():
                return
            name, _, value = line.strip().partition("=")
            os.environ[name] = value
        sys.exit("take_pictures: there is no printer")

    def end(self) -> None:
        self._server.stdin.close()
        self._server.wait()

    @classmethod
    def printed(cls) -> set[Path]:
        """The documents so far."""
        return {path.with_suffix(".pdf") for path in (cls.FOLDER / "out").glob("*.txt")}


class Picture:
    def __init__(self, path: Path) -> None:
        self.path = path

    def take(self, program: Program, title: str = "Quillmark.*") -> None:
        """Saves what the screen shows in the place of a window."""
        program.settle()
        left, top, width, height = program.place_of(title)
        # The pointer stands where nothing follows it.
        run("xdotool", "mousemove", "1270", "1010")
        program.settle()
        self.take_place((left, top, width, height))

    def take_at_once(self, program: Program, title: str) -> None:
        """The same for a window that waits for nobody."""
        program.wait_for(title)
        self.take_place(program.place_of(title))

    def take_place(self, place: tuple[int, int, int, int]) -> None:
        left, top, width, height = place
        run("import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "+repage",
            "-strip", "-type", "TrueColor", "-define", "png:color-type=2",
            "-define", "png:compression-level=9", str(self.path))


Scene = Callable[[Program, Picture], None]
SCENES: dict[str, tuple[int, int, int, list[str], Scene]] = {}


def scene(width: int = 1100, height: int = 700, flags: int = USUAL_BARS | CHILD_MAXIMIZED,
          files: tuple[str, ...] = ("household.qmk",)) -> Callable[[Scene], Scene]:
    def add(function: Scene) -> Scene:
        name = function.__name__.replace("_", "-")
        SCENES[name] = (width, height, flags, list(files), function)
        return function
    return add


@scene()
def frame(program: Program, picture: Picture) -> None:
    picture.take(program)


@scene(width=1000, height=640)
def add_transaction(program: Program, picture: Picture) -> None:
    program.press("ctrl+a")
    program.wait_for("Add Transaction")
    picture.take(program)


@scene(width=1000, height=640)
def import_review(program: Program, picture: Picture) -> None:
    program.open_file("alt+f i", r"C:\Accounts\wages.qif")
    program.wait_for("Import File")
    picture.take(program, "Import File")


@scene(flags=USUAL_BARS | CHILD_MAXIMIZED | TRANSACTIONS_BAR)
def all_bars(program: Program, picture: Picture) -> None:
    picture.take(program)


@scene(width=900, height=500, flags=CHILD_MAXIMIZED)
def no_bars(program: Program, picture: Picture) -> None:
    picture.take(program)


@scene(width=420, height=500)
def narrow_frame(program: Program, picture: Picture) -> None:
    picture.take(program)


@scene(width=900, height=560, files=())
def empty_account(program: Program, picture: Picture) -> None:
    program.press("ctrl+n")
    picture.take(program)


@scene(flags=USUAL_BARS, files=("household.qmk", "savings.qmk"))
def two_accounts(program: Program, picture: Picture) -> None:
    program.press("alt+w", "h")
    picture.take(program)


# Where a click is on the tab of a sheet's page. Wine 8 does not know Ctrl+Tab in a sheet.
TABS = ((38, 40), (90, 40), (142, 40))


def take_page(program: Program, picture: Picture, title: str, page: int) -> None:
    """Saves a page of a sheet, counted from 0."""
    program.wait_for(title)
    program.click(*TABS[page], title)
    picture.take(program, title)


def take_options(program: Program, picture: Picture, page: int) -> None:
    program.press(*TOOLS_MENU, "o")
    take_page(program, picture, "Options.*", page)


@scene(width=1000, height=640)
def options(program: Program, picture: Picture) -> None:
    take_options(program, picture, 0)


@scene(width=1000, height=640)
def options_printing(program: Program, picture: Picture) -> None:
    take_options(program, picture, 1)


@scene(width=1000, height=640)
def options_display(program: Program, picture: Picture) -> None:
    take_options(program, picture, 2)


def take_account_information(program: Program, picture: Picture, page: int) -> None:
    program.press("F10", "Right", "Down", "Up", "Up", "Up", "Up", "Return")
    take_page(program, picture, "Account Information.*", page)


@scene(width=1000, height=640)
def account_information(program: Program, picture: Picture) -> None:
    take_account_information(program, picture, 0)


@scene(width=1000, height=640)
def account_information_bank(program: Program, picture: Picture) -> None:
    take_account_information(program, picture, 1)


@scene(width=1000, height=640)
def account_information_holder(program: Program, picture: Picture) -> None:
    take_account_information(program, picture, 2)


@scene(width=1000, height=640)
def set_password(program: Program, picture: Picture) -> None:
    program.press("F10", "Right", "Down", "Up", "Up", "Up", "Return")
    program.wait_for("Set Password")
    picture.take(program, "Set Password")


@scene(width=1000, height=640)
def calculator(program: Program, picture: Picture) -> None:
    program.press(*TOOLS_MENU, "c")
    program.wait_for("Calculator")
    program.type("1250.75")
    picture.take(program, "Calculator")


def run_report(program: Program, *keys: str) -> str:
    """Opens the reports, presses keys in the box of types, and runs. Returns the dialog's title."""
    title = "Reports - .*"
    program.press(*TOOLS_MENU, "r")
    program.wait_for(title)
    program.press(*keys, "alt+r")
    return title


# From the box of types to the first date, whose focus chooses the dates: the whole of a year.
TO_THE_DATES = ("Tab", "Tab", "Tab", "Tab")


@scene()
def report_statement(program: Program, picture: Picture) -> None:
    picture.take(program, run_report(program, *TO_THE_DATES))


@scene()
def report_category(program: Program, picture: Picture) -> None:
    # The box of categories is one stop more.
    picture.take(program, run_report(program, "Down", "Down", "Down", "Down", "Tab",
                                     *TO_THE_DATES))


@scene()
def report_notcleared(program: Program, picture: Picture) -> None:
    picture.take(program, run_report(program, "End", *TO_THE_DATES))


@scene(width=1000, height=720)
def report_preview(program: Program, picture: Picture) -> None:
    title = "Print Preivew - Quillmark Report"
    run_report(program, *TO_THE_DATES)
    program.press("alt+v")
    program.wait_for(title)
    picture.take(program, title)


@scene(files=())
def report_pdf(_: Program, picture: Picture) -> None:
    wine(str(BIN / "qmktool.exe"), "report", r"C:\Accounts\household.qmk", "--kind", "statement",
         "--from", "1/1/2004", "--to", "12/31/2004", "--pdf", r"C:\Accounts\statement.pdf")
    run("pdftoppm", "-r", "80", "-f", "1", "-l", "1", "-png", "-singlefile",
        str(ACCOUNTS / "statement.pdf"), str(picture.path.with_suffix("")))


PREVIEW = "Print Preivew.*"


def preview(program: Program, *keys: str) -> None:
    program.press("alt+f", "v")
    program.wait_for(PREVIEW)
    program.press(*keys)


@scene(width=1000, height=720)
def print_preview(program: Program, picture: Picture) -> None:
    preview(program)
    picture.take(program, PREVIEW)


@scene(width=1000, height=720)
def print_preview_large(program: Program, picture: Picture) -> None:
    preview(program, "shift+Tab", "End")  # from the Close button to the scales, the last of them
    picture.take(program, PREVIEW)


@scene(width=1000, height=720)
def print_preview_strip(program: Program, picture: Picture) -> None:
    """The second half of the sample's 14 pages shows the columns that the first has no room for."""
    preview(program, "shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab")  # to the page box
    program.type("8")
    program.press("Return")
    picture.take(program, PREVIEW)


@scene()
def page_setup(program: Program, picture: Picture) -> None:
    program.press("alt+f", "g")
    title = "Page Setup|Setup Page"  # Wine 8 words it otherwise than Windows
    program.wait_for(title)
    picture.take(program, title)


def begin_printing(program: Program) -> None:
    program.press("ctrl+p")
    program.wait_for("Print")
    run("xdotool", "key", "--clearmodifiers", "Return")


@scene()
def print_progress(program: Program, picture: Picture) -> None:
    begin_printing(program)
    picture.take_at_once(program, "Printing.*")


@scene()
def printed_page(program: Program, picture: Picture) -> None:
    before = Printer.printed()
    begin_printing(program)
    end = time.monotonic() + LIMIT_S
    while not (new := Printer.printed() - before):
        if time.monotonic() > end:
            sys.exit("take_pictures: nothing was printed")
        time.sleep(PAUSE_S)
    run("pdftoppm", "-r", "80", "-f", "1", "-l", "1", "-png", "-singlefile",
        str(new.pop()), str(picture.path.with_suffix("")))


# Topics of the help as a browser shows them.
TOPICS = {"help-topic": "qm_gettingstarted.htm"}
SETUP = "setup"


def take_topic(name: str, folder: Path) -> None:
    """Lets a browser draw a page of the help, which wants the pictures beside its own folder."""
    with tempfile.TemporaryDirectory() as stage:
        shutil.copytree(REPO / "help" / "html", Path(stage, "html"))
        shutil.copytree(REPO / "docs" / "images", Path(stage, "images"))
        picture = Path(stage, "picture.png")
        run("chromium", "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
            f"--user-data-dir={stage}/profile", f"--screenshot={picture}",
            "--window-size=820,1000", f"file://{stage}/html/{TOPICS[name]}")
        run("convert", str(picture), "-strip", "-type", "TrueColor", "-define",
            "png:color-type=2", "-define", "png:compression-level=9", str(folder / f"{name}.png"))


def take_setup(folder: Path) -> None:
    run(str(WINE), "--prepare", Installer.PRESET)
    installer = Installer()
    try:
        installer.press("alt+a")  # the licence is agreed to, and the page of choices comes
        Picture(folder / f"{SETUP}.png").take(installer, Installer.TITLE)
    finally:
        installer.end()


def take(name: str, folder: Path) -> None:
    if name in TOPICS:
        take_topic(name, folder)
    elif name == SETUP:
        take_setup(folder)
    else:
        take_scene(name, folder)
    print(f"{folder / name}.png")


def take_scene(name: str, folder: Path) -> None:
    width, height, flags, files, function = SCENES[name]
    program = Program(width, height, flags, files)
    try:
        function(program, Picture(folder / f"{name}.png"))
    finally:
        program.end()


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("-o", dest="folder", type=Path, default=REPO / "docs" / "images")
    parser.add_argument("--list", action="store_true", help="print the names of the scenes")
    parser.add_argument("scenes", nargs="*", metavar="SCENE")
    words = parser.parse_args()
    known = [*SCENES, *TOPICS, SETUP]
    if words.list:
        print("\n".join(known))
        return
    unknown = [name for name in words.scenes if name not in known]
    if unknown:
        parser.error(f"there is no scene '{unknown[0]}'")
    words.folder.mkdir(parents=True, exist_ok=True)
    # So that an end from outside ends the program and the display too.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    screen = Screen()
    printer = Printer()
    try:
        run(str(WINE), "--prepare", "win64")
        for name in words.scenes or known:
            take(name, words.folder)
    finally:
        printer.end()
        screen.end()


if __name__ == "__main__":
    main()
