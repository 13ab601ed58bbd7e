// Support services: compression, processing times, the stopwatch, progress,
// message dispatch with its director, and the small utilities.

%{
#include "nkfoundation/services/application_profile.h"
#include "nkfoundation/services/compress.h"
#include "nkfoundation/services/message_dispatcher.h"
#include "nkfoundation/services/process_timer.h"
#include "nkfoundation/services/processing_time.h"
#include "nkfoundation/services/processing_time_array.h"
#include "nkfoundation/services/progress_ctrl.h"
#include "nkfoundation/services/status_bar.h"
#include "nkfoundation/services/user_interaction.h"
#include "nkfoundation/services/utils.h"
%}

NKF_SHARED(OCompress)
%include "nkfoundation/services/compress.h"

NKF_FRAMED(OType_ProcessingTime)
%ignore OType_ProcessingTime::kFrame;
%ignore OType_ProcessingTime::Fields;
%ignore OType_ProcessingTime::GetProcessingTimeData;
%newobject OType_ProcessingTime::opCreateCopy;
%include "nkfoundation/services/processing_time.h"

NKF_OBJECT_ARRAY(OType_ProcessingTimeArray, std::shared_ptr<OType_ProcessingTime>)
NKF_MOVABLE_ARRAY(OType_ProcessingTimeArray, std::shared_ptr<OType_ProcessingTime>)
%ignore OType_ProcessingTimeArray::kFrame;
%ignore OType_ProcessingTimeArray::LeadingFields;
%include "nkfoundation/services/processing_time_array.h"

NKF_SHARED(process_timer::Timer)
%include "nkfoundation/services/process_timer.h"

// The dispatcher: managed code derives from it and installs its instance, and
// the library's events reach the managed overrides through the director.
%include "nkfoundation/services/user_interaction.h"
NKF_SHARED(OMessageDispatcher)
%feature("director") OMessageDispatcher;
%include "nkfoundation/services/message_dispatcher.h"

// The progress display and the status bar it steps. The status bar is not
// owned by the progress control, so it crosses as a plain object that the
// caller keeps alive; the lock inside the control stays native.
%include "nkfoundation/services/status_bar.h"
NKF_SHARED(OProgressCtrl)
%ignore OProgressCtrl::SyncMutex;
%ignore OProgressCtrl::SyncMutex::lock;
%ignore OProgressCtrl::opGetThreadSyncMutex;
%include "nkfoundation/services/progress_ctrl.h"

// The host's profile is installed, not handed over: the caller keeps it.
%include "nkfoundation/services/application_profile.h"

// memmem and IsValidObject look at native memory: the managed side passes
// and receives addresses (IntPtr), of pinned or unmanaged buffers.
%typemap(ctype) const void* NATIVE_ADDRESS "void *"
%typemap(imtype) const void* NATIVE_ADDRESS "global::System.IntPtr"
%typemap(cstype) const void* NATIVE_ADDRESS "global::System.IntPtr"
%typemap(csin) const void* NATIVE_ADDRESS "$csinput"
%typemap(in) const void* NATIVE_ADDRESS %{ $1 = ($1_ltype)$input; %}
%typemap(out) const void* NATIVE_ADDRESS %{ $result = (void *)$1; %}
%typemap(csout, excode=SWIGEXCODE) const void* NATIVE_ADDRESS {
    global::System.IntPtr ret = $imcall;$excode
    return ret;
  }
%apply const void* NATIVE_ADDRESS { const void* haystack, const void* needle, const void* object };
%apply const void* NATIVE_ADDRESS { const void* memmem };
%apply std::string& OUTPUT { std::string& text };
%include "nkfoundation/services/utils.h"

#if defined(NKF_WIN32)
// --- Windows only ---------------------------------------------------------------
//
// The registry, the window dispatcher, the status bar and the registry-backed
// profile. The stand-ins for the class framework's window and menu types
// (mfc_compat.h) and the dialog and menu helpers over them stay native: the
// managed front end has no framework windows to hand them.

%{
#include "nkfoundation/services/win32/application_profile_registry.h"
#include "nkfoundation/services/win32/message_dispatcher_hwnd.h"
#include "nkfoundation/services/win32/registry.h"
#include "nkfoundation/services/win32/registry_strings.h"
#include "nkfoundation/services/win32/registry_value.h"
#include "nkfoundation/services/win32/status_bar_hwnd.h"
%}

// Window and registry handles cross as IntPtr, the managed form of a handle.
%define NKF_HANDLE(TYPE)
%typemap(ctype) TYPE "void *"
%typemap(imtype) TYPE "global::System.IntPtr"
%typemap(cstype) TYPE "global::System.IntPtr"
%typemap(csin) TYPE "$csinput"
%typemap(in) TYPE %{ $1 = ($1_ltype)$input; %}
%typemap(out) TYPE %{ $result = (void *)$1; %}
%typemap(csout, excode=SWIGEXCODE) TYPE {
    global::System.IntPtr ret = $imcall;$excode
    return ret;
  }
%typemap(typecheck, precedence=SWIG_TYPECHECK_POINTER) TYPE ""
%enddef
NKF_HANDLE(HWND)
NKF_HANDLE(HKEY)

// Byte blocks with their length arrive as C# byte arrays; the registry's
// counts and DWORDs come back as out parameters, its ANSI texts as out
// strings.
%include <arrays_csharp.i>
%apply unsigned char INPUT[] { unsigned char* const data };
%apply unsigned char OUTPUT[] { unsigned char* buffer };
%apply unsigned long& OUTPUT { unsigned long& value };
%apply unsigned long* OUTPUT { unsigned long* subKeyCount, unsigned long* valueCount };

// Multi-strings travel as the string arrays of the managed side. The UTF-16
// pointer forms have these as twins, or (a single REG_SZ) read data that the
// ANSI registry calls wrote, which is not UTF-16.
%ignore OType_RegistryValue::OType_RegistryValue(const WritableCollection<std::u16string>&);
%ignore OType_RegistryValue::SetValue(const wchar_t* const*, unsigned long);
%ignore OType_RegistryValue::SetValue(const WritableCollection<std::u16string>&);
%ignore OType_RegistryValue::GetValue(const wchar_t*&) const;
%ignore OType_RegistryValue::GetValue(unsigned char*&, unsigned long) const;
%ignore OType_RegistryValue::GetValue(WritableCollection<std::u16string>&) const;
// The raw block is read through the typed getters.
%ignore OType_RegistryValue::GetData;
// Keeps its export name; on the managed side it hides object.GetType.
%csmethodmodifiers OType_RegistryValue::GetType "public new";
%extend OType_RegistryValue {
  OType_RegistryValue(const OStringArray& strings) { return new OType_RegistryValue(strings); }
  void SetValue(const OStringArray& strings) { $self->SetValue(strings); }
  // Copies the block into `buffer` when `size` is exactly the stored size.
  bool GetValue(unsigned char* buffer, unsigned long size) const { return $self->GetValue(buffer, size); }
  bool GetValue(OStringArray& strings) const { return $self->GetValue(strings); }
}
%include "nkfoundation/services/win32/registry_value.h"

// Managed code walks a registry tree by overriding the hit callbacks.
%feature("director") OType_Registry;
%include "nkfoundation/services/win32/registry.h"

%include "nkfoundation/services/win32/registry_strings.h"

NKF_SHARED(OMessageDispatcher_HWND)
%include "nkfoundation/services/win32/message_dispatcher_hwnd.h"

%include "nkfoundation/services/win32/status_bar_hwnd.h"
%include "nkfoundation/services/win32/application_profile_registry.h"
#endif
