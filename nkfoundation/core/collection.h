// The list types of the library: `Collection` and its writable form
// `WritableCollection`.
//
// A collection never fails on a bad index. Reads outside the range yield a
// default element, writes outside the range are ignored, and the only
// exception it raises is the standard length error for a capacity beyond what
// the element type allows. Object arrays derive from `WritableCollection` of
// their element type and add the serializable-object operations.
#ifndef NKFOUNDATION_CORE_COLLECTION_H_
#define NKFOUNDATION_CORE_COLLECTION_H_

#include <memory>
#include <mutex>
#include <type_traits>
#include <utility>
#include <vector>

#include "nkfoundation/core/concurrence.h"

namespace nk::internal {

template <class T>
struct IsSharedPtr : std::false_type {};
template <class X>
struct IsSharedPtr<std::shared_ptr<X>> : std::true_type {};

// The default object that every collection of `std::shared_ptr<X>` hands out
// for out-of-range reads. It is shared process-wide through a weak reference:
// one object exists while any collection (or caller) still holds it, and a new
// one is made when all have let go.
template <class X>
std::shared_ptr<X> SharedDefaultObject() {
  static std::mutex guard;
  static std::weak_ptr<X> shared;
  std::lock_guard<std::mutex> lock(guard);
  std::shared_ptr<X> object = shared.lock();
  if (!object) {
    object = std::make_shared<X>();
    shared = object;
  }
  return object;
}

// A fresh default element: a default-constructed value, or for shared
// pointers the process-wide default object.
template <class T>
T DefaultElement() {
  if constexpr (IsSharedPtr<T>::value) {
    return SharedDefaultObject<typename T::element_type>();
  } else {
    return T{};
  }
}

}  // namespace nk::internal

template <class T, class Index = int, class Alloc = std::allocator<T>,
          class Concurrency = concurrence::none>
class Collection {
 public:
  using value_type = T;
  using vector_type = std::vector<T, Alloc>;
  using iterator = typename vector_type::iterator;
  using const_iterator = typename vector_type::const_iterator;
  using reverse_iterator = typename vector_type::reverse_iterator;
  using const_reverse_iterator = typename vector_type::const_reverse_iterator;

  explicit Collection(Index capacity = 0) { SetCapacity(capacity); }
  explicit Collection(const vector_type& elements) : elements_(elements) {}
  explicit Collection(vector_type&& elements) : elements_(std::move(elements)) {}
  explicit Collection(std::unique_ptr<vector_type> elements) {
    if (elements) elements_ = std::move(*elements);
  }
  Collection(const Collection& other) : elements_(other.elements_) {}
  Collection(Collection&& other) noexcept : elements_(std::move(other.elements_)) {}
  Collection& operator=(const Collection& other) {
    elements_ = other.elements_;
    return *this;
  }
  Collection& operator=(Collection&& other) noexcept {
    elements_ = std::move(other.elements_);
    return *this;
  }
  virtual ~Collection() = default;

  // Appends and returns the new element's index.
  virtual Index Add(const T& value) {
    elements_.push_back(value);
    return static_cast<Index>(elements_.size()) - 1;
  }

  // In range: the element; an empty shared-pointer slot is first filled with a
  // new default object, so the target of the result is never null. Out of
  // range: the default element (writing through it changes the shared
  // default object; callers rely on reads never failing, not on this).
  virtual T& At(Index i) {
    if (!InRange(i)) return FreshDefault();
    T& element = elements_[static_cast<std::size_t>(i)];
    if constexpr (nk::internal::IsSharedPtr<T>::value) {
      if (!element) element = std::make_shared<typename T::element_type>();
    }
    return element;
  }
  virtual const T& At(Index i) const {
    return InRange(i) ? elements_[static_cast<std::size_t>(i)] : FreshDefault();
  }

  virtual iterator begin() { return elements_.begin(); }
  virtual const_iterator begin() const { return elements_.begin(); }

  // Replaces the contents with `n` elements read from `data`.
  virtual void Copy(const T* data, Index n) {
    if (data == nullptr || n <= 0) return;
    elements_.assign(data, data + n);
  }

  virtual iterator end() { return elements_.end(); }
  virtual const_iterator end() const { return elements_.end(); }

  virtual void FreeExtra() { elements_.shrink_to_fit(); }

  // In range: a copy (for shared pointers a second owner of the same object);
  // out of range: the default element.
  virtual T GetAt(Index i) const {
    return InRange(i) ? elements_[static_cast<std::size_t>(i)]
                      : nk::internal::DefaultElement<T>();
  }

