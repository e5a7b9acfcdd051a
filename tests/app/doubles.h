// An operator who writes down everything, and an error reporter that keeps what it is told.
#pragma once

#include "app/operator_side.h"

#include <string>
#include <vector>

namespace tarvik {

using Transcript = std::vector<std::string>;

struct KeptErrors final : ErrorReporter {
    std::vector<ErrorReport> errors;
    void report(const ErrorReport& error) override { errors.push_back(error); }
};

struct WritingOperator : OperatorSide {
    explicit WritingOperator(Transcript& transcript) : lines(transcript) {}

    void message(std::string_view title, std::string_view text, Icon icon) override {
        write("message ", title, "|", text, icon == Icon::exclamation ? "|!" : "|");
    }
    Answer ask(std::string_view, std::string_view text, Icon) override {
        write("ask ", text);
        return Answer::no;
    }
    void notice(std::string_view title, std::string_view text, Icon) override {
        write("notice ", title, "|", text);
    }
    void showError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed) override {
        write("error ", error.routine, "|", error.description, "|", dateTime, "|", filed.file,
              filed.problem.empty() ? "" : "|not there: ", filed.problem);
    }
    void beep() override { write("beep"); }
    void statusText(std::string_view text) override { write("status ", text); }
    void linkPanel(std::string_view text) override { write("panel ", text); }

    template <class... Texts>
    void write(const Texts&... texts) {
        std::string& line = lines.emplace_back();
        (line.append(texts), ...);
    }

    Transcript& lines;
};

} // namespace tarvik
