#!/usr/bin/env bash
# make release: builds both program files from the checkout and packs them into
# build/release/: the 64-bit and 32-bit installers and the portable archive,
# all named with the CMake project version, and their SHA-256 checksums.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
jobs=$(nproc)
mkdir -p build
for preset in win64 win32; do
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" -j "$jobs" --target TarvelonLow; } \
        >"build/release-$preset.log" 2>&1; then
        grep -E 'error' "build/release-$preset.log" | head -n 20
        echo "the $preset program file did not build; see build/release-$preset.log" >&2
        exit 1
    fi
done
version=$(tr -d '\n' <build/win64/version.txt)
release=build/release
rm -rf "$release"
mkdir -p "$release"

declare -A build_of=([x64]=win64 [x86]=win32)
for arch in x64 x86; do
    makensis -V1 -DVERSION="$version" -DARCH="$arch" -DPROGRAM="$root/build/${build_of[$arch]}/TarvelonLow.exe" \
        -DHELP="$root/packaging/help" -DICON="$root/packaging/tarvelon.ico" \
        -DOUTFILE="$root/$release/Tarvelon-$version-setup-$arch.exe" packaging/installer/tarvelon.nsi
done

# The portable archive: each program file in its own folder with the help
# beside it, where the program looks for it, and a note for Windows users.
stage=$release/portable/Tarvelon-$version
for arch in x64 x86; do
    mkdir -p "$stage/$arch"
    cp "build/${build_of[$arch]}/TarvelonLow.exe" "$stage/$arch/"
    cp -r packaging/help "$stage/$arch/Help"
done
sed -e "s/@VERSION@/$version/g" -e 's/$/\r/' packaging/portable-readme.txt >"$stage/README.txt"
(cd "$release/portable" && zip -q -r -X "../Tarvelon-$version-portable.zip" "Tarvelon-$version")
rm -rf "$release/portable"
# The checksums, for a user to verify a download before running it.
(cd "$release" && sha256sum -- *.exe *.zip >SHA256SUMS.txt)
ls -1 "$release"
