#include "files/las_data_lines.h"

namespace tarvik {

namespace {

/// Ctrl-Z: DOS programs end a text with it, and some fill the last sector.
constexpr char dosEnd = '\x1A';

} // namespace

bool LasDataLines::next(LasLine& line) {
    while (lines_.next(line)) {
        tellProgress();
        if (holdsValues(line)) return true;
    }
    return false;
}

void LasDataLines::tellProgress() {
    const int percent = static_cast<int>(lines_.position() * 100 / lines_.fileSize());
    if (progress_ && percent != told_) progress_(percent, "Loading data values from file");
    told_ = percent;
}

bool LasDataLines::holdsValues(LasLine& line) {
    const std::size_t first = line.text.find_first_not_of(" \t");
    const char mark = first == std::string_view::npos ? ' ' : line.text[first];
    if (behindData_ || mark == '~') {
        behindData_ = true;
        if (mark != ' ' || line.tooLong) findings_.add(LasOddity::afterData, line.number);
        return false;
    }
    if (line.tooLong) {
        findings_.add(LasOddity::longLine, line.number);
        ++dropped_;
        return false;
    }
    if (mark == '#') findings_.add(LasOddity::comment, line.number);
    if (mark == '#' || mark == ' ') return false;
    if (mark == dosEnd || line.text.back() == dosEnd) endAtMark(line);
    return line.text.find_first_not_of(" \t") != std::string_view::npos;
}

/// The row before the mark is whole: whoever wrote the mark had written the row.
void LasDataLines::endAtMark(LasLine& line) {
    findings_.add(LasOddity::dosEnd, line.number);
    line.text = line.text.substr(0, line.text.find(dosEnd));
    line.ended = true;
    behindData_ = true;
}

} // namespace tarvik
