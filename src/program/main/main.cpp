// The program's entry. Arguments are ignored.
#include "program/Program.h"

int main(int argc, char** argv) {
  return program::Run({.computer = {.shareFolder = computer::ShareFolder()}}, argc, argv);
}
