#include "csv_reader.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <fstream>
#include <string_view>
#include <system_error>

namespace survey {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> Split(std::string_view line) {
  std::vector<std::string_view> fields;
  while (true) {
    const std::size_t comma = line.find(',');
    fields.push_back(Trim(line.substr(0, comma)));
    if (comma == std::string_view::npos) {
      return fields;
    }
    line.remove_prefix(comma + 1);
  }
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

// The file and the line being read, and the table the line has to fit.
struct Reader {
  const std::string& name;
  const std::vector<std::string_view> columns;
  int line = 0;

  [[noreturn]] void Fail(const std::string& reason) const { throw InputError(name, line, reason); }

  double Number(std::string_view column, std::string_view field) const {
    double value = 0;
    const char* const end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, value);
    if (error == std::errc::result_out_of_range) {
      Fail(std::string(column) + " does not fit a double: " + Quoted(field));
    }
    if (error != std::errc() || stop != end) {
      Fail(std::string(column) + " is not a number: " + Quoted(field));
    }
    if (!std::isfinite(value)) {
      Fail(std::string(column) + " is not finite: " + Quoted(field));
    }
    return value;
  }

  CsvRow Row(std::string_view text) const {
    const std::vector<std::string_view> fields = Split(text);
    if (fields.size() != columns.size()) {
      Fail("expected " + std::to_string(columns.size()) + " fields, found " +
           std::to_string(fields.size()));
    }
    CsvRow row;
    row.line = line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (columns[i] != "id") {
        row.numbers.push_back(Number(columns[i], fields[i]));
      } else if (fields[i].empty()) {
        Fail("the id is empty");
      } else {
        row.id = std::string(fields[i]);
      }
    }
    return row;
  }
};

}  // namespace

InputError::InputError(const std::string& file, int line, const std::string& reason)
    : std::runtime_error(file + ":" + std::to_string(line) + ": " + reason) {}

std::vector<CsvRow> ReadCsv(std::istream& in, const std::string& name, const std::string& columns) {
  Reader reader{name, Split(columns)};
  std::vector<CsvRow> rows;
  bool headed = false;
  std::string buffer;
  while (std::getline(in, buffer)) {
    ++reader.line;
    std::string_view text = buffer;
    if (reader.line == 1 && text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
      text.remove_prefix(kByteOrderMark.size());
    }
    text = Trim(text);
    if (text.empty() || text.front() == '#') {
      continue;
    }
    if (headed) {
      rows.push_back(reader.Row(text));
    } else if (Split(text) == reader.columns) {
      headed = true;
    } else {
      reader.Fail("expected the column names " + Quoted(columns) + ", found " + Quoted(text));
    }
  }
  if (in.bad()) {
    throw InputError(name + ": reading failed after line " + std::to_string(reader.line));
  }
  if (!headed) {
    throw InputError(name + ": has no line of column names " + Quoted(columns));
  }
  return rows;
}

std::vector<CsvRow> ReadCsvFile(const std::string& path, const std::string& columns) {
  std::ifstream in(path);
  if (!in) {
    throw InputError(path + ": cannot be opened: " + std::generic_category().message(errno));
  }
  return ReadCsv(in, path, columns);
}

}  // namespace survey
