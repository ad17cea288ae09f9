# SPDX-License-Identifier: GPL-3.0-or-later
# How Kelvrum's targets are made: one place for language level, warnings and include root.

function(kelvrum_settings target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_include_directories(${target} PUBLIC ${Kelvrum_SOURCE_DIR})
    if(NOT MSVC)
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                                 $<$<BOOL:${KELVRUM_WERROR}>:-Werror>)
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE -Wunused-const-variable=1) # as clang does
    endif()
    if(KELVRUM_UNITY) # a local name that another source of the dozen has too
        target_compile_options(${target} PRIVATE -Wno-shadow)
    endif()
    # Products and sums are rounded one by one on every processor. The program reads neither the errno of a square root nor
    # floating-point flags.
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PRIVATE -ffp-contract=off -fno-math-errno -fno-trapping-math)
    endif()
    if(KELVRUM_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${KELVRUM_SANITIZE} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
        target_link_options(${target} PUBLIC -fsanitize=${KELVRUM_SANITIZE})
    endif()
endfunction()

# kelvrum_precompile(<name> [EXECUTABLE] HEADERS ... USES ...): a target that compiles the headers once for all targets with
# the same settings, which call kelvrum_precompiled(<target> <name>). Executables and libraries differ in their code.
function(kelvrum_precompile name)
    cmake_parse_arguments(ARG "EXECUTABLE" "" "HEADERS;USES" ${ARGN})
    if(NOT KELVRUM_PCH)
        return()
    endif()
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "int main() {}\n")
    if(ARG_EXECUTABLE)
        add_executable(${name} EXCLUDE_FROM_ALL ${source})
    else()
        add_library(${name} STATIC EXCLUDE_FROM_ALL ${source})
    endif()
    if("${ARG_USES}" MATCHES "Qt6")
        kelvrum_qt_settings(${name})
    else()
        kelvrum_settings(${name})
    endif()
    target_link_libraries(${name} PRIVATE ${ARG_USES})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

function(kelvrum_precompiled target name)
    if(KELVRUM_PCH)
        target_precompile_headers(${target} REUSE_FROM ${name})
    endif()
endfunction()

# The settings of a target whose sources include Qt. They are private: a project that links one of our libraries may
# use Qt's keywords in its own sources.
function(kelvrum_qt_settings target)
    kelvrum_settings(${target})
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)
endfunction()

# Gives kelvrum_util the name Kelvrum::util. CMake reports a misspelt name of this form instead of passing it to the linker.
function(kelvrum_alias target)
    string(REGEX REPLACE "^kelvrum_" "Kelvrum::" alias ${target})
    add_library(${alias} ALIAS ${target})
endfunction()

# All plain libraries.
add_custom_target(kelvrum_plain)

# A library of plain standard C++: it never links Qt.
function(kelvrum_plain_library target)
    cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
    add_library(${target} STATIC ${ARG_SOURCES})
    kelvrum_alias(${target})
    kelvrum_settings(${target})
    set_target_properties(${target} PROPERTIES UNITY_BUILD "${KELVRUM_UNITY}" UNITY_BUILD_BATCH_SIZE 12)
    if(KELVRUM_FUZZ) # count the branches that an input reaches
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
    target_link_libraries(${target} PUBLIC ${ARG_USES})
    add_dependencies(kelvrum_plain ${target})
endfunction()

# A library of windows and widgets on Qt. Left out when the windows are not built.
function(kelvrum_ui_library target)
    if(NOT KELVRUM_UI)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
    add_library(${target} STATIC ${ARG_SOURCES})
    kelvrum_alias(${target})
    kelvrum_qt_settings(${target})
    set_target_properties(${target} PROPERTIES AUTOMOC ON UNITY_BUILD "${KELVRUM_UNITY}" UNITY_BUILD_BATCH_SIZE 12)
    target_link_libraries(${target} PUBLIC ${ARG_USES} Qt6::Widgets Qt6::PrintSupport)
    kelvrum_precompiled(${target} kelvrum_precompiled_windows)
endfunction()
