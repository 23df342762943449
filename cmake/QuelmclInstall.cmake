# The install tree: headers, library, CMake package, pkg-config file, documents. (The catalogs: messages/CMakeLists.txt.)
# Everything in it finds the rest relative to its own place, so the tree can be moved.
include(CMakePackageConfigHelpers)

# Both kinds of library fit into one prefix: each has target files of its own, and the package chooses one of the two.
if(BUILD_SHARED_LIBS)
  set(kind shared)
else()
  set(kind static)
endif()
set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/quelmcl)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/quelmcl DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.hpp")

set_target_properties(quelmcl PROPERTIES EXPORT_NAME ${kind})
install(TARGETS quelmcl EXPORT quelmcl-${kind}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT quelmcl-${kind} NAMESPACE quelmcl:: FILE quelmcl-${kind}-targets.cmake DESTINATION ${packageDir})

configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/quelmcl-config.cmake.in ${PROJECT_BINARY_DIR}/quelmcl-config.cmake
  INSTALL_DESTINATION ${packageDir}
  PATH_VARS CMAKE_INSTALL_LOCALEDIR
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(  # refuses another major version, and a consumer of the other word size
  ${PROJECT_BINARY_DIR}/quelmcl-config-version.cmake COMPATIBILITY SameMajorVersion)
install(
  FILES ${PROJECT_BINARY_DIR}/quelmcl-config.cmake ${PROJECT_BINARY_DIR}/quelmcl-config-version.cmake
  DESTINATION ${packageDir})

file(RELATIVE_PATH prefixFromPkgConfig ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH includeFromPrefix ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
file(RELATIVE_PATH libFromPrefix ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH localeFromPrefix ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LOCALEDIR})
configure_file(${CMAKE_CURRENT_LIST_DIR}/quelmcl.pc.in ${PROJECT_BINARY_DIR}/quelmcl.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/quelmcl.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(
  FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/quelmcl)  # not DOCDIR: in a subproject that is named after the parent

# What shows debuggers' users our objects. gdb loads it by itself for a library whose full path stands below its own folder; where that
# is turns out only when the prefix of the installation is known. Those who install into a staging folder as prefix, as CPack does
# without CPACK_SET_DESTDIR, have to say where the library will be in the end.
set(QUELMCL_FINAL_LIBDIR "" CACHE PATH "Full path of the folder that the library gets to after the installation, if another one")
install(FILES ${PROJECT_SOURCE_DIR}/debug/quelmcl_gdb.py ${PROJECT_SOURCE_DIR}/debug/quelmcl_lldb.py
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/quelmcl/debug)
if(BUILD_SHARED_LIBS)
  if(QUELMCL_FINAL_LIBDIR)
    set(libraryFolder ${QUELMCL_FINAL_LIBDIR})
  elseif(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
    set(libraryFolder ${CMAKE_INSTALL_LIBDIR})
  else()
    set(libraryFolder "/\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}")
  endif()
  install(FILES ${PROJECT_SOURCE_DIR}/debug/quelmcl_gdb.py
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/gdb/auto-load${libraryFolder}
    RENAME libquelmcl.so.${PROJECT_VERSION}-gdb.py)
endif()
