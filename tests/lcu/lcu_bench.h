// Everything that the commands and the search need, wired to a scripted port.
#pragma once

#include "app/status_log.h"
#include "lcu/lcu_commands.h"
#include "lcu/lcu_models.h"
#include "lcu/lcu_search.h"
#include "lcu/scripted_port.h"
#include "platform/memory_files.h"

#include <functional>
#include <string>
#include <vector>

namespace tarvik::test {

using Lines = std::vector<std::string>;

/// Lines of the status log as "0text", "1text", "2text" (black, blue, red).
class LogLines final : public StatusViewer {
  public:
    void showStatusLine(std::string_view line) override {
        lines.emplace_back(line.substr(line.find('\\') + 3));
    }
    Lines take() { return std::exchange(lines, {}); }
    Lines lines;
};

class Reports final : public ErrorReporter {
  public:
    void report(const ErrorReport& error) override {
        lines.push_back(error.routine + ": " + error.description);
    }
    Lines lines;
};

/// Shown texts: "!" box, "*" question, "?" notice, "s" status text, "p" link panel.
class Operator final : public OperatorSide {
  public:
    void message(std::string_view title, std::string_view text, Icon) override { add("!", title, text); }
    Answer ask(std::string_view title, std::string_view text, Icon) override {
        add("*", title, text);
        if (whenAsked) whenAsked();
        return answer;
    }
    void notice(std::string_view title, std::string_view text, Icon) override { add("?", title, text); }
    void showError(const ErrorReport&, std::string_view, const ErrorFiling&) override {}
    void beep() override {}
    void statusText(std::string_view text) override { add("s", "", text); }
    void linkPanel(std::string_view text) override { add("p", "", text); }
    Lines shown;
    Answer answer = Answer::no;
    std::function<void()> whenAsked;

  private:
    void add(std::string kind, std::string_view title, std::string_view text) {
        shown.push_back(kind.append(title).append(title.empty() ? "" : ": ").append(text));
    }
};

/// The program's side of the line, with some port on a virtual clock.
template <class Port>
struct LinkBench {
    VirtualClock clock;
    Port serial{clock};
    Reports reports;
    ErrorTrap errors{reports};
    MemoryFiles files;
    StatusLog log{errors, clock, files, "history"};
    LogLines lines;
    Operator operatorSide;
    LinkState link;
    LcuPort port{serial, log, link};
    LcuCommands lcu{errors, log, operatorSide, port, link};
    LcuSearch search{errors, log, operatorSide, port, lcu, link};

    LinkBench() { log.addViewer(lines); }
};

struct LcuBench : LinkBench<ScriptedPort> {
    /// A port that is already open, with a box of the model behind it.
    void connect(const LcuModel* model) {
        link.port = 1;
        link.baud = 9600;
        setModel(link, model);
        answerStatus(model->healthyStatus);
    }
    void answerStatus(int status) { serial.answer("Q", {{{std::string{'Q', static_cast<char>(status)}}}}); }
};

} // namespace tarvik::test
