#include "inspection/unread_markup.h"

#include <string_view>
#include <utility>

#include "inspection/xml_places.h"
#include "model/literals.h"
#include "text/letter_case.h"

namespace Vornik {

namespace {

bool IsElement(const TiXmlNode& node) { return node.ToElement() != nullptr; }

// In any case. Lengths come first: folding each name would cost.
bool Resembles(const TiXmlNode& element, std::string_view name) {
  const std::string_view text = element.ValueTStr();
  return text.size() == name.size() && (text == name || EqualByGlobalLocaleFold(text, name));
}

bool ResemblesProperty(const TiXmlNode& element) {
  return Resembles(element, Element::property) || Resembles(element, Element::propertyArray);
}

template <typename Test>
bool HasBelow(const TiXmlNode& top, Test test) {
  for (const TiXmlNode* node = &top; node != nullptr; node = NextBelow(node, &top)) {
    if (test(*node)) return true;
  }
  return false;
}

bool HasText(const TiXmlNode& top) {
  return HasBelow(top, [](const TiXmlNode& node) { return node.ToText() != nullptr; });
}

bool HasProperty(const TiXmlNode& top) {
  return HasBelow(top, [](const TiXmlNode& node) {
    return IsElement(node) &&
           (IsNamed(node, Element::property) || IsNamed(node, Element::propertyArray));
  });
}

const TiXmlNode* NextAfter(const TiXmlNode& node, const TiXmlNode& top) {
  const TiXmlNode* last = &node;
  while (last != &top && last->NextSibling() == nullptr) last = last->Parent();
  return last == &top ? nullptr : last->NextSibling();
}

// Without those inside another one.
std::vector<const TiXmlNode*> InstancesWithProperties(const TiXmlNode& root) {
  std::vector<const TiXmlNode*> nodes;
  const TiXmlNode* node = &root;
  while (node != nullptr) {
    if (!IsElement(*node) || !Resembles(*node, Element::instance)) {
      node = NextBelow(node, &root);
      continue;
    }
    if (HasProperty(*node)) nodes.push_back(node);
    node = NextAfter(*node, root);
  }
  return nodes;
}

class UnreadMarkupCollector {
 public:
  explicit UnreadMarkupCollector(DescriptorKind kind) : kind_(kind) {}

  void Visit(const TiXmlElement& element) {
    if (Resembles(element, Element::instance)) {
      VisitInstance(element);
    } else if (IsNamed(element, Element::property)) {
      VisitName(element);
      VisitProperty(element);
    } else if (IsNamed(element, Element::propertyArray)) {
      VisitName(element);
      VisitArray(element);
    } else if (ResemblesProperty(element)) {
      Add(UnreadMarkup::Kind::ElementCase, element);
    }
  }

  std::vector<UnreadMarkup> Take() { return std::move(found_); }

 private:
  void VisitInstance(const TiXmlElement& element) {
    if (kind_ != DescriptorKind::Pack || !HasProperty(element)) return;
    if (!IsNamed(element, Element::instance)) {
      Add(UnreadMarkup::Kind::InstanceCase, element);
    } else if (element.FirstAttribute() == nullptr) {
      Add(UnreadMarkup::Kind::InstanceWithoutAttributes, element);
    }
  }

  void VisitName(const TiXmlElement& property) {
    constexpr char name[] = "NAME";
    if (property.Attribute(name) == nullptr && HasText(property)) {
      Add(UnreadMarkup::Kind::PropertyUnnamed, property);
    }
  }

  void VisitProperty(const TiXmlElement& property) {
    VisitChildren(property, [this](const TiXmlElement& child) {
      if (Resembles(child, Element::valueArray)) {
        AddWithText(UnreadMarkup::Kind::ValueMisplaced, child);
      } else {
        VisitValue(child);
      }
    });
  }

  void VisitArray(const TiXmlElement& property) {
    VisitChildren(property, [this](const TiXmlElement& child) {
      if (Resembles(child, Element::value)) {
        AddWithText(UnreadMarkup::Kind::ValueMisplaced, child);
      } else if (IsNamed(child, Element::valueArray)) {
        VisitChildren(child, [this](const TiXmlElement& value) { VisitValue(value); });
      } else if (Resembles(child, Element::valueArray)) {
        AddWithText(UnreadMarkup::Kind::ElementCase, child);
      }
    });
  }

  void VisitValue(const TiXmlElement& value) {
    if (Resembles(value, Element::value) && !IsNamed(value, Element::value)) {
      AddWithText(UnreadMarkup::Kind::ElementCase, value);
    }
  }

  template <typename VisitChild>
  static void VisitChildren(const TiXmlElement& parent, VisitChild visit) {
    for (const TiXmlElement* child = parent.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
      visit(*child);
    }
  }

  void AddWithText(UnreadMarkup::Kind kind, const TiXmlElement& element) {
    if (HasText(element)) Add(kind, element);
  }

  void Add(UnreadMarkup::Kind kind, const TiXmlElement& element) {
    UnreadMarkup unread{kind, PlaceOf(element), element.Value(), {}};
    if (const TiXmlNode* outer = OuterInstance(element)) unread.outerLine = PlaceOf(*outer).line;
    found_.push_back(std::move(unread));
  }

  DescriptorKind kind_;
  std::vector<UnreadMarkup> found_;
};

}  // namespace

const TiXmlNode* OuterInstance(const TiXmlNode& node) {
  const TiXmlNode* parent = node.Parent();
  while (parent != nullptr && KindOfInstance(*parent) != InstanceKind::Collected) {
    parent = parent->Parent();
  }
  return parent;
}

std::vector<UnreadMarkup> CollectUnreadMarkup(const TiXmlNode& root, DescriptorKind kind) {
  UnreadMarkupCollector collector(kind);
  for (const TiXmlNode* node = &root; node != nullptr; node = NextBelow(node, &root)) {
    if (IsElement(*node)) collector.Visit(*node->ToElement());
  }
  return collector.Take();
}

std::vector<IndividualInstance> CollectIndividualInstances(const TiXmlNode& root) {
  const std::vector<const TiXmlNode*> nodes = InstancesWithProperties(root);
  std::vector<IndividualInstance> instances;
  if (nodes.size() < 2) return instances;
  for (const TiXmlNode* node : nodes) {
    instances.push_back(
        {PlaceOf(*node), GetPropertyValue(PropertyName::identificationCode, ReadProperties(node))});
  }
  return instances;
}

}  // namespace Vornik
