// Draws the pictures of the documentation: gallery <folder>.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "pictures.h"
#include "zyl/geometry/geom.h"

namespace {

struct Entry {
  const char* name;
  void (*draw)(std::ostream&);
};

constexpr Entry kGallery[] = {
    {"triangulation.svg", gallery::DrawTriangulation},
    {"even_odd.svg", gallery::DrawEvenOdd},
    {"stereonet.svg", gallery::DrawStereonet},
    {"enclosing_circle.svg", gallery::DrawEnclosing},
    {"voxels.svg", gallery::DrawVoxels},
    {"ellipsoid.svg", gallery::DrawEllipsoidSections},
    {"exact_sides.svg", gallery::DrawExactSides},
};

bool Save(const std::filesystem::path& path, void (*draw)(std::ostream&)) {
  std::ofstream file(path, std::ios::binary);
  draw(file);
  return static_cast<bool>(file.flush());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: gallery <folder>\n");
    return 1;
  }
  const std::filesystem::path folder = argv[1];
  std::error_code error;
  std::filesystem::create_directories(folder, error);

  geom_Init();
  for (const Entry& entry : kGallery) {
    const std::filesystem::path path = folder / entry.name;
    if (!Save(path, entry.draw)) {
      std::fprintf(stderr, "gallery: %s cannot be written\n", path.string().c_str());
      return 1;
    }
  }
}
