#include "findings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

#include "report.h"
#include "shipped.h"

namespace survey {
namespace {

using namespace zyl::geometry;

// Two collars 60 m apart, one of them by a fault that strikes north and stands upright at x = 10,
// both against a square of 20 m. The axes of the ellipsoid are 10 m north, 5 m east and 2 m up, so
// that 4 m east of its centre is 0.8 of the way out; the voxel of B is far from it.
TEST(Findings, OfASmallSurveyAreThoseWorkedOutByHand) {
  geom_Init();
  Polyline3D square(
      std::vector<Point3D>{{0, 0, 0}, {20, 0, 0}, {20, 20, 0}, {0, 20, 0}, {0, 0, 0}});
  square.SetName("square");
  const Coord3D at(10, 0, 0);
  const Survey survey = {{{"A", {13, 7, 5}}, {"B", {49, 55, 5}}},
                         {square},
                         {{"F", at, 0, 90, Plane(at, 0.0, std::acos(-1) / 2)}},
                         {{"S", {9, 7, 5}, Ellipsoid({10, 5, 2}, {0, 0, 0})}}};
  const Findings findings = Examine(survey, 2);
  std::ostringstream printed;
  PrintTable(printed, survey, findings);
  PrintSummary(printed, survey, findings);
  EXPECT_EQ(printed.str(),
            "collar             x             y             z    square         F      S\n"
            "A             13.000         7.000         5.000    inside      3.00   0.80\n"
            "B             49.000        55.000         5.000   outside     39.00      -\n"
            "2 collars\n"
            "  square: 1 inside, 0 on the boundary, 1 outside\n"
            "  S: 1 within reach, of 1 candidates\n"
            "  enclosing circle: centre 31.000, 31.000, radius 30.000\n");
}

// Every collar in the ellipsoid has to be among the candidates, whichever way the ellipsoid lies;
// who is in it is found out without the voxels, from the projections onto its axes.
TEST(Findings, OfASearchMissNoCollar) {
  Survey survey = ShippedSurvey();
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
    for (std::size_t i = 0; i < survey.collars.size(); ++i) {
      const Coord3D offset = survey.collars[i].position - survey.searches[k].centre;
      double squared = 0;
      for (const Coord3D& axis : SemiAxes(survey.searches[k].ellipsoid)) {
        squared += std::pow(offset.Dot(axis) / axis.MagnitudeSquared(), 2);
      }
      const auto& reach = findings.reaches[k][i];
      EXPECT_TRUE(reach ? std::fabs(*reach - std::sqrt(squared)) < 1e-9 : squared > 1);
      found += IsReached(reach);
    }
  }
  EXPECT_GT(found, 100);
}

}  // namespace
}  // namespace survey
