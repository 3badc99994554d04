#include "options.h"

#include <algorithm>
#include <charconv>
#include <thread>

namespace survey {
namespace {

const std::string kShippedData = SURVEY_DATA_DIR;
constexpr unsigned kMostThreads = 256;

unsigned ParseThreads(const std::string& text) {
  unsigned threads = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, threads);
  if (error != std::errc() || stop != end || threads < 1 || threads > kMostThreads) {
    throw UsageError("--threads takes a number from 1 to " + std::to_string(kMostThreads) +
                     ", not \"" + text + "\"");
  }
  return threads;
}

// The value that follows option *at, to which `at` moves on.
const std::string& ValueAfter(std::vector<std::string>::const_iterator& at,
                              std::vector<std::string>::const_iterator end) {
  const std::string& option = *at;
  if (++at == end) {
    throw UsageError(option + " needs a value");
  }
  return *at;
}

void TakeFiles(Options& options, const std::vector<std::string>& files) {
  if (files.size() == 1) {
    throw UsageError("an outline is needed beside the collars");
  }
  if (!files.empty()) {
    options.collars = files.front();
    options.outlines.assign(files.begin() + 1, files.end());
    return;
  }
  options.collars = kShippedData + "/collars.csv";
  options.outlines = {kShippedData + "/lease.csv", kShippedData + "/ore.csv"};
  if (options.structures.empty()) {
    options.structures = kShippedData + "/structures.csv";
  }
  if (options.searches.empty()) {
    options.searches = kShippedData + "/searches.csv";
  }
}

}  // namespace

const char* const kHelp =
    "usage: survey [OPTION...] [COLLARS OUTLINE...]\n"
    "\n"
    "Tells of every drill-hole collar whether it lies inside, outside or exactly on the\n"
    "boundary of each outline, prints a table and draws a map. Without files it works on\n"
    "the survey that it ships with.\n"
    "\n"
    "  COLLARS            table with the columns id,x,y,z\n"
    "  OUTLINE            table with the columns x,y,z: the corners of one ring in order\n"
    "  --structures FILE  table with the columns id,x,y,z,strike,dip (degrees)\n"
    "  --searches FILE    table with the columns id,x,y,z,major,semi_major,minor,\n"
    "                     bearing,inclination,rotation (metres, degrees)\n"
    "  --svg FILE         where to draw the map (survey.svg)\n"
    "  --threads N        how many threads work (one for every processor)\n"
    "  --help             print this\n"
    "\n"
    "Tables are comma-separated, their first line names the columns, and lines that begin\n"
    "with # are passed over. Exit status: 0 done, 1 a file is at fault (said with the number\n"
    "of the line), 2 the command line is.\n";

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  options.threads = std::clamp(std::thread::hardware_concurrency(), 1u, kMostThreads);
  std::vector<std::string> files;
  for (auto at = arguments.begin(); at != arguments.end(); ++at) {
    if (*at == "--help") {
      options.help = true;
    } else if (*at == "--structures") {
      options.structures = ValueAfter(at, arguments.end());
    } else if (*at == "--searches") {
      options.searches = ValueAfter(at, arguments.end());
    } else if (*at == "--svg") {
      options.picture = ValueAfter(at, arguments.end());
    } else if (*at == "--threads") {
      options.threads = ParseThreads(ValueAfter(at, arguments.end()));
    } else if (at->rfind("-", 0) == 0) {
      throw UsageError("no such option: " + *at);
    } else {
      files.push_back(*at);
    }
  }
  if (!options.help) {
    TakeFiles(options, files);
  }
  return options;
}

}  // namespace survey
