# SPDX-License-Identifier: GPL-3.0-or-later
# The menu "Korrekturfaktoren" and what it opens.
kelvrum_window_test(f_correction_test SOURCES f_correction_test.cpp USES kelvrum_window_testing)
