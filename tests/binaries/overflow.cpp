// Writes past the end of a buffer, in one of two ways that a hardened build stops.
//
//   overflow stack|fortified      ends with 0 if nothing has stopped it
#include <cstdio>
#include <cstring>

namespace {

// What is written comes from the command line, so that the compiler cannot foresee the overflow.
void WriteOverStack(std::size_t bytes) {
  char buffer[16];
  volatile char* place = buffer;
  for (std::size_t i = 0; i < bytes; ++i) place[i] = 'x';
}

void CopyIntoNeighbour(const char* text) {
  struct {
    char buffer[4];
    char neighbour[64];
  } target{};
  std::strcpy(target.buffer, text);
  std::puts(target.neighbour);
}

}  // namespace

int main(int argc, char** argv) {
  const char* way = argc == 2 ? argv[1] : "";
  const std::size_t excess = 64 * static_cast<std::size_t>(argc);
  if (std::strcmp(way, "stack") == 0) WriteOverStack(excess);
  if (std::strcmp(way, "fortified") == 0) CopyIntoNeighbour(way);
  std::puts("not stopped");
  return 0;
}
