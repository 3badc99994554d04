#include "csv_reader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "survey_data.h"

namespace survey {
namespace {

std::string ErrorOf(const std::function<void()>& read) {
  try {
    read();
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(CsvReader, SaysWhichLineIsAtFaultAndWhy) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "t: has no line of column names \"id,x,y\""},
      {"A,1,2\n", "t:1: expected the column names \"id,x,y\", found \"A,1,2\""},
      {"\n# y and x\nid,y,x\n", "t:3: expected the column names \"id,x,y\", found \"id,y,x\""},
      {"id,x,y\nA,1,2\n\n# a remark\nB,1\n", "t:5: expected 3 fields, found 2"},
      {"id,x,y\nA,1,2\n,1,2\n", "t:3: the id is empty"},
      {"id,x,y\nA,,2\n", "t:2: x is not a number: \"\""},
      {"id,x,y\nA,1,2m\n", "t:2: y is not a number: \"2m\""},
      {"id,x,y\nA,nan,2\n", "t:2: x is not finite: \"nan\""},
      {"id,x,y\nA,1,-inf\n", "t:2: y is not finite: \"-inf\""},
      {"id,x,y\nA,1,1e999\n", "t:2: y does not fit a double: \"1e999\""},
  };
  for (const auto& [text, error] : cases) {
    std::istringstream in(text);
    EXPECT_EQ(ErrorOf([&] { ReadCsv(in, "t", "id,x,y"); }), error) << text;
  }
}

// A byte order mark, carriage returns, blanks round fields and no end to the last line: what
// spreadsheets write.
TEST(CsvReader, ReadsWhatSpreadsheetsWrite) {
  std::istringstream in(
      "\xEF\xBB\xBFid, x ,y\r\n\r\n# remark\r\n DH 1 ,450000.125,-2e3\r\nB,\t0,7");
  const std::vector<CsvRow> rows = ReadCsv(in, "t", "id,x,y");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_TRUE(rows[0].line == 4 && rows[0].id == "DH 1" && rows[1].line == 5);
  EXPECT_EQ(rows[0].numbers, (std::vector<double>{450000.125, -2000}));
  EXPECT_EQ(rows[1].numbers, (std::vector<double>{0, 7}));
}

// A file of the test's own name, as tests may run at once.
std::string FileOf(const std::string& text) {
  const std::string path = testing::TempDir() + "survey_" +
                           testing::UnitTest::GetInstance()->current_test_info()->name() + ".csv";
  std::ofstream(path) << text;
  return path;
}

TEST(SurveyData, RefusesWhatIsNoSurvey) {
  const auto expectFault = [](auto& read, const char* text, const std::string& fault) {
    const std::string path = FileOf(text);
    EXPECT_EQ(ErrorOf([&] { read(path); }), path + fault);
  };
  expectFault(ReadCollars, "id,x,y,z\n", ": holds no collar");
  expectFault(ReadCollars, "id,x,y,z\nA,1,2,3\nB,1,2,3\nA,4,5,6\n",
              ":4: id \"A\" already stands in line 2");
  expectFault(ReadOutline, "x,y,z\n1,1,0\n2,1,0\n1,1,0\n",
              ": an outline needs three corners, found 2");
  expectFault(ReadStructures, "id,x,y,z,strike,dip\nF,0,0,0,10,90\nG,0,0,0,10,91\n",
              ":3: dip is not between 0 and 90 degrees");
  expectFault(ReadSearches,
              "id,x,y,z,major,semi_major,minor,bearing,inclination,rotation\n"
              "S,0,0,0,9,0,1,0,0,0\n",
              ":2: a radius is not positive");
}

TEST(SurveyData, ClosesAnOutlineWhetherOrNotItsFirstCornerIsRepeated) {
  const auto open = ReadOutline(FileOf("x,y,z\n0,0,0\n1,0,0\n0,1,0\n"));
  EXPECT_TRUE(open.IsClosed() && open.Size() == 3);
  EXPECT_EQ(open, ReadOutline(FileOf("x,y,z\n0,0,0\n1,0,0\n0,1,0\n0,0,0\n")));
  EXPECT_EQ(open.GetName().substr(0, 7), "survey_");
}

}  // namespace
}  // namespace survey
