// What a fuzzing program is made of: a function that takes bytes that anybody may have written, and bytes to
// begin with.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace fuzz {

// One run. Ends the process (abort) if something has happened that must not.
void Try(std::span<const std::uint8_t> bytes);

// What the mutations begin with: `PROGRAM --write-seeds=FOLDER` writes them as files and ends.
std::vector<std::string> Seeds();

// Ends the process with a text on what must not have happened.
[[noreturn]] void Fail(const std::string& text);

}  // namespace fuzz
