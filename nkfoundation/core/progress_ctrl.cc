#include "nkfoundation/core/progress_ctrl.h"

AProgressCtrl::~AProgressCtrl() = default;
