# What both Windows cross builds share; the toolchain files set
# NKF_MINGW_TRIPLE and the processor, then include this.
#
# The -posix compilers use the posix thread model; the win32 model lacks
# std::mutex and std::thread.
set(CMAKE_SYSTEM_NAME Windows)

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
