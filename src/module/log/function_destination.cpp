#include "function_destination.h"

#include <utility>

namespace Vornik {
namespace {

// Names the calling thread for the time of one call, however the call ends.
class CallerMark {
 public:
  CallerMark(std::atomic<std::thread::id>& caller, std::thread::id self) : caller_(caller) {
    caller_.store(self);
  }
  ~CallerMark() { caller_.store(std::thread::id()); }
  CallerMark(const CallerMark&) = delete;
  CallerMark& operator=(const CallerMark&) = delete;

 private:
  std::atomic<std::thread::id>& caller_;
};

}  // namespace

FunctionDestination::FunctionDestination(LogFunction function, std::shared_ptr<Destination> nested)
    : function_(std::move(function)), nested_(std::move(nested)) {}

void FunctionDestination::Write(const LogRecord& record) {
  if (!function_) return;
  // Without the lock: only this thread can have stored its own id.
  const std::thread::id self = std::this_thread::get_id();
  if (caller_.load() == self) {
    nested_->Write(record);
    return;
  }
  const std::lock_guard<std::mutex> lock(mutex_);
  const CallerMark mark(caller_, self);
  function_(record);
}

}  // namespace Vornik
