# The `nkfoundation` command-line program: every tools/*.cc. The target has its
# own name because `nkfoundation` is the library's.

# Run as a script (cmake -P), this file is the check of the program's failure
# tests: PROGRAM with ARGS must fail as every command fails, with status 2 and
# one line "error: ..." on stderr. Before that it may make the input: a
# sparse file of SPARSE_SIZE bytes, or a coder stream of CRAFTED_BLOCKS
# 17-byte blocks whose eight 17-bit tokens each copy fifteen words (so it
# decodes to 14 times its size). MEMORY_LIMIT_KB caps the address space.
if(CMAKE_SCRIPT_MODE_FILE)
  if(DEFINED SPARSE_SIZE)
    file(REMOVE "${INPUT}")
    execute_process(COMMAND truncate -s ${SPARSE_SIZE} "${INPUT}" COMMAND_ERROR_IS_FATAL ANY)
  endif()
  if(DEFINED CRAFTED_BLOCKS)
    string(ASCII 254 255 253 255 251 255 247 255 239 255 223 255 191 255 127 255 255 block)
    string(REPEAT "${block}" ${CRAFTED_BLOCKS} stream)
    file(WRITE "${INPUT}" "${stream}")
  endif()
  set(run "${PROGRAM}" ${ARGS})
  if(DEFINED MEMORY_LIMIT_KB)
    set(run sh -c "ulimit -v ${MEMORY_LIMIT_KB} && exec \"$0\" \"$@\"" ${run})
  endif()
  execute_process(COMMAND ${run} RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE errors)
  if(DEFINED INPUT)
    file(REMOVE "${INPUT}")
  endif()
  if(NOT status EQUAL 2 OR NOT errors MATCHES "^error: [^\n]*\n$")
    message(FATAL_ERROR "expected status 2 and one error line, got status ${status}:\n${errors}")
  endif()
  return()
endif()

file(GLOB NKF_TOOL_SOURCES CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tools/*.cc")
if(NOT NKF_TOOL_SOURCES)
  return()
endif()

add_executable(nkfoundation_tool ${NKF_TOOL_SOURCES})
set_target_properties(nkfoundation_tool PROPERTIES OUTPUT_NAME nkfoundation)
# MinGW links every program with an import library of its own, named after
# the output: the program's would be libnkfoundation.dll.a, the DLL's, and a
# program linked against that would load nkfoundation.exe as its library.
set_target_properties(nkfoundation_tool PROPERTIES IMPORT_SUFFIX ".exe.a")
target_link_libraries(nkfoundation_tool PRIVATE ${NKF_LINK_LIBRARY} nkf_cli11)
nkf_set_warnings(nkfoundation_tool)

if(NKF_BUILD_TESTS)
  # Without a file the program shows its bundled sample.
  add_test(NAME tool_inspect_sample COMMAND nkfoundation_tool inspect)
  # ...and the information lines of a sample device record.
  add_test(NAME tool_devinfo_sample COMMAND nkfoundation_tool devinfo --culture 2)
  set_tests_properties(tool_devinfo_sample PROPERTIES
    PASS_REGULAR_EXPRESSION "InfrastructureDvinfoStr3_Text +Unbegrenzt")
  if(CMAKE_CROSSCOMPILING)
    nkf_use_wine(tool_inspect_sample)
    nkf_use_wine(tool_devinfo_sample)
  endif()

  # Inputs that no command may answer with a crash. The inputs are made in
  # the test's own folder; the sparse file takes no disk space.
  if(NOT CMAKE_CROSSCOMPILING)
    set(_nkf_tool_dir "${CMAKE_CURRENT_BINARY_DIR}/tool_tests")
    file(MAKE_DIRECTORY "${_nkf_tool_dir}")
    set(_nkf_tool_check ${CMAKE_COMMAND} "-DPROGRAM=$<TARGET_FILE:nkfoundation_tool>")
    add_test(NAME tool_inspect_directory
             COMMAND ${_nkf_tool_check} "-DARGS=inspect;${_nkf_tool_dir}" -P ${CMAKE_CURRENT_LIST_FILE})
    add_test(NAME tool_decompress_directory
             COMMAND ${_nkf_tool_check} "-DARGS=decompress;${_nkf_tool_dir};${_nkf_tool_dir}/out"
                     -P ${CMAKE_CURRENT_LIST_FILE})
    # Bytes that hold no device record.
    add_test(NAME tool_devinfo_without_record
             COMMAND ${_nkf_tool_check} -DSPARSE_SIZE=64 "-DINPUT=${_nkf_tool_dir}/no_record"
                     "-DARGS=devinfo;${_nkf_tool_dir}/no_record" -P ${CMAKE_CURRENT_LIST_FILE})
    # Larger than any buffer the library holds: refused before reading.
    add_test(NAME tool_inspect_oversized_file
             COMMAND ${_nkf_tool_check} -DSPARSE_SIZE=3G "-DINPUT=${_nkf_tool_dir}/oversized"
                     "-DARGS=inspect;${_nkf_tool_dir}/oversized" -P ${CMAKE_CURRENT_LIST_FILE})
    # Pictures to an image array and back to pictures; a file that is no
    # picture is refused.
    get_filename_component(_nkf_corpus "${PROJECT_SOURCE_DIR}/../shared/corpus" ABSOLUTE)
    add_test(NAME tool_image_import
             COMMAND nkfoundation_tool image import "${_nkf_corpus}/camera.pgm" "${_nkf_corpus}/coffee.ppm"
                     "${_nkf_tool_dir}/series.img" --compress)
    add_test(NAME tool_image_export
             COMMAND nkfoundation_tool image export "${_nkf_tool_dir}/series.img" "${_nkf_tool_dir}/series.bmp")
    set_tests_properties(tool_image_import PROPERTIES FIXTURES_SETUP nkf_image_series)
    set_tests_properties(tool_image_export PROPERTIES FIXTURES_REQUIRED nkf_image_series
                         PASS_REGULAR_EXPRESSION "2 images written")
    # A grey-line package from the fuzzer's seeds, unpacked into lines.
    add_test(NAME tool_greylines
             COMMAND nkfoundation_tool greylines "${PROJECT_SOURCE_DIR}/fuzz/corpus/greyline/absolute-escapes")
    add_test(NAME tool_image_import_not_a_picture
             COMMAND ${_nkf_tool_check} "-DARGS=image;import;${CMAKE_CURRENT_LIST_FILE};${_nkf_tool_dir}/no.img"
                     -P ${CMAKE_CURRENT_LIST_FILE})
    # 4 MiB that decode to 60 MiB under a 48 MiB limit: the decoder's
    # allocation fails and the command reports it, as it reports a result
    # beyond 2 GiB. Sanitizers reserve far more address space than that.
    if(NOT NKF_SANITIZERS)
      add_test(NAME tool_decompress_out_of_memory
               COMMAND ${_nkf_tool_check} -DCRAFTED_BLOCKS=262144 -DMEMORY_LIMIT_KB=49152
                       "-DINPUT=${_nkf_tool_dir}/crafted" "-DARGS=decompress;${_nkf_tool_dir}/crafted;${_nkf_tool_dir}/out"
                       -P ${CMAKE_CURRENT_LIST_FILE})
    endif()
  endif()
endif()
