#include "app/stored_settings.h"

#include "base/failure.h"
#include "base/rounding.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <string>
#include <variant>

namespace tarvik {

namespace {

/// Where a key's value lives; the type says how its text is read.
using Member = std::variant<std::string Settings::*, std::string HoleDetails::*, NumberText Settings::*,
                            std::int16_t Settings::*, std::int32_t Settings::*, bool Settings::*>;

enum class Saving {
    always,
    never,
    whenUsed, ///< a key of ours beside the classic ones: only when it has a value or is already stored
};

struct Key {
    std::string_view section;
    std::string_view name;
    std::string_view defaultText;
    Member member;
    Saving saving = Saving::always;
    std::array<std::string_view, 2> words = {}; ///< the only texts that it can hold; empty: any
};

/// In the order in which keys are read and written.
constexpr std::array keys{
    Key{"Project", "Project_drive", "", &Settings::projectDrive},
    Key{"Project", "Current_project", "", &Settings::currentProject},
    Key{"Hole", "Company", " ", &HoleDetails::company},
    Key{"Hole", "Area", " ", &HoleDetails::area},
    Key{"Hole", "Operator", " ", &HoleDetails::operatorName},
    Key{"Hole", "DrillerDepth", " ", &HoleDetails::drillerDepth},
    Key{"Hole", "Contractor", " ", &HoleDetails::contractor},
    Key{"Hole", "Prospect", " ", &HoleDetails::prospect},
    Key{"Hole", "HoleID", " ", &HoleDetails::holeId},
    Key{"Hole", "HoleCoordinates", " ", &HoleDetails::coordinates},
    Key{"Hole", "HoleDiameter", " ", &HoleDetails::diameter},
    Key{"Hole", "PermanentDatum", " ", &HoleDetails::permanentDatum},
    Key{"Hole", "CollarElevation", " ", &HoleDetails::collarElevation},
    Key{"Hole", "CasingType", " ", &HoleDetails::casingType},
    Key{"Hole", "CasingDepth", " ", &HoleDetails::casingDepth},
    Key{"Hole", "CasingDiameter", " ", &HoleDetails::casingDiameter},
    Key{"Hole", "CasingThickness", " ", &HoleDetails::casingThickness},
    Key{"Hole", "FluidType", " ", &HoleDetails::fluidType},
    Key{"Hole", "FluidLevel", " ", &HoleDetails::fluidLevel},
    Key{"WinchTool", "CurrentTool", "", &Settings::currentTool},
    Key{"WinchTool", "CurrentToolSerial", "", &Settings::currentToolSerial, Saving::whenUsed},
    Key{"WinchTool", "CurrentWinch", "", &Settings::currentWinch},
    Key{"WinchTool", "CurrentWinchSerial", "", &Settings::currentWinchSerial, Saving::whenUsed},
    Key{"WinchTool", "DepthUnits", "Metres", &Settings::depthUnits},
    Key{"WinchTool", "LogInches", "1", &Settings::logInches, Saving::never},
    Key{"WinchTool", "SamplingMethod", "TIME", &Settings::samplingMethod, Saving::always, {"TIME", "DEPTH"}},
    Key{"WinchTool", "SamplingInterval", "0.5", &Settings::samplingInterval},
    Key{"WinchTool", "WinchScaleFactor", "1.0", &Settings::winchScaleFactor},
    Key{"WinchTool", "LogDirection", "DOWN", &Settings::logDirection, Saving::always, {"DOWN", "UP"}},
    Key{"WinchTool", "AllowLogging", "1", &Settings::allowLogging},
    Key{"WinchTool", "Magnetic Marker", "0", &Settings::magneticMarker},
    Key{"Deviation", "Declination", "0", &Settings::declination, Saving::whenUsed},
    Key{"Setup", "Search", "True", &Settings::searchAutomatically},
    Key{"Setup", "LCUComms", "12", &Settings::lcuComms},
};

double numberIn(const std::string& text) {
    return NumberText(text).value();
}

bool truthIn(const std::string& text) {
    const std::string word = upperCase(trimmed(text));
    if (word == "TRUE") return true;
    if (word == "FALSE") return false;
    return numberIn(text) != 0; // "-1" and "1" are true
}

/// Reads a key's text into its member; throws Failure when it does not convert.
struct Reader {
    Settings& settings;
    std::string text;

