# Cross build for 32-bit Windows with Debian's mingw-w64 compilers.
#
# The -posix compilers use the posix thread model; the win32 model lacks
# std::mutex and std::thread.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86)

set(NKF_MINGW_TRIPLE i686-w64-mingw32)
set(CMAKE_C_COMPILER ${NKF_MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${NKF_MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${NKF_MINGW_TRIPLE}-windres)

# Look for libraries and packages in the cross sysroot only, programs on the host.
set(CMAKE_FIND_ROOT_PATH /usr/${NKF_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Link the GCC, C++ and pthread runtimes statically so no runtime DLLs have to
# be shipped beside our executables and our DLL.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)

# Floating point in SSE2 registers, as the Windows compilers of the host
# software generate it: the x87 default would compute in extended precision
# and change the last bits of float and double results.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
