# Tests of the shared library itself, which on Windows the test suites do not
# link (see NKF_LINK_LIBRARY): its export table against the public headers,
# and on Windows its import table and that a program linked against the DLL
# loads and runs it.
if(NOT WIN32)
  find_program(NKF_NM nm REQUIRED)
  find_program(NKF_CXXFILT c++filt REQUIRED)
  add_test(NAME shared_library_exports COMMAND "${CMAKE_COMMAND}"
    "-DNKF_NM=${NKF_NM}"
    "-DNKF_CXXFILT=${NKF_CXXFILT}"
    "-DNKF_LIBRARY=$<TARGET_FILE:nkfoundation>"
    "-DNKF_ROOT=${PROJECT_SOURCE_DIR}"
    -P "${PROJECT_SOURCE_DIR}/cmake/NkfCheckExports.cmake")
  return()
endif()

find_program(NKF_OBJDUMP ${NKF_MINGW_TRIPLE}-objdump objdump REQUIRED)
find_program(NKF_CXXFILT ${NKF_MINGW_TRIPLE}-c++filt c++filt REQUIRED)
add_test(NAME dll_tables COMMAND "${CMAKE_COMMAND}"
  "-DNKF_OBJDUMP=${NKF_OBJDUMP}"
  "-DNKF_CXXFILT=${NKF_CXXFILT}"
  "-DNKF_DLL=$<TARGET_FILE:nkfoundation>"
  "-DNKF_ROOT=${PROJECT_SOURCE_DIR}"
  -P "${PROJECT_SOURCE_DIR}/cmake/NkfCheckDll.cmake")

# The installed-package consumer doubles as the DLL's user. It lands beside
# the DLL, where Windows looks first.
add_executable(nkfoundation_dll_user "${PROJECT_SOURCE_DIR}/cmake/consumer/consumer.cc")
target_link_libraries(nkfoundation_dll_user PRIVATE nkfoundation)
nkf_set_warnings(nkfoundation_dll_user)
add_test(NAME dll_user COMMAND nkfoundation_dll_user)
nkf_use_wine(dll_user)
