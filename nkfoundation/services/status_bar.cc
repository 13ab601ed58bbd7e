#include "nkfoundation/services/status_bar.h"

AStatusBar::~AStatusBar() = default;
