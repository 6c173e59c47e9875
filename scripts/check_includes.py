#!/usr/bin/env python3
"""Reads the #include lines under src/ and fails on one that points the wrong way.

The order of the layers is told in docs/architecture.md; this is its executable form.
"""

import pathlib
import re
import sys

BASE = {"platform", "platform/values", "platform/text", "platform/clock", "platform/files", "platform/settings"}
STORE = BASE | {"platform/store"}
REPORTS = STORE | {"platform/reports"}
WINDOWING = REPORTS | {"platform/windowing"}
PLATFORM = WINDOWING | {"platform/preview"}
SUBSYSTEMS = ["schema", "session", "printing", "masterdata", "duedates", "documents", "warehouse"]

# What each folder may include, itself among it.
ALLOWED = {folder: BASE for folder in BASE}
ALLOWED["platform/store"] = STORE
ALLOWED["platform/reports"] = REPORTS
ALLOWED["platform/windowing"] = WINDOWING
ALLOWED["platform/preview"] = PLATFORM
ALLOWED["platform/qt"] = PLATFORM | {"platform/qt"}
for position, subsystem in enumerate(SUBSYSTEMS):
    ALLOWED[subsystem] = PLATFORM | set(SUBSYSTEMS[: position + 1])
ALLOWED["maintenance"] = PLATFORM | {"schema", "session", "maintenance"}
ALLOWED["program"] = set(ALLOWED) - {"platform/qt"} | {"program"}  # wires the subsystems, whatever the host
ALLOWED["app"] = set(ALLOWED) | {"app"}

QT = {"platform/qt", "app"}
ENGINE = {"platform/store"}

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
TOOLKIT = re.compile(r"^(Q[A-Z]|Qt|qt|q[a-z]+\.h$)")


def folder_of(path):
    """The layer that a file under src/ belongs to: its first folder, or its first two under platform."""
    parts = path.parts[:-1]
    return "/".join(parts[:2] if parts[:1] == ("platform",) else parts[:1])


def faults_of(source, root):
    folder = folder_of(source)
    if folder not in ALLOWED:
        return [f"src/{source}: the folder {folder or '.'} has no place in the order of the layers"]
    faults = []
    for number, line in enumerate((root / source).read_text(encoding="utf-8").splitlines(), start=1):
        found = INCLUDE.match(line)
        if not found:
            continue
        quoted, system = found.groups()
        name = quoted or system
        where = f"src/{source}:{number}: "
        if TOOLKIT.match(name):
            if folder not in QT:
                faults.append(f"{where}{folder} must not know Qt ({name})")
        elif pathlib.PurePosixPath(name).name == "sqlite3.h":
            if folder not in ENGINE:
                faults.append(f"{where}{folder} must not know the engine ({name})")
        elif quoted and not name.endswith(".moc"):
            if not (root / quoted).is_file():
                faults.append(f"{where}{quoted} is no file under src/")
            elif folder_of(pathlib.PurePosixPath(quoted)) not in ALLOWED[folder]:
                faults.append(f"{where}{folder} must not include {quoted}")
    return faults


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent.parent / "src")
    sources = sorted(path.relative_to(root) for path in root.rglob("*") if path.suffix in {".h", ".cpp"})
    faults = [fault for source in sources for fault in faults_of(pathlib.PurePosixPath(source), root)]
    for fault in faults:
        print(fault)
    print(f"{len(sources)} files read, {len(faults)} wrong includes")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
