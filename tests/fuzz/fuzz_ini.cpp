// The INI reader and writer on any bytes: a file of arbitrary content is read, one key is written
// into it, and the key is read back. Besides memory errors (the output buffer is exactly the 256
// characters callers provide), this checks that the reader finds what the writer wrote: both walk
// the file through the same line rules, and a disagreement would lose a pilot's assignment.
#include <fuzzer/FuzzedDataProvider.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "FuzzCheck.h"
#include "plugin/PluginContext.h"
#include "base/IniFile.h"

namespace {

std::string WorkFile() {
  static const std::string path = [] {
    // A memory file system when there is one: every input rewrites the file three times.
    const std::filesystem::path base =
        std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path();
    const auto folder = base / ("drav-fuzz-ini-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    return (folder / "DRAV.INI").string();
  }();
  return path;
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// Names the round trip can promise anything for: a line end would split the tag or the key line,
// and '[', ']', '=' or a leading ';' make the name part of the syntax around it.
bool IsPlainName(const std::string& name) {
  if (name.empty() || name.front() == ';') return false;
  return name.find_first_of("\r\n[]=", 0, 5) == std::string::npos &&
         name.find('\0') == std::string::npos;
}

// The value as the writer stores it: the part before any line end.
std::string OneLine(const std::string& value) {
  return value.substr(0, value.find_first_of("\r\n"));
}

// Reads into a buffer of exactly the size callers give, so that a write past it is caught.
std::string ReadValue(const std::string& path, const std::string& section, const std::string& key,
                      bool& found) {
  auto value = std::make_unique<char[]>(drav::kIniValueSize);
  found = drav::ReadIniValueAtPath(path, section.c_str(), key.c_str(), value.get(), "default");
  const std::size_t length = strnlen(value.get(), drav::kIniValueSize);
  DRAV_FUZZ_CHECK(length < drav::kIniValueSize);  // always terminated inside the buffer
  return std::string(value.get(), length);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const drav::PluginContext context;  // the reader's snapshots, the log and the settings of a running plug-in
  FuzzedDataProvider input(data, size);
  const std::string section = input.ConsumeRandomLengthString(32);
  const std::string key = input.ConsumeRandomLengthString(32);
  const std::string value = input.ConsumeRandomLengthString(300);
  const std::string file = input.ConsumeRemainingBytesAsString();
  // C strings end at the first NUL, as they would for a caller.
  const std::string sectionText = section.c_str();
  const std::string keyText = key.c_str();
  const std::string valueText = value.c_str();

  const std::string path = WorkFile();
  WriteBytes(path, file);

  bool found = false;
  ReadValue(path, sectionText, keyText, found);

  // A UTF-16 file (byte-order mark first) is read but never rewritten.
  if (file.size() >= 2 && ((file[0] == '\xFF' && file[1] == '\xFE') || (file[0] == '\xFE' && file[1] == '\xFF'))) {
    DRAV_FUZZ_CHECK(!drav::WriteIniValueAtPath(path, sectionText.c_str(), keyText.c_str(), valueText.c_str()));
    std::ifstream in(path, std::ios::binary);
    const std::string after((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    DRAV_FUZZ_CHECK(after == file);
    return 0;
  }

  DRAV_FUZZ_CHECK(drav::WriteIniValueAtPath(path, sectionText.c_str(), keyText.c_str(),
                                            valueText.c_str()));
  DRAV_FUZZ_CHECK(!std::filesystem::exists(path + "_TMP"));  // nothing half-written left behind

  const std::string stored = OneLine(valueText);
  const std::string readBack = ReadValue(path, sectionText, keyText, found);
  if (IsPlainName(sectionText) && IsPlainName(keyText) && !stored.empty()) {
    DRAV_FUZZ_CHECK(found);
    // A key line longer than a line is read in pieces: the reader sees the start of the value.
    DRAV_FUZZ_CHECK(stored.compare(0, readBack.size(), readBack) == 0);
    if (keyText.size() + 1 + stored.size() <= drav::kIniMaxLineLength &&
        readBack.size() < stored.size()) {
      // Only a key line that carried text before the key may be cut short.
      DRAV_FUZZ_CHECK(file.find(keyText + "=") != std::string::npos);
    }
  }

  // A second write of the same value changes nothing the reader sees.
  DRAV_FUZZ_CHECK(drav::WriteIniValueAtPath(path, sectionText.c_str(), keyText.c_str(),
                                            valueText.c_str()));
  bool foundAgain = false;
  const std::string readAgain = ReadValue(path, sectionText, keyText, foundAgain);
  if (IsPlainName(sectionText) && IsPlainName(keyText) && !stored.empty()) {
    DRAV_FUZZ_CHECK(foundAgain && readAgain == readBack);
  }

  // The number parsers take any stored text.
  drav::ParseIniInt(readBack.c_str());
  drav::ParseIniReal(readBack.c_str());
  return 0;
}
