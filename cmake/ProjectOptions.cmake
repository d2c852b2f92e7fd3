# SPDX-License-Identifier: MIT
# Options that every target of the project shares: link `indicatorui_options` privately.
add_library(indicatorui_options INTERFACE)

target_compile_definitions(indicatorui_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                     QT_DEPRECATED_WARNINGS)
# Rows at exact pixels move when a multiplication and an addition are fused.
if(MSVC)
    # Sources are UTF-8, whatever the code page of the machine.
    target_compile_options(indicatorui_options INTERFACE /utf-8 /permissive- /fp:precise /W4
                                                         $<$<BOOL:${INDICATORUI_WERROR}>:/WX>)
    target_compile_definitions(indicatorui_options INTERFACE NOMINMAX)
else()
    # Clang's -Wconversion warns of changed signs, too; without those it is the -Wconversion of GCC.
    target_compile_options(indicatorui_options INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wno-sign-conversion
                                                         -ffp-contract=off
                                                         $<$<BOOL:${INDICATORUI_WERROR}>:-Werror>)
    # Qt 6 counts in 64 bits what Qt 5 counts in an int, and all that is counted here fits in one; narrowing by
    # mistake is found with Qt 5.
    if(INDICATORUI_QT EQUAL 6)
        target_compile_options(indicatorui_options INTERFACE -Wno-conversion)
    endif()
    target_link_options(indicatorui_options INTERFACE -Wl,--no-undefined)
endif()

if(INDICATORUI_SANITIZE)
    target_compile_options(indicatorui_options INTERFACE -fsanitize=${INDICATORUI_SANITIZE} -fno-omit-frame-pointer
                                                     -fno-sanitize-recover=all)
    target_link_options(indicatorui_options INTERFACE -fsanitize=${INDICATORUI_SANITIZE})
endif()

# A source that is named for one kind of system is compiled there alone: FileCallsUnix.cpp, FileCallsWindows.cpp.
function(compile_for_this_system sources)
    set(other Windows)
    if(WIN32)
        set(other Unix)
    endif()
    list(FILTER sources INCLUDE REGEX "${other}\\.cpp$")
    if(sources)
        set_source_files_properties(${sources} PROPERTIES HEADER_FILE_ONLY ON)
    endif()
endfunction()

# The coverage preset compiles without exceptions, so that no clean-up behind one counts as a branch.
if(INDICATORUI_WITHOUT_EXCEPTIONS)
    target_sources(indicatorui_options INTERFACE ${PROJECT_SOURCE_DIR}/tests/coverage/WithoutExceptions.cpp)
endif()

# Sources that throw or catch are compiled with exceptions in any case.
function(compile_with_exceptions)
    if(NOT MSVC)
        set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -fexceptions)
    endif()
endfunction()

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
