// NkFoundation: the whole public interface in one include.
#ifndef NKFOUNDATION_NKFOUNDATION_H_
#define NKFOUNDATION_NKFOUNDATION_H_

// Object model and serialization.
#include "nkfoundation/core/application_serialization_data.h"
#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/concurrence.h"
#include "nkfoundation/core/culture.h"
#include "nkfoundation/core/date_types.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/core/factorable.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/file.h"
#include "nkfoundation/core/file_stream.h"
#include "nkfoundation/core/frame_walker.h"
#include "nkfoundation/core/framed_object.h"
#include "nkfoundation/core/local_time.h"
#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/core/ole_date.h"
#include "nkfoundation/core/progress_ctrl.h"
#include "nkfoundation/core/rect.h"
#include "nkfoundation/core/reference.h"
#include "nkfoundation/core/referenced_item_data.h"
#include "nkfoundation/core/serialization_settings.h"
#include "nkfoundation/core/string_array.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/core/time_stamp.h"
#include "nkfoundation/core/types.h"
#include "nkfoundation/core/uuid.h"
#include "nkfoundation/core/variant.h"
#include "nkfoundation/core/variant_array.h"

// Device and project model.
#include "nkfoundation/device/camera_info_item.h"
#include "nkfoundation/device/check_program_info.h"
#include "nkfoundation/device/compatibility.h"
#include "nkfoundation/device/device_diagnostic.h"
#include "nkfoundation/device/device_info.h"
#include "nkfoundation/device/device_info_fields.h"
#include "nkfoundation/device/part_set_protection.h"
#include "nkfoundation/device/project_properties.h"

// Images.
#include "nkfoundation/image/color.h"
#include "nkfoundation/image/grey_line.h"
#include "nkfoundation/image/grey_line_array.h"
#include "nkfoundation/image/image.h"
#include "nkfoundation/image/image_array.h"
#include "nkfoundation/image/picture.h"
#include "nkfoundation/image/picture_codecs.h"

// Geometry.
#include "nkfoundation/geometry/fixed_point.h"
#include "nkfoundation/geometry/rotators.h"
#include "nkfoundation/geometry/vector.h"
#include "nkfoundation/geometry/vector_array.h"
#include "nkfoundation/geometry/vector_solver.h"

// Support services.
#include "nkfoundation/services/aes256.h"
#include "nkfoundation/services/application_profile.h"
#include "nkfoundation/services/compress.h"
#include "nkfoundation/services/message_dispatcher.h"
#include "nkfoundation/services/process_timer.h"
#include "nkfoundation/services/processing_time.h"
#include "nkfoundation/services/processing_time_array.h"
#include "nkfoundation/services/progress_ctrl.h"
#include "nkfoundation/services/status_bar.h"
#include "nkfoundation/services/user_interaction.h"
#include "nkfoundation/services/utils.h"
#include "nkfoundation/services/wait_cursor.h"

// What only Windows has: the registry, windows, menus and OLE dates.
#if defined(_WIN32)
#include "nkfoundation/services/win32/application_profile_registry.h"
#include "nkfoundation/services/win32/registry.h"
#include "nkfoundation/services/win32/registry_strings.h"
#include "nkfoundation/services/win32/registry_value.h"
#include "nkfoundation/services/win32/message_dispatcher_hwnd.h"
#include "nkfoundation/services/win32/mfc_compat.h"
#include "nkfoundation/services/win32/status_bar_hwnd.h"
#include "nkfoundation/services/win32/window_utils.h"
#endif

#endif  // NKFOUNDATION_NKFOUNDATION_H_
