# The managed-call comparison, included by NkfBench.cmake where the binding
# is built: bench/binding_bench.cs, compiled with mcs against the generated
# proxies, and the target nkfoundation_binding_bench_run, which runs the
# native cases (bench/binding_bench.cc) and then the managed program, so
# both sets of figures come from the same machine state.
target_compile_definitions(nkfoundation_bench PRIVATE NKF_BENCH_FLAT_EXPORTS)

find_program(NKF_MCS mcs)
find_program(NKF_MONO mono)
if(NOT NKF_MCS OR NOT NKF_MONO)
  message(STATUS "The managed benchmark is not built: mcs or mono not found (scripts/install_deps.sh binding)")
  return()
endif()

set(_nkf_bench_exe "${NKF_BINDING_DIR}/nkfoundation_binding_bench.exe")
add_custom_command(
  OUTPUT "${_nkf_bench_exe}"
  COMMAND "${NKF_MCS}" -nologo -optimize+ -warnaserror+ -out:${_nkf_bench_exe}
          "-recurse:${NKF_BINDING_CSHARP_DIR}/*.cs" "${PROJECT_SOURCE_DIR}/bench/binding_bench.cs"
  DEPENDS "${NKF_BINDING_STAMP}" "${PROJECT_SOURCE_DIR}/bench/binding_bench.cs"
  COMMENT "Compiling the managed benchmark (mcs)"
  VERBATIM)
add_custom_target(nkfoundation_binding_bench ALL DEPENDS "${_nkf_bench_exe}")

add_custom_target(nkfoundation_binding_bench_run
  COMMAND $<TARGET_FILE:nkfoundation_bench> --benchmark_filter=Binding
  COMMAND "${CMAKE_COMMAND}" -E env "LD_LIBRARY_PATH=$<TARGET_FILE_DIR:nkfoundation>"
          "${NKF_MONO}" "${_nkf_bench_exe}"
  DEPENDS nkfoundation_bench nkfoundation_binding_bench nkfoundation
  USES_TERMINAL
  VERBATIM)
