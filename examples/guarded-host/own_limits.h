// Limits that a process sets for itself.
#ifndef OWN_LIMITS_H
#define OWN_LIMITS_H

#include <cstddef>

// Allocations beyond that many bytes fail from now on. Whether the system took the limit.
bool LimitOwnMemory(std::size_t bytes);

#endif  // OWN_LIMITS_H
