#include "view/ContentViewer.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <wx/button.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include "platform/Machine.h"
#include "platform/Utf.h"
#include "view/Icons.h"
#include "view/LabelBox.h"
#include "view/Look.h"
#include "view/Native.h"
#include "view/Screen.h"
#include "view/Text.h"

namespace view {

namespace {

constexpr std::uint64_t kReach = 4096;  // how far before a page's nominal start a line's end is looked for
constexpr std::size_t kBytesInLine = 16;

bool LooksBinary(std::string_view bytes) {
  return std::any_of(bytes.begin(), bytes.end(), [](char c) {
    auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r' && byte != '\f' && byte != 0x1A &&
           byte != 0x1B;
  });
}

std::string Hex(std::string_view bytes, std::uint64_t offset) {
  std::string text;
  text.reserve(bytes.size() / kBytesInLine * 80 + 80);
  for (std::size_t at = 0; at < bytes.size(); at += kBytesInLine) {
    std::string_view line = bytes.substr(at, kBytesInLine);
    std::array<char, 24> buffer;
    std::snprintf(buffer.data(), buffer.size(), "%010llX ", static_cast<unsigned long long>(offset + at));
    text += buffer.data();
    for (std::size_t i = 0; i < kBytesInLine; ++i) {
      if (i < line.size()) {
        std::snprintf(buffer.data(), buffer.size(), " %02X", static_cast<unsigned char>(line[i]));
        text += buffer.data();
      } else {
        text += "   ";
      }
      if (i == 7) text += ' ';
    }
    text += "  ";
    for (char c : line) text += c >= 0x20 && c < 0x7F ? c : '.';
    text += '\n';
  }
  return text;
}

}  // namespace

FilePages::FilePages(std::unique_ptr<platform::File> file) : file_(std::move(file)), size_(file_->Size()) {
  binary_ = LooksBinary(Read(0, kPage));
}

std::string FilePages::Read(std::uint64_t from, std::uint64_t length) {
  std::string bytes(static_cast<std::size_t>(length), '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    auto rest = std::as_writable_bytes(std::span(bytes)).subspan(filled);
    auto read = file_->Read(from + filled, rest);
    if (!read) failed_ = true;
    if (!read || *read == 0) break;
    filled += *read;
  }
  bytes.resize(filled);
  return bytes;
}

std::uint64_t FilePages::Count() const {
  return std::max<std::uint64_t>((size_ + kPage - 1) / kPage, 1);
}

std::uint64_t FilePages::Start(std::uint64_t page) {
  std::uint64_t nominal = page * kPage;
  if (page == 0 || binary_ || nominal >= size_) return std::min(nominal, size_);
  std::string before = Read(nominal - kReach, kReach);
  if (before.size() < kReach) return nominal;
  std::size_t end = before.rfind('\n');
  if (end != std::string::npos) return nominal - kReach + end + 1;
  // No line ends here: not between the bytes of one character, at least.
  for (std::size_t back = 0; back < 4; ++back)
    if ((static_cast<unsigned char>(before[before.size() - 1 - back]) & 0xC0) == 0xC0)
      return nominal - 1 - back;
    else if ((static_cast<unsigned char>(before[before.size() - 1 - back]) & 0x80) == 0)
      break;
  return nominal;
}

wxString FilePages::Page(std::uint64_t page) {
  std::uint64_t from = Start(page);
  std::uint64_t to = page + 1 < Count() ? Start(page + 1) : size_;
  std::string bytes = Read(from, to - from);
  if (binary_) return ToWx(Hex(bytes, from));
  if (page == 0 && bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
  std::string text = platform::IsUtf8(bytes) ? bytes : platform::CurrentMachine().GetLocale().FromAnsi(bytes);
  for (char& c : text)
    if (c == '\0') c = ' ';
  return ToWx(text);
}

bool ContentViewer::Open(Screen& screen, const std::string& path) {
  platform::Status status = platform::Status::Failed;
  auto file = platform::CurrentMachine().Files().Open(path, platform::OpenMode::Read, status);
  if (!file || status != platform::Status::Done) return false;
  auto pages = std::make_unique<FilePages>(std::move(file));
  if (pages->Failed()) return false;
  wxTopLevelWindow* owner = screen.ActiveWindow();
  auto* viewer = new ContentViewer(path, std::move(pages));
  if (owner) viewer->CentreOnScreen();
  viewer->wxFrame::Show();
  native::BringToFront(*viewer);
  return true;
}

ContentViewer::ContentViewer(const std::string& path, std::unique_ptr<FilePages> pages)
    : wxFrame(nullptr, wxID_ANY, ToWxLine(path), wxDefaultPosition, wxSize(Px(800), Px(560)),
              wxDEFAULT_FRAME_STYLE, "viewer"),
      pages_(std::move(pages)) {
  SetIcons(WindowIcons());
  auto* panel = new wxPanel(this);
  text_ = new wxTextCtrl(
      panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
      wxTE_MULTILINE | wxTE_READONLY | wxTE_RICH2 | (pages_->Binary() ? wxTE_DONTWRAP : wxTE_CHARWRAP),
      wxDefaultValidator, "Content");
  text_->SetFont(Monospaced());
  native::SetAccessibleName(*text_, "Content of " + ToWxLine(path));
  back_ = new wxButton(panel, wxID_ANY, "&Previous page", wxDefaultPosition, wxDefaultSize, 0,
                       wxDefaultValidator, "Previous");
  next_ = new wxButton(panel, wxID_ANY, "&Next page", wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                       "Next");
  auto* close = new wxButton(panel, wxID_ANY, "&Close", wxDefaultPosition, wxDefaultSize, 0,
                             wxDefaultValidator, "Close");
  place_ = new LabelBox(panel, true, "Place");
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(back_, wxSizerFlags().CenterVertical());
  row->Add(next_, wxSizerFlags().CenterVertical().Border(wxLEFT, Px(8)));
  row->Add(place_, wxSizerFlags(1).CenterVertical().Border(wxLEFT, Px(16)));
  row->Add(close, wxSizerFlags().CenterVertical().Border(wxLEFT, Px(8)));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(text_, wxSizerFlags(1).Expand());
  column->Add(row, wxSizerFlags().Expand().Border(wxALL, Px(12)));
  panel->SetSizer(column);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(panel, wxSizerFlags(1).Expand());
  SetSizer(whole);

  back_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Show(page_ - 1, false); });
  next_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Show(page_ + 1, false); });
  close->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
  Bind(wxEVT_CHAR_HOOK, &ContentViewer::OnKey, this);
  Show(0, false);
  text_->SetFocus();
}

