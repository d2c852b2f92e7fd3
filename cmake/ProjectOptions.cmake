# Options that every target of the project shares: link `project_options` privately.
add_library(project_options INTERFACE)

target_compile_definitions(project_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                     QT_DEPRECATED_WARNINGS)
# Rows at exact pixels move when a multiplication and an addition are fused.
target_compile_options(project_options INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wno-sign-conversion
                                                 -ffp-contract=off)
if(INDICATORUI_WERROR)
    target_compile_options(project_options INTERFACE -Werror)
endif()
target_link_options(project_options INTERFACE -Wl,--no-undefined)

if(INDICATORUI_SANITIZE)
    target_compile_options(project_options INTERFACE -fsanitize=${INDICATORUI_SANITIZE} -fno-omit-frame-pointer
                                                     -fno-sanitize-recover=all)
    target_link_options(project_options INTERFACE -fsanitize=${INDICATORUI_SANITIZE})
endif()

# The sources below a folder, so that a new file needs no change here.
function(sources_below variable folder)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h ${folder}/*.qrc)
    set(${variable} ${found} PARENT_SCOPE)
endfunction()
