#include "nkfoundation/image/grey_line.h"

OType_GreyLine::OType_GreyLine() { m_oTimeDate.SetToCurrentTimePrecisely(); }
