#include "classify.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "shipped.h"
#include "support/polylines.h"

namespace survey {
namespace {

using namespace zyl::geometry;

// Expects for every collar the answer of the even-odd rule in a projection, and these on the
// boundary.
template <typename Project>
void ExpectExact(const Survey& survey, std::size_t outline, Project project,
                 const std::set<std::string>& onBoundary) {
  exact::Ring2 ring;
  for (const Point3D& corner : survey.outlines[outline].GetPointVector()) {
    ring.push_back(project(corner));
  }
  const std::vector<Answer> answers = ClassifyAll(survey, 2)[outline];
  for (std::size_t i = 0; i < survey.collars.size(); ++i) {
    const auto& [id, position] = survey.collars[i];
    const exact::Point2 p = project(position);
    EXPECT_EQ(static_cast<int>(answers[i]), static_cast<int>(exact::EvenOdd(ring, p))) << id;
    EXPECT_EQ(answers[i] == Answer::kOnBoundary, onBoundary.count(id) == 1) << id;
  }
}

TEST(Classify, AgreesWithExactArithmeticOnTheLease) {
  const auto fromAbove = [](const Coord3D& p) { return exact::Point2{p.x, p.y}; };
  ExpectExact(ShippedSurvey(), 0, fromAbove,
              {"KD183", "KD184", "KD185", "KD186", "KD187", "KD188", "KD189", "KD190", "KD191",
               "KD192", "KD193"});
}

// The vein's plane is 12x - 9y + 20z = constant, so that (3, 4, 0) along its strike and (-5, 0, 3)
// across span it, and products with them give every point coordinates as seen square to it. They
// are exact for the corners. For a collar they are rounded, which decides nothing unless it passes
// by an edge more closely than any does but the two on corners.
TEST(Classify, AgreesWithExactArithmeticOnTheDippingVein) {
  const Survey survey = ShippedSurvey();
  const Coord3D origin = survey.outlines[1][0];
  const auto squareToIt = [&](const Coord3D& p) {
    const Coord3D d = p - origin;
    return exact::Point2{3 * d.x + 4 * d.y, -5 * d.x + 3 * d.z};
  };
  for (const Point3D& corner : survey.outlines[1].GetPointVector()) {
    ASSERT_EQ(Coord3D(12, -9, 20).Dot(Coord3D(corner) - origin), 0);
  }
  ExpectExact(survey, 1, squareToIt, {"KD197", "KD198"});
}

// A square with a square hole in it, joined by a cut from (0, 0) to (4, 4) and a spike from (12, 0)
// to (15, 0).
TEST(Classify, HoldsOnlyEdgesWalkedAnOddNumberOfTimesForBoundary) {
  geom_Init();
  const exact::Ring2 corners =
      rings::Of({0, 0, 4, 4, 4, 8, 8, 8, 8, 4, 4, 4, 0, 0, 12, 0, 15, 0, 12, 0, 12, 12, 0, 12});
  const Polyline3D ring = rings::OnTheGround(corners, 1);
  // On the cut and the spike; on an edge, on a corner and in the middle of the hole; on the outer
  // edge and just within it.
  for (const exact::Point2& p : rings::Of({2, 2, 14, 0, 6, 8, 4, 4, 6, 6, 12, 6, 12 - 1e-6, 6})) {
    EXPECT_EQ(static_cast<int>(Classify(ring, {p[0], p[1], 7})),
              static_cast<int>(exact::EvenOdd(corners, p)))
        << p[0] << ", " << p[1];
  }
  EXPECT_NE(Classify(ring, {std::nextafter(12.0, 13.0), 6, 0}), Answer::kOnBoundary);
}

TEST(Classify, AnswersTheSameOnAnyNumberOfThreads) {
  const Survey survey = ShippedSurvey();
  for (const unsigned threads : {3u, 8u, 250u}) {  // at last more threads than collars
    EXPECT_EQ(ClassifyAll(survey, threads), ClassifyAll(survey, 1));
  }
}

}  // namespace
}  // namespace survey
