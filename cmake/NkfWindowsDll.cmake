# How nkfoundation.dll is linked.
#
# Named nkfoundation.dll, as the host software loads it, not MinGW's
# libnkfoundation.dll; the import library keeps the lib prefix so -lnkfoundation
# finds it. Every symbol is exported, also once a source marks some with
# dllexport, so the C++ API stays reachable; the statically linked runtimes'
# symbols are not (--exclude-libs). __stdcall functions are exported
# both decorated (Name@8) and undecorated (Name): --add-stdcall-alias adds the
# alias while keeping the decorated name, which --kill-at would drop.
set_target_properties(nkfoundation PROPERTIES PREFIX "")
target_link_options(nkfoundation PRIVATE
  -Wl,--export-all-symbols
  -Wl,--exclude-libs,ALL
  -Wl,--add-stdcall-alias)
