// The object model: streams, the framed-object protocol, collections and
// object arrays, settings, variants, time stamps, identifiers, string arrays
// and references.

%{
#include "nkfoundation/core/application_serialization_data.h"
#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/date_types.h"
#include "nkfoundation/core/factorable.h"
#include "nkfoundation/core/framed_object.h"
#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/progress_ctrl.h"
#include "nkfoundation/core/rect.h"
#include "nkfoundation/core/reference.h"
#include "nkfoundation/core/referenced_item_data.h"
#include "nkfoundation/core/serialization_settings.h"
#include "nkfoundation/core/string_array.h"
#include "nkfoundation/core/time_stamp.h"
#include "nkfoundation/core/types.h"
#include "nkfoundation/core/uuid.h"
#include "nkfoundation/core/variant.h"
#include "nkfoundation/core/variant_array.h"

// Walks any collection from the managed side. It shares ownership of the
// collection, so a loop keeps working after the caller lets go of it.
template <class Array, class T>
class CollectionEnumerator {
 public:
  explicit CollectionEnumerator(const std::shared_ptr<Array>& array) : array_(array) {}
  bool MoveNext() { return array_ && ++index_ < array_->GetCount(); }
  // Before the first MoveNext and past the end: the collection's default
  // element, as for any read out of range.
  T Current() const { return array_ ? array_->GetAt(index_) : T{}; }
  void Reset() { index_ = -1; }

 private:
  std::shared_ptr<Array> array_;
  nk::ssize_t index_ = -1;
};
%}

// --- What SWIG must know to read the headers ---------------------------------

namespace std {
typedef ::int8_t int8_t;
typedef ::int16_t int16_t;
typedef ::int32_t int32_t;
typedef ::int64_t int64_t;
typedef ::uint8_t uint8_t;
typedef ::uint16_t uint16_t;
typedef ::uint32_t uint32_t;
typedef ::uint64_t uint64_t;
typedef unsigned int size_t;
}
namespace nk { typedef ::int32_t ssize_t; }

// The templates that every class builds on, as their users see them. The
// frame machinery behind them stays out of the layer: only the collection
// operations and the object protocol cross.
%define NKF_COLLECTION_OPERATIONS(T)
  nk::ssize_t Add(const T& value);
  T GetAt(nk::ssize_t i) const;
  void SetAt(nk::ssize_t i, const T& value);
  void SetAtGrow(nk::ssize_t i, const T& value);
  void InsertAt(nk::ssize_t i, const T& value, nk::ssize_t n = 1);
  void RemoveAt(nk::ssize_t i, nk::ssize_t n = 1);
  void RemoveAll();
  void ResetAll();
  void FreeExtra();
  nk::ssize_t GetCount() const;
  nk::ssize_t GetCapacity() const;
  nk::ssize_t GetUpperBound() const;
  nk::ssize_t GetIndexOf(const T& value, nk::ssize_t start = 0) const;
  void SetSize(nk::ssize_t n);
  void SetCapacity(nk::ssize_t n);
%enddef

// The second form of EqualsSharedPtrNative takes the raw holder handle that a
// proxy's getCPtr gives, for code that keeps handles rather than proxies.
%typemap(ctype) const void* holder "void *"
%typemap(imtype) const void* holder "global::System.IntPtr"
%typemap(cstype) const void* holder "global::System.IntPtr"
%typemap(csin) const void* holder "$csinput"
%typemap(in) const void* holder %{ $1 = $input; %}

// A class held by shared pointer. Besides the holder it gets equality and a
// hash by the object pointed to, so two proxies of one object compare equal
// on the managed side. EXTRA is more C# code for the proxy class.
%define NKF_SHARED_CODE(CLASS, EXTRA)
%shared_ptr(CLASS)
%extend CLASS {
  bool EqualsSharedPtrNative(const std::shared_ptr< CLASS >& other) const {
    return $self == other.get();
  }
  bool EqualsSharedPtrNative(const void* holder) const {
    return holder != nullptr && $self == static_cast<const std::shared_ptr< CLASS >*>(holder)->get();
  }
  int GetHashCodeSharedPtrNative() const {
    return static_cast<int>(std::hash<const void*>{}($self));
  }
}
%typemap(cscode) CLASS %{
  public override bool Equals(object obj) {
    $csclassname other = obj as $csclassname;
    return other != null && EqualsSharedPtrNative(other);
  }

  public override int GetHashCode() {
    return GetHashCodeSharedPtrNative();
  }
EXTRA
%}
%enddef
%define NKF_SHARED(CLASS)
NKF_SHARED_CODE(%arg(CLASS), )
%enddef

