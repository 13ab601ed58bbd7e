# The nkfoundation library: every nkfoundation/<subsystem>/*.cc, plus the
# win32/ sources of each subsystem when the target is Windows.
set(NKF_SUBSYSTEMS core device image geometry services binding)

set(_nkf_patterns "")
foreach(subsystem IN LISTS NKF_SUBSYSTEMS)
  list(APPEND _nkf_patterns "${PROJECT_SOURCE_DIR}/nkfoundation/${subsystem}/*.cc")
  if(WIN32)
    list(APPEND _nkf_patterns "${PROJECT_SOURCE_DIR}/nkfoundation/${subsystem}/win32/*.cc")
  endif()
endforeach()
file(GLOB NKF_LIBRARY_SOURCES CONFIGURE_DEPENDS ${_nkf_patterns})

add_library(nkfoundation ${NKF_LIBRARY_SOURCES})
add_library(NkFoundation::nkfoundation ALIAS nkfoundation)
target_include_directories(nkfoundation PUBLIC
  "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
  "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
target_compile_features(nkfoundation PUBLIC cxx_std_20)
set_target_properties(nkfoundation PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})
nkf_set_warnings(nkfoundation)
