// NKF_API marks what the library exports: its public classes and free
// functions, which the desktop application and the managed binding call.
// Everything else stays inside the library: not in the DLL's export table on
// Windows, hidden on ELF platforms.
//
//   class NKF_API OVector : public nk::Framed<OVector> { ... };
//   NKF_API std::string ToUtf8(std::u16string_view text);
//
// Templates and inline-only classes are not marked: users instantiate them.
#ifndef NKFOUNDATION_CORE_EXPORT_H_
#define NKFOUNDATION_CORE_EXPORT_H_

#if defined(NKF_STATIC)
// A static library, or the static twin that the project's own Windows
// executables link (docs/build.md): nothing crosses a module boundary.
#define NKF_API
#elif defined(_WIN32)
#if defined(NKF_BUILDING_LIBRARY)
#define NKF_API __declspec(dllexport)
#else
#define NKF_API __declspec(dllimport)
#endif
#else
#define NKF_API __attribute__((visibility("default")))
#endif

#endif  // NKFOUNDATION_CORE_EXPORT_H_
