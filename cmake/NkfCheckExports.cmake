# Compares a shared library's export table with the public headers: the
# library exports exactly what its headers mark with NKF_API.
#
# - Every C++ export belongs to a marked class (its members, vtable, typeinfo
#   and thunks) or is a marked function. Anything else, above all instances of
#   the standard library (std::, __gnu_cxx::) and of the bundled header-only
#   libraries (utf8::), is an offender: callers would bind to the library's
#   private copy.
# - Every C export is a marked function or belongs to the managed binding's
#   flat layer (SWIGEXPORT): the CSharp_... wrappers of the module and its
#   four SWIGRegister... callback registrations, in a DLL also in their
#   decorated stdcall form (name@N). Nothing else of the generated wrapper,
#   and no stray C symbol, may leave the library.
# - Every marked class and function appears in the table, so a mark that does
#   not reach the linker (a definition missing on this platform, an interface
#   whose vtable nobody emits) fails here rather than in a caller's link.
#
# Used by NkfCheckDll.cmake for the DLL, and run on its own for an ELF shared
# library:
#   cmake -DNKF_NM=nm -DNKF_CXXFILT=c++filt -DNKF_LIBRARY=libnkfoundation.so
#         -DNKF_ROOT=<source dir> -P NkfCheckExports.cmake
cmake_minimum_required(VERSION 3.25)

# The qualified names of the classes and functions that the headers under
# `root`/nkfoundation mark with NKF_API, into `classes_var` and
# `functions_var`. Headers of win32/ folders count only when `with_win32`.
function(nkf_marked_names root with_win32 classes_var functions_var)
  file(GLOB_RECURSE headers "${root}/nkfoundation/*/*.h")
  set(classes "")
  set(functions "")
  foreach(header IN LISTS headers)
    if(header MATCHES "/win32/" AND NOT with_win32)
      continue()
    endif()
    file(READ "${header}" text)
    # One list element per line: semicolons and brackets would split or
    # glue elements, and no declaration we look for needs them.
    string(REGEX REPLACE "[][;\\]" "" text "${text}")
    string(REPLACE "\n" ";" lines "${text}")
    set(scope "")
    foreach(line IN LISTS lines)
      if(line MATCHES "^namespace ([A-Za-z0-9_:]*) ?{")
        list(APPEND scope "${CMAKE_MATCH_1}")
        continue()
      elseif(line MATCHES "^}  // namespace")
        list(POP_BACK scope)
        continue()
      elseif(line MATCHES "^ *//")
        continue()
      elseif(line MATCHES "^(class|struct) NKF_API ([A-Za-z0-9_]+)")
        set(name "${CMAKE_MATCH_2}")
      elseif(line MATCHES "NKF_API [^(]*[ *&](operator[^(]+|[A-Za-z0-9_]+)\\(")
        set(name "${CMAKE_MATCH_1}")
      else()
        continue()
      endif()
      set(qualified "${scope}")
      list(FILTER qualified EXCLUDE REGEX "^$")
      list(APPEND qualified "${name}")
      list(JOIN qualified "::" qualified)
      if(line MATCHES "^(class|struct) NKF_API")
        list(APPEND classes "${qualified}")
      else()
        list(APPEND functions "${qualified}")
      endif()
    endforeach()
  endforeach()
  list(REMOVE_DUPLICATES classes)
  list(REMOVE_DUPLICATES functions)
  set(${classes_var} "${classes}" PARENT_SCOPE)
  set(${functions_var} "${functions}" PARENT_SCOPE)
endfunction()

# Turns names into a regular-expression alternation; operators carry
# characters that a regular expression would read.
function(nkf_alternation names out_var)
  set(escaped "")
  foreach(name IN LISTS names)
    string(REGEX REPLACE "([.*+?^$(){}|\\\\])" "\\\\\\1" name "${name}")
    list(APPEND escaped "${name}")
  endforeach()
  list(JOIN escaped "|" alternation)
  set(${out_var} "${alternation}" PARENT_SCOPE)
endfunction()

# Prints up to 60 names a line each, after a heading.
function(nkf_format_list heading names out_var)
  list(LENGTH names count)
  list(SORT names)
  list(SUBLIST names 0 60 shown)
  list(JOIN shown "\n  " text)
  if(count GREATER 60)
    math(EXPR more "${count} - 60")
    string(APPEND text "\n  ... and ${more} more")
  endif()
  set(${out_var} "${heading} (${count}):\n  ${text}\n" PARENT_SCOPE)
endfunction()

