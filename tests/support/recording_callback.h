// The host's callback in tests.
#ifndef VORNIK_TESTS_RECORDING_CALLBACK_H
#define VORNIK_TESTS_RECORDING_CALLBACK_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "QueryPackage.h"

namespace Vornik::Testing {

// Records its calls, and lets a test act in them.
class RecordingCallback final : public IQueryPackageCallback {
 public:
  RecordingCallback() = default;
  explicit RecordingCallback(std::function<void()> atPre) : pre(std::move(atPre)) {}
  ~RecordingCallback() {
    if (onDestruction) onDestruction();
  }
  RecordingCallback(const RecordingCallback&) = delete;
  RecordingCallback& operator=(const RecordingCallback&) = delete;

  void PreQueryPackage() override {
    calls.emplace_back("pre");
    if (pre) pre();
  }
  void QueryPackageProgress() override { calls.emplace_back("progress"); }
  void PostQueryPackage() override {
    calls.emplace_back("post");
    if (post) post();
  }

  std::function<void()> pre;
  std::function<void()> post;
  std::function<void()> onDestruction;
  std::vector<std::string> calls;  // "pre", "progress" and "post", in the order of the calls
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_RECORDING_CALLBACK_H
