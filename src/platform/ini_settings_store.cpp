#include "platform/ini_settings_store.h"

#include "base/failure.h"

namespace tarvik {

namespace {

constexpr std::size_t mostReports = 20; ///< a file of another kind is damaged in every line

void reportDamage(const Path& file, const IniDocument& document, const ProblemReport& report) {
    const auto& damage = document.damage();
    for (std::size_t i = 0; i < std::min(damage.size(), mostReports); ++i) {
        report(file.string() + ":" + std::to_string(damage[i].number) + ": " + damage[i].what);
    }
    if (damage.size() > mostReports) {
        report(file.string() + ": " + std::to_string(damage.size() - mostReports) +
               " more lines are damaged; is this the right file?");
    }
}

} // namespace

IniSettingsStore::IniSettingsStore(Files& files, Path file, const ProblemReport& report)
    : files_(files), file_(std::move(file)) {
    try {
        document_ = IniDocument(readText());
        if (report) reportDamage(file_, document_, report);
    } catch (const Failure& failure) {
        if (report) report(failure.what());
    }
}

std::string IniSettingsStore::readText() const {
    if (!files_.exists(file_)) return {};
    if (const std::uint64_t size = files_.size(file_); size > largestFile) {
        throw Failure(ErrorNumber::badFile, file_.string() + ": " + std::to_string(size) +
                                                " bytes are too many for settings; move this file away");
    }
    return asText(files_.read(file_));
}

std::optional<std::string> IniSettingsStore::get(std::string_view section, std::string_view key) const {
    const auto found = pending_.find({std::string(section), std::string(key)});
    if (found != pending_.end()) return found->second;
    return document_.get(section, key);
}

void IniSettingsStore::set(std::string_view section, std::string_view key, std::string_view value) {
    pending_.insert_or_assign({std::string(section), std::string(key)}, std::string(value));
}

void IniSettingsStore::commit() {
    const std::string before = readText();
    IniDocument document(before);
    for (const auto& [name, value] : pending_) document.set(name.first, name.second, value);
    if (const std::string after = document.text(); after != before) {
        files_.createFolder(file_.parent_path());
        files_.replace(file_, asBytes(after));
    }
    document_ = std::move(document);
    pending_.clear();
}

} // namespace tarvik
