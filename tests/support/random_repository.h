// Random packages, packs and settings of a query, from so few values that equal codes, shared
// driver files, excluded ids and the like are frequent.
#ifndef VORNIK_TESTS_RANDOM_REPOSITORY_H
#define VORNIK_TESTS_RANDOM_REPOSITORY_H

#include <string>
#include <vector>

#include "querypackageimp.h"
#include "random_pick.h"

namespace Vornik::Testing {

class RandomRepository {
 public:
  // OnDisk: values that a descriptor file gives back as they were written. InMemory: further ones,
  // such as leading blanks, zero bytes and bytes that are no text.
  enum class Values { OnDisk, InMemory };

  RandomRepository(unsigned int seed, Values values) : pick_(seed), values_(values) {}

  RandomPick& Pick() { return pick_; }

  // Names that "xmlFilename" and "payload" hold.
  void SetFileNames(std::vector<std::string> xmlFilenames, std::vector<std::string> payloads);

  // The properties of one package. A value may be empty.
  SupXmlProperties Package();

  // The properties of a pack's own instance; most packs apply to most queries.
  SupXmlProperties PackLevel();

  // Everything but the folder, the descriptors and the callback. Most settings are valid.
  void Configure(QueryPackageImp& query);

 private:
  using Texts = std::vector<std::string>;

  void Add(SupXmlProperties& properties, const std::string& name, const Texts& values);
  void AddOne(SupXmlProperties& properties, const std::string& name, const Texts& pool);
  void AddSome(SupXmlProperties& properties, const std::string& name, const Texts& pool,
               std::size_t most);
  void AddDriverFiles(SupXmlProperties& properties);
  void AddPlatforms(SupXmlProperties& properties);

  Texts Pool(Texts onDisk, const Texts& furtherInMemory) const;

  RandomPick pick_;
  Values values_;
  Texts xmlFilenames_;
  Texts payloads_;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_RANDOM_REPOSITORY_H
