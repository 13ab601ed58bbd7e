# Strict warnings for the project's own targets only: third-party code such as
# GoogleTest is built with its own flags so a new compiler cannot break us there.
function(nkf_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
  # GCC 12 reports overlapping copies inside std::string that cannot happen
  # (GCC bug 105651), at -O2 and above.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(NKF_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
