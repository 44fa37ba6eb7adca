// The data folder, and loading and saving the three state files in their
// fixed order with the chaining of failures the calculator has always had.
#include "store/persistence.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "store/atomic_file.h"
#include "store/item_record.h"
#include "store/settings_file.h"

namespace quorvel {

namespace {

namespace fs = std::filesystem;

// A temporary file this old is a leftover of a save that was killed before
// its rename, not one a running save is still writing.
constexpr std::chrono::seconds StaleTemporaryAge{3600};

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::string(value) : std::string();
}

// Creates the folder and any missing parent; errors are left to the file
// operations that follow.
void makeFolder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
}

bool saveFile(const fs::path& path, const std::ostringstream& content) {
    return WriteFileAtomically(path, content.view());
}

}  // namespace

std::string DefaultDataFolder() {
    fs::path base = environment("XDG_DATA_HOME");
    if (base.empty() || !base.is_absolute()) {
        const std::string home = environment("HOME");
        const std::string roaming = environment("APPDATA");   // where there is no HOME
        if (!home.empty()) base = fs::path(home) / ".local" / "share";
        else if (!roaming.empty()) base = roaming;
        else return std::string();
    }
    return (base / "Kestrovalian" / "Quorvel").string();
}

void LoadState(AppState& app) {
    if (app.dataFolder.empty()) app.dataFolder = DefaultDataFolder();
    if (app.dataFolder.empty()) return;
    const fs::path folder = app.dataFolder;
    makeFolder(folder);
    RemoveStaleTemporaries(folder, {SettingsFileName, StackFileName, MemoryFileName}, StaleTemporaryAge);

    // Without the settings the stack and memories are not read either, and
    // without the stack the memories are not.
    std::ifstream settings(folder / SettingsFileName, std::ios::binary);
    if (!settings) return;
    ReadSettings(settings, app);
    std::ifstream stack(folder / StackFileName, std::ios::binary);
    if (!stack) return;
    ReadStack(stack, app.stack);
    std::ifstream memories(folder / MemoryFileName, std::ios::binary);
    if (!memories) return;
    ReadMemories(memories, app.memories);
}

void SaveState(const AppState& app) {
    if (app.dataFolder.empty()) return;
    const fs::path folder = app.dataFolder;
    makeFolder(folder);

    std::ostringstream settings;
    WriteSettings(settings, app);
    if (!saveFile(folder / SettingsFileName, settings)) return;
    std::ostringstream stack(std::ios::binary);
    WriteStack(stack, app.stack);
    if (!saveFile(folder / StackFileName, stack)) return;
    std::ostringstream memories(std::ios::binary);
    WriteMemories(memories, app.memories);
    saveFile(folder / MemoryFileName, memories);
}

}  // namespace quorvel
