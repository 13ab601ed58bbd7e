// Support services: compression, processing times, the stopwatch, progress,
// message dispatch with its director, and the small utilities.

%{
#include "nkfoundation/services/compress.h"
#include "nkfoundation/services/message_dispatcher.h"
#include "nkfoundation/services/process_timer.h"
#include "nkfoundation/services/processing_time.h"
#include "nkfoundation/services/processing_time_array.h"
#include "nkfoundation/services/user_interaction.h"
#include "nkfoundation/services/utils.h"
%}

NKF_SHARED(OCompress)
%include "nkfoundation/services/compress.h"

NKF_FRAMED(OType_ProcessingTime)
%ignore OType_ProcessingTime::kFrame;
%ignore OType_ProcessingTime::Fields;
%ignore OType_ProcessingTime::GetProcessingTimeData;
%newobject OType_ProcessingTime::opCreateCopy;
%include "nkfoundation/services/processing_time.h"

NKF_OBJECT_ARRAY(OType_ProcessingTimeArray, std::shared_ptr<OType_ProcessingTime>)
%ignore OType_ProcessingTimeArray::kFrame;
%ignore OType_ProcessingTimeArray::LeadingFields;
%include "nkfoundation/services/processing_time_array.h"

NKF_SHARED(process_timer::Timer)
%include "nkfoundation/services/process_timer.h"

// The dispatcher: managed code derives from it and installs its instance, and
// the library's events reach the managed overrides through the director.
%include "nkfoundation/services/user_interaction.h"
NKF_SHARED(OMessageDispatcher)
%feature("director") OMessageDispatcher;
%include "nkfoundation/services/message_dispatcher.h"

// memmem's pointers stay native: the managed side has its own search.
%ignore utils::memmem;
%ignore utils::IsValidObject;
// Its 8-bit output reference has no C# form yet; native callers only.
%ignore utils::iByteArrayToAsciiString;
%include "nkfoundation/services/utils.h"

#if defined(NKF_WIN32)
// --- Windows only ---------------------------------------------------------------
// The registry and window-dispatch classes of nkfoundation/services/win32/
// join here, in the Windows builds only.
#endif
