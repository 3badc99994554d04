#include "sheet.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "panel.h"
#include "svg/svg_writer.h"
#include "zyl/geometry/geom.h"

namespace survey {
namespace {

using namespace zyl::geometry;

std::string SheetOf(const Survey& survey) {
  geom_Init();
  std::ostringstream out;
  WriteSheet(out, survey, Examine(survey, 1));
  return out.str();
}

int CountOf(const std::string& text, const std::string& sheet) {
  int count = 0;
  for (auto at = sheet.find(text); at != std::string::npos; at = sheet.find(text, at + 1)) {
    ++count;
  }
  return count;
}

TEST(Sheet, IsSoundXmlWhateverTheNamesHold) {
  Survey survey;
  survey.collars = {
      {"<A&\"B\">", {0, 0, 0}}, {"tab\tbell\a", {1, 0, 0}}, {"\xC0\xAF\xFF", {0, 1, 0}}};
  survey.outlines = {std::vector<Point3D>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 0}}};
  survey.outlines[0].SetName("</svg>");
  const std::string sheet = SheetOf(survey);
  EXPECT_EQ(CountOf("class=\"collar ", sheet), 3);
  EXPECT_EQ(CountOf("</svg>", sheet), 1);
  EXPECT_GT(CountOf("&lt;A&amp;\"B\"&gt;", sheet), 0);
  for (const char* const raw : {"<A", "\a", "\xC0"}) {
    EXPECT_EQ(CountOf(raw, sheet), 0) << raw;
  }
  const std::string sound = "Bj\xC3\xB8rk \xE2\x82\xAC \xF0\x9F\x98\x80";
  EXPECT_EQ(svg::EscapeXml(sound), sound);
  EXPECT_EQ(svg::EscapeXml("<A&\"B\">"), "&lt;A&amp;\"B\"&gt;");
  EXPECT_EQ(svg::EscapeXml("a\x01\xC0\xAF\xED\xA0\x80\xC3"), "a???????") << "no characters of XML";
}

// One collar, and outlines without extent, of vast extent and far away.
TEST(Sheet, IsDrawnForDegenerateAndForVastSurveys) {
  const double vast = std::numeric_limits<double>::max() / 4;
  for (const double size : {0.0, 1e-300, 1e-9, 1e12, 1e200, vast}) {
    for (const double shift : {0.0, 6.5e6, 1e17}) {
      Survey survey;
      survey.collars = {{"A", {shift, shift, 0}}};
      survey.outlines = {std::vector<Point3D>{
          {shift, shift, 0}, {shift + size, shift, 0}, {shift, shift + size, size}}};
      survey.outlines[0].SetClosed(true);
      const std::string sheet = SheetOf(survey);
      EXPECT_EQ(CountOf("class=\"collar ", sheet), 1) << size << ", " << shift;
      EXPECT_LT(CountOf("\n", sheet), 400) << size << ", " << shift;
    }
  }
}

// With thin spaces and a minus sign.
TEST(Panel, GroupsDigits) {
  EXPECT_EQ(Grouped(-6500000.25, 2),
            "\xE2\x88\x92"
            "6\xE2\x80\x89"
            "500\xE2\x80\x89"
            "000.25");
}

}  // namespace
}  // namespace survey
