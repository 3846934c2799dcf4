// The plug-in's INI reader and writer. Both walk the file under the line rules of IniLines.h, so
// what one finds is what the other rewrites.
#include "base/IniFile.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "XPLMUtilities.h"
#include "base/BaseState.h"
#include "base/IniIndex.h"
#include "base/IniLines.h"
#include "base/Log.h"
#include "base/Settings.h"

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#endif

namespace drav {
namespace {

constexpr std::string_view kWrittenLineEnd = "\r\n";

using ini::Contains;
using ini::FindKeyPrefix;
using ini::StartsSection;

// A configuration file is a few kilobytes. One beyond this is not a configuration the pilot wrote
// (a runaway tool, a log saved under the wrong name): it is neither read nor rewritten, so that no
// load spends longer than one look at its size.
constexpr std::uintmax_t kLargestConfigFile = 16u << 20;

// A line for the pilot: the plug-in's log, and X-Plane's Log.txt, which is there even while the log
// is switched off (or cannot be switched on, because the file is not read).
void ReportFileProblem(const char* format, ...) __attribute__((format(printf, 1, 2)));
void ReportFileProblem(const char* format, ...) {
  char text[kLogLineMax + 1];
  va_list arguments;
  va_start(arguments, format);
  const int written = std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  if (written < 0) return;
  LogLine(text);
  SimLogLine(text);
}

// ---- the file's bytes ---------------------------------------------------------------------------

enum class FileRead : std::uint8_t { kRead, kMissing, kUnreadable, kTooLarge };

struct FileBytes {
  FileRead result = FileRead::kMissing;
  std::string bytes;
  std::uintmax_t size = 0;
};

// Notepad's "Unicode" is UTF-16 with a byte-order mark: FF FE (little end first) or FE FF.
enum class Utf16 : std::uint8_t { kNo, kLittle, kBig };

Utf16 Utf16Order(std::string_view bytes) {
  if (bytes.size() < 2) return Utf16::kNo;
  const auto first = static_cast<unsigned char>(bytes[0]);
  const auto second = static_cast<unsigned char>(bytes[1]);
  if (first == 0xFF && second == 0xFE) return Utf16::kLittle;
  if (first == 0xFE && second == 0xFF) return Utf16::kBig;
  return Utf16::kNo;
}

void AppendUtf8(std::string& out, std::uint32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (code >> 18));
    out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// The text as UTF-8, which the line rules read like any 8-bit file (every name and key is ASCII).
// A lone surrogate becomes U+FFFD; an odd last byte is dropped.
std::string Utf16ToUtf8(std::string_view bytes, Utf16 order) {
  auto unit = [&](std::size_t at) {
    const auto a = static_cast<unsigned char>(bytes[at]);
    const auto b = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<std::uint32_t>(order == Utf16::kLittle ? a | (b << 8) : (a << 8) | b);
  };
  std::string out;
  out.reserve(bytes.size() / 2);
  for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
    std::uint32_t code = unit(at);
    if (code >= 0xD800 && code < 0xDC00 && at + 3 < bytes.size() && unit(at + 2) >= 0xDC00 &&
        unit(at + 2) < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (unit(at + 2) - 0xDC00);
      at += 2;
    } else if (code >= 0xD800 && code < 0xE000) {
      code = 0xFFFD;
    }
    AppendUtf8(out, code);
  }
  return out;
}

// The whole file in one read, as the line rules see it (a UTF-16 file converted). A file over the
// limit is not read at all.
FileBytes ReadFileBytes(const std::string& path) {
  FileBytes file;
  std::error_code error;
  file.size = std::filesystem::file_size(path, error);
  if (!error && file.size > kLargestConfigFile) {
    file.result = FileRead::kTooLarge;
    return file;
  }
  std::FILE* in = std::fopen(path.c_str(), "rb");
  if (!in) {
    file.result = errno == ENOENT ? FileRead::kMissing : FileRead::kUnreadable;
    return file;
  }
  char chunk[16384];
  std::size_t got = 0;
  file.result = FileRead::kRead;
  while ((got = std::fread(chunk, 1, sizeof chunk, in)) > 0) {
    file.bytes.append(chunk, got);
    if (file.bytes.size() > kLargestConfigFile) {  // it grew since its size was asked
      file.result = FileRead::kTooLarge;
      file.size = file.bytes.size();
      break;
    }
  }
  if (std::ferror(in) != 0) file.result = FileRead::kUnreadable;
  std::fclose(in);
  if (file.result != FileRead::kRead) file.bytes.clear();
  const Utf16 order = Utf16Order(file.bytes);
  if (order != Utf16::kNo) file.bytes = Utf16ToUtf8(file.bytes, order);
  return file;
}

void ReportTooLarge(const std::string& path, std::uintmax_t size) {
  ReportFileProblem("%s is larger than 16 MB (%lu MB): every section of it reads as absent and it is never rewritten",
                    path.c_str(), static_cast<unsigned long>(size >> 20));
}

// ---- the snapshot -------------------------------------------------------------------------------

// Main thread only, like every caller of the reader.
using Snapshot = IniSnapshot;
std::array<Snapshot, 2>& Snapshots() { return CurrentBaseState().iniFiles.snapshots; }

// An index kept from the last snapshot for the next one, when the file is no larger than this.
constexpr std::size_t kLargestKeptIndex = 1 << 20;

void TakeSnapshot(Snapshot& snapshot) {
  snapshot.taken = false;
  FileBytes file = ReadFileBytes(snapshot.path);
  // The file is read again every time; an index is a function of the bytes alone, so when they
  // are the ones the kept index was made from (a reload of an unchanged file, the common case),
  // that index answers, with the key tables the last load built.
  const bool same = file.result == FileRead::kRead && snapshot.index && snapshot.index->Bytes() == file.bytes;
  if (!same) snapshot.index.reset();
  switch (file.result) {
    case FileRead::kUnreadable:
      return;
    case FileRead::kTooLarge:
      ReportTooLarge(snapshot.path, file.size);
      break;
    case FileRead::kRead:
      if (!same) snapshot.index.emplace(std::move(file.bytes));
      break;
    case FileRead::kMissing:
      break;
  }
  snapshot.taken = true;
}

// The live snapshot of the file, if one covers it.
Snapshot* SnapshotOf(const std::string& path) {
  for (Snapshot& snapshot : Snapshots()) {
    if (snapshot.depth > 0 && snapshot.taken && snapshot.path == path) return &snapshot;
  }
  return nullptr;
}

// The live snapshot taken by name, for reads that name the file rather than its path.
Snapshot* SnapshotNamed(const char* fileName) {
  if (fileName == nullptr) return nullptr;
  for (Snapshot& snapshot : Snapshots()) {
    if (snapshot.depth > 0 && !snapshot.fileName.empty() && snapshot.fileName == fileName) return &snapshot;
  }
  return nullptr;
}

// Joins a live snapshot of the path, or takes a free slot; -1 when every slot holds another file.
int OpenSnapshot(const std::string& path, const char* fileName) {
  for (std::size_t slot = 0; slot < Snapshots().size(); ++slot) {
    if (Snapshots()[slot].depth > 0 && Snapshots()[slot].path == path) {
      ++Snapshots()[slot].depth;
      return static_cast<int>(slot);
    }
  }
  for (std::size_t slot = 0; slot < Snapshots().size(); ++slot) {
    Snapshot& snapshot = Snapshots()[slot];
    if (snapshot.depth > 0) continue;
    snapshot.depth = 1;
    snapshot.fileName = fileName ? fileName : "";
    snapshot.path = path;
    TakeSnapshot(snapshot);
    return static_cast<int>(slot);
  }
  return -1;
}

std::string SectionTag(const char* section) { return std::string("[") + section + "]"; }
std::string KeyPrefix(const char* key) { return std::string(key) + "="; }

// Copies at most kIniValueSize - 1 characters and always terminates.
void CopyValue(char* out, std::string_view text) {
  const std::size_t length = text.size() < kIniValueSize - 1 ? text.size() : kIniValueSize - 1;
  if (length != 0) std::memcpy(out, text.data(), length);  // an empty view may hold a null pointer
  out[length] = '\0';
}
// A null text reads as "".
std::string_view ViewOf(const char* text) {
  return text ? std::string_view(text) : std::string_view();
}

// `snapshot` is the live one of the path, if any.
bool FindValue(Snapshot* snapshot, const std::string& path, const char* section, const char* key, char* out) {
  if (snapshot != nullptr) {
    if (!snapshot->index) return false;
    const std::optional<std::string_view> value = snapshot->index->Find(section, key);
    if (value) CopyValue(out, *value);
    return value.has_value();
  }
  const FileBytes file = ReadFileBytes(path);
  if (file.result != FileRead::kRead) return false;
  const std::optional<std::string> value = ScanIniBytes(file.bytes, section, key);
  if (value) CopyValue(out, *value);
  return value.has_value();
}

// Streams the lines of the old file into the new one, changing the one key on the way.
class KeyRewriter {
 public:
  KeyRewriter(std::FILE* out, std::string_view tag, std::string_view prefix, std::string_view value)
      : out_(out), tag_(tag), prefix_(prefix), value_(value) {}

