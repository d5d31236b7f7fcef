// The statements with which the stages log. Each macro expands at the statement that logs, so that
// a record names that statement's line; the path is the same wherever this is built.
#ifndef VORNIK_QUERYPACKAGE_LOG_STATEMENT_H
#define VORNIK_QUERYPACKAGE_LOG_STATEMENT_H

#include <Log.h>

#include <iostream>

#include "log_texts.h"

// One message. The host's threshold is read first, and below it nothing of the message is
// evaluated.
#define QP_LOG(level, message)                                                               \
  do {                                                                                       \
    if (::Vornik::Log::GetMinLogLevel() >= (level)) {                                        \
      ::Vornik::Log(level, "src/module/querypackage/querypackageimp.cpp", __LINE__).Stream() \
          << message; /* NOLINT(bugprone-macro-parentheses) */                               \
    }                                                                                        \
  } while (false)

// A failed parameter check: to standard output as well, whatever the threshold is.
#define QP_REPORT(message)                                         \
  do {                                                             \
    QP_LOG(::Vornik::LogLevel::error, message);                    \
    std::cout << message; /* NOLINT(bugprone-macro-parentheses) */ \
  } while (false)

// A stage between its two lines.
#define QP_STAGE(text, stage)                           \
  do {                                                  \
    QP_LOG(::Vornik::LogLevel::progress, (text).start); \
    stage; /* NOLINT(bugprone-macro-parentheses) */     \
    QP_LOG(::Vornik::LogLevel::progress, (text).end);   \
  } while (false)

// The same for a stage whose failure ends the query: the code is returned at once.
#define QP_REQUIRED_STAGE(text, stage, failureCode)     \
  do {                                                  \
    QP_LOG(::Vornik::LogLevel::progress, (text).start); \
    if (!(stage)) return failureCode;                   \
    QP_LOG(::Vornik::LogLevel::progress, (text).end);   \
  } while (false)

// The same for a stage with a switch, which is read when the stage begins.
#define QP_SWITCHED_STAGE(text, isOn, stage)                \
  do {                                                      \
    if (isOn) {                                             \
      QP_STAGE(text, stage);                                \
    } else {                                                \
      QP_LOG(::Vornik::LogLevel::progress, (text).ignored); \
    }                                                       \
  } while (false)

#endif  // VORNIK_QUERYPACKAGE_LOG_STATEMENT_H
