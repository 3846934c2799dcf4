// The shipped sample DRAV.INI: installing it must change no setting, its active keys must be the
// ones the settings code reads, and its comments must explain every one of them, so that the sample
// cannot drift away from the code.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "PluginFolderSupport.h"
#include "base/IniFile.h"
#include "base/Settings.h"

namespace {

using drav::DebugSwitches;
using drav::GlobalSettings;

std::filesystem::path SamplePath() {
  return std::filesystem::path(__FILE__).parent_path() / ".." / ".." / ".." / "dist" /
         "DRAV.sample.INI";
}

// A settings record as its 32-bit words, so that a field added later is compared too.
template <typename Record>
std::vector<std::uint32_t> Words(const Record& record) {
  static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) % 4 == 0);
  std::vector<std::uint32_t> words(sizeof(Record) / 4);
  std::memcpy(words.data(), &record, sizeof(Record));
  return words;
}

// Every field away from its default, so that a field the read leaves alone shows.
template <typename Record>
Record Scrambled() {
  Record record;
  std::vector<std::uint32_t> words(sizeof(Record) / 4, 0x7F7F7F7Fu);
  std::memcpy(static_cast<void*>(&record), words.data(), sizeof(Record));  // trivially copyable
  return record;
}

bool IsNameCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

// True when `word` stands in `text` as a whole word.
bool HasWord(const std::string& text, const std::string& word) {
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
    const bool startsWord = at == 0 || !IsNameCharacter(text[at - 1]);
    const std::size_t end = at + word.size();
    const bool endsWord = end == text.size() || !IsNameCharacter(text[end]);
    if (startsWord && endsWord) return true;
  }
  return false;
}

struct KeyLine {
  std::string key;
  std::string value;
};

// The sample as the pilot reads it: comment lines, and the key lines of each section.
struct SampleLayout {
  std::vector<std::string> lines;     // without line ends
  std::vector<std::string> comments;  // lines starting with ';'
  std::vector<std::string> sectionLines;
  std::map<std::string, std::vector<KeyLine>> keys;  // by section name
  std::vector<std::string> strayLines;  // neither comment, section, key line nor blank
};

SampleLayout ReadLayout(const std::string& text) {
  SampleLayout layout;
  std::string section;
  for (std::string line : drav_test::SplitLines(text)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    layout.lines.push_back(line);
    if (line.empty()) continue;
    if (line.front() == ';') {
      layout.comments.push_back(line);
    } else if (line.front() == '[' && line.back() == ']') {
      section = line.substr(1, line.size() - 2);
      layout.sectionLines.push_back(line);
    } else if (const std::size_t equals = line.find('='); equals != std::string::npos && equals > 0) {
      layout.keys[section].push_back({line.substr(0, equals), line.substr(equals + 1)});
    } else {
      layout.strayLines.push_back(line);
    }
  }
  return layout;
}

class SampleIniTest : public drav_test::PluginFolderTest {
 protected:
  SampleIniTest() : PluginFolderTest("sample_ini") {}

  void SetUp() override {
    PluginFolderTest::SetUp();
    const auto bytes = drav_test::ReadBytes(SamplePath());
    ASSERT_TRUE(bytes.has_value()) << "cannot read " << SamplePath();
    sampleText_ = *bytes;
    layout_ = ReadLayout(sampleText_);
  }

  // Reads both sections from the given DRAV.INI, starting from scrambled values.
  void LoadSettingsFrom(const std::string& iniText) {
    GivenIni(iniText);
    drav::gDebug = Scrambled<DebugSwitches>();
    drav::gSettings = Scrambled<GlobalSettings>();
    drav::ReadDebugSwitches();
    drav::ReadGlobalSettings();
  }

  bool CommentsMention(const std::string& key) const {
    for (const std::string& comment : layout_.comments) {
      if (HasWord(comment, key)) return true;
    }
    return false;
  }

