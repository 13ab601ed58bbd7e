# Cross build for 64-bit Windows. Not a product: it runs the Windows tests
# under 64-bit Wine on machines whose kernel cannot start 32-bit programs.
set(NKF_MINGW_TRIPLE x86_64-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
include("${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake")
