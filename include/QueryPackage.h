// querypackage: which update packages of a local descriptor folder apply to one machine.
//
// The whole public surface of the library. A host creates a QueryPackage, sets the folder, the
// machine and the query, calls RunQuery and reads one QueryPackageResult per package. No operation
// starts a thread or takes a lock, and no result refers back to the object that produced it.
//
// What a host provides:
//
// - The same compiler, C++ runtime and configuration of it as the library's: strings, vectors and
//   exceptions cross the boundary, and the host frees what the library allocates.
// - The class Vornik::Log. The target Vornik::querypackage brings the default one along, unless the
//   host's project defines its own target Vornik::Log first.
// - Sound folders, or protection from unsound ones: two mistakes in a descriptor hang or abort the
//   process. See RunQuery.
#ifndef VORNIK_QUERYPACKAGE_H
#define VORNIK_QUERYPACKAGE_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#define QUERYPACKAGE_VERSION_MAJOR 1
#define QUERYPACKAGE_VERSION_MINOR 0
#define QUERYPACKAGE_VERSION_PATCH 0
#define QUERYPACKAGE_VERSION_STRING "1.0.0"

// QUERYPACKAGE_BUILDING is set while the library itself is compiled, QUERYPACKAGE_STATIC where its
// objects are linked straight into a program (as the tests do).
#if defined(QUERYPACKAGE_STATIC)
#define QUERYPACKAGE_API
#elif defined(_WIN32)
#if defined(QUERYPACKAGE_BUILDING)
#define QUERYPACKAGE_API __declspec(dllexport)
#else
#define QUERYPACKAGE_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define QUERYPACKAGE_API __attribute__((visibility("default")))
#else
#define QUERYPACKAGE_API
#endif

namespace Vornik {

class QueryPackageImp;

// Operating-system code, compared as a number with the decimal numbers of a descriptor's
// "orderedOSList" and a pack's "applicableOperatingSystems". The codes are whatever numbers the
// repository uses: static_cast<OsValue>(10).
enum class OsValue : std::uint32_t {
  NotSet = 0,  // RunQuery refuses a query whose operating system is not set
};

// Processor-architecture code, compared as a number with a descriptor's
// "orderedOSArchitectureList".
enum class ArcValue : std::uint32_t {
  NotSet = 0,  // RunQuery refuses a query whose architecture is not set
};

// Update-type code, compared as a number with a descriptor's "type".
enum class UpdateType : std::int32_t {
  // Requested: accepts every package that has a type. On a package: matches every request.
  Any = 99,
};

// What RunQuery returns. There is no code 1.
namespace QueryCode {
inline constexpr int Completed = 0;  // the query ran to its end; the slots hold the verdicts
inline constexpr int InvalidParameter =
    2;                                  // a setting is missing or wrong; the vector is untouched
inline constexpr int FolderFailed = 3;  // the folder could not be walked; the vector is untouched
inline constexpr int NoResults = 4;     // the folder yields no package for this machine
}  // namespace QueryCode

// What a status slot of a QueryPackageResult holds.
namespace FilterStatus {
inline constexpr std::uint32_t NotEvaluated = 0;  // switched off, not reached, or data missing
inline constexpr std::uint32_t Matched = 1;       // the package passes this filter
inline constexpr std::uint32_t NotMatched = 2;    // the package fails this filter
}  // namespace FilterStatus

// Implemented by a host that wants to act between the stages of a query. The library borrows the
// object and never deletes it; an exception that leaves an operation leaves RunQuery too.
//
// An operation may call every function of the library, also of the object that runs the query: its
// setters, and RunQuery, which loads the folder once more. It must not destroy that object.
class IQueryPackageCallback {
 public:
  // Called once when the results are built, before the first filter. The host's vector, the
  // settings of the query and the locale may be changed here; later stages see the change.
  virtual void PreQueryPackage() = 0;

  // Never called by this version of the library. It keeps the order of the virtual operations.
  virtual void QueryPackageProgress() {}

  // Called once after the last filter, just before RunQuery returns QueryCode::Completed.
  virtual void PostQueryPackage() = 0;

 protected:
  IQueryPackageCallback() = default;
  IQueryPackageCallback(const IQueryPackageCallback&) = default;
  IQueryPackageCallback& operator=(const IQueryPackageCallback&) = default;
  ~IQueryPackageCallback() = default;
};

// One package that a query found. A plain value: it owns its contents, copies are deep, and the
// texts of a moved-from record are valid but unspecified. Texts are bytes as the descriptor has
// them, neither trimmed nor converted; an empty text means that the descriptor has none.
struct QueryPackageResult {
  // One driver file that the package delivers. name and version are never empty in a record that
  // a query built.
  struct DriverFile {
    std::string name;            // or the package's category, if it lists no driver files
    std::string version;         // version of that file
    std::string classification;  // empty: the descriptor has none
  };

  QUERYPACKAGE_API QueryPackageResult();
  QUERYPACKAGE_API QueryPackageResult(const QueryPackageResult& other);
  QUERYPACKAGE_API QueryPackageResult(QueryPackageResult&& other) noexcept;
  QUERYPACKAGE_API QueryPackageResult& operator=(const QueryPackageResult& other);
  QUERYPACKAGE_API QueryPackageResult& operator=(QueryPackageResult&& other) noexcept;
  QUERYPACKAGE_API ~QueryPackageResult();

