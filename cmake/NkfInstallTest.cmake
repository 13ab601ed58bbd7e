# NKF_TEST_INSTALL adds a test that installs this build and builds a consumer
# project against it (cmake/NkfInstallCheck.cmake). Native builds only: the
# consumer must run here.
if(NOT NKF_TEST_INSTALL OR CMAKE_CROSSCOMPILING)
  return()
endif()

add_test(NAME install_consumer COMMAND "${CMAKE_COMMAND}"
  "-DNKF_BUILD_DIR=${PROJECT_BINARY_DIR}"
  "-DNKF_WORK_DIR=${PROJECT_BINARY_DIR}/install-check"
  "-DNKF_CONSUMER_DIR=${PROJECT_SOURCE_DIR}/cmake/consumer"
  "-DNKF_CXX_COMPILER=${CMAKE_CXX_COMPILER}"
  -P "${PROJECT_SOURCE_DIR}/cmake/NkfInstallCheck.cmake")
