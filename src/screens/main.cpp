#include "cli/process.h"
#include "cli/verb.h"
#include "drawing/verb_plot.h"
#include "screens/desktop_main.h"

int main(int argc, char** argv) {
    tarvik::secureProcess();
    const std::vector<std::string_view> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    if (tarvik::meansDesktop(words)) return tarvik::runDesktop(argc, argv);
    const int code = tarvik::runCommandLine(words, {tarvik::plotVerb()});
    return tarvik::resultsDelivered() || code != tarvik::exitDone ? code : tarvik::exitFailed;
}
