#include "cli/verb.h"

#include "app/version.h"
#include "base/failure.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <iterator>

namespace tarvik {

namespace {

std::vector<Verb> verbs(std::vector<Verb> further) {
    std::vector<Verb> all{findVerb(),      logVerb(),          infoVerb(),      lasVerb(),    fitVerb(),
                          calibrateVerb(), calibrationsVerb(), equipmentVerb(), consoleVerb()};
    std::ranges::move(further, std::back_inserter(all));
    return all;
}

std::vector<Option> allOptions(const Verb& verb) {
    std::vector<Option> options = verb.options;
    const auto common = commonOptions();
    options.insert(options.end(), common.begin(), common.end());
    return options;
}

void printOverview(std::ostream& out, const std::vector<Verb>& verbs) {
    out << "Tarvik " << versionText(programVersion()) << ", borehole geophysical logging\n\n"
        << "usage: tarvik <verb> [options]; tarvik <verb> --help\n\n";
    for (const Verb& verb : verbs) {
        std::string name(verb.name);
        name.resize(14, ' ');
        out << "  " << name << verb.purpose.substr(0, verb.purpose.find('\n')) << "\n";
    }
}

int usageProblem(std::string_view problem, std::string_view verb) {
    std::cerr << "tarvik: " << problem << "\nTry: tarvik " << verb << (verb.empty() ? "" : " ") << "--help\n";
    return exitUsage;
}

/// Behind "--" nothing is an option.
bool asksForHelp(std::span<const std::string_view> words) {
    const auto end = std::ranges::find(words, "--");
    return std::any_of(words.begin(), end,
                       [](std::string_view word) { return word == "--help" || word == "-h"; });
}

int runVerb(const Verb& verb, std::span<const std::string_view> words) {
    if (asksForHelp(words)) {
        std::cout << helpText(verb.usage, verb.purpose, allOptions(verb));
        return exitDone;
    }
    try {
        return verb.run(Arguments(words, allOptions(verb)));
    } catch (const UsageError& error) {
        return usageProblem(error.what(), verb.name);
    } catch (const std::exception& error) {
        std::cerr << "tarvik: " << error.what() << "\n";
        return exitFailed;
    }
}

/// `--lcucomms`, if given. Throws UsageError.
std::optional<std::int32_t> searchedPorts(const Arguments& arguments) {
    const auto ports = arguments.whole("--lcucomms");
    if (ports && std::ranges::find(lcuCommsChoices, *ports) == lcuCommsChoices.end())
        throw UsageError("--lcucomms expects 12, 34, 1, 2, 3 or 4");
    return ports;
}

} // namespace

std::vector<Option> commonOptions() {
    return {{"--com1", "DEV", "the device that COM1 is, such as /dev/ttyUSB0"},
            {"--com2", "DEV", "the device that COM2 is"},
            {"--com3", "DEV", "the device that COM3 is"},
            {"--com4", "DEV", "the device that COM4 is"},
            {"--lcucomms", "N", "ports to search: 12 or 34 for two of them, 1 to 4 for that one"},
            {"--home", "DIR", "everything read or written lies below DIR"},
            {"--no-trap", "", "let run-time errors through (for developers)"}};
}

ProgramOptions programOptions(const Arguments& arguments) {
    constexpr std::array<std::string_view, 4> names{"--com1", "--com2", "--com3", "--com4"};
    ProgramOptions options;
    for (std::size_t i = 0; i < names.size(); ++i) options.ports[i] = arguments.name(names[i]);
    if (const auto home = arguments.name("--home")) options.home = *home;
    options.searchedPorts = searchedPorts(arguments);
    options.trapErrors = !arguments.has("--no-trap");
    return options;
}

int runCommandLine(std::span<const std::string_view> words, std::vector<Verb> further) {
    const auto all = verbs(std::move(further));
    if (words.empty()) {
        printOverview(std::cerr, all);
        return exitUsage;
    }
    if (words.front() == "help" || asksForHelp(words.first(1))) {
        printOverview(std::cout, all);
        return exitDone;
    }
    if (words.front() == "--version") {
        std::cout << "Tarvik " << versionText(programVersion()) << "\n";
        return exitDone;
    }
    const auto verb = std::ranges::find(all, words.front(), &Verb::name);
    if (verb == all.end()) return usageProblem("unknown verb \"" + std::string(words.front()) + "\"", "");
    return runVerb(*verb, words.subspan(1));
}

} // namespace tarvik
