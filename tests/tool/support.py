"""What the tests of qmktool share: starting the program, and account files made for a test.

The environment variable QMKTOOL names the program, as a command line that is split like a shell
would; relative words are looked up in the repository. Without it, the native build is tested. The
tests that need a POSIX system under the program are skipped when its name ends in .exe, and of
long tables only a few cases are tried there: a start takes long under Wine, and what these tables
are about is the portable code, the same in every build.
"""

import contextlib
import json
import os
import shlex
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
from dataclasses import dataclass
from pathlib import Path
from typing import Any, BinaryIO, Iterable, Iterator, Mapping, NamedTuple
from unittest import mock

REPO = Path(__file__).resolve().parents[2]
SCRIPTS = REPO / "scripts"
SAMPLE = REPO / "samples" / "household.qmk"
ONE_RECORD = REPO / "tests" / "tool" / "one_record.qif"

sys.dont_write_bytecode = True
sys.path.insert(0, str(SCRIPTS))
import make_sample  # noqa: E402  (found only through the path above)

PROGRAM = shlex.split(os.environ.get("QMKTOOL") or "build/native/bin/qmktool")
PROGRAM = [str(REPO / word) if (REPO / word).exists() else word for word in PROGRAM]
IS_WINDOWS = PROGRAM[-1].lower().endswith(".exe")
UNDER_WINE = IS_WINDOWS and os.name == "posix"
IS_ROOT = os.name == "posix" and os.geteuid() == 0

DONE, REFUSED, USAGE = 0, 1, 2
OLD_BYTES = b"what was there before"
LIMIT_S = 120
FEW = 4
NOBODY = 65534
COMMANDS = ("info", "list", "check", "convert", "import")

V1_0, V1_1, V2_0 = make_sample.FORMATS.values()
PREFIX_SIZE = 16
FRONT_SIZE = PREFIX_SIZE + make_sample.HEADER_SIZE + 4

# The names of the fields of the header, in the order of the file and of make_sample.HEADER_FIELDS
HEADER_KEYS = (
    "szAccountNumber", "dtOpened", "fMinimumBalance", "bReadOnly", "szPassword", "szBankName",
    "szBankAddress", "szBankCity", "szBankState", "szBankZip", "szBankPhone", "szBankHomepage",
    "szHolderName", "szHolderAddress", "szHolderCity", "szHolderState", "szHolderZip",
    "szHolderPhone", "bGridLines", "bShowDate", "bShowNumber", "bShowDescription", "bShowDebit",
    "bShowCredit", "bShowBalance", "bShowMemo", "bShowTag", "lWidthDate", "lWidthNumber",
    "lWidthDescription", "lWidthDebit", "lWidthCredit", "lWidthBalance", "lWidthMemo", "lWidthTag",
    "lFontStyle", "lFontColor", "szFontFace", "lFontSize", "bShadedLines", "bShowCleared",
    "lWidthCleared", "bShowCategory", "lWidthCategory", "lDisplayPeriod", "dtPeriodFrom",
    "dtPeriodTo",
)
FIELD_BY_KEY = dict(zip(HEADER_KEYS, make_sample.HEADER_FIELDS, strict=True))

posix_only = unittest.skipIf(
    IS_WINDOWS, "needs a POSIX program: its locks, pipes, links, limits and users")


class Day(NamedTuple):
    """A date that need not exist in the calendar. Dates compare by year, month and day."""
    year: int
    month: int
    day: int


@dataclass(frozen=True)
class Entry:
    """A transaction as it is written to a file, valid or not."""
    type: int = 1
    day: Day = Day(2004, 3, 14)
    number: int = 1000
    amount: float = 10.0
    flags: int = 0
    cleared: Day | None = None  # None: the day itself
    description: bytes = b"Refund"
    memo: bytes = b""
    category: bytes = b""

    def encode(self, version: int) -> bytes:
        transaction = make_sample.Transaction(
            make_sample.TransactionType(self.type, 0), self.day, self.number, self.amount,
            self.flags, self.cleared or self.day, self.description, self.memo, self.category)
        return transaction.encode(version)


