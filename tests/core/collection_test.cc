#include "nkfoundation/core/collection.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <stdexcept>
#include <vector>

namespace {

using Ints = WritableCollection<int>;
using Pointers = WritableCollection<std::shared_ptr<int>>;

// A bad index or count never fails: an edit is ignored as a whole and a read
// yields the default element.
TEST(CollectionTest, BadIndexesAreIgnoredWhollyAndReadAsTheDefault) {
  struct Case { const char* name; std::function<void(Ints&)> edit; std::vector<int> after; };
  const std::vector<int> kUnchanged = {1, 2, 3, 4};
  for (const Case& c : std::vector<Case>{
           {"RemoveAt(-1, 1)", [](Ints& v) { v.RemoveAt(-1, 1); }, kUnchanged},
           {"RemoveAt(3, 2)", [](Ints& v) { v.RemoveAt(3, 2); }, kUnchanged},
           {"RemoveAt(1, 2)", [](Ints& v) { v.RemoveAt(1, 2); }, {1, 4}},
           {"InsertAt(count)", [](Ints& v) { v.InsertAt(4, 0, 1); }, {1, 2, 3, 4, 0}},
           {"InsertAt(count + 1)", [](Ints& v) { v.InsertAt(5, 0, 1); }, kUnchanged},
           {"InsertAt(1, 0, -1)", [](Ints& v) { v.InsertAt(1, 0, -1); }, kUnchanged},
           {"InsertAt(1, 0, 2)", [](Ints& v) { v.InsertAt(1, 0, 2); }, {1, 0, 0, 2, 3, 4}},
           {"SetAt(4)", [](Ints& v) { v.SetAt(4, 9); }, kUnchanged},
           {"SetAtGrow(-1)", [](Ints& v) { v.SetAtGrow(-1, 9); }, kUnchanged},
           {"SetAtGrow(5)", [](Ints& v) { v.SetAtGrow(5, 9); }, {1, 2, 3, 4, 0, 9}},
           {"SetSize(-1)", [](Ints& v) { v.SetSize(-1); }, kUnchanged},
           {"Copy(nullptr)", [](Ints& v) { v.Copy(nullptr, 2); }, kUnchanged},
       }) {
    Ints ints(kUnchanged);
    c.edit(ints);
    EXPECT_EQ(std::vector<int>(ints.begin(), ints.end()), c.after) << c.name;
  }

  Ints ints(std::vector<int>{5, 6, 5});
  EXPECT_EQ(ints.GetAt(-1), 0);
  ints.At(3) = 9;  // lands in the default slot, which later reads do not see
  EXPECT_EQ(ints[3], 0);
  EXPECT_EQ(ints.GetIndexOf(5, 1), 2);
  EXPECT_EQ(ints.GetIndexOf(5, -1), -1);
}

// An allocator whose element limit a test can reach.
template <class T>
struct SmallAllocator : std::allocator<T> {
  std::size_t max_size() const { return 100; }
};

TEST(CollectionTest, CapacityGrowsOnRequestAndOnlyRemoveAllReleasesIt) {
  Collection<int, int, SmallAllocator<int>> ints(10);
  ints.SetCapacity(-1);
  EXPECT_EQ(ints.GetCapacity(), 10);
  EXPECT_THROW(ints.SetCapacity(101), std::length_error);
  ints.ResetAll();
  EXPECT_EQ(ints.GetCapacity(), 10);
  ints.RemoveAll();
  EXPECT_EQ(ints.GetCapacity(), 0);
}

// Pointer slots start empty, but neither At nor a read out of range hands out
// an empty pointer. Out-of-range reads of every pointer collection share one
// default object while anyone holds it.
TEST(CollectionTest, PointerCollectionsShareTheirDefaultObjectWhileHeld) {
  std::weak_ptr<int> watch;
  {
    Pointers first, second;
    first.SetAtGrow(1, std::make_shared<int>(1));
    EXPECT_EQ(first.GetData()[0], nullptr);
    EXPECT_NE(first.At(0), nullptr);
    EXPECT_EQ(first.GetIndexOf(nullptr), -1);  // At filled the slot itself
    const std::shared_ptr<int> held = first.GetAt(2);
    EXPECT_EQ(second.GetAt(-1), held);
    *second.At(3) = 42;  // writing through At changes the shared default
    EXPECT_EQ(*first.GetAt(9), 42);
    watch = held;
  }
  EXPECT_TRUE(watch.expired());
  EXPECT_EQ(*Pointers().GetAt(0), 0);
}

// An element that notices when it is copied from after its destruction.
struct Tracked {
  static inline std::set<const Tracked*> alive;
  static inline int copies_from_the_dead = 0;
  Tracked() { alive.insert(this); }
  Tracked(const Tracked& other) : Tracked() { *this = other; }
  Tracked& operator=(const Tracked& other) {
    copies_from_the_dead += !alive.contains(&other);
    return *this;
  }
  ~Tracked() { alive.erase(this); }
  bool operator==(const Tracked&) const = default;
};

// The value may be an element of the collection itself, which growing must
// not destroy before it is copied.
TEST(CollectionTest, SetAtGrowAcceptsAnElementOfItsOwn) {
  WritableCollection<Tracked> elements;
  elements.SetSize(2);
  elements.SetAtGrow(100, elements[1]);
  EXPECT_EQ(Tracked::copies_from_the_dead, 0);
}

}  // namespace
