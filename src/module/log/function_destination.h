// A destination that is a function of the host's own.
#ifndef VORNIK_LOG_FUNCTION_DESTINATION_H
#define VORNIK_LOG_FUNCTION_DESTINATION_H

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

#include "destination.h"

namespace Vornik {

class FunctionDestination final : public Destination {
 public:
  // nested, not null, receives the records that function itself causes.
  FunctionDestination(LogFunction function, std::shared_ptr<Destination> nested);

  void Write(const LogRecord& record) override;

 private:
  const LogFunction function_;
  const std::shared_ptr<Destination> nested_;
  std::mutex mutex_;
  std::atomic<std::thread::id> caller_{};  // the thread inside function_, or no thread
};

}  // namespace Vornik

#endif  // VORNIK_LOG_FUNCTION_DESTINATION_H
