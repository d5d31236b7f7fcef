// spdlog's registry belongs to the process; the logging library neither fills it nor depends on it.
#include <gtest/gtest.h>
#include <spdlog/sinks/ostream_sink.h>
#include <spdlog/spdlog.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <sstream>

#include "Log.h"
#include "LogSettings.h"

namespace Vornik {
namespace {

class LogRegistry : public testing::Test {
 protected:
  void TearDown() override {
    LogToStandardError();
    SetMinLogLevel(1);
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  // Records to every destination; standard error is captured and returned.
  std::string LogEverywhere() const {
    testing::internal::CaptureStderr();
    LogToStandardError();
    Log(1, "a.cpp", 1).Stream() << "to standard error";
    EXPECT_TRUE(LogToFile({path_.string()}));
    Log(1, "a.cpp", 1).Stream() << "to the file";
    LogToFunction([](const LogRecord&) { throw 1; });
    Log(1, "a.cpp", 1).Stream() << "to the function";
    return testing::internal::GetCapturedStderr();
  }

 private:
  const std::filesystem::path path_ = testing::TempDir() + "log_registry_test.txt";
};

int RegisteredLoggers() {
  int count = 0;
  spdlog::apply_all([&count](const std::shared_ptr<spdlog::logger>&) { ++count; });
  return count;
}

TEST_F(LogRegistry, StaysEmpty) {
  LogEverywhere();
  EXPECT_EQ(RegisteredLoggers(), 0);
  EXPECT_EQ(spdlog::get("querypackage"), nullptr);
  EXPECT_EQ(spdlog::default_logger(), nullptr);
}

TEST_F(LogRegistry, BelongsToTheHost) {
  std::ostringstream hostLog;
  // The name that the library's own logger has: no clash.
  auto host = std::make_shared<spdlog::logger>(
      "querypackage", std::make_shared<spdlog::sinks::ostream_sink_mt>(hostLog));
  spdlog::register_logger(host);
  spdlog::set_level(spdlog::level::critical);
  spdlog::set_pattern("host pattern");
  SetMinLogLevel(3);

  const std::string written = LogEverywhere();
  EXPECT_NE(written.find(" error a.cpp:1: to standard error"), std::string::npos) << written;
  EXPECT_EQ(hostLog.str(), "");
  EXPECT_EQ(host->level(), spdlog::level::critical);
  EXPECT_EQ(RegisteredLoggers(), 1);
  spdlog::drop_all();
}

TEST_F(LogRegistry, MayBeShutDownBeforeTheLastRecord) {
  spdlog::shutdown();
  const std::string written = LogEverywhere();
  EXPECT_NE(written.find(" error a.cpp:1: to standard error"), std::string::npos) << written;
}

}  // namespace
}  // namespace Vornik
