#include "files/las_tolerant_header.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "files/las_header_line.h"
#include "files/las_units.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace tarvik {

namespace {

/// In the order in which the plain reader wants them; those behind DATE may stand anywhere.
enum Key : std::size_t {
    vers,
    strt,
    stop,
    step,
    null,
    comp,
    well,
    date,
    wrap,
    fld,
    loc,
    prov,
    srvc,
    keyCount
};
constexpr std::array<std::string_view, keyCount> keyNames{
    "VERS", "STRT", "STOP", "STEP", "NULL", "COMP", "WELL", "DATE", "WRAP", "FLD", "LOC", "PROV", "SRVC"};

struct KeyLine {
    std::string unit;
    std::string rest;   ///< behind the unit, with the colon
    std::string number; ///< the value of a key that holds a number, as it was read
    std::size_t line = 0;

    [[nodiscard]] bool given() const { return line != 0; }
    /// The last colon ends the value.
    [[nodiscard]] std::string value() const { return plainLasText(rest.substr(0, rest.rfind(':'))); }
    /// Behind the first colon: where texts stood before LAS 2.0.
    [[nodiscard]] std::string description() const {
        const auto colon = rest.find(':');
        return colon == std::string::npos ? std::string() : plainLasText(rest.substr(colon + 1));
    }
};

char capital(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

[[noreturn]] void refuse(std::size_t line, const std::string& reason) {
    throw LasRefusal("line " + std::to_string(line) + ": " + reason);
}

class TolerantHeader {
  public:
    explicit TolerantHeader(LasFindings& findings) : findings_(findings) {}

    /// False with the line that begins the data.
    bool take(const LasLine& line) {
        characters_ += line.text.size() + 1;
        if (line.tooLong) return passOver(line.number);
        std::string text = decoded(line);
        if (text.find('\t') != std::string::npos) {
            std::ranges::replace(text, '\t', ' ');
            findings_.add(LasOddity::headerTab, line.number);
        }
        const std::string_view content = trimmed(text);
        if (content.empty()) return true;
        if (content.front() == '~') return beginSection(content, line.number);
        if (content.front() == '#') {
            if (section_ == 'C') takeLasFilterNote(text, header_);
            return true;
        }
        if (section_ == '\0')
            refuse(line.number, "this is no LAS file, it does not begin with a section (\"~\")");
        takeLine(text, line.number);
        return true;
    }

    LasHeader finish(std::size_t line) {
        if (header_.facts.curves.empty()) refuse(line, "no curve section stands before the data");
        header_.dataLine = line;
        takeVersion();
        takeNumbers();
        takeTexts();
        if (characters_ > lasHeaderBlock)
            findings_.say(line, "the header is longer than 20000 characters, it is read to its end");
        return std::move(header_);
    }

  private:
    /// A curve may have stood there, and every column behind it would go by the name of the one before.
    bool passOver(std::size_t line) {
        if (section_ == 'C')
            refuse(line, "a line of the curve section has more than 262144 characters, it is not read: the "
                         "columns could go by wrong names");
        characters_ += LasLines::blockBytes;
        findings_.add(LasOddity::headerLong, line);
        return true;
    }

    /// Without byte-order mark the bytes are UTF-8 where they can be, else code page 1252.
    std::string decoded(const LasLine& line) {
        const bool ascii = std::ranges::none_of(line.text, [](char c) { return (c & 0x80) != 0; });
        if (ascii || isUtf8(line.text)) {
            if (!ascii) findings_.add(LasOddity::utf8Text, line.number);
            return std::string(line.text);
        }
        findings_.add(LasOddity::ansiText, line.number);
        return fromAnsi(line.text);
    }

    bool beginSection(std::string_view content, std::size_t line) {
        const char letter = content.size() > 1 ? content[1] : ' ';
        section_ = capital(letter);
        if (section_ != letter) findings_.add(LasOddity::lowerCase, line);
        if (section_ == 'C' && std::exchange(curvesBegun_, true)) {
            findings_.add(LasOddity::curvesAgain, line);
            section_ = ' ';
        }
        return section_ != 'A';
    }

    void takeLine(const std::string& text, std::size_t line) {
        if (section_ != 'V' && section_ != 'W' && section_ != 'C' && section_ != 'P') return;
        const auto parts = splitLasHeaderLine(text);
        if (!parts && section_ == 'C')
            refuse(line,
                   "this line of the curve section has no point: if it is a curve, the columns behind it "
                   "would go by wrong names. Put a point behind the name, or a # before the line.");
        if (!parts) return findings_.add(LasOddity::headerNoDot, line);
        if (!parts->hasColon) findings_.add(LasOddity::headerNoColon, line);
        if (section_ == 'C') {
            takeCurve(text, *parts, line);
        } else {
            takeKey(*parts, text, line);
        }
    }

    void takeCurve(const std::string& text, const LasHeaderLine& parts, std::size_t line) {
        if (header_.facts.curvesInFile++ == 0) header_.indexLine = line;
        if (header_.facts.curves.size() == maxLasCurves) return;
        header_.facts.curves.push_back(
            {plainLasText(parts.mnemonic), plainLasText(parts.unit), plainLasText(parts.description)});
        header_.names.push_back(lasChannel(text, header_.facts.curves.back(), header_.facts.curvesInFile));
    }

    void takeKey(const LasHeaderLine& parts, std::string_view text, std::size_t line) {
        const std::string name = upperCase(parts.mnemonic);
        if (section_ == 'P') return takeFurtherLasLine('P', name, parts.value, header_);
        const auto found = static_cast<std::size_t>(std::ranges::find(keyNames, name) - keyNames.begin());
        if (found == keyCount) return;
        if (name != parts.mnemonic) findings_.add(LasOddity::lowerCase, line);
        KeyLine& key = keys_[found];
        if (key.given()) return findings_.add(LasOddity::headerTwice, line);
        const auto unitEnd = static_cast<std::size_t>(parts.unit.data() + parts.unit.size() - text.data());
        key = {.unit = plainLasText(parts.unit),
               .rest = std::string(text.substr(unitEnd)),
               .number = {},
               .line = line};
        if (found > date) return;
        if (found < latest_) {
            findings_.say(line, name + " stands behind " + std::string(keyNames[latest_]) +
                                    ", it is taken where it stands");
        }
        latest_ = std::max(latest_, found);
    }

    void takeVersion() {
        const KeyLine& version = keys_[vers];
        header_.facts.version = number(vers);
        if (std::isnan(header_.facts.version)) {
            findings_.say(version.line, version.given() ? "VERS has no number, the file is read as LAS 2.0"
                                                        : "there is no VERS, the file is read as LAS 2.0");
        }
        if (header_.facts.version >= 3)
            refuse(version.line,
                   "VERS is " + version.value() + ": LAS 3.0 is another format, which is not read");
        oldOrder_ = header_.facts.version < 2;
        if (oldOrder_)
            findings_.say(version.line, "older than LAS 2.0: texts are read from behind the colon");
        if (!keys_[wrap].given()) findings_.say(0, "there is no WRAP, each line of data is read as one row");
        const std::string wrapped = keys_[wrap].value();
        takeFurtherLasLine('V', "WRAP", wrapped.empty() ? keys_[wrap].unit : wrapped, header_);
        if (header_.wrapped) findings_.say(keys_[wrap].line, "the rows are wrapped, their lines are joined");
    }

    /// Not a number where the key holds none that is sure.
    double number(Key key) {
        KeyLine& line = keys_[key];
        line.number = line.value();
        if (const auto whole = wholeLasNumber(line.number)) return *whole;
        const std::string name(keyNames[key]);
        const auto mended = mendedDecimalComma(line.number);
        if (mended && !mayGroupThousands(line.number)) {
            findings_.say(line.line, name + " has a decimal comma, it is read as " + *mended);
            line.number = *mended;
            return leadingNumber(*mended);
        }
        if (line.number.empty() && line.line > 0 && key != null)
            findings_.say(line.line, name + " holds no number");
        if (!line.number.empty() && leadingLasNumber(line.number))
            findings_.say(line.line,
                          name + " holds more than a number, it is not used: " + line.number.substr(0, 80));
        return std::numeric_limits<double>::quiet_NaN();
    }

    void takeNumbers() {
        LasFacts& facts = header_.facts;
        header_.startLine = keys_[strt].line;
        facts.depthUnit = keys_[strt].unit;
        facts.start = number(strt);
        const auto inUnit = [&](Key key, double given) {
            return inUnitOfStart({keyNames[key], given, keys_[key].unit, keys_[key].line}, facts.depthUnit,
                                 findings_);
        };
        facts.stop = inUnit(stop, number(stop));
        const double stepGiven = number(step);
        facts.step = inUnit(step, stepGiven);
        const bool converted = facts.step != stepGiven && std::isfinite(stepGiven);
        facts.stepText = converted ? shortestNumber(facts.step) : keys_[step].number;
        const double noValueNumber = number(null);
        facts.nullText = keys_[null].number;
        facts.hasNull = !std::isnan(noValueNumber);
        if (facts.hasNull)
            facts.null = noValueNumber;
        else
            findings_.say(keys_[null].line,
                          "there is no NULL with a number that can be read, every number is read as a value");
    }

    void takeTexts() {
        const auto text = [&](Key key) { return oldOrder_ ? keys_[key].description() : keys_[key].value(); };
        header_.hole.company = text(comp);
        header_.hole.holeId = text(well);
        header_.date = text(date);
        header_.hole.prospect = text(fld);
        header_.hole.coordinates = text(loc);
        header_.hole.area = text(prov);
        header_.hole.contractor = text(srvc);
        std::string missing;
        for (const Key key : {strt, stop, step, comp, well, date}) {
            if (!keys_[key].given()) missing.append(missing.empty() ? "" : ", ").append(keyNames[key]);
        }
        if (!missing.empty()) findings_.say(0, "missing in the header and left blank: " + missing);
    }

    LasFindings& findings_;
    LasHeader header_;
    std::array<KeyLine, keyCount> keys_{};
    std::size_t latest_ = 0; ///< of the ordered keys, the one furthest on that has been met
    std::size_t characters_ = 0;
    char section_ = '\0';
    bool oldOrder_ = false;
    bool curvesBegun_ = false;
};

} // namespace

LasText detectLasText(const Files& files, const Path& file, LasFindings& findings) {
    const std::string start = asText(files.readPart(file, 0, 4));
    const auto said = [&](LasText text, const char* what) {
        findings.say(1, what);
        return text;
    };
    if (start.starts_with("\xEF\xBB\xBF"))
        return said({TextEncoding::bytes, 3}, "byte-order mark of UTF-8 passed over");
    if (start.starts_with("\xFF\xFE"))
        return said({TextEncoding::utf16le, 2}, "the file is UTF-16, read as such");
    if (start.starts_with("\xFE\xFF"))
        return said({TextEncoding::utf16be, 2}, "the file is UTF-16, read as such");
    constexpr const char* unmarked = "every other byte is zero: read as UTF-16 without a byte-order mark";
    if (start.size() == 4 && start[0] != 0 && start[1] == 0 && start[3] == 0)
        return said({TextEncoding::utf16le, 0}, unmarked);
    if (start.size() == 4 && start[1] != 0 && start[0] == 0 && start[2] == 0)
        return said({TextEncoding::utf16be, 0}, unmarked);
    return {};
}

LasHeader readTolerantLasHeader(LasLines& lines, LasFindings& findings) {
    TolerantHeader header(findings);
    LasLine line;
    while (lines.next(line)) {
        if (!header.take(line)) return header.finish(line.number);
    }
    if (line.number == 0) refuse(1, "the file is empty");
    refuse(line.number, "the file ends without a data section (\"~A\")");
}

} // namespace tarvik
