# SPDX-License-Identifier: MIT
# What `cmake --install` puts where: the libraries, their headers and a CMake package, so that a client
# writes find_package(IndicatorUI) and links IndicatorUI::indicatorui; and the programs.
include(CMakePackageConfigHelpers)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/IndicatorUI)

set(libraries indicatorui indicatorhost)
if(INDICATORUI_HOST STREQUAL "embedded")
    list(APPEND libraries indicatorengine)
endif()
install(TARGETS ${libraries} EXPORT IndicatorUITargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT IndicatorUITargets NAMESPACE IndicatorUI:: DESTINATION ${package_folder})
if(INDICATORUI_APPS AND INDICATORUI_HOST STREQUAL "embedded")
    install(TARGETS indicatorui-client indicatorui-render RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

foreach(folder data draw title stocklist dock recovery)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${folder} DESTINATION include/indicatorui
            FILES_MATCHING PATTERN "*.h" PATTERN internal EXCLUDE)
endforeach()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/host DESTINATION include/indicatorui
        FILES_MATCHING PATTERN "*.h" PATTERN embedded EXCLUDE)
if(INDICATORUI_HOST STREQUAL "embedded")
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/host/embedded DESTINATION include/indicatorui/host
            FILES_MATCHING PATTERN "EmbeddedHost.h" PATTERN "*Setup.h")
    # Of the engine: how formulas and files are read and computed; its insides stay at home.
    foreach(header EngineExport.h Formulas.h FormulaService.h TickFormulas.h evaluation/FormulaEvaluation.h
                   files/BarFile.h files/TickFile.h language/Formula.h language/Problem.h records/FormulaRecords.h
                   series/BarSeries.h series/TickSeries.h)
        cmake_path(GET header PARENT_PATH folder)
        install(FILES ${PROJECT_SOURCE_DIR}/engine/${header} DESTINATION include/indicatorui/engine/${folder})
    endforeach()
endif()
get_target_property(generated_headers indicatorui BINARY_DIR)
install(FILES ${generated_headers}/indicatorui_export.h DESTINATION include/indicatorui)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/THIRD-PARTY.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR})

configure_package_config_file(${PROJECT_SOURCE_DIR}/packaging/IndicatorUIConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/IndicatorUIConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/IndicatorUIConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/IndicatorUIConfig.cmake ${PROJECT_BINARY_DIR}/IndicatorUIConfigVersion.cmake
        DESTINATION ${package_folder})
