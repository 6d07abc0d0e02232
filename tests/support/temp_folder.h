#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace tessarin::testing {

// A fresh folder under the system's temporary folder, removed with everything in it at the end.
class TempFolder {
  public:
    TempFolder() {
        std::random_device seed;
        path_ = std::filesystem::temp_directory_path() / ("tessarin-test-" + std::to_string(seed()));
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // The folder with a trailing separator, as the reports print folders.
    std::string Folder() const { return path_.string() + "/"; }
    std::string Path(const std::string& name) const { return (path_ / name).string(); }

    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    bool Exists(const std::string& name) const { return std::filesystem::exists(path_ / name); }

  private:
    std::filesystem::path path_;
};

}  // namespace tessarin::testing
