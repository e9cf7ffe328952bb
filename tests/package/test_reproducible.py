"""A second build in another folder: it gives the same bytes, and is signed where that is asked for."""

import os
import shutil
import subprocess
import unittest
import zipfile
from pathlib import Path

from support import (DEBIAN, MARKS, PACKAGES, PROGRAMS, REPO, TARBALL, PackageTestCase,
                     files_below, output_of, setup_of, zip_of)

SOURCES_OF_LIBRARIES = ("expat-src", "libharu-src")

# Stands in for a program that signs: it notes the name of the file, and adds a mark to the file. With
# a number in REFUSED it refuses the file of that number.
SIGNER = """#!/bin/sh
echo "$2" >>"$1/names"
[ "$(wc -l <"$1/names")" != "${REFUSED:-}" ] || exit 3
printf 'signed here' >>"$2"
"""
MARK = b"signed here"


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


class SecondBuildTests(PackageTestCase):

    @classmethod
    def setUpClass(cls) -> None:
        # No test has as much time as this takes.
        cls.second = REPO / "build" / "package-test" / "second"
        cls.addClassCleanup(shutil.rmtree, cls.second, ignore_errors=True)
        copy_sources(cls.second)
        # Where a cache of the compiler is in use, this tells less and takes less time.
        cls.made = cls.package("win32", "win64", "linux")
        if cls.made.returncode == 0:
            (cls.second / "build" / "package").rename(cls.second / "made")

    @classmethod
    def package(cls, *kinds: str, **environment: str) -> subprocess.CompletedProcess:
        return subprocess.run(
            ["nice", cls.second / "scripts/package.sh", *kinds], check=False,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            encoding="utf-8", errors="replace",
            env=os.environ | {"SOURCE_DATE_EPOCH": time_of_commit()} | environment)

    def package_signed(self, refused: int = 0) -> tuple[subprocess.CompletedProcess, list[str]]:
        """The packages of one kind, and the names of the files that were to be signed."""
        notes = self.folder / f"notes{refused}"
        notes.mkdir()
        signer = self.folder / "signer"
        signer.write_text(SIGNER, encoding="ascii")
        signer.chmod(0o755)
        result = self.package("win64", QUILLMARK_SIGN=f"{signer} {notes}", REFUSED=str(refused))
        return result, (notes / "names").read_text(encoding="utf-8").splitlines()

    def test_two_builds_are_alike(self) -> None:
        self.assertEqual(self.made.returncode, 0, self.made.stdout)
        windows = [of(preset) for preset in MARKS for of in (setup_of, zip_of)]
        for path in (*windows, TARBALL, DEBIAN):
            second = self.second / "made" / path.name
            self.assertTrue(second.read_bytes() == (PACKAGES / path.name).read_bytes(), path.name)

    def test_every_program_is_signed(self) -> None:
        result, names = self.package_signed()
        self.assertEqual(result.returncode, 0, result.stdout)
        setup = self.second / "build" / "package" / setup_of("win64").name
        self.assertEqual([Path(name).name for name in names[:2]], PROGRAMS)
        # The uninstaller has a name for the moment: it comes to be as a part of the installer.
        self.assertEqual(len(names), 4)
        self.assertEqual(names[3], str(setup))
        self.assertTrue(setup.read_bytes().endswith(MARK))
        with zipfile.ZipFile(setup.with_name(zip_of("win64").name)) as archive:
            for name in PROGRAMS:
                self.assertTrue(archive.read(name).endswith(MARK), name)
        output_of("7z", "x", "-y", f"-o{self.folder / 'setup'}", setup)
        for name in (*PROGRAMS, "uninstall.exe"):
            self.assertTrue((self.folder / "setup" / name).read_bytes().endswith(MARK), name)

    def test_without_a_signature_there_is_no_package(self) -> None:
        for number, what in ((1, "the first program"), (3, "the uninstaller"), (4, "the installer")):
            result, names = self.package_signed(refused=number)
            self.assertEqual(len(names), number, what)
            self.assertNotEqual(result.returncode, 0, what)
            self.assertIn("could not", result.stdout, what)
            self.assertIn(" sign ", result.stdout, what)
            made = files_below(self.second / "build" / "package")
            self.assertEqual(made, [], what)


if __name__ == "__main__":
    unittest.main()
