// lcusim: the simulated box as a device that programs can open.
#include "simulator/lcusim/command_line.h"
#include "simulator/lcusim/pty_line.h"
#include "simulator/lcusim/pty_server.h"
#include "simulator/tool_file.h"

#include <csignal>
#include <fstream>
#include <iostream>

namespace {

using namespace lcusim;

/// Both files that may be asked for, each when it was.
class FileRecord final : public Recorder {
  public:
    /// Empty, or why a file cannot be written.
    [[nodiscard]] std::string open(const CommandLine& line) {
        for (auto [file, path] : {std::pair{&all_, &line.record}, std::pair{&commands_, &line.commands}}) {
            if (path->empty()) continue;
            file->open(*path);
            if (!*file) return path->string() + " cannot be written; choose another file";
        }
        return {};
    }
    void scan(const ScanRecord& scan) override {
        if (all_.is_open()) lines_.scan(scan);
    }
    void command(const CommandRecord& command) override {
        if (all_.is_open()) lines_.command(command);
        if (commands_.is_open()) commands_ << command.text << std::endl;
    }

  private:
    std::ofstream all_;
    std::ofstream commands_;
    StreamRecord lines_{all_};
};

int failed(const std::string& problem, int code) {
    std::cerr << "lcusim: " << problem << "\n";
    return code;
}

int run(CommandLine line) {
    if (line.help) return std::cout << helpText(), 0;
    if (!line.problem.empty()) return failed(line.problem, 2);
    if (line.tools.empty()) line.tools = LCUSIM_TOOLS;

    const ToolFile tool = findTool(line.tools, line.tool);
    if (!tool.tool) return failed(tool.problem, 1);
    if (tool.tool->modes[static_cast<std::size_t>(line.box.mode - 1)].wordsOnLine() == 0)
        return failed("tool " + line.tool + " has no mode " + std::to_string(line.box.mode), 1);
    FileRecord record;
    if (const std::string problem = record.open(line); !problem.empty()) return failed(problem, 1);

    LcuEngine engine(line.box, *tool.tool, record);
    PtyLine pty(line.link);
    PtyServer server(engine, pty, line.timeFactor, line.exitAfterClose);
    const std::string problem = server.serve(std::cout);
    return problem.empty() ? 0 : failed(problem, 1);
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // whoever read our output may have gone; the box stays
    try {
        const std::span<const char* const> arguments(argv, static_cast<std::size_t>(argc));
        return run(parseCommandLine(arguments.subspan(argc > 0 ? 1 : 0)));
    } catch (const std::exception& problem) {
        return failed(problem.what(), 1);
    }
}
