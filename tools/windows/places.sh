# SPDX-License-Identifier: MIT
# Where the libraries for Windows are kept, and how one of them is fetched and built; read by the other scripts.
set -euo pipefail
TOOLS=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
CACHE=${INDICATORUI_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/indicatorui/windows}
export INDICATORUI_WINDOWS_PREFIX=$CACHE/prefix
PREFIX=$INDICATORUI_WINDOWS_PREFIX
SOURCES=$CACHE/sources
HOST=x86_64-w64-mingw32
JOBS=${JOBS:-$(nproc)}
mkdir -p "$PREFIX/lib/pkgconfig" "$PREFIX/include" "$SOURCES/parts" "$SOURCES/lists/partial" "$CACHE/done" "$CACHE/build"

# once NAME COMMAND...: does it unless it was done, and keeps what it said in a log.
once() {
    local name=$1
    shift
    [ -e "$CACHE/done/$name" ] && return
    printf 'For Windows: %s\n' "$name" >&2
    # In a process of its own: "set -e" would not hold inside a condition.
    if ! bash -c ". '$TOOLS/places.sh'; . '$TOOLS/libraries.sh'; . '$TOOLS/qt.sh'; $*" >"$CACHE/$name.log" 2>&1; then
        tail -n 30 "$CACHE/$name.log" >&2
        printf 'Building %s failed; all of it: %s\n' "$name" "$CACHE/$name.log" >&2
        return 1
    fi
    touch "$CACHE/done/$name"
}

# The system's own package lists stay as they are: those of the sources are kept here.
read_lists() {
    cat /etc/apt/sources.list.d/*.sources 2>/dev/null | sed 's/^Types:.*/Types: deb-src/' >"$SOURCES/parts/here.sources"
    cat /etc/apt/sources.list 2>/dev/null | sed -n 's/^deb /deb-src /p' >"$SOURCES/parts/here.list" || true
    apt-get "${LISTS[@]}" update
}
LISTS=(-o "Dir::Etc::SourceList=/dev/null" -o "Dir::Etc::SourceParts=$SOURCES/parts" -o "Dir::State::Lists=$SOURCES/lists"
       -o "Dir::Cache::srcpkgcache=" -o "Dir::Cache::pkgcache=" -o "APT::Sandbox::User=")

# source_of PACKAGE: unpacks the newest Debian source that the mirror has, patches applied, below build/PACKAGE.
source_of() {
    local version
    cd "$SOURCES"
    for version in $(versions_of "$1"); do
        ! apt-get "${LISTS[@]}" source --download-only "$1=$version" || break
    done
    rm -rf "$CACHE/build/$1"
    dpkg-source --no-check -x "$1_${version#*:}.dsc" "$CACHE/build/$1"
    cd "$CACHE/build/$1"
}

# tarball_of PACKAGE: as source_of(), but without Debian's patches.
tarball_of() {
    cd "$SOURCES"
    apt-get "${LISTS[@]}" source --download-only --tar-only "$1"
    rm -rf "$CACHE/build/$1" && mkdir -p "$CACHE/build/$1"
    tar -xf "$(ls -t "$1"_*.orig.tar.* | head -n 1)" --strip-components=1 -C "$CACHE/build/$1"
    cd "$CACHE/build/$1"
}

versions_of() {
    apt-cache "${LISTS[@]}" showsrc --only-source "$1" | sed -n 's/^Version: //p' | sort --version-sort --reverse --unique
}

# cross_build FOLDER [OPTION...]: configures, builds and installs by CMake.
cross_build() {
    local folder=$1
    shift
    cmake -G Ninja -S "$folder" -B "$folder/windows-build" -DCMAKE_TOOLCHAIN_FILE="$TOOLS/toolchain.cmake" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$PREFIX" -DCMAKE_INSTALL_LIBDIR=lib "$@"
    cmake --build "$folder/windows-build" --parallel "$JOBS"
    cmake --install "$folder/windows-build"
}
