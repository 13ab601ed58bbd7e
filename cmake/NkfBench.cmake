# Benchmarks: every bench/*_bench.cc goes into one nkfoundation_bench (Google
# Benchmark supplies main). zlib, zstd and lz4 are linked here only, as peers
# to measure the library's coders against; the library never depends on them.
file(GLOB NKF_BENCH_SOURCES CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/bench/*_bench.cc")
if(NOT NKF_BENCH_SOURCES)
  return()
endif()

find_package(benchmark REQUIRED)
find_package(ZLIB REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(NKF_ZSTD REQUIRED IMPORTED_TARGET libzstd)
pkg_check_modules(NKF_LZ4 REQUIRED IMPORTED_TARGET liblz4)

add_executable(nkfoundation_bench ${NKF_BENCH_SOURCES})
target_link_libraries(nkfoundation_bench PRIVATE
  ${NKF_LINK_LIBRARY} benchmark::benchmark_main
  ZLIB::ZLIB PkgConfig::NKF_ZSTD PkgConfig::NKF_LZ4)
nkf_set_warnings(nkfoundation_bench)
# The coder's benchmarks run on the shared photographs beside the repository.
get_filename_component(_nkf_corpus "${PROJECT_SOURCE_DIR}/../shared/corpus" ABSOLUTE)
target_compile_definitions(nkfoundation_bench PRIVATE "NKF_CORPUS_DIR=\"${_nkf_corpus}\"")

if(NKF_BUILD_BINDING)
  include(NkfBindingBench)
endif()
