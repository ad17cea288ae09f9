# SPDX-License-Identifier: GPL-3.0-or-later
# How a release is hardened: what a distribution asks of every program that it carries. To be included before the
# first target. What is measured in a release is what is installed.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT KELVRUM_SANITIZE)
    add_compile_options($<$<CONFIG:Release>:-fstack-protector-strong> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
    add_link_options($<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
endif()
