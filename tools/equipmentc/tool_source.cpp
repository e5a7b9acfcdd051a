#include "equipmentc/equipment_source.h"

#include "base/text.h"
#include "equipment/calibration_record.h"
#include "equipment/sensor_factors.h"
#include "equipmentc/field_text.h"
#include "equipmentc/source_document.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <set>

namespace equipmentc {

using namespace tarvik;

namespace {

const KnownKeys toolKeys{
    {"tool", {"code", "short_code", "name", "maximum_current"}},
    {"mode 1", {"name", "kind", "sensor_factors", "words", "parameters", "channel"}},
    {"mode 2", {"name", "kind", "sensor_factors", "words", "parameters", "channel"}},
};
constexpr std::size_t channelParts =
    6; // name, unit, four scale ends; behind them what the simulator feeds it

/// Takes the entries of one tool file into a record.
class ToolCompiler {
  public:
    explicit ToolCompiler(std::string_view fileName) : problems_(fileName) {}

    Compiled<ToolRecord> compile(std::string_view text) {
        for (const Entry& entry : readSource(text, toolKeys, "channel", problems_)) {
            if (entry.section == "tool") {
                takeTool(entry);
            } else {
                takeMode(entry, entry.section.back() - '0');
            }
        }
        if (record_.get(tool::code).empty()) problems_.add(1, "no code; write \"code = K...\" under [tool]");
        if (record_.get(tool::name).empty()) problems_.add(1, "no name; write \"name = ...\" under [tool]");
        finishMode(1);
        if (modes_[1].line != 0) finishMode(2);
        compareModes();
        return {record_, problems_.texts()};
    }

  private:
    struct Mode {
        int line = 0; ///< of its first entry; 0: not there
        int channels = 0;
        std::optional<int> words;
        int wordsLine = 0;
        int factorsLine = 0;
        std::set<std::string> names;
        std::vector<int> channelLines;
    };

    void takeTool(const Entry& entry) {
        if (entry.key == "code") putText(entry, tool::code, entry.value);
        if (entry.key == "short_code") putText(entry, tool::shortCode, entry.value);
        if (entry.key == "name") putText(entry, tool::name, entry.value);
        if (entry.key == "maximum_current") {
            if (const auto current = wholeNumber(entry, 0, std::numeric_limits<std::int16_t>::max())) {
                record_.set(tool::maximumCurrent, static_cast<std::int16_t>(*current));
            }
        }
    }

    void takeMode(const Entry& entry, int number) {
        Mode& mode = modes_[static_cast<std::size_t>(number - 1)];
        if (mode.line == 0) mode.line = entry.line;
        if (entry.key == "name") putText(entry, tool::modeName(number), entry.value);
        if (entry.key == "kind") takeKind(entry, number);
        if (entry.key == "parameters") takeParameters(entry, number);
        if (entry.key == "channel") takeChannel(entry, number, mode);
        if (entry.key == "sensor_factors") {
            putText(entry, tool::sensorFactors(number), entry.value);
            mode.factorsLine = entry.line;
        }
        if (entry.key == "words") {
            mode.words = wholeNumber(entry, 1, maxChannels);
            mode.wordsLine = entry.line;
        }
    }

    void takeKind(const Entry& entry, int number) {
        if (!entry.value.empty() && entry.value != "PULSE" && entry.value != "MUX") {
            problems_.add(entry.line, "no such kind \"" + entry.value + "\"; use PULSE, MUX or nothing");
        }
        putText(entry, tool::kind(number), entry.value);
    }

    void takeParameters(const Entry& entry, int number) {
        const std::vector<std::string> parts = splitParts(entry.value, '|');
        if (parts.size() > tool::parameterPairs) {
            problems_.add(entry.line, "there is room for seven parameters; take some away");
            return;
        }
        for (std::size_t i = 0; i < parts.size(); ++i) {
            putText(entry, tool::parameter(static_cast<int>(i) + 1, number), parts[i]);
        }
    }

