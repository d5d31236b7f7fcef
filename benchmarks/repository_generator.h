// Large repositories for benchmarks: drivers whose versions share a driver file, each descriptor
// some 4 KB long, and packs that list them again.
#ifndef VORNIK_BENCHMARKS_REPOSITORY_GENERATOR_H
#define VORNIK_BENCHMARKS_REPOSITORY_GENERATOR_H

#include <cstddef>
#include <string>
#include <vector>

#include "model/properties.h"

namespace Vornik::Benchmarks {

inline constexpr std::size_t packagesPerFamily = 4;

// The identification code of a package.
std::string CodeOf(std::size_t number);

// Which packages share a driver file, and how their versions differ.
enum class DriverShape {
  Families,        // packagesPerFamily versions of each driver
  Hundreds,        // 100 packages deliver each driver, each with its own version
  OneAllDistinct,  // all packages deliver one driver, each with its own version
  OneAllEqual,     // the same, all with the same version
  OneOfTen,        // the same, with ten versions
};

// The properties of a package, as read from its descriptor.
SupXmlProperties PropertiesOf(std::size_t number, DriverShape shape = DriverShape::Families);

// Its descriptor.
std::string DescriptorOf(std::size_t number, DriverShape shape = DriverShape::Families);

// Writes that many descriptors, and a payload for each, into an existing folder.
void WriteRepository(const std::string& folder, std::size_t packages,
                     DriverShape shape = DriverShape::Families);

// Writes a pack that lists the packages from first on.
void WritePack(const std::string& folder, std::size_t pack, std::size_t first,
               std::size_t packages);

}  // namespace Vornik::Benchmarks

#endif  // VORNIK_BENCHMARKS_REPOSITORY_GENERATOR_H
