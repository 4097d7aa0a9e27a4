"""The rules about paths as one would write them in Python, with pathlib and re: what is excluded, what the rest is, and
whether the user's choices admit it.

    python3 CaptureRulesPeer.py FILE

FILE holds paths separated by zero bytes. The first line of the output is nanoseconds of the processor per path, of the
best of several rounds; the others are the answers, one line for each path. Every rule is given text, as it is in Tessary.
"""

import re
import sys
import time
from os.path import normpath
from pathlib import PurePosixPath

MARKDOWN = frozenset("md markdown mdown mkd mkdn mdwn mdtxt mdtext rmd qmd".split())
HTML = frozenset("html htm xhtml".split())
IMAGES = frozenset("avif bmp gif heic heif ico jpeg jpg png svg tif tiff webp".split())
VIDEOS = frozenset("avi m4v mkv mov mp4 mpeg mpg webm".split())
CODE = frozenset(
    """adoc asm bash bat c cc cfg cjs clj cljc cljs cmd conf cpp cs css csv cxx dart erl ex exs f f90 f95 fish fs fsx go h
    hpp hrl hs ini ino java jl js json jsonc jsx kt kts lhs lisp log lua m mdx mjs ml mli mm nix pas pde php pl pm pp
    properties proto ps1 psm1 py pyw r rb rs rst s sass sc scm scss sh sql svelte swift tex text tf toml ts tsv tsx txt vb
    vbs vue xml yaml yml zsh""".split())
CODE_NAMES = frozenset("makefile dockerfile gemfile license readme".split())

CREDENTIAL_FILES = frozenset(
    """auth.json credentials.json credentials.yaml credentials.yml tokens.json secrets.json secrets.yaml secrets.yml id_rsa
    id_ed25519 cookie cookies.sqlite .npmrc .pypirc .netrc .git-credentials .dockercfg history.jsonl
    client_secret.json""".split())
KEY_SUFFIXES = frozenset(".pem .key .p8 .p12 .pfx .keystore .kdbx .mobileprovision".split())
BINARY_SUFFIXES = frozenset(".dylib .so .a .o .pyc .pyo .class .swiftmodule .swiftdoc".split())
CONFIG_SUFFIXES = frozenset(["", *".json .jsonc .yaml .yml .toml .ini .cfg .conf .txt .properties".split()])
CREDENTIAL_NAME = re.compile(
    r"\A(?:(?:[^\n]*[-_.])?(?:secrets?|credentials?|tokens?|auth|api[-_]?key|service[-_]account)"
    r"(?:[-_.](?:dev|development|prod|production|staging|stage|test|testing|local|qa|ci|preview|sandbox))?)\Z")
SSH_KEY_NAME = re.compile(r"\A(?:id_(?:rsa|ed25519|ecdsa|dsa)(?:[-_.][^\n]*)?)\Z")
HERMES_DIRECTORIES = frozenset(
    """cache web_cache image_cache logs sessions runtime state state-snapshots telemetry browser-profile pending_messages
    locks mcp-tokens .curator_backups""".split())
HERMES_SKILL_ENTRIES = frozenset(".archive .curator_backups .curator_state.json .locks .hub.json".split())
CODEX_MEMORY = re.compile(r"\Amemories(?:_v[0-9]+)?\Z")

ROOTS = ("/tmp", "/private/tmp", "/var/tmp", "/private/var/tmp", "/var/folders", "/private/var/folders")
DOCUMENT_ROOTS = ROOTS[:4]
DOCUMENT_EXTENSIONS = MARKDOWN | HTML | {"pdf", "txt"}
DATA_FOLDER_PARENT = "/home/someone/.local/share/tessary"

EXTENSION = re.compile(r"[a-z0-9][a-z0-9_-]{0,19}\Z")
POLICY = {
    "types": {"documents": True, "plans": True, "images": True, "videos": False, "pdfs": True, "code": True, "other": True},
    "extensions": frozenset("md markdown html htm png jpg jpeg gif webp heic heif csv pdf docx xlsx pptx py ts".split()),
    "includeExtensionless": False,
    "includeUnlistedExtensions": True,
    "resumeSince": 1767225600.0,
    "typeResumeSince": {"code": 1767225700.0, "images": 1767225650.0},
    "extensionResumeSince": {"py": 1767225900.0, "csv": 1767225500.0},
    "extensionlessResumeSince": None,
    "unlistedResumeSince": 1767225800.0,
}


def within(path, roots):
    return any(path == root or path.startswith(root + "/") for root in roots)


def hermes_runtime(parts):
    for index, part in enumerate(parts):
        if part != ".hermes":
            continue
        rest = parts[index + 1:]
        if len(rest) > 2 and rest[0] == "profiles":
            rest = rest[2:]
        if not rest:
            continue
        if rest[0] in HERMES_DIRECTORIES or (len(rest) > 1 and rest[0] == "skills" and rest[1] in HERMES_SKILL_ENTRIES):
            return True
    return False


