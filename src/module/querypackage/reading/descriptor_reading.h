// What a query reads of one file of the package folder: its kind, its property lists, and why it
// adds nothing.
//
//   "<!-- SystemUpdateElement --><PROPERTY NAME='x'/>"  =>  Individual, one list of one property
//   "<!-- SystemUpdateElement --><a>"                   =>  Individual, NotWellFormed
//   "<a/>"                                              =>  Neither, NoMarker
//
// A stage logs what it is about to do before each step, so that the last line of a log names the
// file at which a process was killed or waits. So the reader takes one step at a time.
#ifndef VORNIK_QUERYPACKAGE_READING_DESCRIPTOR_READING_H
#define VORNIK_QUERYPACKAGE_READING_DESCRIPTOR_READING_H

#include <boost/filesystem/file_status.hpp>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "descriptor_files.h"
#include "descriptor_markers.h"
#include "model/properties.h"

namespace Vornik {

class CimXmlDocument;

// Most property records that one document may yield; nested instances multiply them.
inline constexpr std::size_t maxPropertyRecords = 2'000'000;

// What the lists of a pack with nested instances may contain: so many values, or so many for each
// value of the document, whichever is more; and so many bytes of text for each byte of it.
inline constexpr std::size_t maxListValues = 2'000'000;
inline constexpr std::size_t maxListValuesPerValue = 4;
inline constexpr std::size_t maxListBytesPerByte = 16;

// Most bytes of an identification code: records contain the codes of others.
inline constexpr std::size_t maxCodeBytes = 4'096;

enum class DescriptorKind { Neither, Individual, Pack };

// Why a file adds nothing to a query. Stages only distinguish the steps that fail; the rest is for
// tools.
enum class DescriptorFault {
  None,
  // The file is not read. See FileFault.
  NotOpened,
  IsFolder,
  NotRegular,
  NotRead,
  // It is neither a pack nor an individual descriptor.
  NoMarker,
  Utf16,  // no marker, since the text is in UTF-16
  // The document does not load.
  Empty,
  TooLarge,           // over maxFileSize
  NestedTooDeep,      // over the limits of xml_limits.h
  TooManyAttributes,  // over the limits of xml_limits.h
  TooManyDepths,      // over the limits of xml_limits.h
  TooManyProperties,  // over maxPropertyRecords
  ListsTooLarge,      // nested instances multiply values or texts over their limits
  CodeTooLong,        // the identification code of an individual descriptor, over maxCodeBytes
  NotWellFormed,      // see parserText
  // The document contains nothing to read.
  NoRoot,
  NoProperties,
  NoInstances,
  InstanceWithoutClassName,  // its first attribute is not CLASSNAME
};

// Why a document does not load, as opposed to one that contains nothing to read.
bool IsLoadFault(DescriptorFault fault);

// Of these, why one is refused that a parser would take.
bool IsOverLimit(DescriptorFault fault);

struct DescriptorReading {
  DescriptorMarkers markers;
  DescriptorKind kind = DescriptorKind::Neither;
  DescriptorFault fault = DescriptorFault::None;
  int error = 0;           // NotOpened, NotRead: errno; 0: not known
  std::string parserText;  // NotWellFormed: TinyXML's reason
  int line = 0;            // where the fault is, counted from 1; 0: not known, as in every query
  int column = 0;          // the same

  // One list for an individual descriptor; one for each instance of a pack that has properties.
  std::vector<SupXmlProperties> properties;

  // Of a pack: the instances that are passed over, without a property or with an identification
  // code over maxCodeBytes; each as its index among all.
  std::vector<std::size_t> emptyInstances;
  std::vector<std::size_t> overlongInstances;
};

// A query needs no position, and tracking them costs.
enum class Positions { Ignored, Tracked };

class DescriptorReader {
 public:
  explicit DescriptorReader(std::string path);

  // Takes the steps of a reading again, without the file: ParseDocument as the reading's own kind.
  // There is no document then.
  DescriptorReader(std::string path, DescriptorReading reading);

  DescriptorReader(DescriptorReader&&) noexcept;
  DescriptorReader& operator=(DescriptorReader&&) noexcept;
  ~DescriptorReader();

  const std::string& Path() const { return path_; }
  const DescriptorReading& Reading() const { return reading_; }
  DescriptorReading TakeReading() { return std::move(reading_); }

  // Each step returns whether there is something for the next one; otherwise Reading().fault says
  // why not.

  // Reads the file and finds its kind. type is what the folder's listing says of it.
  bool ReadBytes(boost::filesystem::file_type type, TextMode mode = nativeTextMode);
  bool ReadBytes(TextMode mode = nativeTextMode);

  // Parses what was read, as a document of a kind whatever the file's own kind is. Positions can be
  // tracked only in a text that does not end inside a character.
  bool ParseDocument(DescriptorKind kind, Positions positions = Positions::Ignored);

  // The first child of the document that is an element.
  bool FindRoot();

  // Of an individual descriptor: every property of the document, in its order.
  bool ReadProperties();

  // Of a pack: every INSTANCE whose first attribute is CLASSNAME, in the document's order. One
  // without attributes is passed over.
  bool CollectInstances();

  // The properties of the next instance. Call it while there are instances left. The pack's own
  // instance, the last one of several, may have a code of any length: it never becomes a record.
  bool ReadNextInstance();
  bool HasNextInstance() const;

  // For src/inspection. The bytes are there until the document is parsed.
  const std::optional<std::string>& Bytes() const { return bytes_; }
  const CimXmlDocument& Document() const { return *document_; }

 private:
  bool Use(FileReading file);
  bool Fail(DescriptorFault fault);
  std::size_t InstanceCount() const;
  bool IsPassedOver(std::size_t instance) const;
  bool IsOwnInstance(std::size_t instance);

  std::string path_;
  std::optional<std::string> bytes_;
  std::unique_ptr<CimXmlDocument> document_;
  SupXmlProperties properties_;  // of an individual descriptor, until they are in reading_
  std::size_t nextInstance_ = 0;
  std::optional<std::size_t> ownInstance_;  // sought when it matters; noInstance: there is none
  DescriptorReading reading_;
  bool isRead_ = false;  // reading_ is complete from the start
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_READING_DESCRIPTOR_READING_H
