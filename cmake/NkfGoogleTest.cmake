# GoogleTest and the way its executables become CTest tests.
#
# Natively the distribution's prebuilt package is used and every test case is
# its own CTest test.
find_package(GTest REQUIRED)

function(nkf_register_tests target)
  gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST)
endfunction()
