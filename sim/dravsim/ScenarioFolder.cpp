#include "dravsim/ScenarioFolder.h"

#include <random>
#include <string>
#include <system_error>

namespace dravsim {
namespace {

std::filesystem::path MakeTemporaryFolder() {
  std::error_code error;
  const std::filesystem::path base = std::filesystem::temp_directory_path(error);
  if (error) return {};
  std::random_device seed;
  std::mt19937_64 random(seed());
  for (int attempt = 0; attempt < 100; ++attempt) {
    const std::filesystem::path candidate =
        base / ("dravsim-" + std::to_string(random() % 1'000'000'000));
    // create_directory reports false for a folder that already exists: then try another name.
    if (std::filesystem::create_directory(candidate, error)) return candidate;
  }
  return {};
}

}  // namespace

ScenarioFolder::ScenarioFolder(const std::optional<std::filesystem::path>& given) {
  if (!given) {
    path_ = MakeTemporaryFolder();
    temporary_ = !path_.empty();
    return;
  }
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(*given, error);
  if (error) return;
  std::filesystem::create_directories(absolute, error);
  if (!error && std::filesystem::is_directory(absolute, error)) path_ = absolute;
}

ScenarioFolder::~ScenarioFolder() {
  if (!temporary_) return;
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace dravsim
