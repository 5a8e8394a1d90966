# What is installed: the library, its headers, the CMake and pkg-config packages, the printers of
# gdb; and the two Debian packages made of it.
if(NOT BUILD_SHARED_LIBS)
  # A static library would bring its Expat, in view, into every program, beside the one there.
  install(CODE "message(FATAL_ERROR \"Only the shared library can be installed: \
BUILD_SHARED_LIBS=OFF is for add_subdirectory in programs without another Expat.\")")
  return()
endif()
include(CMakePackageConfigHelpers)

install(TARGETS ZqXmlLib9U
  EXPORT ZqXmlLib9
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  FILE_SET HEADERS COMPONENT development)

# The library depends on nothing that a consumer has to find, so its targets are the whole package.
set(cmakeDir ${CMAKE_INSTALL_LIBDIR}/cmake/ZqXmlLib9)
install(EXPORT ZqXmlLib9
  FILE ZqXmlLib9Config.cmake
  NAMESPACE ZqXmlLib9::
  DESTINATION ${cmakeDir}
  COMPONENT development)
write_basic_package_version_file(ZqXmlLib9ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZqXmlLib9ConfigVersion.cmake
  DESTINATION ${cmakeDir}
  COMPONENT development)

# Relative to the .pc file, so that an installed tree may move.
set(pcDir ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH pcPrefix ${pcDir} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" pcPrefix ${pcPrefix})
file(RELATIVE_PATH pcLibdir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH pcIncludedir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(cmake/zqxmllib9.pc.in zqxmllib9.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zqxmllib9.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

# gdb loads <its scripts>/<path of the library>-gdb.py together with the library. The prefix is only
# known when it is installed.
set(libDir ${CMAKE_INSTALL_LIBDIR})
if(NOT IS_ABSOLUTE ${libDir})
  set(libDir "/\${CMAKE_INSTALL_PREFIX}/${libDir}")
endif()
install(FILES share/gdb/ZqXmlLib9U-gdb.py
  DESTINATION "${CMAKE_INSTALL_DATADIR}/gdb/auto-load${libDir}"
  RENAME libZqXmlLib9U.so.${PROJECT_VERSION}-gdb.py
  COMPONENT runtime)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zqxmllib9)
set(CPACK_PACKAGE_CONTACT "ZqXmlLib9 <support@zqxmllib9.example>")
set(CPACK_PACKAGE_VENDOR ZqXmlLib9)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_SET_DESTDIR ON)  # the gdb script must see the real prefix
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libzqxmllib9u9)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzqxmllib9u-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libzqxmllib9u9 (= ${PROJECT_VERSION})")
include(CPack)
