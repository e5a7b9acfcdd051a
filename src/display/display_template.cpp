#include "display/display_template.h"

#include "base/failure.h"
#include "base/number_picture.h"
#include "base/text.h"
#include "display/display_edits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 5> lineNames{"solid", "dashed", "dotted", "dash-dot", "points"};
constexpr std::array<std::string_view, 4> fillNames{"none", "left", "right", "base"};
constexpr std::array<std::string_view, 2> scaleNames{"linear", "logarithmic"};
constexpr std::array<std::string_view, 2> offScaleNames{"cut", "wrap"};
constexpr std::array<std::string_view, 3> numberNames{"metres", "feet", "both"};
constexpr std::array<std::string_view, 2> answers{"no", "yes"};

template <class Names, class Choice>
std::string_view nameOf(const Names& names, Choice choice) {
    return names[static_cast<std::size_t>(choice)];
}

std::string colourText(const CurveStyle& style) {
    if (!style.ownColour) return std::string(inkName(style.ink));
    std::string text = "#";
    for (const int part : {style.ownColour->red, style.ownColour->green, style.ownColour->blue}) {
        constexpr std::string_view digits = "0123456789abcdef";
        text += digits[static_cast<std::size_t>(part / 16)];
        text += digits[static_cast<std::size_t>(part % 16)];
    }
    return text;
}

class Writer {
  public:
    void section(std::string_view name) {
        text_ += (text_.empty() ? "[" : "\n[") + std::string(name) + "]\n";
    }
    void set(std::string_view key, std::string_view value) {
        text_ += std::string(key) + " = " + std::string(value) + "\n";
    }
    void set(std::string_view key, double value) { set(key, shortestNumber(value)); }
    [[nodiscard]] std::string text() && { return std::move(text_); }

  private:
    std::string text_;
};

void writeCurve(Writer& out, const LogCurve& curve) {
    out.section("curve");
    out.set("channel", curve.channel);
    out.set("unit", curve.unit);
    out.set("scale", nameOf(scaleNames, curve.scale.kind));
    out.set("left", curve.scale.left);
    out.set("right", curve.scale.right);
    out.set("colour", colourText(curve.style));
    out.set("line", nameOf(lineNames, curve.style.line));
    out.set("width", curve.style.width);
    out.set("fill", nameOf(fillNames, curve.style.fill));
    out.set("base", curve.base);
    out.set("off_scale", nameOf(offScaleNames, curve.offScale));
    out.set("filter", curve.filter);
    out.set("shown", nameOf(answers, curve.shown));
}

/// One line of a template on its way into the display; knows where it stands.
struct Entry {
    std::string_view file;
    std::size_t line = 0;
    std::string_view key;
    std::string_view value;

    [[noreturn]] void fail(const std::string& expected) const {
        const std::string given = std::string(key) + (value.empty() ? "" : " = " + std::string(value));
        throw Failure(ErrorNumber::badFile, std::string(file) + ", line " + std::to_string(line) + ": " +
                                                given + "; expected is " + expected);
    }
    [[nodiscard]] double number(double least, double most) const {
        const auto read = parseNumber(value);
        if (!read || !std::isfinite(*read) || *read < least || *read > most) {
            fail("a number from " + shortestNumber(least) + " to " + shortestNumber(most));
        }
        return *read;
    }
    [[nodiscard]] int whole(int least, int most) const {
        const auto read = parseNumber(value);
        if (!read || !(*read >= least && *read <= most) || *read != std::floor(*read)) {
            fail("a whole number from " + std::to_string(least) + " to " + std::to_string(most));
        }
        return static_cast<int>(*read);
    }
    template <class Choice, class Names>
    [[nodiscard]] Choice choice(const Names& names) const {
        const auto found = std::ranges::find(names, value);
        if (found != names.end()) return static_cast<Choice>(found - names.begin());
        std::string expected = "one of";
        for (const std::string_view name : names) expected += " " + std::string(name);
        fail(expected);
    }
};

void setColour(CurveStyle& style, const Entry& entry) {
    if (const auto ink = inkFrom(entry.value)) {
        style.ink = *ink;
        style.ownColour.reset();
        return;
    }
    std::uint32_t value = 0;
    const std::string_view digits = entry.value.substr(std::min<std::size_t>(1, entry.value.size()));
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (entry.value.size() != 7 || entry.value.front() != '#' || read.ptr != digits.data() + digits.size()) {
        entry.fail("the name of an ink, or #rrggbb");
    }
    style.ownColour = Colour{static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
                             static_cast<std::uint8_t>(value)};
}

void setDisplay(LogDisplay& display, const Entry& entry) {
    if (entry.key == "depth_numbers") {
        display.depthTrack.numbers = entry.choice<DepthNumbers>(numberNames);
    } else if (entry.key == "depth_width") {
        display.depthTrack.width = entry.number(5, 100);
    } else if (entry.key == "depth_place") {
        display.depthPlace = static_cast<std::size_t>(entry.whole(0, 100));
    } else if (entry.key == "speed_bar") {
        display.depthTrack.speedBar = entry.choice<bool>(answers);
    } else {
        entry.fail("another key of a display");
    }
}

