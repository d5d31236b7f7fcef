#include "edits_on_disk.h"

#include <algorithm>
#include <boost/filesystem.hpp>
#include <cctype>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "descriptors.h"
#include "inspection/descriptor_inspection.h"

namespace Vornik::Testing {

namespace {

std::string TextOfFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

Descriptor DescriptorOf(const SupXmlProperties& properties) {
  Descriptor descriptor;
  for (const SupXmlProperty& property : properties) descriptor.Set(property.name, property.values);
  return descriptor;
}

void SetLast(SupXmlProperties& properties, const Cli::Edit& edit) {
  for (std::size_t i = properties.size(); i-- > 0;) {
    if (Lower(properties[i].name) != Lower(edit.property)) continue;
    if (properties[i].values != edit.before) throw std::runtime_error("other values before");
    properties[i].values = edit.after;
    return;
  }
  if (!edit.before.empty()) throw std::runtime_error("no values before");
  properties.push_back({edit.property, "string", edit.after});
}

// The last that begins at or before the line; without a line the one that was added last.
std::size_t IndexAt(const std::string& file, int line) {
  std::size_t index = 0;
  const auto packages = InspectDescriptor(file).packages;
  for (std::size_t i = 0; i < packages.size(); ++i) {
    if (packages[i].place.line <= line) index = i;
  }
  return index;
}

}  // namespace

EditsOnDisk::EditsOnDisk(const TempFolder& folder, const Cli::Edits& edits) : folder_(folder) {
  for (const Cli::Edit& edit : edits) {
    if (edit.kind == Cli::EditKind::AddFile) {
      AddFile(edit.file);
    } else if (edit.kind == Cli::EditKind::AddPackEntry) {
      InstancesOf(edit.file).push_back(edit.properties);
    } else {
      Instances& instances = InstancesOf(edit.file);
      SetLast(edit.line == 0 ? instances.back() : instances.at(IndexAt(edit.file, edit.line)),
              edit);
    }
  }
  for (const auto& [path, instances] : descriptors_) {
    const bool isPack = before_[path].find("ORXQDL_SystemUpdateProduct") != std::string::npos;
    std::vector<Descriptor> all;
    for (const SupXmlProperties& properties : instances) all.push_back(DescriptorOf(properties));
    folder_.Write(NameOf(path), isPack ? Pack(all) : all.at(0).Individual());
  }
}

EditsOnDisk::~EditsOnDisk() {
  for (const auto& [path, text] : before_) folder_.Write(NameOf(path), text);
  for (const std::string& path : added_) boost::filesystem::remove(path);
}

void EditsOnDisk::AddFile(const std::string& path) {
  if (boost::filesystem::exists(path)) throw std::runtime_error(path + " exists");
  folder_.Write(NameOf(path), "x");
  added_.push_back(path);
}

EditsOnDisk::Instances& EditsOnDisk::InstancesOf(const std::string& file) {
  const auto [known, isNew] = descriptors_.try_emplace(file);
  if (isNew) {
    before_[file] = TextOfFile(file);
    for (const PlacedPackage& package : InspectDescriptor(file).packages) {
      known->second.push_back(package.properties);
    }
  }
  return known->second;
}

std::string EditsOnDisk::NameOf(const std::string& path) const {
  return path.substr(folder_.Path().size() + 1);
}

}  // namespace Vornik::Testing
