#include "files/las_header.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "files/las_header_line.h"
#include "files/las_units.h"

#include <algorithm>
#include <string_view>

namespace tarvik {

namespace {

constexpr auto npos = std::string_view::npos;

std::string_view lineAt(std::string_view text, std::size_t at) {
    return text.substr(at, std::min(text.find_first_of("\r\n", at), text.size()) - at);
}

/// CR LF, LF and CR each end one line.
std::size_t lineNumber(std::string_view text, std::size_t at) {
    std::size_t line = 1;
    for (std::size_t i = 0; i < std::min(at, text.size()); ++i) {
        if (text[i] == '\n' || (text[i] == '\r' && text.substr(i + 1, 1) != "\n")) ++line;
    }
    return line;
}

[[noreturn]] void refuse(std::size_t line, const std::string& reason) {
    throw LasRefusal("line " + std::to_string(line) + ": " + reason);
}

std::string inQuotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

/// Finds keys one behind the other: each search begins at the colon of the key before.
class KeySearch {
  public:
    struct Found {
        std::string_view unit;
        std::string_view value;
        std::size_t line;
    };

    KeySearch(std::string_view block, bool wholeFile) : block_(block), wholeFile_(wholeFile) {}

    Found find(std::string_view key, LasFindings& findings) {
        const std::size_t at = block_.find(key, position_);
        if (at == npos) refuseMissing(key);
        sayPlace(key, at, findings);
        const std::size_t point = following(".", at, key);
        const std::size_t space = following(" ", point, key);
        const std::size_t colon = following(":", space, key);
        position_ = colon;
        before_ = key;
        lineBefore_ = lineOf(at);
        return {block_.substr(point + 1, space - point - 1), block_.substr(space, colon - space),
                lineNumber(block_, at)};
    }

    /// The search goes on from a section.
    std::size_t moveTo(std::string_view section) {
        const std::size_t at = block_.find(section, position_);
        if (at == npos) refuseMissing(section);
        position_ = at;
        before_ = section;
        lineBefore_ = lineOf(at);
        return at;
    }

    [[nodiscard]] std::size_t lineOf(std::size_t at) const { return lineNumber(block_, at); }

  private:
    /// The first place with these letters counts, though it may be another line's description. VERS is not
    /// told of: it stands in "~VERSION" of every file with capitals, and the value behind is the right one.
    void sayPlace(std::string_view key, std::size_t at, LasFindings& findings) const {
        if (key == "VERS") return;
        const std::size_t end = block_.find_first_of("\r\n", at);
        const std::size_t begin = block_.find_last_of("\r\n", at) + 1; // 0 in the first line
        const std::string_view line = block_.substr(begin, std::min(end, block_.size()) - begin);
        const std::string_view behind = line.substr(at - begin);
        const std::size_t point = behind.find('.');
        const std::size_t space = point == npos ? npos : behind.find(' ', point);
        const std::string_view before = strippedLasText(line.substr(0, at - begin));
        if (!before.empty() || strippedLasText(behind.substr(0, std::min(point, behind.size()))) != key)
            findings.say(lineOf(at),
                         std::string(key) + " is found inside another line, whose value is read for it");
        else if (space == npos)
            findings.say(lineOf(at),
                         std::string(key) +
                             " has no point and blank in its line, those of a line behind are taken");
    }

    std::size_t following(std::string_view mark, std::size_t at, std::string_view key) const {
        const std::size_t found = block_.find(mark, at);
        if (found == npos) {
            refuse(lineOf(at), inQuotes(key) + " has no " + inQuotes(mark) + " behind it");
        }
        return found;
    }

    /// Where a line begins with it, above the place where it was looked for.
    [[nodiscard]] std::size_t lineWith(std::string_view key) const {
        for (std::size_t at = block_.find(key); at != npos; at = block_.find(key, at + 1)) {
            if (at == 0 || block_[at - 1] == '\n' || block_[at - 1] == '\r') return lineOf(at);
        }
        return 0;
    }

