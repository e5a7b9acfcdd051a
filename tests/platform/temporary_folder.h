// A folder on the real disk that lives as long as the test.
#pragma once

#include "platform/files.h"

#include <cstdlib>
#include <stdexcept>

namespace tarvik {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "tarvik-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const Path& path() const { return path_; }
    [[nodiscard]] Path operator/(const std::string& name) const { return path_ / name; }

  private:
    Path path_;
};

} // namespace tarvik
