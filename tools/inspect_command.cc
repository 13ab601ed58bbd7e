// `nkfoundation inspect`: the frame tree of a file.
#include <cinttypes>
#include <cstdio>
#include <string>
#include <vector>

#include "commands.h"
#include "describers.h"
#include "nkfoundation/core/file.h"
#include "nkfoundation/core/frame_walker.h"
#include "sample.h"
#include "whole_file.h"

namespace nkf::tools {
namespace {

void PrintNode(const nk::FrameNode& node, int depth) {
  const std::string indent(2 * static_cast<std::size_t>(depth), ' ');
  const char* name = node.info ? node.info->name : "unknown class";
  const std::string tail = node.tail ? std::to_string(*node.tail) : "?";
  // A frame that announces more than the file holds is shown as far as it goes.
  const std::string missing =
      node.missing ? " (" + std::to_string(node.missing) + " announced bytes past the end)" : "";
  std::printf("%s@0x%08" PRIX64 " %s (0x%08" PRIX32 ") size %" PRIu64 "%s: payload %" PRIu64
              ", tail %s\n",
              indent.c_str(), node.offset, name, node.id, node.size, missing.c_str(), node.payload,
              tail.c_str());
  for (const nk::FieldText& field : node.fields) {
    std::printf("%s  %s = %s\n", indent.c_str(), field.name.c_str(), field.value.c_str());
  }
  for (const nk::FrameNode& child : node.children) PrintNode(child, depth + 1);
}

bool ReadWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes) {
  nk::File file;
  std::uint64_t size = 0;
  if (!OpenWholeFile(path, file, size)) return false;
  bytes.resize(static_cast<std::size_t>(size));
  if (file.Read(bytes.data(), size) != size) {
    std::fprintf(stderr, "error: cannot read %s\n", path.c_str());
    return false;
  }
  return true;
}

}  // namespace

int RunInspect(const std::string& path) {
  std::vector<std::uint8_t> bytes;
  if (path.empty()) {
    bytes = BuildSample();
    std::printf("bundled sample, %zu bytes\n", bytes.size());
  } else if (!ReadWholeFile(path, bytes)) {
    return 2;
  }
  const nk::WalkResult result = nk::WalkFrames(bytes.data(), bytes.size(), DescribeObject);
  for (const nk::FrameNode& node : result.frames) PrintNode(node, 0);
  if (result.error) {
    std::fflush(stdout);
    std::fprintf(stderr, "error: %s\n", result.error->message.c_str());
    return 2;
  }
  return 0;
}

}  // namespace nkf::tools
