# The `nkfoundation` command-line program: every tools/*.cc. The target has its
# own name because `nkfoundation` is the library's.
file(GLOB NKF_TOOL_SOURCES CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tools/*.cc")
if(NOT NKF_TOOL_SOURCES)
  return()
endif()

add_executable(nkfoundation_tool ${NKF_TOOL_SOURCES})
set_target_properties(nkfoundation_tool PROPERTIES OUTPUT_NAME nkfoundation)
target_link_libraries(nkfoundation_tool PRIVATE ${NKF_LINK_LIBRARY} nkf_cli11)
nkf_set_warnings(nkfoundation_tool)

if(NKF_BUILD_TESTS)
  # Without a file the program shows its bundled sample.
  add_test(NAME tool_inspect_sample COMMAND nkfoundation_tool inspect)
  if(CMAKE_CROSSCOMPILING)
    nkf_use_wine(tool_inspect_sample)
  endif()
endif()
