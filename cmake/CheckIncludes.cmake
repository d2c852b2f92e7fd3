# SPDX-License-Identifier: MIT
# Includes point one way: host <- data <- draw <- title; stocklist, dock and recovery use host only; the
# library never includes host/embedded, engine or apps. Within the engine no arrow runs back up either: series <-
# records; series, calendar <- files; kernels <- language <- evaluation <- the top. Prints every line that does
# otherwise.

# Folder of the library -> folders that its files may include from.
set(allowed_data "data|host")
set(allowed_draw "draw|data|host")
set(allowed_title "title|draw|data|host")
set(allowed_stocklist "stocklist|host")
set(allowed_dock "dock|host")
set(allowed_recovery "recovery|host")
set(project_folders "data|draw|title|stocklist|dock|recovery|host|engine|apps|tests|bench")

set(offences 0)

function(check_file file folder allowed)
    file(STRINGS ${file} includes REGEX "^#include \"")
    foreach(line IN LISTS includes)
        string(REGEX REPLACE "^#include \"([^\"]*)\".*" "\\1" target "${line}")
        string(REGEX MATCH "^(${project_folders})/" known "${target}")
        if(NOT known)
            continue()
        endif()
        if(NOT target MATCHES "^(${allowed})(/|$)" OR target MATCHES "^host/embedded/")
            file(RELATIVE_PATH shown ${ROOT} ${file})
            message("${shown}: ${folder} must not include \"${target}\"")
            math(EXPR offences "${offences} + 1")
        endif()
    endforeach()
    set(offences ${offences} PARENT_SCOPE)
endfunction()

foreach(folder data draw title stocklist dock recovery)
    file(GLOB_RECURSE files ${ROOT}/src/${folder}/*.h ${ROOT}/src/${folder}/*.cpp)
    foreach(file IN LISTS files)
        check_file(${file} src/${folder} "${allowed_${folder}}")
    endforeach()
endforeach()

# The seam's own headers know neither the library nor the default behind them.
file(GLOB_RECURSE files ${ROOT}/host/*.h)
list(FILTER files EXCLUDE REGEX "/host/embedded/")
foreach(file IN LISTS files)
    check_file(${file} host "host")
endforeach()

# Folder of the engine -> folders of the engine that its files may include from.
set(engine_series "series")
set(engine_records "records|series")
set(engine_calendar "calendar")
set(engine_files "files|calendar|series")
set(engine_kernels "kernels|calendar|series")
set(engine_language "language|kernels|series")
set(engine_evaluation "evaluation|language|kernels|records|series")
file(GLOB_RECURSE files ${ROOT}/engine/*.h ${ROOT}/engine/*.cpp)
foreach(file IN LISTS files)
    cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${ROOT}/engine OUTPUT_VARIABLE inside)
    cmake_path(GET inside PARENT_PATH folder)
    if(folder STREQUAL "")
        check_file(${file} engine "engine|host")
    elseif(engine_${folder})
        check_file(${file} engine/${folder} "engine/(${engine_${folder}})|engine/EngineExport.h|host")
    else()
        message(FATAL_ERROR "engine/${folder}: say in CheckIncludes.cmake what it may include")
    endif()
endforeach()

file(GLOB_RECURSE files ${ROOT}/host/embedded/*.h ${ROOT}/host/embedded/*.cpp)
foreach(file IN LISTS files)
    file(STRINGS ${file} includes REGEX "^#include \"(data|draw|title|stocklist|dock|recovery|apps)/")
    foreach(line IN LISTS includes)
        message("${file}: the embedded host must not know the library: ${line}")
        math(EXPR offences "${offences} + 1")
    endforeach()
endforeach()

if(offences GREATER 0)
    message(FATAL_ERROR "${offences} include(s) point the wrong way")
endif()
