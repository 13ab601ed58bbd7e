// The managed binding of the library: one flat export per operation, named
// CSharp_NativeInterfacefNkKernelfFoundationfBase_..., and the C# proxies in
// namespace NativeInterface.NkKernel.Foundation.Base. The build runs SWIG on
// this file (cmake/NkfBinding.cmake); docs/binding.md tells how to add a class.
%module(directors="1") NativeInterfaceNkKernelFoundationBase

// The library's own headers export through NKF_API; the flat layer exports
// its functions itself (SWIGEXPORT).
#define NKF_API

%include <stdint.i>
%include <std_shared_ptr.i>
%include <std_string.i>
%include "csharp_typemaps.i"

%include "core.i"
%include "geometry.i"
%include "services.i"
%include "image.i"
%include "device.i"
