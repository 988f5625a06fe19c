#!/usr/bin/python3
"""Which sources may be compiled as one: scripts/source_groups.py MOST FILE... prints a line with the files of each group,
separated by commas.

Most of the time that a compiler spends on a source goes into headers that the next source includes as well. Sources go
together, at most MOST, that define no name of their own twice."""

import os
import re
import sys

UNNAMED = re.compile(r"^namespace(?: \{|\n\{)$(.*?)^\} // namespace$", re.M | re.S)
NAMED = re.compile(r"^(?:template <[^>]*> )?(?:(?:class|struct|enum|enum class) (\w+)|using (\w+) =|"
                   r"\w[^(={;\n]*?(?<!:)\b(\w+) *[(={;\[])", re.M)
MAIN = re.compile(r"^int main\(", re.M)


def own_names(path):
    """What a file defines in unnamed namespaces, roughly."""
    with open(path, encoding="utf-8") as file:
        text = file.read()
    scopes = [*UNNAMED.findall(text), *MAIN.findall(text)]
    return {name for scope in scopes for names in NAMED.findall(scope) for name in names if name}


def groups(most, files):
    """Lists of files that one source may include."""
    result = []
    for file in files:
        names = own_names(file)
        for group in result:
            if len(group["files"]) < most and not names & group["names"]:
                break
        else:
            group = {"files": [], "names": set()}
            result.append(group)
        group["files"].append(file)
        group["names"] |= names
    return [group["files"] for group in result]


if __name__ == "__main__":
    for group in groups(int(sys.argv[1]), map(os.path.abspath, sys.argv[2:])):
        print(",".join(group))
