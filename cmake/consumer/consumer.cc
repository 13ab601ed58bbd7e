// Compiles against the installed headers and calls into the library, so a
// missing header, library or link setting fails the build or the run.
#include "nkfoundation/core/text.h"

int main() { return nk::ToUtf8(u"NkFoundation") == "NkFoundation" ? 0 : 1; }