    void operator()(std::string Settings::*at) const { settings.*at = text; }
    void operator()(std::string HoleDetails::*at) const { settings.hole.*at = text; }
    void operator()(NumberText Settings::*at) const { settings.*at = NumberText(text); }
    void operator()(std::int16_t Settings::*at) const { settings.*at = toInt16(numberIn(text)); }
    void operator()(std::int32_t Settings::*at) const { settings.*at = toInt32(numberIn(text)); }
    void operator()(bool Settings::*at) const { settings.*at = truthIn(text); }
};

struct Writer {
    const Settings& settings;

    std::string operator()(std::string Settings::*at) const { return settings.*at; }
    std::string operator()(std::string HoleDetails::*at) const { return settings.hole.*at; }
    std::string operator()(NumberText Settings::*at) const { return (settings.*at).text(); }
    std::string operator()(std::int16_t Settings::*at) const { return std::to_string(settings.*at); }
    std::string operator()(std::int32_t Settings::*at) const { return std::to_string(settings.*at); }
    std::string operator()(bool Settings::*at) const { return settings.*at ? "True" : "False"; }
};

/// A word is one of the two or refused: half the program would take any other text for the one, half for the
/// other.
std::string known(const Key& key, const std::string& text) {
    if (key.words.front().empty()) return text;
    std::string word = upperCase(trimmed(text));
    if (std::ranges::find(key.words, word) != key.words.end()) return word;
    throw Failure(ErrorNumber::typeMismatch, "neither of the two words");
}

void read(const Key& key, const SettingsStore& store, Settings& settings) {
    std::string text = store.get(key.section, key.name).value_or(std::string(key.defaultText));
    try {
        text = known(key, text);
        std::visit(Reader{settings, text}, key.member);
    } catch (const Failure& failure) {
        throw unreadableSetting(failure.number(), store, key.section, key.name, text, key.defaultText);
    }
}

bool isToBeWritten(const Key& key, const SettingsStore& store, std::string_view text) {
    if (key.saving == Saving::whenUsed) {
        return text != key.defaultText || store.get(key.section, key.name).has_value();
    }
    return key.saving == Saving::always;
}

} // namespace

Failure unreadableSetting(ErrorNumber number, const SettingsStore& store, std::string_view section,
                          std::string_view key, std::string_view text, std::string_view defaultText) {
    std::string words = store.where() + ": [";
    words.append(section).append("] ").append(key).append("=\"").append(text);
    words.append("\" is not what this setting can hold; its default \"").append(defaultText);
    words.append("\" is used. Correct it there or in the set-up screen");
    return {number, words};
}

Settings StoredSettings::Utilities_loadregsettings() {
    constexpr std::string_view routine = "Utilities_loadregsettings";
    return errors_.run(routine, Settings{}, [&](Level&) {
        Settings settings;
        Level ordinal = 0;
        for (const Key& key : keys) {
            ++ordinal;
            // Each key has its own guard: what one of them reports costs none of the others.
            errors_.run(routine, [&](Level& level) {
                level = ordinal;
                read(key, store_, settings);
            });
        }
        settings.depthUnits = depthUnitsField(settings.depthUnits);
        settings.lcuComms = lcuCommsOrDefault(settings.lcuComms);
        return settings;
    });
}

bool StoredSettings::Utilities_saveregsettings(const Settings& settings) {
    return errors_.run("Utilities_saveregsettings", false, [&](Level& level) {
        for (const Key& key : keys) {
            ++level;
            const std::string text = std::visit(Writer{settings}, key.member);
            if (isToBeWritten(key, store_, text)) store_.set(key.section, key.name, text);
        }
        store_.commit();
        return true;
    });
}

} // namespace tarvik
