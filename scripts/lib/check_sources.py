#!/usr/bin/python3
"""Checks that no compiler makes: include direction, comments on public names, file sizes, commit subjects.

usage: scripts/lib/check_sources.py            prints every finding; exit code 1 when there is one
"""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
HEADER_LINES, SOURCE_LINES = 250, 400
GENERATED = {"src/i18n/pinyin_table.cpp", "src/i18n/pinyin_table.h", "src/i18n/pinyin_table.inc"}

# The order in which the library is built up. A file uses its own step and earlier ones, never a later one.
STEPS = ["platform", "graphics settings device", "i18n", "window", "menu", "dialogs"]
STEP = {folder: step for step, folders in enumerate(STEPS) for folder in folders.split()}
DIALOG_SOURCES = re.compile(r"src/window/(dialog|popup|float)[a-z_]*\.(cpp|h)$")
PUBLIC_HEADERS = {
    "platform": "export thread_safety host device_root log file_utils lru_cache bg_work_thread utf8_string",
    "graphics": "screen surface image scaler text skin",
    "settings": "system_state system_settings",
    "device": "wifi power",
    "i18n": "language pinyin",
    "window": "window input bars",
    "menu": "list_menu menu_item text_menu text_menu_drawer dir_browser file_browser_menu setting_menu",
    "dialogs": "dialog",
}
HEADER_FOLDER = {f"ostrel/{name}.h": folder for folder, names in PUBLIC_HEADERS.items() for name in names.split()}

findings = []


def report(path, line, text):
    findings.append(f"{path}:{line}: {text}")


def step_of(path):
    if DIALOG_SOURCES.search(path):
        return STEP["dialogs"]
    if path.startswith("include/"):
        return STEP[HEADER_FOLDER[path[len("include/"):]]]
    return STEP[path.split("/")[1]]


def check_include(path, number, included):
    own_folder = path.split("/")[1] if path.startswith("src/") else None
    if included.startswith("ostrel/"):
        if included not in HEADER_FOLDER:
            report(path, number, f"{included} has no place in the order of steps")
        elif STEP[HEADER_FOLDER[included]] > step_of(path):
            report(path, number, f"{included} belongs to a later step")
        return
    if own_folder is None:
        report(path, number, f"a public header includes the private {included}")
        return
    folder = included.split("/")[0]
    if folder in (own_folder, "platform"):
        return
    if not included.endswith("_internal.h"):
        report(path, number, f"{included} is private to {folder}")
    elif STEP.get(folder, 99) > step_of(path):
        report(path, number, f"{included} belongs to a later step")


def check_includes():
    for path in sources("include", "src"):
        lines = (ROOT / path).read_text().splitlines()
        quoted = [(n, m.group(1)) for n, line in enumerate(lines, 1)
                  if (m := re.match(r'\s*#\s*include\s+"([^"]+)"', line))]
        if path == "include/ostrel/ostrel.h":
            expected = sorted(p[len("include/"):] for p in sources("include") if not p.endswith("/ostrel.h"))
            if sorted(name for _, name in quoted) != expected:
                report(path, 1, "does not include every public header once")
            continue
        for number, included in quoted:
            check_include(path, number, included)
        if path.endswith(".cpp"):
            check_own_header_first(path, quoted)


def check_own_header_first(path, quoted):
    own = {path[len("src/"):-len(".cpp")] + ".h", "ostrel/" + pathlib.Path(path).stem + ".h"}
    has_own = any((ROOT / folder / name).exists() for folder in ("src", "include") for name in own)
    if has_own and (not quoted or quoted[0][1] not in own):
        report(path, 1, "does not include its own header first")


def sources(*folders):
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", *folders], cwd=ROOT,
                            check=True, capture_output=True, text=True).stdout.splitlines()
    return sorted(p for p in listed if p.endswith((".h", ".cpp")) and (ROOT / p).exists())


def check_sizes():
    for path in sources("include", "src", "samples"):
        if path in GENERATED:
            continue
        length = len((ROOT / path).read_text().splitlines())
        limit = HEADER_LINES if path.endswith(".h") else SOURCE_LINES
        if length > limit:
            report(path, length, f"longer than {limit} lines")


def check_comments():
    """Every name that a host can use has a documentation comment."""
    import clang.cindex as cindex
    kinds = cindex.CursorKind
    flags = subprocess.run(["pkg-config", "--cflags", "sdl2", "SDL2_ttf", "SDL2_mixer", "libcjson"], check=True,
                           capture_output=True, text=True).stdout.split()
    unit = cindex.Index.create().parse("all.cpp", ["-std=c++17", "-xc++", f"-I{ROOT}/include", *flags],
                                       [("all.cpp", '#include "ostrel/ostrel.h"\n')],
                                       options=cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
    public = {kinds.FUNCTION_DECL, kinds.VAR_DECL, kinds.CLASS_DECL, kinds.STRUCT_DECL, kinds.ENUM_DECL,
              kinds.ENUM_CONSTANT_DECL, kinds.CXX_METHOD, kinds.CONSTRUCTOR, kinds.FIELD_DECL, kinds.TYPE_ALIAS_DECL,
              kinds.TYPEDEF_DECL}
    for cursor in walk(unit.cursor, kinds):
        if cursor.kind not in public or cursor.raw_comment:
            continue
        if cursor.kind in (kinds.CLASS_DECL, kinds.STRUCT_DECL) and not cursor.is_definition():
            continue
        if is_exempt(cursor, kinds):
            continue
        path = pathlib.Path(str(cursor.location.file)).relative_to(ROOT)
        report(path, cursor.location.line, f"{cursor.displayname or cursor.kind.name} has no comment")


def is_exempt(cursor, kinds):
    """Overrides inherit the comment of what they override; deleted and copying members explain themselves."""
    if cursor.kind in (kinds.CXX_METHOD, kinds.CONSTRUCTOR):
        tokens = [t.spelling for t in cursor.get_tokens()]
        if "override" in tokens or "delete" in tokens or cursor.spelling == "operator=":
            return True
        if cursor.kind == kinds.CONSTRUCTOR:
            return cursor.is_copy_constructor() or cursor.is_move_constructor()
    return False


def walk(cursor, kinds):
    import clang.cindex as cindex
    containers = (kinds.CLASS_DECL, kinds.STRUCT_DECL, kinds.ENUM_DECL, kinds.NAMESPACE, kinds.LINKAGE_SPEC,
                  kinds.UNEXPOSED_DECL)
    for child in cursor.get_children():
        if not (child.location.file and str(child.location.file).startswith(str(ROOT / "include"))):
            continue
        if child.access_specifier in (cindex.AccessSpecifier.PRIVATE, cindex.AccessSpecifier.PROTECTED):
            continue
        yield child
        if child.kind in containers:
            yield from walk(child, kinds)


def check_commit_subjects():
    log = subprocess.run(["git", "log", "--no-merges", "--format=%h %s"], cwd=ROOT, capture_output=True, text=True)
    for line in log.stdout.splitlines():
        commit, subject = line.split(" ", 1)
        if len(subject) >= 72:
            report("commit", commit, f"subject of {len(subject)} characters: {subject}")
        if subject.endswith("."):
            report("commit", commit, f"subject ends in a full stop: {subject}")
        if re.search(r"^(\S+: )?(fix|wip|update)$", subject, re.I):
            report("commit", commit, f"subject says nothing: {subject}")


check_includes()
check_sizes()
check_comments()
check_commit_subjects()
print("\n".join(findings) if findings else "sources: include direction, sizes, comments and commit subjects are in order")
sys.exit(1 if findings else 0)
