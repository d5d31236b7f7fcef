#include "descriptors.h"

#include <sstream>

namespace Vornik::Testing {

namespace {

constexpr const char* header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

void WriteValues(std::ostream& out, const std::vector<std::string>& values) {
  for (const std::string& value : values) out << "<VALUE>" << EscapeXml(value) << "</VALUE>";
}

void WriteProperty(std::ostream& out, const SupXmlProperty& property, bool isArray) {
  const std::string name = EscapeXml(property.name);
  if (isArray) {
    out << "<PROPERTY.ARRAY NAME=\"" << name << "\" TYPE=\"string\"><VALUE.ARRAY>";
    WriteValues(out, property.values);
    out << "</VALUE.ARRAY></PROPERTY.ARRAY>\n";
  } else {
    out << "<PROPERTY NAME=\"" << name << "\" TYPE=\"string\">";
    WriteValues(out, property.values);
    out << "</PROPERTY>\n";
  }
}

}  // namespace

Descriptor& Descriptor::Set(const std::string& name, const std::string& value) {
  properties_.push_back({name, "string", {value}});
  isArray_.push_back(false);
  return *this;
}

Descriptor& Descriptor::Set(const std::string& name, const char* value) {
  return Set(name, std::string(value));
}

Descriptor& Descriptor::Set(const std::string& name, const std::vector<std::string>& values) {
  properties_.push_back({name, "string", values});
  isArray_.push_back(true);
  return *this;
}

Descriptor& Descriptor::Set(const std::string& name, std::initializer_list<const char*> values) {
  return Set(name, std::vector<std::string>(values.begin(), values.end()));
}

Descriptor& Descriptor::For(const std::string& machineType, const std::string& os,
                            const std::string& arch) {
  Set("orderedMachineTypeList", std::vector<std::string>{machineType});
  Set("orderedOSList", std::vector<std::string>{os});
  return Set("orderedOSArchitectureList", std::vector<std::string>{arch});
}

std::string Descriptor::Instance() const {
  std::ostringstream out;
  out << "<INSTANCE CLASSNAME=\"Package\">\n";
  for (std::size_t i = 0; i < properties_.size(); ++i) {
    WriteProperty(out, properties_[i], isArray_[i]);
  }
  out << "</INSTANCE>\n";
  return out.str();
}

std::string Descriptor::Individual() const {
  return header + ("<CIM><!-- SystemUpdateElement -->\n" + Instance()) + "</CIM>\n";
}

std::string Pack(const std::vector<Descriptor>& instances) {
  std::string text = header;
  text += "<CIM><!-- ORXQDL_SystemUpdateProduct -->\n";
  for (const Descriptor& instance : instances) text += instance.Instance();
  return text + "</CIM>\n";
}

std::string EscapeXml(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

}  // namespace Vornik::Testing
