// The one way in which the stages log.
#ifndef VORNIK_QUERYPACKAGE_LOG_STATEMENT_H
#define VORNIK_QUERYPACKAGE_LOG_STATEMENT_H

#include <Log.h>

// One message. The host's threshold is asked first, and below it nothing of the message is
// evaluated. The macro expands at the statement that logs, so that the record names that line; the
// path is the same wherever this is built.
#define QP_LOG(level, message)                                                               \
  do {                                                                                       \
    if (::Vornik::Log::GetMinLogLevel() >= (level)) {                                        \
      ::Vornik::Log(level, "src/module/querypackage/querypackageimp.cpp", __LINE__).Stream() \
          << message; /* NOLINT(bugprone-macro-parentheses) */                               \
    }                                                                                        \
  } while (false)

#endif  // VORNIK_QUERYPACKAGE_LOG_STATEMENT_H
