# GoogleTest and the way its executables become CTest tests.
#
# nkf_register_tests(TARGET SUBSYSTEM) labels the tests with their subsystem,
# so a preset can run one subsystem's tests (ctest -L services).
#
# Natively the distribution's prebuilt package is used and every test case is
# its own CTest test. Cross builds compile GoogleTest from the distribution's
# sources (there is no MinGW package) and register one CTest test per
# executable: under Wine each test process costs a Wine start. Each such
# executable writes its results to gtest-results/<target>.xml, from which
# scripts/run_tests.sh counts the test cases.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest REQUIRED)
  include(GoogleTest)
  function(nkf_register_tests target subsystem)
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST PROPERTIES LABELS ${subsystem})
  endfunction()
  return()
endif()

set(NKF_GOOGLETEST_SOURCE_DIR /usr/src/googletest CACHE PATH "GoogleTest sources for cross builds")
# Static whatever the library is, and kept out of our installation. It
# defines the same GTest:: targets as the package.
set(BUILD_SHARED_LIBS OFF)
set(INSTALL_GTEST OFF)
add_subdirectory(${NKF_GOOGLETEST_SOURCE_DIR} googletest EXCLUDE_FROM_ALL SYSTEM)
set(BUILD_SHARED_LIBS ${NKF_SHARED})

function(nkf_register_tests target subsystem)
  add_test(NAME ${target} COMMAND ${target})
  # Relative to the build folder, where CTest starts the test: a Windows
  # program takes an absolute Unix path for one relative to its drive.
  set_tests_properties(${target} PROPERTIES
    LABELS ${subsystem}
    ENVIRONMENT "GTEST_OUTPUT=xml:gtest-results/${target}.xml")
  nkf_use_wine(${target})
endfunction()