# make_sample.py refuses values that a reader does not get back unchanged. Tests need such values.
ANY_VALUE = {
    "require_kept": lambda region, what: None,
    "pack_amount": lambda amount: struct.pack("<f", amount),
}
RAW_PACKERS = {
    "text": lambda text, size: text.ljust(size, b"\0"),
    "date": lambda day, size: make_sample.pack_date(day),
    "amount": lambda amount, size: struct.pack("<f", amount),
    "flag": lambda flag, size: struct.pack("<B", flag),
    "signed": lambda number, size: struct.pack("<i", number),
    "unsigned": lambda number, size: struct.pack("<I", number),
}


class RawHeader(make_sample.Header):
    """A header whose fields take any value of their kind; texts are bytes, dates a Day."""

    def put_raw(self, key: str, value: Any) -> None:
        field = FIELD_BY_KEY[key]
        packed = RAW_PACKERS[field.kind](value, field.size)
        assert len(packed) == field.size, f"{key} does not take {value!r}"
        self._block[field.offset:field.offset + field.size] = packed


def make_account(entries: Iterable[Entry] = (), version: int = V2_0,
                 header: Mapping[str, Any] | None = None) -> bytes:
    """The bytes of an account file; the header's fields not named are those of a new account."""
    with mock.patch.multiple(make_sample, **ANY_VALUE):
        account = make_sample.Account(version)
        account.header = RawHeader()
        for key, value in (header or {}).items():
            account.header.put_raw(key, value)
        account.entries = [entry.encode(version) for entry in entries]
        return account.encode()


def with_number(data: bytes, offset: int, number: int) -> bytes:
    """The same bytes with the four at the offset replaced by a number."""
    return data[:offset] + struct.pack("<I", number & 0xFFFFFFFF) + data[offset + 4:]


def program_path(path: Path | str) -> str:
    """The name of a file in the form that the program under test takes."""
    if UNDER_WINE and isinstance(path, Path) and path.is_absolute():
        return "Z:" + str(path).replace("/", "\\")
    return str(path)


class Result(NamedTuple):
    words: tuple[str, ...]
    code: int
    out: bytes
    err: bytes

    def json(self) -> Any:
        return load_json(self.out)

    def lines(self) -> list[bytes]:
        return self.out.split(b"\n")[:-1]

    def __str__(self) -> str:
        return f"{shlex.join(self.words)}: code {self.code}, {self.err!r}, {self.out[:2000]!r}"


def run(*words: Path | str, **options: Any) -> Result:
    """Starts the program with these words; the options are those of subprocess.run."""
    arguments = tuple(map(program_path, words))
    result = start(arguments, options)
    if UNDER_WINE and (result.code, result.out, result.err) == (1, b"", b""):
        # qmktool never ends with code 1 without a message. On a machine under load, Wine 8 does in
        # a few of ten thousand starts, because it fails to start the program.
        print(f"Wine did not start {result}; it is started once more", file=sys.__stderr__)
        result = start(arguments, options)
    return result


def start(arguments: tuple[str, ...], options: dict[str, Any]) -> Result:
    # The output goes to files, not to pipes. Wine's services run on after the program has ended,
    # and would keep a pipe open.
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
        settings = {"stdin": subprocess.DEVNULL, "stdout": out, "stderr": err, "timeout": LIMIT_S,
                    "check": False, **options}
        code = subprocess.run([*PROGRAM, *arguments], **settings).returncode
        return Result(arguments, code, written_to(out), written_to(err))


def written_to(stream: BinaryIO) -> bytes:
    """What the program wrote, with the line ends of all systems alike."""
    stream.seek(0)
    data = stream.read()
    return data.replace(b"\r\n", b"\n") if IS_WINDOWS else data


def load_json(text: bytes, **options: Any) -> Any:
    """Parses strictly: ASCII, no NaN or Infinity, no name twice in one object."""
    return json.loads(text.decode("ascii"), parse_constant=refuse_constant,
                      object_pairs_hook=unique_names, **options)


