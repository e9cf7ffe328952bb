"""qmktool's packages for Linux: they run where they were not built."""

import os
import shutil
import subprocess
import unittest
from pathlib import Path

from support import DEBIAN, REPO, PackageTestCase, output_of

# From the oldest on; the mirror has the last ones of these.
DEBIANS = ("jessie", "stretch", "buster", "bullseye", "bookworm", "trixie")
SAMPLE = REPO / "samples" / "household.qmk"
HELPER = "/usr/lib/apt/apt-helper"


def succeeds(*command: str | Path) -> bool:
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, check=False).returncode == 0


class LinuxTests(PackageTestCase):

    def mirror(self) -> str:
        """The address from which this machine gets Debian's packages."""
        found = output_of("apt-get", "indextargets", "--format", "$(REPO_URI)",
                          "Created-By: Packages", "Origin: Debian", "Label: Debian",
                          "Component: main").split()
        if not found:
            self.skipTest("apt knows no mirror of Debian")
        return found[0]

    def use_proxy_of_apt(self) -> None:
        proxy = output_of("apt-config", "dump", "--format", "%v%n", "Acquire::http::Proxy").strip()
        if proxy and proxy != "DIRECT":
            os.environ.setdefault("http_proxy", proxy)

    def oldest_root(self) -> Path:
        """The unpacked packages of the oldest Debian that the mirror has."""
        if os.geteuid() != 0:
            self.skipTest("only root can make another system's root")
        if not succeeds(REPO / "scripts/setup.sh", "debootstrap"):
            self.skipTest("debootstrap cannot be installed")
        mirror, root = self.mirror(), self.folder / "root"
        self.use_proxy_of_apt()
        for name in DEBIANS:
            if not succeeds(HELPER, "download-file", f"{mirror}dists/{name}/Release",
                            self.folder / "Release"):
                continue
            if not succeeds("debootstrap", "--foreign", "--variant=minbase", name, root, mirror):
                self.skipTest(f"debootstrap cannot make a root of {name} here")
            return root
        self.skipTest(f"the mirror {mirror} cannot be reached, or has no Debian that is known here")

    def test_the_archive_runs_on_an_old_system(self) -> None:
        root = self.oldest_root()
        shutil.copytree(self.unpacked_tarball(), root / "qmktool")
        self.assertTrue((root / "etc/debian_version").exists())
        told = output_of("chroot", root, "/qmktool/bin/qmktool", "info",
                         "/qmktool/share/doc/qmktool/household.qmk")
        self.assertRegex(told, r"Transactions +447")
        self.assertRegex(output_of("chroot", root, "/qmktool/bin/qmktool", "report",
                                   "/qmktool/share/doc/qmktool/household.qmk", "--kind", "tax",
                                   "--month", "4/2004"), "Total Tax Deductions")
        output_of("chroot", root, "/qmktool/bin/qmktool", "convert",
                  "/qmktool/share/doc/qmktool/household.qmk", "/a.xml")
        output_of("chroot", root, "/qmktool/bin/qmktool", "convert", "/a.xml", "/a.qmk")
        output_of("chroot", root, "/qmktool/bin/qmktool", "report", "/a.qmk", "--kind", "expenses",
                  "--month", "4/2004", "--pdf", "/a.pdf")
        self.assertTrue((root / "a.pdf").read_bytes().startswith(b"%PDF"))

    def test_the_archive_needs_no_library(self) -> None:
        program = self.unpacked_tarball() / "bin/qmktool"
        self.assertNotIn("NEEDED", output_of("readelf", "-d", program))
        self.assertRegex(output_of(program, "info", SAMPLE), r"Transactions +447")

    def test_the_program_of_the_debian_package_runs_here(self) -> None:
        output_of("dpkg-deb", "-x", DEBIAN, self.folder)
        self.assertRegex(output_of(self.folder / "usr/bin/qmktool", "info", SAMPLE),
                         r"Transactions +447")

    def test_the_manual_page_has_no_mistake(self) -> None:
        page = self.unpacked_tarball() / "share/man/man1/qmktool.1"
        for command in (("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z"),
                        ("mandoc", "-Tlint")):
            result = subprocess.run([*command, page], check=False, capture_output=True,
                                    encoding="utf-8", errors="replace")
            found = result.stderr + (result.stdout if command[0] == "mandoc" else "")
            self.assertEqual((result.returncode, found), (0, ""), command)


if __name__ == "__main__":
    unittest.main()
