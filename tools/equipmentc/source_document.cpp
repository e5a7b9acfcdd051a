#include "equipmentc/source_document.h"

#include <algorithm>

namespace equipmentc {

namespace {

std::string_view stripped(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

template <class Names>
std::string listed(const Names& names) {
    std::string list;
    for (const auto& name : names) list += (list.empty() ? "" : ", ") + name;
    return list;
}

std::vector<std::string> sectionNames(const KnownKeys& known) {
    std::vector<std::string> names;
    for (const auto& [section, keys] : known) names.push_back("[" + section + "]");
    return names;
}

class Reader {
  public:
    Reader(const KnownKeys& known, std::string_view repeatable, Problems& problems)
        : known_(known), repeatable_(repeatable), problems_(problems) {}

    void readLine(std::string_view line, int number) {
        line = stripped(line);
        if (line.empty() || line.front() == '#') return;
        if (line.front() == '[') return enterSection(line, number);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            problems_.add(number, "neither \"key = value\" nor a section; put a # before a remark");
            return;
        }
        readEntry(std::string(stripped(line.substr(0, equals))), stripped(line.substr(equals + 1)), number);
    }

    [[nodiscard]] std::vector<Entry> entries() && { return std::move(entries_); }

  private:
    void enterSection(std::string_view line, int number) {
        const std::string name(line.substr(1, line.find(']') - 1));
        keys_ = nullptr;
        if (const auto found = known_.find(name); line.back() != ']' || found == known_.end()) {
            problems_.add(number, "no such section; use one of " + listed(sectionNames(known_)));
        } else if (!seen_.insert("[" + name).second) {
            problems_.add(number, "the section [" + name + "] stands here again; put its keys together");
        } else {
            section_ = name;
            keys_ = &found->second;
        }
        skipping_ = keys_ == nullptr;
    }

    void readEntry(const std::string& key, std::string_view value, int number) {
        if (skipping_) return; // said once, at its section
        if (keys_ == nullptr) {
            problems_.add(number, "a key before the first section; begin with one of " +
                                      listed(sectionNames(known_)));
        } else if (!keys_->contains(key)) {
            problems_.add(number,
                          "[" + section_ + "] has no key \"" + key + "\"; use one of " + listed(*keys_));
        } else if (!seen_.insert(section_ + "=" + key).second && key != repeatable_) {
            problems_.add(number, "\"" + key + "\" stands in [" + section_ + "] already; keep one of them");
        } else {
            entries_.push_back({number, section_, key, std::string(value)});
        }
    }

    const KnownKeys& known_;
    std::string_view repeatable_;
    Problems& problems_;
    std::vector<Entry> entries_;
    std::set<std::string> seen_;
    std::string section_;
    const std::set<std::string>* keys_ = nullptr;
    bool skipping_ = false;
};

} // namespace

std::vector<Entry> readSource(std::string_view text, const KnownKeys& known, std::string_view repeatable,
                              Problems& problems) {
    Reader reader(known, repeatable, problems);
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        reader.readLine(text.substr(0, end), number);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return std::move(reader).entries();
}

std::vector<std::string> splitParts(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(stripped(text.substr(0, end)));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

} // namespace equipmentc
