// Small framed classes that drive the frame machinery the way the library's
// value objects do: plain fields and a string, a nested member, an array.
#ifndef TESTS_SUPPORT_FRAMED_TEST_OBJECTS_H_
#define TESTS_SUPPORT_FRAMED_TEST_OBJECTS_H_

#include <cstdint>
#include <memory>
#include <string>

#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_array.h"

namespace nk::testing {

// Identifiers that no library class uses.
inline constexpr std::uint32_t kPointId = 0xFED0F100;

// The minimum payload is the coordinates and an empty label.
class TestPoint : public Framed<TestPoint> {
 public:
  static constexpr FrameRules kFrame{kPointId, 8 + 8 + 8};
  std::int64_t m_llX = 0, m_llY = 0;
  std::u16string m_oLabel;
  using Fields = FieldList<&TestPoint::m_llX, &TestPoint::m_llY, &TestPoint::m_oLabel>;
};

class TestPointArray : public ObjectArray<TestPointArray, std::shared_ptr<TestPoint>> {
 public:
  static constexpr FrameRules kFrame{0xFED0F200, 8};
};

// Its plain values are reset when read with bInitialize; the minimum payload
// counts the nested point at its own minimum frame.
class TestShape : public Framed<TestShape> {
 public:
  static constexpr FrameRules kFrame{0xFED0F300, 4 + 1 + 8 + 24};
  std::int32_t m_iColor = 7;
  bool m_bFilled = true;
  TestPoint m_oOrigin;
  using Fields = FieldList<&TestShape::m_iColor, &TestShape::m_bFilled, &TestShape::m_oOrigin>;

 protected:
  void BeginGetFields(bool bInitialize) override {
    if (!bInitialize) return;
    m_iColor = 7;
    m_bFilled = true;
  }
};

}  // namespace nk::testing

#endif  // TESTS_SUPPORT_FRAMED_TEST_OBJECTS_H_
