// The read index against the line-by-line reader on any bytes: every question, asked in any order
// and more than once, must get the same answer from both, since a load answers from the index what
// the reader would have found in the file. Questions are either fuzzed text or cut from the file
// itself, so that sections and keys that are there get asked for.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FuzzCheck.h"
#include "base/IniIndex.h"

namespace {

struct Question {
  std::string section;
  std::string key;
};

// A name as a C string gives it: up to the first NUL.
std::string Name(FuzzedDataProvider& input, const std::string& file) {
  std::string name;
  if (input.ConsumeBool() && !file.empty()) {
    const std::size_t at = input.ConsumeIntegralInRange<std::size_t>(0, file.size() - 1);
    name = file.substr(at, input.ConsumeIntegralInRange<std::size_t>(0, 40));
  } else {
    name = input.ConsumeRandomLengthString(40);
  }
  return name.c_str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::string file = input.ConsumeRandomLengthString(4096);
  const int count = input.ConsumeIntegralInRange(1, 16);
  std::vector<Question> questions;
  for (int i = 0; i < count; ++i) {
    std::string section = Name(input, file);
    questions.push_back({section, Name(input, file)});
  }

  drav::IniIndex index(file);
  for (int round = 0; round < 2; ++round) {  // the second round answers from tables already made
    for (const Question& question : questions) {
      const std::optional<std::string> expected = drav::ScanIniBytes(file, question.section, question.key);
      const std::optional<std::string_view> found = index.Find(question.section, question.key);
      DRAV_FUZZ_CHECK(expected.has_value() == found.has_value());
      if (expected && found) DRAV_FUZZ_CHECK(*expected == *found);
    }
  }
  return 0;
}
