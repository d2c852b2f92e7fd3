# SPDX-License-Identifier: MIT
# What `cmake --install` puts where, by component: `library` (what programs need to run), `dev` (headers, CMake
# package, pkg-config files: what they need to be built) and `apps` (the two programs and what belongs to them).
# All of it may be moved as a whole.
include(CMakePackageConfigHelpers)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/IndicatorUI)
set(headers_folder ${CMAKE_INSTALL_INCLUDEDIR}/indicatorui)
set(has_default_host OFF)
if(INDICATORUI_HOST STREQUAL "embedded")
    set(has_default_host ON)
endif()

set(libraries indicatorui indicatorhost)
if(has_default_host)
    list(APPEND libraries indicatorengine)
endif()
install(TARGETS ${libraries} EXPORT IndicatorUITargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT dev
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
install(EXPORT IndicatorUITargets NAMESPACE IndicatorUI:: DESTINATION ${package_folder} COMPONENT dev)
if(INDICATORUI_APPS AND has_default_host)
    include(${CMAKE_CURRENT_LIST_DIR}/InstallApps.cmake)
endif()

foreach(folder data draw title stocklist dock recovery)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${folder} DESTINATION ${headers_folder} COMPONENT dev
            FILES_MATCHING PATTERN "*.h" PATTERN internal EXCLUDE)
endforeach()
foreach(folder luawrapper se TC ttservice utils WB)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/host/${folder} DESTINATION ${headers_folder}/host COMPONENT dev
            FILES_MATCHING PATTERN "*.h")
endforeach()
# A platform of the client's own compiles the one source of the seam itself.
install(FILES ${PROJECT_SOURCE_DIR}/host/HostExport.h DESTINATION ${headers_folder}/host COMPONENT dev)
install(FILES ${PROJECT_SOURCE_DIR}/host/utils/Singletons.cpp DESTINATION ${headers_folder}/host/utils COMPONENT dev)
if(has_default_host)
    file(GLOB setup_headers ${PROJECT_SOURCE_DIR}/host/embedded/*.h)
    install(FILES ${setup_headers} DESTINATION ${headers_folder}/host/embedded COMPONENT dev)
    # Of the engine: how formulas and files are read and computed; its insides stay at home.
    foreach(header EngineExport.h Formulas.h FormulaService.h TickFormulas.h evaluation/FormulaEvaluation.h
                   files/BarFile.h files/TickFile.h language/Formula.h language/Problem.h records/FormulaRecords.h
                   series/BarSeries.h series/TickSeries.h)
        cmake_path(GET header PARENT_PATH folder)
        install(FILES ${PROJECT_SOURCE_DIR}/engine/${header} DESTINATION ${headers_folder}/engine/${folder}
                COMPONENT dev)
    endforeach()
endif()
get_target_property(generated_headers indicatorui BINARY_DIR)
install(FILES ${generated_headers}/indicatorui_export.h DESTINATION ${headers_folder} COMPONENT dev)

configure_package_config_file(${PROJECT_SOURCE_DIR}/packaging/IndicatorUIConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/packaging/IndicatorUIConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/packaging/IndicatorUIConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/packaging/IndicatorUIConfig.cmake
              ${PROJECT_BINARY_DIR}/packaging/IndicatorUIConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT dev)

# pkg-config finds the rest from where its own file stands.
file(RELATIVE_PATH PREFIX_FROM_PKGCONFIG /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
set(pkg_config_files indicatorui)
set(HOST_LIBRARY "") # a client's own platform is for the client to name
if(has_default_host)
    list(APPEND pkg_config_files indicatorui-engine)
    set(HOST_LIBRARY "-lindicatorhost")
endif()
foreach(name IN LISTS pkg_config_files)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/${name}.pc.in ${PROJECT_BINARY_DIR}/packaging/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/packaging/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
            COMPONENT dev)
endforeach()

if(INDICATORUI_PACKAGES)
    include(${CMAKE_CURRENT_LIST_DIR}/Packages.cmake) # says in its own way who made what
else()
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/THIRD-PARTY.md
                  ${PROJECT_SOURCE_DIR}/packaging/UNICODE-LICENSE
            DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT library)
endif()