  void Line(std::string_view line) {
    if (inSection_) {
      if (!StartsSection(line)) {
        InSectionLine(line);
        return;
      }
      // The section ends here, even when this line also holds the key (the reader would take it
      // as the key line): rewriting or dropping it would damage the next section's line. A key
      // the section lacked goes in before it.
      inSection_ = false;
      if (!keyWritten_) WriteNewKeyLine();
    }
    Write(line);
    if (Contains(line, tag_)) {
      inSection_ = true;
      sectionFound_ = true;
    }
  }

  // Adds what the file lacked once every line is copied.
  void Finish() {
    if (!sectionFound_) Write(tag_);
    if (!keyWritten_) WriteNewKeyLine();
  }

 private:
  void InSectionLine(std::string_view line) {
    const std::size_t at = FindKeyPrefix(line, prefix_);
    if (at == std::string_view::npos) {
      Write(line);
      return;
    }
    if (keyWritten_) return;  // a later duplicate, in this or a later copy of the section
    keyWritten_ = true;
    if (value_.empty()) return;  // an empty value removes the key
    Write(line.substr(0, at + prefix_.size()), value_);
  }

  // Stored also for an empty value: a key the section lacked is kept as the bare prefix.
  void WriteNewKeyLine() {
    Write(prefix_, value_);
    keyWritten_ = true;
  }

