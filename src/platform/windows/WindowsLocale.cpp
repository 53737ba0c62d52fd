#include "platform/windows/WindowsLocale.h"

#include <algorithm>
#include <windows.h>

#include "platform/Dates.h"
#include "platform/windows/WindowsText.h"

namespace platform {

namespace {

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::wstring Told(LCTYPE what) {
  wchar_t text[256];
  int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, what, text, 256);
  return length > 0 ? std::wstring(text, static_cast<std::size_t>(length - 1)) : std::wstring();
}

bool IsGregorian() {
  DWORD calendar = CAL_GREGORIAN;
  GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_ICALENDARTYPE | LOCALE_RETURN_NUMBER,
                  reinterpret_cast<wchar_t*>(&calendar), sizeof calendar / sizeof(wchar_t));
  return calendar == CAL_GREGORIAN || calendar == CAL_GREGORIAN_US ||
         (calendar >= CAL_GREGORIAN_ME_FRENCH && calendar <= CAL_GREGORIAN_XLIT_FRENCH);
}

std::wstring DatePattern() {
  std::wstring pattern = IsGregorian() ? Told(LOCALE_SSHORTDATE) : std::wstring();
  return pattern.empty() ? L"yyyy-MM-dd" : pattern;
}

// A year of two digits lies in the hundred years up to the last one that the user has set.
int WholeYear(int year) {
  DWORD last = 2049;
  GetCalendarInfoEx(LOCALE_NAME_USER_DEFAULT, CAL_GREGORIAN, nullptr,
                    CAL_ITWODIGITYEARMAX | CAL_RETURN_NUMBER, nullptr, 0, &last);
  int whole = static_cast<int>(last) / 100 * 100 + year;
  return whole > static_cast<int>(last) ? whole - 100 : whole;
}

bool StartsWith(std::wstring_view text, std::wstring_view name) {
  if (name.empty() || text.size() < name.size()) return false;
  return CompareStringEx(LOCALE_NAME_USER_DEFAULT, NORM_IGNORECASE, text.data(),
                         static_cast<int>(name.size()), name.data(), static_cast<int>(name.size()), nullptr,
                         nullptr, 0) == CSTR_EQUAL;
}

// Reads a text by a pattern of the system's date forms.
class DateReader {
 public:
  DateReader(std::wstring_view pattern, std::wstring_view text) : pattern_(pattern), text_(text) {}

  std::optional<DateTime> Read() {
    while (!pattern_.empty())
      if (!TakePart()) return std::nullopt;
    return text_.empty() && IsDay(date_) ? std::optional(date_) : std::nullopt;
  }

 private:
  bool TakePart() {
    wchar_t letter = pattern_.front();
    if (letter == L'\'') return TakeQuoted();
    if (letter != L'd' && letter != L'M' && letter != L'y' && letter != L'g') return TakeText(letter);
    std::size_t count = std::min(pattern_.find_first_not_of(letter), pattern_.size());
    pattern_.remove_prefix(count);
    if (letter == L'd') return count > 2 ? TakeName(count, kDays) >= 0 : (date_.day = TakeNumber(1, 2)) >= 0;
    if (letter == L'M') return (date_.month = count > 2 ? TakeName(count, kMonths) : TakeNumber(1, 2)) >= 0;
    if (letter == L'g') return true;  // the era, which isn't written for this calendar
    date_.year = count > 2 ? TakeNumber(4, 4) : TakeNumber(1, 2);
    if (count <= 2 && date_.year >= 0) date_.year = WholeYear(date_.year);
    return date_.year >= 0;
  }

  bool TakeText(wchar_t c) {
    pattern_.remove_prefix(1);
    if (text_.empty() || text_.front() != c) return false;
    text_.remove_prefix(1);
    return true;
  }

  bool TakeQuoted() {
    pattern_.remove_prefix(1);
    while (!pattern_.empty() && pattern_.front() != L'\'')
      if (!TakeText(pattern_.front())) return false;
    if (!pattern_.empty()) pattern_.remove_prefix(1);
    return true;
  }

  // -1 if there are fewer digits.
  int TakeNumber(std::size_t least, std::size_t most) {
    int number = 0;
    std::size_t digits = 0;
    while (digits < most && digits < text_.size() && text_[digits] >= L'0' && text_[digits] <= L'9')
      number = number * 10 + (text_[digits++] - L'0');
    if (digits < least) return -1;
    text_.remove_prefix(digits);
    return number;
  }

  struct Names {
    int count;
    LCTYPE brief, whole;
  };
  static constexpr Names kDays{7, LOCALE_SABBREVDAYNAME1, LOCALE_SDAYNAME1};
  static constexpr Names kMonths{12, LOCALE_SABBREVMONTHNAME1, LOCALE_SMONTHNAME1};

