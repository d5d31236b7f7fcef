"""Compares the version of the public header with every other place: versions.py ROOT CMAKE_VERSION"""

import json
import pathlib
import re
import sys


def main(root_path, cmake_version):
    root = pathlib.Path(root_path)

    def found(file, pattern):
        match = re.search(pattern, (root / file).read_text(encoding="utf-8"), re.M)
        return match.group(1) if match else None

    header = "include/QueryPackage.h"
    numbers = [found(header, rf"^#define QUERYPACKAGE_VERSION_{part} (\d+)$")
               for part in ("MAJOR", "MINOR", "PATCH")]
    version = found(header, r'^#define QUERYPACKAGE_VERSION_STRING "(.*)"$')
    places = {
        "the numbers of the header": (".".join(map(str, numbers)), version),
        "CMake": (cmake_version, version),
        "vcpkg.json": (json.loads((root / "vcpkg.json").read_text())["version"], version),
        "CHANGELOG.md": (found("CHANGELOG.md", r"^## \[(\d.*)\]"), version),
        "the ZIP in README.md": (found("README.md", r"querypackage-([\d.]+)-windows"), version),
        "find_package in README.md": (found("README.md", r"find_package\(querypackage (\S+)"),
                                      ".".join(map(str, numbers[:2])))}
    faults = [f"{place} has version {real}, not {wanted}"
              for place, (real, wanted) in places.items() if real != wanted]
    print("\n".join(faults) if faults else version)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
