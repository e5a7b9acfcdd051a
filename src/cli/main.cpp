#include "cli/verb.h"

int main(int argc, char** argv) {
    const std::vector<std::string_view> words(argv + 1, argv + argc);
    return tarvik::runCommandLine(words);
}
