// The plug-in's INI reader and writer. Values are strings; callers convert them. The file is read
// whole on every call, except while an IniReadSnapshot holds an index of it. A file over 16 MB is
// not read at all: every section of it reads as absent.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "base/IniIndex.h"

namespace drav {

inline constexpr const char* kConfigFileName = "DRAV.INI";
// A value, like every line the reader sees, holds at most 255 characters.
inline constexpr std::size_t kIniValueSize = 256;
inline constexpr std::size_t kIniMaxLineLength = 255;

// Full path of a file in the plug-in's folder: <system path>Resources/plugins/DRAV/<fileName>.
std::string PluginFilePath(const char* fileName);

// Reads one value of `fileName` (a file of the plug-in's folder). Always yields a string in
// `outValue` (which holds kIniValueSize characters): the stored value when found, else the default.
void ReadIniValue(const char* fileName, const char* section, const char* key, char* outValue,
                  const char* defaultValue);
std::string ReadIniString(const char* fileName, const char* section, const char* key,
                          const char* defaultValue);

// ReadIniValue on an explicit path; the trace names the file as `shownName`.
void ReadIniValueTraced(const std::string& path, const char* shownName, const char* section, const char* key,
                        char* outValue, const char* defaultValue);

// Whether a line of the file opens the section (the rule every read uses). A missing, unreadable or
// too large file holds none.
bool IniHasSection(const std::string& path, const char* section);

// Stores one value; an empty value removes an existing key line (a missing key is stored empty).
// The file is replaced in one step, so a write that fails leaves the old file as it was. A file
// that is a link is replaced where the link leads. A read-only file, a UTF-16 file and one over
// 16 MB are never replaced: the log and X-Plane's Log.txt say why.
void WriteIniValue(const char* fileName, const char* section, const char* key, const char* value);

// How many files the writer has replaced so far: what was learnt of a file before a write may be
// stale after it.
unsigned IniWriteCount();

// The same on an explicit path, without the read trace: for the tools and the tests.
// ReadIniValueAtPath returns true when the key was found.
bool ReadIniValueAtPath(const std::string& path, const char* section, const char* key,
                        char* outValue, const char* defaultValue);
// Returns true when the new file took the old one's place.
bool WriteIniValueAtPath(const std::string& path, const char* section, const char* key,
                         const char* value);

// While one lives, reads of the file come from an index of it (IniIndex.h) made from one read when
// the first was made: a load of every unit's assignments reads hundreds of keys, and scanning the
// file for each one took a tenth of a frame. What is found is exactly what the file would give; a
// write through this reader refreshes the index. Snapshots of one file nest; two files can be held
// at once (the plug-in's and an aircraft's), and a third is simply read from the file. Main thread
// only.
struct IniPath {
  std::string path;
};
class IniReadSnapshot {
 public:
  explicit IniReadSnapshot(const char* fileName = kConfigFileName);
  explicit IniReadSnapshot(const IniPath& file);
  ~IniReadSnapshot();
  IniReadSnapshot(const IniReadSnapshot&) = delete;
  IniReadSnapshot& operator=(const IniReadSnapshot&) = delete;

 private:
  int slot_;  // -1: no index was taken for this one
};

// The index of one file that reads use while an IniReadSnapshot of it lives.
struct IniSnapshot {
  int depth = 0;
  bool taken = false;  // false: the file could not be read; reads go to the file
  std::string fileName;  // empty for a snapshot made by path
  std::string path;
  // While taken, empty: there is no such file, or one too large to read. Kept when the snapshot
  // ends (unless large), for the next snapshot in the slot to reuse if the file is unchanged.
  std::optional<IniIndex> index;
};

// The reader's and writer's part of the plug-in's state (BaseState).
struct IniFiles {
  // A load reads the plug-in's file and the user's aircraft's one: two files at once at most.
  std::array<IniSnapshot, 2> snapshots;
  unsigned writes = 0;  // files replaced through this writer
};

// Numbers are parsed from the leading decimal text of a value; no number gives 0.
int ParseIniInt(const char* value);
float ParseIniReal(const char* value);

}  // namespace drav
