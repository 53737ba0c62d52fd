// Many texts looked for in one pass over another text, without regard to case.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scan {

// An Aho-Corasick automaton over folded bytes. A search costs the length of the text, however many patterns
// there are, and it can be carried on over the next piece of a text that comes in pieces, as long as the
// pieces part at a backslash: folding goes character by character. Memory grows with the patterns' length
// alone, but for a table of bounded size for the states near the start, where most searches are.
class PatternSet {
 public:
  // Where a search stands between two pieces; a search begins in kStart.
  using State = std::uint32_t;
  static constexpr State kStart = 0;

  // Adds a pattern, which must not be empty. Its number is the number of patterns added before.
  void Add(std::string_view pattern);
  // Makes the automaton; once, after the last Add and before the first search.
  void Prepare();
  bool Empty() const { return patterns_.empty(); }
  // Length in bytes of a pattern when folded.
  std::size_t Length(int pattern) const { return patterns_[static_cast<std::size_t>(pattern)].size(); }

  // Goes over a piece of text; `state` is moved on. True as soon as a pattern ends in the piece, with `state`
  // left anywhere.
  bool Finds(State& state, std::string_view piece) const;

  // Calls found(pattern, end) for each pattern that occurs in the text, once for each place, `end` being the
  // number of bytes of the folded text up to the end of that place. Gives the folded text's length.
  template <class Found>
  std::size_t ForEach(std::string_view text, Found found) const {
    std::string folded;
    text = Plain(text, folded);
    State state = kStart;
    for (std::size_t i = 0; i < text.size(); ++i) {
      state = Next(state, static_cast<unsigned char>(text[i]));
      const Node& node = nodes_[state];
      if (!node.ends) continue;
      for (State at = state; at != kStart; at = nodes_[at].fail)
        for (std::uint32_t n = nodes_[at].firstPattern; n < nodes_[at].endPattern; ++n)
          found(ended_[n], i + 1);
    }
    return text.size();
  }

 private:
  struct Node {
    State fail = kStart;
    std::uint32_t firstEdge = 0, endEdge = 0;        // in edges_, by rising letter
    std::uint32_t firstPattern = 0, endPattern = 0;  // in ended_: what ends exactly here
    bool ends = false;                               // a pattern ends here or at one of the fail nodes
  };
  struct Edge {
    unsigned char letter;
    State to;
  };
  // The text with folded letters; what is ASCII comes back as it is, since Next folds that itself.
  static std::string_view Plain(std::string_view text, std::string& room);
  State Next(State state, unsigned char letter) const {
    return state < tableStates_ ? table_[state * classCount_ + classes_[letter]] : NextByEdge(state, letter);
  }
  State NextByEdge(State state, unsigned char letter) const;
  void NumberClasses();
  void AddTableRow(State state);

  std::vector<std::string> patterns_;
  std::vector<Node> nodes_{1};
  std::vector<Edge> edges_;
  std::vector<int> ended_;
  // Letters that stand in patterns have classes of their own, a capital that of its small letter; all others
  // share class 0. The table has a row of them for each of the first states, and a state's number grows with
  // its distance from the start.
  std::array<std::uint8_t, 256> classes_{};
  std::uint32_t classCount_ = 1, tableStates_ = 1;
  std::vector<State> table_{kStart};
};

}  // namespace scan
