// The object-array frame, written once for every serializable list.
//
// Wire form: the array's own leading fields (if any), u32 element count,
// each element's whole frame in index order, then the tail. Reading appends
// to what the array already holds; an element that fails to read ends the
// loop and the rest of the frame falls into the tail.
#ifndef NKFOUNDATION_CORE_OBJECT_ARRAY_H_
#define NKFOUNDATION_CORE_OBJECT_ARRAY_H_

#include <cstdint>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/framed_object.h"

namespace nk {

template <class Derived>
concept HasLeadingFields = requires { typename Derived::LeadingFields; };

// `Derived` supplies `kFrame` (identifier, and as minimum payload the length
// below which not even the count is read) and, when the array has fields of
// its own before the count, a `LeadingFields` list. `T` is the element type:
// a shared pointer to a framed class, or a string.
template <class Derived, class T>
class ObjectArray : public WritableCollection<T>, public AFramedObject {
 public:
  using WritableCollection<T>::WritableCollection;

 protected:
  const FrameRules& GetFrameRules() const override { return Derived::kFrame; }

  std::uint64_t GetPayloadSize() const override {
    std::uint64_t size = LeadingSize() + 4;
    for (const T& element : *this) size += FieldCodec<T>::Size(element);
    return size;
  }

  void AddFields(OByteStream& stream) override {
    if constexpr (HasLeadingFields<Derived>) Derived::LeadingFields::Add(stream, Self());
    stream.AddUInt32(static_cast<std::uint32_t>(this->GetCount()));
    for (const T& element : *this) FieldCodec<T>::Add(stream, element);
  }

  FieldsRead GetFields(OByteStream& stream) override {
    if constexpr (HasLeadingFields<Derived>) {
      if (!Derived::LeadingFields::Get(stream, Self())) return FieldsRead::kNestedFailed;
    }
    // The count is not trusted for allocation: every element consumes at
    // least a frame header, so a false count ends at the stream's end.
    const std::uint32_t count = stream.GetUInt32();
    for (std::uint32_t i = 0; i < count; ++i) {
      T element{};
      if (!FieldCodec<T>::Get(stream, element)) return FieldsRead::kElementFailed;
      this->Add(element);
    }
    return FieldsRead::kComplete;
  }

 private:
  std::uint64_t LeadingSize() const {
    if constexpr (HasLeadingFields<Derived>) {
      return Derived::LeadingFields::Size(Self());
    } else {
      return 0;
    }
  }
  Derived& Self() { return static_cast<Derived&>(*this); }
  const Derived& Self() const { return static_cast<const Derived&>(*this); }
};

}  // namespace nk

#endif  // NKFOUNDATION_CORE_OBJECT_ARRAY_H_
