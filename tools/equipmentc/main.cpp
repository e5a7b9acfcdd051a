// equipmentc SOURCE-FOLDER OUTPUT-FOLDER: compiles the readable equipment source into the database file and
// the factory calibrations. Exit codes: 0 written, 1 the source has problems or a file cannot be written, 2
// wrong usage.
#include "equipmentc/equipment_source.h"

#include <exception>
#include <fstream>
#include <iostream>

namespace {

using FilePath = std::filesystem::path;

bool inOrder(const std::vector<std::string>& problems) {
    for (const std::string& problem : problems) std::cerr << problem << '\n';
    return problems.empty();
}

bool write(const FilePath& output, const std::vector<std::uint8_t>& bytes, const std::string& contents) {
    std::ofstream file(output, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        std::cerr << output.string() << ": cannot be written; check the folder and the space on the disk\n";
        return false;
    }
    std::cout << output.string() << ": " << contents << '\n';
    return true;
}

int compileTo(const FilePath& source, const FilePath& output) {
    const auto [database, problems] = equipmentc::compileDatabase(source);
    if (!inOrder(problems)) return 1;
    const auto [history, calibrationProblems] = equipmentc::compileHistory(source, database.tools);
    if (!inOrder(calibrationProblems)) return 1;

    std::filesystem::create_directories(output);
    const bool written = write(output / "BrennaTools-Winches.dat", tarvik::equipmentBytes(database),
                               std::to_string(database.tools.size()) + " tools, " +
                                   std::to_string(database.winches.size()) + " winches") &&
                         write(output / "Brenna-Calibrations.dat", tarvik::calibrationBytes(history),
                               std::to_string(history.records.size()) + " calibrations");
    return written ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: equipmentc SOURCE-FOLDER OUTPUT-FOLDER\n";
        return 2;
    }
    try {
        return compileTo(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::cerr << "equipmentc: " << error.what() << '\n';
        return 1;
    }
}
