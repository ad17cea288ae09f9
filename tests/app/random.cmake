# A user who does anything at random; the program takes longer than the other window tests.
kelvrum_window_test(f_random_test SOURCES f_random_test.cpp RandomUser.cpp USES kelvrum_window_testing)
