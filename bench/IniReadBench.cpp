// Loading assignments costs one file scan per key: a GF-DIO alone reads 200 keys from its section.
// This measures one key read from a realistic file, near its start and at its end.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "base/IniFile.h"

namespace {

std::string MakeConfigFile() {
  const auto path = std::filesystem::temp_directory_path() / "drav-bench-DRAV.INI";
  std::ofstream out(path, std::ios::binary);
  out << "[DEBUG]\r\nDebugEnabled=0\r\n[CONFIG]\r\nGRP48ReverseFix=0\r\n";
  for (int unit = 1; unit <= 4; ++unit) {
    out << "[GFDIO_" << unit << "]\r\n";
    for (int key = 1; key <= 56; ++key) {
      char line[64];
      std::snprintf(line, sizeof line, "InputFunction%02d=LANDING_LTS\r\n", key);
      out << line;
    }
  }
  return path.string();
}

void BM_ReadIniValue(benchmark::State& state, const char* section, const char* key) {
  static const std::string path = MakeConfigFile();
  char value[drav::kIniValueSize];
  for (auto _ : state) {
    bool found = drav::ReadIniValueAtPath(path, section, key, value, "");
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK_CAPTURE(BM_ReadIniValue, near_start, "CONFIG", "GRP48ReverseFix");
BENCHMARK_CAPTURE(BM_ReadIniValue, last_unit_last_key, "GFDIO_4", "InputFunction56");
BENCHMARK_CAPTURE(BM_ReadIniValue, missing_key, "GFDIO_4", "Nothing");

}  // namespace
