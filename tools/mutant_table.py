"""The deliberate faults of tools/mutants: where, what stands there, what is put there instead, and which test
program must notice."""
from typing import NamedTuple


class Mutant(NamedTuple):
    name: str
    tests: str
    file: str
    before: str
    after: str


MUTANTS = [
    # ---- values
    Mutant("halves round away from zero", "base_tests", "src/base/rounding.cpp",
           "return std::fmod(floor, 2.0) == 0 ? floor : floor + 1;", "return value < 0 ? floor : floor + 1;"),
    Mutant("overflow of 16 bits is let through", "base_tests", "src/base/rounding.cpp",
           "rounded <= std::numeric_limits<Integer>::max()", "true"),
    Mutant("number pictures round ties down", "base_tests", "src/base/number_picture.cpp",
           "decimal.digit(keep) >= '5'", "decimal.digit(keep) > '5'"),
    Mutant("texts are not cut at a blank", "base_tests", "src/base/fixed_record.h",
           "return fromAnsi(trimmed(raw));", "return fromAnsi(raw);"),

    # ---- decoding
    Mutant("raw supply words subtract 4096", "lcu_tests", "src/lcu/raw_scan_decoder.cpp",
           "word - 4095", "word - 4096"),
    Mutant("raw supply word 2048 stays positive", "lcu_tests", "src/lcu/raw_scan_decoder.cpp",
           "return word >= 2048", "return word > 2048"),
    Mutant("supply word 2048 becomes negative", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "return word > 2048 ? word - 4096", "return word >= 2048 ? word - 4096"),
    Mutant("depth 0x800000 becomes negative", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "if (count > 0x800000)", "if (count >= 0x800000)"),
    Mutant("signed words: 32767 is negative", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "return word > 32767", "return word >= 32767"),
    Mutant("the third scan has no values", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "constexpr std::int32_t scansWithoutValues = 2;", "constexpr std::int32_t scansWithoutValues = 3;"),
    Mutant("the scan that sets the last-sampled depth is kept", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "        state_.lastSampledDepth = state_.current.depth;\n        return;",
           "        state_.lastSampledDepth = state_.current.depth - 0.5F;"),
    Mutant("a movement of a whole metre is a sample", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "moved > 0 && moved < 1", "moved > 0 && moved <= 1"),
    Mutant("standing still is a sample", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "moved > 0 && moved < 1", "moved >= 0 && moved < 1"),
    Mutant("the direction's sign is swapped", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "run.direction == Direction::up ? -down : down", "run.direction == Direction::up ? down : -down"),
    Mutant("the end is reached at exactly the entered distance", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "distanceLeft() < run.endDistance", "distanceLeft() <= run.endDistance"),
    Mutant("a scan without time divides by it", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "    if (state_.current.scanTime == 0) {", "    if (state_.current.scanTime < 0) {"),
    Mutant("count rates are not rounded", "lcu_tests", "src/lcu/scan_decoder.cpp",
           "return wholeNumber(counts * 10000.0 / scanTime);",
           "return static_cast<float>(counts * 10000.0 / scanTime);"),

    # ---- the line
    Mutant("no flush after a fault of the line", "lcu_tests", "src/lcu/scan_reader.cpp",
           "    serial_.Com_Flush(link_.port, receiveSide);\n", ""),
    Mutant("a whole scan that fills the wait is an overflow", "lcu_tests", "src/lcu/scan_framer.h",
           "waiting > missing()", "waiting >= missing()"),
    Mutant("the length byte counts itself twice", "lcu_tests", "src/lcu/scan_framer.cpp",
           "expected_ = length - 1;", "expected_ = length;"),
    Mutant("the power-down of an LCU4 forgets ER0", "lcu_tests", "src/lcu/lcu_commands.cpp",
           "if (model && model->powerDownEndsWithEr0)", "if (model && !model->powerDownEndsWithEr0)"),
    Mutant("the status is asked for once only", "lcu_tests", "src/lcu/lcu_commands.cpp",
           "            count = askForStatus();\n", ""),

    # ---- equipment
    Mutant("an item of period tools loses its constant", "equipment_tests", "src/equipment/sensor_factors.cpp",
           "channel = {period, periodConstant(item)};", "channel = {period, 1};"),
    Mutant("letter S is no signed level", "equipment_tests", "src/equipment/sensor_factors.cpp",
           "letter <= 'S'", "letter < 'S'"),
    Mutant("the line takes its constant from the first point", "equipment_tests",
           "src/equipment/polynomial_fit.cpp", "finite(second.y - slope * second.x)",
           "finite(first.y - slope * first.x)"),
    Mutant("ties of the pivot take the last row", "equipment_tests", "src/equipment/polynomial_fit.cpp",
           "std::abs(a[row][k]) > std::abs(a[pivot][k])", "std::abs(a[row][k]) >= std::abs(a[pivot][k])"),
    Mutant("a serial number to be checked is not trimmed", "equipment_tests", "src/equipment/tool_winch_data.cpp",
           "const std::string wanted = asStored<Record>(kind.serialNumber, serialNumber);",
           "const std::string wanted(serialNumber);"),
    Mutant("a winch's serial number is free for a tool", "equipment_tests", "src/equipment/tool_winch_data.cpp",
           " && !carriesSerial(user, winchKind, serialNumber)", ""),

    # ---- files
    Mutant("feet are metres times 3.28", "files_tests", "src/files/scan_record.cpp",
           "metres * 1000 / metresPerFoot", "metres * 3280"),
    Mutant("a negative speed is shown", "files_tests", "src/files/scan_loader.cpp",
           "std::max(scan.speed(), 0)", "std::max(scan.speed(), -1)"),
    Mutant("up-logs are not turned round", "files_tests", "src/files/scan_loader.cpp",
           "review_.depth.front() <= review_.depth.back()", "review_.depth.front() > review_.depth.back()"),
    Mutant("an append goes on off the border", "files_tests", "src/files/run_file_reader.cpp",
           "shape.firstScan + shape.scans * shape.recordLength);\n    return",
           "shape.firstScan + shape.scans * shape.recordLength + 1);\n    return"),

    # ---- LAS
    Mutant("the filter's window is off by one", "processing_tests", "src/processing/log_filter.cpp",
           "const std::size_t half = n / 2;", "const std::size_t half = (n + 1) / 2;"),
    Mutant("the filter forgets what it has smoothed", "processing_tests", "src/processing/log_filter.cpp",
           "sum -= w[i - half];", "sum -= w[i];"),
    Mutant("curve lines are 37 wide", "processing_tests", "src/processing/las_text.cpp",
           "constexpr std::size_t curveWidth = 38;", "constexpr std::size_t curveWidth = 37;"),

    # ---- frame
    Mutant("no blank line before a project", "app_tests", "src/app/status_log.cpp",
           "text.find(\"Project :\") != std::string_view::npos", "false"),
    Mutant("LogInches is written", "app_tests", "src/app/stored_settings.cpp",
           "&Settings::logInches, Saving::never", "&Settings::logInches, Saving::always"),
]
