#pragma once

// The command line.

#include <stdexcept>
#include <string>
#include <vector>

namespace survey {

/// A command line that cannot be understood.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Options {
  std::string collars;
  std::vector<std::string> outlines;
  std::string structures;  // none if empty, as is the next
  std::string searches;
  std::string picture = "survey.svg";
  unsigned threads = 0;
  bool help = false;
};

/// Arguments without the program's name. Where they name no files, the options name those that the
/// program ships with; where they name no number of threads, there is one for every processor.
Options ParseOptions(const std::vector<std::string>& arguments);

extern const char* const kHelp;

}  // namespace survey
