# Cross build for 32-bit Windows, the library's home, with Debian's
# mingw-w64 compilers.
set(NKF_MINGW_TRIPLE i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86)
include("${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake")

# Floating point in SSE2 registers, as the Windows compilers of the host
# software generate it: the x87 default would compute in extended precision
# and change the last bits of float and double results.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