void setTrack(Track& track, const Entry& entry) {
    if (entry.key == "width") {
        track.width = entry.number(5, 1000);
    } else if (entry.key == "grid") {
        track.grid = entry.choice<ScaleKind>(scaleNames);
    } else if (entry.key == "divisions") {
        track.divisions = entry.whole(1, 100);
    } else {
        entry.fail("another key of a track");
    }
}

void setCurve(LogCurve& curve, const Entry& entry) {
    constexpr double most = 1e30;
    if (entry.key == "channel") {
        curve.channel = entry.value;
    } else if (entry.key == "unit") {
        curve.unit = entry.value;
    } else if (entry.key == "scale") {
        curve.scale.kind = entry.choice<ScaleKind>(scaleNames);
    } else if (entry.key == "left") {
        curve.scale.left = entry.number(-most, most);
    } else if (entry.key == "right") {
        curve.scale.right = entry.number(-most, most);
    } else if (entry.key == "colour") {
        setColour(curve.style, entry);
    } else if (entry.key == "line") {
        curve.style.line = entry.choice<LineKind>(lineNames);
    } else if (entry.key == "width") {
        curve.style.width = entry.number(0.05, 3);
    } else if (entry.key == "fill") {
        curve.style.fill = entry.choice<FillKind>(fillNames);
    } else if (entry.key == "base") {
        curve.base = entry.number(-most, most);
    } else if (entry.key == "off_scale") {
        curve.offScale = entry.choice<OffScale>(offScaleNames);
    } else if (entry.key == "filter") {
        if (!filterProblem(entry.value).empty()) entry.fail("None, or a whole number of points");
        curve.filter = entry.value;
    } else if (entry.key == "shown") {
        curve.shown = entry.choice<bool>(answers);
    } else {
        entry.fail("another key of a curve");
    }
}

class Reader {
  public:
    Reader(const Scheme& scheme, std::string_view file) : file_(file) { display_.scheme = scheme; }

    void read(std::string_view line) {
        ++line_;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        line = trimmed(line);
        if (line.empty() || line.front() == '#') return;
        if (line.front() == '[') return beginSection(line);
        const auto equals = std::min(line.find('='), line.size());
        const Entry entry{file_, line_, trimmed(line.substr(0, equals)),
                          trimmed(line.substr(std::min(equals + 1, line.size())))};
        if (equals == line.size()) entry.fail("key = value");
        if (section_ == "display") return setDisplay(display_, entry);
        if (section_ == "track") return setTrack(display_.tracks.back(), entry);
        if (section_ == "curve") return setCurve(display_.tracks.back().curves.back(), entry);
        entry.fail("[display] before the first key");
    }

    LogDisplay finish() && {
        if (display_.tracks.empty())
            throw Failure(ErrorNumber::badFile, std::string(file_) + ": has no [track]; it is no template");
        auto line = curveLines_.begin();
        for (const Track& track : display_.tracks) {
            for (const LogCurve& curve : track.curves) {
                const std::size_t begun = *line++;
                if (isUsable(curve.scale)) continue;
                throw Failure(ErrorNumber::badFile,
                              std::string(file_) + ", line " + std::to_string(begun) + ": the scale of \"" +
                                  curve.channel +
                                  "\" has equal ends, or is logarithmic with an end of 0 or less");
            }
        }
        display_.depthPlace = std::min(display_.depthPlace, display_.tracks.size());
        return std::move(display_);
    }

  private:
    void beginSection(std::string_view line) {
        section_ = line.ends_with(']') ? line.substr(1, line.size() - 2) : "";
        const Entry entry{file_, line_, line, ""};
        if (section_ == "track") {
            display_.tracks.emplace_back();
        } else if (section_ == "curve") {
            if (display_.tracks.empty()) entry.fail("a [track] before it");
            display_.tracks.back().curves.emplace_back();
            curveLines_.push_back(line_);
        } else if (section_ != "display") {
            entry.fail("[display], [track] or [curve]");
        }
    }

    std::string_view file_;
    std::size_t line_ = 0;
    std::string_view section_;
    std::vector<std::size_t> curveLines_; ///< where each curve begins, in the order of the file
    LogDisplay display_;
};

} // namespace

std::string templateText(const LogDisplay& display) {
    Writer out;
    out.section("display");
    out.set("depth_numbers", nameOf(numberNames, display.depthTrack.numbers));
    out.set("depth_width", display.depthTrack.width);
    out.set("depth_place", static_cast<double>(display.depthPlace));
    out.set("speed_bar", nameOf(answers, display.depthTrack.speedBar));
    for (const Track& track : display.tracks) {
        out.section("track");
        out.set("width", track.width);
        out.set("grid", nameOf(scaleNames, track.grid));
        out.set("divisions", track.divisions);
        for (const LogCurve& curve : track.curves) writeCurve(out, curve);
    }
    return std::move(out).text();
}

LogDisplay displayFromTemplate(std::string_view text, const Scheme& scheme, std::string_view name) {
    Reader reader(scheme, name);
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3); // some editors put a byte-order mark first
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        reader.read(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return std::move(reader).finish();
}

void fitToData(LogDisplay& display, const LogData& data) {
    for (Track& track : display.tracks) {
        for (LogCurve& curve : track.curves) {
            const ChannelData* channel = data.find(curve.channel);
            if (channel == nullptr) continue;
            curve.unit = channel->unit;
            curve.calibrated = channel->calibrated;
        }
    }
}

} // namespace tarvik
