"""What the tests of the packages share: where the packages are, and Windows programs under Wine.

The packages of build/package are tested as they are; scripts/testpackages.py makes them before.
"""

import fcntl
import os
import pty
import re
import select
import shutil
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest
import zipfile
from collections.abc import Callable, Iterator
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
PACKAGES = REPO / "build" / "package"
WORK = REPO / "build" / "package-test"
VERSION = re.search(r"^project\(Quillmark VERSION ([0-9.]+)",
                    (REPO / "CMakeLists.txt").read_text(encoding="utf-8"), re.MULTILINE)[1]
MARKS = {"win32": "", "win64": "-x64"}
TARBALL = PACKAGES / f"qmktool-{VERSION}-linux-x86_64.tar.gz"
DEBIAN = PACKAGES / f"qmktool_{VERSION}_amd64.deb"
PROGRAMS = ["qmktool.exe", "quillmark.exe"]
WINDOWS_FILES = sorted(["LICENSE.txt", "README.txt", "THIRD-PARTY-NOTICES.txt", "household.qmk",
                        "quillmark.chm", *PROGRAMS])
LINUX_FILES = sorted(["bin/qmktool", "share/bash-completion/completions/qmktool",
                      "share/man/man1/qmktool.1",
                      *(f"share/doc/qmktool/{name}"
                        for name in ("LICENSE", "THIRD-PARTY-NOTICES.md", "household.qmk"))])
LIMIT_S = 120


def setup_of(preset: str) -> Path:
    return PACKAGES / f"quillmark-{VERSION}{MARKS[preset]}-setup.exe"


def zip_of(preset: str) -> Path:
    return PACKAGES / f"quillmark-{VERSION}{MARKS[preset]}-portable.zip"


def files_below(folder: Path) -> list[str]:
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*")
                  if path.is_file() or path.is_symlink())


def output_of(*command: Path | str, **options: object) -> str:
    """What a command prints on both streams; one that fails is an error that tells it."""
    result = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8",
                            errors="replace", check=False, **{"timeout": LIMIT_S, **options})
    if result.returncode != 0:
        raise AssertionError(f"{command}: code {result.returncode}\n{result.stdout}")
    return result.stdout


def wait_until(what: str, is_so: Callable[[], object], limit: float = LIMIT_S) -> None:
    end = time.monotonic() + limit
    while not is_so():
        if time.monotonic() > end:
            raise AssertionError(f"waited {limit} s in vain until {what}")
        time.sleep(0.2)


class PackageTestCase(unittest.TestCase):
    """A test with a folder of its own, which is gone afterwards."""

    maxDiff = 4000

    def setUp(self) -> None:
        WORK.mkdir(parents=True, exist_ok=True)
        self.folder = Path(tempfile.mkdtemp(dir=WORK))
        self.addCleanup(shutil.rmtree, self.folder)

    def unpacked_zip(self, preset: str, name: str = "zip") -> Path:
        folder = self.folder / name
        with zipfile.ZipFile(zip_of(preset)) as archive:
            archive.extractall(folder)
        return folder

    def unpacked_tarball(self) -> Path:
        output_of("tar", "-C", self.folder, "-xzf", TARBALL)
        return self.folder / TARBALL.name.removesuffix(".tar.gz")


