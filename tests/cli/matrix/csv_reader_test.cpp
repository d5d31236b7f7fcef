#include "matrix/csv_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;

// Each record as LINE: its fields in brackets, or what is wrong.
std::vector<std::string> RecordsOf(const std::string& text) {
  std::istringstream stream(text);
  Cli::CsvReader reader(stream);
  std::vector<std::string> records;
  for (Cli::CsvRecord record; reader.Next(record);) {
    std::string one = std::to_string(record.line) + ": ";
    if (record.fault != nullptr) {
      one += record.fault;
    } else {
      for (const std::string& field : record.fields) one += '[' + field + ']';
    }
    records.push_back(one);
  }
  return records;
}

TEST(CsvReader, ReadsFields) {
  EXPECT_THAT(RecordsOf("a,b\n1,2\n"), ElementsAre("1: [a][b]", "2: [1][2]"));
  EXPECT_THAT(RecordsOf("a,b\r\n1,2"), ElementsAre("1: [a][b]", "2: [1][2]"));
  EXPECT_THAT(RecordsOf(",\n"), ElementsAre("1: [][]"));
  EXPECT_THAT(RecordsOf(" a , b\n"), ElementsAre("1: [ a ][ b]"));
  EXPECT_THAT(RecordsOf(""), ElementsAre());
}

TEST(CsvReader, ReadsQuotedFields) {
  EXPECT_THAT(RecordsOf("\"a,b\",\"c\"\"d\"\r\n"), ElementsAre("1: [a,b][c\"d]"));
  EXPECT_THAT(RecordsOf("\"\",\"\"\"\"\n"), ElementsAre("1: [][\"]"));
  EXPECT_THAT(RecordsOf("\"a\r\nb\nc\",d\ne"), ElementsAre("1: [a\r\nb\nc][d]", "4: [e]"));
  EXPECT_THAT(RecordsOf("\"a\n\nb\""), ElementsAre("1: [a\n\nb]"));
}

TEST(CsvReader, PassesEmptyLinesAndTheByteOrderMarkOver) {
  EXPECT_THAT(RecordsOf("\xEF\xBB\xBF\"a\"\n\n\r\nb\n"), ElementsAre("1: [a]", "4: [b]"));
  EXPECT_THAT(RecordsOf("a\n\xEF\xBB\xBF"
                        "b\n"),
              ElementsAre("1: [a]",
                          "2: [\xEF\xBB\xBF"
                          "b]"));
}

TEST(CsvReader, FaultCostsOneLine) {
  EXPECT_THAT(RecordsOf("a\"b\nc\n"),
              ElementsAre("1: a quotation mark is inside a field", "2: [c]"));
  EXPECT_THAT(RecordsOf("\"a\"b\nc\n"),
              ElementsAre("1: text follows the quotation mark that ends a field", "2: [c]"));
  EXPECT_THAT(RecordsOf("a,\"b\nc\nd"),
              ElementsAre("1: a quotation mark is not closed", "2: [c]", "3: [d]"));
  EXPECT_THAT(RecordsOf("\"a\nb\"c\nd\n"),
              ElementsAre("1: text follows the quotation mark that ends a field",
                          "2: a quotation mark is inside a field", "3: [d]"));
}

}  // namespace
}  // namespace Vornik::Testing
