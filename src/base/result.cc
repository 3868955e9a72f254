#include "base/result.h"

#include <cerrno>

namespace vistaplot {

namespace {

const char* Description(int number) {
  switch (number) {
    case kErrorOverflow:
      return "Overflow";
    case kErrorSubscriptOutOfRange:
      return "Subscript out of range";
    case kErrorDivisionByZero:
      return "Division by zero";
    case kErrorTypeMismatch:
      return "Type mismatch";
    case kErrorFileNotFound:
      return "File not found";
    case kErrorFileAlreadyOpen:
      return "File already open";
    case kErrorDiskFull:
      return "Disk full";
    case kErrorInputPastEnd:
      return "Input past end of file";
    case kErrorPermissionDenied:
      return "Permission denied";
    case kErrorPathFileAccess:
      return "Path/File access error";
    case kErrorPathNotFound:
      return "Path not found";
    default:
      return "Application-defined or object-defined error";
  }
}

int NumberFromErrno(int host_errno) {
  switch (host_errno) {
    case ENOENT:
      return kErrorFileNotFound;
    case ENOTDIR:
      return kErrorPathNotFound;
    case EACCES:
    case EPERM:
    case EBUSY:
    case ETXTBSY:
      return kErrorPermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:  // a limit on the size of files
      return kErrorDiskFull;
    default:
      return kErrorPathFileAccess;
  }
}

}  // namespace

RuntimeError MakeError(int number, std::string subject) {
  return {.number = number, .description = Description(number), .subject = std::move(subject)};
}

RuntimeError ErrorFromErrno(int host_errno, std::string subject) {
  return MakeError(NumberFromErrno(host_errno), std::move(subject));
}

std::string NumberedText(const RuntimeError& error) {
  return std::to_string(error.number) + " " + error.description;
}

std::string PlainText(const RuntimeError& error) {
  return error.subject.empty() ? error.description : error.subject + ": " + error.description;
}

}  // namespace vistaplot
