# What `cmake --install` puts where: the libraries, their headers and a CMake package, so that a client
# writes find_package(IndicatorUI) and links IndicatorUI::indicatorui.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# The libraries lie side by side and find one another.
set_target_properties(indicatorui indicatorhost engine PROPERTIES INSTALL_RPATH $ORIGIN)
install(TARGETS indicatorui indicatorhost engine EXPORT IndicatorUITargets
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
# Of the engine: how formulas and files are read and computed; its insides stay at home.
foreach(header EngineExport.h Formulas.h FormulaService.h TickFormulas.h evaluation/FormulaEvaluation.h
               files/BarFile.h files/TickFile.h language/Formula.h language/Problem.h records/FormulaRecords.h
               series/BarSeries.h series/TickSeries.h)
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${PROJECT_SOURCE_DIR}/engine/${header} DESTINATION include/indicatorui/engine/${folder})
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/src/indicatorui_export.h DESTINATION include/indicatorui)

configure_package_config_file(${PROJECT_SOURCE_DIR}/packaging/IndicatorUIConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/IndicatorUIConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/IndicatorUI)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/IndicatorUIConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/IndicatorUIConfig.cmake ${PROJECT_BINARY_DIR}/IndicatorUIConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/IndicatorUI)
