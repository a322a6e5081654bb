# SPDX-License-Identifier: BSD-3-Clause

# Run in a build folder, this removes the files that `cmake --install` put in place from there the last time, all of
# them or a component's, and the project's own folders that are empty afterwards.
file(GLOB manifests "${CMAKE_CURRENT_BINARY_DIR}/install_manifest*.txt")
if(NOT manifests)
    message(FATAL_ERROR "Nothing is installed from ${CMAKE_CURRENT_BINARY_DIR}: there is no install_manifest.txt.")
endif()

foreach(manifest IN LISTS manifests)
    file(STRINGS "${manifest}" files ENCODING UTF-8)
    foreach(file IN LISTS files)
        set(file "$ENV{DESTDIR}${file}")
        if(EXISTS "${file}" OR IS_SYMLINK "${file}")
            file(REMOVE "${file}")
            if(EXISTS "${file}" OR IS_SYMLINK "${file}")
                message(FATAL_ERROR "${file} cannot be removed.")
            endif()
            message(STATUS "Removed ${file}")
        endif()
        cmake_path(GET file PARENT_PATH folder)
        while(folder MATCHES "/(Drivers|kelplot|KelDriver|keldriver|keldriver-[0-9]+)$")
            execute_process(COMMAND rmdir "${folder}" ERROR_QUIET) # leaves a folder with anything in it
            cmake_path(GET folder PARENT_PATH folder)
        endwhile()
    endforeach()
    file(REMOVE "${manifest}")
endforeach()
