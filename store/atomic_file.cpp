// Whole-file replacement through a temporary file and a rename.
//
// The rename is atomic on the file systems the calculator runs on, so the
// file under its real name is always a complete save. Flushing the data to
// the disk before the rename (and the folder after it) needs the operating
// system; on systems without POSIX calls the data is only flushed from the C
// library's buffer.
#include "store/atomic_file.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <memory>
#include <random>
#include <system_error>

#if defined(__unix__) || defined(__APPLE__)
#include <fcntl.h>
#include <unistd.h>
#define QUORVEL_HAVE_FSYNC 1
#endif

namespace quorvel {

namespace {

namespace fs = std::filesystem;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

constexpr int CreateAttempts = 16;

// Sixteen hex digits that no other writer, in this process or another, is
// likely to pick at the same moment.
std::string randomSuffix() {
    static std::atomic<uint64_t> counter{0};
    std::random_device device;
    uint64_t bits = (static_cast<uint64_t>(device()) << 32) ^ device();
    bits ^= counter.fetch_add(0x9E3779B97F4A7C15ULL);
    std::string suffix;
    for (int i = 0; i < 16; ++i, bits >>= 4) suffix.push_back("0123456789abcdef"[bits & 0xF]);
    return suffix;
}

// Creates a new temporary file for `path`; its name goes to `temporary`.
FileHandle createTemporary(const fs::path& path, fs::path& temporary) {
    for (int attempt = 0; attempt < CreateAttempts; ++attempt) {
        temporary = path;
        temporary.replace_filename(TemporaryPrefix(path) + randomSuffix());
        // "x": fail rather than open a file someone else has just made.
        if (std::FILE* file = std::fopen(temporary.string().c_str(), "wbx")) return FileHandle(file);
    }
    return nullptr;
}

// Pushes the file's data from the operating system's cache to the disk.
bool syncToDisk([[maybe_unused]] std::FILE* file) {
#ifdef QUORVEL_HAVE_FSYNC
    return ::fsync(::fileno(file)) == 0;
#else
    return true;
#endif
}

// Makes the rename itself durable: flushes the folder's entries.
void syncFolder([[maybe_unused]] const fs::path& folder) {
#ifdef QUORVEL_HAVE_FSYNC
    const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
#endif
}

}  // namespace

std::string TemporaryPrefix(const fs::path& path) { return path.filename().string() + ".tmp-"; }

bool WriteFileAtomically(const fs::path& path, std::string_view bytes) {
    fs::path temporary;
    FileHandle file = createTemporary(path, temporary);
    if (!file) return false;
    bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    written = std::fflush(file.get()) == 0 && written;
    written = syncToDisk(file.get()) && written;
    written = std::fclose(file.release()) == 0 && written;
    std::error_code error;
    if (written) fs::rename(temporary, path, error);
    if (!written || error) {
        fs::remove(temporary, error);
        return false;
    }
    syncFolder(path.parent_path());
    return true;
}

void RemoveStaleTemporaries(const fs::path& folder, std::initializer_list<const char*> names,
                            std::chrono::seconds age) {
    std::error_code error;
    const auto now = fs::file_time_type::clock::now();
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        bool ours = false;
        for (const char* target : names) ours = ours || name.starts_with(std::string(target) + ".tmp-");
        if (!ours) continue;
        std::error_code timeError;
        const auto written = entry->last_write_time(timeError);
        if (!timeError && now - written > age) fs::remove(entry->path(), timeError);
    }
}

}  // namespace quorvel