  void Write(std::string_view text, std::string_view more = {}) {
    Put(text);
    Put(more);
    Put(kWrittenLineEnd);
  }

  // An empty view may carry a null pointer, which fwrite must not be given.
  void Put(std::string_view text) {
    if (!text.empty()) std::fwrite(text.data(), 1, text.size(), out_);
  }

  std::FILE* out_;
  std::string_view tag_;
  std::string_view prefix_;
  std::string_view value_;
  bool inSection_ = false;
  bool sectionFound_ = false;
  bool keyWritten_ = false;
};

// Copies `in` (null: no old file) into `out` with the key changed. True when every read and write
// succeeded; `out` is closed either way.
bool WriteRewrittenFile(std::FILE* in, std::FILE* out, std::string_view tag,
                        std::string_view prefix, std::string_view value) {
  KeyRewriter rewriter(out, tag, prefix, value);
  bool readFailed = false;
  if (in) {
    ini::LineReader reader{ini::FileCharacters(in)};
    std::string_view line;
    while (reader.Next(line)) rewriter.Line(line);
    readFailed = reader.Failed();
  }
  rewriter.Finish();
  const bool flushed = std::fflush(out) == 0 && std::ferror(out) == 0;
  const bool closed = std::fclose(out) == 0;
  return !readFailed && flushed && closed;
}

// Puts the new file in the old one's place in one step.
bool MoveOver(const std::string& from, const std::string& to) {
#ifdef _WIN32
  return MoveFileExA(from.c_str(), to.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#else
  return std::rename(from.c_str(), to.c_str()) == 0;
#endif
}

// The file a path names once every link on the way is followed (the path itself when it is no
// link); nothing for a loop or a link that cannot be read.
std::optional<std::string> LinkTarget(const std::string& path) {
  namespace fs = std::filesystem;
  fs::path at(path);
  for (int hops = 0; hops < 40; ++hops) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(at, error))) return at.string();
    const fs::path next = fs::read_symlink(at, error);
    if (error) return std::nullopt;
    at = next.is_absolute() ? next : at.parent_path() / next;
  }
  return std::nullopt;
}

// Why an existing file must not be replaced: the pilot made it read-only (root and Windows would
// replace it all the same), it is UTF-16, which the writer would turn into a mix of encodings, or it
// is too large to be a configuration.
struct FileRefusal {
  const char* reason = nullptr;
};

FileRefusal RefusalOf(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (error || !fs::exists(status)) return {};
  if ((status.permissions() & fs::perms::owner_write) == fs::perms::none) return {"is read-only"};
  const std::uintmax_t size = fs::file_size(path, error);
  if (!error && size > kLargestConfigFile) return {"is larger than 16 MB"};
  char head[2] = {};
  std::size_t got = 0;
  if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
    got = std::fread(head, 1, sizeof head, file);
    std::fclose(file);
  }
  if (Utf16Order(std::string_view(head, got)) != Utf16::kNo) {
    return {"is saved as UTF-16 (Unicode) and is left as it is: save it as ANSI or UTF-8 to change it here"};
  }
  return {};
}

