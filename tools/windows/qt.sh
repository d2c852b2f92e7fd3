# SPDX-License-Identifier: MIT
# Qt for Windows, of the version of this Debian release and of no more modules than the project links.
build_qt() {
    local tool
    source_of qtbase-opensource-src
    # Its tools are those of this machine: the same version, ready made.
    sed -i -E '/(depends|SUBDIRS) \+?= /s/src_tools_[a-z0-9_]*//g' src/src.pro
    mkdir -p "$CACHE/qt-tools/bin"
    for tool in moc rcc uic qvkgen tracegen; do
        ln -sf "/usr/lib/qt5/bin/$tool" "$CACHE/qt-tools/bin/$tool"
    done
    mkdir -p windows-build && cd windows-build
    ln -sfn . windows-build # under which the rules of its installation look for what they install
    ../configure -opensource -confirm-license -release -shared -prefix "$PREFIX" -hostprefix "$CACHE/qt-tools" \
        -external-hostbindir /usr/lib/qt5/bin -xplatform win32-g++ -device-option CROSS_COMPILE=$HOST- \
        -nomake examples -nomake tests -nomake tools \
        -I "$PREFIX/include" -I "$PREFIX/include/freetype2" -I "$PREFIX/include/harfbuzz" -L "$PREFIX/lib" \
        -system-zlib -system-libpng -system-pcre -system-freetype -system-harfbuzz -sql-sqlite -system-sqlite \
        -no-libjpeg -no-gif -no-opengl -no-direct2d -no-dbus -no-icu -no-openssl -no-sql-odbc \
        -no-feature-network -no-feature-tabletevent # Debian's source lacks the header of tablets
    make -j "$JOBS"
    make install
}

build_qtsvg() {
    source_of qtsvg-opensource-src
    "$CACHE/qt-tools/bin/qmake" .
    make -j "$JOBS" sub-src
    make sub-src-install_subtargets
}
