// The exported record, as a host sees it.
#include <gtest/gtest.h>

#include <type_traits>

#include "QueryPackage.h"
#include "record_members.h"

namespace Vornik {
namespace {

using Testing::ForEachRecordMember;

static_assert(std::is_default_constructible_v<QueryPackageResult>);
static_assert(std::is_copy_constructible_v<QueryPackageResult>);
static_assert(std::is_copy_assignable_v<QueryPackageResult>);
static_assert(std::is_nothrow_move_constructible_v<QueryPackageResult>);
static_assert(std::is_nothrow_move_assignable_v<QueryPackageResult>);
static_assert(std::is_same_v<std::underlying_type_t<OsValue>, std::uint32_t>);
static_assert(std::is_same_v<std::underlying_type_t<ArcValue>, std::uint32_t>);
static_assert(std::is_same_v<std::underlying_type_t<UpdateType>, std::int32_t>);
static_assert(static_cast<std::int32_t>(UpdateType::Any) == 99);
static_assert(QueryCode::Completed == 0 && QueryCode::InvalidParameter == 2 &&
              QueryCode::FolderFailed == 3 && QueryCode::NoResults == 4);
static_assert(FilterStatus::NotEvaluated == 0 && FilterStatus::Matched == 1 &&
              FilterStatus::NotMatched == 2);

const std::string long0(100, 'x');

class Fill {
 public:
  void operator()(const char* /*name*/, std::string& text) const {
    text = long0 + std::to_string(++number_);
  }
  void operator()(const char* /*name*/, std::vector<std::string>& texts) const {
    texts = {long0 + std::to_string(++number_)};
  }
  void operator()(const char* /*name*/, std::vector<QueryPackageResult::DriverFile>& files) const {
    files = {{long0 + std::to_string(++number_), "version", "classification"}};
  }
  void operator()(const char* /*name*/, std::uint32_t& status) const {
    status = static_cast<std::uint32_t>(++number_);
  }

 private:
  mutable int number_ = 0;
};

class Describe {
 public:
  explicit Describe(std::vector<std::string>& out) : out_(out) {}
  void operator()(const char* /*name*/, const std::string& text) const { out_.push_back(text); }
  void operator()(const char* /*name*/, const std::vector<std::string>& texts) const {
    out_.push_back(testing::PrintToString(texts));
  }
  void operator()(const char* /*name*/,
                  const std::vector<QueryPackageResult::DriverFile>& files) const {
    std::string text;
    for (const auto& file : files) {
      text.append(file.name)
          .append("|")
          .append(file.version)
          .append("|")
          .append(file.classification);
    }
    out_.push_back(text);
  }
  void operator()(const char* /*name*/, std::uint32_t status) const {
    out_.push_back(std::to_string(status));
  }

 private:
  std::vector<std::string>& out_;
};

std::vector<std::string> Contents(const QueryPackageResult& record) {
  std::vector<std::string> contents;
  ForEachRecordMember(record, Describe(contents));
  return contents;
}

QueryPackageResult FilledRecord() {
  QueryPackageResult record;
  ForEachRecordMember(record, Fill());
  return record;
}

TEST(Record, DefaultIsEmptyAndNotEvaluated) {
  std::vector<std::string> expected(19, "");
  for (const int list : {12, 13, 14}) expected[static_cast<std::size_t>(list)] = "{}";
  expected.resize(27, "0");
  EXPECT_EQ(Contents(QueryPackageResult()), expected);
}

TEST(Record, MembersAreInTheOrderOfTheirDeclaration) {
  QueryPackageResult record;
  const char* last = nullptr;
  ForEachRecordMember(record, [&](const char* name, auto& member) {
    const char* address = reinterpret_cast<const char*>(&member);
    EXPECT_TRUE(last == nullptr || last < address) << name;
    last = address;
  });
}

TEST(Record, CopiesAreDeepAndComplete) {
  QueryPackageResult original = FilledRecord();
  const auto contents = Contents(original);
  QueryPackageResult copy(original);
  QueryPackageResult assigned;
  EXPECT_EQ(&(assigned = original), &assigned);
  original = QueryPackageResult();
  EXPECT_EQ(Contents(copy), contents);
  EXPECT_EQ(Contents(assigned), contents);
}

TEST(Record, CopyOntoItselfChangesNothing) {
  QueryPackageResult record = FilledRecord();
  const auto contents = Contents(record);
  const QueryPackageResult& same = record;
  record = same;
  EXPECT_EQ(Contents(record), contents);
}

TEST(Record, MovesTakeTheTextsWithoutCopyingThem) {
  QueryPackageResult original = FilledRecord();
  const auto contents = Contents(original);
  const void* text = original.identificationCode.data();
  const void* file = original.driverFiles.data();
  QueryPackageResult moved(std::move(original));
  EXPECT_EQ(moved.identificationCode.data(), text);
  EXPECT_EQ(moved.driverFiles.data(), file);
  QueryPackageResult assigned;
  assigned = std::move(moved);
  EXPECT_EQ(assigned.identificationCode.data(), text);
  EXPECT_EQ(Contents(assigned), contents);
}

TEST(Record, GrowingVectorMovesItsRecords) {
  std::vector<QueryPackageResult> records(1, FilledRecord());
  const void* text = records[0].description.data();
  records.reserve(records.capacity() + 1);
  EXPECT_EQ(records[0].description.data(), text);
}

TEST(VersionMacros, AgreeWithOneAnother) {
  EXPECT_EQ(std::string(QUERYPACKAGE_VERSION_STRING),
            std::to_string(QUERYPACKAGE_VERSION_MAJOR) + "." +
                std::to_string(QUERYPACKAGE_VERSION_MINOR) + "." +
                std::to_string(QUERYPACKAGE_VERSION_PATCH));
}

}  // namespace
}  // namespace Vornik
