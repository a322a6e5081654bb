# SPDX-License-Identifier: BSD-3-Clause

# Finds the Clipper polygon library, version 6: target Polyclipping::Polyclipping.
find_path(POLYCLIPPING_INCLUDE_DIR clipper.hpp PATH_SUFFIXES polyclipping)
find_library(POLYCLIPPING_LIBRARY polyclipping)
mark_as_advanced(POLYCLIPPING_INCLUDE_DIR POLYCLIPPING_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Polyclipping REQUIRED_VARS POLYCLIPPING_LIBRARY POLYCLIPPING_INCLUDE_DIR)
if(Polyclipping_FOUND AND NOT TARGET Polyclipping::Polyclipping)
    add_library(Polyclipping::Polyclipping UNKNOWN IMPORTED)
    set_target_properties(Polyclipping::Polyclipping PROPERTIES
        IMPORTED_LOCATION "${POLYCLIPPING_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${POLYCLIPPING_INCLUDE_DIR}")
endif()
