#include "nkfoundation/core/reference.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "nkfoundation/core/rect.h"
#include "nkfoundation/core/referenced_item_data.h"

// The configuration-tool layer's interfaces, as far as a link needs them.
class AConfigTool {
 public:
  virtual ~AConfigTool() = default;
};
class AConfigToolFeature {
 public:
  virtual ~AConfigToolFeature() = default;
};

namespace {

TEST(ReferenceTest, CodeRanges) {
  int specials = 0;
  for (int code = -300; code <= 300; ++code) specials += reference::is_special_value(code) ? 1 : 0;
  EXPECT_EQ(specials, 21);
  EXPECT_TRUE(reference::is_special_value(-140));
  EXPECT_FALSE(reference::is_special_value(-3));

  EXPECT_TRUE(reference::is_feature_reference(0) && !reference::is_feature_reference(-1));
  EXPECT_TRUE(reference::is_feature_type_image(17) && !reference::is_feature_type_image(19));
  EXPECT_TRUE(reference::is_position_reference(-57) && !reference::is_position_reference(-58));
  EXPECT_TRUE(reference::is_camera_reference(-100) && !reference::is_camera_reference(-99));

  // Bad input: -1 from one conversion, the special value -200 from the other.
  EXPECT_EQ(reference::to_camera_index(-100), 0);
  EXPECT_EQ(reference::to_camera_index(-107), 7);
  EXPECT_EQ(reference::to_camera_index(-108), -1);
  EXPECT_EQ(reference::to_camera_reference(7), -107);
  EXPECT_EQ(reference::to_camera_reference(8), -200);
  EXPECT_EQ(reference::to_camera_reference(-1), -200);
}

TEST(ReferencedItemDataTest, LinkIsOptional) {
  const OReferencedItemData plain;
  EXPECT_EQ(plain.m_referencedItemIndex, -1);
  EXPECT_EQ(plain.GetFeature(), -1);
  EXPECT_EQ(plain.GetConfigTool(), nullptr);

  auto tool = std::make_shared<AConfigTool>();
  auto feature = std::make_shared<AConfigToolFeature>();
  const OReferencedItemData linked(OReferencedItemData::kDependencyFeature, 4, tool, feature, 2);
  OReferencedItemData copy(3, OReferencedItemData::kDependencyCamera);
  copy = linked;  // the link comes along
  EXPECT_EQ(copy.m_referencedItemIndex, 4);
  EXPECT_EQ(copy.GetConfigTool(), tool);
  EXPECT_EQ(copy.GetConfigToolFeature(), feature);
  EXPECT_EQ(copy.GetFeature(), 2);
}

TEST(RectTest, EmptyAndValid) {
  const I32Rect point{5, 5, 0, 0};
  EXPECT_TRUE(point.IsEmpty() && point.IsValid());
  EXPECT_FALSE((I32Rect{0, 0, 0, 3}.IsEmpty()));
  EXPECT_FALSE((I32Rect{0, 0, -1, -1}.IsValid()));  // the box around no point

  // Units refuse any NaN or infinity as well.
  using Limits = std::numeric_limits<double>;
  EXPECT_TRUE((DoubleRect{-Limits::max(), Limits::max(), Limits::max(), 0}.IsValid()));
  EXPECT_FALSE((DoubleRect{Limits::quiet_NaN(), 0, 1, 1}.IsValid()));
  for (double height : {Limits::quiet_NaN(), Limits::infinity(), -0.5}) {
    EXPECT_FALSE((DoubleRect{0, 0, 1, height}.IsValid())) << height;
  }
}

}  // namespace
