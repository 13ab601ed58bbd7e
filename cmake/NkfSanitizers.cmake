# NKF_SANITIZERS (e.g. "address;undefined") instruments every target, test
# helpers included, so reports point into whole stacks. Any finding stops the
# program: a report that lets the test go on could still pass.
set(NKF_SANITIZERS "" CACHE STRING "Sanitizers to build with, e.g. address;undefined")
if(NKF_SANITIZERS)
  list(JOIN NKF_SANITIZERS "," _nkf_sanitizers)
  add_compile_options(-fsanitize=${_nkf_sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${_nkf_sanitizers})
endif()
