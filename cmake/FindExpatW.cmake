# Expat in its 16-bit build, as the imported target ExpatW::ExpatW.
#
# The static library is wanted, since both builds of Expat export the same names: linked into the
# shared library with its symbols hidden, it can't be mixed up with the 8-bit build that the program
# may use as well.
find_path(ExpatW_INCLUDE_DIR NAMES expat.h)
find_library(ExpatW_LIBRARY NAMES libexpatw.a)

# Asked by name, since distributions carry later security functions under older version numbers.
if(ExpatW_LIBRARY)
  include(CheckLibraryExists)
  check_library_exists(${ExpatW_LIBRARY}
    XML_SetBillionLaughsAttackProtectionMaximumAmplification "" ExpatW_LIMITS_AMPLIFICATION)
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(ExpatW
  REQUIRED_VARS ExpatW_LIBRARY ExpatW_INCLUDE_DIR ExpatW_LIMITS_AMPLIFICATION)

if(ExpatW_FOUND AND NOT TARGET ExpatW::ExpatW)
  add_library(ExpatW::ExpatW STATIC IMPORTED)
  set_target_properties(ExpatW::ExpatW PROPERTIES
    IMPORTED_LOCATION ${ExpatW_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${ExpatW_INCLUDE_DIR}
    INTERFACE_COMPILE_DEFINITIONS XML_UNICODE)
endif()
mark_as_advanced(ExpatW_INCLUDE_DIR ExpatW_LIBRARY)
