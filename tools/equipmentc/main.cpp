// equipmentc SOURCE-FOLDER OUTPUT: compiles the readable equipment source into the database file.
// Exit codes: 0 written, 1 the source has problems or the file cannot be written, 2 wrong usage.
#include "equipmentc/equipment_source.h"

#include <exception>
#include <fstream>
#include <iostream>

namespace {

int compileTo(const std::filesystem::path& folder, const std::filesystem::path& output) {
    const auto database = equipmentc::compileDatabase(folder);
    for (const std::string& problem : database.problems) std::cerr << problem << '\n';
    if (!database.problems.empty()) return 1;

    const std::vector<std::uint8_t> bytes = tarvik::equipmentBytes(database.record);
    if (output.has_parent_path()) std::filesystem::create_directories(output.parent_path());
    std::ofstream file(output, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        std::cerr << output.string() << ": cannot be written; check the folder and the space on the disk\n";
        return 1;
    }
    std::cout << output.string() << ": " << database.record.tools.size() << " tools, "
              << database.record.winches.size() << " winches\n";
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: equipmentc SOURCE-FOLDER OUTPUT\n";
        return 2;
    }
    try {
        return compileTo(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::cerr << "equipmentc: " << error.what() << '\n';
        return 1;
    }
}
