# SPDX-License-Identifier: GPL-3.0-or-later
# Reading the picture, on screens with one and two dots for a pixel.
foreach(test IN ITEMS f_readout_test f_choose_test f_hints_test f_copy_test f_calendar_test f_second_test)
    add_executable(${test} ${test}.cpp)
    kelvrum_qt_settings(${test})
    set_target_properties(${test} PROPERTIES AUTOMOC ON)
    target_link_libraries(${test} PRIVATE kelvrum_window_testing)
    foreach(ratio IN ITEMS 1 2)
        add_test(NAME ${test}_${ratio} COMMAND ${test})
        set_tests_properties(${test}_${ratio} PROPERTIES
            TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_SCALE_FACTOR=${ratio}")
    endforeach()
endforeach()
target_link_libraries(f_second_test PRIVATE kelvrum_print_testing)