// The new file gets the old one's permission bits, as an edit in place would keep them; where that
// fails the new file keeps the folder's defaults.
void KeepPermissions(const std::string& oldPath, const std::string& newPath) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::file_status status = fs::status(oldPath, error);
  if (!error && fs::exists(status)) fs::permissions(newPath, status.permissions(), error);
}

// A value is one line: anything from a line end on would turn into lines of its own.
std::string_view OneLine(const char* value) {
  const std::string_view text(value);
  return text.substr(0, text.find_first_of("\r\n"));
}

// Skips the blanks atoi and atof skip, and a '+' (from_chars takes only '-').
const char* SkipToNumber(const char* text) {
  while (*text == ' ' || (*text >= '\t' && *text <= '\r')) ++text;
  if (*text == '+' && text[1] != '-') ++text;
  return text;
}
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::string PluginFilePath(const char* fileName) {
  char systemPath[512] = {};
  XPLMGetSystemPath(systemPath);
  systemPath[sizeof systemPath - 1] = '\0';
  const char* separators = XPLMGetDirectorySeparator();
  const char separator = separators && separators[0] ? separators[0] : '/';
  const char* name = fileName ? fileName : "";
  const char* format = "%sResources%cplugins%cDRAV%c%s";
  const int length =
      std::snprintf(nullptr, 0, format, systemPath, separator, separator, separator, name);
  if (length <= 0) return std::string();
  std::string path(static_cast<std::size_t>(length) + 1, '\0');
  std::snprintf(path.data(), path.size(), format, systemPath, separator, separator, separator,
                name);
  path.resize(static_cast<std::size_t>(length));
  return path;
}

namespace {

bool ReadValue(Snapshot* snapshot, const std::string& path, const char* section, const char* key,
               char* outValue, const char* defaultValue) {
  if (!outValue) return false;
  const bool found = section && key && FindValue(snapshot, path, section, key, outValue);
  if (!found) CopyValue(outValue, ViewOf(defaultValue));
  return found;
}

void ReadValueTraced(Snapshot* snapshot, const std::string& path, const char* shownName, const char* section,
                     const char* key, char* outValue, const char* defaultValue) {
  if (!outValue) return;
  const bool found = ReadValue(snapshot, path, section, key, outValue, defaultValue);
  // The DEBUG switches are read before the log is set up and never trace.
  const bool traced = CurrentDebugSwitches().DebugEnabled == 1 && CurrentDebugSwitches().DebugFunctionAssignments == 1 && section &&
                      std::strcmp(section, "DEBUG") != 0;
  if (!traced) return;
  LogFormat("file: %s, found: %d, section: %s, key: %s, value: %s, default: %s",
            shownName ? shownName : "", found ? 1 : 0, SectionTag(section).c_str(), key ? key : "",
            outValue, defaultValue ? defaultValue : "");
}

}  // namespace

bool ReadIniValueAtPath(const std::string& path, const char* section, const char* key,
                        char* outValue, const char* defaultValue) {
  return ReadValue(SnapshotOf(path), path, section, key, outValue, defaultValue);
}

void ReadIniValueTraced(const std::string& path, const char* shownName, const char* section, const char* key,
                        char* outValue, const char* defaultValue) {
  ReadValueTraced(SnapshotOf(path), path, shownName, section, key, outValue, defaultValue);
}

void ReadIniValue(const char* fileName, const char* section, const char* key, char* outValue,
                  const char* defaultValue) {
  // During a load the snapshot's file is known by name: no path is composed, and no snapshot
  // searched by path, for each key.
  if (Snapshot* snapshot = SnapshotNamed(fileName)) {
    ReadValueTraced(snapshot->taken ? snapshot : nullptr, snapshot->path, fileName, section, key, outValue,
                    defaultValue);
    return;
  }
  const std::string path = PluginFilePath(fileName);
  ReadValueTraced(SnapshotOf(path), path, fileName, section, key, outValue, defaultValue);
}

bool IniHasSection(const std::string& path, const char* section) {
  if (section == nullptr) return false;
  if (Snapshot* snapshot = SnapshotOf(path)) return snapshot->index && snapshot->index->HasSection(section);
  FileBytes file = ReadFileBytes(path);
  return file.result == FileRead::kRead && IniIndex(std::move(file.bytes)).HasSection(section);
}

