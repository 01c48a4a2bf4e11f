#!/usr/bin/env bash
# The help pages lie beside the built program file, begin at index.html, and
# every page they link to is there; every other page leads back to the contents
# from its header.
source "$(dirname "$0")/lib.sh"

help=$(dirname "$TARVELON_EXE")/Help
[ -f "$help/index.html" ] || fail "no Help\\index.html beside the program file"
python3 - "$help" <<'PY' || fail "broken links or headers in the help pages"
import os, re, sys
folder = sys.argv[1]
pages = [name for name in os.listdir(folder) if name.endswith(".html")]
reached, todo = set(), ["index.html"]
while todo:
    page = todo.pop()
    if page in reached:
        continue
    reached.add(page)
    text = open(os.path.join(folder, page), encoding="cp1252").read()
    if page != "index.html" and '<header><a href="index.html">Tarvelon Help</a>' not in text:
        sys.exit(f"{page} has no link back to the contents in its header")
    for target in re.findall(r'(?:href|src)="([^"#:]+)"', text):
        if not os.path.isfile(os.path.join(folder, target)):
            sys.exit(f"{page} links to the missing {target}")
        if target.endswith(".html"):
            todo.append(target)
unreached = sorted(set(pages) - reached)
if unreached:
    sys.exit(f"pages no link leads to: {unreached}")
PY
echo "help pages: index.html beside the program, every link leads to a page, every page back to the contents"
