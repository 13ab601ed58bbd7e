# One GoogleTest executable per folder: tests/<subsystem>/*_test.cc builds
# nkfoundation_<subsystem>_tests. tests/support/*.cc, if any, is a helper
# library linked into each of them.
include(NkfGoogleTest)

# Tests reach the shared image corpus beside the repository and their own data.
get_filename_component(NKF_CORPUS_DIR "${PROJECT_SOURCE_DIR}/../shared/corpus" ABSOLUTE)
set(NKF_TEST_DATA_DIR "${PROJECT_SOURCE_DIR}/tests/data")

file(GLOB _nkf_support_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/support/*.cc")
if(_nkf_support_sources)
  add_library(nkfoundation_test_support STATIC ${_nkf_support_sources})
  nkf_set_warnings(nkfoundation_test_support)
  set(_nkf_scope PUBLIC)
else()
  add_library(nkfoundation_test_support INTERFACE)
  set(_nkf_scope INTERFACE)
endif()
target_include_directories(nkfoundation_test_support ${_nkf_scope}
  "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/tests")
target_compile_definitions(nkfoundation_test_support ${_nkf_scope}
  "NKF_CORPUS_DIR=\"${NKF_CORPUS_DIR}\""
  "NKF_TEST_DATA_DIR=\"${NKF_TEST_DATA_DIR}\"")
target_link_libraries(nkfoundation_test_support ${_nkf_scope}
  ${NKF_LINK_LIBRARY} GTest::gtest GTest::gtest_main)

# Tests of Win32-only code sit in tests/<subsystem>/win32/ and join their
# subsystem's executable in Windows builds.
set(_nkf_test_patterns "${PROJECT_SOURCE_DIR}/tests/*/*_test.cc")
if(WIN32)
  list(APPEND _nkf_test_patterns "${PROJECT_SOURCE_DIR}/tests/*/win32/*_test.cc")
endif()
file(GLOB _nkf_test_sources CONFIGURE_DEPENDS ${_nkf_test_patterns})
set(_nkf_test_folders "")
foreach(source IN LISTS _nkf_test_sources)
  string(REGEX REPLACE "^.*/tests/([^/]+)/.*$" "\\1" subsystem "${source}")
  list(APPEND _nkf_test_folders ${subsystem})
  list(APPEND _nkf_tests_of_${subsystem} "${source}")
endforeach()
list(REMOVE_DUPLICATES _nkf_test_folders)

foreach(subsystem IN LISTS _nkf_test_folders)
  set(target nkfoundation_${subsystem}_tests)
  add_executable(${target} ${_nkf_tests_of_${subsystem}})
  target_link_libraries(${target} PRIVATE nkfoundation_test_support)
  nkf_set_warnings(${target})
  nkf_register_tests(${target} ${subsystem})
endforeach()

# The umbrella header must name every public header.
add_test(NAME umbrella_header_is_complete
  COMMAND "${CMAKE_COMMAND}" "-DROOT=${PROJECT_SOURCE_DIR}" -P "${PROJECT_SOURCE_DIR}/cmake/NkfUmbrellaCheck.cmake")