// Every shared class must be known as such before the first declaration that
// takes it, or that parameter would expect a bare object instead of a holder.
NKF_SHARED(AFactorable)
NKF_SHARED(nk::AFramedObject)
NKF_SHARED(OByteStream)
NKF_SHARED(OByteStream_Memory)
NKF_SHARED(AProgressCtrl)
%include "nkfoundation/core/factorable.h"
%ignore nk::AFramedObject::GetFrameEnd;
%include "nkfoundation/core/framed_object.h"

template <class T, class Index = nk::ssize_t, class Alloc = std::allocator<T> >
class WritableCollection {
 public:
  WritableCollection();
  virtual ~WritableCollection();
  NKF_COLLECTION_OPERATIONS(T)
};

namespace nk {
template <class Derived>
class Framed : public AFramedObject {
 protected:
  const FrameRules& GetFrameRules() const override;
  std::uint64_t GetPayloadSize() const override;
  void AddFields(OByteStream& stream) override;
  FieldsRead GetFields(OByteStream& stream) override;
};

template <class Derived, class T>
class ObjectArray : public AFramedObject {
 public:
  NKF_COLLECTION_OPERATIONS(T)
 protected:
  const FrameRules& GetFrameRules() const override;
  std::uint64_t GetPayloadSize() const override;
  void AddFields(OByteStream& stream) override;
  FieldsRead GetFields(OByteStream& stream) override;
};
}  // namespace nk

