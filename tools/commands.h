// The subcommands of the `nkfoundation` program.
#ifndef NKFOUNDATION_TOOLS_COMMANDS_H_
#define NKFOUNDATION_TOOLS_COMMANDS_H_

#include <string>
#include <vector>

namespace nkf::tools {

// Each returns the process exit status: 0 success, 2 damaged or unreadable
// input.

// Prints the frame tree of a file; an empty path inspects the bundled sample.
int RunInspect(const std::string& path);
int RunCompress(const std::string& in, const std::string& out);
int RunDecompress(const std::string& in, const std::string& out);
// Prints the localized information lines of the first device record in a
// file (or of a bundled sample record) in `culture` 0, 1 or 2.
int RunDevInfo(const std::string& path, int culture);

// Feeds each file to one grey-line array as a Z2 package (ZE with `plain`)
// and prints the lines kept.
int RunGreyLines(const std::vector<std::string>& paths, bool plain, int max_lines);

// Turns picture files into one image frame, or several into an image array;
// `grey` stores one byte per pixel, `compress` the coder's form.
int RunImageImport(const std::vector<std::string>& pictures, const std::string& out, bool grey, bool compress);
// Writes the image of a file as a picture of the format `out` names. Of an
// array, image `index`, or with a negative index every image, numbered.
int RunImageExport(const std::string& in, const std::string& out, int index);

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_COMMANDS_H_