    void takeChannel(const Entry& entry, int number, Mode& mode) {
        const std::vector<std::string> parts = splitParts(entry.value, '|');
        if (parts.size() != channelParts && parts.size() != channelParts + 1) {
            problems_.add(entry.line,
                          "a channel is name | unit | uncalibrated left | right | calibrated left | "
                          "right, and if wanted | what the simulator feeds it");
            return;
        }
        if (mode.channels == maxChannels) {
            problems_.add(entry.line, "there is room for 20 channels; take some away");
            return;
        }
        if (parts[0].empty() || !mode.names.insert(upperCase(parts[0])).second) {
            problems_.add(entry.line, "each channel of a mode needs a name of its own");
        }
        const int channel = ++mode.channels;
        mode.channelLines.push_back(entry.line);
        putText(entry, tool::channelName(number, channel), parts[0]);
        putText(entry, tool::channelUnit(number, channel), parts[1]);
        putScaleEnd(entry, tool::uncalibratedLeft(number, channel), parts[2]);
        putScaleEnd(entry, tool::uncalibratedRight(number, channel), parts[3]);
        putScaleEnd(entry, tool::calibratedLeft(number, channel), parts[4]);
        putScaleEnd(entry, tool::calibratedRight(number, channel), parts[5]);
        if (parts[2] == parts[3] || parts[4] == parts[5]) {
            problems_.add(entry.line, "a scale needs two different ends");
        }
    }

    /// The record counts the words on the line; channels behind them are named but not counted.
    void finishMode(int number) {
        const Mode& mode = modes_[static_cast<std::size_t>(number - 1)];
        if (mode.channels == 0) {
            problems_.add(std::max(mode.line, 1), "[mode " + std::to_string(number) +
                                                      "] has no channel; add a line \"channel = ...\"");
        }
        const int words = mode.words.value_or(mode.channels);
        if (words > mode.channels) {
            problems_.add(mode.wordsLine, "more words than channels; name a channel for each word");
        }
        const std::string factors = record_.get(tool::sensorFactors(number));
        if (static_cast<int>(splitParts(factors, ',').size()) > std::max(words, 1)) {
            problems_.add(mode.factorsLine, "more sensor factors than words; take some away");
        }
        record_.set(tool::channelCount(number), static_cast<std::int16_t>(words));
    }

    /// Calibrations belong to a sensor by its name: one that served a reading or a value in another unit
    /// would make a wrong value of it.
    void compareModes() {
        for (int second = 1; second <= modes_[1].channels; ++second) {
            const std::string name = record_.get(tool::channelName(2, second));
            for (int first = 1; first <= modes_[0].channels; ++first) {
                if (!sameSensor(name, record_.get(tool::channelName(1, first)))) continue;
                if (sensorOf(1, first) == sensorOf(2, second)) continue;
                problems_.add(modes_[1].channelLines[static_cast<std::size_t>(second - 1)],
                              "\"" + name +
                                  "\" has another unit or sensor factor in [mode 1]; its "
                                  "calibrations would serve both, so give it a name of its own");
            }
        }
    }

    /// Unit and sensor-factor kind: what a calibration of the channel leads to and starts from.
    std::pair<std::string, std::int16_t> sensorOf(int mode, int channel) const {
        SensorFactors factors{};
        applySensorFactors(record_.get(tool::code), record_.get(tool::sensorFactors(mode)),
                           tool::channels(record_, mode), factors);
        return {record_.get(tool::channelUnit(mode, channel)),
                factors[static_cast<std::size_t>(channel)].kind};
    }

    void putText(const Entry& entry, TextField field, const std::string& text) {
        equipmentc::putText(record_, field, text, entry.line, problems_);
    }

    void putScaleEnd(const Entry& entry, FloatField field, const std::string& text) {
        const std::optional<double> number = parseNumber(text);
        if (!number || std::abs(*number) > std::numeric_limits<float>::max()) {
            problems_.add(entry.line, "\"" + text + "\" is no scale end; write a number");
            return;
        }
        record_.set(field, static_cast<float>(*number));
    }

    std::optional<int> wholeNumber(const Entry& entry, int lowest, int highest) {
        const auto number = parseInteger(entry.value);
        if (number && *number >= lowest && *number <= highest) return static_cast<int>(*number);
        problems_.add(entry.line, "\"" + entry.value + "\"; " + entry.key + " is a whole number from " +
                                      std::to_string(lowest) + " to " + std::to_string(highest));
        return std::nullopt;
    }

    Problems problems_;
    ToolRecord record_ = blankTool();
    std::array<Mode, 2> modes_;
};

} // namespace

Compiled<ToolRecord> compileTool(std::string_view text, std::string_view fileName) {
    return ToolCompiler(fileName).compile(text);
}

} // namespace equipmentc
