#include "commands/interrupt.h"

#include <atomic>
#include <csignal>

namespace Vornik::Cli {

namespace {

// Read by other threads, too.
std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);

}  // namespace

// The handler of a signal has C linkage.
extern "C" {
static void NoteInterrupt(int signal) {
  interrupted = true;
  static_cast<void>(std::signal(signal, SIG_DFL));
}
}

void NoteInterrupts() { static_cast<void>(std::signal(SIGINT, NoteInterrupt)); }

bool IsInterrupted() { return interrupted; }

}  // namespace Vornik::Cli
