// Compiles the whole public interface against the installed headers and calls
// into the library, so a missing header, library or link setting fails the
// build or the run.
#include "nkfoundation/nkfoundation.h"

int main() {
  OCompress::Bytes raw;
  raw.Copy(reinterpret_cast<const unsigned char*>("NkFoundation"), 12);
  OCompress::Bytes packed;
  OCompress().iCompress_LZ77_Fast(raw, packed);
  OCompress::Bytes restored;
  OCompress().iDeCompress_LZ77_Fast(packed, restored);
  return restored.GetCount() == 12 && nk::ToUtf8(u"NkFoundation") == "NkFoundation" ? 0 : 1;
}
