// Where records go.
#ifndef VORNIK_LOG_DESTINATION_H
#define VORNIK_LOG_DESTINATION_H

#include "LogSettings.h"

namespace Vornik {

// May be written to by several threads at once. Shared by the current setting and the records that
// are under way, and destroyed when the last of them releases it.
class Destination {
 public:
  Destination() = default;
  virtual ~Destination() = default;
  Destination(const Destination&) = delete;
  Destination& operator=(const Destination&) = delete;

  // Throws what the medium or the host's function throws, unless the record is already counted as
  // lost.
  virtual void Write(const LogRecord& record) = 0;
};

}  // namespace Vornik

#endif  // VORNIK_LOG_DESTINATION_H