  // The number of the name from 1 on; -1 if none is there. The longest goes first ("Mar" and "March").
  int TakeName(std::size_t letters, const Names& names) {
    int found = -1;
    std::size_t length = 0;
    for (int i = 0; i < names.count; ++i) {
      auto step = static_cast<LCTYPE>(i);
      for (LCTYPE what :
           {letters == 3 ? names.brief + step : names.whole + step,
            (letters == 3 ? names.brief + step : names.whole + step) | LOCALE_RETURN_GENITIVE_NAMES}) {
        std::wstring name = Told(what);
        if (name.size() <= length || !StartsWith(text_, name)) continue;
        found = i + 1;
        length = name.size();
      }
    }
    if (found >= 0) text_.remove_prefix(length);
    return found;
  }

  std::wstring_view pattern_, text_;
  DateTime date_;
};

SYSTEMTIME SystemTimeOf(const DateTime& time) {
  SYSTEMTIME system{};
  system.wYear = static_cast<WORD>(time.year);
  system.wMonth = static_cast<WORD>(time.month);
  system.wDay = static_cast<WORD>(time.day);
  system.wHour = static_cast<WORD>(time.hour);
  system.wMinute = static_cast<WORD>(time.minute);
  system.wSecond = static_cast<WORD>(time.second);
  return system;
}

}  // namespace

WindowsLocale::WindowsLocale() : folded_(std::make_unique<std::array<wchar_t, 0x10000>>()) {
  std::array<wchar_t, 0x10000>& table = *folded_;
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<wchar_t>(i);
  auto map = [](DWORD flags, std::wstring text) {
    std::wstring mapped(text.size(), L'\0');
    int size = static_cast<int>(text.size());
    bool good = LCMapStringEx(LOCALE_NAME_INVARIANT, flags, text.data(), size, mapped.data(), size, nullptr,
                              nullptr, 0) == size;
    return good ? mapped : text;
  };
  // Without the halves of pairs, in two pieces. By way of the capital, so that letters with two small forms
  // (the two sigmas) meet.
  for (auto [begin, end] : {std::pair<std::size_t, std::size_t>{1, 0xD800}, {0xE000, 0x10000}}) {
    std::wstring small = map(LCMAP_LOWERCASE, map(LCMAP_UPPERCASE, std::wstring(&table[begin], end - begin)));
    for (std::size_t i = begin; i < end; ++i)
      if (i < 0x80 || small[i - begin] >= 0x80) table[i] = small[i - begin];
  }
}

std::string WindowsLocale::ShortDate(const DateTime& date) {
  SYSTEMTIME time = SystemTimeOf(date);
  wchar_t text[256];
  std::wstring pattern = DatePattern();
  return GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &time, pattern.c_str(), text, 256, nullptr)
             ? ToUtf8(text)
             : std::string();
}

std::string WindowsLocale::LongTime(const DateTime& date) {
  SYSTEMTIME time = SystemTimeOf(date);
  wchar_t text[256];
  return GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &time, nullptr, text, 256) ? ToUtf8(text)
                                                                                 : std::string();
}

std::optional<DateTime> WindowsLocale::ParseDate(std::string_view text) {
  auto wide = ToWide(text);
  if (!wide) return std::nullopt;
  std::wstring pattern = DatePattern();
  return DateReader(pattern, *wide).Read();
}

std::string WindowsLocale::Fold(std::string_view text) {
  std::string folded(text);
  bool ascii = true;
  for (char& c : folded) {
    if (static_cast<unsigned char>(c) >= 0x80) ascii = false;
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  if (ascii) return folded;
  auto wide = ToWide(folded);
  if (!wide) return folded;
  for (wchar_t& c : *wide) c = (*folded_)[c];
  return ToUtf8(*wide);
}

std::optional<std::string> WindowsLocale::ToAnsi(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  auto wide = ToWide(text);
  if (!wide) return std::nullopt;
  UINT page = GetACP();
  // UTF-8 holds every character, and the call has other rules for it.
  bool all = page == CP_UTF8;
  DWORD flags = all ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
  BOOL replaced = FALSE;
  BOOL* told = all ? nullptr : &replaced;
  int length = static_cast<int>(wide->size());
  std::string bytes(wide->size() * 4, '\0');
  int size = WideCharToMultiByte(page, flags, wide->data(), length, bytes.data(),
                                 static_cast<int>(bytes.size()), nullptr, told);
  if (size <= 0 || replaced) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(size));
  return bytes;
}

std::string WindowsLocale::FromAnsi(std::string_view bytes) {
  if (IsAscii(bytes)) return std::string(bytes);
  std::wstring wide(bytes.size(), L'\0');
  int length = static_cast<int>(bytes.size());
  int size = MultiByteToWideChar(GetACP(), 0, bytes.data(), length, wide.data(), length);
  wide.resize(static_cast<std::size_t>(std::max(size, 0)));
  return ToUtf8(wide);
}

}  // namespace platform
