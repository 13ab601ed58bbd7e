// Declarative field tables: a class lists its serialized members once, in
// wire order, and their size, writing and reading follow from the list.
//
//   class OVector : public nk::Framed<OVector> {
//    public:
//     static constexpr nk::FrameRules kFrame{nk::object_id::kVector, 16};
//     std::int64_t m_llX = 0, m_llY = 0;
//     using Fields = nk::FieldList<&OVector::m_llX, &OVector::m_llY>;
//   };
#ifndef NKFOUNDATION_CORE_FIELD_LIST_H_
#define NKFOUNDATION_CORE_FIELD_LIST_H_

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>

#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/factorable.h"
#include "nkfoundation/core/framed_object.h"

namespace nk {

// How one kind of member travels. Reads of plain values cannot fail on their
// own (the frame has been checked to hold the fixed fields); strings and
// nested objects can, and a false result makes the enclosing object fail.
template <class T, class Enable = void>
struct FieldCodec;

// Integers, bools and enumerations: their width in bytes, little-endian.
template <class T>
struct FieldCodec<T, std::enable_if_t<std::is_integral_v<T> || std::is_enum_v<T>>> {
  using Bits = std::conditional_t<
      sizeof(T) == 1, std::uint8_t,
      std::conditional_t<sizeof(T) == 2, std::uint16_t,
                         std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>>>;
  static_assert(sizeof(T) == sizeof(Bits), "unsupported integer width");

