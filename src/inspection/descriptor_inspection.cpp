#include "inspection/descriptor_inspection.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "inspection/unread_markup.h"
#include "inspection/xml_places.h"
#include "model/literals.h"
#include "reading/cimxml.h"
#include "text/letter_case.h"

namespace Vornik {

namespace {

std::vector<InstanceWithoutClassName> CollectInstancesWithoutClassName(const TiXmlNode* root) {
  std::vector<InstanceWithoutClassName> found;
  for (const TiXmlNode* node = root; node != nullptr; node = NextBelow(node, root)) {
    if (KindOfInstance(*node) != InstanceKind::WithoutClassName) continue;
    found.push_back({PlaceOf(*node), node->ToElement()->FirstAttribute()->Name()});
  }
  return found;
}

std::shared_ptr<const PlacedProperty> PlacesOf(const TiXmlElement& property) {
  auto placed = std::make_shared<PlacedProperty>();
  placed->place = PlaceOf(property);
  VisitValuesOfProperty(property, [&placed](const TiXmlElement& value) {
    std::size_t texts = 0;
    VisitTexts(value, [&texts](const char*) { ++texts; });
    placed->values.push_back({PlaceOf(value), texts});
  });
  return placed;
}

// Makes the packages of one document. An element that several instances share is placed once.
class PackagePlacer {
 public:
  void Place(const std::vector<const TiXmlElement*>& elements, PlacedPackage& package) {
    for (const TiXmlElement* element : elements) {
      auto& places = known_[element];
      if (places == nullptr) places = PlacesOf(*element);
      package.places.push_back(places);
    }
  }

