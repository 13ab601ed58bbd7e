# The managed binding: SWIG turns nkfoundation/binding/nkfoundation.i (and the
# subsystem files it includes) into a C++ wrapper, compiled into the library
# itself, and the C# proxies, left in the build tree as a product of the build
# (build/<preset>/binding/csharp/). docs/binding.md describes the layer.
#
# Built wherever the library is shared (a DLL on Windows); a static library
# has no flat exports to offer. Then SWIG is required: the binding is part of
# the product, not an extra that disappears when a tool is missing.
option(NKF_BUILD_BINDING "Build the managed binding into the shared library (needs SWIG 4.1)" ${NKF_SHARED})
if(NOT NKF_BUILD_BINDING)
  return()
endif()
if(NOT NKF_SHARED)
  message(FATAL_ERROR "NKF_BUILD_BINDING needs NKF_SHARED: the flat exports live in the shared library")
endif()

find_package(SWIG 4.1 COMPONENTS csharp)
if(NOT SWIG_FOUND)
  message(FATAL_ERROR
    "SWIG 4.1 or newer with its C# module is needed to build the managed binding "
    "(Debian package swig: scripts/install_deps.sh main). "
    "Configure with -DNKF_BUILD_BINDING=OFF to build the library without it.")
endif()

set(NKF_BINDING_MODULE NativeInterfaceNkKernelFoundationBase)
set(NKF_BINDING_NAMESPACE NativeInterface.NkKernel.Foundation.Base)
set(NKF_BINDING_DIR "${PROJECT_BINARY_DIR}/binding")
set(NKF_BINDING_CSHARP_DIR "${NKF_BINDING_DIR}/csharp")
set(NKF_BINDING_STAMP "${NKF_BINDING_DIR}/csharp.stamp")
set(_nkf_wrapper "${NKF_BINDING_DIR}/nkfoundation_wrap.cxx")
file(GLOB _nkf_interfaces CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/nkfoundation/binding/*.i")

# The Windows-only classes join the binding of the Windows builds.
set(_nkf_swig_defines "")
if(WIN32)
  list(APPEND _nkf_swig_defines -DNKF_WIN32)
endif()

# The proxies are regenerated as a whole, so a class that left the binding
# leaves no stale file behind. The depfile names every header SWIG read.
add_custom_command(
  OUTPUT "${_nkf_wrapper}" "${NKF_BINDING_STAMP}"
  COMMAND "${CMAKE_COMMAND}" -E rm -rf "${NKF_BINDING_CSHARP_DIR}"
  COMMAND "${CMAKE_COMMAND}" -E make_directory "${NKF_BINDING_CSHARP_DIR}"
  COMMAND "${SWIG_EXECUTABLE}" -c++ -csharp -Werror
          ${_nkf_swig_defines}
          "-I${PROJECT_SOURCE_DIR}"
          -module ${NKF_BINDING_MODULE}
          -namespace ${NKF_BINDING_NAMESPACE}
          -dllimport nkfoundation
          -outdir "${NKF_BINDING_CSHARP_DIR}"
          -o "${_nkf_wrapper}"
          -MMD -MF "${_nkf_wrapper}.d"
          "${PROJECT_SOURCE_DIR}/nkfoundation/binding/nkfoundation.i"
  COMMAND "${CMAKE_COMMAND}" -E touch "${NKF_BINDING_STAMP}"
  DEPENDS ${_nkf_interfaces}
  DEPFILE "${_nkf_wrapper}.d"
  COMMENT "Generating the managed binding (SWIG)"
  VERBATIM)

# Compiled like the library's own sources, except for the warning set: the
# generated code is SWIG's. Its exports carry SWIGEXPORT (default visibility
# on ELF, dllexport on Windows); everything else in it stays hidden.
add_library(nkfoundation_binding_objects OBJECT "${_nkf_wrapper}")
set_target_properties(nkfoundation_binding_objects PROPERTIES POSITION_INDEPENDENT_CODE ON)
nkf_library_usage(nkfoundation_binding_objects PRIVATE)
target_compile_definitions(nkfoundation_binding_objects PRIVATE NKF_BUILDING_LIBRARY)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(nkfoundation_binding_objects PRIVATE -fno-strict-aliasing)
endif()
if(WIN32)
  target_compile_definitions(nkfoundation_binding_objects PRIVATE UNICODE _UNICODE)
else()
  set_target_properties(nkfoundation_binding_objects PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endif()
target_sources(nkfoundation PRIVATE $<TARGET_OBJECTS:nkfoundation_binding_objects>)
add_custom_target(nkfoundation_csharp_proxies DEPENDS "${NKF_BINDING_STAMP}")
add_dependencies(nkfoundation nkfoundation_csharp_proxies)

if(NKF_BUILD_TESTS)
  include(NkfBindingTests)
endif()
