// Tells of every drill-hole collar of a survey where it lies, as a table and as a map.

#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "findings.h"
#include "options.h"
#include "report.h"
#include "sheet.h"
#include "survey_data.h"
#include "zyl/geometry/geom.h"

namespace survey {
namespace {

Survey ReadSurvey(const Options& options) {
  Survey survey;
  survey.collars = ReadCollars(options.collars);
  for (const std::string& path : options.outlines) {
    survey.outlines.push_back(ReadOutline(path));
  }
  if (!options.structures.empty()) {
    survey.structures = ReadStructures(options.structures);
  }
  if (!options.searches.empty()) {
    survey.searches = ReadSearches(options.searches);
  }
  return survey;
}

void WritePicture(const std::string& path, const Survey& survey, const Findings& findings) {
  std::ofstream out(path);
  WriteSheet(out, survey, findings);
  out.close();
  if (!out) {
    throw std::runtime_error(path + ": cannot be written");
  }
}

void Run(const Options& options) {
  if (options.help) {
    std::cout << kHelp;
    return;
  }
  geom_Init();
  const Survey survey = ReadSurvey(options);
  const Findings findings = Examine(survey, options.threads);
  PrintTable(std::cout, survey, findings);
  std::cout << '\n';
  PrintSummary(std::cout, survey, findings);
  WritePicture(options.picture, survey, findings);
  std::cout << "  picture: " << options.picture << '\n';
  if (!std::cout.flush()) {
    throw std::runtime_error("the table cannot be printed");
  }
}

}  // namespace
}  // namespace survey

int main(int argc, char** argv) {
  try {
    survey::Run(survey::ParseOptions(std::vector<std::string>(argv + 1, argv + argc)));
    return 0;
  } catch (const survey::UsageError& error) {
    std::cerr << "survey: " << error.what() << "\nTry --help.\n";
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "survey: " << error.what() << '\n';
    return 1;
  }
}
