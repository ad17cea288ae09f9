# SPDX-License-Identifier: GPL-3.0-or-later
# What the world does to a running program: files, folders, the clock, time zones and languages.
foreach(test IN ITEMS f_faults_test f_clock_test)
    kelvrum_window_test(${test} SOURCES ${test}.cpp USES kelvrum_window_testing)
endforeach()
