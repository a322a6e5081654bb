# SPDX-License-Identifier: BSD-3-Clause

# Debian packages: libkeldriver0, libkeldriver-dev and kelplot, each with the documents that such a package has.
set(debian ${PROJECT_SOURCE_DIR}/packaging/debian)
set(components runtime development kelplot)
set(packages libkeldriver0 libkeldriver-dev kelplot)

file(STRINGS ${debian}/changelog newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^keldriver \\(${PROJECT_VERSION}-([0-9]+)\\)")
    message(FATAL_ERROR "${debian}/changelog does not begin with version ${PROJECT_VERSION}.")
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_1})

# keldriver_install_compressed(<file> <name> <folder> <component>)
function(keldriver_install_compressed file name folder component)
    set(compressed ${PROJECT_BINARY_DIR}/packaging/${name}.gz)
    execute_process(COMMAND gzip -9nc ${file} OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    install(FILES ${compressed} DESTINATION ${folder} COMPONENT ${component})
endfunction()

file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packaging)
foreach(component package IN ZIP_LISTS components packages)
    set(documents_of_${component} ${CMAKE_INSTALL_DATADIR}/doc/${package})
    install(FILES ${debian}/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
            COMPONENT ${component} RENAME ${package})
    install(FILES ${debian}/copyright DESTINATION ${documents_of_${component}} COMPONENT ${component})
    keldriver_install_compressed(${debian}/changelog changelog.Debian ${documents_of_${component}} ${component})
    keldriver_install_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog ${documents_of_${component}} ${component})
endforeach()
install(FILES THIRD-PARTY.md DESTINATION ${documents_of_runtime} COMPONENT runtime)
install(FILES docs/driver-author.md docs/formats.md DESTINATION ${documents_of_development}/docs COMPONENT development)
install(DIRECTORY examples/driver DESTINATION ${documents_of_development}/examples COMPONENT development)
install(DIRECTORY examples/drawings examples/pens DESTINATION ${documents_of_kelplot}/examples COMPONENT kelplot)
install(FILES docs/kelplot.md DESTINATION ${documents_of_kelplot}/docs COMPONENT kelplot)
install(FILES kelplot/completions/_kelplot DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT kelplot)
keldriver_install_compressed(${PROJECT_SOURCE_DIR}/kelplot/kelplot.1 kelplot.1 ${CMAKE_INSTALL_MANDIR}/man1 kelplot)
if(TARGET kelplot-preview) # takes the same options
    file(CREATE_LINK kelplot.1.gz ${PROJECT_BINARY_DIR}/packaging/kelplot-preview.1.gz SYMBOLIC)
    install(FILES ${PROJECT_BINARY_DIR}/packaging/kelplot-preview.1.gz
            DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT kelplot)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME keldriver)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package's description begins with its own
set(CPACK_PACKAGE_CONTACT "KelDriver developers <keldriver@example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE keldriver)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Where kelplot, in a package of its own, is shown the libraries that it needs from another.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/host/tarsel ${PROJECT_BINARY_DIR}/host/imgo)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)
set(this_version "= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libkeldriver0)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "toolkit for the printer and plotter drivers of a CAD application
The drivers of a CAD application load this library to draw on any painter
of Qt with the same snapping, line types, fills, clip regions and texts, and
to read and keep their papers and settings.
.
Open versions of the libraries that the application supplies are included;
the application's own ones take precedence.")
# The trigger runs ldconfig. CPack adds scripts that do so once more, to which lintian objects, and has no setting
# against it: it leaves out those that it is given. Of these two there are no files, so that the package has no scripts;
# CPack warns that it cannot find them.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${debian}/triggers ${debian}/none/postinst ${debian}/none/postrm)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkeldriver-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libkeldriver0 (${this_version}), qtbase5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "toolkit for the drivers of a CAD application - development files
Headers, CMake package, pkg-config file and an example, to build printer and
plotter drivers with libkeldriver.")

set(CPACK_DEBIAN_KELPLOT_PACKAGE_NAME kelplot)
set(CPACK_DEBIAN_KELPLOT_PACKAGE_SECTION graphics)
# Of just this version, for kelplot links the libraries that come with KelDriver in its own folder, too. They have no
# version in their names, and what they export may change with any release.
set(CPACK_DEBIAN_KELPLOT_PACKAGE_DEPENDS "libkeldriver0 (${this_version})")
set(CPACK_DEBIAN_KELPLOT_PACKAGE_RECOMMENDS
    "fonts-dejavu-core, fonts-liberation2 | fonts-liberation, fonts-osifont, fonts-droid-fallback")
set(CPACK_DEBIAN_KELPLOT_DESCRIPTION "plot DXF drawings to PDF, PNG, SVG, HP-GL/2 or a printer
kelplot plots drawings to scale from the command line, without a display:
model space and layouts, with line weights, line types, hatches, texts that
can be searched, pen tables and tables of plot styles. A preview window shows
the pages before they are printed.")
include(CPack)
