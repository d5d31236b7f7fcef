// Settings of the default logging library, for hosts that use it: the threshold, and where records
// go. Nothing is read from the environment or from a file; without a call, errors go to standard
// error.
//
// Every function may be called at any time and from any thread, also while records are written and
// while static objects are destroyed. A record that is under way when the destination changes still
// goes to the former one. On a line-based destination, standard error and the file, a record is
//
//   2025-01-31 13:05:09.042 error src/module/querypackage/querypackageimp.cpp:88: OS is not set
//
// local time with milliseconds, "error", "warning" or "progress" ("level" and the number for a
// level outside 1 to 3), source file and line, text. It is always one line: in file and text a line
// feed is written \n, a backslash \\ and any other byte below 0x20 or equal to 0x7F \xNN. On
// standard error, which may be a terminal, the bytes of UTF-8 control characters (U+0080 to U+009F,
// U+2028, U+2029) and of marks that change the writing direction are written \xNN too; all other
// bytes from 0x80 stay as they are. The line is handed to the operating system before the record's
// destructor returns, so it is not lost if the process then ends abruptly.
//
// A record that cannot be written is counted and otherwise dropped: the emitting code never
// notices. Signals that POSIX systems raise for a failed write (SIGPIPE, SIGXFSZ) are the host's to
// ignore.
#ifndef VORNIK_LOGSETTINGS_H
#define VORNIK_LOGSETTINGS_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "Log.h"

namespace Vornik {

// Sets what Log::GetMinLogLevel returns: 0 nothing, 1 errors (the default), 2 warnings too, 3 and
// above everything. Emitting code checks it before it composes a message; a Log object that is
// constructed in spite of the threshold is written.
VORNIK_LOG_API void SetMinLogLevel(unsigned int level) noexcept;

// Writes records to standard error. A file that was in use is closed when the last record that is
// under way to it is written. Throws std::bad_alloc only.
VORNIK_LOG_API void LogToStandardError();

// A file that is renamed when it is full: log.txt becomes log.1.txt, log.1.txt becomes log.2.txt,
// and the oldest is removed. A file that cannot be renamed is emptied instead, so that the limit
// holds.
struct LogFile {
  std::string path;  // in the process's narrow encoding

  // Size limit of one file, not 0. A record that exceeds it gets a file of its own.
  std::size_t maxBytes = std::size_t{10} << 20;

  std::size_t maxFiles = 3;  // files kept, the current one included; 1 to 1000
};

// Writes records to a file: appended to if it exists, created along with missing folders if not.
// One process at a time may use a path. Returns false if the limits are out of range or the file
// cannot be opened: the destination stays as it was, and reason, unless null, receives a text for
// people. After a failed write the file is opened again, at most once a second; records are lost
// until that succeeds. Throws std::bad_alloc only.
VORNIK_LOG_API bool LogToFile(const LogFile& file, std::string* reason = nullptr);

// One record, as a host's own function receives it.
struct LogRecord {
  unsigned int level;     // 1 error, 2 warning, 3 progress
  const char* file;       // emitting source file; never null, empty if the record names none
  int line;               // line in that file
  std::string_view text;  // the message as it was streamed, nothing escaped; valid during the call
};

using LogFunction = std::function<void(const LogRecord&)>;

// Hands records to a copy of function, on the thread that emits them and one at a time. An empty
// function discards them.
//
// function may call everything in this library; a record that it causes itself, on its own thread,
// goes to standard error, because function is not called again before it returns. It must not wait
// for another thread that logs. What it throws is caught and the record counted as lost. After a
// replacement, threads that were on their way into it may still call it, so it has to own what it
// uses. Throws what copying function throws, and std::bad_alloc.
VORNIK_LOG_API void LogToFunction(LogFunction function);

// Records that could not be written since the process started.
VORNIK_LOG_API std::uint64_t LostLogRecords() noexcept;

}  // namespace Vornik

#endif  // VORNIK_LOGSETTINGS_H
