// Synthetic sensor images beside the photographs of the shared corpus: what a
// vision sensor sees on a production line, made reproducibly in code.
#ifndef TESTS_SUPPORT_SENSOR_IMAGES_H_
#define TESTS_SUPPORT_SENSOR_IMAGES_H_

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace nk::testing {

struct NamedImage {
  std::string name;
  std::vector<std::uint8_t> bytes;
};

// A lit part on a conveyor: a horizontal gradient with sensor noise.
inline std::vector<std::uint8_t> GradientWithNoise(int width, int height, int channels) {
  std::mt19937 random(7);
  std::normal_distribution<double> noise(0.0, 2.0);
  std::vector<std::uint8_t> pixels;
  pixels.reserve(static_cast<std::size_t>(width) * height * channels);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width * channels; ++x) {
      const double value = 40.0 + 160.0 * (x / channels) / width + 10.0 * y / height + noise(random);
      pixels.push_back(static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0)));
    }
  }
  return pixels;
}

// A flat-field calibration shot: one grey level with hot and dead pixels and
// a dust scratch.
inline std::vector<std::uint8_t> FlatFieldWithDefects(int width, int height) {
  std::mt19937 random(11);
  std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * height, 128);
  std::uniform_int_distribution<std::size_t> where(0, pixels.size() - 1);
  for (int i = 0; i < width / 4; ++i) pixels[where(random)] = i % 2 ? 255 : 0;
  for (int x = width / 4; x < width / 2; ++x) pixels[static_cast<std::size_t>(x / 3 + height / 2) * width + x] = 90;
  return pixels;
}

inline std::vector<NamedImage> SensorImages() {
  return {{"gradient 640x480 grey", GradientWithNoise(640, 480, 1)},
          {"gradient 320x240 colour", GradientWithNoise(320, 240, 3)},
          {"flat field 1280x1024", FlatFieldWithDefects(1280, 1024)}};
}

// The photographs of the shared corpus, whole files; empty when the corpus is
// not beside the repository.
inline std::vector<NamedImage> CorpusImages(const std::filesystem::path& folder) {
  std::vector<NamedImage> images;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    const auto extension = entry.path().extension();
    if (extension != ".pgm" && extension != ".ppm") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    images.push_back({entry.path().filename().string(),
                      {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}});
  }
  return images;
}

}  // namespace nk::testing

#endif  // TESTS_SUPPORT_SENSOR_IMAGES_H_
