#include "platform/ini_document.h"

#include "base/failure.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // some editors put one first

/// What follows a backslash, and what both together mean.
constexpr std::array<std::pair<char, char>, 5> escapes{
    {{'\\', '\\'}, {'"', '"'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}}};

std::string_view withoutSpace(std::string_view text) {
    constexpr std::string_view space = " \t\r";
    const auto first = text.find_first_not_of(space);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

struct Unquoted {
    std::string value;
    std::string_view problem; ///< empty when there is none
};

Unquoted unquote(std::string_view text) {
    if (!text.starts_with('"')) return {{}, "the value must stand in double quotes: Key=\"value\""};
    Unquoted result;
    std::size_t at = 1;
    for (; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] != '\\') {
            result.value += text[at];
            continue;
        }
        if (++at == text.size()) break;
        const auto* const escape = std::ranges::find(escapes, text[at], &std::pair<char, char>::first);
        if (escape == escapes.end())
            return {{}, "a backslash may stand only before \\ \" n r t; for the backslash itself write \\\\"};
        result.value += escape->second;
    }
    if (at >= text.size()) return {{}, "the closing double quote is missing"};
    if (at + 1 != text.size())
        return {{}, "there is text after the closing double quote; a quote inside a value is written \\\""};
    return result;
}

std::string quoted(std::string_view key, std::string_view value) {
    std::string line(key);
    line += "=\"";
    for (const char c : value) {
        const auto* const escape = std::ranges::find(escapes, c, &std::pair<char, char>::second);
        if (escape != escapes.end()) line += '\\';
        line += escape != escapes.end() ? escape->first : c;
    }
    return line += '"';
}

bool readsBack(std::string_view name, std::string_view forbidden) {
    return !name.empty() && withoutSpace(name) == name && name.find_first_of("\r\n") == name.npos &&
           name.find_first_of(forbidden) == name.npos;
}

} // namespace

IniDocument::IniDocument(std::string_view text) {
    std::string section;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        lines_.emplace_back(text.substr(0, end));
        readLine(lines_.back(), section);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void IniDocument::readLine(std::string_view line, std::string& section) {
    if (lines_.size() == 1 && line.starts_with(byteOrderMark)) line.remove_prefix(byteOrderMark.size());
    line = withoutSpace(line);
    if (line.empty()) return;
    if (line.starts_with('[') && line.ends_with(']')) {
        section = line.substr(1, line.size() - 2);
    } else if (!line.starts_with(';') && !line.starts_with('#')) {
        readEntry(line, section);
    }
    lastLineOf_[section] = lines_.size() - 1;
}

void IniDocument::readEntry(std::string_view line, const std::string& section) {
    const auto damaged = [&](std::string_view what) {
        damage_.push_back({lines_.size(), std::string(what)});
    };
    const auto equals = line.find('=');
    const std::string_view key = withoutSpace(line.substr(0, equals));
    if (equals == line.npos || key.empty()) return damaged("this is neither [Section] nor Key=\"value\"");
    if (section.empty()) return damaged("this key stands before the first [Section]");
    Unquoted read = unquote(withoutSpace(line.substr(equals + 1)));
    if (!read.problem.empty()) return damaged(read.problem);

    const auto [entry, isNew] = entries_.try_emplace(Name(section, key));
    if (!isNew) {
        damaged("this key stands in line " + std::to_string(entry->second.line + 1) +
                " already; the later line counts");
    }
    entry->second = {lines_.size() - 1, std::move(read.value)};
}

std::optional<std::string> IniDocument::get(std::string_view section, std::string_view key) const {
    const auto found = entries_.find(Name(section, key));
    if (found == entries_.end()) return std::nullopt;
    return found->second.value;
}

void IniDocument::set(std::string_view section, std::string_view key, std::string_view value) {
    if (!readsBack(section, "]") || !readsBack(key, "=[") || key.front() == ';' || key.front() == '#') {
        throw Failure(ErrorNumber::internal, "\"" + std::string(section) + "\" \"" + std::string(key) +
                                                 "\" cannot be the name of a setting");
    }
    const auto [entry, isNew] = entries_.try_emplace(Name(section, key));
    if (!isNew && entry->second.value == value) return;
    if (isNew) {
        const std::size_t at = lineAfterSection(std::string(section));
        insertLine(at, {});
        entry->second.line = at;
        lastLineOf_[std::string(section)] = at;
    }
    entry->second.value = value;
    lines_[entry->second.line] = quoted(key, value);
}

std::size_t IniDocument::lineAfterSection(const std::string& section) {
    if (const auto found = lastLineOf_.find(section); found != lastLineOf_.end()) return found->second + 1;
    if (!lines_.empty() && !withoutSpace(lines_.back()).empty()) lines_.emplace_back();
    lines_.push_back("[" + section + "]");
    return lines_.size();
}

void IniDocument::insertLine(std::size_t at, std::string line) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
    for (auto& [name, entry] : entries_) entry.line += entry.line >= at ? 1 : 0;
    for (auto& [section, last] : lastLineOf_) last += last >= at ? 1 : 0;
}

std::string IniDocument::text() const {
    std::string text;
    for (const std::string& line : lines_) text.append(line).append(1, '\n');
    return text;
}

} // namespace tarvik
