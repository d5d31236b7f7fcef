// What a document has that looks as if it were read and is not. Only for src/inspection: this shows
// TinyXML's types.
#ifndef VORNIK_INSPECTION_UNREAD_MARKUP_H
#define VORNIK_INSPECTION_UNREAD_MARKUP_H

#include <vector>

#include "inspection/descriptor_inspection.h"
#include "reading/cimxml.h"

namespace Vornik {

// At and below the root, in document order. Instances count in a pack only: the properties of an
// individual descriptor are read wherever they are.
std::vector<UnreadMarkup> CollectUnreadMarkup(const TiXmlNode& root, DescriptorKind kind);

// The instances of an individual descriptor that contain a property, without those inside another
// one, in document order. None where there is only one.
std::vector<IndividualInstance> CollectIndividualInstances(const TiXmlNode& root);

// The nearest INSTANCE around the node that a pack's reading collects; null if there is none.
const TiXmlNode* OuterInstance(const TiXmlNode& node);

}  // namespace Vornik

#endif  // VORNIK_INSPECTION_UNREAD_MARKUP_H
