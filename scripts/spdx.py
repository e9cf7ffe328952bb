#!/usr/bin/env python3
"""Prints an SPDX list (2.3, tag-value) of the files of all packages, with their checksums, and of the
building blocks that are linked into the programs, with the versions that are at hand here.

Usage: spdx.py VERSION FOLDER   (FOLDER holds the packages' files in folders)
"""

import hashlib
import os
import re
import subprocess
import sys
from dataclasses import dataclass
from datetime import datetime, timezone
from pathlib import Path

REPO = Path(__file__).resolve().parent.parent
PACKAGE_FOLDERS = ("windows-32", "windows-64", "qmktool-*")


@dataclass(frozen=True)
class Block:
    name: str
    licence: str
    comment: str
    debian: str = ""  # the Debian package that it comes from,
    header: str = ""  # or a header that tells its version by three numbers, or by a text


BLOCKS = (
    Block("expat", "MIT", "reads XML", header="build/expat-src/lib/expat.h"),
    Block("libharu", "Zlib", "draws the PDF reports of qmktool",
          header="build/libharu-src/include/hpdf_version.h"),
    Block("mingw-w64-runtime", "ZPL-2.1", "the C library of the Windows programs",
          debian="mingw-w64-common"),
    Block("gcc-runtime", "GPL-3.0-or-later WITH GCC-exception-3.1", "the C++ library",
          debian="g++-mingw-w64-x86-64-win32"),
    Block("glibc", "LGPL-2.1-or-later", "the C library of qmktool in the archive for Linux",
          debian="libc6-dev"),
    Block("nsis", "Zlib AND (CPL-1.0 WITH LZMA-exception)",
          "the start-up code of the installers and the uninstaller", debian="nsis"),
)


def version_of(block: Block) -> str:
    if block.debian:
        return subprocess.run(["dpkg-query", "-W", "-f", "${Version}", block.debian], check=True,
                              capture_output=True, encoding="ascii").stdout
    text = (REPO / block.header).read_text(encoding="utf-8", errors="replace")
    numbers = re.findall(r"define \w+_(?:MAJOR|MINOR|MICRO|BUGFIX)_VERSION +(\d+)", text)
    if len(numbers) != 3:
        raise ValueError(f"{block.header} tells no version")
    return ".".join(numbers)


def file_entries(folder: Path) -> list[str]:
    entries = []
    files = sorted(path for pattern in PACKAGE_FOLDERS for root in folder.glob(pattern)
                   for path in root.rglob("*") if path.is_file())
    for number, path in enumerate(files, 1):
        data = path.read_bytes()
        entries.append(f"FileName: ./{path.relative_to(folder)}\n"
                       f"SPDXID: SPDXRef-File-{number}\n"
                       f"FileChecksum: SHA1: {hashlib.sha1(data).hexdigest()}\n"
                       f"FileChecksum: SHA256: {hashlib.sha256(data).hexdigest()}\n"
                       "LicenseConcluded: NOASSERTION\n"
                       "FileCopyrightText: NOASSERTION\n")
    return entries


def package_entry(name: str, version: str, licence: str, comment: str) -> str:
    return (f"PackageName: {name}\nSPDXID: SPDXRef-{name}\nPackageVersion: {version}\n"
            "PackageDownloadLocation: NOASSERTION\nFilesAnalyzed: false\n"
            f"PackageLicenseConcluded: {licence}\nPackageLicenseDeclared: {licence}\n"
            f"PackageCopyrightText: NOASSERTION\nPackageComment: <text>{comment}</text>\n")


def main() -> int:
    version, folder = sys.argv[1], Path(sys.argv[2])
    made = datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), timezone.utc)
    print(f"SPDXVersion: SPDX-2.3\nDataLicense: CC0-1.0\nSPDXID: SPDXRef-DOCUMENT\n"
          f"DocumentName: quillmark-{version}\n"
          f"DocumentNamespace: https://quillmark.invalid/spdx/{version}\n"
          f"Creator: Organization: the Quillmark authors\n"
          f"Created: {made:%Y-%m-%dT%H:%M:%SZ}\n")
    # Files that follow a package would be taken for its own.
    print("\n".join(file_entries(folder)))
    print(package_entry("quillmark", version, "MIT", "the programs, the help and the sample"))
    print("Relationship: SPDXRef-DOCUMENT DESCRIBES SPDXRef-quillmark\n")
    for block in BLOCKS:
        print(package_entry(block.name, version_of(block), block.licence, block.comment))
        print(f"Relationship: SPDXRef-quillmark STATIC_LINK SPDXRef-{block.name}\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
