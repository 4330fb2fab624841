"""Honest documents: links that lead somewhere, commands that CI runs, a guide that quotes the screens."""

import pathlib
import re

README_COMMANDS = ["make run", "make test"]
# Buttons of questions are the toolkit's.
TOOLKIT_TEXTS = {"Yes", "No"}
MOST_GUIDE_BYTES = 1_500_000
TROUBLE = "docs/guide/trouble.md"
# The second lines of empty lists: they say themselves what to do.
HINTS = {
    "Add a product with +, or choose another time above.",
    "Add one with +, or choose another time above.",
    "Add one with +, or get new ones by Update.",
    "All Stores and All Categories show everything again.",
    "Find and Clear show everything again.",
    "Find and Clear, All Stores and All Categories together show everything again.",
    "Products that you mark as purchased are shown here.",
    "Search again with other words.",
    "Search the web shops with +.",
    "The program brovanta-data checks files and brings copies back.",
}

LITERALS = re.compile(r'(?:"(?:[^"\\\n]|\\.)*"\s*)+')
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
TRANSLATED = re.compile(r'\b(?:tr|translate|QT_TRANSLATE_NOOP)\(\s*((?:"(?:[^"\\\n]|\\.)*"[\s,]*)+)')
LINK = re.compile(r"\]\(([^)\s]+)\)")
CODE_BLOCK = re.compile(r"^```.*?^```", re.M | re.S)


def anchors(text):
    """What GitHub calls the headings of a page."""
    names = set()
    for heading in re.findall(r"^#+ (.*)$", CODE_BLOCK.sub("", text), re.M):
        heading = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", heading)
        names.add(re.sub(r"[^\w\- ]", "", heading.strip().lower()).replace(" ", "-"))
    return names


def check_links(root, pages, problems):
    texts = {page: (root / page).read_text(encoding="utf-8") for page in pages}
    for page, text in texts.items():
        for link in LINK.findall(CODE_BLOCK.sub("", text)):
            if re.match(r"[a-z]+:", link):
                continue
            target, _, anchor = link.partition("#")
            path = (root / page).parent.joinpath(target).resolve() if target else root / page
            if not path.exists():
                problems.append(f"{page}: link to {link}, which is not there")
            elif anchor and anchor not in anchors(path.read_text(encoding="utf-8")):
                problems.append(f"{page}: link to {link}: there is no such heading")


def check_readme(root, problems):
    """CI runs what begins with make; tests/packaging/readme_commands_test.cpp every other line."""
    readme = (root / "README.md").read_text(encoding="utf-8")
    blocks = re.findall(r"^```sh\n(.*?)^```", readme, re.M | re.S)
    for command in README_COMMANDS:
        if f"{command}\n" not in blocks:
            problems.append(f"README.md has no block that says `{command}` and nothing else")
    steps = re.findall(r"^step [\w-]+ (.*)$", (root / ".ci/run").read_text(encoding="utf-8"), re.M)
    for block in blocks:
        for line in block.splitlines():
            if line.startswith("make ") and line not in steps:
                problems.append(f"README.md: `{line}` is not run by .ci/run")


def plain(text):
    return " ".join(text.split())


def without_char_literals(source):
    return re.sub(r"'(?:\\.|[^'\\\n])'", "' '", source)


def readable(literals):
    """The text of adjacent string literals, of which the outer quotation marks may be missing."""
    if not literals.startswith('"'):
        literals = '"' + literals
    text = "".join(LITERAL.findall(literals))
    for escape, meaning in ((r"\r", " "), (r"\n", " "), (r"\"", '"')):
        text = text.replace(escape, meaning)
    return plain(text)


def screen_texts(root, tracked):
    """Every text that the screens, the update and the data tool can show; %1 stands for anything."""
    texts = set(TOOLKIT_TEXTS)
    for path in tracked("res/*.ui"):
        for text in re.findall(r"<string[^>]*>(.*?)</string>", (root / path).read_text("utf-8"), re.S):
            texts.add(plain(text.replace("&amp;", "")))
    for path in tracked("ui/*.cpp", "ui/*.h", "net/update/*.cpp", "data/*.cpp"):
        source = without_char_literals((root / path).read_text(encoding="utf-8"))
        for literals in LITERALS.findall(source):
            texts.add(readable(literals))
    return texts