  static std::uint64_t Size(const T&) { return sizeof(T); }
  static void Add(OByteStream& stream, const T& value) {
    if constexpr (std::is_same_v<T, bool>) {
      stream.AddBool(value);
    } else if constexpr (sizeof(T) == 1) {
      stream.AddUInt8(static_cast<Bits>(value));
    } else if constexpr (sizeof(T) == 2) {
      stream.AddUInt16(static_cast<Bits>(value));
    } else if constexpr (sizeof(T) == 4) {
      stream.AddUInt32(static_cast<Bits>(value));
    } else {
      stream.AddUInt64(static_cast<Bits>(value));
    }
  }
  static bool Get(OByteStream& stream, T& value) {
    if constexpr (std::is_same_v<T, bool>) {
      value = stream.GetBool();
    } else if constexpr (sizeof(T) == 1) {
      value = static_cast<T>(stream.GetUInt8());
    } else if constexpr (sizeof(T) == 2) {
      value = static_cast<T>(stream.GetUInt16());
    } else if constexpr (sizeof(T) == 4) {
      value = static_cast<T>(stream.GetUInt32());
    } else {
      value = static_cast<T>(stream.GetUInt64());
    }
    return true;
  }
};

template <>
struct FieldCodec<double> {
  static std::uint64_t Size(const double&) { return 8; }
  static void Add(OByteStream& stream, const double& value) { stream.AddDouble(value); }
  static bool Get(OByteStream& stream, double& value) { return stream.GetDouble(value), true; }
};

template <>
struct FieldCodec<float> {
  static std::uint64_t Size(const float&) { return 4; }
  static void Add(OByteStream& stream, const float& value) { stream.AddFloat(value); }
  static bool Get(OByteStream& stream, float& value) { return stream.GetFloat(value), true; }
};

// Strings: a nested string object, 8 + 2n bytes.
template <>
struct FieldCodec<std::u16string> {
  static std::uint64_t Size(const std::u16string& text) {
    return OByteStream::kFrameHeaderSize + 2 * static_cast<std::uint64_t>(text.size());
  }
  static void Add(OByteStream& stream, const std::u16string& text) { stream.AddString(text); }
  static bool Get(OByteStream& stream, std::u16string& text) { return stream.GetString(text); }
};

// Fixed byte arrays (a MAC address, a packed block): raw, no count.
template <std::size_t N>
struct FieldCodec<std::array<std::uint8_t, N>> {
  static std::uint64_t Size(const std::array<std::uint8_t, N>&) { return N; }
  static void Add(OByteStream& stream, const std::array<std::uint8_t, N>& bytes) {
    stream.AddBytes(bytes.data(), N);
  }
  static bool Get(OByteStream& stream, std::array<std::uint8_t, N>& bytes) {
    return stream.GetBytes(bytes.data(), N), true;
  }
};

// Fixed arrays of values (the four components of a version): each element
// in index order, as the element travels alone; no count.
template <class T, std::size_t N>
struct FieldCodec<T[N]> {
  static std::uint64_t Size(const T (&values)[N]) {
    std::uint64_t size = 0;
    for (const T& value : values) size += FieldCodec<T>::Size(value);
    return size;
  }
  static void Add(OByteStream& stream, const T (&values)[N]) {
    for (const T& value : values) FieldCodec<T>::Add(stream, value);
  }
  static bool Get(OByteStream& stream, T (&values)[N]) {
    for (T& value : values) {
      if (!FieldCodec<T>::Get(stream, value)) return false;
    }
    return true;
  }
};

// Byte buffers of variable length: u32 count, then the bytes. A count beyond
// what the stream holds fails the read before anything is allocated.
template <>
struct FieldCodec<WritableCollection<std::uint8_t>> {
  static std::uint64_t Size(const WritableCollection<std::uint8_t>& bytes) {
    return 4 + static_cast<std::uint64_t>(bytes.GetCount());
  }
  static void Add(OByteStream& stream, const WritableCollection<std::uint8_t>& bytes) {
    stream.AddUInt32(static_cast<std::uint32_t>(bytes.GetCount()));
    stream.AddByteArray(bytes);
  }
  static bool Get(OByteStream& stream, WritableCollection<std::uint8_t>& bytes) {
    std::uint32_t count = 0;
    return stream.GetUInt32(count) && stream.GetByteArray(bytes, count);
  }
};

// Nested objects held by value: their own whole frame, always read with
// bInitialize true.
template <class T>
struct FieldCodec<T, std::enable_if_t<std::is_base_of_v<AFactorable, T>>> {
  static std::uint64_t Size(const T& object) { return object.GetObjectSize(); }
  static void Add(OByteStream& stream, const T& object) {
    // Writing does not change an object; the protocol's signature predates
    // const-correctness.
    const_cast<T&>(object).AddObjectData(stream);
  }
  static bool Get(OByteStream& stream, T& object) { return object.GetObjectData(stream, true); }
};

// Nested objects held by shared pointer, and the elements of object arrays.
// An empty pointer travels as a default object; reading always makes a new
// object, which replaces the old one only when it read successfully.
template <class T>
struct FieldCodec<std::shared_ptr<T>, std::enable_if_t<std::is_base_of_v<AFactorable, T>>> {
  static std::uint64_t Size(const std::shared_ptr<T>& object) {
    return object ? object->GetObjectSize() : T().GetObjectSize();
  }
  static void Add(OByteStream& stream, const std::shared_ptr<T>& object) {
    if (object) {
      object->AddObjectData(stream);
    } else {
      T().AddObjectData(stream);
    }
  }
  static bool Get(OByteStream& stream, std::shared_ptr<T>& object) {
    auto fresh = std::make_shared<T>();
    if (!fresh->GetObjectData(stream, true)) return false;
    object = std::move(fresh);
    return true;
  }
};

template <class T>
using FieldCodecOf = FieldCodec<std::remove_cvref_t<T>>;

// The serialized members of a class, in wire order.
template <auto... kMembers>
struct FieldList {
  template <class C>
  static std::uint64_t Size(const C& object) {
    return (std::uint64_t{0} + ... + FieldCodecOf<decltype(object.*kMembers)>::Size(object.*kMembers));
  }
  template <class C>
  static void Add(OByteStream& stream, const C& object) {
    (FieldCodecOf<decltype(object.*kMembers)>::Add(stream, object.*kMembers), ...);
  }
  // Stops at the first member that fails.
  template <class C>
  static bool Get(OByteStream& stream, C& object) {
    return (FieldCodecOf<decltype(object.*kMembers)>::Get(stream, object.*kMembers) && ...);
  }
};

// Base of a class whose frame is fully described by its `kFrame` rules and
// its `Fields` list. Classes of plain values that consult bInitialize
// override `BeginGetFields`.
template <class Derived>
class Framed : public AFramedObject {
 protected:
  const FrameRules& GetFrameRules() const override { return Derived::kFrame; }
  std::uint64_t GetPayloadSize() const override { return Derived::Fields::Size(Self()); }
  void AddFields(OByteStream& stream) override { Derived::Fields::Add(stream, Self()); }
  FieldsRead GetFields(OByteStream& stream) override {
    return Derived::Fields::Get(stream, Self()) ? FieldsRead::kComplete : FieldsRead::kNestedFailed;
  }

 private:
  Derived& Self() { return static_cast<Derived&>(*this); }
  const Derived& Self() const { return static_cast<const Derived&>(*this); }
};

}  // namespace nk

#endif  // NKFOUNDATION_CORE_FIELD_LIST_H_
