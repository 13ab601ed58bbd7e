# Run by CTest (cmake -P) on nkfoundation.dll: -D NKF_OBJDUMP, NKF_CXXFILT,
# NKF_DLL, NKF_ROOT (the source directory).
#
# - It exports something, and every __stdcall export (Name@N) also
#   undecorated (Name), which callers that look names up by hand rely on.
# - It exports exactly what the public headers mark with NKF_API
#   (NkfCheckExports.cmake).
# - It imports no MinGW runtime DLL: those are linked in statically, so the
#   DLL ships alone.
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/NkfCheckExports.cmake")
execute_process(COMMAND "${NKF_OBJDUMP}" -p "${NKF_DLL}"
  OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)

# Names follow "[Ordinal/Name Pointer] Table", one "\t[  N] name" a line. The
# brackets go before the lines become a list: CMake does not split inside them.
string(REGEX MATCH "Ordinal/Name Pointer\\] Table\n((\t[^\n]+\n)+)" unused "${dump}")
string(REGEX REPLACE "\t\\[ *[0-9]+\\] " "" export_table "${CMAKE_MATCH_1}")
string(STRIP "${export_table}" export_table)
string(REPLACE "\n" ";" exports "${export_table}")
list(LENGTH exports export_count)
if(export_count EQUAL 0)
  message(FATAL_ERROR "${NKF_DLL} exports nothing")
endif()

set(missing "")
foreach(name IN LISTS exports)
  if(name MATCHES "^(.+)@[0-9]+$" AND NOT CMAKE_MATCH_1 IN_LIST exports)
    list(APPEND missing "${CMAKE_MATCH_1} (for ${name})")
  endif()
endforeach()
if(missing)
  list(JOIN missing "\n  " missing)
  message(FATAL_ERROR "stdcall exports without their undecorated alias:\n  ${missing}")
endif()

list(JOIN exports "\n" names)
set(names_file "${CMAKE_CURRENT_BINARY_DIR}/nkfoundation-dll-exports.txt")
file(WRITE "${names_file}" "${names}\n")
nkf_check_exports("${names_file}" "${NKF_ROOT}" ON "${NKF_CXXFILT}")

string(REGEX MATCHALL "DLL Name: [^\n]+" imports "${dump}")
list(TRANSFORM imports REPLACE "DLL Name: " "")
list(FILTER imports INCLUDE REGEX "^(libgcc|libstdc\\+\\+|libwinpthread)")
if(imports)
  message(FATAL_ERROR "${NKF_DLL} needs MinGW runtime DLLs: ${imports}")
endif()
message(STATUS "${NKF_DLL}: ${export_count} exports, no runtime DLLs")
