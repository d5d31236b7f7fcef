// What the child process does.
#ifndef CHILD_QUERY_H
#define CHILD_QUERY_H

#include <cstddef>
#include <string>

struct Limits {
  unsigned int seconds = 10;
  std::size_t mebibytes = 512;  // of memory; 0: as many as there are
};

// Queries the folder, writes the packages that may be installed to standard output as Encode does,
// and returns the exit status: 0 only if all of them were written.
int QueryInChild(const Limits& limits, const std::string& folder, const std::string& machineType);

#endif  // CHILD_QUERY_H
