// How the library's own types cross into C#, beyond what SWIG's C# module
// knows: UTF-16 text, and the argument-null messages the managed front end
// matches on.

// --- std::u16string ---------------------------------------------------------
//
// Text crosses as NUL-terminated UTF-16 in both directions; surrogate pairs
// travel as the two code units they are, so characters outside the Basic
// Multilingual Plane survive unchanged. Results go through a callback that
// the managed side registers at start-up and that copies the text into a
// managed string before the native buffer goes away, as SWIG does for 8-bit
// strings. A text with an embedded NUL ends there: the C# marshaller cannot
// carry one.

%insert(runtime) %{
#include <string>

typedef void *(SWIGSTDCALL *SWIG_CSharpU16StringHelperCallback)(const char16_t *);
static SWIG_CSharpU16StringHelperCallback SWIG_csharp_u16string_callback = NULL;

#ifdef __cplusplus
extern "C"
#endif
SWIGEXPORT void SWIGSTDCALL SWIGRegisterU16StringCallback_$module(SWIG_CSharpU16StringHelperCallback callback) {
  SWIG_csharp_u16string_callback = callback;
}
%}

%pragma(csharp) imclasscode=%{
  protected class SWIGU16StringHelper {
    [return: global::System.Runtime.InteropServices.MarshalAs(global::System.Runtime.InteropServices.UnmanagedType.LPWStr)]
    public delegate string SWIGU16StringDelegate(
        [global::System.Runtime.InteropServices.MarshalAs(global::System.Runtime.InteropServices.UnmanagedType.LPWStr)] string text);
    static SWIGU16StringDelegate u16StringDelegate = new SWIGU16StringDelegate(CreateString);

    [global::System.Runtime.InteropServices.DllImport("$dllimport", EntryPoint="SWIGRegisterU16StringCallback_$module")]
    public static extern void SWIGRegisterU16StringCallback_$module(SWIGU16StringDelegate u16StringDelegate);

    static string CreateString(string text) {
      return text;
    }

    static SWIGU16StringHelper() {
      SWIGRegisterU16StringCallback_$module(u16StringDelegate);
    }
  }

  static protected SWIGU16StringHelper swigU16StringHelper = new SWIGU16StringHelper();
%}

namespace std {

%naturalvar u16string;
class u16string;

%typemap(ctype, out="void *") u16string, const u16string & "const char16_t *"
%typemap(imtype,
         inattributes="[global::System.Runtime.InteropServices.MarshalAs(global::System.Runtime.InteropServices.UnmanagedType.LPWStr)]",
         outattributes="[return: global::System.Runtime.InteropServices.MarshalAs(global::System.Runtime.InteropServices.UnmanagedType.LPWStr)]",
         directorinattributes="[global::System.Runtime.InteropServices.MarshalAs(global::System.Runtime.InteropServices.UnmanagedType.LPWStr)]",
         directoroutattributes="[return: global::System.Runtime.InteropServices.MarshalAs(global::System.Runtime.InteropServices.UnmanagedType.LPWStr)]"
         ) u16string, const u16string & "string"
%typemap(cstype) u16string, const u16string & "string"
%typemap(csin) u16string, const u16string & "$csinput"
%typemap(csout, excode=SWIGEXCODE) u16string, const u16string & {
    string ret = $imcall;$excode
    return ret;
  }
%typemap(csvarin, excode=SWIGEXCODE2) u16string, const u16string & %{
    set {
      $imcall;$excode
    } %}
%typemap(csvarout, excode=SWIGEXCODE2) u16string, const u16string & %{
    get {
      string ret = $imcall;$excode
      return ret;
    } %}
%typemap(csdirectorin) u16string, const u16string & "$iminput"
%typemap(csdirectorout) u16string, const u16string & "$cscall"
%typemap(typecheck) u16string, const u16string & = char *;

%typemap(in, canthrow=1) u16string
%{ if (!$input) {
    SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "null u16string", 0);
    return $null;
  }
  $1.assign($input); %}
%typemap(in, canthrow=1) const u16string & ($*1_ltype temp)
%{ if (!$input) {
    SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "null u16string", 0);
    return $null;
  }
  temp.assign($input);
  $1 = &temp; %}
%typemap(out) u16string %{ $result = SWIG_csharp_u16string_callback($1.c_str()); %}
%typemap(out) const u16string & %{ $result = SWIG_csharp_u16string_callback($1->c_str()); %}

%typemap(directorin) u16string, const u16string & %{ $input = $1.c_str(); %}
%typemap(directorout, canthrow=1) u16string
%{ if (!$input) {
    SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "null u16string", 0);
    return $null;
  }
  $result.assign($input); %}

// A view of text arrives like a const string, as NUL-terminated UTF-16 that
// the view looks at for the length of the call.
class u16string_view;
%typemap(ctype) u16string_view "const char16_t *"
%typemap(imtype,
         inattributes="[global::System.Runtime.InteropServices.MarshalAs(global::System.Runtime.InteropServices.UnmanagedType.LPWStr)]"
         ) u16string_view "string"
%typemap(cstype) u16string_view "string"
%typemap(csin) u16string_view "$csinput"
%typemap(typecheck) u16string_view = char *;
%typemap(in, canthrow=1) u16string_view
%{ if (!$input) {
    SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "null u16string", 0);
    return $null;
  }
  $1 = std::u16string_view($input); %}

// An 8-bit text handed back through a reference becomes a C# out string:
// the callback copies it into a managed string whose native copy the
// marshaller frees after the call, as for an 8-bit string result. Apply it
// by parameter name: %apply std::string& OUTPUT { std::string& text };
%typemap(ctype) string& OUTPUT "char **"
%typemap(imtype) string& OUTPUT "out string"
%typemap(cstype) string& OUTPUT "out string"
%typemap(csin) string& OUTPUT "out $csinput"
%typemap(in) string& OUTPUT ($*1_ltype temp)
%{ *$input = 0;
  $1 = &temp; %}
%typemap(argout) string& OUTPUT %{ *$input = SWIG_csharp_string_callback(temp$argnum.c_str()); %}

}  // namespace std

// --- Argument checks ----------------------------------------------------------
//
// A plain (not shared) object passed by reference or moved in: the messages
// name the declared type followed by "type is null".
%typemap(in, canthrow=1) SWIGTYPE &
%{ $1 = ($1_ltype)$input;
  if (!$1) {
    SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "$1_type type is null", 0);
    return $null;
  } %}
%typemap(in, canthrow=1, fragment="<memory>") SWIGTYPE && (std::unique_ptr<$*1_ltype> rvrdeleter)
%{ $1 = ($1_ltype)$input;
  if (!$1) {
    SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "$1_type type is null", 0);
    return $null;
  }
  rvrdeleter.reset($1); %}

// The platform date types are taken as values by the managed front end.
%define NKF_DATE_ARGUMENT(TYPE)
%typemap(in, canthrow=1) const TYPE &
%{ $1 = ($1_ltype)$input;
  if (!$1) {
    SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "Attempt to dereference null TYPE", 0);
    return $null;
  } %}
%enddef
NKF_DATE_ARGUMENT(COleDateTime)
NKF_DATE_ARGUMENT(CTime)
