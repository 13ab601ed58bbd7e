#include "sample.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "nkfoundation/core/application_serialization_data.h"
#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/core/serialization_settings.h"
#include "nkfoundation/core/string_array.h"
#include "nkfoundation/core/time_stamp.h"
#include "nkfoundation/core/variant_array.h"
#include "nkfoundation/geometry/vector.h"
#include "nkfoundation/geometry/vector_array.h"

namespace nkf::tools {
namespace {

// Appends one frame whose payload `fields` writes.
void AddFrame(OByteStream& out, std::uint32_t object_id,
              const std::function<void(OByteStream&)>& fields) {
  OByteStream_Memory payload;
  fields(payload);
  const WritableCollection<std::uint8_t>& bytes = payload;
  out.AddUInt32(static_cast<std::uint32_t>(4 + bytes.GetCount()));
  out.AddUInt32(object_id);
  out.AddByteArray(bytes);
}

}  // namespace

std::vector<std::uint8_t> BuildSample() {
  OByteStream_Memory sample;
  OStringArray names;
  names.Add(u"Part set 1");
  names.Add(u"Pr\u00fcfprogramm");
  names.AddObjectData(sample);

  OTime taken;
  taken.m_iYear = 2026;
  taken.m_iMonth = 11;
  taken.m_iDayOfMonth = 23;
  taken.m_iHours = 7;
  taken.m_iMinutes = 30;
  taken.m_iMicroSeconds = 250000;
  taken.AddObjectData(sample);

  OType_ApplicationSerializationData application;
  application.m_iApplicationID = 7;
  application.m_oApplication_Info = u"front end 1.0";
  application.m_oApplication_Data.Copy(reinterpret_cast<const std::uint8_t*>("layout"), 6);
  application.AddObjectData(sample);

  OType_VariantArray parameters;
  for (auto [value, type] : {std::pair{123.0, 3}, std::pair{42255.0, 13}, std::pair{20261123.0, 10}}) {
    auto variant = std::make_shared<OType_Variant>();
    variant->iSetValueDirect(value, type);
    parameters.Add(variant);
  }
  parameters.AddObjectData(sample);

  OVector_Array outline;
  outline.Add(std::make_shared<OVector>(10, 20));
  outline.Add(std::make_shared<OVector>(-3.0, 0.5));
  outline.AddObjectData(sample);

  // A class this version does not know.
  AddFrame(sample, 0xFED0FF00, [](OByteStream& s) { s.AddUInt32(0xC0FFEE); });

  // An array from a newer writer: two bytes after the elements that this
  // version keeps as the tail.
  OVector_Array newer;
  newer.Add(std::make_shared<OVector>());
  newer.m_oUserData.Copy(std::array<std::uint8_t, 2>{0xEF, 0xBE}.data(), 2);
  newer.AddObjectData(sample);

  // Settings announce six bytes more than they write, so they come last:
  // anywhere else they would take in the start of the next frame.
  OType_ObjectSerializationSettings(OType_ObjectSerializationSettings::PreDefinedSettings::UndoRedo)
      .AddObjectData(sample);
  const WritableCollection<std::uint8_t>& bytes = sample;
  return {bytes.begin(), bytes.end()};
}

}  // namespace nkf::tools