  std::string packageXmlFile;      // path of the package's own descriptor
  std::string identificationCode;  // the key by which filters find the package's properties
  std::vector<DriverFile> driverFiles;
  std::string buildNumber;
  std::string description;
  std::string updateSelection;  // the descriptor's text, not a flag
  std::string rebootRequired;   // the descriptor's text, not a flag
  std::string severity;         // the descriptor's text, not a number
  std::string category;
  std::string payload;  // file name relative to the package folder
  std::string type;     // the descriptor's text; see UpdateType
  std::string Version;
  std::vector<std::string> applicableDeviceId;
  std::vector<std::string> preReq;
  std::vector<std::string> coReq;
  std::string kovuXmlFile;     // path of the pack that it is a member of; empty: none
  std::string kovuName;        // that file's name without its last extension
  std::string supersedesId;    // a package that this one replaces
  std::string supersededById;  // the package that replaces this one

  // Verdicts, each a FilterStatus.
  std::uint32_t platformFilterStatus = FilterStatus::NotEvaluated;
  std::uint32_t kovuFilterStatus = FilterStatus::NotEvaluated;
  std::uint32_t sepFilterStatus = FilterStatus::NotEvaluated;
  std::uint32_t payloadExistFilterStatus = FilterStatus::NotEvaluated;
  std::uint32_t supersedeFilterStatus = FilterStatus::NotEvaluated;
  std::uint32_t includeIdFilterStatus = FilterStatus::NotEvaluated;
  std::uint32_t excludeIdFilterStatus = FilterStatus::NotEvaluated;
  std::uint32_t updateTypeFilterStatus = FilterStatus::NotEvaluated;
};

// A query: its settings, and the descriptors that it has loaded.
//
// Setters only store copies, in any order and any number of times; the last value wins and nothing
// is checked before RunQuery. One object must be used by one thread at a time; separate objects are
// independent. An object whose inner state could not be allocated ignores every setter, and its
// RunQuery returns 0 without touching the vector.
class QueryPackage {
 public:
  QUERYPACKAGE_API QueryPackage();
  QUERYPACKAGE_API ~QueryPackage();
  QueryPackage(const QueryPackage&) = delete;
  QueryPackage& operator=(const QueryPackage&) = delete;

  // The folder of the descriptors and payloads, as a path in the process's narrow encoding.
  QUERYPACKAGE_API void SetXMLPackageFolder(const std::string& folder);

  // The machine. machineType is four decimal digits and is compared exactly: "0123" is not "123".
  QUERYPACKAGE_API void SetPlatform(OsValue osValue, ArcValue arcValue, std::string machineType);

  // Switches of four filters, all on in a new object.
  QUERYPACKAGE_API void SetKovuFilter(bool on);
  QUERYPACKAGE_API void SetSepFilter(bool on);
  QUERYPACKAGE_API void SetPayloadExistFilter(bool on);
  QUERYPACKAGE_API void SetSupersedeFilter(bool on);

  // Each list replaces the one before; an empty list switches its filter off. Ids are compared
  // whole and without regard to case, but only an id that is in both lists in the same spelling
  // makes RunQuery return QueryCode::InvalidParameter.
  QUERYPACKAGE_API void SetUpdateTypes(const std::vector<UpdateType>& updateTypes);
  QUERYPACKAGE_API void SetIncludePackageIDs(const std::vector<std::string>& packageIds);
  QUERYPACKAGE_API void SetExcludePackageIDs(const std::vector<std::string>& packageIds);

  // Borrowed: the host keeps the object alive for as long as it is set. Null removes it.
  QUERYPACKAGE_API void SetQueryCallback(IQueryPackageCallback* callback);

  // Runs the query on the calling thread and returns a QueryCode. On Completed, results has one
  // record per package. On NoResults it is untouched if no query of this object has loaded a
  // descriptor, for example because every file of the folder is broken, and empty otherwise. The
  // library keeps no reference to it. On InvalidParameter the reason also goes to standard output,
  // without a line end.
  //
  // The descriptors that a query loads stay with the object: a second query loads the folder again
  // on top of them, and the duplicate filter drops the repeats. Use a new object to read a folder
  // afresh.
  //
  // Never returns if an INSTANCE of a pack has a first attribute other than CLASSNAME, and calls
  // std::abort if a package has values of "driverFilesClassification" but fewer than of
  // "driverFiles". "querypackage-cli lint" and "querypackage-cli query" find both before a query
  // does. For folders that nobody has checked, run the query in a separate process.
  //
  // Throws no exceptions of its own. Those of the file-system library (for a folder path that it
  // cannot query), the logging library, the callback and failed allocations reach the caller, and
  // the vector is then as the interrupted stage left it.
  QUERYPACKAGE_API int RunQuery(std::vector<QueryPackageResult>& results);

 private:
  std::unique_ptr<QueryPackageImp> imp_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_H
