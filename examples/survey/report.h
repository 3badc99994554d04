#pragma once

// The table and the summary as text.

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "findings.h"
#include "survey_data.h"

namespace survey {

/// "outside", "boundary" or "inside".
std::string Name(Answer answer);

/// Number of collars with the given answer.
int Count(const std::vector<Answer>& answers, Answer wanted);

/// Whether a collar lies in the ellipsoid or on its surface.
bool IsReached(const std::optional<double>& reach);

/// Number of collars of which that holds.
int CountReached(const std::vector<std::optional<double>>& reaches);

/// A line for every collar, and a line of column names above them.
void PrintTable(std::ostream& out, const Survey& survey, const Findings& findings);

/// How many collars got which answer, what each search found, and the circle round all of them.
void PrintSummary(std::ostream& out, const Survey& survey, const Findings& findings);

}  // namespace survey