 private:
  std::unordered_map<const TiXmlElement*, std::shared_ptr<const PlacedProperty>> known_;
};

// The lists that were read are those of the instances that have a property, in order.
std::vector<PlacedPackage> PackagesOfPack(const CimXmlDocument& document,
                                          DescriptorReading& reading) {
  std::vector<PlacedPackage> packages;
  PackagePlacer placer;
  auto list = reading.properties.begin();
  auto overlong = reading.overlongInstances.begin();
  for (std::size_t i = 0; i < document.Instances().size(); ++i) {
    const TiXmlNode& instance = *document.Instances()[i].node;
    PlacedPackage& package = packages.emplace_back();
    package.place = PlaceOf(instance);
    package.className = instance.ToElement()->FirstAttribute()->Value();
    if (const TiXmlNode* outer = OuterInstance(instance)) package.outerLine = PlaceOf(*outer).line;
    if (overlong != reading.overlongInstances.end() && *overlong == i) {
      package.hasOverlongCode = true;
      ++overlong;
      continue;
    }
    if (list == reading.properties.end()) continue;
    placer.Place(document.ElementsOf(i), package);
    if (!package.places.empty()) package.properties = std::move(*list++);
  }
  return packages;
}

const TiXmlNode& FirstInstanceOr(const TiXmlNode& root) {
  for (const TiXmlNode* node = &root; node != nullptr; node = NextBelow(node, &root)) {
    const InstanceKind kind = KindOfInstance(*node);
    if (kind == InstanceKind::Collected) return *node;
    if (kind == InstanceKind::WithoutClassName) break;
  }
  return root;
}

PlacedPackage PackageOfIndividual(const CimXmlDocument& document, DescriptorReading& reading) {
  PlacedPackage package;
  package.place = PlaceOf(FirstInstanceOr(*document.Root()));
  package.properties = std::move(reading.properties.front());
  PackagePlacer().Place(CollectProperties(document.Root()), package);
  return package;
}

// Of the identification code that counts: the value of the last property with that name.
TextPosition PlaceOfCode(const TiXmlNode* root) {
  TextPosition place;
  for (const TiXmlElement* element : CollectProperties(root)) {
    const char* name = element->Attribute("NAME");
    if (name == nullptr || !EqualByCLibraryFold(name, PropertyName::identificationCode)) continue;
    const std::vector<PlacedValue> values = PlacesOf(*element)->values;
    const auto first = std::find_if(values.begin(), values.end(),
                                    [](const PlacedValue& value) { return value.texts != 0; });
    if (first != values.end()) place = first->place;
  }
  return place;
}

void PlaceLoadFault(const PreparedXml& xml, const DescriptorReader& reader,
                    DescriptorReading& reading) {
  if (reading.fault != DescriptorFault::CodeTooLong) return PlaceFault(xml, reading);
  const TextPosition place = PlaceOfCode(reader.Document().Root());
  reading.line = place.line;
  reading.column = place.column;
}

void ReadInstances(DescriptorReader& reader) {
  if (!reader.CollectInstances()) return;
  while (reader.HasNextInstance()) reader.ReadNextInstance();
}

// The last step, after FindRoot.
void ReadContent(DescriptorReader& reader) {
  if (reader.Reading().kind == DescriptorKind::Pack) {
    ReadInstances(reader);
  } else {
    reader.ReadProperties();
  }
}

void InspectDocument(DescriptorReader& reader, DescriptorInspection& inspection) {
  const PreparedXml xml = PrepareXml(*inspection.bytes);
  const DescriptorKind kind = reader.Reading().kind;
  const bool isParsed = reader.ParseDocument(kind, PositionsIn(xml));
  const bool hasRoot = isParsed && reader.FindRoot();
  if (hasRoot) ReadContent(reader);
  inspection.reading = reader.TakeReading();
  if (!isParsed) PlaceLoadFault(xml, reader, inspection.reading);
  if (!hasRoot) return;

  const CimXmlDocument& document = reader.Document();
  inspection.root = PlaceOf(*document.Root());
  inspection.instancesWithoutClassName = CollectInstancesWithoutClassName(document.Root());
  inspection.unreadMarkup = CollectUnreadMarkup(*document.Root(), kind);
  if (kind == DescriptorKind::Pack) {
    inspection.packages = PackagesOfPack(document, inspection.reading);
  } else if (inspection.reading.fault == DescriptorFault::None) {
    inspection.packages.push_back(PackageOfIndividual(document, inspection.reading));
    inspection.individualInstances = CollectIndividualInstances(*document.Root());
  }
  inspection.reading.properties.clear();
}

}  // namespace

DescriptorInspection InspectDescriptor(const std::string& path, TextMode mode) {
  DescriptorReader reader(path);
  const bool isDescriptor = reader.ReadBytes(mode);
  DescriptorInspection inspection;
  inspection.bytes = reader.Bytes();
  if (isDescriptor) {
    InspectDocument(reader, inspection);
  } else {
    inspection.reading = reader.TakeReading();
  }
  return inspection;
}

DescriptorReading ReadDescriptor(const std::string& path, boost::filesystem::file_type type) {
  DescriptorReader reader(path);
  if (reader.ReadBytes(type) && reader.ParseDocument(reader.Reading().kind) && reader.FindRoot()) {
    ReadContent(reader);
  }
  return reader.TakeReading();
}

std::string FaultText(const DescriptorReading& reading) {
  static_assert(XmlLimits().nesting == 1'000 && XmlLimits().attributes == 256 &&
                maxPropertyRecords == 2'000'000 && maxCodeBytes == 4'096);
  switch (reading.fault) {
    case DescriptorFault::None:
      break;
    case DescriptorFault::NotOpened:
    case DescriptorFault::IsFolder:
    case DescriptorFault::NotRegular:
    case DescriptorFault::NotRead:
      return "the file cannot be read";
    case DescriptorFault::NoMarker:
    case DescriptorFault::Utf16:
      return "the file contains no marker";
    case DescriptorFault::Empty:
      return "the document is empty";
    case DescriptorFault::TooLarge:
      return "the file has 2 GiB or more";
    case DescriptorFault::NestedTooDeep:
      return "elements are nested more than 1,000 deep";
    case DescriptorFault::TooManyAttributes:
      return "an element has more than 256 attributes";
    case DescriptorFault::TooManyDepths:
      return "too many elements are nested deep";
    case DescriptorFault::TooManyProperties:
      return "the document gives more than 2,000,000 property records";
    case DescriptorFault::ListsTooLarge:
      return "instances inside one another multiply the document's values or texts beyond the "
             "limit";
    case DescriptorFault::CodeTooLong:
      return "the identification code has more than 4,096 bytes";
    case DescriptorFault::NotWellFormed:
      return reading.parserText;
    case DescriptorFault::NoRoot:
      return "the document has no element";
    case DescriptorFault::NoProperties:
      return "the document has no property";
    case DescriptorFault::NoInstances:
      return "the pack has no INSTANCE that begins with CLASSNAME";
    case DescriptorFault::InstanceWithoutClassName:
      return "the first attribute of an INSTANCE is not CLASSNAME";
  }
  return {};
}

}  // namespace Vornik
