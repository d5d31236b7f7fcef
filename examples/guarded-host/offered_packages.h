// What the child process sends to the host, as bytes.
#ifndef OFFERED_PACKAGES_H
#define OFFERED_PACKAGES_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct OfferedPackage {
  std::string code;
  std::string version;
  std::string payload;
};

// Each text as its length, a colon and its bytes, so that it may contain anything.
std::string Encode(const std::vector<OfferedPackage>& packages);

// Nothing where the bytes are not what Encode writes: the child is trusted no more than the folder.
std::optional<std::vector<OfferedPackage>> Decode(std::string_view bytes);

#endif  // OFFERED_PACKAGES_H
