// The stored file filters, prepared for matching many names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/CountedList.h"
#include "scan/PatternSet.h"

namespace scan {

// A filter that holds a dot matches a name that equals it, or whose extension contains the filter without its
// first character; any other filter matches a name that contains it. All without regard to case; wildcards
// mean nothing. An empty filter, which no page lets in, matches nothing: it would be found in every name.
class FilterSet {
 public:
  explicit FilterSet(const platform::CountedList& filters);

  // Fills `hits` with the numbers (from 0, in stored order) of the filters that match a file name.
  void Match(std::string_view name, std::vector<int>& hits) const;
  const std::string& Filter(int number) const { return filters_[static_cast<std::size_t>(number)]; }

  // One filter against one name, with this extension.
  static bool Matches(std::string_view filter, std::string_view name, std::string_view extension);

 private:
  std::vector<std::string> filters_;
  // Filters with a dot stand in both sets, those without in the first.
  PatternSet inName_, inExtension_;
  struct NamePattern {
    int filter;
    bool whole;  // counts only where it is the whole name
  };
  std::vector<NamePattern> namePatterns_;
  std::vector<int> extensionFilters_;
  // Filters of which nothing is left without the first character: any extension will do.
  std::vector<int> anyExtension_;
};

// The extension of a file name, without its dot.
std::string_view ExtensionOf(std::string_view name);

}  // namespace scan
