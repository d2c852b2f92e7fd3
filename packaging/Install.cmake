# What `cmake --install` puts where: the libraries, their headers and a CMake package, so that a client
# writes find_package(IndicatorUI) and links IndicatorUI::indicatorui.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS indicatorui indicatorhost EXPORT IndicatorUITargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT IndicatorUITargets NAMESPACE IndicatorUI:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/IndicatorUI)

foreach(folder data draw title stocklist dock recovery)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${folder} DESTINATION include/indicatorui
            FILES_MATCHING PATTERN "*.h" PATTERN internal EXCLUDE)
endforeach()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/host DESTINATION include/indicatorui
        FILES_MATCHING PATTERN "*.h" PATTERN embedded EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/host/embedded DESTINATION include/indicatorui/host
        FILES_MATCHING PATTERN "EmbeddedHost.h" PATTERN "*Setup.h")
install(FILES ${PROJECT_BINARY_DIR}/src/indicatorui_export.h DESTINATION include/indicatorui)

configure_package_config_file(${PROJECT_SOURCE_DIR}/packaging/IndicatorUIConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/IndicatorUIConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/IndicatorUI)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/IndicatorUIConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/IndicatorUIConfig.cmake ${PROJECT_BINARY_DIR}/IndicatorUIConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/IndicatorUI)
