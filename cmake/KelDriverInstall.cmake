# SPDX-License-Identifier: BSD-3-Clause

# Headers, library, CMake package and pkg-config file.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KelDriver)
foreach(library IN ITEMS KelDriver Tarsel Imgo)
    if(TARGET ${library}) # otherwise the host application brings its own
        install(TARGETS ${library} EXPORT KelDriverTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
    endif()
endforeach()
# The host application's own libraries are found where they were when this one was linked.
set_target_properties(KelDriver PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
install(TARGETS vnbase LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}) # where the library's run path finds it
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/keldriver DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(PROJECT_IS_TOP_LEVEL) # a project that takes this one as a subdirectory has documents of the same names
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/THIRD-PARTY.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
endif()
install(FILES ${PROJECT_SOURCE_DIR}/host/tarsel/include/gpc.h ${PROJECT_SOURCE_DIR}/host/imgo/include/imgo.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT KelDriverTargets NAMESPACE KelDriver:: DESTINATION ${package_dir})

configure_package_config_file(cmake/KelDriverConfig.cmake.in KelDriverConfig.cmake INSTALL_DESTINATION ${package_dir}
                              PATH_VARS CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(KelDriverConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KelDriverConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/KelDriverConfigVersion.cmake DESTINATION ${package_dir})

# The prefix may be chosen at install time, so the file is written then; folders may be given as absolute paths.
install(CODE "set(PROJECT_DESCRIPTION \"${PROJECT_DESCRIPTION}\")
set(PROJECT_VERSION ${PROJECT_VERSION})
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_PREFIX NORMALIZE)
cmake_path(APPEND pc_includedir \"\${CMAKE_INSTALL_PREFIX}\" \"${CMAKE_INSTALL_INCLUDEDIR}\")
cmake_path(APPEND pc_libdir \"\${CMAKE_INSTALL_PREFIX}\" \"${CMAKE_INSTALL_LIBDIR}\")
configure_file(\"${PROJECT_SOURCE_DIR}/cmake/keldriver.pc.in\" \"${CMAKE_CURRENT_BINARY_DIR}/keldriver.pc\" @ONLY)")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/keldriver.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
