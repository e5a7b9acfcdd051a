#include "app/run_history.h"

namespace tarvik {

Path dailyFile(const Path& folder, const CivilTime& day) {
    return folder / (formatDate(day, "ddd") + formatDate(day, "-dd-mmm-yyyy") + ".txt");
}

Path errorFile(const Path& folder) {
    return folder / "Tarvik_Errors.txt";
}

std::string fileCreatedLine(const CivilTime& day) {
    return "File created : " + formatDate(day, "dddd") + formatDate(day, ", dd-mmm-yyyy");
}

} // namespace tarvik
