// Concurrency policies of the collections.
#ifndef NKFOUNDATION_CORE_CONCURRENCE_H_
#define NKFOUNDATION_CORE_CONCURRENCE_H_

namespace concurrence {

// The policy of every collection in the library: no locking at all. A
// collection is used by one thread at a time; callers that share one across
// threads serialize access themselves.
struct none {};

// The guard handed out by `Collection::Lock()`. For `none` it refers to the
// collection's lock object and owns nothing, so taking it costs nothing.
template <class Policy>
class lock_guard {
 public:
  explicit lock_guard(Policy& lock) noexcept : lock_(&lock) {}

  bool owns_lock() const noexcept { return false; }
  Policy* mutex() const noexcept { return lock_; }

 private:
  Policy* lock_;
};

}  // namespace concurrence

#endif  // NKFOUNDATION_CORE_CONCURRENCE_H_
