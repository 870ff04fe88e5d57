#!/usr/bin/env python3
"""Checks the pages of the documentation, or with --fix refills them.

usage: scripts/check_docs.py [--fix] [PAGE]...

- Paragraphs and list items are filled to 100 columns: no line is longer, and each takes as many
  words as fit. Tables, code and headings stand as they are.
- Relative links lead to a file, and where they name a heading of a page, to a heading.
- Each C or C++ block in a page is a whole file of examples/ ("```cpp examples/NAME.cpp"), and each
  such file is shown on a page. --fix brings the blocks up to date.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
WIDTH = 100
PAGES = ["README.md", "CONTRIBUTING.md", "CHANGELOG.md", "examples/data/README.md"]

FENCE = re.compile(r"^\s*```")
ITEM = re.compile(r"^(\s*)([-*]|\d+\.)(\s+)")
VERBATIM = re.compile(r"^(#|\||---|    |<!--|\[[^\]]+\]: )")
ATOM = re.compile(r"(?:`[^`]*`|\S)+")
MARKER = re.compile(r"^([-*+>#]|\d+[.)])$")  # would begin a list or a heading, first in a line
LINK = re.compile(r"\]\(([^)\s]+)\)")


def fill(text, first, rest):
    """The words of `text` in lines. Code spans are not broken; no line begins with a marker."""
    lines, line = [], first
    empty = True
    for word in ATOM.findall(text):
        fits = len(line) + (not empty) + len(word) <= WIDTH
        if not empty and not fits and not MARKER.match(word):
            lines.append(line)
            line, empty = rest, True
        line += word if empty else " " + word
        empty = False
    return lines + [line]


def refilled(lines):
    """The lines of a page with all prose filled."""
    result = []
    at = 0
    while at < len(lines):
        line = lines[at]
        if FENCE.match(line):
            end = next((i for i in range(at + 1, len(lines)) if FENCE.match(lines[i])), len(lines))
            result += lines[at : end + 1]
            at = end + 1
            continue
        item = ITEM.match(line)
        if not line.strip() or VERBATIM.match(line) and not item:
            result.append(line)
            at += 1
            continue
        first = item.group(0) if item else ""
        text = [line[len(first) :]]
        at += 1
        while at < len(lines) and lines[at].strip() and not (
            ITEM.match(lines[at]) or FENCE.match(lines[at]) or re.match(r"^(#|\|)", lines[at])
        ):
            text.append(lines[at])
            at += 1
        result += fill(" ".join(text), first, " " * len(first))
    return result


def updated_examples(lines, problems):
    """The lines of a page with its C and C++ blocks taken from their files, and the files."""
    result, shown = [], set()
    at = 0
    while at < len(lines):
        line = lines[at]
        result.append(line)
        at += 1
        if not FENCE.match(line):
            continue
        end = next((i for i in range(at, len(lines)) if FENCE.match(lines[i])), len(lines))
        block = lines[at:end]
        language = re.match(r"```(cpp|c)\b", line)
        if language:
            name = line[language.end() :].strip()
            pattern = rf"examples/\w+\.{language.group(1)}"
            if re.fullmatch(pattern, name) and (ROOT / name).is_file():
                block = (ROOT / name).read_text().splitlines()
                shown.add(name)
            else:
                problems.append(f"{at}: no example '{name}'")
        result += block + lines[end : end + 1]
        at = end + 1
    return result, shown


def anchors(page):
    """What the headings of a page are called in links."""
    headings = re.findall(r"^#+ (.*)$", page.read_text(), re.M)
    return {re.sub(r"[^\w\- ]", "", h.lower()).replace(" ", "-") for h in headings}


def check_links(page, lines, problems):
    inside = False
    for number, line in enumerate(lines, 1):
        inside ^= bool(FENCE.match(line))
        if inside or line.startswith("    "):
            continue
        for link in LINK.findall(re.sub(r"`[^`]*`", "", line)):
            if re.match(r"[a-z]+:", link):
                continue
            path, _, anchor = link.partition("#")
            target = page.parent / path if path else page
            if not target.exists():
                problems.append(f"{number}: dead link {link}")
            elif anchor and anchor not in anchors(target):
                problems.append(f"{number}: no heading {link}")


def check(page, fix):
    """The problems of a page, each with its line, and the examples that it shows."""
    problems = []
    lines = page.read_text().splitlines()
    with_examples, shown = updated_examples(lines, problems)
    wanted = refilled(with_examples)
    check_links(page, wanted, problems)
    if wanted == lines:
        return problems, shown
    if fix:
        page.write_text("\n".join(wanted) + "\n")
        return problems, shown
    if with_examples != lines:
        problems.append("1: an example differs from its file")
    filled = refilled(lines)
    if filled != lines:
        same = zip(lines + [None], filled + [None])
        first = next(i for i, (line, wanted) in enumerate(same, 1) if line != wanted)
        problems.append(f"{first}: not filled to {WIDTH} columns (scripts/check_docs.py --fix)")
    return problems, shown


def main(arguments):
    fix = "--fix" in arguments
    named = [Path(a).resolve() for a in arguments if a != "--fix"]
    pages = named or [ROOT / p for p in PAGES] + sorted((ROOT / "docs").glob("*.md"))
    failures, shown = 0, set()
    for page in pages:
        problems, examples = check(page, fix)
        shown |= examples
        failures += len(problems)
        for problem in problems:
            print(f"{page.relative_to(ROOT)}:{problem}", file=sys.stderr)
    if not named:
        for example in sorted((ROOT / "examples").glob("*.c*")):
            name = example.relative_to(ROOT).as_posix()
            if name not in shown:
                failures += 1
                print(f"{name}: shown on no page", file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
