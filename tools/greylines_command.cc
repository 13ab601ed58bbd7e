// `nkfoundation greylines`: feeds package files, as a sensor sends them, to
// one grey-line array and prints what each built and the lines kept.
#include <cinttypes>
#include <cstdio>
#include <string>
#include <vector>

#include "commands.h"
#include "field_views.h"
#include "nkfoundation/core/file.h"
#include "nkfoundation/image/grey_line_array.h"
#include "whole_file.h"

namespace nkf::tools {
namespace {

bool ReadPackage(const std::string& path, WritableCollection<unsigned char, int>& package) {
  nk::File file;
  std::uint64_t size = 0;
  if (!OpenWholeFile(path, file, size)) return false;
  package.SetSize(static_cast<int>(size));
  if (file.Read(package.GetData(), size) == size) return true;
  std::fprintf(stderr, "error: cannot read %s\n", path.c_str());
  return false;
}

void PrintLine(int index, const OType_GreyLine& line) {
  const OTime& time = line.m_oTimeDate;
  std::printf("line %d, %04d-%02d-%02d %02d:%02d:%02d.%06d: %s\n", index, static_cast<int>(time.m_iYear),
              static_cast<int>(time.m_iMonth), static_cast<int>(time.m_iDayOfMonth), static_cast<int>(time.m_iHours),
              static_cast<int>(time.m_iMinutes), static_cast<int>(time.m_iSeconds),
              static_cast<int>(time.m_iMicroSeconds), ByteSummary(line.GetData()).c_str());
}

}  // namespace

int RunGreyLines(const std::vector<std::string>& paths, bool plain, int max_lines) {
  OType_GreyLine_Array lines;
  lines.m_iGreyLine_MaxNumber = max_lines;
  for (const std::string& path : paths) {
    WritableCollection<unsigned char, int> package;
    if (!ReadPackage(path, package)) return 2;
    const auto last = plain ? lines.AddGreyLine_ZE_Package(reinterpret_cast<const char*>(package.GetData()),
                                                           package.GetCount())
                            : lines.AddGreyLine_Z2_Package(package);
    std::printf("%s: %s package of %d bytes, %s\n", path.c_str(), plain ? "ZE" : "Z2", package.GetCount(),
                last ? ("last line " + std::to_string(last->GetData().GetCount()) + " pixels").c_str()
                     : "no line returned");
  }
  std::printf("%d lines kept (at most %d)\n", lines.GetCount(), max_lines);
  for (int i = 0; i < lines.GetCount(); ++i) PrintLine(i, *lines[i]);
  return 0;
}

}  // namespace nkf::tools
