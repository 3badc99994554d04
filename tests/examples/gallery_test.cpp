#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/even_odd.h"
#include "support/xml.h"

namespace {

namespace fs = std::filesystem;
using exact::Point2;
using exact::Ring2;
using xml::Element;

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

Ring2 Corners(const Element& element) {
  std::istringstream points(element.Get("points"));
  Ring2 corners;
  for (Point2 p{}; points >> p[0] && points.ignore() && points >> p[1];) {
    corners.push_back(p);
  }
  return corners;
}

double Number(const Element& element, const char* attribute) {
  return std::stod(element.Get(attribute));
}

Point2 Centre(const Element& circle) { return {Number(circle, "cx"), Number(circle, "cy")}; }

double Distance(const Point2& a, const Point2& b) { return std::hypot(b[0] - a[0], b[1] - a[1]); }

// Draws the whole gallery once, into a folder of its own.
class Gallery : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    fs::remove_all(GALLERY_SCRATCH);
    ASSERT_EQ(std::system("\"" GALLERY_PROGRAM "\" \"" GALLERY_SCRATCH "\""), 0);
  }

  static std::vector<Element> Picture(const std::string& name) {
    const std::string document = Contents(fs::path(GALLERY_SCRATCH) / name);
    return xml::Reader(document).Read();
  }

  // The shapes of one kind and style, without the samples of the key in the lowest 36 pixels.
  static std::vector<Element> Shapes(const char* name, const char* kind, const char* style) {
    const std::vector<Element> picture = Picture(name);
    const double keyTop = Number(picture[0], "height") - 36;
    std::vector<Element> shapes;
    for (const Element& e : picture) {
      const std::string y = e.Get("cy") + e.Get("y");
      if (e.name == kind && e.Get("class") == style && (y.empty() || std::stod(y) < keyTop)) {
        shapes.push_back(e);
      }
    }
    return shapes;
  }

  static std::size_t Count(const char* name, const char* kind, const char* style) {
    return Shapes(name, kind, style).size();
  }

  // Dots of one style are inside one of the rings by the even-odd rule, those of the other are not;
  // but for dots so near an edge, as a share of its length, that rounded numbers cannot tell.
  static void ExpectDots(const char* name, const std::vector<Element>& rings, const char* inside,
                         const char* outside, double nearness) {
    for (const char* const style : {inside, outside}) {
      for (const Element& dot : Shapes(name, "circle", style)) {
        bool isInside = false, isNear = false;
        for (const Element& ring : rings) {
          const Ring2 corners = Corners(ring);
          isInside |= exact::EvenOdd(corners, Centre(dot)) == exact::Place::kInside;
          isNear |= exact::IsNearEdge(corners, Centre(dot), nearness);
        }
        EXPECT_TRUE(isNear || isInside == (style == inside)) << testing::PrintToString(Centre(dot));
      }
    }
  }
};

TEST_F(Gallery, IsWellFormedStaysOnItsSheetsAndIsShownInTheDocumentationAsItIsDrawn) {
  int pictures = 0;
  for (const auto& file : fs::directory_iterator(GALLERY_SCRATCH)) {
    SCOPED_TRACE(file.path().filename());
    const std::vector<Element> picture = Picture(file.path().filename());
    ++pictures;
    EXPECT_EQ(picture[0].Get("xmlns"), "http://www.w3.org/2000/svg");
    EXPECT_GT(picture.size(), 40u);
    for (const Element& e : picture) {
      Ring2 spots = Corners(e);
      for (const std::string end : {"", "1", "2"}) {
        for (const std::string c : {"c", ""}) {
          if (!e.Get(c + "x" + end).empty()) {
            spots.push_back({std::stod(e.Get(c + "x" + end)), std::stod(e.Get(c + "y" + end))});
          }
        }
      }
      for (const auto& [x, y] : spots) {
        EXPECT_TRUE(0 <= x && x <= Number(picture[0], "width") && 0 <= y &&
                    y <= Number(picture[0], "height"))
            << e.name << " at " << x << ", " << y;
      }
    }
    EXPECT_TRUE(Contents(file) == Contents(GALLERY_SHOWN / file.path().filename()))
        << "the picture shown is not what is drawn: build the target gallery_pictures";
  }
  EXPECT_EQ(pictures, 7);
}

TEST_F(Gallery, SaysWhereItCannotWrite) {
  EXPECT_NE(std::system("\"" GALLERY_PROGRAM "\" /dev/null/nowhere 2>/dev/null"), 0);
  EXPECT_NE(std::system("\"" GALLERY_PROGRAM "\" 2>/dev/null"), 0);
}

