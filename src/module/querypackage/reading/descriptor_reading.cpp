#include "descriptor_reading.h"

#include <string_view>
#include <utility>

#include "cimxml.h"

namespace Vornik {

namespace {

DescriptorFault FaultOf(FileFault fault) {
  switch (fault) {
    case FileFault::NotOpened:
      return DescriptorFault::NotOpened;
    case FileFault::IsFolder:
      return DescriptorFault::IsFolder;
    case FileFault::NotRegular:
      return DescriptorFault::NotRegular;
    case FileFault::NotRead:
      return DescriptorFault::NotRead;
    case FileFault::None:
      break;
  }
  return DescriptorFault::None;
}

DescriptorKind KindOf(const DescriptorMarkers& markers) {
  if (IsKovuText(markers)) return DescriptorKind::Pack;
  return IsIndividualText(markers) ? DescriptorKind::Individual : DescriptorKind::Neither;
}

// A document in UTF-16 begins with a byte order mark, or with '<' beside a zero byte.
bool IsUtf16(std::string_view bytes) {
  using namespace std::string_view_literals;
  const std::string_view begin = bytes.substr(0, 2);
  return begin == "\xFF\xFE"sv || begin == "\xFE\xFF"sv || begin == "<\0"sv || begin == "\0<"sv;
}

DescriptorFault FaultWithoutMarker(const std::optional<std::string>& bytes) {
  if (!bytes) return DescriptorFault::NoMarker;
  if (bytes->empty()) return DescriptorFault::Empty;
  return IsUtf16(*bytes) ? DescriptorFault::Utf16 : DescriptorFault::NoMarker;
}

}  // namespace

DescriptorReader::DescriptorReader(std::string path) : path_(std::move(path)) {}
DescriptorReader::DescriptorReader(DescriptorReader&&) noexcept = default;
DescriptorReader& DescriptorReader::operator=(DescriptorReader&&) noexcept = default;
DescriptorReader::~DescriptorReader() = default;

bool DescriptorReader::ReadBytes(boost::filesystem::file_type type, TextMode mode) {
  return Use(ReadEntry(path_, type, mode));
}

bool DescriptorReader::ReadBytes(TextMode mode) { return Use(ReadFile(path_, mode)); }

bool DescriptorReader::Use(FileReading file) {
  reading_.error = file.error;
  reading_.markers = file.markers;
  reading_.kind = KindOf(file.markers);
  bytes_ = std::move(file.bytes);
  if (file.fault != FileFault::None) return Fail(FaultOf(file.fault));
  if (reading_.kind == DescriptorKind::Neither) return Fail(FaultWithoutMarker(bytes_));
  return !file.isTooLarge || Fail(DescriptorFault::TooLarge);
}

bool DescriptorReader::ParseDocument(DescriptorKind kind, Positions positions) {
  if (!bytes_) return false;
  if (bytes_->empty()) return Fail(DescriptorFault::Empty);
  reading_.fault = DescriptorFault::None;
  document_ = std::make_unique<CimXmlDocument>();
  ParseOutcome outcome = document_->Parse(PrepareXml(*std::move(bytes_)), kind, positions);
  bytes_.reset();
  reading_.parserText = std::move(outcome.parserText);
  reading_.line = outcome.line;
  reading_.column = outcome.column;
  return outcome.fault == DescriptorFault::None || Fail(outcome.fault);
}

bool DescriptorReader::FindRoot() {
  return document_->Root() != nullptr || Fail(DescriptorFault::NoRoot);
}

bool DescriptorReader::ReadProperties() {
  SupXmlProperties properties = Vornik::ReadProperties(document_->Root());
  if (properties.empty()) return Fail(DescriptorFault::NoProperties);
  reading_.properties.push_back(std::move(properties));
  return true;
}

bool DescriptorReader::CollectInstances() {
  if (!document_->CollectInstances()) return Fail(DescriptorFault::InstanceWithoutClassName);
  return !document_->Instances().empty() || Fail(DescriptorFault::NoInstances);
}

bool DescriptorReader::HasNextInstance() const {
  return nextInstance_ < document_->Instances().size();
}

bool DescriptorReader::ReadNextInstance() {
  SupXmlProperties properties = Vornik::ReadProperties(document_->Instances()[nextInstance_++]);
  if (properties.empty()) {
    ++reading_.emptyInstances;
    return false;
  }
  reading_.properties.push_back(std::move(properties));
  return true;
}

bool DescriptorReader::Fail(DescriptorFault fault) {
  reading_.fault = fault;
  return false;
}

}  // namespace Vornik
