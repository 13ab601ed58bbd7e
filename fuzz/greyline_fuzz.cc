// Feeds arbitrary bytes to grey-line arrays as Z2 and ZE packages. Every
// package must be taken or refused without harm, every line a Z2 package
// builds must have the length its header names, and a package that returns
// a line leaves no more lines than the array keeps.
#include <algorithm>
#include <cstdint>

#include "fuzz/round_trip.h"
#include "nkfoundation/image/grey_line_array.h"

namespace {

using nk::fuzz::Check;

// Line length from the package header, as the parser reads it.
int LineLength(const std::uint8_t* data, std::size_t size) { return size < 2 ? 0 : data[0] << 8 | data[1]; }

void FeedZ2(OType_GreyLine_Array& lines, const WritableCollection<unsigned char, int>& package, int length) {
  const int before = lines.GetCount();
  const auto last = lines.AddGreyLine_Z2_Package(package);
  if (!last) return;
  Check(last->GetData().GetCount() == length);
  Check(lines.GetCount() <= std::max(lines.m_iGreyLine_MaxNumber, 0));
  Check(lines.GetCount() >= std::min(before, lines.m_iGreyLine_MaxNumber));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 0x7FFFFFFF) return 0;
  WritableCollection<unsigned char, int> package;
  package.Copy(data, static_cast<int>(size));
  const int length = LineLength(data, size);

  // Without a line before it, and with one that difference-coded records
  // build on.
  OType_GreyLine_Array empty;
  FeedZ2(empty, package, length);
  OType_GreyLine_Array primed;
  primed.m_iGreyLine_MaxNumber = 3;
  primed.AddGreyLine_ZE_Package(reinterpret_cast<const char*>(data), static_cast<int>(size));
  FeedZ2(primed, package, length);
  FeedZ2(primed, package, length);
  return 0;
}
