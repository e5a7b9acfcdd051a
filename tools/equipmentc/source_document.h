// The lines of a readable source file: "[section]", "key = value", "# remark", blank. A remark has its own
// line.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace equipmentc {

struct Entry {
    int line = 0;
    std::string section;
    std::string key;
    std::string value;
};

/// What is wrong with a file, each "file:line: what; remedy".
class Problems {
  public:
    explicit Problems(std::string_view fileName) : fileName_(fileName) {}

    void add(int line, const std::string& what) {
        texts_.push_back(fileName_ + ":" + std::to_string(line) + ": " + what);
    }
    [[nodiscard]] const std::vector<std::string>& texts() const { return texts_; }

  private:
    std::string fileName_;
    std::vector<std::string> texts_;
};

/// The keys that each section may have.
using KnownKeys = std::map<std::string, std::set<std::string>, std::less<>>;

/// All entries with a known key, in order; anything else becomes a problem. Only `repeatable` may stand more
/// than once in a section.
[[nodiscard]] std::vector<Entry> readSource(std::string_view text, const KnownKeys& known,
                                            std::string_view repeatable, Problems& problems);

/// The parts between separators, without blanks around them. An empty text is one empty part.
[[nodiscard]] std::vector<std::string> splitParts(std::string_view text, char separator);

} // namespace equipmentc
