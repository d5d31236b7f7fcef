// The default logging library: the class through which querypackage reports what it does.
//
// A host that brings its own logging library defines a CMake target Vornik::Log with its own Log.h
// before it adds this project; this one is then not built. querypackage relies on exactly the four
// members of Log below.
#ifndef VORNIK_LOG_H
#define VORNIK_LOG_H

#include <sstream>

#if defined(VORNIK_LOG_STATIC)
#define VORNIK_LOG_API
#elif defined(_WIN32)
#if defined(VORNIK_LOG_BUILDING)
#define VORNIK_LOG_API __declspec(dllexport)
#else
#define VORNIK_LOG_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define VORNIK_LOG_API __attribute__((visibility("default")))
#else
#define VORNIK_LOG_API
#endif

// The type information of an exported class, which a host needs where it derives from it, casts to
// it or checks calls with a sanitizer. On Windows it does not come from a library.
#if defined(_WIN32)
#define VORNIK_LOG_TYPE
#else
#define VORNIK_LOG_TYPE VORNIK_LOG_API
#endif

namespace Vornik {

// One log record. It lives for one message: constructed, streamed into, destroyed; its destruction
// hands it over. Level 1 is an error, 2 a warning, 3 progress.
class VORNIK_LOG_TYPE Log {
 public:
  // file is the emitting source file and line the line in it. file is not copied: it has to outlive
  // the record, as a string literal does. Null reads as an empty name.
  VORNIK_LOG_API Log(unsigned int level, const char* file, int line);

  // Hands the record over. This library lets no exception out of it. A host's own Log may throw
  // here, and its exception then reaches the caller of RunQuery.
  VORNIK_LOG_API virtual ~Log() noexcept(false);

  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;

  // Where the message is written, piece by piece. Valid for the life of the record.
  VORNIK_LOG_API std::ostringstream& Stream();

  // The least severe level that is wanted: 0 none, 1 errors, 2 errors and warnings, 3 and above
  // everything. May be called from any thread.
  VORNIK_LOG_API static unsigned int GetMinLogLevel();

 private:
  unsigned int level_;
  const char* file_;
  int line_;
  std::ostringstream stream_;
};

}  // namespace Vornik

#endif  // VORNIK_LOG_H