void ContentViewer::Show(std::uint64_t page, bool atEnd) {
  page_ = page;
  text_->ChangeValue(pages_->Page(page));
  text_->SetInsertionPoint(atEnd ? text_->GetLastPosition() : 0);
  text_->ShowPosition(text_->GetInsertionPoint());
  back_->Enable(page > 0);
  next_->Enable(page + 1 < pages_->Count());
  LabelBox::Content content;
  content.style = controls::LabelStyle::Status;
  content.text = wxString::Format("Page %llu of %llu, %llu bytes", static_cast<unsigned long long>(page + 1),
                                  static_cast<unsigned long long>(pages_->Count()),
                                  static_cast<unsigned long long>(pages_->Size()));
  if (pages_->Failed()) content.text += ", a part can't be read";
  place_->Set(content);
  native::SetAccessible(*place_, native::Role::Text, content.text);
}

// Page up and down go on to the neighbouring page where the present one ends.
void ContentViewer::OnKey(wxKeyEvent& event) {
  long at = text_->GetInsertionPoint();
  switch (event.GetKeyCode()) {
    case WXK_ESCAPE:
      Close();
      return;
    case WXK_PAGEDOWN:
      if ((event.ControlDown() || at >= text_->GetLastPosition()) && page_ + 1 < pages_->Count()) {
        Show(page_ + 1, false);
        return;
      }
      break;
    case WXK_PAGEUP:
      if ((event.ControlDown() || at == 0) && page_ > 0) {
        Show(page_ - 1, !event.ControlDown());
        return;
      }
      break;
    case WXK_HOME:
    case WXK_END:
      if (event.ControlDown() && pages_->Count() > 1) {
        bool end = event.GetKeyCode() == WXK_END;
        Show(end ? pages_->Count() - 1 : 0, end);
        return;
      }
      break;
    default:
      break;
  }
  event.Skip();
}

}  // namespace view
