#include "scan/FilterSet.h"

#include <algorithm>

#include "core/Text.h"

namespace scan {

namespace {

// The filter without its first character, as it is looked for in an extension. Where that character isn't the
// dot, a dot is in the rest, and no extension holds one.
std::string_view WithoutFirst(std::string_view filter) {
  return filter.substr(1);
}

bool HasDot(std::string_view filter) {
  return filter.find('.') != filter.npos;
}

}  // namespace

std::string_view ExtensionOf(std::string_view name) {
  std::size_t dot = name.rfind('.');
  return dot == name.npos ? std::string_view() : name.substr(dot + 1);
}

FilterSet::FilterSet(const platform::CountedList& filters) {
  for (int i = 0; i < filters.UpperBound(); ++i) {
    const std::string& filter = filters_.emplace_back(filters[i]);
    if (filter.empty()) continue;
    inName_.Add(filter);
    namePatterns_.push_back({i, HasDot(filter)});
    if (!HasDot(filter)) continue;
    std::string_view part = WithoutFirst(filter);
    if (part.empty()) {
      anyExtension_.push_back(i);
    } else {
      inExtension_.Add(part);
      extensionFilters_.push_back(i);
    }
  }
  inName_.Prepare();
  inExtension_.Prepare();
}

void FilterSet::Match(std::string_view name, std::vector<int>& hits) const {
  hits.clear();
  std::string_view extension = ExtensionOf(name);
  bool wholeNames = false;
  std::size_t length = inName_.ForEach(name, [&](int pattern, std::size_t end) {
    const NamePattern& found = namePatterns_[static_cast<std::size_t>(pattern)];
    if (!found.whole)
      hits.push_back(found.filter);
    else if (end == inName_.Length(pattern))
      wholeNames = true;
  });
  // Whether such a filter is the whole name shows only at the end.
  if (wholeNames)
    inName_.ForEach(name, [&](int pattern, std::size_t end) {
      const NamePattern& found = namePatterns_[static_cast<std::size_t>(pattern)];
      if (found.whole && end == length && inName_.Length(pattern) == length) hits.push_back(found.filter);
    });
  if (!extension.empty()) {
    inExtension_.ForEach(extension, [&](int pattern, std::size_t) {
      hits.push_back(extensionFilters_[static_cast<std::size_t>(pattern)]);
    });
    hits.insert(hits.end(), anyExtension_.begin(), anyExtension_.end());
  }
  if (hits.size() < 2) return;
  std::sort(hits.begin(), hits.end());
  hits.erase(std::unique(hits.begin(), hits.end()), hits.end());
}

bool FilterSet::Matches(std::string_view filter, std::string_view name, std::string_view extension) {
  if (filter.empty()) return false;
  if (!HasDot(filter)) return core::Contains(name, filter);
  return core::Equals(name, filter) || core::Contains(extension, WithoutFirst(filter));
}

}  // namespace scan
