# Fails when a public header of nkfoundation/<subsystem>/ or of its win32/
# folder is missing from the umbrella header nkfoundation/nkfoundation.h
# (which includes the win32/ ones in Windows builds only).
#   cmake -DROOT=<source dir> -P NkfUmbrellaCheck.cmake
file(READ "${ROOT}/nkfoundation/nkfoundation.h" umbrella)
file(GLOB_RECURSE headers RELATIVE "${ROOT}" "${ROOT}/nkfoundation/*/*.h")
set(missing "")
foreach(header IN LISTS headers)
  string(FIND "${umbrella}" "#include \"${header}\"" found)
  if(found EQUAL -1)
    list(APPEND missing "${header}")
  endif()
endforeach()
if(missing)
  list(JOIN missing "\n  " missing)
  message(FATAL_ERROR "nkfoundation/nkfoundation.h does not include:\n  ${missing}")
endif()
