# SPDX-License-Identifier: GPL-3.0-or-later
# A user who does anything at random; these programs take longer than the other window tests.
add_library(kelvrum_random_testing STATIC RandomStations.cpp RandomUser.cpp RandomUser_diagram.cpp)
kelvrum_qt_settings(kelvrum_random_testing)
target_link_libraries(kelvrum_random_testing PUBLIC kelvrum_window_testing)
foreach(test IN ITEMS f_random_test f_longuse_test)
    kelvrum_window_test(${test} SOURCES ${test}.cpp USES kelvrum_random_testing)
endforeach()
