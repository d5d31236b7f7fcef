#include "lint/checks/rings.h"

#include <algorithm>
#include <limits>

namespace Vornik::Cli {

namespace {

// Tarjan's strongly connected components, with an explicit stack in place of recursion.
class Components {
 public:
  explicit Components(const Graph& graph)
      : graph_(graph), order_(graph.size(), unseen), low_(graph.size()), isOpen_(graph.size()) {}

  std::vector<std::vector<std::size_t>> Find() {
    for (std::size_t node = 0; node < graph_.size(); ++node) {
      if (order_[node] == unseen) Walk(node);
    }
    std::sort(rings_.begin(), rings_.end());
    return std::move(rings_);
  }

 private:
  static constexpr std::size_t unseen = std::numeric_limits<std::size_t>::max();

  struct Visit {
    std::size_t node;
    std::size_t next;  // of the nodes that it leads to
  };

  void Walk(std::size_t start) {
    Enter(start);
    while (!path_.empty()) {
      Visit& visit = path_.back();
      const auto& targets = graph_[visit.node];
      if (visit.next == targets.size()) {
        Leave(visit.node);
        continue;
      }
      const std::size_t target = targets[visit.next++];
      const std::size_t node = visit.node;
      if (order_[target] == unseen) {
        Enter(target);
      } else if (isOpen_[target]) {
        low_[node] = std::min(low_[node], order_[target]);
      }
    }
  }

  void Enter(std::size_t node) {
    order_[node] = low_[node] = seen_++;
    isOpen_[node] = true;
    open_.push_back(node);
    path_.push_back({node, 0});
  }

  void Leave(std::size_t node) {
    path_.pop_back();
    if (!path_.empty()) low_[path_.back().node] = std::min(low_[path_.back().node], low_[node]);
    if (low_[node] != order_[node]) return;
    std::vector<std::size_t> component;
    while (isOpen_[node]) {
      component.push_back(open_.back());
      open_.pop_back();
      isOpen_[component.back()] = false;
    }
    std::sort(component.begin(), component.end());
    if (component.size() > 1) rings_.push_back(std::move(component));
  }

  const Graph& graph_;
  std::vector<std::size_t> order_;
  std::vector<std::size_t> low_;  // the earliest open node that each leads back to
  std::vector<bool> isOpen_;
  std::vector<std::size_t> open_;
  std::vector<Visit> path_;
  std::size_t seen_ = 0;
  std::vector<std::vector<std::size_t>> rings_;
};

}  // namespace

std::vector<std::vector<std::size_t>> FindRings(const Graph& graph) {
  return Components(graph).Find();
}

}  // namespace Vornik::Cli
