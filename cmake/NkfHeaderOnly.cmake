# Header-only libraries from Debian packages: utfcpp (the library's UTF-8
# handling) and CLI11 (the program's command line).
#
# They are plain C++, so cross builds use the host's copies too. /usr/include
# itself must never be on a cross compiler's path, where glibc's headers would
# shadow MinGW's, so each library is reached through a folder of its own.
find_path(NKF_UTFCPP_DIR utf8.h PATHS /usr/include/utf8cpp
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
add_library(nkf_utfcpp INTERFACE)
target_include_directories(nkf_utfcpp SYSTEM INTERFACE "${NKF_UTFCPP_DIR}")

add_library(nkf_cli11 INTERFACE)
if(NOT CMAKE_CROSSCOMPILING)
  find_package(CLI11 CONFIG REQUIRED)
  target_link_libraries(nkf_cli11 INTERFACE CLI11::CLI11)
else()
  # CLI11 installs straight into /usr/include: give the cross build a copy.
  find_path(NKF_CLI11_ROOT CLI/CLI.hpp NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(COPY "${NKF_CLI11_ROOT}/CLI" DESTINATION "${CMAKE_BINARY_DIR}/host-headers/cli11")
  target_include_directories(nkf_cli11 SYSTEM INTERFACE "${CMAKE_BINARY_DIR}/host-headers/cli11")
endif()
