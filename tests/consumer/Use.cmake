# SPDX-License-Identifier: MIT
# Configures, builds and runs the client's project as USE says (see CMakeLists.txt beside this file), below
# FOLDER. SOURCE: the library's; BUILD: a build tree to install the package from; GENERATOR, LAUNCHER and
# BUILD_TYPE as there. Unoptimized: this is about the build, not about speed.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(failed)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()

# Whether `cmake --install` of the tree puts the library where a client looks for it.
function(install_package tree prefix)
    file(REMOVE_RECURSE ${prefix})
    run(${CMAKE_COMMAND} --install ${tree} --prefix ${prefix})
    file(GLOB_RECURSE installed ${prefix}/*)
    foreach(file "/libindicatorui.so" "/IndicatorUIConfig.cmake" "/include/indicatorui/draw/CDrawStyle.h"
                 "/include/indicatorui/host/WB/CUiResource.h" "/include/indicatorui/indicatorui_export.h" "/LICENSE")
        string(FIND "${installed};" "${file};" found)
        if(found EQUAL -1)
            message(FATAL_ERROR "${file} is not installed")
        endif()
    endforeach()
endfunction()

if(USE STREQUAL "package")
    install_package(${BUILD} ${FOLDER}/prefix)
    set(package -DCMAKE_PREFIX_PATH=${FOLDER}/prefix)
endif()
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${FOLDER}/build -G ${GENERATOR} -DCMAKE_BUILD_TYPE=
    -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DINDICATORUI_USE=${USE} -DINDICATORUI_SOURCE=${SOURCE} ${package})
run(${CMAKE_COMMAND} --build ${FOLDER}/build --parallel 2)
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen INDICATORUI_HOME=${FOLDER}/home ${FOLDER}/build/client)
if(USE STREQUAL "external")
    install_package(${FOLDER}/build ${FOLDER}/prefix)
endif()
