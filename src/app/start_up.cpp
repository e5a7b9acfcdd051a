#include "app/start_up.h"

#include "base/failure.h"
#include "base/text.h"

#include <string>
#include <utility>

namespace tarvik {

namespace {

constexpr std::string_view formName = "Introscreen";
constexpr int narrowestScreen = 800;
constexpr int twipsAt96Dpi = 15;
constexpr int fewestBitsPerPixel = 16;

constexpr std::string_view displayTitle = "Tarvik Display error";
constexpr std::string_view displayHelp =
    "\r\nPlease review the HELP manual under Overview / System Requirements / Display.";

} // namespace

StartUp::StartUp(Frame& frame, CommandTable& commands, MainWindow& window, Display& display,
                 ErrorLog& errorLog, SystemTexts system, Version version)
    : frame_(frame),
      commands_(commands),
      window_(window),
      display_(display),
      errorLog_(errorLog),
      system_(std::move(system)),
      version_(version) {}

void StartUp::Main() {
    frame_.errors.runIn(formName, "Main", true, [&](Level& level) {
        frame_.state = ProgramState{};
        level = 1; // the main screen
        window_.create();
        formLoad();
        frame_.view.showVersion("Version " + versionText(version_) + " ");
        level = 2;
        frame_.state.started = true;
        window_.show();
        window_.processMessages();
        frame_.hooks.sleep(500);
        return true;
    });
}

void StartUp::formLoad() {
    frame_.errors.runIn(formName, "Form load", true, [&](Level&) {
        window_.setHelpFile(frame_.places.programFolder / "help" / "tarvik.chm");
        frame_.settings.setUnits(DepthUnits::metres);
        frame_.state.depthScaleFactor = 1.0;
        frame_.view.prepareDrawing();
        return true;
    });
}

bool StartUp::formActivate() {
    return frame_.errors.runIn(formName, "Form activate", true, [&](Level& level) {
        if (frame_.state.firstActivationDone) return true;
        frame_.state.firstActivationDone = true;

        level = 1; // the display
        const DisplayFacts facts = display_.facts();
        if (!displayIsWideEnough(facts)) return false;
        warnOfDisplay(facts);
        takeScreen(facts);

        level = 7; // the main screen's parts
        layOut();
        level = 8;
        loadSettings();
        frame_.view.fillLogScales(logScales);
        frame_.hooks.loadHoleNotes();

        level = 11; // the log
        writeStartLines();
        frame_.state.exitConfirmation = false;
        frame_.hooks.clearEquipment();
        if (!frame_.errors.enabled()) frame_.view.printOnLogPicture("  ERROR CHECKING has been disabled");

        level = 14; // ready
        commands_.setControls("ENABLE");
        level = 15;
        frame_.hooks.loadCalibrationHistory();
        return true;
    });
}

bool StartUp::displayIsWideEnough(const DisplayFacts& facts) {
    frame_.state.twipsPerPixelX = static_cast<std::int16_t>(facts.twipsPerPixelX);
    frame_.state.twipsPerPixelY = static_cast<std::int16_t>(facts.twipsPerPixelY);
    if (facts.widthPixels >= narrowestScreen) return true;
    frame_.operatorSide.message("Holvanic-Brenna",
                                "The Screen resolution must be at least 800 x 600 or better", Icon::none);
    window_.unload();
    return false;
}

void StartUp::warnOfDisplay(const DisplayFacts& facts) {
    if (facts.twipsPerPixelX != twipsAt96Dpi || facts.twipsPerPixelY != twipsAt96Dpi) {
        frame_.operatorSide.message(displayTitle,
                                    "The FONT setting for your screen would appear to be incorrect.\r\n"
                                    "This will cause incorrect graphics scaling for images on your screen." +
                                        std::string(displayHelp),
                                    Icon::exclamation);
    }
    if (facts.bitsPerPixel < fewestBitsPerPixel) {
        frame_.operatorSide.message(displayTitle,
                                    "The COLOUR DEPTH of " + std::to_string(facts.bitsPerPixel) +
                                        " bits for the screen is insufficient.\r\n"
                                        "This will cause incorrect screen display and colour rendering." +
                                        std::string(displayHelp),
                                    Icon::exclamation);
    }
}

void StartUp::takeScreen(const DisplayFacts& facts) {
    frame_.state.screenWidth = facts.widthPixels;
    frame_.state.screenHeight = facts.heightPixels;
    window_.fillScreen(facts.widthPixels, facts.heightPixels);
    display_.hideTaskBar();
}

void StartUp::layOut() {
    frame_.view.layOutBars();
    frame_.state.mode = programMode::review;
    frame_.state.acquisitionState = "OFF";
    frame_.view.Utilities_setupsideframe();
    frame_.view.showLogo(frame_.places.programFolder / "complogo.bmp");
}

void StartUp::loadSettings() {
    frame_.settings = frame_.store.Utilities_loadregsettings();
    frame_.view.setSearchPicture(frame_.settings.searchAutomatically);
}

void StartUp::writeStartLines() {
    frame_.log.black(std::string(42, '='));
    frame_.log.black("Tarvik program started - Version " + versionText(version_) + " (build " +
                     std::to_string(version_.revision) + ")");
    frame_.log.black("Operating system : " + std::string(trimmed(system_.operatingSystem)));
    frame_.log.black(trimmed(system_.memory));
    if (!system_.memoryProblem.empty()) {
        errorLog_.file({std::string(formName), "System information", 0,
                        static_cast<int>(ErrorNumber::overflow), system_.memoryProblem});
    }
}

} // namespace tarvik
