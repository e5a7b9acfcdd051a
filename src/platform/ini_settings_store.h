// The settings as a text file in the user's configuration folder (see ini_document.h for the text).
//
// A missing file is an empty store. Only what this program has changed is written, key by key, into what the
// file holds at that moment: an edit made meanwhile, by hand or by another program, survives unless the same
// key was changed here. The damaged lines are reported, all at once, left out, and kept in the file. A file
// that cannot be read, or is far too large to be one of ours, is reported and left alone: the store is then
// empty and refuses to commit.
#pragma once

#include "platform/files.h"
#include "platform/ini_document.h"
#include "platform/problem_report.h"
#include "platform/settings_store.h"

namespace tarvik {

class IniSettingsStore final : public SettingsStore {
  public:
    static constexpr std::uint64_t largestFile = 1'048'576; ///< bytes; a full store has about 3,000

    /// `report` is called while the constructor reads, not later.
    IniSettingsStore(Files& files, Path file, const ProblemReport& report = {});

    [[nodiscard]] std::optional<std::string> get(std::string_view section,
                                                 std::string_view key) const override;
    /// A value that the store holds already is no change.
    void set(std::string_view section, std::string_view key, std::string_view value) override;
    /// Throws a Failure and keeps what was set when the file cannot be written.
    void commit() override;
    [[nodiscard]] std::string where() const override { return file_.string(); }

  private:
    [[nodiscard]] std::string readText() const;

    Files& files_;
    Path file_;
    IniDocument document_; ///< as it was read, with what this program has changed since
    std::map<std::pair<std::string, std::string>, std::string> pending_;
};

} // namespace tarvik
