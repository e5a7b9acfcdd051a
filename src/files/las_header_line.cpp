#include "files/las_header_line.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tarvik {

namespace {

constexpr std::string_view blanks = " \t";

/// A LAS file tells neither whether a channel is calibrated nor how.
Calibration unknownCalibration() {
    Calibration calibration;
    for (std::string* const text :
         {&calibration.state, &calibration.fitName, &calibration.identifier, &calibration.date,
          &calibration.time, &calibration.calibratedBy, &calibration.kind})
        text->clear();
    return calibration;
}

struct FurtherText {
    char section;
    std::string_view key;
    std::string& (*of)(LasHeader&);
};

constexpr std::array<FurtherText, 6> furtherTexts{{
    {'W', "FLD", [](LasHeader& header) -> std::string& { return header.hole.prospect; }},
    {'W', "LOC", [](LasHeader& header) -> std::string& { return header.hole.coordinates; }},
    {'W', "PROV", [](LasHeader& header) -> std::string& { return header.hole.area; }},
    {'W', "SRVC", [](LasHeader& header) -> std::string& { return header.hole.contractor; }},
    {'P', "HOLEAZIM", [](LasHeader& header) -> std::string& { return header.facts.holeAzimuth; }},
    {'P', "HOLEINCL", [](LasHeader& header) -> std::string& { return header.facts.holeInclination; }},
}};

} // namespace

std::string_view strippedLasText(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string plainLasText(std::string_view text) {
    std::string plain(text);
    std::ranges::replace_if(
        plain, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return std::string(trimmed(plain));
}

std::optional<double> leadingLasNumber(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<double> wholeLasNumber(std::string_view text) {
    text = strippedLasText(text);
    const std::size_t end = std::min(text.find_first_of(blanks), text.size());
    const std::string_view behind = strippedLasText(text.substr(end));
    if (!behind.empty() && behind.front() >= '0' && behind.front() <= '9') return std::nullopt;
    return parseNumber(text.substr(0, end));
}

std::optional<std::string> mendedDecimalComma(std::string_view token) {
    constexpr std::string_view digits = "0123456789";
    const auto comma = token.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    std::string_view whole = token.substr(0, comma);
    if (whole.starts_with('-') || whole.starts_with('+')) whole.remove_prefix(1);
    std::string_view fraction = token.substr(comma + 1);
    fraction = fraction.substr(0, fraction.find_first_of("eE"));
    const bool plain = !whole.empty() && !fraction.empty() &&
                       whole.find_first_not_of(digits) == std::string_view::npos &&
                       fraction.find_first_not_of(digits) == std::string_view::npos;
    std::string mended(token);
    mended[comma] = '.';
    if (!plain || !parseNumber(mended)) return std::nullopt;
    return mended;
}

bool mayGroupThousands(std::string_view token) {
    constexpr std::string_view digits = "0123456789";
    const auto comma = token.find(',');
    if (comma == std::string_view::npos) return false;
    std::string_view whole = token.substr(0, comma);
    if (whole.starts_with('-') || whole.starts_with('+')) whole.remove_prefix(1);
    std::string_view groups = token.substr(comma);
    groups = groups.substr(0, groups.find('.'));
    while (groups.starts_with(',') && std::min(groups.find_first_not_of(digits, 1), groups.size()) == 4)
        groups.remove_prefix(4);
    return groups.empty() && whole.size() <= 3 && !whole.starts_with('0');
}

std::optional<LasHeaderLine> splitLasHeaderLine(std::string_view line) {
    const auto point = line.find('.');
    if (point == std::string_view::npos) return std::nullopt;
    LasHeaderLine parts;
    parts.mnemonic = strippedLasText(line.substr(0, point));
    const auto unitEnd = std::min(line.find_first_of(" \t:", point + 1), line.size());
    parts.unit = line.substr(point + 1, unitEnd - point - 1);
    std::string_view rest = line.substr(unitEnd);
    const auto colon = rest.rfind(':');
    parts.hasColon = colon != std::string_view::npos;
    if (parts.hasColon) {
        parts.description = strippedLasText(rest.substr(colon + 1));
        rest = rest.substr(0, colon);
    }
    parts.value = strippedLasText(rest);
    return parts;
}

LasCurveEntry lasCurveEntry(std::string_view line) {
    const std::size_t point = line.find('.');
    const std::size_t space = std::min(line.find(' ', point), line.size());
    const std::size_t colon = line.find(':', space);
    return {.mnemonic = plainLasText(line.substr(0, point)),
            .unit = plainLasText(line.substr(point + 1, space - point - 1)),
            .description =
                colon == std::string_view::npos ? std::string() : plainLasText(line.substr(colon + 1))};
}

RunChannel lasChannel(std::string_view line, const LasCurveEntry& entry, std::size_t number) {
    RunChannel channel;
    channel.calibration = unknownCalibration();
    channel.name = entry.mnemonic;
    channel.unit = entry.unit;
    const std::string mark = " :  " + std::to_string(number) + "   ";
    const auto at = line.rfind(mark);
    if (at == std::string_view::npos) return channel;
    const std::string_view name = line.substr(at + mark.size());
    if (name.empty() || !line.starts_with(std::string(name) + ".")) return channel;
    channel.name = plainLasText(name);
    channel.unit = plainLasText(line.substr(name.size() + 1, at - name.size() - 1));
    return channel;
}

void takeFurtherLasLine(char section, std::string_view key, std::string_view value, LasHeader& header) {
    // Wherever it stands: rows of a wrapped file would give depths that are none.
    if (upperCase(key) == "WRAP") header.wrapped = value.starts_with('Y') || value.starts_with('y');
    for (const FurtherText& further : furtherTexts) {
        if (further.section == section && further.key == key) further.of(header) = plainLasText(value);
    }
}

void takeLasFilterNote(std::string_view line, LasHeader& header) {
    constexpr std::string_view begin = "#        ";
    constexpr std::string_view middle = " - ";
    constexpr std::string_view end = " pt";
    const auto dash = line.rfind(middle);
    if (!line.starts_with(begin) || !line.ends_with(end) || dash == std::string_view::npos) return;
    if (dash < begin.size()) return;
    const std::string_view points =
        line.substr(dash + middle.size(), line.size() - end.size() - dash - middle.size());
    const auto number = parseInteger(points);
    if (!number || *number < 1 || *number > 1'000'000) return;
    header.filters.emplace_back(plainLasText(line.substr(begin.size(), dash - begin.size())),
                                static_cast<int>(*number));
}

} // namespace tarvik
