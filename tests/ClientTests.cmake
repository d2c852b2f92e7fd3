# SPDX-License-Identifier: MIT
# What is built for the tests of the client alone.
add_subdirectory(faults)

# Tells what texts a program draws.
add_library(drawn_texts MODULE ${CMAKE_CURRENT_SOURCE_DIR}/programs/DrawnTexts.cpp)
target_link_libraries(drawn_texts PRIVATE ${QT}::Gui ${CMAKE_DL_LIBS} indicatorui_options)
add_dependencies(unit_tests drawn_texts)
target_compile_definitions(unit_tests PRIVATE DRAWN_TEXTS="$<TARGET_FILE:drawn_texts>")

# The client once more in real windows of an X server.
find_program(XVFB_RUN xvfb-run)
if(XVFB_RUN)
    add_test(NAME client_in_real_windows
             COMMAND ${XVFB_RUN} -a -s "-screen 0 1600x1000x24" $<TARGET_FILE:widget_tests>
                     --gtest_filter=ClientWindow*:LargeFile*:DockArrangement*:PanelPool*)
    set_tests_properties(client_in_real_windows PROPERTIES LABELS widget TIMEOUT 300 ENVIRONMENT QT_QPA_PLATFORM=xcb)
endif()

# The program itself, worked with mouse and keyboard; what it drags are the docking library's tabs.
find_program(XDOTOOL xdotool)
find_program(WINDOW_MANAGER blackbox)
if(XVFB_RUN AND XDOTOOL AND WINDOW_MANAGER AND NOT INDICATORUI_PLAIN_DOCKS)
    add_library(eyes MODULE ${CMAKE_CURRENT_SOURCE_DIR}/driven/eyes/Eyes.cpp)
    set_target_properties(eyes PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/eyes/generic)
    target_link_libraries(eyes PRIVATE ${QT}::Widgets indicatorui_options)
    add_executable(driven_tests driven/ClientByMouseTest.cpp driven/DrivenClient.cpp driven/Main.cpp)
    add_dependencies(driven_tests eyes indicatorui-client)
    target_include_directories(driven_tests PRIVATE ${PROJECT_SOURCE_DIR})
    target_compile_definitions(driven_tests PRIVATE
        CLIENT_PROGRAM="$<TARGET_FILE:indicatorui-client>" EYES_FOLDER="${PROJECT_BINARY_DIR}/eyes"
        XDOTOOL="${XDOTOOL}" WINDOW_MANAGER="${WINDOW_MANAGER}" SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples"
        DRIVEN_RESULTS_DIR="${PROJECT_BINARY_DIR}/driven")
    target_link_libraries(driven_tests PRIVATE ${QT}::Gui GTest::gtest indicatorui_options)
    add_test(NAME client_by_mouse COMMAND ${XVFB_RUN} -a -s "-screen 0 1920x1300x24" $<TARGET_FILE:driven_tests>)
    set_tests_properties(client_by_mouse PROPERTIES LABELS widget TIMEOUT 300 ENVIRONMENT QT_QPA_PLATFORM=xcb)

    # A hand that does anything, as often as it is told: ./dev check --soak.
    add_executable(soak soak/Hand.cpp soak/Soak.cpp)
    add_dependencies(soak indicatorui-client)
    target_include_directories(soak PRIVATE ${PROJECT_SOURCE_DIR})
    target_compile_definitions(soak PRIVATE
        CLIENT_PROGRAM="$<TARGET_FILE:indicatorui-client>" XDOTOOL="${XDOTOOL}" WINDOW_MANAGER="${WINDOW_MANAGER}"
        SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples")
    target_link_libraries(soak PRIVATE ${QT}::Core indicatorui_options)
endif()

# The client as a screen reader reads it; the module that reads belongs to the system's Python.
find_program(SESSION_BUS dbus-run-session)
find_program(SYSTEM_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
if(XVFB_RUN AND XDOTOOL AND WINDOW_MANAGER AND SESSION_BUS AND SYSTEM_PYTHON)
    execute_process(COMMAND ${SYSTEM_PYTHON} -c "import gi; gi.require_version('Atspi', '2.0')"
                    RESULT_VARIABLE without_atspi OUTPUT_QUIET ERROR_QUIET)
    if(NOT without_atspi)
        add_test(NAME client_is_read_by_screen_readers
                 COMMAND sh ${CMAKE_CURRENT_SOURCE_DIR}/access/in_session.sh ${XVFB_RUN} -a -s "-screen 0 1600x1000x24"
                         ${SYSTEM_PYTHON} ${CMAKE_CURRENT_SOURCE_DIR}/access/read_chart.py
                         $<TARGET_FILE:indicatorui-client> ${PROJECT_SOURCE_DIR}/samples/bars/SH600030.csv ${XDOTOOL}
                         ${WINDOW_MANAGER})
        set_tests_properties(client_is_read_by_screen_readers PROPERTIES LABELS widget TIMEOUT 600)
    endif()
endif()

# A backup or a restore in a process of its own, which the recovery tests kill.
add_executable(recovery_steps ${CMAKE_CURRENT_SOURCE_DIR}/programs/RecoverySteps.cpp)
target_link_libraries(recovery_steps PRIVATE clientviews indicatorui_options)
add_dependencies(unit_tests recovery_steps)
target_compile_definitions(unit_tests PRIVATE RECOVERY_STEPS="$<TARGET_FILE:recovery_steps>")