# Checks the mangled export names in the file `names_file` (one a line)
# against the headers; `with_win32` as above. Fails with the offenders and
# the missing names listed.
function(nkf_check_exports names_file root with_win32 cxxfilt)
  file(STRINGS "${names_file}" c_names REGEX "^[A-Za-z_]")
  list(FILTER c_names EXCLUDE REGEX "^_Z")
  # AddressSanitizer gives every exported global an ODR indicator of its
  # own; it is instrumentation, not part of the library's interface.
  list(FILTER c_names EXCLUDE REGEX "^__odr_asan[._]")
  file(STRINGS "${names_file}" cxx_names REGEX "^_Z")
  list(JOIN cxx_names "\n" cxx_names)
  set(cxx_file "${names_file}.cxx")
  file(WRITE "${cxx_file}" "${cxx_names}\n")
  execute_process(COMMAND "${cxxfilt}" -n INPUT_FILE "${cxx_file}"
    OUTPUT_VARIABLE demangled COMMAND_ERROR_IS_FATAL ANY)
  # ABI tags ("[abi:cxx11]") would upset CMake's lists: braces instead.
  string(REPLACE "[" "{" demangled "${demangled}")
  string(REPLACE "]" "}" demangled "${demangled}")
  string(REPLACE ";" "," demangled "${demangled}")
  string(STRIP "${demangled}" demangled)
  string(REPLACE "\n" ";" exports "${demangled}")

  nkf_marked_names("${root}" ${with_win32} classes functions)
  nkf_alternation("${classes}" class_alternation)
  nkf_alternation("${functions}" function_alternation)

  set(offenders "")
  set(found "")
  set(binding_exports "^(CSharp_NativeInterfacefNkKernelfFoundationfBase_[A-Za-z0-9_]+___|SWIGRegister(Exception|ExceptionArgument|String|U16String)Callbacks?_NativeInterfaceNkKernelFoundationBase)(@[0-9]+)?$")
  foreach(name IN LISTS c_names)
    if(NOT name IN_LIST functions AND NOT name MATCHES "${binding_exports}")
      list(APPEND offenders "${name}")
    endif()
  endforeach()
  foreach(export IN LISTS exports)
    # What a class carries besides its members.
    string(REGEX REPLACE "^(vtable for |typeinfo for |typeinfo name for |VTT for |construction vtable for |non-virtual thunk to |virtual thunk to |covariant return thunk to |guard variable for )+" "" name "${export}")
    # Member templates demangle with their return type in front.
    string(REGEX REPLACE "^[A-Za-z_][A-Za-z0-9_]* ([A-Za-z_][A-Za-z0-9_:]*(::|<))" "\\1" name "${name}")
    if(classes AND name MATCHES "^(${class_alternation})(::|$)")
      list(APPEND found "${CMAKE_MATCH_1}")
    elseif(functions AND name MATCHES "^(${function_alternation})({abi:[a-z0-9]+})*\\(")
      list(APPEND found "${CMAKE_MATCH_1}")
    else()
      list(APPEND offenders "${export}")
    endif()
  endforeach()

  # An extern "C" function is found by its plain name.
  foreach(function IN LISTS functions)
    if(function IN_LIST c_names)
      list(APPEND found "${function}")
    endif()
  endforeach()
  set(missing ${classes} ${functions})
  if(found)
    list(REMOVE_ITEM missing ${found})
  endif()

  set(report "")
  if(offenders)
    nkf_format_list("Exported but not marked NKF_API in a public header" "${offenders}" part)
    string(APPEND report "${part}")
  endif()
  if(missing)
    nkf_format_list("Marked NKF_API but not exported" "${missing}" part)
    string(APPEND report "${part}")
  endif()
  if(report)
    message(FATAL_ERROR "The export table does not match the public headers.\n${report}")
  endif()
  list(LENGTH exports export_count)
  list(LENGTH c_names c_count)
  math(EXPR export_count "${export_count} + ${c_count}")
  list(LENGTH classes class_count)
  list(LENGTH functions function_count)
  message(STATUS "${export_count} exports, all of ${class_count} marked classes and ${function_count} marked functions")
endfunction()

# Run on its own: an ELF shared library.
if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
  execute_process(COMMAND "${NKF_NM}" -D --defined-only "${NKF_LIBRARY}"
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
  # "address type name", where the name may carry a version ("name@@V").
  string(REGEX REPLACE "[^\n]* [A-Za-z] ([^ @\n]+)[^\n]*" "\\1" names "${table}")
  set(names_file "${CMAKE_CURRENT_BINARY_DIR}/nkfoundation-exports.txt")
  file(WRITE "${names_file}" "${names}")
  nkf_check_exports("${names_file}" "${NKF_ROOT}" OFF "${NKF_CXXFILT}")
endif()
