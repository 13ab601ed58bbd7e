# Run by CTest (cmake -P): installs the build into a fresh prefix, then builds
# and runs cmake/consumer against that installation only.
#
# -D NKF_BUILD_DIR, NKF_WORK_DIR, NKF_CONSUMER_DIR, NKF_CXX_COMPILER
cmake_minimum_required(VERSION 3.25)
foreach(variable NKF_BUILD_DIR NKF_WORK_DIR NKF_CONSUMER_DIR NKF_CXX_COMPILER)
  if(NOT DEFINED ${variable})
    message(FATAL_ERROR "${variable} is not set")
  endif()
endforeach()

set(prefix "${NKF_WORK_DIR}/prefix")
set(consumer_build "${NKF_WORK_DIR}/consumer")
file(REMOVE_RECURSE "${NKF_WORK_DIR}")

function(step)
  execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

step("${CMAKE_COMMAND}" --install "${NKF_BUILD_DIR}" --prefix "${prefix}")
step("${CMAKE_COMMAND}" -S "${NKF_CONSUMER_DIR}" -B "${consumer_build}" -G Ninja
  "-DCMAKE_CXX_COMPILER=${NKF_CXX_COMPILER}" "-DCMAKE_PREFIX_PATH=${prefix}")
step("${CMAKE_COMMAND}" --build "${consumer_build}")
step("${consumer_build}/with_package")
step("${consumer_build}/with_pkgconfig")
