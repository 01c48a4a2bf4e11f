#!/usr/bin/env bash
# The 32-bit program file must load on Windows 98 SE (and so on XP and every
# later Windows): it may import nothing but the functions of 98 SE's system
# DLLs listed, with their sources, in tools/win98se-imports.txt, whatever
# brings the import in (the program, the C runtime, the compiler's thread
# support), and must declare a subsystem version 98 runs (4.x).
set -euo pipefail
exe=${1:?program file}
list=$(dirname "$0")/win98se-imports.txt
dump=$(i686-w64-mingw32-objdump -p "$exe")
status=0

imports=$(awk '/DLL Name:/ { dll = toupper($3) } /^\t[ 0-9a-f]+\t *[0-9]+ / { print dll, $3 }' <<<"$dump" | sort -u)
allowed=$(awk '!/^#/ && NF { print toupper($1), $2 }' "$list" | sort -u)
[ -n "$imports" ] || { echo "$exe: no imports found"; exit 1; }
if unlisted=$(comm -23 <(echo "$imports") <(echo "$allowed")) && [ -n "$unlisted" ]; then
    echo "imports that Windows 98 SE's DLLs do not export (not in $list):"
    echo "$unlisted"
    status=1
fi

major=$(sed -n 's/^MajorSubsystemVersion\s*//p' <<<"$dump")
if (( major > 4 )); then
    echo "subsystem version $major.x: Windows 98 runs 4.x only"; status=1
fi
[ $status -eq 0 ] && echo "$exe: every import is one of Windows 98 SE's, subsystem version $major.x"
exit $status