    [[noreturn]] void refuseMissing(std::string_view key) const {
        const std::string name = inQuotes(key);
        const std::size_t here = lineOf(position_);
        if (!before_.empty() && here != lineBefore_) {
            refuse(lineBefore_, inQuotes(before_) +
                                    " has no blank and colon in its line; the next ones are in line " +
                                    std::to_string(here) + ", and " + name + " is not behind them");
        }
        const std::string place =
            before_.empty() ? "" : " behind " + inQuotes(before_) + " (line " + std::to_string(here) + ")";
        if (const std::size_t line = lineWith(key); line != 0)
            refuse(line, name + " is out of place, it must stand" + place);
        refuse(here, name + " is missing" + place +
                         (wholeFile_ ? "" : ", the header is searched for 20000 characters only"));
    }

    std::string_view block_;
    bool wholeFile_;
    std::size_t position_ = 0;
    std::string_view before_; ///< what was found last
    std::size_t lineBefore_ = 0;
};

// --- what the keys say -------------------------------------------------------------------------------------

/// A text that begins with no number is 0; what follows the number is not read. Both are said.
double takeNumber(const KeySearch::Found& found, std::string_view key, LasFindings& findings) {
    const double number = leadingNumber(found.value);
    const std::string name(key);
    if (found.value.find_first_of("\r\n") != npos)
        findings.say(found.line,
                     name + " has no colon in its line, the next key is looked for behind the next colon");
    if (!leadingLasNumber(found.value)) {
        findings.say(found.line, name + " is no number, it is read as 0");
    } else if (!wholeLasNumber(found.value)) {
        findings.say(found.line, name + " holds more than a number, it is read as " + shortestNumber(number));
    }
    return number;
}

/// A colon inside the text ends it: the rest is not read, and the operator is told.
std::string takeText(const KeySearch::Found& found, std::string_view block, std::string_view key,
                     LasFindings& findings) {
    const auto behind = static_cast<std::size_t>(found.value.data() + found.value.size() - block.data());
    const std::string name(key);
    if (found.value.find_first_of("\r\n") != npos) {
        findings.say(found.line, name + " has no colon in its line, its text runs on to the next colon");
    } else if (lineAt(block, behind + 1).find(':') != npos) {
        findings.say(found.line, name + " holds a colon, its text is read up to there");
    }
    return plainLasText(fromAnsi(found.value));
}

void takeNull(const KeySearch::Found& found, LasFacts& facts, LasFindings& findings) {
    facts.nullText = plainLasText(fromAnsi(found.value));
    facts.hasNull = leadingLasNumber(found.value).has_value();
    if (facts.hasNull)
        facts.null = takeNumber(found, "NULL", findings);
    else
        findings.say(found.line, "NULL is no number that can be read, every number is read as a value");
}

void takeKeys(KeySearch& search, std::string_view block, LasHeader& header, LasFindings& findings) {
    LasFacts& facts = header.facts;
    const KeySearch::Found start = search.find("STRT", findings);
    header.startLine = start.line;
    facts.start = takeNumber(start, "STRT", findings);
    facts.depthUnit = plainLasText(fromAnsi(start.unit));
    if (start.unit.find('\t') != npos)
        findings.say(start.line, "a tab stands behind the unit of STRT, which goes on to the next blank");
    const KeySearch::Found stop = search.find("STOP", findings);
    const double stopGiven = takeNumber(stop, "STOP", findings);
    facts.stop = inUnitOfStart({"STOP", stopGiven, stop.unit, stop.line}, start.unit, findings);
    const KeySearch::Found step = search.find("STEP", findings);
    const double stepGiven = takeNumber(step, "STEP", findings);
    facts.step = inUnitOfStart({"STEP", stepGiven, step.unit, step.line}, start.unit, findings);
    facts.stepText = facts.step != stepGiven && std::isfinite(stepGiven) ? shortestNumber(facts.step)
                                                                         : plainLasText(fromAnsi(step.value));
    takeNull(search.find("NULL", findings), facts, findings);
    const auto text = [&](std::string_view key) {
        return takeText(search.find(key, findings), block, key, findings);
    };
    header.hole.company = text("COMP");
    header.hole.holeId = text("WELL");
    header.date = text("DATE");
}

void noteVersion(double version, std::size_t line, LasFindings& findings) {
    if (version == 2) return;
    findings.say(line, version > 0 && version < 2
                           ? "the file is older than LAS 2.0: its texts stand behind the colon, what is read "
                             "for them is their description"
                           : "the version is not 2.0, the file is read as if it were");
}

// --- curves ------------------------------------------------------------------------------------------------

/// `block` begins at "~C"; its own line is no curve.
void takeCurves(std::string_view block, LasHeader& header, LasFindings& findings) {
    const std::string_view section = block.substr(0, block.find('~', 1));
    const auto lineOf = [&](std::size_t at) { return header.curvesLine + lineNumber(section, at) - 1; };
    if (section.size() == lasHeaderBlock)
        findings.say(lineOf(section.size()),
                     "the curve section is read for 20000 characters and does not end "
                     "in them: its last curve may be cut short, and others missing");
    LasFacts& facts = header.facts;
    for (std::size_t at = lineAt(section, 0).size() + 1; at < section.size();) {
        const std::string_view bytes = lineAt(section, at);
        const std::size_t here = at;
        at += bytes.size() + 1;
        const std::string line = fromAnsi(bytes);
        if (line.starts_with('#')) takeLasFilterNote(line, header);
        if (line.starts_with('#')) continue;
        if (line.find('.') == npos) {
            if (!trimmed(line).empty()) findings.add(LasOddity::curveNoDot, lineOf(here));
            continue;
        }
        if (facts.curvesInFile++ == 0) header.indexLine = lineOf(here);
        if (facts.curves.size() == maxLasCurves) continue;
        facts.curves.push_back(lasCurveEntry(line));
        header.names.push_back(lasChannel(line, facts.curves.back(), facts.curvesInFile));
    }
}

// --- the rest ----------------------------------------------------------------------------------------------

/// Line by line up to the data: what the fixed keys leave out.
void takeFurtherLines(std::string_view header, LasHeader& values) {
    char section = ' ';
    for (std::size_t at = 0; at < header.size();) {
        const std::size_t here = at;
        const std::string line = fromAnsi(lineAt(header, at));
        at += lineAt(header, at).size() + 1;
        if (line.size() > 1 && line[0] == '~') section = line[1];
        if (line.empty() || line[0] == '~' || line[0] == '#') continue;
        const auto parts = splitLasHeaderLine(line);
        if (!parts) continue;
        const bool wrap = upperCase(parts->mnemonic) == "WRAP";
        // "WRAP.YES :" has its answer where a unit stands.
        takeFurtherLasLine(section, parts->mnemonic,
                           wrap && parts->value.empty() ? parts->unit : parts->value, values);
        if (wrap) values.wrapLine = lineNumber(header, here);
    }
}

} // namespace

LasHeader readLasKeys(const Files& files, const Path& file, LasFindings& findings) {
    const std::string block = asText(files.readPart(file, 0, lasHeaderBlock));
    KeySearch search(block, files.size(file) <= lasHeaderBlock);
    LasHeader header;
    const KeySearch::Found version = search.find("VERS", findings);
    header.facts.version = takeNumber(version, "VERS", findings);
    noteVersion(header.facts.version, version.line, findings);
    search.moveTo("~W");
    takeKeys(search, block, header, findings);
    header.curvesAt = search.moveTo("~C");
    header.curvesLine = search.lineOf(header.curvesAt);
    return header;
}

void readLasCurves(const Files& files, const Path& file, LasHeader& header, LasFindings& findings) {
    takeCurves(asText(files.readPart(file, header.curvesAt, lasHeaderBlock)), header, findings);
    if (header.facts.curves.empty()) refuse(header.curvesLine, "the curve section names no curve");
    const std::string block = asText(files.readPart(file, 0, lasHeaderBlock));
    KeySearch search(block, files.size(file) <= lasHeaderBlock);
    const std::size_t data = search.moveTo("~A");
    header.facts.dataStart = data;
    header.dataLine = search.lineOf(data);
    takeFurtherLines(std::string_view(block).substr(0, data), header);
}

} // namespace tarvik
