#!/usr/bin/env python3
"""Rules of the tree: sizes, direction of includes, a test for every unit, honest documents."""

import pathlib
import re
import subprocess
import sys

sys.dont_write_bytecode = True  # the tree stays clean
import check_documents as documents

ROOT = pathlib.Path(__file__).resolve().parent.parent
MAX_LINES = {".cpp": 400, ".h": 200}

# Reading and changing files of marked records, whatever the records are.
FILE_LAYER = ["db/error_codes.h", "db/file_names.h", "db/journal.h", "db/marked_reader.h", "db/record_file.h",
              "db/record_format.h", "db/unit_of_work.h"]

# What a folder may include, besides itself: other folders, or single files of one. The order of the
# layers stands here and nowhere else.
LAYERS = {
    "util": [],
    "platform": ["util"],
    "net/http": ["util", "platform"],
    "db": ["util", "platform"],
    "search": ["util", "platform", "net/http", *FILE_LAYER],
    "net/update": ["util", "platform", "db", "search", "net/http"],
    "agent": ["util", "platform", "net/http", "search"],
    "data/list": ["util", "db"],
    "data/pdf": ["data/list"],
    "data/calendar": ["util", "db", "data/list"],
    "data": ["util", "platform", "db", "search", "data/list", "data/pdf",
             "data/calendar"],
    "server": ["util", "platform"],
    "ui/base": ["util", "db"],
    "ui/product": ["util", "db", "ui/base"],
    "ui/websearch": ["util", "search", "ui/base"],
    "ui/shell": ["util", "platform", "db", "search", "net/update", "ui/base", "ui/product",
                 "ui/websearch"],
    "app": ["util", "platform", "db", "search", "data", "ui/base", "ui/product", "ui/shell"],
}
CORE = ["util", "platform", "net/http", "db", "search", "net/update", "agent", "data/list", "data/pdf",
        "data/calendar", "data", "server"]
# Lines that only tie things together have no test of their own.
WITHOUT_TWIN = {"agent/main.cpp", "app/main.cpp", "data/main.cpp", "server/main.cpp"}


def tracked(*patterns):
    out = subprocess.run(
        ["git", "ls-files", "-co", "--exclude-standard", "--", *patterns],
        cwd=ROOT, capture_output=True, text=True, check=True)
    return [line for line in out.stdout.splitlines() if (ROOT / line).is_file()]


def folder_of(path):
    return max((f for f in LAYERS if path.startswith(f + "/")), key=len, default=None)


def check_sizes(problems):
    for path in tracked("*.cpp", "*.h"):
        lines = (ROOT / path).read_text(encoding="utf-8").count("\n")
        limit = MAX_LINES[pathlib.Path(path).suffix]
        if lines > limit:
            problems.append(f"{path}: {lines} lines, at most {limit}")


def check_includes(problems):
    for path in tracked("*.cpp", "*.h"):
        folder = folder_of(path)
        if folder is None:
            continue
        allowed = LAYERS[folder] + [folder]
        for number, line in enumerate((ROOT / path).read_text(encoding="utf-8").splitlines(), 1):
            own = re.match(r'#include "([^"]+)"', line)
            if own and not own[1].startswith(("ui_", "moc_")) and not own[1].endswith(".moc"):
                target = folder_of(own[1])
                if target not in allowed and own[1] not in allowed:
                    problems.append(f"{path}:{number}: {folder} must not include {own[1]}")
            system = re.match(r"#include <(Q[A-Z]\w*|Qt\w*/.*)>", line)
            if system and folder in CORE:
                problems.append(f"{path}:{number}: {folder} must not use Qt")


def check_twins(problems):
    tests = {pathlib.Path(p).name for p in tracked("tests/*_test.cpp", "tests/**/*_test.cpp")}
    for path in tracked("*.cpp"):
        if folder_of(path) is None or path in WITHOUT_TWIN:
            continue
        stem = pathlib.Path(path).stem
        if not any(re.fullmatch(rf"{stem}(_[a-z0-9]+)*_test\.cpp", name) for name in tests):
            problems.append(f"{path}: no test file {stem}_test.cpp")


def check_documents(problems):
    documents.check(ROOT, tracked, problems)


def check_left_overs(problems):
    pattern = re.compile(r"\b(TO" r"DO|FIX" r"ME|X" r"XX|HA" r"CK)\b")
    for path in tracked("*.cpp", "*.h", "*.ui", "*.cmake", "CMakeLists.txt"):
        for number, line in enumerate((ROOT / path).read_text(encoding="utf-8").splitlines(), 1):
            if pattern.search(line):
                problems.append(f"{path}:{number}: left open: {line.strip()}")


def main():
    problems = []
    for check in (check_sizes, check_includes, check_twins, check_documents, check_left_overs):
        check(problems)
    print("\n".join(problems))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
