# libFuzzer targets: fuzz/<name>_fuzz.cc builds nkfoundation_<name>_fuzz.
# The library is instrumented for coverage; sanitizers come from
# NKF_SANITIZERS. Each target gets a test that replays its seed corpus,
# fuzz/corpus/<name>/; scripts/run_fuzzers.sh does the timed fuzzing.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "NKF_BUILD_FUZZ needs clang: use the fuzz preset")
endif()

target_compile_options(nkfoundation_objects PRIVATE -fsanitize=fuzzer-no-link)

file(GLOB NKF_FUZZ_SOURCES CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/fuzz/*_fuzz.cc")
foreach(source IN LISTS NKF_FUZZ_SOURCES)
  get_filename_component(name "${source}" NAME_WE)
  string(REGEX REPLACE "_fuzz$" "" name "${name}")
  set(target nkfoundation_${name}_fuzz)
  add_executable(${target} "${source}")
  target_compile_options(${target} PRIVATE -fsanitize=fuzzer)
  target_link_options(${target} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${target} PRIVATE ${NKF_LINK_LIBRARY})
  nkf_set_warnings(${target})

  # -runs=0 runs every seed once and stops.
  set(seeds "${PROJECT_SOURCE_DIR}/fuzz/corpus/${name}")
  if(IS_DIRECTORY "${seeds}")
    add_test(NAME ${target}_seeds COMMAND ${target} -runs=0 "${seeds}")
  endif()
endforeach()
