// What the header of a run file says, as values: filled when a run starts, written by the header writer, read
// back by the reader. Texts longer than their field are cut when written.
#pragma once

#include "base/calibration.h"
#include "base/civil_time.h"
#include "base/run_setup.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarvik {

/// The hole's header texts, as the operator entered them.
struct HoleDetails {
    std::string company, area, operatorName, drillerDepth, contractor, prospect, holeId, coordinates,
        diameter, permanentDatum, collarElevation, casingType, casingDepth, casingDiameter, casingThickness,
        fluidType, fluidLevel;
};

struct EquipmentIdentity {
    std::string code;
    std::string name;
    std::string serialNumber;
};

/// Left and right end of a display scale.
struct ScalePair {
    float left = 0;
    float right = 0;
};

struct RunChannel {
    std::string name;
    std::string unit;
    ScalePair uncalibrated;
    ScalePair calibrated;
    Calibration calibration;
};

struct RunHeader {
    int versionMajor = 2;
    int versionMinor = 0;
    std::string runDate;   ///< "dd-mmm-yyyy"
    std::string startTime; ///< "hh:mm am/pm"
    std::string project;
    HoleDetails hole;
    EquipmentIdentity tool;
    EquipmentIdentity winch;
    int toolMode = 1;
    std::string toolModeName;
    RunSetup setup;
    std::string dataState = "ORIGINAL";
    std::string specialKind;          ///< "DEVIATION", "SONIC", "ELK" or empty
    int waveformSamples = 0;          ///< of a sonic run's scans; 0 in every other run
    std::vector<RunChannel> channels; ///< "Speed" first, at most 20 with a name slot, then the rest
    std::string notes;
};

/// One kept scan on its way to the file. `channels` are the calibrated values without Speed.
struct KeptScan {
    double depth = 0;          ///< metres
    std::int32_t scanTime = 0; ///< 0.1 ms
    double speed = 0;          ///< per minute, in the file's depth unit
    std::span<const float> channels;
    float toolCurrent = 0; ///< mA
    float toolVoltage = 0; ///< V
    std::int32_t magneticMarker = 0;
};

} // namespace tarvik
