// Files as the program needs them: whole, appended to, or patched in place. Nothing stays open between calls.
//
// Every failure is thrown as a Failure whose text names the file and says what to do. A failed call leaves
// the file as it was: a short append is cut back, a replacement that did not finish leaves the old file.
#pragma once

#include "base/civil_time.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

using Path = std::filesystem::path;
using Bytes = std::vector<std::uint8_t>;

class Files {
  public:
    virtual ~Files() = default;

    [[nodiscard]] virtual bool exists(const Path& file) const = 0;
    [[nodiscard]] virtual std::uint64_t size(const Path& file) const = 0;
    [[nodiscard]] virtual CivilTime modified(const Path& file) const = 0;

    [[nodiscard]] virtual Bytes read(const Path& file) const = 0;
    /// What is there of `length` bytes from `offset`.
    [[nodiscard]] virtual Bytes readPart(const Path& file, std::uint64_t offset,
                                         std::size_t length) const = 0;

    /// Two names of one file: another spelling, a link. False when either does not exist.
    [[nodiscard]] virtual bool same(const Path& one, const Path& other) const = 0;

    /// Opens, writes at the end, closes; creates the file when missing.
    virtual void append(const Path& file, std::span<const std::uint8_t> bytes) = 0;
    /// The whole file anew: a temporary beside it, flushed to the disk, renamed over it.
    virtual void replace(const Path& file, std::span<const std::uint8_t> bytes) = 0;
    /// Writes over bytes that exist, in place; a patch that would reach past the end is refused.
    virtual void patch(const Path& file, std::uint64_t offset, std::span<const std::uint8_t> bytes) = 0;
    /// Cuts the file back; never makes it longer.
    virtual void truncate(const Path& file, std::uint64_t size) = 0;
    virtual void copy(const Path& from, const Path& to) = 0;
    /// Nothing happens when there is no such file.
    virtual void remove(const Path& file) = 0;

    /// With all folders above it; nothing happens when it exists.
    virtual void createFolder(const Path& folder) = 0;
    /// Names (without the folder) of the files in a folder, sorted; empty when there is no such folder.
    [[nodiscard]] virtual std::vector<std::string> list(const Path& folder) const = 0;
    /// The same for the folders in it.
    [[nodiscard]] virtual std::vector<std::string> folders(const Path& folder) const = 0;
};

/// A text as the bytes that go into a file.
[[nodiscard]] inline std::span<const std::uint8_t> asBytes(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}
[[nodiscard]] inline std::string asText(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace tarvik
