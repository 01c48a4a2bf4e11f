#!/usr/bin/env bash
# The help pages lie beside the built program file, begin at index.html, and
# every page they link to is there; every other page leads back to the contents
# from its header.
source "$(dirname "$0")/lib.sh"

help=$(dirname "$TARVELON_EXE")/Help
[ -f "$help/index.html" ] || fail "no Help\\index.html beside the program file"
python3 - "$help" <<'PY' || fail "broken links or headers in the help pages"
import os, re, sys
folder, reached, todo = sys.argv[1], set(), ["index.html"]
while todo:
    page = todo.pop()
    if page in reached:
        continue
    reached.add(page)
    text = open(os.path.join(folder, page), encoding="cp1252").read()
    assert page == "index.html" or '<header><a href="index.html">Tarvelon Help</a>' in text, f"{page}: no way back"
    for target in re.findall(r'(?:href|src)="([^"#:]+)"', text):
        assert os.path.isfile(os.path.join(folder, target)), f"{page} links to the missing {target}"
        todo += [target] if target.endswith(".html") else []
unreached = {name for name in os.listdir(folder) if name.endswith(".html")} - reached
assert not unreached, f"pages no link leads to: {sorted(unreached)}"
PY
echo "help pages: index.html beside the program, every link leads to a page, every page back to the contents"
