#!/usr/bin/env python3
"""Writes the manual page of qmktool, qmktool.1, and its completion for bash, qmktool.bash. It takes
both from what the program prints: its help, the help of each command and its version. The page has
the date of SOURCE_DATE_EPOCH; if that is unset, the date of today.

Usage: manual.py PROGRAM FOLDER
"""

import os
import re
import subprocess
import sys
import textwrap
import time
from collections.abc import Iterator
from dataclasses import dataclass
from pathlib import Path

COMMAND = re.compile(r"  qmktool (.+)")
COMMAND_TEXT = re.compile(r"      (\S.*)")
OPTION = re.compile(r"  (--\S*)(?: (\S+))? {2,}(\S.*)")
OPTION_TEXT = re.compile(r" {24}(\S.*)")
EXIT_CODES = re.compile(r"(\d) (.+)")
# What a text says of a value first: all the words that it may be.
WORDS = re.compile(r"([\w-]+(?:, [\w-]+)* or [\w-]+)(?:: .+)?")


@dataclass
class Option:
    name: str
    value: str  # what stands for the value in the help; empty for an option without one
    text: str

    def choices(self) -> list[str]:
        if "|" in self.value:
            return self.value.split("|")
        found = WORDS.fullmatch(self.text) if self.value else None
        return re.split(", | or ", found[1]) if found else []


@dataclass
class Command:
    usage: str  # as it stands behind the program's name
    text: str
    options: list[Option]  # as the command takes them

    @property
    def name(self) -> str:
        return self.usage.split()[0]

    @property
    def has_options(self) -> bool:
        return self.usage.endswith(" [OPTIONS]")


@dataclass
class Help:
    summary: str
    commands: list[Command]
    options: list[Option]
    exit_code: str
    version: str


def names_of(command: Command) -> list[str]:
    return [option.name for option in command.options]


def said(program: Path, *words: str) -> str:
    return subprocess.run([program, *words], check=True, capture_output=True, encoding="ascii").stdout


def parse_commands(lines: list[str]) -> list[Command]:
    commands: list[Command] = []
    for line in lines:
        if found := COMMAND.fullmatch(line):
            commands.append(Command(found[1], "", []))
        elif commands and (found := COMMAND_TEXT.fullmatch(line)):
            commands[-1].text = f"{commands[-1].text} {found[1]}".strip()
        else:
            raise ValueError(f"what is this in the help: {line!r}")
    return commands


def parse_options(lines: list[str]) -> list[Option]:
    options: list[Option] = []
    for line in lines:
        if found := OPTION.fullmatch(line):
            options.append(Option(found[1], found[2] or "", found[3]))
        elif options and (found := OPTION_TEXT.fullmatch(line)):
            options[-1].text += f" {found[1]}"
        else:
            raise ValueError(f"what is this among the options: {line!r}")
    return options


def parse(program: Path) -> Help:
    paragraphs = [part.splitlines() for part in said(program, "--help").strip("\n").split("\n\n")]
    summary, commands, options, last = paragraphs
    if options[0] != "Options:" or len(summary) != 1 or not last[0].startswith("Exit code: "):
        raise ValueError("the help is not made as it was")
    found = Help(summary[0], parse_commands(commands), parse_options(options[1:]),
                 " ".join(last).removeprefix("Exit code: "), said(program, "--version").split()[1])
    for command in found.commands:
        if command.has_options:
            own = said(program, "help", command.name).partition("\nOptions:\n")[2]
            command.options = parse_options(own.splitlines())
    return found


# ---- The manual page.

def escaped(text: str) -> str:
    """The text as groff prints it as it stands, wherever it stands in a line."""
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return re.sub(r"^([.'])", r"\\&\1", text)


def marked(usage: str) -> str:
    """What the user types is bold, what stands for something else is in italics."""
    def mark(word: str) -> str:
        name = word.strip("[],|")
        font = "I" if name.isupper() or "/" in name else "B"
        return word.replace(name, f"\\f{font}{escaped(name)}\\fR")
    return " ".join(mark(word) for word in usage.split())


def filled(text: str) -> list[str]:
    """The text in lines of a source that is good to read."""
    return [escaped(line) for line in textwrap.wrap(text, 76, break_on_hyphens=False)]


