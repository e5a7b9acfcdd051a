// Files in memory, for tests: the same promises as the disk, with faults on demand.
#pragma once

#include "base/failure.h"
#include "platform/files.h"

#include <algorithm>
#include <limits>
#include <map>
#include <set>
#include <tuple>

namespace tarvik {

class MemoryFiles final : public Files {
  public:
    explicit MemoryFiles(const CivilTime& stamp = {.year = 2006, .month = 3, .day = 13, .hour = 9})
        : stamp_(stamp) {}

    // Faults: each names what happens to the writes that follow.
    std::uint64_t failWritesAfter =
        std::numeric_limits<std::uint64_t>::max(); ///< disk full after so many writes
    std::set<Path> readOnly;                       ///< files and folders

    [[nodiscard]] std::uint64_t writes() const { return writes_; }
    [[nodiscard]] std::string text(const Path& file) const { return asText(contents_.at(file)); }
    void put(const Path& file, std::string_view content) {
        const auto bytes = asBytes(content);
        contents_[file].assign(bytes.begin(), bytes.end());
    }

    [[nodiscard]] bool exists(const Path& file) const override {
        return contents_.contains(file) || folders_.contains(file);
    }
    [[nodiscard]] std::uint64_t size(const Path& file) const override { return content(file).size(); }
    [[nodiscard]] CivilTime modified(const Path& file) const override {
        std::ignore = content(file);
        return stamp_;
    }
    [[nodiscard]] bool same(const Path& one, const Path& other) const override {
        return exists(one) && one.lexically_normal() == other.lexically_normal();
    }
    [[nodiscard]] Bytes read(const Path& file) const override { return content(file); }
    [[nodiscard]] Bytes readPart(const Path& file, std::uint64_t offset, std::size_t length) const override {
        const Bytes& all = content(file);
        const std::size_t from = std::min<std::size_t>(offset, all.size());
        const std::size_t count = std::min(length, all.size() - from);
        const auto* const start = all.data() + from;
        return {start, start + count};
    }

    void append(const Path& file, std::span<const std::uint8_t> bytes) override {
        beforeWrite(file);
        Bytes& all = contents_[file];
        all.insert(all.end(), bytes.begin(), bytes.end());
    }
    void replace(const Path& file, std::span<const std::uint8_t> bytes) override {
        beforeWrite(file);
        contents_[file].assign(bytes.begin(), bytes.end());
    }
    void patch(const Path& file, std::uint64_t offset, std::span<const std::uint8_t> bytes) override {
        if (const auto length = content(file).size(); offset > length || bytes.size() > length - offset)
            throw Failure(ErrorNumber::badFile, file.string() + ": is too short for the change");
        beforeWrite(file);
        std::ranges::copy(bytes, contents_.at(file).begin() + static_cast<std::ptrdiff_t>(offset));
    }
    void truncate(const Path& file, std::uint64_t size) override {
        if (size > content(file).size())
            throw Failure(ErrorNumber::badFile, file.string() + ": is shorter than that");
        beforeWrite(file);
        contents_.at(file).resize(size);
    }
    void copy(const Path& from, const Path& to) override { replace(to, content(from)); }
    void remove(const Path& file) override {
        beforeWrite(file);
        contents_.erase(file);
    }
    void createFolder(const Path& folder) override {
        for (Path at = folder; !at.empty() && folders_.insert(at).second; at = at.parent_path()) {
        }
    }
    [[nodiscard]] std::vector<std::string> list(const Path& folder) const override {
        std::vector<std::string> names;
        for (const auto& [file, bytes] : contents_) {
            if (file.parent_path() == folder) names.push_back(file.filename().string());
        }
        return names;
    }
    [[nodiscard]] std::vector<std::string> folders(const Path& folder) const override {
        std::vector<std::string> names;
        for (const Path& at : folders_) {
            if (at.parent_path() == folder && at != folder) names.push_back(at.filename().string());
        }
        return names;
    }

  private:
    [[nodiscard]] const Bytes& content(const Path& file) const {
        const auto found = contents_.find(file);
        if (found == contents_.end()) {
            throw Failure(ErrorNumber::fileNotFound, file.string() + ": there is no such file");
        }
        return found->second;
    }
    void beforeWrite(const Path& file) {
        if (readOnly.contains(file) || readOnly.contains(file.parent_path())) {
            throw Failure(ErrorNumber::permissionDenied, file.string() + ": may not be written");
        }
        if (writes_ >= failWritesAfter)
            throw Failure(ErrorNumber::diskFull, file.string() + ": the disk is full");
        ++writes_;
    }

    CivilTime stamp_;
    std::map<Path, Bytes> contents_;
    std::set<Path> folders_;
    std::uint64_t writes_ = 0;
};

} // namespace tarvik
