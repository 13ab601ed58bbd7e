// `nkfoundation devinfo`: the device information list of a device record,
// as the user interface shows it, with resource keys as labels.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "commands.h"
#include "nkfoundation/core/culture.h"
#include "nkfoundation/core/file.h"
#include "nkfoundation/core/frame_walker.h"
#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/device/device_info.h"

namespace nkf::tools {
namespace {

// What a byte collection can hold; larger files are refused before reading.
constexpr std::uint64_t kMaxFileSize = 0x7FFFFFFF;

bool ReadFile(const std::string& path, std::vector<std::uint8_t>& bytes) {
  nk::File file;
  if (!file.Open(path, nk::File::Mode::kRead)) return false;
  const std::uint64_t size = file.Length();
  if (file.IsFailed() || size > kMaxFileSize) return false;
  bytes.resize(static_cast<std::size_t>(size));
  return file.Read(bytes.data(), size) == size;
}

// The first device record, at the top level or inside an array, in file
// order.
const nk::FrameNode* FindDeviceRecord(const std::vector<nk::FrameNode>& nodes) {
  for (const nk::FrameNode& node : nodes) {
    if (node.id == nk::object_id::kDeviceInfo) return &node;
    if (const nk::FrameNode* inner = FindDeviceRecord(node.children)) return inner;
  }
  return nullptr;
}

std::shared_ptr<OType_DeviceInfo> ReadDeviceRecord(const std::vector<std::uint8_t>& bytes) {
  const nk::WalkResult walk = nk::WalkFrames(bytes.data(), bytes.size());
  const nk::FrameNode* node = FindDeviceRecord(walk.frames);
  if (node == nullptr) return nullptr;
  OByteStream_Memory frame(bytes.data() + node->offset, node->size);
  auto info = std::make_shared<OType_DeviceInfo>();
  return info->GetObjectData(frame, true) ? info : nullptr;
}

// A VRKA sensor on firmware 1.1 with a typical set of tools.
std::shared_ptr<OType_DeviceInfo> SampleRecord() {
  auto info = std::make_shared<OType_DeviceInfo>();
  info->SetFirmwareVersion(u"1.1.7.300");
  info->SetProductType_NOCCode(u"VRKA-T-11-R-2");
  info->m_ProductType_Group_ID = 0x1000;
  info->m_nkKernelCommunicationVersion = 2;
  info->m_Hardware_CPU_ID = 3;
  info->m_Hardware_IntegratedGPIO_Inputs = 4;
  info->m_Hardware_IntegratedGPIO_Outputs = 4;
  info->m_Hardware_IntegratedLighting_ID = 2;
  info->compatibilityEmpty_OnceSensorWidth = 1280;
  info->compatibilityEmpty_OnceSensorHeight = 960;
  info->compatibilityEmpty_OnceSensorBitsPerPixel = 8;
  info->m_RuntimeSystem_TypeID = 1;
  info->m_RuntimeSystem_VersionID = 5;
  info->m_ETH_Support_Modbus = 1;
  info->m_ToolVersion_ROI = 2;
  info->m_ToolVersion_Measure = 3;
  info->m_ToolVersion_BlobTool = 1;
  info->m_ToolVersion_PMatch_V2 = 4;
  info->m_ToolVersion_CodeReader = 2;
  info->m_DDIOVersion_EtherNetIP = 1;
  info->m_DDIOVersion_DigitalOutputs = 1;
  return info;
}

}  // namespace

int RunDevInfo(const std::string& path, int culture) {
  std::shared_ptr<OType_DeviceInfo> info;
  if (path.empty()) {
    info = SampleRecord();
  } else {
    std::vector<std::uint8_t> bytes;
    if (!ReadFile(path, bytes)) {
      std::fprintf(stderr, "error: cannot read %s\n", path.c_str());
      return 2;
    }
    info = ReadDeviceRecord(bytes);
    if (!info) {
      std::fprintf(stderr, "error: %s holds no device record\n", path.c_str());
      return 2;
    }
  }

  culture::SetCurrentCulture(static_cast<culture::Language>(culture));
  auto labels = std::make_shared<WritableCollection<std::u16string>>();
  auto values = std::make_shared<WritableCollection<std::u16string>>();
  OType_DeviceInfo::GetLocalizedInformation(info, labels, values);

  std::size_t width = 0;
  for (const std::u16string& label : *labels) width = std::max(width, label.size());
  for (int i = 0; i < labels->GetCount(); ++i) {
    std::printf("%-*s  %s\n", static_cast<int>(width), nk::ToUtf8(labels->At(i)).c_str(),
                nk::ToUtf8(values->At(i)).c_str());
  }
  return 0;
}

}  // namespace nkf::tools