  // The CONFIG keys the settings code reads, with the default it passes, taken from its read trace.
  std::map<std::string, std::string> ConfigKeysReadByTheCode() {
    drav::gDebug = DebugSwitches{};
    drav::gDebug.DebugEnabled = 1;
    drav::gDebug.DebugFunctionAssignments = 1;
    GivenIni("");
    drav::ReadGlobalSettings();
    drav::gDebug = DebugSwitches{};
    std::map<std::string, std::string> keys;
    for (std::string line : drav_test::SplitLines(LogText())) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      const std::size_t keyAt = line.find(", key: ");
      const std::size_t valueAt = line.find(", value: ");
      const std::size_t defaultAt = line.find(", default: ");
      if (keyAt == std::string::npos || valueAt == std::string::npos ||
          defaultAt == std::string::npos || line.find("section: [CONFIG]") == std::string::npos) {
        continue;
      }
      const std::size_t keyStart = keyAt + std::strlen(", key: ");
      keys[line.substr(keyStart, valueAt - keyStart)] =
          line.substr(defaultAt + std::strlen(", default: "));
    }
    std::filesystem::remove(LogPath());
    return keys;
  }

  // Which switch fields one DEBUG key line sets, found by writing it alone with a non-zero value.
  std::vector<std::size_t> SwitchFieldsSetBy(const std::string& key) {
    GivenIni("[DEBUG]\n" + key + "=1\n");
    drav::gDebug = DebugSwitches{};
    drav::ReadDebugSwitches();
    const std::vector<std::uint32_t> read = Words(drav::gDebug);
    const std::vector<std::uint32_t> defaults = Words(DebugSwitches{});
    drav::gDebug = DebugSwitches{};
    std::vector<std::size_t> changed;
    for (std::size_t i = 0; i < read.size(); ++i) {
      if (read[i] != defaults[i]) changed.push_back(i);
    }
    return changed;
  }

  const std::vector<KeyLine>& SampleKeys(const std::string& section) { return layout_.keys[section]; }

  std::string sampleText_;
  SampleLayout layout_;
};

TEST_F(SampleIniTest, LoadingTheSampleGivesTheSameSettingsAsAnEmptyFile) {
  LoadSettingsFrom("");
  const std::vector<std::uint32_t> emptySwitches = Words(drav::gDebug);
  const std::vector<std::uint32_t> emptySettings = Words(drav::gSettings);

  LoadSettingsFrom(sampleText_);
  EXPECT_EQ(Words(drav::gDebug), emptySwitches);
  EXPECT_EQ(Words(drav::gSettings), emptySettings);
  // And those are the plug-in's built-in defaults, which hold before the file is ever read.
  EXPECT_EQ(emptySwitches, Words(DebugSwitches{}));
  EXPECT_EQ(emptySettings, Words(GlobalSettings{}));
}

TEST_F(SampleIniTest, EveryConfigKeyTheCodeReadsIsActiveWithItsDefaultAndExplained) {
  const std::map<std::string, std::string> readByCode = ConfigKeysReadByTheCode();
  ASSERT_FALSE(readByCode.empty()) << "the CONFIG read trace named no key";

  std::map<std::string, std::string> inSample;
  for (const KeyLine& line : SampleKeys("CONFIG")) inSample[line.key] = line.value;

  for (const auto& [key, defaultValue] : readByCode) {
    SCOPED_TRACE(key);
    ASSERT_TRUE(inSample.count(key)) << "the sample's CONFIG section lacks this key";
    EXPECT_EQ(inSample[key], defaultValue);
    EXPECT_TRUE(CommentsMention(key)) << "no comment explains this key";
  }
  for (const auto& [key, value] : inSample) {
    EXPECT_TRUE(readByCode.count(key)) << "the sample holds " << key << ", which nothing reads";
  }
}

TEST_F(SampleIniTest, EveryDebugSwitchIsActiveAtZeroAndExplained) {
  const std::vector<KeyLine>& sampleKeys = SampleKeys("DEBUG");
  // One key per switch field: a switch the code gains must be added to the sample.
  EXPECT_EQ(sampleKeys.size(), Words(DebugSwitches{}).size());

  std::set<std::size_t> fieldsCovered;
  for (const KeyLine& line : sampleKeys) {
    SCOPED_TRACE(line.key);
    EXPECT_EQ(line.value, "0");
    EXPECT_TRUE(CommentsMention(line.key)) << "no comment explains this switch";
    const std::vector<std::size_t> fields = SwitchFieldsSetBy(line.key);
    ASSERT_EQ(fields.size(), 1u) << "the key must set exactly one switch";
    EXPECT_TRUE(fieldsCovered.insert(fields.front()).second) << "two keys set the same switch";
  }
  EXPECT_EQ(fieldsCovered.size(), Words(DebugSwitches{}).size());
}

