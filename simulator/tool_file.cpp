#include "simulator/tool_file.h"

#include <array>
#include <charconv>
#include <fstream>
#include <string_view>
#include <vector>

namespace lcusim {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string> partsOf(std::string_view text) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t bar = text.find('|');
        parts.emplace_back(trimmed(text.substr(0, bar)));
        if (bar == std::string_view::npos) return parts;
        text.remove_prefix(bar + 1);
    }
}

/// False when something is there that is no number; an empty text leaves the number alone.
template <typename Number>
bool readNumber(std::string_view text, Number& number) {
    if (text.empty()) return true;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

class Reader {
  public:
    /// Empty when the line is in order, else what is wrong with it.
    std::string line(std::string_view text) {
        text = trimmed(text);
        if (text.empty() || text.front() == '#') return {};
        if (text.front() == '[') return section(text);
        const std::size_t equals = text.find('=');
        if (equals == std::string_view::npos) return "expected KEY = VALUE or [section]";
        const std::string_view key = trimmed(text.substr(0, equals));
        const std::string_view value = trimmed(text.substr(equals + 1));
        if (mode_ != nullptr) return modeKey(key, value);
        return inTool_ ? toolKey(key, value) : std::string{};
    }

    [[nodiscard]] const ToolProfile& tool() const { return tool_; }

  private:
    std::string section(std::string_view text) {
        inTool_ = text == "[tool]";
        mode_ = text == "[mode 1]" ? tool_.modes.data() : text == "[mode 2]" ? &tool_.modes[1] : nullptr;
        return {};
    }

    std::string toolKey(std::string_view key, std::string_view value) {
        if (key == "code") tool_.code = value;
        if (key == "name") tool_.name = value;
        if (key == "maximum_current" && !readNumber(value, tool_.maximumCurrent))
            return "maximum_current wants a number of mA";
        return {};
    }

    std::string modeKey(std::string_view key, std::string_view value) {
        if (key == "name") mode_->name = value;
        if (key == "kind") mode_->kind = value;
        if (key == "sensor_factors") mode_->sensorFactors = value;
        if (key == "parameters") mode_->parameters = partsOf(value);
        if (key == "words" && !readNumber(value, mode_->words)) return "words wants a whole number";
        if (mode_->words > 20) return "a scan carries at most 20 words";
        return key == "channel" ? channel(value) : std::string{};
    }

    std::string channel(std::string_view value) {
        std::vector<std::string> parts = partsOf(value);
        if (parts.size() < 2) return "channel wants NAME | UNIT | left | right | left | right | property";
        if (mode_->channels.size() == 20) return "a mode has at most 20 channels";
        parts.resize(7);
        ChannelProfile channel{.name = parts[0], .unit = parts[1], .synth = parts[6]};
        const std::array<double*, 4> ends{&channel.uncalibratedLeft, &channel.uncalibratedRight,
                                          &channel.calibratedLeft, &channel.calibratedRight};
        for (std::size_t i = 0; i < ends.size(); ++i) {
            if (!readNumber(parts[i + 2], *ends[i])) return "\"" + parts[i + 2] + "\" is no scale end";
        }
        mode_->channels.push_back(std::move(channel));
        return {};
    }

    ToolProfile tool_;
    ToolMode* mode_ = nullptr;
    bool inTool_ = false;
};

} // namespace

ToolFile readTool(std::istream& text, const std::string& fileName) {
    Reader reader;
    std::string line;
    for (int number = 1; std::getline(text, line); ++number) {
        const std::string wrong = reader.line(line);
        if (!wrong.empty()) return {{}, fileName + ", line " + std::to_string(number) + ": " + wrong};
    }
    if (reader.tool().code.empty()) return {{}, fileName + ": no tool code; add \"code = ...\" under [tool]"};
    return {reader.tool(), {}};
}

ToolFile findTool(const std::filesystem::path& folder, std::string_view code) {
    std::error_code error;
    std::string unreadable;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.path().extension() != ".tool") continue;
        std::ifstream text(entry.path());
        ToolFile file = readTool(text, entry.path().string());
        if (file.tool && file.tool->code == code) return file;
        if (!file.tool) unreadable += "\n" + file.problem;
    }
    if (error) return {{}, folder.string() + ": " + error.message() + "; name the folder with --tools"};
    return {{}, "no tool " + std::string(code) + " in " + folder.string() + unreadable};
}

} // namespace lcusim
