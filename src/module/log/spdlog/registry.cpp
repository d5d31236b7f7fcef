// spdlog's registry of loggers. The logging library does not use it; a test checks that it stays
// empty.
#include <spdlog/spdlog-inl.h>

#include <spdlog/details/periodic_worker-inl.h>
#include <spdlog/details/registry-inl.h>
