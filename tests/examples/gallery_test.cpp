#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/xml.h"

namespace {

namespace fs = std::filesystem;

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Whoever changes a picture looks at it before it is committed; here it has to stay the same.
TEST(Gallery, IsWellFormedAndIsShownInTheDocumentationAsItIsDrawn) {
  fs::remove_all(GALLERY_SCRATCH);
  ASSERT_EQ(std::system("\"" GALLERY_PROGRAM "\" \"" GALLERY_SCRATCH "\""), 0);
  int pictures = 0;
  for (const auto& file : fs::directory_iterator(GALLERY_SCRATCH)) {
    const fs::path name = file.path().filename();
    const std::string drawn = Contents(file);
    EXPECT_NO_THROW(xml::Reader(drawn).Read()) << name;
    EXPECT_TRUE(drawn == Contents(GALLERY_SHOWN / name))
        << name << " as it is shown is not what is drawn: build the target gallery_pictures";
    ++pictures;
  }
  EXPECT_EQ(pictures, 7);
}

TEST(Gallery, SaysWhereItCannotWrite) {
  EXPECT_NE(std::system("\"" GALLERY_PROGRAM "\" /dev/null/nowhere 2>/dev/null"), 0);
  EXPECT_NE(std::system("\"" GALLERY_PROGRAM "\" 2>/dev/null"), 0);
}

}  // namespace
