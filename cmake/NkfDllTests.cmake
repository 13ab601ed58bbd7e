# Tests of nkfoundation.dll itself, which the test suites do not link (see
# NKF_LINK_LIBRARY): its export and import tables, and that a program linked
# against it loads and runs it.
find_program(NKF_OBJDUMP ${NKF_MINGW_TRIPLE}-objdump objdump REQUIRED)
add_test(NAME dll_tables COMMAND "${CMAKE_COMMAND}"
  "-DNKF_OBJDUMP=${NKF_OBJDUMP}"
  "-DNKF_DLL=$<TARGET_FILE:nkfoundation>"
  -P "${PROJECT_SOURCE_DIR}/cmake/NkfCheckDll.cmake")

# The installed-package consumer doubles as the DLL's user. It lands beside
# the DLL, where Windows looks first.
add_executable(nkfoundation_dll_user "${PROJECT_SOURCE_DIR}/cmake/consumer/consumer.cc")
target_link_libraries(nkfoundation_dll_user PRIVATE nkfoundation)
nkf_set_warnings(nkfoundation_dll_user)
add_test(NAME dll_user COMMAND nkfoundation_dll_user)
nkf_use_wine(dll_user)
