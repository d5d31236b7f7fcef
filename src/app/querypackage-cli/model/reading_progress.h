// How far the reading of a folder is.
#ifndef VORNIK_CLI_MODEL_READING_PROGRESS_H
#define VORNIK_CLI_MODEL_READING_PROGRESS_H

#include <cstddef>
#include <functional>

namespace Vornik::Cli {

// Called after each file that is read. What it throws ends the reading.
using ReadingProgress = std::function<void(std::size_t done, std::size_t total)>;

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_READING_PROGRESS_H
