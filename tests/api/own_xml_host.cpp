// A host with classes of its own that are named like TinyXML's and shaped otherwise. It queries a
// folder through the shared library, and uses its own class before, during and after the query.
// Nothing of the library may come to run the host's classes, nor the other way round.
//
//   own_xml_host FOLDER     prints "undisturbed" and ends with 0
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "QueryPackage.h"

namespace {

bool ownCode = true;

// The library has come here: its objects have another size, so nothing can go on.
void CheckCaller(const char* member) {
  if (ownCode) return;
  std::printf("disturbed: the library called the host's %s\n", member);
  static_cast<void>(std::fflush(stdout));
  std::_Exit(1);
}

}  // namespace

class TiXmlNode {
 public:
  TiXmlNode() { CheckCaller("TiXmlNode::TiXmlNode"); }
  TiXmlNode(const TiXmlNode&) = delete;
  TiXmlNode& operator=(const TiXmlNode&) = delete;
  virtual ~TiXmlNode();
  virtual std::size_t Weight() const { return 1; }
  const TiXmlNode* FirstChildElement() const;
};

TiXmlNode::~TiXmlNode() { CheckCaller("TiXmlNode::~TiXmlNode"); }

const TiXmlNode* TiXmlNode::FirstChildElement() const {
  CheckCaller("TiXmlNode::FirstChildElement");
  return this;
}

class TiXmlDocument : public TiXmlNode {
 public:
  TiXmlDocument();
  ~TiXmlDocument() override;
  std::size_t Weight() const override;
  bool IsWhole() const;

 private:
  std::string name_ = "a document of the host's, with a name that needs the heap";
  std::array<unsigned long long, 64> pages_{};
};

TiXmlDocument::TiXmlDocument() {
  CheckCaller("TiXmlDocument::TiXmlDocument");
  pages_.fill(name_.size());
}

TiXmlDocument::~TiXmlDocument() { CheckCaller("TiXmlDocument::~TiXmlDocument"); }

std::size_t TiXmlDocument::Weight() const { return pages_.size() * pages_.back(); }

bool TiXmlDocument::IsWhole() const {
  return Weight() == pages_.size() * name_.size() && FirstChildElement() == this;
}

namespace {

class Callback final : public Vornik::IQueryPackageCallback {
 public:
  explicit Callback(const TiXmlDocument& document) : document_(document) {}
  void PreQueryPackage() override { Use(); }
  void PostQueryPackage() override { Use(); }

  int calls = 0;
  bool works = true;

 private:
  void Use() {
    ownCode = true;
    ++calls;
    works = works && document_.IsWhole() && TiXmlDocument().IsWhole();
    ownCode = false;
  }

  const TiXmlDocument& document_;
};

int Complain(const char* what) {
  std::printf("disturbed: %s\n", what);
  return 1;
}

int Run(const char* folder) {
  const TiXmlDocument document;
  Callback callback(document);
  std::vector<Vornik::QueryPackageResult> packages;
  int code = 0;
  {
    Vornik::QueryPackage query;
    query.SetXMLPackageFolder(folder);
    query.SetPlatform(static_cast<Vornik::OsValue>(10), static_cast<Vornik::ArcValue>(9), "1234");
    query.SetQueryCallback(&callback);
    ownCode = false;
    code = query.RunQuery(packages);
  }
  ownCode = true;

  if (code != Vornik::QueryCode::Completed) return Complain("the query did not complete");
  if (packages.size() < 15 || packages.front().identificationCode != "orx_drv_chipset_7" ||
      packages.front().Version != "7.1") {
    return Complain("the query gave other packages");
  }
  if (callback.calls != 2 || !callback.works || !document.IsWhole()) {
    return Complain("the host's own class does not work");
  }
  std::puts("undisturbed");
  return 0;
}

}  // namespace

int main(int argc, char** argv) { return argc == 2 ? Run(argv[1]) : Complain("no folder given"); }
