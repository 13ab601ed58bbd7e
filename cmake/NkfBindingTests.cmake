# Tests of the managed binding, included by NkfBinding.cmake when tests are
# built:
# - binding_exports: the library's export table holds the expected flat
#   exports (tests/binding/expected_exports.txt), decorated in the 32-bit DLL;
# - binding_managed: a C# program, compiled with mcs against the generated
#   proxies and run with mono against the library just built, where a native
#   build has Mono.

if(WIN32)
  find_program(NKF_OBJDUMP ${NKF_MINGW_TRIPLE}-objdump objdump REQUIRED)
  set(_nkf_lister "-DNKF_OBJDUMP=${NKF_OBJDUMP}")
else()
  find_program(NKF_NM nm REQUIRED)
  set(_nkf_lister "-DNKF_NM=${NKF_NM}")
endif()
add_test(NAME binding_exports COMMAND "${CMAKE_COMMAND}" ${_nkf_lister}
  "-DNKF_LIBRARY=$<TARGET_FILE:nkfoundation>"
  "-DNKF_EXPECTED=${PROJECT_SOURCE_DIR}/tests/binding/expected_exports.txt"
  -P "${PROJECT_SOURCE_DIR}/cmake/NkfCheckBindingExports.cmake")
set_tests_properties(binding_exports PROPERTIES LABELS binding)

if(CMAKE_CROSSCOMPILING)
  return()
endif()

# The native writer of the frames the managed test compares against.
add_executable(nkfoundation_binding_reference "${PROJECT_SOURCE_DIR}/tests/binding/reference_frames.cc")
target_link_libraries(nkfoundation_binding_reference PRIVATE ${NKF_LINK_LIBRARY})
nkf_set_warnings(nkfoundation_binding_reference)

find_program(NKF_MCS mcs)
find_program(NKF_MONO mono)
if(NOT NKF_MCS OR NOT NKF_MONO)
  # Registered all the same, so the run shows it as not run, with the reason.
  add_test(NAME binding_managed COMMAND "${CMAKE_COMMAND}" -E false)
  set_tests_properties(binding_managed PROPERTIES DISABLED TRUE LABELS binding)
  message(STATUS "binding_managed is disabled: mcs or mono not found (scripts/install_deps.sh binding)")
  return()
endif()

set(_nkf_reference_file "${NKF_BINDING_DIR}/reference_frames.txt")
add_test(NAME binding_reference_frames COMMAND "${CMAKE_COMMAND}"
  "-DPROGRAM=$<TARGET_FILE:nkfoundation_binding_reference>"
  "-DOUTPUT=${_nkf_reference_file}"
  -P "${PROJECT_SOURCE_DIR}/cmake/NkfRunToFile.cmake")
set_tests_properties(binding_reference_frames PROPERTIES
  FIXTURES_SETUP binding_reference LABELS binding)

file(GLOB _nkf_managed_tests CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/binding/*.cs")
set(NKF_BINDING_TEST_EXE "${NKF_BINDING_DIR}/nkfoundation_binding_test.exe")
add_custom_command(
  OUTPUT "${NKF_BINDING_TEST_EXE}"
  COMMAND "${NKF_MCS}" -nologo -warnaserror+ -out:${NKF_BINDING_TEST_EXE}
          "-recurse:${NKF_BINDING_CSHARP_DIR}/*.cs" ${_nkf_managed_tests}
  DEPENDS "${NKF_BINDING_STAMP}" ${_nkf_managed_tests}
  COMMENT "Compiling the managed binding test (mcs)"
  VERBATIM)
add_custom_target(nkfoundation_binding_test ALL DEPENDS "${NKF_BINDING_TEST_EXE}")

add_test(NAME binding_managed
  COMMAND "${NKF_MONO}" --debug "${NKF_BINDING_TEST_EXE}" "${_nkf_reference_file}")
# DllImport("nkfoundation") resolves to libnkfoundation.so through the
# loader's search path.
set(_nkf_managed_environment "LD_LIBRARY_PATH=$<TARGET_FILE_DIR:nkfoundation>")
if(NKF_SANITIZERS)
  # Mono itself is not instrumented: the sanitizer runtime must be loaded
  # before anything else, and Mono's own allocations are not ours to judge.
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so
    OUTPUT_VARIABLE _nkf_asan_runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
  list(APPEND _nkf_managed_environment "LD_PRELOAD=${_nkf_asan_runtime}"
    "ASAN_OPTIONS=detect_leaks=0:handle_segv=0:allow_user_segv_handler=1")
endif()
set_tests_properties(binding_managed PROPERTIES
  ENVIRONMENT "${_nkf_managed_environment}"
  FIXTURES_REQUIRED binding_reference
  LABELS binding)
