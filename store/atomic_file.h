// Replacing a file whole: a reader sees either the old content or the new,
// never a mixture, whatever happens during the save.
#pragma once

#include <chrono>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quorvel {

// Writes `bytes` to a new temporary file beside `path`, flushes it to the
// disk and renames it over `path`. False when any step fails; `path` is then
// untouched and the temporary file removed. Two writers at once never mix:
// the last rename wins whole.
bool WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes);

// The prefix of the temporary files WriteFileAtomically makes for `path`
// ("Stack.bin.tmp-"); each gets a random suffix.
std::string TemporaryPrefix(const std::filesystem::path& path);

// Removes temporary files of `names` in `folder` older than `age`: leftovers
// of a save that was killed before its rename. Errors are ignored.
void RemoveStaleTemporaries(const std::filesystem::path& folder, std::initializer_list<const char*> names,
                            std::chrono::seconds age);

}  // namespace quorvel
