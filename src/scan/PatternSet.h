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
// alone.
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
  bool Finds(std::string_view text) const {
    State state = kStart;
    return Finds(state, text);
  }

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
  State Next(State state, unsigned char letter) const;

  std::vector<std::string> patterns_;
  std::vector<Node> nodes_{1};
  std::vector<Edge> edges_;
  std::vector<int> ended_;
  std::array<State, 256> fromStart_{};
};

}  // namespace scan
