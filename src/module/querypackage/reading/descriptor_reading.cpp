#include "descriptor_reading.h"

#include <algorithm>
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

enum class Step { Bytes, Document, Root, Content, None };

// The step that a fault ends.
Step FailingStep(DescriptorFault fault) {
  switch (fault) {
    case DescriptorFault::NotOpened:
    case DescriptorFault::IsFolder:
    case DescriptorFault::NotRegular:
    case DescriptorFault::NotRead:
    case DescriptorFault::NoMarker:
    case DescriptorFault::Utf16:
      return Step::Bytes;
    case DescriptorFault::Empty:
    case DescriptorFault::TooLarge:
    case DescriptorFault::NestedTooDeep:
    case DescriptorFault::TooManyAttributes:
    case DescriptorFault::TooManyProperties:
    case DescriptorFault::NotWellFormed:
      return Step::Document;
    case DescriptorFault::NoRoot:
      return Step::Root;
    case DescriptorFault::NoProperties:
    case DescriptorFault::NoInstances:
    case DescriptorFault::InstanceWithoutClassName:
      return Step::Content;
    case DescriptorFault::None:
      break;
  }
  return Step::None;
}

}  // namespace

bool IsLoadFault(DescriptorFault fault) { return FailingStep(fault) == Step::Document; }

DescriptorReader::DescriptorReader(std::string path) : path_(std::move(path)) {}
DescriptorReader::DescriptorReader(std::string path, DescriptorReading reading)
    : path_(std::move(path)), reading_(std::move(reading)), isRead_(true) {}
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
  if (isRead_) return FailingStep(reading_.fault) > Step::Document;
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
  if (isRead_) return FailingStep(reading_.fault) > Step::Root;
  return document_->Root() != nullptr || Fail(DescriptorFault::NoRoot);
}

bool DescriptorReader::ReadProperties() {
  if (isRead_) return FailingStep(reading_.fault) > Step::Content;
  SupXmlProperties properties = Vornik::ReadProperties(document_->Root());
  if (properties.empty()) return Fail(DescriptorFault::NoProperties);
  reading_.properties.push_back(std::move(properties));
  return true;
}

bool DescriptorReader::CollectInstances() {
  if (isRead_) return FailingStep(reading_.fault) > Step::Content;
  if (!document_->CollectInstances()) return Fail(DescriptorFault::InstanceWithoutClassName);
  return !document_->Instances().empty() || Fail(DescriptorFault::NoInstances);
}

bool DescriptorReader::HasNextInstance() const { return nextInstance_ < InstanceCount(); }

std::size_t DescriptorReader::InstanceCount() const {
  return isRead_ ? reading_.properties.size() + reading_.emptyInstances.size()
                 : document_->Instances().size();
}

bool DescriptorReader::ReadNextInstance() {
  const std::size_t index = nextInstance_++;
  std::vector<std::size_t>& empty = reading_.emptyInstances;
  if (isRead_) return !std::binary_search(empty.begin(), empty.end(), index);
  SupXmlProperties properties = Vornik::ReadProperties(document_->Instances()[index]);
  if (properties.empty()) {
    empty.push_back(index);
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
