#include "report.h"

#include <algorithm>
#include <iomanip>

namespace survey {
namespace {

// Columns are as wide as their name asks for, and this at the least.
int Width(const std::string& name, int atLeast) {
  return std::max(static_cast<int>(name.size()), atLeast) + 2;
}

int IdWidth(const std::vector<Collar>& collars) {
  std::size_t longest = std::string("collar").size();
  for (const Collar& collar : collars) {
    longest = std::max(longest, collar.id.size());
  }
  return static_cast<int>(longest);
}

constexpr int kCoordinateWidth = 14;
constexpr int kAnswerWidth = 8;
constexpr int kHeightWidth = 8;
constexpr int kReachWidth = 5;

void PrintHead(std::ostream& out, const Survey& survey, int idWidth) {
  out << std::left << std::setw(idWidth) << "collar" << std::right;
  for (const char* const name : {"x", "y", "z"}) {
    out << std::setw(kCoordinateWidth) << name;
  }
  for (const auto& outline : survey.outlines) {
    out << std::setw(Width(outline.GetName(), kAnswerWidth)) << outline.GetName();
  }
  for (const Structure& structure : survey.structures) {
    out << std::setw(Width(structure.id, kHeightWidth)) << structure.id;
  }
  for (const Search& search : survey.searches) {
    out << std::setw(Width(search.id, kReachWidth)) << search.id;
  }
  out << '\n';
}

void PrintRow(std::ostream& out, const Survey& survey, const Findings& findings, int idWidth,
              std::size_t i) {
  const Collar& collar = survey.collars[i];
  out << std::left << std::setw(idWidth) << collar.id << std::right << std::setprecision(3);
  for (const int axis : {0, 1, 2}) {
    out << std::setw(kCoordinateWidth) << collar.position[axis];
  }
  for (std::size_t k = 0; k < survey.outlines.size(); ++k) {
    out << std::setw(Width(survey.outlines[k].GetName(), kAnswerWidth))
        << Name(findings.answers[k][i]);
  }
  out << std::setprecision(2);
  for (std::size_t k = 0; k < survey.structures.size(); ++k) {
    out << std::setw(Width(survey.structures[k].id, kHeightWidth)) << findings.heights[k][i];
  }
  for (std::size_t k = 0; k < survey.searches.size(); ++k) {
    out << std::setw(Width(survey.searches[k].id, kReachWidth));
    if (findings.reaches[k][i]) {
      out << *findings.reaches[k][i];
    } else {
      out << '-';
    }
  }
  out << '\n';
}

}  // namespace

std::string Name(Answer answer) {
  switch (answer) {
    case Answer::kInside:
      return "inside";
    case Answer::kOnBoundary:
      return "boundary";
    case Answer::kOutside:
      break;
  }
  return "outside";
}

int Count(const std::vector<Answer>& answers, Answer wanted) {
  return static_cast<int>(std::count(answers.begin(), answers.end(), wanted));
}

bool IsReached(const std::optional<double>& reach) { return reach && *reach <= 1; }

int CountReached(const std::vector<std::optional<double>>& reaches) {
  return static_cast<int>(std::count_if(reaches.begin(), reaches.end(), IsReached));
}

void PrintTable(std::ostream& out, const Survey& survey, const Findings& findings) {
  const int idWidth = IdWidth(survey.collars);
  out << std::fixed;
  PrintHead(out, survey, idWidth);
  for (std::size_t i = 0; i < survey.collars.size(); ++i) {
    PrintRow(out, survey, findings, idWidth, i);
  }
}

void PrintSummary(std::ostream& out, const Survey& survey, const Findings& findings) {
  out << std::fixed << std::setprecision(3);
  out << survey.collars.size() << " collars\n";
  for (std::size_t k = 0; k < survey.outlines.size(); ++k) {
    const std::vector<Answer>& answers = findings.answers[k];
    out << "  " << survey.outlines[k].GetName() << ": " << Count(answers, Answer::kInside)
        << " inside, " << Count(answers, Answer::kOnBoundary) << " on the boundary, "
        << Count(answers, Answer::kOutside) << " outside\n";
  }
  for (std::size_t k = 0; k < survey.searches.size(); ++k) {
    const auto& reaches = findings.reaches[k];
    const auto candidates = std::count_if(reaches.begin(), reaches.end(),
                                          [](const auto& reach) { return reach.has_value(); });
    out << "  " << survey.searches[k].id << ": " << CountReached(reaches) << " within reach, of "
        << candidates << " candidates\n";
  }
  out << "  enclosing circle: centre " << findings.circle.x << ", " << findings.circle.y
      << ", radius " << findings.circle.radius << '\n';
}

}  // namespace survey
