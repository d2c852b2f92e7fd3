# SPDX-License-Identifier: MIT
# Debian packages, one a component: ./dev package.
set(package_of_library libindicatorui${INDICATORUI_SOVERSION})
set(package_of_dev libindicatorui-dev)
set(package_of_apps indicatorui)

# Which package programs depend on that link the libraries.
set(shlibs "")
foreach(library IN LISTS libraries)
    string(APPEND shlibs "lib${library} ${INDICATORUI_SOVERSION} ${package_of_library} (>= ${PROJECT_VERSION})\n")
endforeach()
file(WRITE ${PROJECT_BINARY_DIR}/packaging/shlibs "${shlibs}")

# What Debian wants beside the files of every package.
find_program(GZIP gzip REQUIRED)
string(TIMESTAMP PACKAGE_DAY "%a, %d %b %Y %H:%M:%S +0000" UTC) # SOURCE_DATE_EPOCH, where it is set
configure_file(${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in ${PROJECT_BINARY_DIR}/packaging/changelog @ONLY)
execute_process(COMMAND ${GZIP} -9nkf ${PROJECT_BINARY_DIR}/packaging/changelog COMMAND_ERROR_IS_FATAL ANY)
foreach(component library dev apps)
    set(documents ${CMAKE_INSTALL_DATADIR}/doc/${package_of_${component}})
    install(FILES ${CMAKE_CURRENT_LIST_DIR}/debian/copyright DESTINATION ${documents} COMPONENT ${component})
    install(FILES ${PROJECT_BINARY_DIR}/packaging/changelog.gz DESTINATION ${documents}
            RENAME changelog.Debian.gz COMPONENT ${component})
endforeach()
install(CODE "
    file(GLOB pages \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_MANDIR}/man1/indicatorui-*.1\")
    if(pages)
        execute_process(COMMAND ${GZIP} -9nf \${pages} COMMAND_ERROR_IS_FATAL ANY)
    endif()" COMPONENT apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME indicatorui)
set(CPACK_PACKAGE_CONTACT "The Indicator UI authors <authors@indicatorui.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library dev apps)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

set(same "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(about " Painters of formula outputs (lines, sticks, candles, ticks, texts), the
 coloured legend above each pane, a stock basket and dated backups of
 formulas, over a platform that a client may replace.")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${package_of_library})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/packaging/shlibs
                                               ${CMAKE_CURRENT_LIST_DIR}/debian/triggers)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS fonts-noto-cjk)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "indicator user interface of trading clients - libraries\n${about}")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME ${package_of_dev})
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${package_of_library} ${same}, qtbase5-dev, libboost-dev")
set(CPACK_DEBIAN_DEV_DESCRIPTION "indicator user interface of trading clients - headers\n${about}")
set(CPACK_DEBIAN_APPS_PACKAGE_NAME ${package_of_apps})
set(CPACK_DEBIAN_APPS_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_APPS_PACKAGE_DEPENDS "${package_of_library} ${same}")
set(CPACK_DEBIAN_APPS_PACKAGE_RECOMMENDS qttranslations5-l10n)
set(CPACK_DEBIAN_APPS_DESCRIPTION "charts of market data with indicators of your own
 A client with charts, a formula editor and a stock basket, and a program
 that draws the same charts into pictures without a display.")
include(CPack)
