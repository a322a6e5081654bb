# SPDX-License-Identifier: BSD-3-Clause

# Headers, library, CMake package and pkg-config file.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KelDriver)
set(stand_ins_dir ${CMAKE_INSTALL_LIBDIR}/${KELDRIVER_STAND_INS})
install(TARGETS KelDriver EXPORT KelDriverTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development)
foreach(library IN ITEMS Tarsel Imgo)
    if(TARGET ${library}) # otherwise the host application brings its own
        install(TARGETS ${library} EXPORT KelDriverTargets LIBRARY DESTINATION ${stand_ins_dir} COMPONENT runtime)
    endif()
endforeach()
install(TARGETS vnbase LIBRARY DESTINATION ${stand_ins_dir} COMPONENT runtime)
# A project that takes this one as a subdirectory has documents of the same names, and packages state licences their way.
if(PROJECT_IS_TOP_LEVEL AND NOT KELDRIVER_DEBIAN_PACKAGES)
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/THIRD-PARTY.md
            DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/keldriver
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/host/tarsel/include/gpc.h ${PROJECT_SOURCE_DIR}/host/imgo/include/imgo.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(EXPORT KelDriverTargets NAMESPACE KelDriver:: DESTINATION ${package_dir} COMPONENT development)

configure_package_config_file(cmake/KelDriverConfig.cmake.in KelDriverConfig.cmake INSTALL_DESTINATION ${package_dir}
                              PATH_VARS CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(KelDriverConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KelDriverConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/KelDriverConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT development)

# Stores the way to a folder of the prefix from where the pkg-config file lies.
function(keldriver_way_from_pkgconfig result folder)
    file(RELATIVE_PATH way "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/${folder}")
    string(REGEX REPLACE "/$" "" way "${way}")
    set(${result} "\${pcfiledir}/${way}" PARENT_SCOPE)
endfunction()

# The pkg-config file tells folders by the way from its own place, so that an installation can be moved. Its users may
# have their own idea of ${prefix}: `pkg-config --define-prefix` takes it to be two folders above the file. That is too
# low for a library folder like lib/x86_64-linux-gnu, which therefore does without.
if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    keldriver_way_from_pkgconfig(pc_prefix "")
endif()
foreach(kind IN ITEMS includedir libdir)
    string(TOUPPER CMAKE_INSTALL_${kind} variable)
    set(folder "${${variable}}")
    if(IS_ABSOLUTE "${folder}")
        set(pc_${kind} "${folder}")
    elseif(CMAKE_INSTALL_LIBDIR MATCHES "^[^/]+/.")
        keldriver_way_from_pkgconfig(pc_${kind} "${folder}")
    else()
        set(pc_${kind} "\${prefix}/${folder}")
    endif()
endforeach()

# Beside libraries at an absolute path it tells the prefix itself, which may be chosen as late as at install time.
install(CODE "set(PROJECT_DESCRIPTION [[${PROJECT_DESCRIPTION}]])
set(PROJECT_VERSION ${PROJECT_VERSION})
set(pc_prefix [[${pc_prefix}]])
set(pc_includedir [[${pc_includedir}]])
set(pc_libdir [[${pc_libdir}]])
if(NOT pc_prefix)
    cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_PREFIX NORMALIZE OUTPUT_VARIABLE pc_prefix)
endif()
set(KELDRIVER_STAND_INS ${KELDRIVER_STAND_INS})
configure_file(\"${PROJECT_SOURCE_DIR}/cmake/keldriver.pc.in\" \"${CMAKE_CURRENT_BINARY_DIR}/keldriver.pc\" @ONLY)"
        COMPONENT development)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/keldriver.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(PROJECT_IS_TOP_LEVEL)
    add_custom_target(uninstall COMMAND ${CMAKE_COMMAND} -P ${CMAKE_CURRENT_LIST_DIR}/KelDriverUninstall.cmake
                                WORKING_DIRECTORY ${PROJECT_BINARY_DIR} VERBATIM)
endif()
