"""What a release consists of: its files, what is in each, and that what they promise holds."""

import hashlib
import json
import os
import re
import struct
import subprocess
import sys
import tarfile
import unittest
import zipfile
from pathlib import Path

from support import (DEBIAN, LINUX_FILES, MARKS, PACKAGES, PROGRAMS, REPO, TARBALL, VERSION,
                     WINDOWS_FILES, PackageTestCase, files_below, output_of, setup_of, zip_of)

sys.path.insert(0, str(REPO / "scripts"))
import check_binaries  # noqa: E402  (found only through the path above)

# Both are of Windows 8. Of the second one the headers of MinGW-w64 know that.
NEW_FUNCTION, GUARDED_FUNCTION = "GetSystemTimePreciseAsFileTime", "CreateFile2"
BUILT_IN = ("Expat", "libharu", "MinGW-w64", "GCC", "GNU C library")


def check(*programs: Path) -> str:
    """What check_binaries.py says of programs."""
    return subprocess.run([sys.executable, "-B", REPO / "scripts/check_binaries.py", *programs],
                          stdout=subprocess.PIPE, encoding="utf-8", check=False).stdout


class ReleaseTests(PackageTestCase):

    def test_the_release_is_complete_and_its_hashes_are_right(self) -> None:
        setups_and_zips = [of(preset).name for of in (setup_of, zip_of) for preset in MARKS]
        self.assertEqual(files_below(PACKAGES), sorted([
            *setups_and_zips, TARBALL.name, DEBIAN.name, "quillmark.json", "SHA256SUMS",
            f"quillmark-{VERSION}.spdx", "LICENSE", "THIRD-PARTY-NOTICES.md"]))
        told = output_of("sha256sum", "--check", "--strict", "SHA256SUMS", cwd=PACKAGES)
        self.assertEqual(len(told.splitlines()), len(files_below(PACKAGES)) - 1)

    def test_the_picture_of_the_start_shows_the_version(self) -> None:
        picture = (REPO / "resources" / "art" / "splash.svg").read_text(encoding="utf-8")
        self.assertIn(f"version {VERSION}</title>", picture)

    def test_zips_hold_the_list_and_nothing_of_this_machine(self) -> None:
        for preset in MARKS:
            with zipfile.ZipFile(zip_of(preset)) as archive:
                self.assertEqual(archive.namelist(), WINDOWS_FILES)
                self.assertEqual(len({info.date_time for info in archive.infolist()}), 1)

    def test_installing_gives_the_list_of_the_packages(self) -> None:
        lists = {"win32": WINDOWS_FILES, "win64": WINDOWS_FILES, "native": LINUX_FILES}
        for preset, files in lists.items():
            folder = self.folder / preset
            output_of("cmake", "--install", REPO / "build" / preset, "--prefix", folder)
            self.assertEqual(files_below(folder), files, preset)

    def test_the_installer_of_the_64_bit_program_holds_the_files_of_its_zip(self) -> None:
        unpacked, folder = self.unpacked_zip("win64"), self.folder / "setup"
        output_of("7z", "x", "-y", f"-o{folder}", setup_of("win64"))
        for name in WINDOWS_FILES:
            self.assertEqual((folder / name).read_bytes(), (unpacked / name).read_bytes(), name)
        self.assertIn("uninstall.exe", files_below(folder))

    def test_texts_for_windows_have_its_line_ends(self) -> None:
        folder = self.unpacked_zip("win32")
        for name in ("README.txt", "LICENSE.txt", "THIRD-PARTY-NOTICES.txt"):
            data = (folder / name).read_bytes()
            self.assertEqual(data.count(b"\n"), data.count(b"\r\n"), name)
            self.assertGreater(data.count(b"\n"), 10, name)
        readme = (folder / "README.txt").read_text(encoding="ascii")
        self.assertIn(VERSION, readme)
        self.assertNotIn("@", readme)
        self.assertRegex(readme, r"settings[^.]*\s+kept\s+in\s+the\s+registry")

    def test_licence_and_notices_are_in_every_package(self) -> None:
        notices = (REPO / "THIRD-PARTY-NOTICES.md").read_text(encoding="utf-8")
        for name in BUILT_IN:
            self.assertIn(name, notices)
        licence = (REPO / "LICENSE").read_bytes()
        for preset in MARKS:
            folder = self.unpacked_zip(preset, preset)
            self.assertEqual((folder / "LICENSE.txt").read_bytes().replace(b"\r\n", b"\n"),
                             licence)
            self.assertEqual((folder / "THIRD-PARTY-NOTICES.txt").read_bytes()
                             .replace(b"\r\n", b"\n"), notices.encode())
        output_of("dpkg-deb", "-x", DEBIAN, self.folder / "deb")
        for folder in (self.unpacked_tarball(), self.folder / "deb" / "usr"):
            self.assertEqual((folder / "share/doc/qmktool/LICENSE").read_bytes(), licence)
            self.assertEqual((folder / "share/doc/qmktool/THIRD-PARTY-NOTICES.md").read_bytes(),
                             notices.encode())

    def test_the_linux_packages_hold_the_list(self) -> None:
        with tarfile.open(TARBALL) as archive:
            top = TARBALL.name.removesuffix(".tar.gz")
            self.assertEqual(sorted(member.name for member in archive if member.isfile()),
                             [f"{top}/{name}" for name in LINUX_FILES])
            self.assertEqual({(member.uid, member.gid) for member in archive}, {(0, 0)})
        output_of("dpkg-deb", "-x", DEBIAN, self.folder / "deb")
        self.assertEqual(files_below(self.folder / "deb" / "usr"), LINUX_FILES)
        control = output_of("dpkg-deb", "-f", DEBIAN)
        for line in ("Package: qmktool", f"Version: {VERSION}", "Architecture: amd64"):
            self.assertIn(line, control.splitlines())
        for library in ("libc6", "libexpat1", "libhpdf"):
            self.assertRegex(control, rf"Depends:.*\b{library}")

    def test_programs_do_not_tell_where_they_were_built(self) -> None:
        programs = [self.unpacked_zip(preset, preset) / name
                    for preset in MARKS for name in PROGRAMS]
        programs.append(self.unpacked_tarball() / "bin/qmktool")
        for program in programs:
            self.assertNotIn(str(REPO).encode(), program.read_bytes(), program)

    def test_the_manifest_for_scoop_names_the_zips(self) -> None:
        manifest = json.loads((PACKAGES / "quillmark.json").read_text(encoding="utf-8"))
        self.assertEqual(manifest["version"], VERSION)
        for bits, preset in (("32bit", "win32"), ("64bit", "win64")):
            entry = manifest["architecture"][bits]
            self.assertTrue(entry["url"].endswith("/" + zip_of(preset).name))
            self.assertEqual(entry["hash"], hashlib.sha256(zip_of(preset).read_bytes()).hexdigest())
        self.assertIn(manifest["bin"], WINDOWS_FILES)
        self.assertIn(manifest["shortcuts"][0][0], WINDOWS_FILES)

    def test_the_list_of_what_is_inside_names_every_file(self) -> None:
        text = (PACKAGES / f"quillmark-{VERSION}.spdx").read_text(encoding="utf-8")
        self.assertRegex(text, r"\ASPDXVersion: SPDX-2\.3\nDataLicense: CC0-1\.0\n")
        entries = dict(re.findall(r"^FileName: \./(\S+)$.*?^FileChecksum: SHA256: (\w+)$", text,
                                  re.MULTILINE | re.DOTALL))
        folders = {"windows-32": self.unpacked_zip("win32", "32"),
                   "windows-64": self.unpacked_zip("win64", "64"),
                   TARBALL.name.removesuffix(".tar.gz"): self.unpacked_tarball()}
        self.assertEqual(entries, {
            f"{name}/{file}": hashlib.sha256((folder / file).read_bytes()).hexdigest()
            for name, folder in folders.items() for file in files_below(folder)})
        ids = re.findall(r"^SPDXID: (\S+)$", text, re.MULTILINE)
        self.assertEqual(len(ids), len(set(ids)))
        for start, end in re.findall(r"^Relationship: (\S+) \w+ (\S+)$", text, re.MULTILINE):
            self.assertIn(start, ids)
            self.assertIn(end, ids)