def says(texts, quoted):
    """Whether some text is the quoted one; an ellipsis in it, and %1 in the text, stand for anything."""
    if quoted in texts:
        return True
    pattern = re.compile(".*".join(re.escape(part) for part in quoted.split("…")))
    if "…" in quoted and len(quoted) > 1:
        return any(pattern.fullmatch(text) for text in texts)
    return False


def check_quotes(root, tracked, guide, problems):
    texts = screen_texts(root, tracked)
    for page in guide:
        text = CODE_BLOCK.sub("", (root / page).read_text(encoding="utf-8"))
        for quoted in re.findall(r"\*\*([^*]+)\*\*", text) + re.findall(r'"([^"]+)"', text):
            if not says(texts, plain(quoted)):
                problems.append(f"{page}: no screen says: {plain(quoted)}")


def messages(root, tracked):
    """What the screens say of their own accord: sentences that are not questions, progress or hints."""
    said = set()
    for path in tracked("ui/*.cpp"):
        source = without_char_literals((root / path).read_text(encoding="utf-8"))
        for arguments in TRANSLATED.findall(source):
            text = readable(re.split(r'"\s*,\s*"', arguments)[-1])  # behind the context
            if "could not" in text or text.endswith(".") and not re.search(r"^(?!Abort).*(\.\.\.|: done\.)$", text):
                said.add(text)
    return said


def check_messages(root, tracked, problems):
    """Every message is explained."""
    page = (root / TROUBLE).read_text(encoding="utf-8")
    quotes = [plain(quoted) for quoted in re.findall(r'"([^"]+)"', page)]
    said = messages(root, tracked)
    for text in sorted(HINTS - said):
        problems.append(f"scripts/check_documents.py: no screen gives this hint any more: {text}")
    for text in sorted(said - HINTS):
        if not any(says({text}, quoted) for quoted in quotes):
            problems.append(f"{TROUBLE} does not explain: {text}")


def tour_pictures(root):
    table = (root / "tests/tour/guide_pictures.cpp").read_text(encoding="utf-8")
    return {f"{name}.png" for name in re.findall(r'\{"\w+", "\w+", "(\w+)"\}', table)}


def check_pictures(root, guide, problems):
    """The guide shows the pictures that the tour takes for it, each of them and no other."""
    folder = root / "docs/guide/pictures"
    shown = set()
    for page in guide:
        shown |= set(re.findall(r"\]\(pictures/([^)]+)\)", (root / page).read_text(encoding="utf-8")))
    there = {path.name for path in folder.iterdir()}
    taken = tour_pictures(root)
    for name in sorted(shown | there | taken):
        if name not in there:
            problems.append(f"docs/guide/pictures/{name} is not there; scripts/guide-pictures makes it")
        if name not in taken:
            problems.append(f"docs/guide/pictures/{name}: the tour does not take it for the guide")
        if name not in shown:
            problems.append(f"docs/guide/pictures/{name}: no page of the guide shows it")
    size = sum(path.stat().st_size for path in folder.iterdir())
    if size > MOST_GUIDE_BYTES:
        problems.append(f"docs/guide/pictures: {size} bytes, at most {MOST_GUIDE_BYTES}")


def program_keys(root, tracked):
    """The shortcuts that the screens set up, as the keys are called in the guide."""
    keys = set()
    for path in tracked("ui/*.cpp"):
        source = (root / path).read_text(encoding="utf-8")
        keys |= set(re.findall(r'"(Ins|Del|F\d+|(?:Ctrl|Alt)\+[^"])"', source))
        keys |= set(re.findall(r"Qt::Key_(F\d+)\b", source))
        for modifier, key in re.findall(r"Qt::(CTRL|ALT) \| \(?Qt::Key_(\w)\b", source):
            keys.add(f"{modifier.title()}+{key}")
    return {{"Ins": "Insert", "Del": "Delete"}.get(key, key) for key in keys}


