// Files of the plug-in folder (root/Resources/plugins/DRAV) as scenarios write and check them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/SimHost.h"

namespace dravsim {

inline constexpr const char* kLogFileName = "DRAVLog.txt";

// The path of NAME inside the plug-in folder. Empty, with `error` set, for a name that is empty,
// absolute or climbs out of the folder: a scenario never touches files outside its simulator.
std::optional<std::filesystem::path> PluginFilePath(const sim::SimHost& host,
                                                    std::string_view name, std::string& error);

// Writes the lines, each ended by LF, creating missing folders. False when the file cannot be
// written.
bool WriteLines(const std::filesystem::path& path, const std::vector<std::string>& lines);

// The file's lines without their line ends (LF or CR LF); empty when the file cannot be read.
std::optional<std::vector<std::string>> ReadLines(const std::filesystem::path& path);

}  // namespace dravsim