def codex_memory(parts):
    return any(part == ".codex" and CODEX_MEMORY.match(after) for part, after in zip(parts, parts[1:]))


def temporary(path):
    normal = normpath(path)
    if not within(normal, ROOTS):
        return False
    if DATA_FOLDER_PARENT in ROOTS or not within(DATA_FOLDER_PARENT, ROOTS):
        return True
    return not within(normal, (DATA_FOLDER_PARENT,))


def non_document_text(text):
    path = PurePosixPath(text)
    name = path.name.casefold()
    if not name.endswith(".txt"):
        return False
    if name in ("cmakelists.txt", "robots.txt") or name.endswith(".log.txt"):
        return True
    if name.startswith(("requirements", "constraints", "license", "copying")):
        return True
    return any(part.casefold() in ("logs", "log") for part in path.parts[:-1])


def temporary_document_folder(text):
    normal = normpath(text)
    root = next((root for root in DOCUMENT_ROOTS if within(normal, (root,))), None)
    return root is not None and not any(part.startswith(".") for part in PurePosixPath(normal[len(root) + 1:]).parts)


def temporary_document(text):
    if not temporary_document_folder(text) or non_document_text(text):
        return False
    return PurePosixPath(text).suffix.casefold()[1:] in DOCUMENT_EXTENSIONS


def category(extension):
    if extension in MARKDOWN or extension in HTML:
        return "documents"
    if extension in IMAGES:
        return "images"
    if extension in VIDEOS:
        return "videos"
    if extension == "pdf":
        return "pdfs"
    return "code" if extension in CODE else "other"


def excluded(text):
    path = PurePosixPath(text)
    parts = path.parts
    if hermes_runtime(parts) or codex_memory(parts):
        return True
    if temporary(str(path)) and not temporary_document(str(path)):
        return True
    name, suffix = path.name.casefold(), path.suffix.casefold()
    if name in CREDENTIAL_FILES or name == ".env" or name.startswith(".env."):
        return True
    if (name.startswith("rollout") and suffix == ".jsonl") or name == ".ds_store":
        return True
    if suffix in KEY_SUFFIXES or suffix in BINARY_SUFFIXES:
        return True
    if category(suffix[1:]) in ("documents", "images", "pdfs"):
        return False
    if SSH_KEY_NAME.search(name):
        return True
    return suffix in CONFIG_SUFFIXES and CREDENTIAL_NAME.search(name[:len(name) - len(suffix)]) is not None


def artifact_type(text):
    path = PurePosixPath(text)
    extension = path.suffix.casefold()[1:]
    kind = category(extension)
    if kind == "documents":
        return kind, "html" if extension in HTML else "markdown"
    if kind != "other":
        return kind, {"images": "image", "videos": "video", "pdfs": "pdf", "code": "text"}[kind]
    return ("code", "text") if path.name.casefold() in CODE_NAMES else ("other", "file")


def normalized_extension(text):
    text = text.strip().lower().removeprefix(".")
    return text if EXTENSION.match(text) else None


def allowed(kind, modified, extension):
    if not POLICY["types"].get(kind):
        return False
    thresholds = [POLICY["resumeSince"], POLICY["typeResumeSince"].get(kind)]
    if extension == "":
        if not POLICY["includeExtensionless"]:
            return False
        thresholds.append(POLICY["extensionlessResumeSince"])
    else:
        extension = normalized_extension(extension)
        if extension is None:
            return False
        if extension in POLICY["extensions"]:
            thresholds.append(POLICY["extensionResumeSince"].get(extension))
        elif kind == "other" and POLICY["includeUnlistedExtensions"]:
            thresholds.append(POLICY["unlistedResumeSince"])
        else:
            return False
    thresholds = [threshold for threshold in thresholds if threshold is not None]
    return not thresholds or max(thresholds) <= modified


def judge(text, modified):
    if excluded(text):
        return "excluded"
    category_id, kind = artifact_type(text)
    extension = PurePosixPath(text).suffix[1:]
    return f"{category_id} {kind} {'allowed' if allowed(category_id, modified, extension) else 'refused'}"


def modified_at(index):
    return 1767225600.0 + index % 500


def main():
    with open(sys.argv[1], encoding="utf-8", newline="") as file:
        paths = file.read().split("\0")
    answers = [judge(path, modified_at(index)) for index, path in enumerate(paths)]
    work = [(path, modified_at(index)) for index, path in enumerate(paths)]
    best, spent = None, 0
    while spent < 1_000_000_000:
        start = time.process_time_ns()
        for path, modified in work:
            judge(path, modified)
        passed = time.process_time_ns() - start
        spent += passed
        best = passed if best is None else min(best, passed)
    print(best / len(paths))
    print("\n".join(answers))


main()
