// tarvik console: the diagnostics console at a terminal. Commands come from the command line or, without any,
// from standard input, one a line; the status list, the scans and the answers go to standard output.
#include "cli/input_lines.h"
#include "cli/terminal.h"

#include "base/text.h"
#include "lcu/diagnostics_text.h"
#include "lcu/known_commands.h"
#include "program/diagnostics_modules.h"

#include <iostream>

namespace tarvik {

namespace {

constexpr int idleWaitMs = 100;

constexpr std::string_view ownCommands = "  :depth M   set the winch depth, metres\n"
                                         "  :winch     start or stop the winch test\n"
                                         "  :reset     reset the LCU\n"
                                         "  :find      search for the LCU\n"
                                         "  :values    the latest scan, channel by channel\n"
                                         "  :bits      the status bits\n"
                                         "  :raw       the raw bytes of the line from here on, or no more\n"
                                         "  :stop      stop the scan stream and the winch test\n"
                                         "  :help      this list\n";

void printHelp() {
    for (const KnownCommand& known : knownCommands()) {
        std::string text(known.text);
        text.resize(11, ' ');
        std::cout << "  " << text << known.meaning << (known.lcu4Only ? " (LCU4 only)" : "") << "\n";
    }
    std::cout << ownCommands;
}

struct ConsoleEnds {
    std::optional<int> scans;
    std::optional<double> seconds;
};

class TerminalConsole final : public DiagnosticsView {
  public:
    TerminalConsole(Session& session, const ConsoleEnds& ends, bool readInput)
        : session_(session),
          ends_(ends),
          readInput_(readInput),
          transcript_(session.program().clock),
          console_(diagnosticsModules(session.program()), *this) {}
    ~TerminalConsole() override { session_.program().tap.listen(nullptr); }
    TerminalConsole(const TerminalConsole&) = delete;
    TerminalConsole& operator=(const TerminalConsole&) = delete;

    void run(const std::vector<std::string>& words) {
        start_ = session_.program().clock.tickMs();
        console_.open();
        for (const std::string& word : words) obey(word);
        while (!over()) {
            if (readInput_) {
                takeInput(idleWaitMs);
            } else {
                session_.program().serial.ComSleepMS(session_.program().link.port, idleWaitMs);
            }
            console_.tick();
            printRaw();
        }
        console_.close();
        transcript_.finish();
        printRaw();
    }

    void statusLine(std::string_view line) override { std::cout << statusLineParts(line).text << std::endl; }
    void statusCleared() override {}
    void dataAppended(std::string_view text) override {
        for (const char character : text) {
            if (character != '\r') std::cout << character;
        }
        std::cout << std::flush;
    }
    void changed() override {
        if (!console_.winchTestRuns() || console_.depth() == shownDepth_) return;
        shownDepth_ = console_.depth();
        if (shownDepth_) std::cout << "Depth " << *shownDepth_ << " m" << std::endl;
    }
    void looked() override {
        printRaw();
        if (readInput_) takeInput(0);
        const bool enough = ends_.scans && console_.scans() >= *ends_.scans;
        if (enough || timeIsUp() || session_.signals().arrived()) console_.stop();
    }

  private:
    [[nodiscard]] bool timeIsUp() const {
        const auto elapsed = static_cast<double>(session_.program().clock.tickMs() - start_) / 1000.0;
        return ends_.seconds && elapsed >= *ends_.seconds;
    }
    [[nodiscard]] bool over() const {
        if (session_.signals().arrived() || timeIsUp()) return true;
        return (!readInput_ || input_.ended()) && !console_.winchTestRuns();
    }
    void takeInput(int waitMs) {
        if (input_.ended()) {
            if (waitMs > 0) session_.program().serial.ComSleepMS(session_.program().link.port, waitMs);
            return;
        }
        for (const std::string& line : input_.take(waitMs)) obey(line);
    }

    void obey(const std::string& line) {
        act(std::string(trimmed(line)));
        transcript_.finish(); // what came of it stands before what comes next
        printRaw();
    }

