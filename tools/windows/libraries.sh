# SPDX-License-Identifier: MIT
# Each library that Qt, the host or the tests rest on, from the sources of this Debian release. All but zlib's, which
# is a package, are linked into what uses them.
STATIC=(-DBUILD_SHARED_LIBS=OFF)

build_png() { source_of libpng1.6; cross_build . -DPNG_SHARED=OFF -DPNG_TESTS=OFF; }

build_pcre2() {
    source_of pcre2
    cross_build . "${STATIC[@]}" -DPCRE2_BUILD_PCRE2_8=OFF -DPCRE2_BUILD_PCRE2_16=ON -DPCRE2_SUPPORT_JIT=ON \
        -DPCRE2_BUILD_TESTS=OFF -DPCRE2_BUILD_PCRE2GREP=OFF
    sed -i '1i #define PCRE2_STATIC 1' "$PREFIX/include/pcre2.h" # Qt takes it for a DLL otherwise
}

# Glyphs and their places come from the same sources as on Linux: texts have the same pixels.
build_freetype() {
    source_of freetype
    cross_build . "${STATIC[@]}" -DFT_DISABLE_HARFBUZZ=ON -DFT_DISABLE_BROTLI=ON -DFT_DISABLE_BZIP2=ON \
        -DFT_DISABLE_PNG=ON # coloured glyphs alone; Qt links FreeType without it
}
build_harfbuzz() {
    source_of harfbuzz
    cross_build . "${STATIC[@]}" -DHB_HAVE_FREETYPE=OFF -DHB_BUILD_SUBSET=OFF
}

build_sqlite() {
    source_of sqlite3
    mkdir -p amalgamation && cd amalgamation
    ../configure --disable-tcl --disable-readline
    make sqlite3.c
    $HOST-gcc-posix -O2 -DSQLITE_THREADSAFE=1 -DSQLITE_ENABLE_COLUMN_METADATA=1 -c sqlite3.c
    $HOST-ar rcs "$PREFIX/lib/libsqlite3.a" sqlite3.o
    cp sqlite3.h sqlite3ext.h "$PREFIX/include"
}

build_expat() {
    source_of expat
    sed -i 's/^#cmakedefine XML_DTD$/& 1/' expat/expat_config.h.cmake # the sources compare it with a number
    cross_build expat "${STATIC[@]}" -DEXPAT_SHARED_LIBS=OFF -DEXPAT_BUILD_EXAMPLES=OFF -DEXPAT_BUILD_TESTS=OFF \
        -DEXPAT_BUILD_TOOLS=OFF -DEXPAT_BUILD_DOCS=OFF
}

build_libzip() {
    source_of libzip
    cross_build . "${STATIC[@]}" -DBUILD_DOC=OFF -DBUILD_EXAMPLES=OFF -DBUILD_REGRESS=OFF -DBUILD_TOOLS=OFF \
        -DENABLE_BZIP2=OFF -DENABLE_LZMA=OFF -DENABLE_ZSTD=OFF -DENABLE_OPENSSL=OFF -DENABLE_GNUTLS=OFF \
        -DENABLE_MBEDTLS=OFF -DENABLE_WINDOWS_CRYPTO=OFF
    sed -i 's/^Libs:.*/& -lz/' "$PREFIX/lib/pkgconfig/libzip.pc" # what a static library rests on is named there
}

build_xlsxwriter() { source_of libxlsxwriter; cross_build . "${STATIC[@]}" -DUSE_SYSTEM_MINIZIP=OFF; }

build_googletest() {
    rm -rf "$CACHE/build/googletest"
    cp -r /usr/src/googletest "$CACHE/build/googletest"
    cross_build "$CACHE/build/googletest" "${STATIC[@]}"
}

build_boost_headers() { cp -rT /usr/include/boost "$PREFIX/include/boost"; }

# Panels of the client.
build_docking() {
    tarball_of qt-advanced-docking-system
    cross_build . -DBUILD_EXAMPLES=OFF -DQT_VERSION_MAJOR=5 -DADS_VERSION=3.8.3 \
        -DCMAKE_SHARED_LINKER_FLAGS=-Wl,--export-all-symbols # the cross of drop places is not marked for export
    mkdir -p "$PREFIX/include/qtadvanceddocking" # where Debian's package has its headers
    cp src/*.h "$PREFIX/include/qtadvanceddocking"
}
