// The field views of `nkfoundation inspect`: each reads one frame (a stream
// holding exactly that frame) as its class and renders the fields; nothing
// when the frame does not read. describers.cc maps identifiers to them.
#ifndef NKFOUNDATION_TOOLS_FIELD_VIEWS_H_
#define NKFOUNDATION_TOOLS_FIELD_VIEWS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/frame_walker.h"

class AFactorable;
class OByteStream;

namespace nkf::tools {

// "3 bytes: 0A 0B 0C": the count and the first 32 bytes in hex.
std::string ByteSummary(const WritableCollection<std::uint8_t>& bytes);

// Appends a nested member's own view, each field under the member's name
// ("m_oCreation_TimeDate.time"); a member whose class has no view is shown
// by its frame's size.
void AddNested(const std::string& name, AFactorable& member, std::vector<nk::FieldText>& fields);

// The stamp as one date, "time = 2006-01-01 00:00:00.000000". Microseconds
// outside 0 to 999999 follow a date without fraction, as a field of their
// own: "m_iMicroSeconds = 1000000 (not a fraction of a second)".
std::optional<nk::ObjectDescription> DescribeTime(OByteStream& frame);

// Identifier, text and a hex summary of the data.
std::optional<nk::ObjectDescription> DescribeApplicationSerializationData(OByteStream& frame);

// The twenty travelling switches by name; none for an older, shorter frame.
std::optional<nk::ObjectDescription> DescribeObjectSerializationSettings(OByteStream& frame);

// The type code, the stored value to full precision and the display text:
// "m_iType = 3", "m_dValue = 123", "text = "12.3"".
std::optional<nk::ObjectDescription> DescribeVariant(OByteStream& frame);

// Both coordinates in pixels and raw: "x = 1.5 (raw 98304)". Vector arrays
// show each element this way.
std::optional<nk::ObjectDescription> DescribeVector(OByteStream& frame);

// Geometry, format, stored and raw pixel bytes, names and time; the pixels
// themselves are left out.
std::optional<nk::ObjectDescription> DescribeImage(OByteStream& frame);

// The image array's own fields before its count.
std::optional<nk::ObjectDescription> DescribeImageArray(OByteStream& frame);

// The firmware bounds as dotted versions, marked when they take no part in
// the check, and the creating version as "1.0.18159.0".
std::optional<nk::ObjectDescription> DescribeCompatibility(OByteStream& frame);

// Category, message identifier and text, then the device's free memory and
// core loads.
std::optional<nk::ObjectDescription> DescribeDeviceDiagnostic(OByteStream& frame);

// The ten switches and the three caliper values by member name.
std::optional<nk::ObjectDescription> DescribeProjectProperties(OByteStream& frame);

// A device record: identity, versions, limits, and the protocols and module
// versions the device has, by field name.
std::optional<nk::ObjectDescription> DescribeDeviceInfo(OByteStream& frame);

// The protection block as a byte summary.
std::optional<nk::ObjectDescription> DescribePartSetProtection(OByteStream& frame);

// A check program's summary; the nested members show their own views' fields
// under the member's name: "m_oCreation_TimeDate.time = ...".
std::optional<nk::ObjectDescription> DescribeCheckProgramInfoItem(OByteStream& frame);

// A camera's members by name, the type in hex, and the reference image
// through its own view: "m_cameraImage.geometry = 640 x 480 ...".
std::optional<nk::ObjectDescription> DescribeCameraInfoItem(OByteStream& frame);

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_FIELD_VIEWS_H_
