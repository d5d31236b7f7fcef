// A child process whose time and output are limited.
#ifndef GUARDED_CHILD_H
#define GUARDED_CHILD_H

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

struct ChildEnd {
  bool inTime = false;     // false: it was ended
  bool succeeded = false;  // by its exit status
  std::string output;      // at most the bytes that were allowed
};

// Starts this program once more, with these arguments. Its standard error is that of this process.
// Throws what the process library throws when a process cannot be started.
ChildEnd RunThisProgram(const std::vector<std::string>& arguments, std::chrono::seconds limit,
                        std::size_t maxOutput);

#endif  // GUARDED_CHILD_H
