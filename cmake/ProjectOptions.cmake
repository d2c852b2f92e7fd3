# SPDX-License-Identifier: MIT
# Options that every target of the project shares: link `indicatorui_options` privately.
add_library(indicatorui_options INTERFACE)

target_compile_definitions(indicatorui_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                     QT_DEPRECATED_WARNINGS)
# Rows at exact pixels move when a multiplication and an addition are fused.
target_compile_options(indicatorui_options INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wno-sign-conversion
                                                 -ffp-contract=off)
# Qt 6 counts in 64 bits what Qt 5 counts in an int, and all that is counted here fits in one; narrowing by mistake
# is found with Qt 5.
if(INDICATORUI_QT EQUAL 6)
    target_compile_options(indicatorui_options INTERFACE -Wno-conversion)
endif()
if(INDICATORUI_WERROR)
    target_compile_options(indicatorui_options INTERFACE -Werror)
endif()
target_link_options(indicatorui_options INTERFACE -Wl,--no-undefined)

if(INDICATORUI_SANITIZE)
    target_compile_options(indicatorui_options INTERFACE -fsanitize=${INDICATORUI_SANITIZE} -fno-omit-frame-pointer
                                                     -fno-sanitize-recover=all)
    target_link_options(indicatorui_options INTERFACE -fsanitize=${INDICATORUI_SANITIZE})
endif()

# Every source below the current folder has its line in the list of a target: a forgotten file stops the
# configuration instead of staying out of the build (or a test out of the run) without a word. So has a header
# of Qt objects that is not named as its source: the scanner of Qt objects finds only those by itself.
function(require_all_listed listed)
    file(GLOB_RECURSE found RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    file(GLOB_RECURSE headers RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    foreach(header IN LISTS headers)
        string(REGEX REPLACE "h$" "cpp" source ${header})
        file(STRINGS ${header} objects REGEX "^ *Q_OBJECT")
        if(objects AND NOT source IN_LIST listed)
            list(APPEND found ${header})
        endif()
    endforeach()
    list(REMOVE_ITEM found ${listed})
    if(found)
        list(JOIN found "\n  " missing)
        message(FATAL_ERROR "Not in the list of ${CMAKE_CURRENT_SOURCE_DIR}/CMakeLists.txt:\n  ${missing}")
    endif()
endfunction()
