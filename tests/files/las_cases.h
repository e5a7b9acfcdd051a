// The table of odd LAS files in tests/files/las/oddities.txt, read into memory.
#pragma once

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::testing {

struct LasOutcome {
    std::string rows; ///< "1(10,20) 2(-,21)"
    std::string refused;
    std::string texts;
    std::vector<std::string> says;
};

struct LasCase {
    std::string title;
    std::string text;
    LasOutcome plain;
    LasOutcome tolerant;
};

inline std::string unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            plain += text[i];
            continue;
        }
        switch (text.at(++i)) {
        case 't':
            plain += '\t';
            break;
        case 'r':
            plain += '\r';
            break;
        case 'n':
            plain += '\n';
            break;
        case 's':
            plain += ' ';
            break;
        case 'x':
            plain += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
            break;
        default:
            throw std::runtime_error("unknown escape in " + std::string(text));
        }
    }
    return plain;
}

inline void replace(std::string& text, std::string_view from, std::string_view to) {
    const auto at = text.find(from);
    if (at == std::string::npos) throw std::runtime_error("not in the file: " + std::string(from));
    text.replace(at, from.size(), to);
}

/// Code page 1252 and UTF-8 sequences both go into UTF-16 byte by byte only where they are plain ASCII; other
/// characters are given as UTF-8 of two bytes.
inline std::string utf16(std::string_view text, bool bigEndian) {
    std::string wide;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto unit = static_cast<unsigned>(static_cast<unsigned char>(text[i]));
        if (unit >= 0xC0) unit = (unit & 0x1FU) << 6 | (static_cast<unsigned char>(text[++i]) & 0x3FU);
        const char low = static_cast<char>(unit & 0xFFU);
        const char high = static_cast<char>(unit >> 8);
        wide += bigEndian ? high : low;
        wide += bigEndian ? low : high;
    }
    return wide;
}

inline std::string encoded(const std::string& text, std::string_view how) {
    std::string lines;
    if (how == "bom") return "\xEF\xBB\xBF" + text;
    if (how == "utf16le") return "\xFF\xFE" + utf16(text, false);
    if (how == "utf16be") return "\xFE\xFF" + utf16(text, true);
    if (how == "utf16") return utf16(text, false);
    if (how.empty()) return text;
    for (const char c : text) lines += c != '\n' ? std::string(1, c) : how == "cr" ? "\r" : "\r\n";
    return lines;
}

/// Reads the table line by line; each case is closed by the next.
class LasTable {
  public:
    explicit LasTable(const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        if (!in) throw std::runtime_error(file + " is missing");
        for (std::string line; std::getline(in, line);) take(line);
        close();
    }

    std::vector<LasCase> cases;

  private:
    void take(const std::string& line) {
        if (line.starts_with("--- ")) {
            part_ = line.substr(4);
        } else if (part_ == "file") {
            header_ += line + "\n";
        } else if (part_ == "rows") {
            rows_ += line + "\n";
        } else if (line.starts_with("== ")) {
            close();
            current_ = {.title = line.substr(3), .text = header_, .plain = {}, .tolerant = {}};
            open_ = true;
        } else if (open_ && !line.empty()) {
            takeClause(line);
        }
    }

    void takeClause(const std::string& line) {
        const auto colon = line.find(':');
        const std::string name = line.substr(0, colon);
        const std::string text = unescaped(line.substr(std::min(line.size(), colon + 2)));
        if (name == "change") {
            const auto arrow = text.find(" =>");
            replace(current_.text, text.substr(0, arrow), text.substr(std::min(text.size(), arrow + 4)));
        } else if (name == "data") {
            data_ += text + "\n";
        } else if (name == "end") {
            data_ += text;
        } else if (name == "encode") {
            encode_ = text;
        } else {
            const auto space = std::min(name.find(' '), name.size());
            const std::string who = name.substr(0, space);
            const std::string what = name.substr(std::min(name.size(), space + 1));
            if (who != "tolerant") takeOutcome(current_.plain, what, text);
            if (who != "plain") takeOutcome(current_.tolerant, what, text);
        }
    }

    static void takeOutcome(LasOutcome& outcome, const std::string& what, const std::string& text) {
        if (what.empty()) outcome.rows = text;
        if (what == "refused") outcome.refused = text;
        if (what == "texts") outcome.texts = text;
        if (what == "says") outcome.says.push_back(text);
    }

    void close() {
        if (!open_) return;
        current_.text = encoded(current_.text + (data_.empty() ? rows_ : data_), encode_);
        cases.push_back(current_);
        data_.clear();
        encode_.clear();
    }

    std::string part_;
    std::string header_;
    std::string rows_;
    std::string data_;
    std::string encode_;
    LasCase current_;
    bool open_ = false;
};

} // namespace tarvik::testing
