#include "findings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

#include "options.h"
#include "report.h"
#include "zyl/geometry/geom.h"

namespace survey {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Ellipsoid;
using zyl::geometry::Plane;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

constexpr double kPi = 3.141592653589793;

// Two collars 60 m apart, one of them by a fault that strikes north and stands upright at x = 10,
// both against a square of 20 m.
Survey SmallSurvey() {
  geom_Init();
  Survey survey;
  survey.collars = {{"A", {13, 7, 5}}, {"B", {49, 55, 5}}};
  Polyline3D square(
      std::vector<Point3D>{{0, 0, 0}, {20, 0, 0}, {20, 20, 0}, {0, 20, 0}, {0, 0, 0}});
  square.SetName("square");
  survey.outlines = {square};
  const Coord3D at(10, 0, 0);
  survey.structures = {{"F", at, 0, 90, Plane(at, 0.0, kPi / 2)}};
  // Axes of 10 m north, 5 m east and 2 m up, so that 4 m east of the centre is 0.8 of the way out.
  survey.searches = {{"S", {9, 7, 5}, Ellipsoid({10, 5, 2}, {0, 0, 0})}};
  return survey;
}

TEST(Findings, OfASmallSurveyAreThoseWorkedOutByHand) {
  const Findings findings = Examine(SmallSurvey(), 2);
  EXPECT_EQ(findings.answers[0], (std::vector<Answer>{Answer::kInside, Answer::kOutside}));
  EXPECT_NEAR(findings.heights[0][0], 3, 1e-12);
  EXPECT_NEAR(findings.heights[0][1], 39, 1e-12);
  ASSERT_TRUE(findings.reaches[0][0]);
  EXPECT_NEAR(*findings.reaches[0][0], 0.8, 1e-12);
  EXPECT_FALSE(findings.reaches[0][1]) << "its voxel is far from the ellipsoid";
  EXPECT_NEAR(findings.circle.x, 31, 1e-12);
  EXPECT_NEAR(findings.circle.y, 31, 1e-12);
  EXPECT_NEAR(findings.circle.radius, 30, 1e-12);
}

TEST(Findings, PrintAsATableAndASummary) {
  const Survey survey = SmallSurvey();
  const Findings findings = Examine(survey, 1);
  std::ostringstream table;
  PrintTable(table, survey, findings);
  EXPECT_EQ(table.str(),
            "collar             x             y             z    square         F      S\n"
            "A             13.000         7.000         5.000    inside      3.00   0.80\n"
            "B             49.000        55.000         5.000   outside     39.00      -\n");
  std::ostringstream summary;
  PrintSummary(summary, survey, findings);
  EXPECT_EQ(summary.str(),
            "2 collars\n"
            "  square: 1 inside, 0 on the boundary, 1 outside\n"
            "  S: 1 within reach, of 1 candidates\n"
            "  enclosing circle: centre 31.000, 31.000, radius 30.000\n");
}

// Every collar in the ellipsoid has to be among the candidates, whichever way the ellipsoid lies;
// who is in it is found out without the voxels, from the projections onto its axes.
TEST(Findings, OfASearchMissNoCollar) {
  Survey survey = SmallSurvey();
  survey.collars = ReadCollars(ParseOptions({}).collars);
  survey.searches.clear();
  for (double bearing = 0; bearing < 360; bearing += 30) {
    for (const double inclination : {-50.0, 0.0, 20.0}) {
      const Ellipsoid ellipsoid({400, 120, 30}, {bearing, inclination, 25});
      survey.searches.push_back({"S", {450000, 6500000, 300}, ellipsoid});
    }
  }
  const Findings findings = Examine(survey, 1);
  int found = 0;
  for (std::size_t k = 0; k < survey.searches.size(); ++k) {
    const auto axes = SemiAxes(survey.searches[k].ellipsoid);
    for (std::size_t i = 0; i < survey.collars.size(); ++i) {
      const Coord3D offset = survey.collars[i].position - survey.searches[k].centre;
      double squared = 0;
      for (const Coord3D& axis : axes) {
        const double share = offset.Dot(axis) / axis.MagnitudeSquared();
        squared += share * share;
      }
      if (findings.reaches[k][i]) {
        EXPECT_NEAR(*findings.reaches[k][i], std::sqrt(squared), 1e-9);
      } else {
        EXPECT_GT(squared, 1);
      }
      found += IsReached(findings.reaches[k][i]);
    }
  }
  EXPECT_GT(found, 100);
}

}  // namespace
}  // namespace survey