class Wine:
    """A Wine prefix and a display of these tests' own, as a user without settings has them."""

    def __init__(self, preset: str) -> None:
        self.preset = preset
        self.prefix = REPO / "build" / f"wine-{preset}-package"
        shutil.rmtree(self.prefix, ignore_errors=True)
        self.screen = subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        number = self.screen.stdout.readline().decode().strip()
        self.environment = os.environ | {"DISPLAY": f":{number}", "QUILLMARK_WINE_SLOT": "package"}
        output_of(REPO / "scripts/wine.sh", "--prepare", preset, env=self.environment)
        self.drive = self.prefix / "drive_c"

    def end(self) -> None:
        subprocess.run([REPO / "scripts/wine.sh", "--end", self.preset], env=self.environment,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=False)
        wait_until("all that was started has ended", lambda: not self.processes())
        self.screen.terminate()
        self.screen.wait()
        self.screen.stdout.close()
        shutil.rmtree(self.prefix, ignore_errors=True)
        self.prefix.with_name(self.prefix.name + ".lock").unlink(missing_ok=True)

    def processes(self, part: str = "") -> list[Path]:
        """What runs in the prefix and has this text in its command line."""
        mark = f"WINEPREFIX={self.prefix}\0".encode()
        return [process for process in Path("/proc").glob("[0-9]*")
                if mark in file_of(process, "environ") and
                part.encode() in file_of(process, "cmdline")]

    def start(self, *words: Path | str) -> subprocess.Popen:
        """Starts a program; the caller waits for it."""
        return subprocess.Popen([REPO / "scripts/wine.sh", self.preset, *map(self.name_of, words)],
                                env=self.environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def run(self, *words: Path | str) -> int:
        """Runs a program to its end; returns its exit code."""
        return self.start(*words).wait(LIMIT_S)

    def output_of(self, *words: Path | str) -> str:
        """What a program prints on both streams."""
        with tempfile.TemporaryFile(dir=WORK) as out:
            subprocess.run([REPO / "scripts/wine.sh", self.preset, *map(self.name_of, words)],
                           env=self.environment, stdin=subprocess.DEVNULL, stdout=out, stderr=out,
                           timeout=LIMIT_S, check=False)
            out.seek(0)
            return out.read().decode("utf-8", "replace").replace("\r\n", "\n")

    def name_of(self, word: Path | str) -> str:
        """A file's name as Windows has it; other words stay."""
        if not isinstance(word, Path):
            return word
        if word.is_relative_to(self.drive):
            return "C:\\" + str(word.relative_to(self.drive)).replace("/", "\\")
        return "Z:" + str(word).replace("/", "\\")

    def console_output_of(self, *words: Path | str) -> str:
        """What a program shows in a console, which Wine draws on a terminal."""
        terminal, inner = pty.openpty()
        rows_and_columns = struct.pack("4H", 100, 150, 0, 0)
        fcntl.ioctl(inner, termios.TIOCSWINSZ, rows_and_columns)
        with open(terminal, "rb", buffering=0) as stream:
            with open(inner, "r+b", buffering=0) as side:
                program = subprocess.Popen(
                    [REPO / "scripts/wine.sh", self.preset, *map(self.name_of, words)],
                    env=self.environment | {"TERM": "xterm"}, stdin=side, stdout=side, stderr=side,
                    start_new_session=True)
            shown, end = b"", time.monotonic() + LIMIT_S
            # The last of it may come after the program has ended.
            while select.select([stream], [], [], 0.5)[0] or program.poll() is None:
                if time.monotonic() > end:
                    program.kill()
                if select.select([stream], [], [], 0)[0]:
                    try:
                        shown += stream.read(65536)
                    except OSError:  # nobody has the other side any more
                        break
            program.wait(LIMIT_S)
        return re.sub(r"\x1b\[[0-9;?]*[A-Za-z]|\r", "", shown.decode("utf-8", "replace"))

    def registry(self, key: str) -> dict[tuple[str, str], str]:
        """All values below a key by their key and name, as a .reg file writes them."""
        file = WORK / "registry.reg"
        file.unlink(missing_ok=True)
        self.run("regedit", "/E", file, key)
        if not file.exists():
            return {}
        return dict(values_of(file.read_text(encoding="utf-16")))

    def is_running(self) -> bool:
        # The tasklist of Wine 8 lists nothing.
        return any(file_of(process, "cmdline").partition(b"\0")[0].endswith(b"quillmark.exe")
                   for process in self.processes("quillmark.exe"))

    def close_program(self) -> None:
        """As its user would: the program gets to ask."""
        self.run("taskkill", "/IM", "quillmark.exe")
        wait_until("the program has closed", lambda: not self.is_running())

    def has_window(self, title: str) -> bool:
        """Whether a window's title begins so."""
        tree = subprocess.run(["xwininfo", "-root", "-tree"], env=self.environment, check=True,
                              capture_output=True, encoding="utf-8", errors="replace").stdout
        return f'"{title}' in tree


def file_of(process: Path, name: str) -> bytes:
    try:
        return (process / name).read_bytes()
    except OSError:  # it has ended, or is another user's
        return b""


def values_of(text: str) -> Iterator[tuple[tuple[str, str], str]]:
    key = ""
    for line in text.replace("\\\n", "").splitlines():
        if line.startswith("["):
            key = line[1:-1]
        elif match := re.match(r'(@|"(?:[^"\\]|\\.)*")=(.*)', line):
            yield (key, match[1].strip('"')), match[2]


def wine_for(preset: str) -> Wine:
    """Skips where there is no Wine for the preset's programs."""
    if preset == "win32":
        code = subprocess.run([REPO / "scripts/setup.sh", "wine32"], stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                              encoding="utf-8", check=False)
        if code.returncode != 0:
            raise unittest.SkipTest((code.stderr.strip().splitlines() or ["no reason given"])[-1])
    return Wine(preset)
