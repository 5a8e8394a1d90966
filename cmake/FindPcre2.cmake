# PCRE2 in its 8-bit build, as the imported target Pcre2::Pcre2.
find_path(Pcre2_INCLUDE_DIR NAMES pcre2.h)
find_library(Pcre2_LIBRARY NAMES pcre2-8)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Pcre2 REQUIRED_VARS Pcre2_LIBRARY Pcre2_INCLUDE_DIR)

if(Pcre2_FOUND AND NOT TARGET Pcre2::Pcre2)
  add_library(Pcre2::Pcre2 UNKNOWN IMPORTED)
  set_target_properties(Pcre2::Pcre2 PROPERTIES
    IMPORTED_LOCATION ${Pcre2_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${Pcre2_INCLUDE_DIR})
endif()
mark_as_advanced(Pcre2_INCLUDE_DIR Pcre2_LIBRARY)