// A polygon of n corners and h holes has n + 2h - 2 triangles: 26 + 5 corners, one hole.
TEST_F(Gallery, TriangulationFillsTheRing) {
  EXPECT_EQ(Count("triangulation.svg", "polygon", "inside"), 31u);
  EXPECT_EQ(Count("triangulation.svg", "circle", "corner"), 31u);
  EXPECT_EQ(Count("triangulation.svg", "polygon", "ring"), 2u);
}

// The seven edges of the star cross 14 times: 21 vertices, 7 of them on the hull, hence 33
// triangles. Inside are the tips, seven quadrilaterals, and the heptagon in the middle.
TEST_F(Gallery, EvenOddAnswersAreThoseOfTheTriangles) {
  const char* const name = "even_odd.svg";
  EXPECT_EQ(Count(name, "polygon", "inside"), 7 * 2 + 5u);
  EXPECT_EQ(Count(name, "polygon", "outside"), 33u - 19u);
  // Points of an integer grid within 16 of one of them.
  EXPECT_EQ(Count(name, "circle", "yes") + Count(name, "circle", "no"), 797u);
  ExpectDots(name, Shapes(name, "polygon", "thin"), "yes", "no", 2e-4);
}

// A line of trend t and plunge p stands at the bearing t, √2·R·sin((90° - p) / 2) from the centre.
// The line of dip of the bedding plunges 32° towards 125°, its pole 58° towards 305°.
TEST_F(Gallery, StereonetKeepsAreasAndPoles) {
  const char* const name = "stereonet.svg";
  const Element net = Shapes(name, "circle", "disc").at(0);
  const Point2 centre = Centre(net);
  const double radius = Number(net, "r"), degree = std::acos(-1) / 180;
  const auto onNet = [&](double trend, double plunge) -> Point2 {
    const double r = std::sqrt(2) * radius * std::sin((90 - plunge) / 2 * degree);
    return {centre[0] + r * std::sin(trend * degree), centre[1] - r * std::cos(trend * degree)};
  };
  const Ring2 bedding = Corners(Shapes(name, "polyline", "bedding").at(0));
  EXPECT_LT(Distance(bedding[bedding.size() / 2], onNet(125, 32)), 0.02);
  EXPECT_LT(Distance(bedding.front(), onNet(35, 0)), 0.02);
  EXPECT_LT(Distance(bedding.back(), onNet(215, 0)), 0.02);

  Point2 mean = {0, 0};
  int poles = 0;
  for (const Element& pole : Shapes(name, "circle", "bedpole")) {
    const Point2 at = Centre(pole);
    if (Distance(at, centre) < radius) {  // not the one in the key
      mean = {mean[0] + at[0] / 40, mean[1] + at[1] / 40};
      ++poles;
    }
  }
  EXPECT_EQ(poles, 40);
  EXPECT_LT(Distance(mean, onNet(305, 58)), 5);  // the measurements scatter by some 10 pixels
}

// From 1.35 to 4.25, 1.3 to 3.6 and 0.75 to 2.3 a box touches 4 × 3 × 3 unit voxels.
TEST_F(Gallery, VoxelsShowTheFacesThatAreSeen) {
  EXPECT_EQ(Count("voxels.svg", "polygon", "top"), 4 * 3u);
  EXPECT_EQ(Count("voxels.svg", "polygon", "front"), 4 * 3u);
  EXPECT_EQ(Count("voxels.svg", "polygon", "side"), 3 * 3u);
  EXPECT_NE(Contents(GALLERY_SCRATCH "/voxels.svg").find("36 voxels"), std::string::npos);
}

TEST_F(Gallery, EllipsoidReachesWhatLiesWithinItsSection) {
  const char* const name = "ellipsoid.svg";
  const std::vector<Element> surfaces = Shapes(name, "polygon", "surface");
  ASSERT_EQ(surfaces.size(), 2u);
  EXPECT_EQ(Count(name, "circle", "dot") + Count(name, "circle", "pale"), 2 * 81u);
  ExpectDots(name, surfaces, "dot", "pale", 0.02);
  const Element axis = Shapes(name, "line", "major").at(0);
  const Point2 tip = {Number(axis, "x2"), Number(axis, "y2")};
  EXPECT_TRUE(exact::IsNearEdge(Corners(surfaces[1]), tip, 0.02));
}

}  // namespace
