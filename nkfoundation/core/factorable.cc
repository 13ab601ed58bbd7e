#include "nkfoundation/core/factorable.h"

AFactorable::~AFactorable() = default;
