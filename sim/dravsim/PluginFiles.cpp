#include "dravsim/PluginFiles.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "dravsim/LineSource.h"

namespace dravsim {

std::optional<std::filesystem::path> PluginFilePath(const sim::SimHost& host,
                                                    std::string_view name, std::string& error) {
  const std::filesystem::path relative(name);
  bool climbs = false;
  for (const auto& part : relative) climbs = climbs || part == "..";
  // "/etc/x" is not absolute on Windows (no drive) but still leaves the folder: any root refuses.
  if (name.empty() || relative.is_absolute() || relative.has_root_name() || relative.has_root_directory() || climbs) {
    error = "the file name \"" + std::string(name) + "\" must stay inside the plug-in folder";
    return std::nullopt;
  }
  return host.PluginFolder() / relative;
}

bool WriteLines(const std::filesystem::path& path, const std::vector<std::string>& lines) {
  std::error_code ignored;
  std::filesystem::create_directories(path.parent_path(), ignored);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  for (const std::string& line : lines) file << line << '\n';
  file.close();
  return !file.fail();
}

std::optional<std::vector<std::string>> ReadLines(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::vector<std::string> lines;
  std::string line;
  while (std::getline(file, line)) {
    StripLineEnd(line);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace dravsim
