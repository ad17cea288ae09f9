# SPDX-License-Identifier: GPL-3.0-or-later
# Reading the picture, on screens with one and two dots per pixel.
foreach(test IN ITEMS f_readout_test f_field_test f_choose_test f_drag_test f_hints_test f_copy_test f_calendar_test f_second_test
        f_second_use_test)
    kelvrum_window_test(${test} SOURCES ${test}.cpp USES kelvrum_window_testing RATIOS 1 2)
endforeach()
target_link_libraries(f_second_use_test PRIVATE kelvrum_print_testing)
