#include "files/las_findings.h"

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

/// What is said of a line, and why; in the order of the kinds.
constexpr std::array<std::string_view, static_cast<std::size_t>(LasOddity::count_)> sentences{
    "row dropped, it has no readable depth",
    "too few columns, the last channels have no value there",
    "more columns than curves, the columns behind the last curve are dropped",
    "what stands for a value is no number, it is read as no value",
    "value of more digits than the review keeps, rounded to about 7 digits",
    "the file ends inside this row, the row is dropped: its last number may be cut short",
    "the last row has no line end, its last number may be cut short",
    "comment between the data, passed over",
    "line of more than 262144 characters dropped, it is no row of data",
    "the depth goes back, the rows stay in the order of the file",
    "the depth goes back, the rows stay in the order of the file",
    "the depth of the row before is repeated, both rows are kept",
    "the depth is the null value, it is kept as a depth",
    "row not read, the review holds 80000 steps",
    "line behind the data section not read",
    "Ctrl-Z, with which DOS ends a text: the data end here",
    "line of the curve section without a point, it is no curve: if it should be one, the columns behind it "
    "go "
    "by wrong names",
    "decimal comma read as a point: the row has as many columns as there are curves",
    "commas between the columns read as blanks: the row then has as many columns as there are curves",
    "row dropped: with commas as this file has them it has not as many columns as there are curves",
    "numbers without a blank between them taken apart: each has the decimals of its column or is the null "
    "value, and the row has as many columns as there are curves",
    "exponent with D read as E: programs of a certain age write it so",
    "row dropped, its lines are not wrapped as those of the others: its values have no sure channel",
    "no colon, the whole rest of the line is read as the value",
    "line of the header without a point passed over, it says nothing that can be read",
    "line of the header of more than 262144 characters passed over",
    "another section that begins with C is passed over, the first one has the curves",
    "key given again, the first one counts",
    "small letters of a section or a key read as capitals",
    "tabs in the header read as blanks",
    "text read as UTF-8",
    "text that is no UTF-8 read as code page 1252",
};

} // namespace

void LasFindings::add(LasOddity oddity, std::size_t line) {
    Seen& seen = seen_[static_cast<std::size_t>(oddity)];
    if (seen.count < keptLines) seen.lines[seen.count] = line;
    seen.last = line;
    ++seen.count;
}

void LasFindings::say(std::size_t line, std::string text) {
    said_.push_back({line, std::move(text)});
}

std::vector<std::string> LasFindings::texts(std::string_view fileName) const {
    std::vector<std::string> texts;
    const auto start = [&](std::size_t line) {
        return std::string(fileName) + (line == 0 ? "" : ", line " + std::to_string(line));
    };
    for (const Said& said : said_) texts.push_back(start(said.line) + ": " + said.text);
    for (std::size_t kind = 0; kind < seen_.size(); ++kind) {
        const Seen& seen = seen_[kind];
        if (seen.count == 0) continue;
        std::string text = start(seen.lines[0]);
        if (seen.count > 1) {
            text += " and " + std::to_string(seen.count - 1) + " more (";
            for (std::size_t i = 1; i < std::min(seen.count, keptLines); ++i) {
                text.append(i > 1 ? ", " : "").append(std::to_string(seen.lines[i]));
            }
            if (seen.count > keptLines) text += " ... " + std::to_string(seen.last);
            text += ")";
        }
        texts.push_back(text.append(": ").append(sentences[kind]));
    }
    return texts;
}

} // namespace tarvik
