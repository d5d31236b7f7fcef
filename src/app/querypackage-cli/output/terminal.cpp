#include "output/terminal.h"

#include <cstdlib>
#include <cstring>

#ifdef _WIN32
#include <io.h>
#include <stdio.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace Vornik::Cli {

namespace {

#ifdef _WIN32
bool ShowsColour() {
  if (_isatty(_fileno(stdout)) == 0) return false;
  constexpr DWORD readSequences = 0x0004;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING
  const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(console, &mode) != 0 && SetConsoleMode(console, mode | readSequences) != 0;
}
#else
bool ShowsColour() { return isatty(STDOUT_FILENO) != 0; }
#endif

}  // namespace

bool WantsColour(ColourChoice choice) {
  if (choice == ColourChoice::Never) return false;
  const bool canShow = ShowsColour();
  if (choice == ColourChoice::Always) return true;
  const char* declined = std::getenv("NO_COLOR");
  const char* terminal = std::getenv("TERM");
  const bool isDumb = terminal != nullptr && std::strcmp(terminal, "dumb") == 0;
  return canShow && !isDumb && (declined == nullptr || *declined == '\0');
}

}  // namespace Vornik::Cli
