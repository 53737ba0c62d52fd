#include "scan/PatternSet.h"

#include <algorithm>
#include <map>

#include "core/Text.h"

namespace scan {

namespace {

constexpr std::size_t kTableEntries = 256 * 1024;

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

  // A state's number grows with its distance from the start.
  std::vector<State> order{kStart}, number(children.size());
  order.reserve(children.size());
  for (State at = 0; at < order.size(); ++at) {
    number[order[at]] = at;
    for (auto [letter, to] : children[order[at]]) order.push_back(to);
  }

  nodes_.assign(children.size(), Node{});
  for (State at = 0; at < nodes_.size(); ++at) {
    Node& node = nodes_[at];
    const auto& ends = ending[order[at]];
    node.firstEdge = static_cast<std::uint32_t>(edges_.size());
    for (auto [letter, to] : children[order[at]]) edges_.push_back({letter, number[to]});
    node.endEdge = static_cast<std::uint32_t>(edges_.size());
    node.firstPattern = static_cast<std::uint32_t>(ended_.size());
    ended_.insert(ended_.end(), ends.begin(), ends.end());
    node.endPattern = static_cast<std::uint32_t>(ended_.size());
    node.ends = !ends.empty();
  }

  NumberClasses();
  table_.clear();
  tableStates_ = 0;
  // A node's fail node lies nearer to the start, and is complete by then.
  for (State at = 0; at < nodes_.size(); ++at) {
    const Node& node = nodes_[at];
    if (table_.size() + classCount_ <= kTableEntries || at == kStart) AddTableRow(at);
    for (std::uint32_t e = node.firstEdge; e < node.endEdge; ++e) {
      Node& child = nodes_[edges_[e].to];
      child.fail = at == kStart ? kStart : Next(node.fail, edges_[e].letter);
      child.ends = child.ends || nodes_[child.fail].ends;
    }
  }
}

void PatternSet::NumberClasses() {
  classes_ = {};
  classCount_ = 1;
  for (const Edge& edge : edges_)
    if (classes_[edge.letter] == 0) classes_[edge.letter] = static_cast<std::uint8_t>(classCount_++);
  for (unsigned char capital = 'A'; capital <= 'Z'; ++capital) classes_[capital] = classes_[Lower(capital)];
}

// What follows the state on each class: as from its fail node, but for its own edges.
void PatternSet::AddTableRow(State state) {
  const Node& node = nodes_[state];
  table_.resize(table_.size() + classCount_, kStart);
  auto row = table_.end() - classCount_;
  if (state != kStart) std::copy_n(table_.begin() + node.fail * classCount_, classCount_, row);
  for (std::uint32_t e = node.firstEdge; e < node.endEdge; ++e)
    row[classes_[edges_[e].letter]] = edges_[e].to;
  ++tableStates_;
}

PatternSet::State PatternSet::NextByEdge(State state, unsigned char letter) const {
  letter = Lower(letter);
  while (state >= tableStates_) {
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
  return Next(state, letter);
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
