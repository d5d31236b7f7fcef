#include "inspection/dropped_ampersands.h"

#include <utility>

#include "reading/cimxml.h"
#include "reading/xml_walk.h"

namespace Vornik {

namespace {

class AmpersandWalk final : public XmlWalk {
 public:
  AmpersandWalk(const std::string& text, std::size_t maxCount, DroppedAmpersands& dropped)
      : XmlWalk(text.data(), {}), positions_(text), maxCount_(maxCount), dropped_(dropped) {}

 private:
  void ReportDropped(const char* ampersand) override {
    ++dropped_.count;
    if (dropped_.first.size() == maxCount_) return;
    dropped_.first.push_back(positions_.Of(OffsetOf(ampersand)));
  }

  // Of the whole text: the walk may go on after its end, as TinyXML does.
  TextPositions positions_;
  std::size_t maxCount_;
  DroppedAmpersands& dropped_;
};

}  // namespace

DroppedAmpersands FindDroppedAmpersands(std::string bytes, std::size_t maxCount) {
  const PreparedXml xml = PrepareXml(std::move(bytes));
  DroppedAmpersands dropped;
  AmpersandWalk(xml.text, maxCount, dropped).Run();
  return dropped;
}

}  // namespace Vornik
