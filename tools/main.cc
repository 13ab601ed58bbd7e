// nkfoundation: looks into and converts the files that the PC software, the
// device and project files exchange.
#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "nkfoundation/image/grey_line_array.h"

int main(int argc, char** argv) {
  CLI::App app{"Inspect and convert NkFoundation object files"};
  app.require_subcommand(1);

  std::string inspect_path;
  CLI::App* inspect = app.add_subcommand("inspect", "print the object frames of a file as a tree");
  inspect->add_option("file", inspect_path, "file of object frames (default: the bundled sample)");

  std::string in;
  std::string out;
  CLI::App* compress = app.add_subcommand("compress", "compress a whole file with the image coder");
  CLI::App* decompress = app.add_subcommand("decompress", "restore a file compressed by 'compress'");
  for (CLI::App* command : {compress, decompress}) {
    command->add_option("in", in, "input file")->required();
    command->add_option("out", out, "output file")->required();
  }

  std::string devinfo_path;
  int devinfo_culture = 1;
  CLI::App* devinfo = app.add_subcommand("devinfo", "print the information lines of a device record");
  devinfo->add_option("file", devinfo_path, "file holding a device record (default: a sample record)");
  devinfo->add_option("--culture", devinfo_culture, "0 key form, 1 English, 2 German")
      ->check(CLI::Range(0, 2));

  std::vector<std::string> greyline_paths;
  bool greyline_plain = false;
  int greyline_max = OType_GreyLine_Array().m_iGreyLine_MaxNumber;
  CLI::App* greylines = app.add_subcommand("greylines", "build grey lines from package files and print them");
  greylines->add_option("packages", greyline_paths, "package files, fed in order")->required();
  greylines->add_flag("--ze", greyline_plain, "the files are ZE packages (plain byte blocks), not Z2");
  greylines->add_option("--max", greyline_max, "most lines kept");

  std::vector<std::string> import_files;
  bool import_grey = false;
  bool import_compress = false;
  std::string export_in;
  std::string export_out;
  int export_index = -1;
  CLI::App* image = app.add_subcommand("image", "turn pictures into image frames and back");
  image->require_subcommand(1);
  CLI::App* image_import = image->add_subcommand("import", "BMP, JPEG, PNG, PGM or PPM pictures to an image file");
  image_import->add_option("files", import_files, "PICTURE... OUT: several pictures make an image array")
      ->required()
      ->expected(2, -1);
  image_import->add_flag("--grey", import_grey, "store grey values, one byte per pixel");
  image_import->add_flag("--compress", import_compress, "store the pixels compressed");
  CLI::App* image_export = image->add_subcommand("export", "an image of a file to a .png, .bmp or .jpg picture");
  image_export->add_option("in", export_in, "file holding an image or an image array")->required();
  image_export->add_option("out", export_out, "picture file; an array's images get their index in the name")
      ->required();
  image_export->add_option("--index", export_index, "only this image of an array")->check(CLI::NonNegativeNumber);

  CLI11_PARSE(app, argc, argv);
  // A command that runs out of memory, or whose result outgrows what the
  // library can hold, ends like any other failure: one line and status 2.
  try {
    if (*inspect) return nkf::tools::RunInspect(inspect_path);
    if (*devinfo) return nkf::tools::RunDevInfo(devinfo_path, devinfo_culture);
    if (*greylines) return nkf::tools::RunGreyLines(greyline_paths, greyline_plain, greyline_max);
    if (*image_import) {
      const std::string target = import_files.back();
      import_files.pop_back();
      return nkf::tools::RunImageImport(import_files, target, import_grey, import_compress);
    }
    if (*image_export) return nkf::tools::RunImageExport(export_in, export_out, export_index);
    if (*compress) return nkf::tools::RunCompress(in, out);
    return nkf::tools::RunDecompress(in, out);
  } catch (const std::bad_alloc&) {
    std::fprintf(stderr, "error: %s: out of memory\n", app.get_subcommands().front()->get_name().c_str());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "error: %s: %s\n", app.get_subcommands().front()->get_name().c_str(), error.what());
  }
  return 2;
}
