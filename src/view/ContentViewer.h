// A file's content in a window, page by page, so that a file of any size opens at once.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <wx/frame.h>
#include <wx/string.h>

#include "platform/FileSystem.h"

class wxTextCtrl;
class wxButton;

namespace view {

class LabelBox;
class Screen;

// The pages of a file: each begins behind a line's end where there is one near, and never inside a character,
// so that going forward and going back meet the same pages.
class FilePages {
 public:
  static constexpr std::uint64_t kPage = 32 * 1024;

  explicit FilePages(std::unique_ptr<platform::File> file);
  std::uint64_t Size() const { return size_; }
  std::uint64_t Count() const;
  std::uint64_t Start(std::uint64_t page);
  // Text, or 16 bytes a line in hexadecimal with their letters where the file holds bytes that no text has.
  wxString Page(std::uint64_t page);
  bool Binary() const { return binary_; }
  // Something could not be read.
  bool Failed() const { return failed_; }

 private:
  std::string Read(std::uint64_t from, std::uint64_t length);

  std::unique_ptr<platform::File> file_;
  std::uint64_t size_ = 0;
  bool binary_ = false, failed_ = false;
};

class ContentViewer : public wxFrame {
 public:
  // False if the file can't be opened or read.
  static bool Open(Screen& screen, const std::string& path);

 private:
  ContentViewer(const std::string& path, std::unique_ptr<FilePages> pages);
  void Show(std::uint64_t page, bool atEnd);
  void OnKey(wxKeyEvent& event);

  std::unique_ptr<FilePages> pages_;
  std::uint64_t page_ = 0;
  wxTextCtrl* text_;
  LabelBox* place_;
  wxButton* back_;
  wxButton* next_;
};

}  // namespace view
