# What `cmake --install` and `cpack` put where.

include(CMakePackageConfigHelpers)

install(CODE [[
  set(zylPrefix "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
  execute_process(COMMAND ${CMAKE_COMMAND} -E make_directory "${zylPrefix}" ERROR_QUIET)
  execute_process(COMMAND ${CMAKE_COMMAND} -E touch "${zylPrefix}/.may_write"
                  RESULT_VARIABLE refused ERROR_QUIET)
  if(refused)
    message(FATAL_ERROR "No right to write to ${zylPrefix}. Install with sudo, or elsewhere: "
      "cmake --install <build> --prefix <folder>.")
  endif()
  file(REMOVE "${zylPrefix}/.may_write")
]] ALL_COMPONENTS)

set(zylCMakeDir ${CMAKE_INSTALL_LIBDIR}/cmake/zylGeometry)

install(TARGETS zylGeometryExport EXPORT zylGeometryTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
install(DIRECTORY include/zyl DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)

install(EXPORT zylGeometryTargets NAMESPACE zyl:: DESTINATION ${zylCMakeDir} COMPONENT dev)
configure_package_config_file(cmake/zylGeometryConfig.cmake.in zylGeometryConfig.cmake
  INSTALL_DESTINATION ${zylCMakeDir})
write_basic_package_version_file(zylGeometryConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/zylGeometryConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/zylGeometryConfigVersion.cmake
  DESTINATION ${zylCMakeDir} COMPONENT dev)

# A static archive leaves its own needs to the program that links it.
set(pcCflags "")
set(pcRequiresPrivate "")
set(pcLibsPrivate "")
if(NOT BUILD_SHARED_LIBS)
  set(pcCflags " -DZYL_GEOMETRY_STATIC")
  set(pcLibsPrivate " -lstdc++ -lm")
  if(ZYL_GEOMETRY_USE_TBB)
    set(pcRequiresPrivate " tbb")
  endif()
endif()
# Relative to the file itself, so that an installed tree can be moved.
file(RELATIVE_PATH pcPrefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" pcPrefix "${pcPrefix}")
configure_file(cmake/zylGeometry.pc.in zylGeometry.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zylGeometry.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

if(PROJECT_IS_TOP_LEVEL)
  include(cmake/Packaging.cmake)
endif()