std::string ReadIniString(const char* fileName, const char* section, const char* key,
                          const char* defaultValue) {
  char value[kIniValueSize];
  ReadIniValue(fileName, section, key, value, defaultValue);
  return value;
}

bool WriteIniValueAtPath(const std::string& path, const char* section, const char* key,
                         const char* value) {
  if (!section || !key || !value) return false;
  // A link stays a link: the file it leads to is the one rewritten, in its own folder.
  const std::optional<std::string> target = LinkTarget(path);
  if (!target) {
    ReportFileProblem("%s: the link cannot be followed; [%s] %s is not stored", path.c_str(), section, key);
    return false;
  }
  if (const FileRefusal refusal = RefusalOf(*target); refusal.reason) {
    ReportFileProblem("%s %s; [%s] %s is not stored", target->c_str(), refusal.reason, section, key);
    return false;
  }
  std::FILE* in = std::fopen(target->c_str(), "rb");
  // A missing file is written as if it were empty; one that exists but cannot be read is left
  // alone.
  if (!in && errno != ENOENT) return false;
  const std::string tempPath = *target + "_TMP";
  std::FILE* out = std::fopen(tempPath.c_str(), "wb");
  if (!out) {
    if (in) std::fclose(in);
    return false;
  }
  const bool written =
      WriteRewrittenFile(in, out, SectionTag(section), KeyPrefix(key), OneLine(value));
  if (in) std::fclose(in);
  if (written) KeepPermissions(*target, tempPath);
  const bool replaced = written && MoveOver(tempPath, *target);
  if (!replaced) std::remove(tempPath.c_str());
  if (replaced) ++CurrentBaseState().iniFiles.writes;
  if (Snapshot* snapshot = replaced ? SnapshotOf(path) : nullptr) TakeSnapshot(*snapshot);  // later reads see it
  return replaced;
}

IniReadSnapshot::IniReadSnapshot(const char* fileName) : slot_(-1) {
  // A nested one of a file taken by name joins it without composing the path again: a load opens
  // one per type and per unit.
  for (std::size_t slot = 0; slot < Snapshots().size(); ++slot) {
    Snapshot& snapshot = Snapshots()[slot];
    if (snapshot.depth > 0 && fileName && snapshot.fileName == fileName) {
      ++snapshot.depth;
      slot_ = static_cast<int>(slot);
      return;
    }
  }
  slot_ = OpenSnapshot(PluginFilePath(fileName), fileName);
}

IniReadSnapshot::IniReadSnapshot(const IniPath& file) : slot_(OpenSnapshot(file.path, nullptr)) {}

IniReadSnapshot::~IniReadSnapshot() {
  if (slot_ < 0) return;
  Snapshot& snapshot = Snapshots()[static_cast<std::size_t>(slot_)];
  if (--snapshot.depth > 0) return;
  snapshot.taken = false;
  if (snapshot.index && snapshot.index->Bytes().size() > kLargestKeptIndex) snapshot.index.reset();
}

unsigned IniWriteCount() { return CurrentBaseState().iniFiles.writes; }

void WriteIniValue(const char* fileName, const char* section, const char* key, const char* value) {
  WriteIniValueAtPath(PluginFilePath(fileName), section, key, value);
}

int ParseIniInt(const char* value) {
  if (!value) return 0;
  const char* text = SkipToNumber(value);
  const char* end = text + std::strlen(text);
  int result = 0;
  // atoi leaves overflow undefined; here it saturates.
  const std::errc error = std::from_chars(text, end, result).ec;
  if (error == std::errc::result_out_of_range) return *text == '-' ? INT_MIN : INT_MAX;
  return error == std::errc() ? result : 0;
}

float ParseIniReal(const char* value) {
  if (!value) return 0.0f;
  const char* text = SkipToNumber(value);
  // Decimal text only: "inf", "nan" and the like are not numbers of this file.
  const char* digits = *text == '-' ? text + 1 : text;
  if (!IsDigit(digits[0]) && !(digits[0] == '.' && IsDigit(digits[1]))) return 0.0f;
  const char* end = text + std::strlen(text);
  float result = 0.0f;
  // from_chars, unlike atof, ignores the process locale (the simulator may set a decimal comma).
  const std::errc error = std::from_chars(text, end, result, std::chars_format::general).ec;
  return error == std::errc() ? result : 0.0f;
}

}  // namespace drav