    void act(const std::string& line) {
        if (!line.starts_with(':')) return console_.send(line);
        const std::string word = line.substr(0, line.find(' '));
        if (word == ":depth") return setDepth(line.substr(word.size()));
        if (word == ":winch") return console_.comwinchtest();
        if (word == ":reset") return console_.comreset();
        if (word == ":find") return console_.comfindLCU();
        if (word == ":stop") return console_.stop();
        if (word == ":raw") return showRaw(!rawShown_);
        if (word == ":values") return printValues();
        if (word == ":help") return printHelp();
        if (word == ":bits") {
            std::cout << console_.statusBits() << "  " << statusMeaning(console_.status()) << "  "
                      << clearToSendText(console_.clearToSend()) << std::endl;
        } else {
            std::cerr << "tarvik: " << word << " is not known; :help lists what is\n";
        }
    }

    void setDepth(const std::string& text) {
        if (const auto metres = parseNumber(text)) return console_.cominitdepth(*metres);
        std::cerr << "tarvik: :depth expects metres, such as :depth 12.34\n";
    }

    void showRaw(bool shown) {
        rawShown_ = shown;
        session_.program().tap.listen(shown ? &transcript_ : nullptr);
    }

    void printRaw() {
        transcript_.settle(session_.program().clock.tickMicros());
        for (; rawPrinted_ < transcript_.completed(); ++rawPrinted_)
            std::cout << transcript_.line(rawPrinted_) << "\n";
        std::cout << std::flush;
    }

    void printValues() {
        const auto& scan = console_.latestScan();
        if (!scan) {
            std::cout << "No scan has come yet." << std::endl;
            return;
        }
        const CurrentTool& tool = session_.program().equipment.currentTool();
        if (const std::string why = whyNoValues(tool, *scan); !why.empty()) std::cout << why << "\n";
        for (const ChannelRow& row : channelRows(tool, *scan)) {
            std::cout << row.channel << "\t" << row.name << "\t" << row.count << "\t" << row.value << "\t"
                      << row.unit << "\n";
        }
        std::cout << std::flush;
    }

    Session& session_;
    ConsoleEnds ends_;
    bool readInput_;
    InputLines input_;
    WireTranscript transcript_;
    bool rawShown_ = false;
    std::size_t rawPrinted_ = 0;
    DiagnosticsConsole console_;
    std::int64_t start_ = 0;
    std::optional<double> shownDepth_;
};

/// The current tool, so that its channels have names and values; without one there are counts only.
void loadTool(const Arguments& arguments, Program& program) {
    std::string code = arguments.text("--tool").value_or(program.settings.currentTool);
    std::string serial = arguments.has("--tool") ? "" : program.settings.currentToolSerial;
    if (const auto colon = code.find(':'); colon != std::string::npos) {
        serial = code.substr(colon + 1);
        code.resize(colon);
    }
    const int mode = arguments.whole("--mode", {.least = 1, .most = 2}).value_or(1);
    program.equipment.ToolWinchData_loadcurrentttoolwinch(
        {code, serial}, {program.settings.currentWinch, program.settings.currentWinchSerial}, mode);
}

int runConsole(const Arguments& arguments) {
    const ConsoleEnds ends{.scans = arguments.whole("--scans", {.least = 1}),
                           .seconds = arguments.number("--seconds", {.least = 0.1})};
    Terminal terminal;
    Session session(arguments, terminal);
    loadTool(arguments, session.program());
    // Who types can look for it again.
    if (!session.find() && !arguments.rest().empty()) return exitFailed;
    TerminalConsole console(session, ends, arguments.rest().empty());
    console.run(arguments.rest());
    return exitDone;
}

} // namespace

Verb consoleVerb() {
    return {.name = "console",
            .usage = "console [options] [COMMAND ...]",
            .purpose = "talk to the LCU by hand: commands, status, depth, raw scans\n"
                       "Without commands they are read from standard input, one a line; :help lists them.\n"
                       "A stream that V started ends with X, :stop, --scans, --seconds or Ctrl-C.",
            .options = {{"--tool", "CODE[:SERIAL]", "one of your tools: names and values for :values"},
                        {"--mode", "1|2", "its mode (default 1)"},
                        {"--scans", "N", "stop the stream after N scans"},
                        {"--seconds", "S", "end after S seconds"},
                        {"--trace", "FILE", "write a transcript of the serial line"}},
            .run = runConsole};
}

} // namespace tarvik