  virtual Index GetCapacity() const { return static_cast<Index>(elements_.capacity()); }
  virtual Index GetCount32() const { return GetCount(); }
  virtual Index GetCount() const { return static_cast<Index>(elements_.size()); }
  virtual T* GetData() { return elements_.data(); }
  virtual const T* GetData() const { return elements_.data(); }

  // First index at or after `start` whose element equals `value` (shared
  // pointers compare by the object they point to); -1 when there is none.
  virtual Index GetIndexOf(const T& value, Index start = 0) const {
    if (!InRange(start)) return -1;
    for (auto i = static_cast<std::size_t>(start); i < elements_.size(); ++i) {
      if (elements_[i] == value) return static_cast<Index>(i);
    }
    return -1;
  }

  virtual Index GetUpperBound() const { return GetCount() - 1; }

  // Inserts `n` copies at `i`; `i == GetCount()` appends.
  virtual void InsertAt(Index i, const T& value, Index n = 1) {
    if (i < 0 || n <= 0 || i > GetCount()) return;
    elements_.insert(elements_.begin() + i, static_cast<std::size_t>(n), value);
  }

  virtual reverse_iterator rbegin() { return elements_.rbegin(); }
  virtual const_reverse_iterator rbegin() const { return elements_.rbegin(); }
  virtual reverse_iterator rend() { return elements_.rend(); }
  virtual const_reverse_iterator rend() const { return elements_.rend(); }

  // Destroys all elements and releases the storage.
  virtual void RemoveAll() { vector_type().swap(elements_); }

  // Removes `n` elements from `i`: all of them or, when the span does not lie
  // wholly inside the collection, none.
  virtual void RemoveAt(Index i, Index n = 1) {
    if (i < 0 || n <= 0 || i >= GetCount() || n > GetCount() - i) return;
    elements_.erase(elements_.begin() + i, elements_.begin() + i + n);
  }

  // Destroys all elements and keeps the storage.
  virtual void ResetAll() { elements_.clear(); }

  virtual void SetAt(Index i, const T& value) {
    if (InRange(i)) elements_[static_cast<std::size_t>(i)] = value;
  }

  // Assigns at `i`, first growing the collection to `i + 1` elements when
  // needed (new slots default-constructed, empty for shared pointers).
  virtual void SetAtGrow(Index i, const T& value) {
    if (i < 0) return;
    if (i < GetCount()) {
      elements_[static_cast<std::size_t>(i)] = value;
      return;
    }
    // `value` may be one of our own elements, which growing would move.
    T copy(value);
    elements_.resize(static_cast<std::size_t>(i) + 1);
    elements_[static_cast<std::size_t>(i)] = std::move(copy);
  }

  // Grows the capacity; raises std::length_error beyond the element type's
  // maximum.
  virtual void SetCapacity(Index n) {
    if (n < 0 || n <= GetCapacity()) return;
    elements_.reserve(static_cast<std::size_t>(n));
  }

  virtual void SetSize(Index n) {
    if (n >= 0) elements_.resize(static_cast<std::size_t>(n));
  }

  T& operator[](Index i) { return At(i); }
  const T& operator[](Index i) const { return At(i); }

  operator vector_type&() { return elements_; }
  operator const vector_type&() const { return elements_; }

  concurrence::lock_guard<Concurrency> Lock() { return concurrence::lock_guard<Concurrency>(lock_); }
  concurrence::lock_guard<Concurrency> Lock(int /*timeout*/) { return Lock(); }
  static constexpr bool IsLockable() { return false; }

 private:
  bool InRange(Index i) const { return i >= 0 && static_cast<std::size_t>(i) < elements_.size(); }

  // Out-of-range access hands out this slot, refreshed each time so that a
  // caller who stored into it last time does not change what later reads see.
  T& FreshDefault() const {
    default_element_ = nk::internal::DefaultElement<T>();
    return default_element_;
  }

  mutable T default_element_{};
  [[no_unique_address]] Concurrency lock_;
  vector_type elements_;
};

template <class T, class Index = int, class Alloc = std::allocator<T>>
class WritableCollection : public Collection<T, Index, Alloc, concurrence::none> {
 public:
  using Base = Collection<T, Index, Alloc, concurrence::none>;
  using Base::Base;

  void Copy(const T* data, Index n) override { Base::Copy(data, n); }
  void InsertAt(Index i, const T& value, Index n = 1) override { Base::InsertAt(i, value, n); }

  Base& AsCollection() { return *this; }
  const Base& AsCollection() const { return *this; }
};

#endif  // NKFOUNDATION_CORE_COLLECTION_H_