// A framed class: shared, with its frame base named <Class>Base.
%define NKF_FRAMED(CLASS)
NKF_SHARED(nk::Framed<CLASS>)
NKF_SHARED(CLASS)
class CLASS;
%template(CLASS ## Base) nk::Framed<CLASS>;
%enddef

// An object array: shared, its collection base named <Array>Base, its
// enumerator <Array>Enumerator (or ENUMERATOR, where the managed front end
// knows it by another name), and a managed IEnumerable over both.
%define NKF_OBJECT_ARRAY_AS(ARRAY, ELEMENT, ENUMERATOR)
NKF_SHARED(%arg(nk::ObjectArray<ARRAY, ELEMENT>))
NKF_ENUMERABLE_AS(ARRAY, ELEMENT, ENUMERATOR)
class ARRAY;
%template(ARRAY ## Base) nk::ObjectArray<ARRAY, ELEMENT>;
%enddef
%define NKF_OBJECT_ARRAY(ARRAY, ELEMENT)
NKF_OBJECT_ARRAY_AS(ARRAY, ELEMENT, ARRAY ## Enumerator)
%enddef

// A list's move constructor: the managed side hands over a list of the same
// kind that it no longer uses, and the new list takes its elements, leaving
// it empty. Null is refused with the collection type spelled out, defaults
// and all, as the managed front end matches the message.
%define NKF_ARRAY_MOVE_CONSTRUCTOR(ARRAY, ELEMENT)
%typemap(ctype) WritableCollection< ELEMENT, nk::ssize_t, std::allocator< ELEMENT > >&& "void *"
%typemap(imtype) WritableCollection< ELEMENT, nk::ssize_t, std::allocator< ELEMENT > >&&
  "global::System.Runtime.InteropServices.HandleRef"
%typemap(cstype) WritableCollection< ELEMENT, nk::ssize_t, std::allocator< ELEMENT > >&& "ARRAY"
%typemap(csin) WritableCollection< ELEMENT, nk::ssize_t, std::allocator< ELEMENT > >&& "ARRAY.getCPtr($csinput)"
%typemap(in, canthrow=1) WritableCollection< ELEMENT, nk::ssize_t, std::allocator< ELEMENT > >&&
%{ {
    std::shared_ptr< ARRAY >* holder = static_cast<std::shared_ptr< ARRAY >*>($input);
    if (!holder || !*holder) {
      SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "$1_type type is null", 0);
      return $null;
    }
    $1 = holder->get();
  } %}
%extend ARRAY {
  ARRAY(WritableCollection< ELEMENT, nk::ssize_t, std::allocator< ELEMENT > >&& elements) {
    ARRAY* array = new ARRAY();
    static_cast<WritableCollection< ELEMENT >&>(*array) = std::move(elements);
    return array;
  }
}
%enddef

// The same for a list that declares no constructor of its own: a
// constructor added here hides the implicit default one, so it comes back
// beside the move constructor.
%define NKF_MOVABLE_ARRAY(ARRAY, ELEMENT)
%extend ARRAY {
  ARRAY() { return new ARRAY(); }
}
NKF_ARRAY_MOVE_CONSTRUCTOR(ARRAY, ELEMENT)
%enddef

template <class Array, class T>
class CollectionEnumerator {
 public:
  explicit CollectionEnumerator(const std::shared_ptr<Array>& array);
  bool MoveNext();
  T Current() const;
  void Reset();
};

%define NKF_ENUMERABLE_AS(ARRAY, ELEMENT, ENUMERATOR)
%typemap(csinterfaces_derived) ARRAY "global::System.Collections.IEnumerable"
NKF_SHARED_CODE(ARRAY,
  public global::System.Collections.IEnumerator GetEnumerator() { return new ENUMERATOR(this); })
%typemap(csinterfaces) CollectionEnumerator<ARRAY, ELEMENT>
  "global::System.IDisposable, global::System.Collections.IEnumerator"
%typemap(cscode) CollectionEnumerator<ARRAY, ELEMENT> %{
  object global::System.Collections.IEnumerator.Current {
    get { return Current(); }
  }
%}
%template(ENUMERATOR) CollectionEnumerator<ARRAY, ELEMENT>;
%enddef
%define NKF_ENUMERABLE(ARRAY, ELEMENT)
NKF_ENUMERABLE_AS(ARRAY, ELEMENT, ARRAY ## Enumerator)
%enddef

// Shared ownership comes from the holder the managed proxy keeps, never
// from the object's own weak self-reference.
%warnfilter(SWIGWARN_TYPE_UNDEFINED_CLASS) OType_ObjectSerializationSettings;
%ignore *::operator=;

// --- Streams -----------------------------------------------------------------

%template(OByteList) WritableCollection<std::uint8_t>;
// Byte buffers are known to the managed side by their list name.
%typemap(in, canthrow=1) const WritableCollection<std::uint8_t>&
%{ $1 = ($1_ltype)$input;
  if (!$1) {
    SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "OByteList const & reference is null", 0);
    return $null;
  } %}

// Reads into out-parameters have value-returning twins, which the managed
// side uses; raw pointers and the progress hook stay native.
%ignore OByteStream::AddBytes;
%ignore OByteStream::GetBytes;
%ignore OByteStream::GetString(std::u16string&);
%ignore OByteStream::BeginGetObject;
%ignore OByteStream::SetProgressCtrl;
%ignore OByteStream::GetProgressCtrl;
%ignore OByteStream::kStringObjectId;
%ignore OByteStream::kFrameHeaderSize;
%ignore OByteStream::GetUInt8(std::uint8_t&);
%ignore OByteStream::GetBool(bool&);
%ignore OByteStream::GetUInt16(std::uint16_t&);
%ignore OByteStream::GetInt16(std::int16_t&);
%ignore OByteStream::GetUInt32(std::uint32_t&);
%ignore OByteStream::GetInt32(std::int32_t&);
%ignore OByteStream::GetUInt64(std::uint64_t&);
%ignore OByteStream::GetInt64(std::int64_t&);
%ignore OByteStream::GetFloat(float&);
%ignore OByteStream::GetDouble(double&);
%ignore OByteStream_Memory::OByteStream_Memory(const void*, std::uint64_t);
%ignore OByteStream_Memory::AddBytes;
%ignore OByteStream_Memory::GetBytes;
%ignore OByteStream_Memory::operator WritableCollection<std::uint8_t>&;
%ignore OByteStream_Memory::operator const WritableCollection<std::uint8_t>&;
%include "nkfoundation/core/byte_stream.h"
%include "nkfoundation/core/memory_stream.h"

// --- Progress ------------------------------------------------------------------

%include "nkfoundation/core/progress_ctrl.h"

// --- Settings -----------------------------------------------------------------

NKF_SHARED(OType_ObjectSerializationSettings)
%ignore OType_ObjectSerializationSettings::Switch;
%ignore OType_ObjectSerializationSettings::Switches;
%ignore OType_ObjectSerializationSettings::TravellingSwitches;
%ignore OType_ObjectSerializationSettings::ThisPtr() const;
%ignore OType_ObjectSerializationSettings::kMinimumPayload;
%include "nkfoundation/core/serialization_settings.h"

// --- Values -------------------------------------------------------------------

// "null" is a C# keyword.
%rename(null_) COleDateTime::null;
%ignore CTime::GetLocalTm;
%ignore COleDateTime::Format;
%ignore operator==;
%include "nkfoundation/core/date_types.h"

NKF_FRAMED(OTime)
%ignore OTime::kFrame;
%ignore OTime::Fields;
%include "nkfoundation/core/time_stamp.h"

NKF_FRAMED(OType_Variant)
%ignore OType_Variant::kFrame;
%ignore OType_Variant::Fields;
%ignore OType_Variant::bSetValue(const OType_Variant*);
%ignore OType_Variant::bSetValue(const std::shared_ptr<OType_Variant>&);
%newobject OType_Variant::opCreateCopy;
%include "nkfoundation/core/variant.h"

NKF_OBJECT_ARRAY(OType_VariantArray, std::shared_ptr<OType_Variant>)
NKF_MOVABLE_ARRAY(OType_VariantArray, std::shared_ptr<OType_Variant>)
%ignore OType_VariantArray::kFrame;
%include "nkfoundation/core/variant_array.h"

NKF_FRAMED(OType_ApplicationSerializationData)
%ignore OType_ApplicationSerializationData::kFrame;
%ignore OType_ApplicationSerializationData::Fields;
%newobject OType_ApplicationSerializationData::opCreateCopy;
%include "nkfoundation/core/application_serialization_data.h"

NKF_OBJECT_ARRAY(OStringArray, std::u16string)
%ignore OStringArray::kFrame;
%include "nkfoundation/core/string_array.h"

// Identifiers are plain values; the shared empty one comes out as a copy.
%ignore Uuid::Uuid(const Bytes&);
%ignore Uuid::Uuid(Bytes&&);
%ignore Uuid::Uuid(const signed char*, std::size_t);
%ignore Uuid::Data;
%ignore Uuid::Empty;
%ignore Uuid::Equals(const Uuid&, const Uuid&);
%newobject Uuid::Random;
%typemap(out) std::unique_ptr<Uuid> %{ $result = $1.release(); %}
%typemap(ctype) std::unique_ptr<Uuid> "void *"
%typemap(imtype, out="global::System.IntPtr") std::unique_ptr<Uuid> "global::System.IntPtr"
%typemap(cstype) std::unique_ptr<Uuid> "Uuid"
%typemap(csout, excode=SWIGEXCODE) std::unique_ptr<Uuid> {
    global::System.IntPtr cPtr = $imcall;$excode
    return (cPtr == global::System.IntPtr.Zero) ? null : new Uuid(cPtr, true);
  }
%include "nkfoundation/core/uuid.h"

%include "nkfoundation/core/rect.h"
%template(I32Rect) Rect<int>;
%template(DoubleRect) Rect<double>;

// --- References -----------------------------------------------------------------

%include "nkfoundation/core/reference.h"

NKF_SHARED(OReferencedItemData)
NKF_SHARED(WritableCollection<std::shared_ptr<OReferencedItemData> >)
NKF_ENUMERABLE(OReferencesList, std::shared_ptr<OReferencedItemData>)
// The configuration-tool interfaces live in another library.
%ignore OReferencedItemData::OReferencedItemData(DependencyType, int, std::shared_ptr<AConfigTool>,
                                                 std::shared_ptr<AConfigToolFeature>, int);
%ignore OReferencedItemData::GetConfigTool;
%ignore OReferencedItemData::GetConfigToolFeature;
// Its own move constructor gives way to the one every list has.
%ignore OReferencesList::OReferencesList(OReferencesList&&);
NKF_ARRAY_MOVE_CONSTRUCTOR(OReferencesList, std::shared_ptr<OReferencedItemData>)
%template(OReferencesListBase) WritableCollection<std::shared_ptr<OReferencedItemData> >;
%include "nkfoundation/core/referenced_item_data.h"
