// The command line on Windows.
#ifdef _WIN32

#include <atomic>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <iostream>
#include <windows.h>

#include "command/Program.h"
#include "platform/windows/WindowsText.h"

namespace {

std::atomic<bool> interrupted = false;

// Called in a thread of the system's own. Where the window is closed or the session ends, the process is
// ended as soon as this returns.
BOOL WINAPI Interrupt(DWORD event) {
  interrupted = true;
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
  return TRUE;
}

bool IsTerminal(DWORD which) {
  DWORD mode;
  return GetConsoleMode(GetStdHandle(which), &mode);
}

// Progress erases its line.
void EnableSequences() {
  HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode;
  if (GetConsoleMode(error, &mode)) SetConsoleMode(error, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  computer::GuardProcess();
  SetConsoleCtrlHandler(Interrupt, TRUE);
  SetConsoleOutputCP(CP_UTF8);
  EnableSequences();
  // Bytes as they are.
  for (FILE* file : {stdin, stdout, stderr}) _setmode(_fileno(file), _O_BINARY);
  std::ios::sync_with_stdio(false);
  std::vector<std::string> words;
  for (int i = 1; i < argc; ++i) words.push_back(platform::ToUtf8(argv[i]));
  command::Console console{.in = std::cin,
                           .out = std::cout,
                           .err = std::cerr,
                           .inIsTerminal = IsTerminal(STD_INPUT_HANDLE),
                           .outIsTerminal = IsTerminal(STD_OUTPUT_HANDLE),
                           .errIsTerminal = IsTerminal(STD_ERROR_HANDLE),
                           .interrupted = [] { return interrupted.load(); }};
  return command::Run(words, console, {.shareFolder = computer::ShareFolder()});
}

#endif
