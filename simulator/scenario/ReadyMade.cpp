#include "simulator/scenario/ReadyMade.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>

namespace accessory::simulator {

namespace fs = std::filesystem;

namespace {

/// The program may have been installed elsewhere than it was configured for.
fs::path besideProgram() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return program.parent_path().parent_path() / SIMULATOR_DATA_SUBFOLDER;
}

}  // namespace

std::vector<std::string> scenarioFolders() {
    std::vector<std::string> folders;
    const char* const own = std::getenv("ACCESSORY_SCENARIO_DIR");
    if (own != nullptr && *own != '\0') folders.emplace_back(own);
    folders.push_back(besideProgram().string());
    // A program out of a package must not look where somebody else may make a folder.
    if (*SIMULATOR_SOURCE_SCENARIOS != '\0') folders.emplace_back(SIMULATOR_SOURCE_SCENARIOS);
    return folders;
}

std::optional<std::string> findScenario(const std::string& name) {
    std::error_code error;
    const fs::path path(name);
    if (path.has_parent_path() || path.extension() == ".json")
        return fs::exists(path, error) ? std::optional(name) : std::nullopt;
    for (const std::string& folder : scenarioFolders()) {
        const fs::path file = fs::path(folder) / (name + ".json");
        if (fs::exists(file, error)) return file.string();
    }
    return std::nullopt;
}

std::vector<std::string> listScenarios() {
    std::map<std::string, std::string> files;
    for (const std::string& folder : scenarioFolders()) {
        std::error_code error;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
            if (entry.path().extension() == ".json")
                files.emplace(entry.path().stem().string(), entry.path().string());
        }
    }
    std::vector<std::string> list;
    list.reserve(files.size());
    for (const auto& [name, file] : files)
        list.push_back(file);
    return list;
}

}  // namespace accessory::simulator
