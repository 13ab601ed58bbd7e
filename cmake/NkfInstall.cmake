# `cmake --install`: the headers (keeping the nkfoundation/... tree), the
# library, a CMake package (find_package(NkFoundation), target
# NkFoundation::nkfoundation) and a pkg-config file (nkfoundation.pc).
include(CMakePackageConfigHelpers)

set(NKF_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/NkFoundation")

install(TARGETS nkfoundation EXPORT NkFoundationTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")

# win32/ folders hold the Windows implementation: not for other platforms.
set(_nkf_header_filter FILES_MATCHING PATTERN "*.h")
if(NOT WIN32)
  list(APPEND _nkf_header_filter PATTERN "win32" EXCLUDE)
endif()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/nkfoundation/"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/nkfoundation"
  ${_nkf_header_filter})

install(EXPORT NkFoundationTargets
  NAMESPACE NkFoundation::
  DESTINATION "${NKF_PACKAGE_DIR}")
configure_package_config_file(cmake/NkFoundationConfig.cmake.in
  "${PROJECT_BINARY_DIR}/NkFoundationConfig.cmake"
  INSTALL_DESTINATION "${NKF_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/NkFoundationConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/NkFoundationConfig.cmake"
  "${PROJECT_BINARY_DIR}/NkFoundationConfigVersion.cmake"
  DESTINATION "${NKF_PACKAGE_DIR}")

# The .pc file finds the prefix from its own place, so an installation given
# another prefix at install time (cmake --install --prefix) still works.
set(NKF_PKGCONFIG_DIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH NKF_PKGCONFIG_TO_PREFIX "/prefix/${NKF_PKGCONFIG_DIR}" "/prefix")
string(REGEX REPLACE "/$" "" NKF_PKGCONFIG_TO_PREFIX "${NKF_PKGCONFIG_TO_PREFIX}")
configure_file(cmake/nkfoundation.pc.in "${PROJECT_BINARY_DIR}/nkfoundation.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/nkfoundation.pc" DESTINATION "${NKF_PKGCONFIG_DIR}")

if(TARGET nkfoundation_tool)
  # The installed program finds the installed shared library beside bin/.
  file(RELATIVE_PATH _nkf_bin_to_lib "/prefix/${CMAKE_INSTALL_BINDIR}" "/prefix/${CMAKE_INSTALL_LIBDIR}")
  set_target_properties(nkfoundation_tool PROPERTIES INSTALL_RPATH "$ORIGIN/${_nkf_bin_to_lib}")
  install(TARGETS nkfoundation_tool RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()
