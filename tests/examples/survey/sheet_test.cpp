#include "sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "options.h"
#include "panel.h"
#include "support/xml.h"
#include "svg/svg_writer.h"
#include "zyl/geometry/geom.h"

namespace survey {
namespace {

using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

// Number of elements of which the class begins like this.
int CountOf(const std::string& style, const std::vector<xml::Element>& elements) {
  return static_cast<int>(std::count_if(
      elements.begin(), elements.end(),
      [&](const xml::Element& element) { return element.Get("class").rfind(style, 0) == 0; }));
}

std::string SheetOf(const Survey& survey) {
  geom_Init();
  std::ostringstream out;
  WriteSheet(out, survey, Examine(survey, 1));
  return out.str();
}

// Throws if the sheet is not well-formed.
std::vector<xml::Element> ElementsOf(const Survey& survey) {
  return xml::Reader(SheetOf(survey)).Read();
}

Survey ShippedSurvey() {
  const Options shipped = ParseOptions({});
  return {ReadCollars(shipped.collars),
          {ReadOutline(shipped.outlines[0]), ReadOutline(shipped.outlines[1])},
          ReadStructures(shipped.structures),
          ReadSearches(shipped.searches)};
}

TEST(Sheet, MarksEveryCollarOfTheShippedSurveyOnceInThePlan) {
  const std::vector<xml::Element> sheet = ElementsOf(ShippedSurvey());
  EXPECT_EQ(CountOf("collar ", sheet), 200);
  EXPECT_EQ(CountOf("collar boundary", sheet), 11);
  EXPECT_EQ(CountOf("hole ", sheet), 200);
  EXPECT_EQ(CountOf("edge0 cut", sheet), 4 + 1) << "edges walked twice, and the legend";
}

TEST(Sheet, IsShownInTheDocumentationAsItIsDrawn) {
  std::ifstream shown(SURVEY_PICTURE);
  EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(shown), {}) == SheetOf(ShippedSurvey()))
      << SURVEY_PICTURE " is not what is drawn: build the target survey_picture";
}

TEST(Sheet, IsSoundXmlWhateverTheNamesHold) {
  Survey survey;
  survey.collars = {
      {"<A&\"B\">", {0, 0, 0}}, {"tab\tbell\a", {1, 0, 0}}, {"\xC0\xAF\xFF", {0, 1, 0}}};
  Polyline3D square(std::vector<Point3D>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 0}});
  square.SetName("</svg>");
  survey.outlines = {square};
  EXPECT_EQ(CountOf("collar ", ElementsOf(survey)), 3);
  EXPECT_EQ(svg::EscapeXml("<A&\"B\">"), "&lt;A&amp;\"B\"&gt;");
  EXPECT_EQ(svg::EscapeXml("Bj\xC3\xB8rk \xE2\x82\xAC \xF0\x9F\x98\x80"),
            "Bj\xC3\xB8rk \xE2\x82\xAC \xF0\x9F\x98\x80");
  EXPECT_EQ(svg::EscapeXml("a\x01\xC0\xAF\xED\xA0\x80\xC3"), "a???????") << "no characters of XML";
}

// One collar, and outlines without extent, of vast extent and far away.
TEST(Sheet, IsDrawnForDegenerateAndForVastSurveys) {
  const double vast = std::numeric_limits<double>::max() / 4;
  for (const double size : {0.0, 1e-300, 1e-9, 1e12, 1e200, vast}) {
    for (const double shift : {0.0, 6.5e6, 1e17}) {
      Survey survey;
      survey.collars = {{"A", {shift, shift, 0}}};
      survey.outlines = {Polyline3D(std::vector<Point3D>{
          {shift, shift, 0}, {shift + size, shift, 0}, {shift, shift + size, size}})};
      survey.outlines[0].SetClosed(true);
      const std::vector<xml::Element> sheet = ElementsOf(survey);
      EXPECT_EQ(CountOf("collar ", sheet), 1) << size << ", " << shift;
      EXPECT_LT(sheet.size(), 400u) << size << ", " << shift;
    }
  }
}

TEST(Panel, GroupsDigitsAndRoundsLengths) {
  EXPECT_EQ(Grouped(6500000),
            "6\xE2\x80\x89"
            "500\xE2\x80\x89"
            "000");
  EXPECT_EQ(Grouped(-999.25, 2),
            "\xE2\x88\x92"
            "999.25");
  EXPECT_EQ(RoundLength(188), 100);
  EXPECT_EQ(RoundLength(627), 500);
  EXPECT_EQ(RoundLength(2), 2);
}

}  // namespace
}  // namespace survey
