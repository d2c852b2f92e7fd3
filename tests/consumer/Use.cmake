# SPDX-License-Identifier: MIT
# Configures, builds and runs the client's project as USE says (see CMakeLists.txt beside this file), below
# FOLDER. SOURCE: the library's; BUILD: a build tree to install the package from; GENERATOR, LAUNCHER and
# COMPILER as there; QT: the major version of Qt; CLIENT: whether BUILD has the reference client. Unoptimized: this is about the build, not about speed.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(failed)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# Whether `cmake --install` of the tree puts the library where a client looks for it. It is moved afterwards: an
# installed tree may stand anywhere.
function(install_package tree prefix)
    file(REMOVE_RECURSE ${prefix} ${prefix}-before)
    run(${CMAKE_COMMAND} --install ${tree} --prefix ${prefix}-before)
    file(RENAME ${prefix}-before ${prefix})
    file(GLOB_RECURSE installed ${prefix}/*)
    foreach(file "/libindicatorui.so" "/IndicatorUIConfig.cmake" "/indicatorui.pc" "/LICENSE" "/THIRD-PARTY.md"
                 "/include/indicatorui/draw/CDrawStyle.h" "/include/indicatorui/host/WB/CUiResource.h"
                 "/include/indicatorui/host/utils/Singletons.cpp" "/include/indicatorui/indicatorui_export.h" ${ARGN})
        string(FIND "${installed};" "${file};" found)
        if(found EQUAL -1)
            message(FATAL_ERROR "${file} is not installed")
        endif()
    endforeach()
endfunction()

# The installed library without CMake.
function(use_through_pkg_config prefix)
    file(GLOB_RECURSE file ${prefix}/*/indicatorui.pc)
    cmake_path(GET file PARENT_PATH folder)
    set(ENV{PKG_CONFIG_PATH} ${folder})
    run(pkg-config --cflags --libs indicatorui indicatorui-engine)
    separate_arguments(flags UNIX_COMMAND "${output}")
    run(pkg-config --variable=libdir indicatorui)
    separate_arguments(libraries UNIX_COMMAND "${output}") # pkg-config marks blanks
    run(${LAUNCHER} ${COMPILER} -std=c++17 -fPIC -c ${CMAKE_CURRENT_LIST_DIR}/main.cpp -o ${FOLDER}/plain.o ${flags})
    run(${COMPILER} ${FOLDER}/plain.o -o ${FOLDER}/plain ${flags} -Wl,-rpath,${libraries})
    run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${FOLDER}/plain)
endfunction()

# Both programs start from where they were installed.
function(start_programs prefix)
    run(${CMAKE_COMMAND} -E env INDICATORUI_HOME=${FOLDER}/home ${prefix}/bin/indicatorui-render
        --bars ${SOURCE}/samples/bars/SH600030.csv -o ${FOLDER}/chart.png)
    if(NOT CLIENT)
        return()
    endif()
    execute_process(COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen INDICATORUI_HOME=${FOLDER}/home
                            ${prefix}/bin/indicatorui-client
                    TIMEOUT 3 RESULT_VARIABLE ended ERROR_VARIABLE output)
    if(NOT ended MATCHES "timeout") # it waits for its user
        message(FATAL_ERROR "indicatorui-client ended by itself: ${ended}\n${output}")
    endif()
endfunction()

if(USE STREQUAL "package")
    set(of_client "")
    if(CLIENT)
        set(of_client "/man1/indicatorui-client.1" "/applications/indicatorui-client.desktop"
                      "/scalable/apps/indicatorui-client.svg" "/metainfo/indicatorui-client.metainfo.xml")
    endif()
    install_package(${BUILD} ${FOLDER}/prefix "/indicatorui-engine.pc" "/man1/indicatorui-render.1" ${of_client})
    set(package -DCMAKE_PREFIX_PATH=${FOLDER}/prefix)
endif()
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${FOLDER}/build -G ${GENERATOR} -DCMAKE_BUILD_TYPE=
    -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DINDICATORUI_USE=${USE} -DINDICATORUI_SOURCE=${SOURCE}
    -DINDICATORUI_QT=${QT} ${package})
run(${CMAKE_COMMAND} --build ${FOLDER}/build --parallel 2)
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen INDICATORUI_HOME=${FOLDER}/home ${FOLDER}/build/client)
if(USE STREQUAL "external")
    install_package(${FOLDER}/build ${FOLDER}/prefix)
elseif(USE STREQUAL "package")
    use_through_pkg_config(${FOLDER}/prefix)
    start_programs(${FOLDER}/prefix)
endif()
