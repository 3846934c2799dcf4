// The scratch folder of the running test. Test programs run side by side: ctest starts two at a
// time, and the Windows stage runs shards of one program at once in one Wine prefix, so every
// process sees the same temp folder. Several suites have a test of the same name (each module's
// DebugLinesHaveTheirExactTexts, for one), so the folder is named after the process, the suite and
// the test: a test in another process can neither delete it nor write its log into it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace drav_test {

inline long ProcessId() {
#ifdef _WIN32
  return static_cast<long>(_getpid());
#else
  return static_cast<long>(getpid());
#endif
}

// Made empty: whatever an earlier run of the same process id left there is removed first.
inline std::filesystem::path FreshTestFolder(const std::string& tag) {
  const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
  std::string name = "drav_" + tag + "_" + std::to_string(ProcessId());
  if (info != nullptr) name += std::string("_") + info->test_suite_name() + "_" + info->name();
  for (char& c : name) {
    if (c == '/') c = '_';  // parameterised tests are named Prefix/Suite and Test/N
  }
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
  std::filesystem::create_directories(folder, ignored);
  return folder;
}

}  // namespace drav_test
