#include "TrayHost.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <set>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace e2e {

namespace {

constexpr int kSize = 32;

class Host {
 public:
  explicit Host(int notes) : notes_(notes), x_(XOpenDisplay(nullptr)) {}

  void Run() {
    if (!x_) return;
    // A window may be gone before it is asked for its title.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    Window root = DefaultRootWindow(x_);
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    tray_ = XCreateWindow(x_, root, 0, 0, kSize, kSize, 0, CopyFromParent, InputOutput, CopyFromParent,
                          CWOverrideRedirect, &attributes);
    XMapRaised(x_, tray_);
    std::string name = "_NET_SYSTEM_TRAY_S" + std::to_string(DefaultScreen(x_));
    XSetSelectionOwner(x_, Named(name.c_str()), tray_, CurrentTime);
    XSelectInput(x_, root, PropertyChangeMask);
    XSync(x_, False);
    Note("tray");
    for (;;) {
      XEvent event;
      XNextEvent(x_, &event);
      if (event.type == ClientMessage && event.xclient.message_type == Named("_NET_SYSTEM_TRAY_OPCODE") &&
          event.xclient.data.l[1] == 0)
        Take(static_cast<Window>(event.xclient.data.l[2]));
      if (event.type == PropertyNotify && event.xproperty.atom == Named("_NET_CLIENT_LIST"))
        NoteWindows(root);
    }
  }

 private:
  Atom Named(const char* name) { return XInternAtom(x_, name, False); }

  void Note(const std::string& what) {
    std::string line = what + "\n";
    if (write(notes_, line.data(), line.size()) < 0) _exit(1);
  }

  void Take(Window icon) {
    XReparentWindow(x_, icon, tray_, 0, 0);
    XMoveResizeWindow(x_, icon, 0, 0, kSize, kSize);
    XMapRaised(x_, icon);
    XSync(x_, False);
    Note("icon");
  }

  // The property's bytes; windows come as numbers of the machine's word.
  std::string Property(Window window, Atom property, Atom type, std::size_t width) {
    Atom actual = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(x_, window, property, 0, 4096, False, type, &actual, &format, &count, &left, &data);
    std::string bytes(reinterpret_cast<char*>(data), data ? count * width : 0);
    if (data) XFree(data);
    return bytes;
  }

  void NoteWindows(Window root) {
    std::string list = Property(root, Named("_NET_CLIENT_LIST"), XA_WINDOW, sizeof(Window));
    for (std::size_t at = 0; at < list.size(); at += sizeof(Window)) {
      Window window;
      list.copy(reinterpret_cast<char*>(&window), sizeof window, at);
      std::string title = Property(window, Named("_NET_WM_NAME"), Named("UTF8_STRING"), 1);
      if (known_.insert({window, title}).second) Note("window " + title);
    }
  }

  int notes_;
  Display* x_;
  Window tray_ = None;
  std::set<std::pair<Window, std::string>> known_;
};

}  // namespace

TrayHost::TrayHost() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) std::abort();
  process_ = fork();
  if (process_ < 0) std::abort();
  if (process_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    Host(ends[1]).Run();
    _exit(1);
  }
  close(ends[1]);
  pipe_ = ends[0];
  char letter;
  while (notes_.find('\n') == notes_.npos && read(pipe_, &letter, 1) == 1) notes_ += letter;
  fcntl(pipe_, F_SETFL, O_NONBLOCK);
}

TrayHost::~TrayHost() {
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
  close(pipe_);
}

const std::string& TrayHost::Notes() {
  char buffer[4096];
  for (ssize_t size; (size = read(pipe_, buffer, sizeof buffer)) > 0;)
    notes_.append(buffer, static_cast<std::size_t>(size));
  return notes_;
}

}  // namespace e2e
