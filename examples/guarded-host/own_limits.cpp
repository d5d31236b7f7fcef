#include "own_limits.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/resource.h>
#endif

bool LimitOwnMemory(std::size_t bytes) {
#ifdef _WIN32
  // The job lives as long as the process, so nobody closes it.
  const HANDLE job = CreateJobObjectW(nullptr, nullptr);
  if (job == nullptr) return false;
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_PROCESS_MEMORY;
  limits.ProcessMemoryLimit = bytes;
  return SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits) !=
             0 &&
         AssignProcessToJobObject(job, GetCurrentProcess()) != 0;
#else
  const rlimit memory{bytes, bytes};
  const rlimit noCore{0, 0};  // an abort is expected here, and no reason for a dump
  return ::setrlimit(RLIMIT_CORE, &noCore) == 0 && ::setrlimit(RLIMIT_AS, &memory) == 0;
#endif
}
