// What the test program does when it runs as a child process of its own: log_tests --child MODE ...
#ifndef VORNIK_TESTS_LOG_CHILD_H
#define VORNIK_TESTS_LOG_CHILD_H

#include <string>
#include <vector>

namespace Vornik {

// Returns the exit status; 2 for arguments that name no mode.
int RunChild(const std::vector<std::string>& arguments);

// The path of this program, set by main.
extern std::string programPath;

}  // namespace Vornik

#endif  // VORNIK_TESTS_LOG_CHILD_H
