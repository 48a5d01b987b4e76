// TmWinReg: the library's only access to persistent settings. Reads, creates and writes string
// values in the settings store with the registry's rules and 16-bit results.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kxc {

// A predefined root, passed as its 32-bit handle value. Only these two select a store root;
// any other value makes every operation fail with -1.
using RegHive = std::uint32_t;
inline constexpr RegHive HKEY_CURRENT_USER = 0x80000001u;   // the per-user root
inline constexpr RegHive HKEY_LOCAL_MACHINE = 0x80000002u;  // the per-machine root

inline constexpr int16_t kRegOk = 0;
inline constexpr int16_t kRegFailed = -1;
// Status of a create that the store refused (the system's "access denied").
inline constexpr int16_t kRegAccessDenied = 5;

// The key under which the user's choices are kept.
inline constexpr const char* kCacheSettingsKey = "Software\\Kestra\\Cache";

// Reads the string value `valueName` of `keyPath` into `value`; 0 on success, -1 on failure.
// A missing key leaves `value` untouched. Otherwise `value` is first filled with 512 "*" as the
// data area; a stored value of at most 500 bytes (UTF-8, as the store holds it) is copied over
// its start, followed by a NUL when fewer than 500 bytes were copied; a longer or missing value
// fails and leaves the filler. Finally `value` is cut before its first NUL, if any: so a missing
// value reads as the filler, a 500-byte value as itself followed by the rest of the filler, and
// data with an embedded NUL only up to the NUL.
int16_t GetRegString(const RegHive& hive, const std::string& keyPath, const std::string& valueName,
                     std::string& value);

// Creates `subKeyPath` (one or more levels) beneath the existing key `parentPath`; an existing
// key is simply opened. -1 when the parent is missing, otherwise the create's status: 0, or
// kRegAccessDenied when the store refused it. Each created key stays open for the life of the
// process, as the registry's create call leaves it: see keysLeftOpen().
int16_t CreateRegKey(const RegHive& hive, const std::string& parentPath,
                     const std::string& subKeyPath);

// Writes `value` into the existing key `keyPath`; 0 on success, -1 on failure, also when the
// key is missing (this never creates a key).
int16_t SetRegString(const RegHive& hive, const std::string& keyPath, const std::string& valueName,
                     const std::string& value);

// Remembers a user's choice under kCacheSettingsKey of the per-user root: when the value cannot
// be read, the key is created first ("Software\" then "Kestra\Cache"); then the value is
// written. Results are not checked.
void RememberChoice(const std::string& name, const std::string& text);

// A key created in this process ("HKCU\path" or "HKLM\path") and how many creates of it
// succeeded, each of which left a handle open.
struct OpenKeyRecord {
  std::string key;
  std::size_t handles = 0;
};
// The keys created so far, in order of their first creation.
std::vector<OpenKeyRecord> keysLeftOpen();

}  // namespace kxc
