#include "translation/OutputFile.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "shell/Error.h"
#include "shell/TextFile.h"

namespace corvalin {

namespace {

std::FILE*& FileNumber1() {
  static std::FILE* file = nullptr;
  return file;
}

}  // namespace

bool OutputOpensForInput(const std::string& path) {
  if (FileNumber1() != nullptr) return false;
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) return false;
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return false;
  std::fclose(file);
  return true;
}

void OpenOutput(const std::string& path, bool append) {
  if (FileNumber1() != nullptr) Raise(err::FileAlreadyOpen);
  if (path.empty()) Raise(err::PathFileAccess);
  std::FILE* file = std::fopen(path.c_str(), append ? "ab" : "wb");
  if (file == nullptr) RaiseFileError(errno);
  FileNumber1() = file;
}

void WriteOutputLine(std::string_view record) {
  std::FILE* file = FileNumber1();
  if (file == nullptr) Raise(err::BadFileName);
  if (std::fwrite(record.data(), 1, record.size(), file) != record.size() || std::fwrite("\r\n", 1, 2, file) != 2)
    RaiseFileError(errno);
}

void FlushOutput() {
  if (FileNumber1() != nullptr) std::fflush(FileNumber1());
}

void CloseOutput() {
  std::FILE* file = FileNumber1();
  if (file == nullptr) return;
  FileNumber1() = nullptr;
  if (std::fclose(file) != 0) RaiseFileError(errno);
}

bool OutputOpen() { return FileNumber1() != nullptr; }

void ForgetOutput() {
  if (FileNumber1() != nullptr) std::fclose(FileNumber1());
  FileNumber1() = nullptr;
}

}  // namespace corvalin
