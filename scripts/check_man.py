#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""scripts/check_man.py [FOLDER]: compares the man pages and the completions with the --help of the programs in FOLDER.

The section OPTIONS of a page in docs/man/ has to contain the same options and commands as the help. The completion for
bash has to offer exactly the options of each command, and those for zsh and fish have to contain them. FOLDER is build/bin
by default. Prints a line for each difference; the exit status is 1 if there is one.
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OPTION = re.compile(r"(?<![\w-])(--?[A-Za-z][\w-]*|/AUTO)")
COMMAND = re.compile(r"^  (\w+) ", re.M)
COMPLETION = """
source "$1"
COMP_WORDS=(captoria-cli $2 -)
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_captoria_cli
echo "${COMPREPLY[@]}"
"""


def said(*command):
    done = subprocess.run(command, capture_output=True, text=True, timeout=60)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}: ended with {done.returncode}: {done.stderr}")
    return done.stdout


def plain(roff):
    """The text of a page, without macros and font changes."""
    text = re.sub(r'^\.\\".*$|\\f.|\\&', "", roff, flags=re.M)
    text = re.sub(r'^\.[A-Z]+ ?', "", text, flags=re.M)
    return text.replace(r"\-", "-").replace('"', "")


def options_of_page(roff):
    """The options that the tags of the section OPTIONS name."""
    section = roff.split(".SH OPTIONS\n", 1)[1].split("\n.SH ", 1)[0]
    tags = re.findall(r"^\.TP\n(.*)$", section, re.M)
    return {option for tag in tags for option in OPTION.findall(plain(tag + "\n"))}


def helps(program):
    """{command: help} of the program; its own help has the key ""."""
    texts = {"": said(program, "--help")}
    if "\nSubcommands:\n" in texts[""]:
        for command in COMMAND.findall(texts[""].split("\nSubcommands:\n")[1]):
            texts[command] = said(program, command, "--help")
    return texts


def check_page(page, program):
    roff = page.read_text()
    texts = helps(program)
    known = {option for text in texts.values() for option in OPTION.findall(text)}
    documented = options_of_page(roff)
    for option in sorted(known - documented):
        yield f"{page}: lacks {option}"
    for option in sorted(documented - known):
        yield f"{page}: has {option}, which is not in --help"
    for command in filter(None, texts):
        if f"\n.SS {command}" not in roff and not re.search(rf"^\.SS .*\b{command}\b", roff, re.M):
            yield f"{page}: lacks the options of the command {command}"
    version = re.search(r"\d+\.\d+\.\d+", said(program, "--version"))[0]
    if f'"Captoria {version}"' not in roff:
        yield f"{page}: is not for version {version}"


def check_completions(program):
    folder = ROOT / "assets/completions"
    bash = folder / "captoria-cli.bash"
    for command, text in helps(program).items():
        known = set(OPTION.findall(text))
        offered = set(said("bash", "-c", COMPLETION, "bash", bash, command).split())
        for option in sorted(known ^ offered):
            yield f"{bash}: {option} is offered for \"{command}\" or in its help, but not in both"
        for script, form in ((folder / "captoria-cli.zsh", "{}"), (folder / "captoria-cli.fish", "-l {}")):
            content = script.read_text()
            for option in sorted(option for option in known if option.startswith("--")):
                if form.format(option if form == "{}" else option[2:]) not in content:
                    yield f"{script}: lacks {option}"


def main():
    programs = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/bin").resolve()
    wrong = []
    for page in sorted((ROOT / "docs/man").glob("*.1")):
        name = page.name.removesuffix(".1")
        wrong += check_page(page, programs / ("Captoria" if name == "captoria" else name))
    wrong += check_completions(programs / "captoria-cli")
    print("\n".join(wrong), end="\n" if wrong else "", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
