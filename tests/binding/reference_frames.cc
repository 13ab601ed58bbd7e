// Writes the frames of the objects that the managed binding test builds, as
// the native library writes them: one "name hex" line each. The managed test
// builds the same objects through the binding and must produce these bytes.
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/string_array.h"
#include "nkfoundation/core/time_stamp.h"
#include "nkfoundation/core/variant.h"
#include "nkfoundation/geometry/vector_array.h"

namespace {

void PrintFrame(const char* name, AFactorable& object) {
  OByteStream_Memory stream;
  object.AddObjectData(stream);
  std::printf("%s ", name);
  for (std::uint8_t byte : stream.GetBuffer()) std::printf("%02x", byte);
  std::printf("\n");
}

}  // namespace

int main() {
  OVector_Array vectors;
  vectors.Add(std::make_shared<OVector>(1, 2));
  vectors.Add(std::make_shared<OVector>(-3.5, 4.25));
  PrintFrame("vectors", vectors);

  OStringArray texts;
  texts.Add(u"plain");
  texts.Add(u"G-clef \U0001D11E, smile \U0001F600");
  texts.Add(u"Gr\u00FC\u00DFe \u20AC");
  PrintFrame("texts", texts);

  OType_Variant variant;
  variant.iSetValueDirect(-1234, OType_Variant::kInt32);
  PrintFrame("variant", variant);

  OTime time;
  time.m_iYear = 2021;
  time.m_iMonth = 7;
  time.m_iDayOfMonth = 14;
  time.m_iHours = 9;
  time.m_iMinutes = 30;
  time.m_iSeconds = 5;
  time.m_iMicroSeconds = 250000;
  PrintFrame("time", time);
  return 0;
}
