#include "repository_generator.h"

#include <fmt/format.h>

#include <fstream>

#include "package_paths.h"

namespace Vornik::Benchmarks {

namespace {

std::string FileNameOf(std::size_t number) { return CodeOf(number) + ".xml"; }

std::string PayloadOf(std::size_t number) { return CodeOf(number) + ".exe"; }

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary);
  out << bytes;
}

}  // namespace

std::string CodeOf(std::size_t number) { return fmt::format("orx_drv_package_{:06}", number); }

SupXmlProperties PropertiesOf(std::size_t number) {
  const std::size_t family = number / packagesPerFamily;
  const std::size_t version = number % packagesPerFamily;
  const auto one = [](const char* name, std::string value) {
    return SupXmlProperty{name, "string", {std::move(value)}};
  };
  const auto list = [](const char* name, std::vector<std::string> values) {
    return SupXmlProperty{name, "string", std::move(values)};
  };
  SupXmlProperties properties{
      one("identificationCode", CodeOf(number)),
      one("xmlFilename", FileNameOf(number)),
      one("payload", PayloadOf(number)),
      one("buildNumber", fmt::format("build {}", number)),
      one("description", fmt::format("Driver of family {}. {}", family, std::string(900, 'd'))),
      one("updateSelection", "true"),
      one("rebootRequired", "false"),
      one("severity", "2"),
      one("category", fmt::format("Driver family {}", family)),
      one("type", std::to_string(number % 5)),
      one("Version", fmt::format("{}.{}", version + 1, number % 10)),
      list("driverFiles", {fmt::format("family{}.sys-#{}.0", family, version + 1),
                           fmt::format("package{}.dll-#{}.0", number, version + 1)}),
      list("driverFilesClassification", {"kernel", "library"}),
      list("applicableDeviceId", {"PCI\\VEN_0001&DEV_0001", "PCI\\VEN_0001&DEV_0002"}),
      list("orderedMachineTypeList", {"5678", "1234", "1235"}),
      list("orderedOSList", {"11", "10", "10"}),
      list("orderedOSArchitectureList", {"9", "9", "9"}),
      list("preReq", {}),
      list("coReq", {}),
  };
  if (version > 0) properties.push_back(list("supersede", {CodeOf(number - 1)}));
  return properties;
}

std::string DescriptorOf(std::size_t number) {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<CIM>\n"
      "<INSTANCE CLASSNAME=\"ORXQDL_SystemUpdateElement\">\n";
  for (const SupXmlProperty& property : PropertiesOf(number)) {
    std::string values;
    for (std::string value : property.values) {
      for (std::size_t at = 0; (at = value.find('&', at)) != std::string::npos; ++at) {
        value.replace(at, 1, "&amp;");
      }
      values += fmt::format("      <VALUE>{}</VALUE>\n", value);
    }
    text += fmt::format(
        "  <PROPERTY.ARRAY NAME=\"{}\" TYPE=\"{}\">\n    <VALUE.ARRAY>\n{}    "
        "</VALUE.ARRAY>\n  </PROPERTY.ARRAY>\n",
        property.name, property.type, values);
  }
  return text + "</INSTANCE>\n</CIM>\n";
}

void WriteRepository(const std::string& folder, std::size_t packages) {
  for (std::size_t i = 0; i < packages; ++i) {
    WriteFile(PathInFolder(folder, FileNameOf(i)), DescriptorOf(i));
    WriteFile(PathInFolder(folder, PayloadOf(i)), "payload");
  }
}

}  // namespace Vornik::Benchmarks