class HardeningTests(PackageTestCase):
    """The programs are sound, and the check that says so sees each fault."""

    def spoiled(self, name: str, offset: int, data: bytes) -> Path:
        """A copy of the 64-bit program with other bytes behind its optional header's beginning."""
        program = bytearray((self.unpacked_zip("win64", name) / "quillmark.exe").read_bytes())
        begin = struct.unpack_from("<I", program, 60)[0] + 24 + offset
        program[begin:begin + len(data)] = data
        path = self.folder / f"{name}.exe"
        path.write_bytes(program)
        return path

    def test_the_programs_are_sound(self) -> None:
        for preset in MARKS:
            folder = self.unpacked_zip(preset, preset)
            self.assertEqual(check(*(folder / name for name in PROGRAMS)), "")
        output_of("dpkg-deb", "-x", DEBIAN, self.folder / "deb")
        self.assertEqual(check(self.unpacked_tarball() / "bin/qmktool",
                               self.folder / "deb/usr/bin/qmktool"), "")

    def test_each_fault_of_a_windows_program_is_seen(self) -> None:
        faults = {
            "lacks address-space randomization": (70, struct.pack("<H", 0x0120)),
            "lacks no execution of data": (70, struct.pack("<H", 0x0060)),
            "lacks high-entropy addresses": (70, struct.pack("<H", 0x0140)),
            "has no relocations": (152, bytes(8)),
            "tells the time of its build": (-16, struct.pack("<I", 1)),
            "section .text can be both written and executed":
                (240 + 36, struct.pack("<I", 0xE0000020)),
        }
        for number, (fault, (offset, data)) in enumerate(faults.items()):
            self.assertIn(fault, check(self.spoiled(f"program{number}", offset, data)))

    def test_an_import_that_is_too_new_is_seen(self) -> None:
        for compiler in ("i686-w64-mingw32-gcc-win32", "x86_64-w64-mingw32-gcc-win32"):
            program = self.folder / f"{compiler}.exe"
            source = self.folder / "program.c"
            source.write_text("#include <windows.h>\nint main(void) { FILETIME t; "
                              f"{NEW_FUNCTION}(&t); return (int)t.dwLowDateTime; }}\n", "ascii")
            output_of(compiler, "-D_WIN32_WINNT=0x0602", "-o", program, source)
            self.assertIn(f"imports kernel32.dll:{NEW_FUNCTION}", check(program))

    def test_the_list_of_imports_names_what_windows_7_has(self) -> None:
        # The C library is older than the numbers of Windows, and its headers know none.
        functions = sorted(name for dll, name in check_binaries.allowed_imports()
                           if dll != "msvcrt.dll")
        self.assertGreater(len(functions), 400)
        headers = ("windows", "commctrl", "commdlg", "shellapi", "shlobj", "winspool", "ddeml")
        source = self.folder / "functions.c"
        source.write_text("\n".join([
            *(f"#include <{name}.h>" for name in headers),
            *(f"void* p{name} = (void*)&{name};" for name in (*functions, GUARDED_FUNCTION))]), "ascii")
        result = subprocess.run(
            ["x86_64-w64-mingw32-gcc-win32", "-D_WIN32_WINNT=0x0601", "-DWINVER=0x0601",
             "-fsyntax-only", source], check=False, capture_output=True, encoding="utf-8",
            env=os.environ | {"LC_ALL": "C"})
        self.assertEqual(re.findall(r"'(\w+)' undeclared", result.stderr), [GUARDED_FUNCTION],
                         result.stderr)

    def test_each_fault_of_a_linux_program_is_seen(self) -> None:
        source = self.folder / "program.c"
        source.write_text("int main(int n, char** a) { char t[9]; "
                          "__builtin_sprintf(t, a[0], n); return t[0]; }\n", encoding="ascii")
        sound = ("-O1", "-w", "-fPIE", "-pie", "-fstack-protector-strong", "-Wl,-z,relro,-z,now")
        faults = {"": (), "is not position-independent": ("-no-pie", "-fno-pie"),
                  "can have its relocations written": ("-Wl,-z,lazy",),
                  "has an executable stack": ("-Wl,-z,execstack",),
                  "has no guarded stack": ("-fno-stack-protector",)}
        for number, (fault, options) in enumerate(faults.items()):
            program = self.folder / f"program{number}"
            output_of("cc", *sound, *options, "-o", program, source)
            said = check(program)
            self.assertIn(fault, said)
            self.assertEqual(bool(said), bool(fault), said)


if __name__ == "__main__":
    unittest.main()
