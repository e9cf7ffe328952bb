"""qmktool's packages for Linux: they run where they were not built."""

import os
import shutil
import subprocess
import unittest
from pathlib import Path

from support import DEBIAN, LINUX_FILES, REPO, VERSION, PackageTestCase, output_of

# From the oldest on; the mirror has the last ones of these.
DEBIANS = ("jessie", "stretch", "buster", "bullseye", "bookworm", "trixie")
SAMPLE = REPO / "samples" / "household.qmk"
HELPER = "/usr/lib/apt/apt-helper"
# They end with the command, however it ends.
MOUNTS_OF_ITS_OWN = ("unshare", "--mount")


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

    def root_of(self, name: str, *options: str) -> Path:
        """A Debian of this name in a folder; skips where none can be made."""
        if os.geteuid() != 0:
            self.skipTest("only root can make another system's root")
        if not succeeds(REPO / "scripts/setup.sh", "debootstrap"):
            self.skipTest("debootstrap cannot be installed")
        mirror, root = self.mirror(), self.folder / "root"
        self.use_proxy_of_apt()
        # Unpacking alone needs no mounts.
        mounts = () if "--foreign" in options else MOUNTS_OF_ITS_OWN
        if not succeeds(*mounts, "true"):
            self.skipTest("this machine does not allow a process mounts of its own")
        if not succeeds(*mounts, "debootstrap", "--variant=minbase", *options, name, root, mirror):
            self.skipTest(f"debootstrap cannot make a root of {name} here")
        return root

    def oldest_debian(self) -> str:
        """The name of the oldest Debian that the mirror has."""
        mirror = self.mirror()
        self.use_proxy_of_apt()
        for name in DEBIANS:
            if succeeds(HELPER, "download-file", f"{mirror}dists/{name}/Release",
                        self.folder / "Release"):
                return name
        self.skipTest(f"the mirror {mirror} cannot be reached, or has no Debian that is known here")

    def names_in(self, root: Path) -> set[str]:
        """All that is there but what a system notes down for itself."""
        return {name for name in (str(path.relative_to(root)) for path in root.rglob("*"))
                if not name.startswith(("var/cache/", "var/lib/dpkg/", "var/log/"))}

    def test_the_archive_runs_on_an_old_system(self) -> None:
        root = self.root_of(self.oldest_debian(), "--foreign")
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

    def test_the_debian_package_comes_and_goes_without_a_trace(self) -> None:
        root = self.root_of("bookworm", "--include=man-db,bash-completion,libexpat1,libhpdf-2.3.0")
        shutil.copy(DEBIAN, root / "qmktool.deb")
        before = self.names_in(root)

        def inside(*command: str) -> str:
            return output_of("chroot", root, *command,
                             env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C.UTF-8"})

        inside("dpkg", "-i", "/qmktool.deb")
        self.assertEqual({name for name in self.names_in(root) - before
                          if not (root / name).is_dir()},
                         {f"usr/{name}" for name in LINUX_FILES})
        self.assertIn(VERSION, inside("qmktool", "--version"))
        self.assertRegex(inside("qmktool", "info", "/usr/share/doc/qmktool/household.qmk"),
                         r"Transactions +447")
        self.assertRegex(inside("man", "qmktool"), r"(?s)\AQMKTOOL\(1\).*\bqmktool convert IN OUT")
        completion = ". /usr/share/bash-completion/bash_completion; __load_completion qmktool; "
        self.assertEqual(inside("bash", "-c", completion + "complete -p qmktool").split()[-1],
                         "qmktool")
        inside("dpkg", "-r", "qmktool")
        self.assertEqual(self.names_in(root), before)
        self.assertNotIn("qmktool", inside("dpkg-query", "-W"))

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
