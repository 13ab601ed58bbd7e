# Run by CTest (cmake -P): the library's export table holds every name of
# NKF_EXPECTED, one a line ('#' starts a comment). A name may carry its
# 32-bit Windows decoration (name@N, the bytes of its arguments): the 32-bit
# DLL must export it so, elsewhere the plain name is looked for. A name after
# "windows:" belongs to the Windows-only classes and is looked for in DLLs only.
#   -D NKF_LIBRARY=<.so or .dll> -D NKF_NM=<nm> | -D NKF_OBJDUMP=<objdump>
#   -D NKF_EXPECTED=<table>
cmake_minimum_required(VERSION 3.25)

if(NKF_OBJDUMP)
  execute_process(COMMAND "${NKF_OBJDUMP}" -p "${NKF_LIBRARY}"
    OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCH "Ordinal/Name Pointer\\] Table\n((\t[^\n]+\n)+)" unused "${dump}")
  string(REGEX REPLACE "\t\\[ *[0-9]+\\] " "" table "${CMAKE_MATCH_1}")
  # Only the 32-bit DLL decorates its standard-call exports.
  string(REGEX MATCH "Magic[\t ]+010b" pe32 "${dump}")
else()
  execute_process(COMMAND "${NKF_NM}" -D --defined-only "${NKF_LIBRARY}"
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "[^\n]* [A-Za-z] ([^ @\n]+)[^\n]*" "\\1" table "${table}")
  set(pe32 "")
endif()
string(STRIP "${table}" table)
string(REPLACE "\n" ";" exports "${table}")

file(STRINGS "${NKF_EXPECTED}" expected REGEX "^[^#]")
set(missing "")
set(checked 0)
foreach(name IN LISTS expected)
  string(STRIP "${name}" name)
  if(name MATCHES "^windows:[ \t]*(.+)$")
    if(NOT NKF_OBJDUMP)
      continue()
    endif()
    set(name "${CMAKE_MATCH_1}")
  endif()
  if(NOT pe32)
    string(REGEX REPLACE "@[0-9]+$" "" name "${name}")
  endif()
  if(NOT name IN_LIST exports)
    list(APPEND missing "${name}")
  endif()
  math(EXPR checked "${checked} + 1")
endforeach()
if(missing)
  list(JOIN missing "\n  " missing)
  message(FATAL_ERROR "${NKF_LIBRARY} lacks these flat exports:\n  ${missing}")
endif()
message(STATUS "${NKF_LIBRARY}: all ${checked} expected flat exports present")
