#include "scan/PatternSet.h"

#include <algorithm>
#include <map>

#include "core/Text.h"

namespace scan {

namespace {

constexpr unsigned char Lower(unsigned char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + 32) : c;
}

}  // namespace

void PatternSet::Add(std::string_view pattern) {
  patterns_.push_back(core::Fold(pattern));
}

void PatternSet::Prepare() {
  // The tree of all patterns, with its nodes in the order of their making.
  std::vector<std::map<unsigned char, State>> children(1);
  std::vector<std::vector<int>> ending(1);
  for (std::size_t number = 0; number < patterns_.size(); ++number) {
    State at = kStart;
    for (unsigned char letter : patterns_[number]) {
      auto [place, made] = children[at].try_emplace(letter, static_cast<State>(children.size()));
      at = place->second;
      if (made) {
        children.emplace_back();
        ending.emplace_back();
      }
    }
    ending[at].push_back(static_cast<int>(number));
  }

  nodes_.assign(children.size(), Node{});
  for (State at = 0; at < nodes_.size(); ++at) {
    Node& node = nodes_[at];
    node.firstEdge = static_cast<std::uint32_t>(edges_.size());
    for (auto [letter, to] : children[at]) edges_.push_back({letter, to});
    node.endEdge = static_cast<std::uint32_t>(edges_.size());
    node.firstPattern = static_cast<std::uint32_t>(ended_.size());
    ended_.insert(ended_.end(), ending[at].begin(), ending[at].end());
    node.endPattern = static_cast<std::uint32_t>(ended_.size());
    node.ends = !ending[at].empty();
  }
  for (int letter = 0; letter < 256; ++letter) {
    auto found = children[kStart].find(Lower(static_cast<unsigned char>(letter)));
    fromStart_[static_cast<std::size_t>(letter)] = found == children[kStart].end() ? kStart : found->second;
  }

  // Breadth first: a node's fail node lies nearer to the start, and is complete by then.
  std::vector<State> order;
  order.reserve(nodes_.size());
  for (auto [letter, to] : children[kStart]) order.push_back(to);
  for (std::size_t i = 0; i < order.size(); ++i) {
    const Node& node = nodes_[order[i]];
    for (std::uint32_t e = node.firstEdge; e < node.endEdge; ++e) {
      Node& child = nodes_[edges_[e].to];
      child.fail = Next(node.fail, edges_[e].letter);
      child.ends = child.ends || nodes_[child.fail].ends;
      order.push_back(edges_[e].to);
    }
  }
}

PatternSet::State PatternSet::Next(State state, unsigned char letter) const {
  letter = Lower(letter);
  while (state != kStart) {
    const Node& node = nodes_[state];
    const Edge* first = edges_.data() + node.firstEdge;
    const Edge* last = edges_.data() + node.endEdge;
    if (last - first > 8)
      first = std::lower_bound(first, last, letter,
                               [](const Edge& edge, unsigned char c) { return edge.letter < c; });
    while (first != last && first->letter != letter) ++first;
    if (first != last) return first->to;
    state = node.fail;
  }
  return fromStart_[letter];
}

std::string_view PatternSet::Plain(std::string_view text, std::string& room) {
  if (core::IsAscii(text)) return text;
  room = core::Fold(text);
  return room;
}

bool PatternSet::Finds(State& state, std::string_view piece) const {
  if (patterns_.empty()) return false;
  std::string folded;
  for (char letter : Plain(piece, folded)) {
    state = Next(state, static_cast<unsigned char>(letter));
    if (nodes_[state].ends) return true;
  }
  return false;
}

}  // namespace scan
