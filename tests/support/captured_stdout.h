// What is streamed to std::cout while it lives.
#ifndef VORNIK_TESTS_CAPTURED_STDOUT_H
#define VORNIK_TESTS_CAPTURED_STDOUT_H

#include <iostream>
#include <sstream>
#include <string>

namespace Vornik::Testing {

class CapturedStdout {
 public:
  CapturedStdout() : before_(std::cout.rdbuf(text_.rdbuf())) {}
  ~CapturedStdout() { std::cout.rdbuf(before_); }
  CapturedStdout(const CapturedStdout&) = delete;
  CapturedStdout& operator=(const CapturedStdout&) = delete;

  std::string Text() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::streambuf* before_;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CAPTURED_STDOUT_H
