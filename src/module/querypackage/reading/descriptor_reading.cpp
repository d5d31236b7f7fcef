#include "descriptor_reading.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "cimxml.h"
#include "model/literals.h"
#include "text/paths.h"

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

enum class Step { Bytes, Limits, Document, Root, Content, None };

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
    case DescriptorFault::TooLarge:
    case DescriptorFault::NestedTooDeep:
    case DescriptorFault::TooManyAttributes:
    case DescriptorFault::TooManyDepths:
    case DescriptorFault::TooManyProperties:
    case DescriptorFault::ListsTooLarge:
    case DescriptorFault::CodeTooLong:
      return Step::Limits;
    case DescriptorFault::Empty:
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

constexpr std::size_t noInstance = static_cast<std::size_t>(-1);

bool HasOverlongCode(const SupXmlProperties& properties) {
  const std::string* code = FindPropertyValue(PropertyName::identificationCode, properties);
  return code != nullptr && code->size() > maxCodeBytes;
}

}  // namespace

bool IsOverLimit(DescriptorFault fault) { return FailingStep(fault) == Step::Limits; }

bool IsLoadFault(DescriptorFault fault) {
  return IsOverLimit(fault) || FailingStep(fault) == Step::Document;
}

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
  if (outcome.fault != DescriptorFault::None) return Fail(outcome.fault);
  if (kind == DescriptorKind::Individual) {
    properties_ = Vornik::ReadProperties(document_->Root());
    if (HasOverlongCode(properties_)) return Fail(DescriptorFault::CodeTooLong);
  }
  return true;
}

bool DescriptorReader::FindRoot() {
  if (isRead_) return FailingStep(reading_.fault) > Step::Root;
  return document_->Root() != nullptr || Fail(DescriptorFault::NoRoot);
}

bool DescriptorReader::ReadProperties() {
  if (isRead_) return FailingStep(reading_.fault) > Step::Content;
  if (properties_.empty()) return Fail(DescriptorFault::NoProperties);
  reading_.properties.push_back(std::move(properties_));
  return true;
}

bool DescriptorReader::CollectInstances() {
  if (isRead_) return FailingStep(reading_.fault) > Step::Content;
  if (!document_->CollectInstances()) return Fail(DescriptorFault::InstanceWithoutClassName);
  return !document_->Instances().empty() || Fail(DescriptorFault::NoInstances);
}

bool DescriptorReader::HasNextInstance() const { return nextInstance_ < InstanceCount(); }

std::size_t DescriptorReader::InstanceCount() const {
  if (!isRead_) return document_->Instances().size();
  return reading_.properties.size() + reading_.emptyInstances.size() +
         reading_.overlongInstances.size();
}

bool DescriptorReader::ReadNextInstance() {
  const std::size_t instance = nextInstance_++;
  if (isRead_) return !IsPassedOver(instance);
  SupXmlProperties properties = document_->TakeProperties(instance);
  if (properties.empty()) {
    reading_.emptyInstances.push_back(instance);
    return false;
  }
  if (HasOverlongCode(properties) && !IsOwnInstance(instance)) {
    reading_.overlongInstances.push_back(instance);
    return false;
  }
  reading_.properties.push_back(std::move(properties));
  return true;
}

bool DescriptorReader::IsPassedOver(std::size_t instance) const {
  const auto contains = [instance](const std::vector<std::size_t>& instances) {
    return std::binary_search(instances.begin(), instances.end(), instance);
  };
  return contains(reading_.emptyInstances) || contains(reading_.overlongInstances);
}

bool DescriptorReader::IsOwnInstance(std::size_t instance) {
  if (!ownInstance_) {
    ownInstance_ = noInstance;
    for (std::size_t i = document_->Instances().size(); i-- > 0 && ownInstance_ == noInstance;) {
      const SupXmlProperties properties = document_->CopyProperties(i);
      if (!properties.empty() &&
          IsSelfInstance(path_, GetPropertyValue(PropertyName::xmlFilename, properties))) {
        ownInstance_ = i;
      }
    }
  }
  return *ownInstance_ == instance;
}

bool DescriptorReader::Fail(DescriptorFault fault) {
  reading_.fault = fault;
  return false;
}

}  // namespace Vornik
