# The sources of the project and what they include, for the checks.

import re
from functools import cache
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def under(folder, *endings):
    """The files below a folder of the project with one of the endings, sorted."""
    return sorted(path for path in (ROOT / folder).rglob("*") if path.suffix in endings)


@cache
def includes(path):
    """What a file includes: the quoted names, and those in angle brackets."""
    found = INCLUDE.findall(path.read_text(encoding="utf-8"))
    return [quoted for quoted, _ in found if quoted], [angle for _, angle in found if angle]


def closure(path):
    """The file and all files of src/, or beside it, that it includes, directly or not."""
    seen = {path}
    pending = [path]
    while pending:
        source = pending.pop()
        for name in includes(source)[0]:
            for header in (ROOT / "src" / name, source.parent / name):
                if header.is_file() and header not in seen:
                    seen.add(header)
                    pending.append(header)
    return sorted(seen)
