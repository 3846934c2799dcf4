// Scratch folders and whole-file helpers for the tests of the INI file, the log and the settings.
#pragma once

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <io.h>
#endif

namespace drav_test {

// A fresh, empty folder under the system's temp folder, removed with everything in it.
class ScratchFolder {
 public:
  explicit ScratchFolder(const std::string& tag) {
    std::string pattern =
        (std::filesystem::temp_directory_path() / ("drav_" + tag + "_XXXXXX")).string();
    if (char* made = MakeFolder(pattern.data())) path_ = made;
  }
  ~ScratchFolder() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  bool Made() const { return !path_.empty(); }

 private:
#ifdef _WIN32
  // No mkdtemp on Windows: _mktemp_s picks a name not in use, and create_directory refuses one
  // that appeared since.
  static char* MakeFolder(char* pattern) {
    if (_mktemp_s(pattern, std::strlen(pattern) + 1) != 0) return nullptr;
    std::error_code error;
    return std::filesystem::create_directory(pattern, error) ? pattern : nullptr;
  }
#else
  static char* MakeFolder(char* pattern) { return mkdtemp(pattern); }
#endif

  std::filesystem::path path_;
};

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
}

// The file's bytes, or nothing when it cannot be read.
inline std::optional<std::string> ReadBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace drav_test
