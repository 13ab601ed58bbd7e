#include "nkfoundation/core/reference.h"

#include <algorithm>
#include <array>

namespace reference {
namespace {

constexpr int kFirstCamera = -100;
constexpr int kCameraCount = 8;
constexpr int kFirstPosition = -50;
constexpr int kPositionCount = 8;
constexpr int kNoCamera = -200;

// The reserved codes in the order the configuration tools list them.
constexpr std::array<int, 21> kSpecialValues = {
    -1,   -2,   -50,  -51,  -52,  -53,  -54,  -55,  -56,  -57,  -100,
    -101, -102, -103, -104, -105, -106, -107, -140, -150, kNoCamera,
};

// Codes count downward from `first`: first, first - 1, ... (count codes).
bool InDescendingRange(int code, int first, int count) {
  return code <= first && code > first - count;
}

}  // namespace

bool is_feature_reference(int code) { return code >= 0 && !is_special_value(code); }

bool is_feature_type_image(int type) { return type >= 16 && type <= 18; }

bool is_position_reference(int code) { return InDescendingRange(code, kFirstPosition, kPositionCount); }

bool is_camera_reference(int code) { return InDescendingRange(code, kFirstCamera, kCameraCount); }

bool is_special_value(int code) {
  return std::find(kSpecialValues.begin(), kSpecialValues.end(), code) != kSpecialValues.end();
}

int to_camera_index(int code) { return is_camera_reference(code) ? kFirstCamera - code : -1; }

int to_camera_reference(int index) {
  return index >= 0 && index < kCameraCount ? kFirstCamera - index : kNoCamera;
}

}  // namespace reference
