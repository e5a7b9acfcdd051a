#include "display/annotations.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tarvik {

namespace {

constexpr std::size_t mostNotes = 1'000'000; // bytes; notes are short, a foreign file of that name may not be

struct UnitWord {
    std::string_view word;
    DepthUnits units;
};
// Longer words first: each is tried at the start of what follows the number.
constexpr std::array<UnitWord, 7> unitWords{{{"METRES", DepthUnits::metres},
                                             {"METERS", DepthUnits::metres},
                                             {"METRE", DepthUnits::metres},
                                             {"FEET", DepthUnits::feet},
                                             {"FOOT", DepthUnits::feet},
                                             {"FT", DepthUnits::feet},
                                             {"M", DepthUnits::metres}}};

bool isNumeral(char letter) {
    return (letter >= '0' && letter <= '9') || letter == '.';
}
bool endsWord(std::string_view rest) {
    return rest.empty() || rest.front() == ' ' || rest.front() == '\t' || rest.front() == ':' ||
           rest.front() == ',' || rest.front() == ';' || rest.front() == '-' || rest.front() == '.';
}

/// Takes a unit off the front of `rest`.
std::optional<DepthUnits> takeUnit(std::string_view& rest) {
    const std::string upper = upperCase(rest);
    for (const UnitWord& each : unitWords) {
        if (!upper.starts_with(each.word)) continue;
        const std::string_view behind = rest.substr(each.word.size());
        if (!endsWord(behind)) continue;
        rest = behind;
        return each.units;
    }
    return std::nullopt;
}

std::optional<DepthMark> annotationIn(std::string_view line, DepthUnits units) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    line = trimmed(line);
    const bool at = line.starts_with('@');
    if (at) line = trimmed(line.substr(1));
    const auto end = std::find_if_not(line.begin(), line.end(), isNumeral);
    const auto depth = parseNumber(line.substr(0, static_cast<std::size_t>(end - line.begin())));
    if (!depth) return std::nullopt;
    std::string_view rest = trimmed(line.substr(static_cast<std::size_t>(end - line.begin())));
    const auto said = takeUnit(rest);
    if (!said && !at) return std::nullopt;
    const auto text = rest.find_first_not_of(" \t:,;-.");
    if (text == std::string_view::npos) return std::nullopt;
    return DepthMark{toMetres(*depth, said.value_or(units)), MarkKind::annotation,
                     std::string(trimmed(rest.substr(text)))};
}

} // namespace

std::optional<double> depthSaid(std::string_view text, DepthUnits units) {
    text = trimmed(text);
    std::string number;
    for (const char letter : text) {
        if (!isNumeral(letter) && letter != ',') break;
        number += letter == ',' ? '.' : letter;
    }
    const auto depth = parseNumber(number);
    // "1,200 ft" may be either: no mark is better than one at a wrong depth.
    const auto comma = text.find(',');
    if (!depth || (comma < number.size() && number.size() - comma == 4)) return std::nullopt;
    std::string_view rest = trimmed(text.substr(number.size()));
    return toMetres(*depth, takeUnit(rest).value_or(units));
}

std::vector<DepthMark> annotationsIn(std::string_view notes, DepthUnits units) {
    std::vector<DepthMark> marks;
    while (!notes.empty()) {
        const auto end = std::min(notes.find('\n'), notes.size());
        if (auto mark = annotationIn(notes.substr(0, end), units)) marks.push_back(std::move(*mark));
        notes.remove_prefix(std::min(end + 1, notes.size()));
    }
    return marks;
}

std::vector<DepthMark> holeAnnotations(const Files& files, const Path& runFile, const ReviewLog& log) {
    const Path notes = runFile.parent_path() / (log.header.hole.holeId + "_notes.kvx");
    if (log.las || log.header.hole.holeId.empty() || !files.exists(notes)) return {};
    const Bytes bytes = files.readPart(notes, 0, mostNotes);
    std::vector<DepthMark> marks = annotationsIn(fromAnsi(asText(bytes)), log.header.setup.units);
    const Extent extent = extentOf(logDataOf(log), Axis::depth);
    std::erase_if(marks,
                  [&](const DepthMark& mark) { return mark.depth < extent.from || mark.depth > extent.to; });
    return marks;
}

void addMarks(std::vector<DepthMark>& marks, const std::vector<DepthMark>& more) {
    for (const DepthMark& mark : more) {
        if (std::ranges::find(marks, mark) == marks.end()) marks.push_back(mark);
    }
}

} // namespace tarvik
