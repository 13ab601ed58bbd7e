# Strict warnings for the project's own targets only: third-party code such as
# GoogleTest is built with its own flags so a new compiler cannot break us there.
function(nkf_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
  if(NKF_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
