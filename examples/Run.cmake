# SPDX-License-Identifier: MIT
# Builds the examples below FOLDER over the library that is installed at PREFIX, and lets each make its picture
# INTO a folder from BARS. GENERATOR, LAUNCHER: as the project's own.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(failed)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()

run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${FOLDER}/build -G ${GENERATOR} -DCMAKE_BUILD_TYPE=
    -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DCMAKE_PREFIX_PATH=${PREFIX})
run(${CMAKE_COMMAND} --build ${FOLDER}/build --parallel 2)
set(EXAMPLES first_picture pane page skin own_engine own_host tutorial)
file(MAKE_DIRECTORY ${INTO})
foreach(example IN LISTS EXAMPLES)
    run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen TZ=Asia/Shanghai LC_ALL=C.UTF-8
        INDICATORUI_HOME=${FOLDER}/home ${FOLDER}/build/bin/${example} ${BARS} ${INTO}/${example}.png)
endforeach()

# With EXPECTED: each picture is the one that stands there. They show texts as Qt 5 paints them.
foreach(example IN LISTS EXAMPLES)
    if(DEFINED EXPECTED)
        file(SHA256 ${INTO}/${example}.png made)
        file(SHA256 ${EXPECTED}/${example}.png expected)
        if(NOT made STREQUAL expected)
            message(FATAL_ERROR "${INTO}/${example}.png is not ${EXPECTED}/${example}.png: ./dev pictures examples")
        endif()
    endif()
endforeach()
