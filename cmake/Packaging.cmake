# Debian packages: the library for programs that run, the rest for programs that are built. A static
# build has only the latter.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zylgeometry)
set(CPACK_PACKAGE_CONTACT "zyl geometry maintainers <maintainers@zyl.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

# The runtime package is named after the SONAME, so that two major versions may stand side by side.
set(runtimePackage libzylgeometryexport${PROJECT_VERSION_MAJOR})
set(devPackage libzylgeometryexport-dev)
set(about "Points and directions with bearings and inclinations, planes with strike
and dip, boxes, segments, triangles, polygons, search ellipsoids and a voxel
index. Whether a point is left of a line, inside a circle or inside a polygon
is decided with an exact sign.
")

if(BUILD_SHARED_LIBS)
  set(CPACK_COMPONENTS_ALL runtime dev)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtimePackage})
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${about}
This package holds the shared library.")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
  set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${runtimePackage} (= ${PROJECT_VERSION})")
else()
  set(CPACK_COMPONENTS_ALL dev)
  if(ZYL_GEOMETRY_USE_TBB)
    set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS libtbb-dev)
  endif()
endif()
set(CPACK_DEBIAN_DEV_PACKAGE_NAME ${devPackage})
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_DESCRIPTION "${about}
This package holds what programs are built with.")

# What every Debian package carries; nobody else wants it installed.
string(TIMESTAMP zylPackageDate "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(cmake/debian/changelog.in debian/changelog @ONLY)
find_program(GZIP_PROGRAM gzip)
if(GZIP_PROGRAM)
  execute_process(COMMAND ${GZIP_PROGRAM} -9nkf changelog
                  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/debian)
  foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} COMPONENT)
    install(FILES cmake/debian/copyright ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog.gz
      DESTINATION share/doc/${CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME}
      COMPONENT ${component} EXCLUDE_FROM_ALL)
  endforeach()
endif()

include(CPack)
