#include "equipmentc/equipment_source.h"

#include "equipmentc/field_text.h"
#include "equipmentc/source_document.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

namespace equipmentc {

using namespace tarvik;

namespace {

using FilePath = std::filesystem::path;

/// A source whose keys are texts that each go into one field, all of them needed.
template <class Record>
Compiled<Record> compileTexts(Record record, std::string_view text, std::string_view fileName,
                              const std::string& section,
                              const std::map<std::string, TextField, std::less<>>& fields) {
    Problems problems(fileName);
    KnownKeys known;
    for (const auto& [key, field] : fields) known[section].insert(key);
    for (const Entry& entry : readSource(text, known, "", problems)) {
        putText(record, fields.at(entry.key), entry.value, entry.line, problems);
    }
    for (const auto& [key, field] : fields) {
        if (record.get(field).empty()) {
            problems.add(1, "no " + key + "; write \"" + key + " = ...\" under [" + section + "]");
        }
    }
    return {record, problems.texts()};
}

std::vector<FilePath> filesOf(const FilePath& folder, std::string_view extension) {
    std::vector<FilePath> files;
    if (!std::filesystem::is_directory(folder)) return files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == extension) files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

/// Compiles file after file into a database and keeps their problems.
class DatabaseCompiler {
  public:
    template <class Record, class Compile>
    void take(const std::vector<FilePath>& files, TextField code, Compile compile,
              std::vector<Record>& into) {
        std::map<std::string, FilePath, std::less<>> owners;
        for (const FilePath& file : files) {
            const Compiled<Record> compiled = compileFile(file, compile);
            into.push_back(compiled.record);
            const std::string name = compiled.record.get(code);
            const auto [owner, isNew] = owners.emplace(name, file);
            if (!isNew) {
                problems.push_back(file.string() + ":1: the code \"" + name + "\" is that of " +
                                   owner->second.string() + "; each needs its own");
            }
        }
    }

    template <class Compile>
    auto compileFile(const FilePath& file, Compile compile) {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        if (!in)
            problems.push_back(file.string() + ":1: the file cannot be read, or is empty; bring it back");
        auto compiled = compile(text.str(), file.string());
        problems.insert(problems.end(), compiled.problems.begin(), compiled.problems.end());
        return compiled;
    }

    std::vector<std::string> problems;
};

} // namespace

Compiled<WinchRecord> compileWinch(std::string_view text, std::string_view fileName) {
    return compileTexts(blankWinch(), text, fileName, "winch",
                        {{"code", winch::code}, {"name", winch::name}});
}

Compiled<EquipmentHeader> compileHeader(std::string_view text, std::string_view fileName) {
    EquipmentHeader blank;
    for (const TextField field : {TextField{0, 30}, TextField{34, 94}}) blank.set(field, "");
    return compileTexts(blank, text, fileName, "database",
                        {{"version", equipment::version},
                         {"date", equipment::date},
                         {"critical_version", equipment::criticalVersion}});
}

Compiled<EquipmentFile> compileDatabase(const std::filesystem::path& folder) {
    EquipmentFile database;
    DatabaseCompiler compiler;
    database.header = compiler.compileFile(folder / "database.ini", compileHeader).record;
    compiler.take(filesOf(folder / "tools", ".tool"), tool::code, compileTool, database.tools);
    compiler.take(filesOf(folder / "winches", ".winch"), winch::code, compileWinch, database.winches);
    correctCounts(database);
    return {std::move(database), std::move(compiler.problems)};
}

Compiled<CalibrationFile> compileHistory(const std::filesystem::path& folder,
                                         std::span<const ToolRecord> tools) {
    CalibrationFile history;
    history.header = newCalibrationHeader();
    std::vector<CalibrationRecord>& records = history.records;
    DatabaseCompiler compiler;
    for (const FilePath& file : filesOf(folder / "calibrations", ".calibration")) {
        const auto compiled = compiler.compileFile(file, [&](std::string_view text, std::string_view name) {
            return compileCalibrations(text, name, tools, records.size());
        });
        records.insert(records.end(), compiled.record.begin(), compiled.record.end());
    }
    history.count = records.size();
    return {std::move(history), std::move(compiler.problems)};
}

} // namespace equipmentc
