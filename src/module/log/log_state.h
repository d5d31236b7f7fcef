// What the whole process shares: the threshold, the current destination, the count of lost records.
#ifndef VORNIK_LOG_LOG_STATE_H
#define VORNIK_LOG_LOG_STATE_H

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

#include "destination.h"

namespace Vornik {

// Constant-initialised and without a destructor, so that both can be used at any time.
inline std::atomic<unsigned int> minLogLevel{1};
inline std::atomic<std::uint64_t> lostRecords{0};

inline void CountLostRecord() noexcept { lostRecords.fetch_add(1, std::memory_order_relaxed); }

class LogState {
 public:
  // Built at first use and never destroyed: destructors of static objects still log through it.
  static LogState& Instance();

  std::shared_ptr<Destination> Current();
  void Replace(std::shared_ptr<Destination> destination);

  // Shared by everything that writes to standard error.
  const std::shared_ptr<Destination>& StandardError() const { return standardError_; }

 private:
  LogState();

  const std::shared_ptr<Destination> standardError_;
  std::mutex mutex_;
  std::shared_ptr<Destination> current_;
};

}  // namespace Vornik

#endif  // VORNIK_LOG_LOG_STATE_H
