// tarvik calibrate: points measured on a sensor become its calibration.
#include "cli/calibration_points.h"
#include "cli/terminal.h"
#include "cli/terminal_question.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "equipment/calibration_fit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 2> kindNames{"Factory", "Field"};

struct Order {
    EquipmentChoice tool;
    std::string sensor;
    int order = 1;
    std::string kind;
    std::string by;
    bool askFirst = true;
};

Order orderFrom(const Arguments& arguments) {
    if (!arguments.rest().empty())
        throw UsageError("points are read from standard input, not from a file name");
    const auto needed = [&](std::string_view option) {
        const auto text = arguments.text(option);
        if (!text || trimmed(*text).empty()) throw UsageError(std::string(option) + " is missing");
        return std::string(trimmed(*text));
    };
    Order order{.tool = {needed("--tool"), needed("--serial")},
                .sensor = needed("--sensor"),
                .kind = arguments.oneOf("--kind", kindNames).value_or("Field"),
                .by = needed("--by"),
                .askFirst = !arguments.has("--yes")};
    const auto degree = arguments.whole("--order");
    if (!degree || *degree < 1 || *degree > maxCalibrationOrder) throw UsageError("--order expects 1 to 7");
    order.order = static_cast<int>(*degree);
    if (toAnsi(order.by).size() > calibration::calibratedBy.width) {
        throw UsageError("--by has room for 20 characters");
    }
    return order;
}

const ToolRecord& ownTool(ToolWinchData& equipment, const EquipmentChoice& wanted) {
    equipment.ToolWinchData_loadcurrentttoolwinch(wanted, {}, 1);
    const ToolRecord& record = equipment.currentTool().record;
    if (!record.get(tool::code).empty()) return record;
    throw Failure(ErrorNumber::badFile, "You have no tool " + wanted.code + " with the serial number " +
                                            wanted.serialNumber + ". See: tarvik equipment list");
}

/// As the tool's record spells it.
std::string sensorOf(const ToolRecord& record, const std::string& wanted) {
    std::string offered;
    for (const std::string& name : sensorNames(record)) {
        if (sameSensor(name, wanted)) return name;
        offered += (offered.empty() ? "\"" : ", \"") + name + "\"";
    }
    throw Failure(ErrorNumber::badFile, "The tool " + record.get(tool::code) + " has no sensor \"" + wanted +
                                            "\"; it has " + offered);
}

void printFit(const Calibration& calibration) {
    std::cout << calibration.fitName << ", coefficients with the lowest power first:\n";
    for (int term = 0; term <= calibration.order; ++term) {
        std::cout << exactNumber(calibration.coefficients[static_cast<std::size_t>(term)]) << "\n";
    }
    std::cout << "reading\treference\tresidual\n";
    const auto differences = residuals(calibration);
    double largest = 0;
    for (std::size_t i = 0; i < differences.size(); ++i) {
        const auto& [reading, reference] = calibration.points[i];
        std::cout << shortestNumber(reading) << "\t" << shortestNumber(reference) << "\t"
                  << shortestNumber(static_cast<float>(differences[i])) << "\n";
        largest = std::max(largest, std::abs(differences[i]));
    }
    std::cout << "largest error\t" << shortestNumber(static_cast<float>(largest)) << "\n" << std::flush;
    if (const auto turn = turningPoint(calibration)) {
        std::cerr << "Warning: the polynomial turns back near the reading "
                  << shortestNumber(static_cast<float>(*turn))
                  << ": two readings give one value there. A lower order may serve better.\n";
    }
}

bool mayBeSaved(const Order& order, const Calibration& calibration) {
    if (!order.askFirst) return true;
    const auto answer = askOnTerminal("Save this calibration of " + calibration.sensorName + " of " +
                                      order.tool.code + " SN-" + order.tool.serialNumber + "?");
    if (answer == Answer::yes) return true;
    std::cerr << (answer ? "The calibration is not saved.\n"
                         : "The calibration is not saved: there is no terminal to ask on. "
                           "Use --yes to save it without being asked.\n");
    return false;
}

int runCalibrate(const Arguments& arguments) {
    const Order order = orderFrom(arguments);
    const auto points = readPoints(std::cin);
    Terminal terminal([&](std::string_view question) {
        return order.askFirst ? askOnTerminal(question).value_or(Answer::no) : Answer::yes;
    });
    Program program(programOptions(arguments), terminal.shell());
    RedLines damage(terminal.lines());
    program.log.addViewer(damage);
    const ToolRecord& tool = ownTool(program.equipment, order.tool);
    const std::string sensor = sensorOf(tool, order.sensor);

    CalibrationFit fit = fitCalibration(program.errors, order.order, points);
    if (!fit.ok) {
        if (!fit.message.empty()) std::cerr << "tarvik: " << trimmed(fit.message) << "\n";
        if (points.size() < 3) std::cerr << "A fit needs at least 3 points; two make a straight line.\n";
        return exitFailed;
    }
    fit.calibration.sensorName = sensor;
    fit.calibration.calibratedBy = order.by;
    fit.calibration.kind = order.kind;
    printFit(fit.calibration);
    if (const auto closer = closerLowerOrder(program.errors, fit.calibration)) {
        std::cerr << "Warning: order " << *closer << " comes closer to these points than order "
                  << order.order << ", whose arithmetic they outgrow. Use that order.\n";
    }
    if (!mayBeSaved(order, fit.calibration)) return exitFailed;
    const auto saved = program.calibrations.PolyCalibration_savecalibrationhistorydata(tool, fit.calibration);
    if (!saved) return exitFailed;
    std::cout << "saved\t" << saved->identifier << "\t" << saved->kind << "\n";
    return exitDone;
}

} // namespace

Verb calibrateVerb() {
    return {.name = "calibrate",
            .usage = "calibrate --tool CODE --serial S --sensor NAME --order M --by NAME [options] < points",
            .purpose = "fit a calibration through points, show how good it is, save it in the history\n"
                       "Points come from standard input, one \"reading reference\" a line, at most 20.\n"
                       "A reading is what the channel shows uncalibrated: counts a second, hertz or counts.",
            .options = {{"--tool", "CODE", "one of your tools"},
                        {"--serial", "S", "its serial number"},
                        {"--sensor", "NAME", "the channel, in whatever case"},
                        {"--order", "M", "order of the polynomial, 1 to 7"},
                        {"--kind", "K", "factory or field (default field)"},
                        {"--by", "NAME", "who calibrated"},
                        {"--yes", "", "save without asking"}},
            .run = runCalibrate};
}

} // namespace tarvik
