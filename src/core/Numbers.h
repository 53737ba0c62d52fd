// Numbers from text and text from numbers, as the settings and the screens hold them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace core {

// Blanks around the number are allowed. Raises 13 "Type mismatch" for an empty text and for one that is no
// number.
double ToNumber(std::string_view text);
// Rounded to a whole number, a half to the even one. Raises 13, and 6 "Overflow" beyond 16 bits.
std::int16_t ToInteger(std::string_view text);
// "True" and "False" in any case; otherwise a number, which is True unless it is 0. Raises 13.
bool ToBoolean(std::string_view text);
// A setting's "= 1": its text, read as a number, equals 1. Raises 13.
bool IsOne(std::string_view text);

// "True" or "False".
std::string BooleanText(bool value);
// The shortest decimal text of at most 15 significant digits.
std::string NumberText(double value);
// The format "#0": a whole number, a half rounded away from zero.
std::string WholeText(double value);
// step x 100 / maximum in the format "#0", followed by "%". A maximum of 0 counts as nothing done.
std::string PercentText(double step, double maximum);
// To the nearest whole number, a half to the even one.
double RoundHalfEven(double value);

}  // namespace core
