#include "classify.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "options.h"
#include "report.h"
#include "support/even_odd.h"
#include "zyl/geometry/geom.h"

namespace survey {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

Survey ShippedSurvey() {
  geom_Init();
  const Options shipped = ParseOptions({});
  Survey survey;
  survey.collars = ReadCollars(shipped.collars);
  for (const std::string& path : shipped.outlines) {
    survey.outlines.push_back(ReadOutline(path));
  }
  return survey;
}

template <typename Project>
exact::Ring2 Projected(const Polyline3D& outline, Project project) {
  exact::Ring2 ring;
  for (const Point3D& corner : outline.GetPointVector()) {
    ring.push_back(project(corner));
  }
  return ring;
}

template <typename Project>
std::vector<Answer> ExactAnswers(const Survey& survey, const Polyline3D& outline, Project project) {
  const exact::Ring2 ring = Projected(outline, project);
  std::vector<Answer> answers;
  for (const Collar& collar : survey.collars) {
    const exact::Place place = exact::EvenOdd(ring, project(collar.position));
    answers.push_back(place == exact::Place::kInside     ? Answer::kInside
                      : place == exact::Place::kBoundary ? Answer::kOnBoundary
                                                         : Answer::kOutside);
  }
  return answers;
}

std::set<std::string> IdsOf(const Survey& survey, const std::vector<Answer>& answers,
                            Answer wanted) {
  std::set<std::string> ids;
  for (std::size_t i = 0; i < answers.size(); ++i) {
    if (answers[i] == wanted) {
      ids.insert(survey.collars[i].id);
    }
  }
  return ids;
}

TEST(Classify, AgreesWithExactArithmeticOnTheLease) {
  const Survey survey = ShippedSurvey();
  const auto fromAbove = [](const Coord3D& p) { return exact::Point2{p.x, p.y}; };
  const std::vector<Answer> answers = ClassifyAll(survey, 2)[0];
  EXPECT_EQ(answers, ExactAnswers(survey, survey.outlines[0], fromAbove));
  const std::set<std::string> placedOnIt = {"KD183", "KD184", "KD185", "KD186", "KD187", "KD188",
                                            "KD189", "KD190", "KD191", "KD192", "KD193"};
  EXPECT_EQ(IdsOf(survey, answers, Answer::kOnBoundary), placedOnIt);
}

// The vein's plane is 12x - 9y + 20z = constant, so that (3, 4, 0) along its strike and (-5, 0, 3)
// across span it, and products with them give every point coordinates as seen square to it. They
// are exact for the corners. For a collar they are rounded, which decides nothing unless it passes
// by an edge more closely than any does but the two on corners.
TEST(Classify, AgreesWithExactArithmeticOnTheDippingVein) {
  const Survey survey = ShippedSurvey();
  const Polyline3D& vein = survey.outlines[1];
  const Coord3D origin = vein[0];
  const auto squareToIt = [&](const Coord3D& p) {
    const Coord3D d = p - origin;
    return exact::Point2{3 * d.x + 4 * d.y, -5 * d.x + 3 * d.z};
  };
  for (const Point3D& corner : vein.GetPointVector()) {
    ASSERT_EQ(Coord3D(12, -9, 20).Dot(Coord3D(corner) - origin), 0);
  }
  const std::vector<Answer> answers = ClassifyAll(survey, 2)[1];
  EXPECT_EQ(answers, ExactAnswers(survey, vein, squareToIt));
  const std::set<std::string> trenches = {"KD197", "KD198"};
  EXPECT_EQ(IdsOf(survey, answers, Answer::kOnBoundary), trenches);
  const exact::Ring2 ring = Projected(vein, squareToIt);
  for (const Collar& collar : survey.collars) {
    EXPECT_EQ(exact::IsNearEdge(ring, squareToIt(collar.position), 1e-6), trenches.count(collar.id))
        << collar.id;
  }
}

// The counts that the program reports. 28 outside are 27 off the lease and one on its tie line.
TEST(Classify, CountsTheShippedCollars) {
  const auto answers = ClassifyAll(ShippedSurvey(), 2);
  EXPECT_EQ(Count(answers[0], Answer::kInside), 161);
  EXPECT_EQ(Count(answers[0], Answer::kOutside), 28);
  EXPECT_EQ(Count(answers[1], Answer::kInside), 81);
  EXPECT_EQ(Count(answers[1], Answer::kOutside), 117);
}

// A square with a square hole in it, joined by a cut from (0, 0) to (4, 4) and a spike from (12, 0)
// to (15, 0).
TEST(Classify, HoldsOnlyEdgesWalkedAnOddNumberOfTimesForBoundary) {
  geom_Init();
  Polyline3D ring(std::vector<Point3D>{{0, 0, 7},
                                       {4, 4, 7},
                                       {4, 8, 7},
                                       {8, 8, 7},
                                       {8, 4, 7},
                                       {4, 4, 7},
                                       {0, 0, 7},
                                       {12, 0, 7},
                                       {15, 0, 7},
                                       {12, 0, 7},
                                       {12, 12, 7},
                                       {0, 12, 7}});
  ring.SetClosed(true);
  EXPECT_EQ(Classify(ring, {2, 2, 0}), Answer::kInside) << "on the cut";
  EXPECT_EQ(Classify(ring, {14, 0, 0}), Answer::kOutside) << "on the spike";
  EXPECT_EQ(Classify(ring, {6, 8, 0}), Answer::kOnBoundary) << "on the edge of the hole";
  EXPECT_EQ(Classify(ring, {4, 4, 0}), Answer::kOnBoundary) << "on a corner";
  EXPECT_EQ(Classify(ring, {6, 6, 0}), Answer::kOutside) << "in the hole";
  EXPECT_EQ(Classify(ring, {12, 6, 0}), Answer::kOnBoundary);
  EXPECT_NE(Classify(ring, {std::nextafter(12.0, 13.0), 6, 0}), Answer::kOnBoundary);
  EXPECT_EQ(Classify(ring, {12 - 1e-6, 6, 0}), Answer::kInside);
  EXPECT_EQ(Classify(ring, {12 + 1e-6, 6, 0}), Answer::kOutside);
}

TEST(Classify, AnswersTheSameOnAnyNumberOfThreads) {
  const Survey survey = ShippedSurvey();
  const auto alone = ClassifyAll(survey, 1);
  EXPECT_EQ(ClassifyAll(survey, 3), alone);
  EXPECT_EQ(ClassifyAll(survey, 8), alone);
  EXPECT_EQ(ClassifyAll(survey, 250), alone) << "more threads than collars";
}

}  // namespace
}  // namespace survey
