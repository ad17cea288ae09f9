# SPDX-License-Identifier: GPL-3.0-or-later
# The window "Auswertung".
kelvrum_window_test(f_evaluation_test SOURCES f_evaluation_test.cpp USES kelvrum_window_testing)
kelvrum_window_test(f_print_evaluation_test
    SOURCES f_print_evaluation_test.cpp
    USES kelvrum_window_testing kelvrum_print_testing)
