# Windows executables of a cross build run under Wine (scripts/wine_run.sh),
# in a Wine prefix inside the build folder, created on first use: the 32-bit
# build under 32-bit Wine, the 64-bit build under 64-bit Wine.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(NKF_WINE_ARCH win64)
else()
  set(NKF_WINE_ARCH win32)
endif()
set(NKF_WINE_PREFIX "${CMAKE_BINARY_DIR}/wine-prefix")
set(NKF_WINE_RUN "${PROJECT_SOURCE_DIR}/scripts/wine_run.sh")
if(NOT CMAKE_CROSSCOMPILING_EMULATOR)
  set(CMAKE_CROSSCOMPILING_EMULATOR "${NKF_WINE_RUN};exec;${NKF_WINE_ARCH};${NKF_WINE_PREFIX}")
endif()

# A persistent wineserver for the whole test run; see the script for why.
add_test(NAME wine_start COMMAND "${NKF_WINE_RUN}" start ${NKF_WINE_ARCH} "${NKF_WINE_PREFIX}")
add_test(NAME wine_stop COMMAND "${NKF_WINE_RUN}" stop ${NKF_WINE_ARCH} "${NKF_WINE_PREFIX}")
set_tests_properties(wine_start PROPERTIES FIXTURES_SETUP wine)
set_tests_properties(wine_stop PROPERTIES FIXTURES_CLEANUP wine)

function(nkf_use_wine test)
  set_tests_properties(${test} PROPERTIES FIXTURES_REQUIRED wine)
endfunction()
