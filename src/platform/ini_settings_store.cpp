#include "platform/ini_settings_store.h"

#include "base/failure.h"

namespace tarvik {

namespace {

constexpr std::size_t mostNamed = 20; ///< a file of another kind is damaged in every line

std::string damageOf(const Path& file, const IniDocument& document) {
    const auto& damage = document.damage();
    std::string words = file.string() + ": " + std::to_string(damage.size());
    words += damage.size() == 1 ? " line is" : " lines are";
    words +=
        " damaged and left out; what else the file holds counts. Correct the file, or set the values anew";
    for (std::size_t i = 0; i < std::min(damage.size(), mostNamed); ++i) {
        words += "\nline " + std::to_string(damage[i].number) + ": " + damage[i].what;
    }
    if (damage.size() > mostNamed) {
        words += "\nand " + std::to_string(damage.size() - mostNamed) + " more; is this the right file?";
    }
    return words;
}

} // namespace

IniSettingsStore::IniSettingsStore(Files& files, Path file, const ProblemReport& report)
    : files_(files), file_(std::move(file)) {
    try {
        document_ = IniDocument(readText());
        if (report && !document_.damage().empty()) report(damageOf(file_, document_));
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
    if (get(section, key) == value) return;
    pending_.insert_or_assign({std::string(section), std::string(key)}, std::string(value));
}

void IniSettingsStore::commit() {
    const std::string before = readText();
    IniDocument ours = document_;
    IniDocument file = files_.exists(file_) ? IniDocument(before) : document_;
    for (const auto& [name, value] : pending_) {
        ours.set(name.first, name.second, value);
        file.set(name.first, name.second, value);
    }
    if (const std::string after = file.text(); after != before) {
        files_.createFolder(file_.parent_path());
        files_.replace(file_, asBytes(after));
    }
    document_ = std::move(ours);
    pending_.clear();
}

} // namespace tarvik
