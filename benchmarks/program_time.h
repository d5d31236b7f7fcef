// The processor time of a program that is run as a process of its own.
#ifndef VORNIK_BENCHMARKS_PROGRAM_TIME_H
#define VORNIK_BENCHMARKS_PROGRAM_TIME_H

#include <string>
#include <vector>

namespace Vornik::Benchmarks {

// In seconds, the kernel's part included. What the program writes to standard output is thrown
// away. Throws std::runtime_error if it does not start or ends with another status than 0.
double ProcessorTimeOf(const std::vector<std::string>& command);

}  // namespace Vornik::Benchmarks

#endif  // VORNIK_BENCHMARKS_PROGRAM_TIME_H
