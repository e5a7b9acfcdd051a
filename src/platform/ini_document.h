// The text of a settings file: `[Section]` lines and `Key="value"` lines.
//
// A value stands in double quotes; inside them \\ \" \n \r \t mean backslash, quote, line feed, carriage
// return and tab. Lines that begin with ";" or "#" are comments. Every line that is not set anew is kept byte
// for byte, in its place: comments, unknown keys, and lines that make no sense.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvik {

class IniDocument {
  public:
    struct DamagedLine {
        std::size_t number; ///< 1 for the first line of the text
        std::string what;
    };

    IniDocument() = default;
    explicit IniDocument(std::string_view text);

    [[nodiscard]] std::optional<std::string> get(std::string_view section, std::string_view key) const;
    /// In the key's line, or in a new one at the end of the section. Throws a Failure when section or key
    /// could not be read back (a line end in it, "=" in a key, "]" in a section ...).
    void set(std::string_view section, std::string_view key, std::string_view value);

    [[nodiscard]] std::string text() const;
    [[nodiscard]] const std::vector<DamagedLine>& damage() const { return damage_; }

  private:
    struct Entry {
        std::size_t line; ///< index into lines_
        std::string value;
    };
    using Name = std::pair<std::string, std::string>;

    void readLine(std::string_view line, std::string& section);
    void readEntry(std::string_view line, const std::string& section);
    void insertLine(std::size_t at, std::string line);
    [[nodiscard]] std::size_t lineAfterSection(const std::string& section);

    std::vector<std::string> lines_; ///< without their line feeds
    std::map<Name, Entry> entries_;
    std::map<std::string, std::size_t> lastLineOf_; ///< of each section: its last line that is not blank
    std::vector<DamagedLine> damage_;
};

} // namespace tarvik