def described(what: str, text: str) -> list[str]:
    sentence = text if WORDS.match(text) else text[:1].upper() + text[1:].rstrip(".") + "."
    return [".TP", what, *filled(sentence)]


def option_head(option: Option) -> str:
    choices = option.choices() if "|" in option.value else []
    value = "|".join(f"\\fB{escaped(choice)}\\fR" for choice in choices) or \
        f"\\fI{escaped(option.value)}\\fR"
    return f"\\fB{escaped(option.name)}\\fR" + (f" {value}" if option.value else "")


def manual_page(help: Help, date: str) -> str:
    lines = [f'.TH QMKTOOL 1 "{date}" "Quillmark {help.version}" "User Commands"',
             ".SH NAME", escaped(help.summary.rstrip(".")).replace(" ", " \\- ", 1), ".SH SYNOPSIS"]
    for command in help.commands:
        lines += [f"\\fBqmktool\\fR {marked(command.usage)}", ".br"]
    lines[-1:] = [".SH COMMANDS"]
    for command in help.commands:
        if command.text:
            lines += described(marked(command.usage.removesuffix(" [OPTIONS]")), command.text)
        if command.options:
            lines += [".IP", "Options:", *[f"\\fB{escaped(name)}\\fR"
                                          for name in names_of(command)]]
    lines.append(".SH OPTIONS")
    for option in help.options:
        lines += described(option_head(option), option.text)
    lines.append(".SH EXIT STATUS")
    for code in help.exit_code.rstrip(".").split(", "):
        found = EXIT_CODES.fullmatch(code)
        if not found:
            raise ValueError(f"what is this exit code: {code!r}")
        lines += described(f"\\fB{found[1]}\\fR", found[2])
    return "\n".join(lines) + "\n"


# ---- The completion.

COMPLETION = """\
# Completion of qmktool for bash.
_qmktool()
{
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words
    if ((COMP_CWORD == 1)) || [[ $COMP_CWORD == 2 && $before == help ]]; then
        mapfile -t COMPREPLY < <(compgen -W '@COMMANDS@' -- "$word")
        return
    fi
    case "${COMP_WORDS[1]} $before" in
@VALUES@
    esac
    if [[ $word != -* ]]; then
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return
    fi
    case ${COMP_WORDS[1]} in
@OPTIONS@
        *) words= ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -F _qmktool qmktool
"""
FILE_VALUES = ("FILE", "OUT")


def value_cases(commands: list[Command]) -> Iterator[str]:
    """The lines of a case for each set of words that a value may be of, for the commands and
    options that take these. An option whose value is a file has no case."""
    takers: dict[str, list[str]] = {}
    for command in commands:
        for option in command.options:
            if option.value and option.value not in FILE_VALUES:
                takers.setdefault(" ".join(option.choices()), []).append(
                    f"'{command.name} {option.name}'")
    for words, names in takers.items():
        yield "        " + " | \\\n            ".join(names) + ")"
        if words:
            yield f"            mapfile -t COMPREPLY < <(compgen -W '{words}' -- \"$word\")"
        yield "            return"
        yield "            ;;"


def completion(help: Help) -> str:
    words = [word.rstrip(",") for command in help.commands
             for word in command.usage.split()[:1 if command.has_options else None]]
    names = " ".join(dict.fromkeys(word for word in words if not word.isupper()))
    values = "\n".join(value_cases(help.commands))
    options = [f"        {command.name}) words='{' '.join(names_of(command))}' ;;"
               for command in help.commands if command.options]
    return (COMPLETION.replace("@COMMANDS@", names).replace("@VALUES@", values)
            .replace("@OPTIONS@", "\n".join(options)))


def main() -> int:
    program, folder = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    help = parse(program)
    date = time.strftime("%Y-%m-%d", time.gmtime(int(os.environ.get("SOURCE_DATE_EPOCH")
                                                     or time.time())))
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "qmktool.1").write_text(manual_page(help, date), encoding="ascii")
    (folder / "qmktool.bash").write_text(completion(help), encoding="ascii")
    return 0


if __name__ == "__main__":
    sys.exit(main())
