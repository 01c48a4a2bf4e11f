#!/usr/bin/env bash
# make release: builds both program files from the checkout and packs them into
# build/release/: the 64-bit and 32-bit setups and the portable archive, all
# named with the CMake project version, and their SHA-256 checksums.
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
stage=build/release-files
rm -rf "$release" "$stage"
mkdir -p "$release" "$stage"

# What goes beside each program file, installed or unpacked: the program
# without its debugging symbols, the help, the licence, the notices of the
# compiler's runtime linked into it, and the release notes, with the CR LF
# line ends that every Notepad shows.
declare -A build_of=([x64]=win64 [x86]=win32) strip_of=([x64]=x86_64-w64-mingw32-strip [x86]=i686-w64-mingw32-strip)
# The setup's first and last pages show the icon's shield on its blue.
convert -size 164x314 xc:'#1F4E8C' \( 'packaging/tarvelon.ico[4]' -resize 128x128 \) -gravity north \
    -geometry +0+56 -composite BMP3:"$stage/picture.bmp"
for arch in x64 x86; do
    files=$stage/$arch
    mkdir -p "$files"
    "${strip_of[$arch]}" -o "$files/TarvelonLow.exe" "build/${build_of[$arch]}/TarvelonLow.exe"
    cp -r packaging/help "$files/Help"
    for text in LICENSE.txt packaging/NOTICES.txt CHANGELOG.md; do
        sed -e 's/\r$//' -e 's/$/\r/' "$text" >"$files/$(basename "$text")"
    done
    makensis -V1 -DVERSION="$version" -DARCH="$arch" -DPROGRAM="$root/$files/TarvelonLow.exe" \
        -DHELP="$root/$files/Help" -DDOCS="$root/$files" -DICON="$root/packaging/tarvelon.ico" \
        -DPICTURE="$root/$stage/picture.bmp" \
        -DOUTFILE="$root/$release/Tarvelon-$version-setup-$arch.exe" packaging/installer/tarvelon.nsi
done

# The portable archive: each program's files in a folder of their own, and a
# note for Windows users.
portable=$stage/portable/Tarvelon-$version
mkdir -p "$portable"
cp -r "$stage/x64" "$stage/x86" "$portable/"
sed -e "s/@VERSION@/$version/g" -e 's/$/\r/' packaging/portable-readme.txt >"$portable/README.txt"
(cd "$stage/portable" && zip -q -r -X "$root/$release/Tarvelon-$version-portable.zip" "Tarvelon-$version")
# The checksums, for a user to verify a download before running it.
(cd "$release" && sha256sum -- *.exe *.zip >SHA256SUMS.txt)
ls -1 "$release"
