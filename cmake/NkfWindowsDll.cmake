# How nkfoundation.dll is linked.
#
# Named nkfoundation.dll, as the host software loads it, not MinGW's
# libnkfoundation.dll; the import library keeps the lib prefix so -lnkfoundation
# finds it. Only what the sources mark with NKF_API (dllexport) is exported:
# with any dllexport present the linker exports nothing else, so helpers,
# template instances of the standard library and the bundled header-only
# libraries stay inside. The statically linked runtimes' symbols are never
# exported (--exclude-libs). __stdcall functions are exported both decorated
# (Name@8) and undecorated (Name): --add-stdcall-alias adds the alias while
# keeping the decorated name, which --kill-at would drop.
set_target_properties(nkfoundation PROPERTIES PREFIX "")
target_link_options(nkfoundation PRIVATE
  -Wl,--exclude-libs,ALL
  -Wl,--add-stdcall-alias)
