// Scratch folders and whole-file helpers for the tests of the INI file, the log and the settings.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace drav_test {

// A fresh, empty folder under the system's temp folder, removed with everything in it.
class ScratchFolder {
 public:
  explicit ScratchFolder(const std::string& tag) {
    std::string pattern =
        (std::filesystem::temp_directory_path() / ("drav_" + tag + "_XXXXXX")).string();
    if (char* made = mkdtemp(pattern.data())) path_ = made;
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

// Splits on '\n'; a text that ends with '\n' gives no empty last line.
inline std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace drav_test
