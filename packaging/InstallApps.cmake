# SPDX-License-Identifier: MIT
# The two programs, their manual pages, and what lists the client in the menus of a desktop.
set(programs indicatorui-render)
if(INDICATORUI_CLIENT)
    list(PREPEND programs indicatorui-client)
endif()
install(TARGETS ${programs} EXPORT IndicatorUIApps
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT apps)
install(EXPORT IndicatorUIApps NAMESPACE IndicatorUI:: DESTINATION ${package_folder} COMPONENT apps)

if(WIN32)
    return() # manual pages and menus of another kind
endif()
foreach(program IN LISTS programs)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/man/${program}.1.in ${PROJECT_BINARY_DIR}/packaging/${program}.1
                   @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/packaging/${program}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
            COMPONENT apps)
endforeach()

if(NOT INDICATORUI_CLIENT)
    return()
endif()
set(desktop ${PROJECT_SOURCE_DIR}/packaging/desktop)
install(FILES ${desktop}/indicatorui-client.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT apps)
install(FILES ${desktop}/indicatorui-client.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT apps)
install(FILES ${desktop}/indicatorui-client.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
        COMPONENT apps)
