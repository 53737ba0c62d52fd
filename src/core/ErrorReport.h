// The uniform error report, and the guard that every procedure runs its body through.
#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/Numbers.h"

namespace core {

// Where a failure happened: the form, class or module, and the procedure, as the report names them.
struct Procedure {
  const char* module;
  const char* name;
  const char* title = "Tidorra (Brasmir)...Error";
};

// Arguments are kept as references and turned into text only when a report is made.
struct Object {
  const char* type;
  std::string Line() const { return std::string("Arguments: ") + type + " "; }
};
struct Array {
  const char* name;  // with its brackets: "sFiles()"
  std::string Line() const { return std::string("Arguments: ") + name + " "; }
};
inline std::string ArgumentText(const std::string& value) {
  return value;
}
inline std::string ArgumentText(const char* value) {
  return value;
}
inline std::string ArgumentText(std::string_view value) {
  return std::string(value);
}
inline std::string ArgumentText(bool value) {
  return BooleanText(value);
}
template <class T>
requires(std::is_arithmetic_v<T> && !std::is_same_v<T, bool>) std::string ArgumentText(T value) {
  return NumberText(static_cast<double>(value));
}
template <class T>
struct Value {
  const char* name;
  const T& value;
  Value(const char* n, const T& v) : name(n), value(v) {}
  std::string Line() const { return std::string("Arguments: ") + name + " = Value " + ArgumentText(value); }
};
struct BuiltIn {
  const char* spelling = "Built in";
  std::string Line() const { return std::string("Arguments: ") + spelling + " "; }
};

template <class... A>
struct Args {
  std::tuple<A...> all;
  explicit Args(A... a) : all(std::move(a)...) {}
  std::vector<std::string> Lines() const {
    if constexpr (sizeof...(A) == 0)
      return {"Arguments: None "};
    else
      return std::apply([](const A&... a) { return std::vector<std::string>{a.Line()...}; }, all);
  }
};

// The description and number of a failure.
struct Failure {
  int number = 0;
  std::string description;
};
// Of the exception being handled; call it in a catch block.
Failure CurrentFailure();

// Shows the report. Within one run, a report that equals an earlier one in procedure and error number isn't
// shown again.
void ShowErrorReport(const Procedure& procedure, const std::vector<std::string>& arguments,
                     const Failure& failure);

// Runs `body`. If it throws, shows the report and gives the default of the body's type.
template <class Arguments, class Body>
auto Guarded(const Procedure& procedure, const Arguments& arguments, Body&& body) -> decltype(body()) {
  try {
    return body();
  } catch (...) {
    ShowErrorReport(procedure, arguments.Lines(), CurrentFailure());
  }
  if constexpr (!std::is_void_v<decltype(body())>) return {};
}

// The same, with something to do after the report.
template <class Arguments, class Body, class Afterwards>
auto Guarded(const Procedure& procedure, const Arguments& arguments, Body&& body, Afterwards&& afterwards)
    -> decltype(body()) {
  try {
    return body();
  } catch (...) {
    ShowErrorReport(procedure, arguments.Lines(), CurrentFailure());
    afterwards();
  }
  if constexpr (!std::is_void_v<decltype(body())>) return {};
}

}  // namespace core
