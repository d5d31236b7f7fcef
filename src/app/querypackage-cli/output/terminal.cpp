#include "output/terminal.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#ifdef _WIN32
#include <io.h>
#include <stdio.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
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

bool IsTerminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }

// 0: it is not known.
std::size_t ConsoleWidth() {
  CONSOLE_SCREEN_BUFFER_INFO console;
  if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &console) == 0) return 0;
  return static_cast<std::size_t>(console.srWindow.Right - console.srWindow.Left + 1);
}
#else
bool ShowsColour() { return isatty(STDOUT_FILENO) != 0; }

bool IsTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

// 0: it is not known.
std::size_t ConsoleWidth() {
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}
#endif

bool IsDumb() {
  const char* terminal = std::getenv("TERM");
  return terminal != nullptr && std::strcmp(terminal, "dumb") == 0;
}

}  // namespace

bool WantsColour(ColourChoice choice) {
  if (choice == ColourChoice::Never) return false;
  const bool canShow = ShowsColour();
  if (choice == ColourChoice::Always) return true;
  const char* declined = std::getenv("NO_COLOR");
  return canShow && !IsDumb() && (declined == nullptr || *declined == '\0');
}

std::optional<std::size_t> OutputWidth() {
  constexpr std::size_t usual = 80;
  if (!IsTerminal(stdout)) return std::nullopt;
  const std::size_t width = ConsoleWidth();
  return width == 0 ? usual : width;
}

bool ErrorsAreOnTerminal() { return IsTerminal(stderr) && !IsDumb(); }

}  // namespace Vornik::Cli
