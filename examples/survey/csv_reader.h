#pragma once

// Reads tables of comma-separated numbers, and says where a file is at fault.
//
// The first line names the columns; empty lines and lines that begin with '#' are passed over. A
// column called "id" is text, every other one a finite number. Fields are not quoted.

#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace survey {

/// An input file that cannot be used; what() reads "file:line: reason" or "file: reason".
class InputError : public std::runtime_error {
 public:
  explicit InputError(const std::string& message) : std::runtime_error(message) {}
  InputError(const std::string& file, int line, const std::string& reason);
};

struct CsvRow {
  int line = 0;                 // in the file, the first being 1
  std::string id;               // empty in a table without an id column
  std::vector<double> numbers;  // the other columns, in their order
};

/// Reads a table whose columns must be exactly `columns`, as in "id,x,y,z". `name` is what errors
/// call the file. Throws InputError at the first fault.
std::vector<CsvRow> ReadCsv(std::istream& in, const std::string& name, const std::string& columns);

/// The same from the file at `path`.
std::vector<CsvRow> ReadCsvFile(const std::string& path, const std::string& columns);

}  // namespace survey