TEST_F(SampleIniTest, EveryActiveKeyIsFoundWhereTheReaderLooks) {
  // Guards against a key hidden behind a stray section line, or a comment that opens a section.
  const std::string path = IniPath().string();
  GivenIni(sampleText_);
  for (const char* section : {"DEBUG", "CONFIG"}) {
    for (const KeyLine& line : SampleKeys(section)) {
      SCOPED_TRACE(std::string(section) + " " + line.key);
      char value[drav::kIniValueSize];
      EXPECT_TRUE(drav::ReadIniValueAtPath(path, section, line.key.c_str(), value, "unset"));
      EXPECT_EQ(std::string(value), line.value);
    }
  }
}

TEST_F(SampleIniTest, OnlyTheTwoGlobalSectionsAreActiveAndEveryLineIsWellFormed) {
  EXPECT_EQ(layout_.sectionLines, (std::vector<std::string>{"[DEBUG]", "[CONFIG]"}));
  EXPECT_TRUE(layout_.strayLines.empty()) << "first stray line: " << layout_.strayLines.front();
  for (const std::string& line : layout_.lines) {
    SCOPED_TRACE(line);
    EXPECT_LE(line.size(), drav::kIniMaxLineLength);  // longer lines are read as two
  }
  for (const auto& [section, lines] : layout_.keys) {
    for (const KeyLine& line : lines) {
      SCOPED_TRACE(line.key);
      // Blanks around '=' or after the value become part of the key or the value.
      EXPECT_EQ(line.key.find_first_of(" \t"), std::string::npos);
      EXPECT_EQ(line.value.find_first_of(" \t"), std::string::npos);
    }
  }
}

TEST_F(SampleIniTest, CommentsNeverHoldABracketedSectionName) {
  // The reader opens a section at any line that contains "[NAME]", comments included: a commented
  // example section would capture the keys the dialog writes later.
  for (const std::string& comment : layout_.comments) {
    SCOPED_TRACE(comment);
    EXPECT_EQ(comment.find('['), std::string::npos);
  }
}

TEST_F(SampleIniTest, DialogWritesIntoTheSampleLandInTheirOwnSections) {
  // What the pilot's first picks in the dialog do to a fresh installation.
  const std::string path = IniPath().string();
  GivenIni(sampleText_);
  ASSERT_TRUE(drav::WriteIniValueAtPath(path, "GFP8_1", "Function1", "LANDING_LTS"));
  ASSERT_TRUE(drav::WriteIniValueAtPath(path, "GF46_1", "Function1", "COM1_STANDBY"));
  ASSERT_TRUE(drav::WriteIniValueAtPath(path, "GFP8_1", "Function2", "TAXI_LTS"));

  char value[drav::kIniValueSize];
  EXPECT_TRUE(drav::ReadIniValueAtPath(path, "GFP8_1", "Function1", value, ""));
  EXPECT_STREQ(value, "LANDING_LTS");
  EXPECT_TRUE(drav::ReadIniValueAtPath(path, "GFP8_1", "Function2", value, ""));
  EXPECT_STREQ(value, "TAXI_LTS");
  EXPECT_TRUE(drav::ReadIniValueAtPath(path, "GF46_1", "Function1", value, ""));
  EXPECT_STREQ(value, "COM1_STANDBY");
  // The commented examples stay comments: the sample's example GF-46 keys are not read.
  EXPECT_FALSE(drav::ReadIniValueAtPath(path, "GF46_1", "Function2", value, ""));

  const std::string written = drav_test::ReadBytes(IniPath()).value_or("");
  const SampleLayout after = ReadLayout(written);
  EXPECT_EQ(after.sectionLines,
            (std::vector<std::string>{"[DEBUG]", "[CONFIG]", "[GFP8_1]", "[GF46_1]"}));
  EXPECT_EQ(after.comments, layout_.comments);  // the explanations survive the rewrite

  LoadSettingsFrom(written);
  EXPECT_EQ(Words(drav::gDebug), Words(DebugSwitches{}));
  EXPECT_EQ(Words(drav::gSettings), Words(GlobalSettings{}));
}

}  // namespace
