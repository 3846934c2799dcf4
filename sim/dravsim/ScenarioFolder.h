// The X-Plane folder a scenario runs in: a new, empty temporary folder that is removed afterwards,
// or a folder the user gave, used as it is.
#pragma once

#include <filesystem>
#include <optional>

namespace dravsim {

class ScenarioFolder {
 public:
  explicit ScenarioFolder(const std::optional<std::filesystem::path>& given);
  ~ScenarioFolder();
  ScenarioFolder(const ScenarioFolder&) = delete;
  ScenarioFolder& operator=(const ScenarioFolder&) = delete;

  bool Ok() const { return !path_.empty(); }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;  // empty when no folder could be made
  bool temporary_ = false;
};

}  // namespace dravsim
