# SPDX-License-Identifier: BSD-3-Clause

# Language level, warnings and instrumentation for the targets of this project, and only for those.
function(keldriver_target_defaults target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 17 CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # A unique symbol, such as a table inside a standard template, would keep the library loaded after its host has
        # closed it, and the geometry module with it.
        target_compile_options(${target} PRIVATE -fno-gnu-unique)
    endif()
    if(KELDRIVER_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(KELDRIVER_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${KELDRIVER_SANITIZE} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${KELDRIVER_SANITIZE})
    endif()
endfunction()

option(KELDRIVER_PRECOMPILE_HEADERS "Precompile the headers of Qt, the standard library and the test framework" OFF)

# keldriver_precompile_headers(<target> <header>...)
# For builds that compile everything: a good half of the time goes to these headers. Builds without it show that
# every source includes what it uses.
function(keldriver_precompile_headers target)
    if(KELDRIVER_PRECOMPILE_HEADERS)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# The folder, below the one for libraries, of the open versions of what a host application supplies. Their names have
# no version, because an application's own go by the same ones, so the folder has it.
set(KELDRIVER_STAND_INS keldriver-${KelDriver_VERSION_MAJOR})

# keldriver_run_path(<target> <folder>)
# Lets the installed target look for libraries in the folder, for a host application's own ones where they were when it
# was linked, and last for the open versions.
function(keldriver_run_path target folder)
    set(path "${folder}")
    foreach(library IN LISTS KELDRIVER_TARSEL KELDRIVER_IMGO)
        cmake_path(GET library PARENT_PATH own)
        list(APPEND path "${own}")
    endforeach()
    list(APPEND path "${folder}/${KELDRIVER_STAND_INS}")
    set_property(TARGET ${target} PROPERTY INSTALL_RPATH "${path}")
endfunction()

# keldriver_version_script(<target> <file>)
# Lets the linker script beside the CMakeLists.txt decide what the shared library exports.
function(keldriver_version_script target file)
    target_link_options(${target} PRIVATE LINKER:--version-script=${CMAKE_CURRENT_SOURCE_DIR}/${file})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${file})
endfunction()