def refuse_constant(name: str) -> None:
    raise ValueError(f"{name} is not JSON")


def unique_names(pairs: list[tuple[str, Any]]) -> dict[str, Any]:
    names = [name for name, _ in pairs]
    if len(set(names)) < len(names):
        raise ValueError(f"a name stands twice in {names}")
    return dict(pairs)


def cases(table: Iterable[Any]) -> list[Any]:
    """All cases of a table. For a Windows program a few of them, with the first and the last."""
    every = list(table)
    if not IS_WINDOWS or len(every) <= FEW:
        return every
    return [every[index * (len(every) - 1) // (FEW - 1)] for index in range(FEW)]


class ToolTestCase(unittest.TestCase):
    """A test with a folder of its own, which is removed afterwards."""

    maxDiff = 4000

    def setUp(self) -> None:
        self.folder = Path(tempfile.mkdtemp(prefix="qmktool-"))
        self.addCleanup(shutil.rmtree, self.folder)
        # Some tests run the program as another user.
        self.folder.chmod(0o755)

    def write(self, name: str, data: bytes) -> Path:
        path = self.folder / name
        path.write_bytes(data)
        return path

    def write_account(self, name: str = "account.qmk", entries: Iterable[Entry] = (),
                      **options: Any) -> Path:
        return self.write(name, make_account(entries, **options))

    def words_for(self, command: str, file: Path | str, out: str = "refused-out.qmk") -> list[Any]:
        """Runs the command with this account. convert gets an OUT that does not exist; import gets
        a file of one transaction and --dry-run."""
        if command == "import":
            return [command, ONE_RECORD, file, "--dry-run"]
        return [command, file] + ([self.folder / out] if command == "convert" else [])

    def assert_done(self, result: Result) -> Result:
        self.assertEqual((result.code, result.err), (DONE, b""), str(result))
        return result

    def assert_one_error_line(self, result: Result, code: int) -> None:
        self.assertEqual(result.code, code, str(result))
        self.assertRegex(result.err, rb"\Aqmktool: [^\n]+\n\Z", str(result))

    def assert_usage(self, result: Result) -> None:
        self.assert_one_error_line(result, USAGE)
        self.assertEqual(result.out, b"", str(result))

    def assert_refused(self, result: Result, file: Path | str, reason: str = "") -> None:
        """The program must refuse: it prints one line that names the file and the reason, and
        nothing else."""
        self.assert_one_error_line(result, REFUSED)
        self.assertEqual(result.out, b"", str(result))
        name = os.fsencode(program_path(file))
        self.assertIn(name, result.err, str(result))
        # Besides the name, the line must have a reason.
        self.assertRegex(result.err, rb"': [a-z][^\n]{9,}\n\Z", str(result))
        self.assertIn(reason.encode(), result.err, str(result))

    def names_in_folder(self, folder: Path | None = None) -> list[str]:
        return sorted(os.listdir(folder or self.folder))

    @contextlib.contextmanager
    def small_volume(self) -> Iterator[Path]:
        """A folder that is a volume of 256 KiB. Skips the test if none can be mounted."""
        folder = self.folder / "volume"
        folder.mkdir()
        mount = ["mount", "-t", "tmpfs", "-o", "size=256k,mode=755", "tmpfs", str(folder)]
        try:
            subprocess.run(mount, check=True, capture_output=True)
        except (OSError, subprocess.CalledProcessError):
            self.skipTest("a small volume cannot be mounted here")
        try:
            yield folder
        finally:
            subprocess.run(["umount", str(folder)], check=True)

    def options_of_other_user(self) -> dict[str, Any]:
        """Options of `run` for a user without special rights. Skips the test if there is no such
        user."""
        if not IS_ROOT:
            return {}
        options = {"user": NOBODY, "group": NOBODY, "extra_groups": []}
        try:
            code = run("--version", **options).code
        except OSError:
            code = REFUSED
        if code != DONE:
            self.skipTest("the program cannot be started as another user")
        return options
