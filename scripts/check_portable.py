#!/usr/bin/env python3
"""Finds platform code in files that must be portable. Prints each place; exit code 1 if any.

A file must be portable if a build for Linux compiles or includes it, or if it is in a folder
without a Windows half. It must not use headers, types or macros of one platform. The build chooses
between files named *_win.* and *_posix.*, and only these may. Tests may use POSIX.

Usage: check_portable.py BUILD_FOLDER
"""

import re
import sys
from collections.abc import Iterator
from pathlib import Path

from compiledsources import REPO, compile_entries, headers_in

PORTABLE_FOLDERS = ("base", "account", "qmktool")
POSIX_FOLDERS = ("tests",)
SUFFIXES = (".h", ".cpp")

WINDOWS_HEADER = re.compile(
    r"(windows|windowsx|winbase|windef|winuser|wingdi|winnt|winreg|winspool|winsock2?|commctrl|"
    r"commdlg|cderr|dlgs|ddeml|shellapi|shlobj|shlwapi|objbase|ole2|htmlhelp|tchar|uxtheme|"
    r"richedit|io|direct|conio|process)\.h", re.IGNORECASE)
POSIX_HEADER = re.compile(
    r"(sys/.+|netinet/.+|arpa/.+|unistd|fcntl|dirent|dlfcn|fnmatch|glob|grp|netdb|poll|pthread|pwd|"
    r"sched|spawn|strings|syslog|termios|utime|wordexp)\.h")

WINDOWS_TYPE = re.compile(
    r"\b(BOOL|BOOLEAN|BYTE|WORD|DWORD|DWORDLONG|U?CHAR|U?INT|U?SHORT|U?LONG|U?LONGLONG|U?INT_PTR|"
    r"U?LONG_PTR|DWORD_PTR|SIZE_T|TCHAR|WCHAR|ATOM|COLORREF|LANGID|LCID|MSG|POINTS?|RECT|SIZE|"
    r"LPARAM|WPARAM|LRESULT|HRESULT|LARGE_INTEGER|FILETIME|SYSTEMTIME|WNDPROC|DLGPROC|FARPROC|"
    r"H(ANDLE|WND|DC|INSTANCE|MODULE|MENU|ICON|CURSOR|FONT|BRUSH|PEN|BITMAP|RGN|PALETTE|GDIOBJ|"
    r"KEY|GLOBAL|LOCAL|ACCEL|DWP|RSRC|FILE|ENHMETAFILE|IMAGELIST|CONV|SZ|DDEDATA)|"
    r"LPC?(STR|TSTR|WSTR|VOID|BYTE|DWORD|RECT|POINT)|P(STR|VOID|BYTE|DWORD|RECT|POINT)|"
    r"LPNM\w+|NM(HDR|LISTVIEW|TTDISPINFO)\w*|LV(ITEM|COLUMN)\w*|LOGFONT[AW]?|TEXTMETRIC[AW]?|"
    r"PAINTSTRUCT|WNDCLASS(EX)?[AW]?|CREATESTRUCT[AW]?|DRAWITEMSTRUCT|DEVMODE[AW]?|"
    r"PRINTDLG[AW]?|WINAPI|CALLBACK|APIENTRY|INVALID_HANDLE_VALUE)\b")
PLATFORM_MACRO = re.compile(
    r"\b(_?WIN(32|64)|__(WIN32|CYGWIN|MINGW32|MINGW64|linux|unix|gnu_linux|APPLE)__|_MSC_VER)\b")

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]')
# A comment, a raw string, a string or a character.
NOT_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])*\'',
    re.DOTALL)


def without_texts(source: str) -> str:
    """The source with comments and literals blanked, line for line."""
    return NOT_CODE.sub(lambda match: "\n" * match[0].count("\n") or " ", source)


def problems_in(path: Path, allow_windows: bool, allow_posix: bool) -> Iterator[tuple[int, str]]:
    source = path.read_text(encoding="utf-8", errors="replace")
    for number, line in enumerate(source.splitlines(), 1):
        header = INCLUDE.match(line)
        if header and not allow_windows and WINDOWS_HEADER.fullmatch(header[1]):
            yield number, f"includes the Windows header {header[1]}"
        if header and not (allow_posix or allow_windows) and POSIX_HEADER.fullmatch(header[1]):
            yield number, f"includes the POSIX header {header[1]}"
    if allow_windows or allow_posix:
        return
    for number, line in enumerate(without_texts(source).splitlines(), 1):
        for match in WINDOWS_TYPE.finditer(line):
            yield number, f"uses the Windows name {match[0]}"
        for match in PLATFORM_MACRO.finditer(line):
            yield number, f"asks for the platform by {match[0]}"


def portable_files(build: Path) -> list[Path]:
    files = {Path(entry["file"]) for entry in compile_entries(build)}
    files |= {header for source in files for header in headers_in(source)}
    for folder in PORTABLE_FOLDERS:
        files.update(path for path in (REPO / folder).rglob("*") if path.suffix in SUFFIXES)
    return sorted(files)


def main() -> int:
    found = 0
    for path in portable_files(Path(sys.argv[1]).resolve()):
        name = path.relative_to(REPO)
        posix = path.stem.endswith("_posix") or name.parts[0] in POSIX_FOLDERS
        for number, what in problems_in(path, path.stem.endswith("_win"), posix):
            print(f"{name}:{number}: {what}")
            found += 1
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