def check_keys(root, tracked, problems):
    page = (root / "docs/guide/keys.md").read_text(encoding="utf-8")
    told = set()
    for row in re.findall(r"^\| ([^|]+) \|", page, re.M):
        words = re.split(r" to |, (?=\w)", row)
        told |= {key.strip() for key in words if re.fullmatch(r"Insert|Delete|F\d+|(Ctrl|Alt)\+.", key.strip())}
    known = program_keys(root, tracked)
    told -= {"Ctrl+4"}  # the last of a range that begins with a key of the program
    for key in sorted(known - told):
        problems.append(f"docs/guide/keys.md does not tell of {key}")
    for key in sorted(told - known):
        problems.append(f"docs/guide/keys.md tells of {key}, which no screen has")


def linked_folders(root, tracked):
    """The arrows between the folders of the sources, as CMake has them."""
    links, folders = {}, {"brovanta_resources": "res"}
    for path in tracked("CMakeLists.txt", "*/CMakeLists.txt"):
        if path.startswith(("tests/", "bench/", "fuzz/")):
            continue
        library = re.search(r"^brovanta_(?:qt_)?library\((\w+)\s.*?\bLINK\s([^)]*)\)",
                            (root / path).read_text(encoding="utf-8"), re.M | re.S)
        if library:
            folder = str(pathlib.PurePath(path).parent)
            folders[library[1]] = folder
            links[folder] = library[2].split()
    return {(folder, folders[target]) for folder, targets in links.items()
            for target in targets if target in folders}


def check_map(root, tracked, problems):
    page = (root / "docs/architecture.md").read_text(encoding="utf-8")
    drawn = re.search(r"^```mermaid\n(.*?)^```", page, re.M | re.S)
    names = dict(re.findall(r'(\w+)\["([\w/]+)/"\]', drawn[1]))
    arrows = {(names.get(a, a), names.get(b, b))
              for a, b in re.findall(r"(\w+)(?:\[[^]]*\])? --> (\w+)", drawn[1])}
    linked = linked_folders(root, tracked)
    for a, b in sorted(linked - arrows):
        problems.append(f"docs/architecture.md: the map lacks the arrow from {a}/ to {b}/")
    for a, b in sorted(arrows - linked):
        problems.append(f"docs/architecture.md: the map has an arrow from {a}/ to {b}/, CMake has not")


def check_paths(root, problems):
    """Files that the recipes name are there; those with NAME in them are to be made."""
    page = (root / "docs/architecture.md").read_text(encoding="utf-8")
    for path in re.findall(r"`((?:\w+/)+[\w.*-]+)`", page[page.index("## Recipes"):]):
        if "NAME" not in path and not any(root.glob(path)):
            problems.append(f"docs/architecture.md: {path} is not there")


def check_version(root, problems):
    version = re.search(r"project\(brovanta VERSION (\S+)", (root / "CMakeLists.txt").read_text("utf-8"))
    latest = re.search(r"^## \[(\d\S*)\]", (root / "CHANGELOG.md").read_text("utf-8"), re.M)
    if latest[1] != version[1]:
        problems.append(f"CHANGELOG.md: the latest version is {latest[1]}, CMake has {version[1]}")


def check_decisions(root, tracked, problems):
    """A page each, short, numbered without gaps, all of them in the list."""
    index = (root / "docs/decisions/README.md").read_text(encoding="utf-8")
    pages = [path for path in tracked("docs/decisions/*.md") if not path.endswith("README.md")]
    for number, path in enumerate(sorted(pages), 1):
        text = (root / path).read_text(encoding="utf-8")
        if not pathlib.PurePath(path).name.startswith(f"{number:04}-"):
            problems.append(f"{path}: its number should be {number}")
        if pathlib.PurePath(path).name not in index:
            problems.append(f"{path}: docs/decisions/README.md does not list it")
        if text.count("\n") > 30:
            problems.append(f"{path}: at most 30 lines")
        for part in ("Context", "Decision", "What follows", "Set aside"):
            if f"**{part}.**" not in text:
                problems.append(f"{path}: without \"{part}\"")


def check(root, tracked, problems):
    pages = tracked("*.md")
    guide = [page for page in pages if pathlib.PurePath(page).parent == pathlib.PurePath("docs/guide")]
    check_links(root, pages, problems)
    check_readme(root, problems)
    check_quotes(root, tracked, guide, problems)
    check_messages(root, tracked, problems)
    check_pictures(root, guide, problems)
    check_keys(root, tracked, problems)
    check_map(root, tracked, problems)
    check_paths(root, problems)
    check_version(root, problems)
    check_decisions(root, tracked, problems)
