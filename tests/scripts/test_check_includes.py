"""The check of includes between folders, on small trees of its own."""

import graphlib
import subprocess
import sys
import tempfile
import unittest
from collections.abc import Iterator
from contextlib import contextmanager
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parents[2] / "scripts"
sys.path.insert(0, str(SCRIPTS))

from check_includes import ROOMS, findings  # noqa: E402


@contextmanager
def tree_of(files: dict[str, str]) -> Iterator[Path]:
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            path = Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        yield Path(folder)


def findings_in(files: dict[str, str]) -> list[str]:
    with tree_of(files) as root:
        return findings(root)


class CheckIncludes(unittest.TestCase):
    def test_allowed_arrows_pass(self) -> None:
        files = {
            "base/vtext.h": "#include <string>\n",
            "account/qmdate.cpp": '#include "account/qmdate.h"\n#include "base/vtext.h"\n',
            "shell/main.cpp": '#include "register/qmregisterwindow.h"\n',
            "tests/core/account/qmdate_test.cpp": '#include "account/qmdate.h"\n',
            "tests/googletest_notification.h": "#include <windows.h>\n",
        }
        self.assertEqual(findings_in(files), [])

    def test_planted_arrows_fail(self) -> None:
        for name, included in (
            ("base/vtext.cpp", "toolkit/vwindow.h"),
            ("account/qmaccount.cpp", "register/qmperiod.h"),
            ("toolkit/vwindow.cpp", "resources/resource.h"),
            ("register/qmregisterwindow.cpp", "exchange/qmexchange.h"),
            ("register/qmregisterwindow.cpp", "shell/qmmainframe.h"),
            ("reports/qmreport.cpp", "register/qmregistermodel.h"),
            ("resources/quillmark.rc", "shell/qmbars.h"),
            ("qmktool/main.cpp", "toolkit/vwindow.h"),
            ("account/qmdate.cpp", "tests/support/support.h"),
            ("tests/core/base/vtext_test.cpp", "toolkit/vwindow.h"),
            ("tests/e2e/program.cpp", "tests/win/support.h"),
            ("shell/main.cpp", "nowhere/nothing.h"),
            ("shell/main.cpp", "qmbars.h"),
        ):
            with self.subTest(f"{name} -> {included}"):
                self.assertEqual(
                    findings_in({name: f'// c\n#include "{included}"\n'}),
                    [f"{name}:2: {self.room(name)} must not include {included}"])

    @staticmethod
    def room(name: str) -> str:
        parts = name.split("/")
        return "/".join(parts[:2] if parts[0] == "tests" else parts[:1])

    def test_an_unknown_folder_fails(self) -> None:
        for name in ("attic/old.cpp", "main.cpp", "tests/attic/old.cpp"):
            with self.subTest(name):
                self.assertEqual(
                    findings_in({name: ""}),
                    [f"{name}:0: stands in a folder that check_includes.py does not know"])

    def test_the_exit_code_tells(self) -> None:
        for included, code in (("account/qmdate.h", 0), ("shell/qmbars.h", 1)):
            with tree_of({"account/qmdate.cpp": f'#include "{included}"\n'}) as root:
                run = subprocess.run([sys.executable, "-B", SCRIPTS / "check_includes.py", root],
                                     stdout=subprocess.DEVNULL, check=False)
                self.assertEqual(run.returncode, code, included)

    def test_no_circle_is_allowed(self) -> None:
        graph = {room: allowed.split() for room, allowed in ROOMS.items()}
        graphlib.TopologicalSorter(graph).prepare()


if __name__ == "__main__":
    unittest.main()
