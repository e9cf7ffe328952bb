"""The same sources give the same bytes, in whatever folder they are built."""

import os
import shutil
import subprocess
import unittest
from pathlib import Path

from support import DEBIAN, PACKAGES, REPO, TARBALL, PackageTestCase, setup_of, zip_of

SOURCES_OF_LIBRARIES = ("expat-src", "libharu-src")


def copy_sources(folder: Path) -> None:
    """What Git knows or would, and the sources of libraries, which were fetched."""
    names = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                           cwd=REPO, check=True, capture_output=True).stdout.split(b"\0")
    for name in map(os.fsdecode, filter(None, names)):
        if (REPO / name).exists():
            (folder / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(REPO / name, folder / name)
    for name in SOURCES_OF_LIBRARIES:
        shutil.copytree(REPO / "build" / name, folder / "build" / name)


def time_of_commit() -> str:
    return os.environ.get("SOURCE_DATE_EPOCH") or subprocess.run(
        ["git", "log", "-1", "--format=%ct"], cwd=REPO, check=True, capture_output=True,
        encoding="ascii").stdout.strip()


class ReproducibleTests(PackageTestCase):

    @classmethod
    def setUpClass(cls) -> None:
        # No test has as much time as this takes.
        cls.second = REPO / "build" / "package-test" / "second"
        cls.addClassCleanup(shutil.rmtree, cls.second, ignore_errors=True)
        copy_sources(cls.second)
        # The 32-bit programs come from the same sources by the same rules.
        cls.made = subprocess.run(
            ["nice", cls.second / "scripts/package.sh", "win64", "linux"], check=False,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            encoding="utf-8", errors="replace",
            env=os.environ | {"SOURCE_DATE_EPOCH": time_of_commit()})

    def test_two_builds_are_alike(self) -> None:
        self.assertEqual(self.made.returncode, 0, self.made.stdout)
        for path in (setup_of("win64"), zip_of("win64"), TARBALL, DEBIAN):
            second = self.second / "build" / "package" / path.name
            self.assertTrue(second.read_bytes() == (PACKAGES / path.name).read_bytes(), path.name)


if __name__ == "__main__":
    unittest.main()
