// A failure that nobody expected, with the number and the description that the error report shows.
#pragma once

#include <stdexcept>
#include <string>

namespace platform {

class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}
  int Number() const { return number_; }

 private:
  int number_;
};

inline RuntimeError Overflow() {
  return {6, "Overflow"};
}
inline RuntimeError OutOfMemory() {
  return {7, "Out of memory"};
}
inline RuntimeError SubscriptOutOfRange() {
  return {9, "Subscript out of range"};
}
inline RuntimeError TypeMismatch() {
  return {13, "Type mismatch"};
}
inline RuntimeError BadFileName() {
  return {52, "Bad file name or number"};
}
inline RuntimeError FileNotFound() {
  return {53, "File not found"};
}
inline RuntimeError DeviceIoError() {
  return {57, "Device I/O error"};
}
inline RuntimeError DiskFull() {
  return {61, "Disk full"};
}
inline RuntimeError InputPastEnd() {
  return {62, "Input past end of file"};
}
inline RuntimeError PermissionDenied() {
  return {70, "Permission denied"};
}
inline RuntimeError PathFileAccess() {
  return {75, "Path/File access error"};
}
inline RuntimeError PathNotFound() {
  return {76, "Path not found"};
}

}  // namespace platform
