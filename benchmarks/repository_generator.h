// Large repositories for benchmarks: drivers in families of versions that share a driver file, each
// descriptor some 4 KB long.
#ifndef VORNIK_BENCHMARKS_REPOSITORY_GENERATOR_H
#define VORNIK_BENCHMARKS_REPOSITORY_GENERATOR_H

#include <cstddef>
#include <string>
#include <vector>

#include "properties.h"

namespace Vornik::Benchmarks {

inline constexpr std::size_t packagesPerFamily = 4;

// The identification code of a package.
std::string CodeOf(std::size_t number);

// The properties of a package, as reading its descriptor gives them.
SupXmlProperties PropertiesOf(std::size_t number);

// Its descriptor.
std::string DescriptorOf(std::size_t number);

// Writes that many descriptors, and a payload for each, into an existing folder.
void WriteRepository(const std::string& folder, std::size_t packages);

}  // namespace Vornik::Benchmarks

#endif  // VORNIK_BENCHMARKS_REPOSITORY_GENERATOR_H
