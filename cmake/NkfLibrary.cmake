# The nkfoundation library: every nkfoundation/<subsystem>/*.cc, plus the
# win32/ sources of each subsystem when the target is Windows.
set(NKF_SUBSYSTEMS core device image geometry services binding)

set(_nkf_patterns "")
foreach(subsystem IN LISTS NKF_SUBSYSTEMS)
  list(APPEND _nkf_patterns "${PROJECT_SOURCE_DIR}/nkfoundation/${subsystem}/*.cc")
  if(WIN32)
    list(APPEND _nkf_patterns "${PROJECT_SOURCE_DIR}/nkfoundation/${subsystem}/win32/*.cc")
  endif()
endforeach()
file(GLOB NKF_LIBRARY_SOURCES CONFIGURE_DEPENDS ${_nkf_patterns})

# Picture files: JPEG and PNG go through libjpeg-turbo and libpng where both
# are found; elsewhere (the Windows cross build) a stand-in answers "format
# not supported" for them, and BMP and PGM/PPM still work (docs/dependencies.md).
find_package(JPEG QUIET)
find_package(PNG QUIET)
set(NKF_PICTURE_LIBRARIES "")
set(NKF_PICTURE_FIND_DEPENDENCIES "")
if(JPEG_FOUND AND PNG_FOUND)
  set(NKF_PICTURE_LIBRARIES JPEG::JPEG PNG::PNG)
  list(FILTER NKF_LIBRARY_SOURCES EXCLUDE REGEX "/image/picture_codecs_missing\\.cc$")
  if(NOT NKF_SHARED)
    # A static library hands its dependencies on to whoever links it.
    set(NKF_PICTURE_FIND_DEPENDENCIES "find_dependency(JPEG)\nfind_dependency(PNG)")
  endif()
else()
  list(FILTER NKF_LIBRARY_SOURCES EXCLUDE REGEX "/image/(jpeg|png)_codec\\.cc$")
endif()

# Windows system libraries that MinGW does not link by default: oleaut32
# converts the OLE automation dates (nkfoundation/core/win32/ole_date.cc).
set(NKF_SYSTEM_LIBRARIES "")
if(WIN32)
  list(APPEND NKF_SYSTEM_LIBRARIES oleaut32)
endif()

# What every target made of the library's sources needs.
function(nkf_library_usage target scope)
  target_include_directories(${target} ${scope}
    "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
    "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
  target_compile_features(${target} ${scope} cxx_std_20)
  # Results must match the device's bit for bit whatever CPU the code is built
  # for: a multiply and an add fused into one FMA round once instead of twice
  # (-march=haswell and later enable that by default with GCC). The library's
  # headers hold inline arithmetic (the fixed-point rounding), so what users
  # compile from them needs the same rule: hence the usage requirement.
  target_compile_options(${target} ${scope}
    "$<$<COMPILE_LANG_AND_ID:CXX,GNU,Clang,AppleClang>:-ffp-contract=off>"
    "$<$<COMPILE_LANG_AND_ID:CXX,MSVC>:/fp:precise>")
endfunction()

# Compiled once, packed into the library and, on Windows, also into a static
# twin (see below).
add_library(nkfoundation_objects OBJECT ${NKF_LIBRARY_SOURCES})
set_target_properties(nkfoundation_objects PROPERTIES POSITION_INDEPENDENT_CODE ${NKF_SHARED})
nkf_library_usage(nkfoundation_objects PUBLIC)
nkf_set_warnings(nkfoundation_objects)
# Calls inside the library may be inlined even though the shared library
# exports the callee: nobody interposes the library's own functions.
if(NKF_SHARED AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(nkfoundation_objects PRIVATE -fno-semantic-interposition)
endif()
target_link_libraries(nkfoundation_objects PRIVATE nkf_utfcpp ${NKF_PICTURE_LIBRARIES})
# NKF_API (nkfoundation/core/export.h) alone decides what leaves the library:
# the sources define it as dllexport on Windows, and on ELF everything else
# is hidden, so a forgotten mark breaks the everyday Linux build's link of the
# tests and the program instead of surfacing only on Windows.
target_compile_definitions(nkfoundation_objects PRIVATE NKF_BUILDING_LIBRARY)
if(NOT NKF_SHARED)
  target_compile_definitions(nkfoundation_objects PRIVATE NKF_STATIC)
endif()
if(NOT WIN32)
  set_target_properties(nkfoundation_objects PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endif()
# The Windows code uses the wide (UTF-16) forms of the Win32 API and names.
if(WIN32)
  target_compile_definitions(nkfoundation_objects PRIVATE UNICODE _UNICODE)
endif()

add_library(nkfoundation $<TARGET_OBJECTS:nkfoundation_objects>)
add_library(NkFoundation::nkfoundation ALIAS nkfoundation)
nkf_library_usage(nkfoundation PUBLIC)
target_link_libraries(nkfoundation PRIVATE ${NKF_PICTURE_LIBRARIES} ${NKF_SYSTEM_LIBRARIES})
set_target_properties(nkfoundation PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})
# The ELF library exports what NKF_API marks, less the standard library's
# template instances that libstdc++'s default-visibility namespace would add
# (cmake/nkfoundation.map).
if(NKF_SHARED AND NOT WIN32 AND NOT APPLE)
  set(_nkf_version_script "${PROJECT_SOURCE_DIR}/cmake/nkfoundation.map")
  target_link_options(nkfoundation PRIVATE "LINKER:--version-script=${_nkf_version_script}")
  set_property(TARGET nkfoundation APPEND PROPERTY LINK_DEPENDS "${_nkf_version_script}")
endif()
# Users of a static library, the installed package's included, must see an
# empty NKF_API: nothing of it is imported from a DLL.
# Inline arithmetic in the headers must round as the library does: no fused
# multiply-add there either.
set(NKF_PKGCONFIG_CFLAGS " -ffp-contract=off")
if(NOT NKF_SHARED)
  target_compile_definitions(nkfoundation INTERFACE NKF_STATIC)
  string(APPEND NKF_PKGCONFIG_CFLAGS " -DNKF_STATIC")
endif()

# The library the project's own executables link. On Windows they link the
# static twin rather than the DLL: with static libgcc, i686 DWARF-2 exceptions
# cannot unwind from the DLL into an executable (docs/build.md).
set(NKF_LINK_LIBRARY nkfoundation)
if(WIN32 AND NKF_SHARED)
  include(NkfWindowsDll)
  add_library(nkfoundation_static STATIC $<TARGET_OBJECTS:nkfoundation_objects>)
  nkf_library_usage(nkfoundation_static PUBLIC)
  target_link_libraries(nkfoundation_static PRIVATE ${NKF_PICTURE_LIBRARIES} ${NKF_SYSTEM_LIBRARIES})
  # Its objects are the DLL's, compiled with dllexport; what links the twin
  # must not expect dllimport.
  target_compile_definitions(nkfoundation_static INTERFACE NKF_STATIC)
  set(NKF_LINK_LIBRARY nkfoundation_static)
endif()
