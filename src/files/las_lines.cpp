#include "files/las_lines.h"

#include "base/text.h"

#include <algorithm>

namespace tarvik {

LasLines::LasLines(const Files& files, const Path& file, std::uint64_t start, std::size_t firstLine,
                   TextEncoding encoding)
    : files_(files),
      file_(file),
      position_(start),
      fileSize_(files.size(file)),
      encoding_(encoding),
      line_(firstLine) {
    buffer_.reserve(2 * blockBytes);
}

LasLines LasLines::ahead(std::uint64_t bytes) const {
    LasLines shorter = *this;
    shorter.fileSize_ = std::min(fileSize_, position_ + bytes);
    return shorter;
}

bool LasLines::next(LasLine& line) {
    std::size_t end = lineEnd();
    while (end == std::string::npos && !atEnd()) {
        // One more may be a CR whose LF is in the next block.
        if (buffer_.size() - at_ > blockBytes + 1) return passOver(line);
        refill();
        end = lineEnd();
    }
    if (end == std::string::npos && at_ == buffer_.size()) return false;
    line = {.text = {}, .number = line_++, .ended = end != std::string::npos, .tooLong = false};
    line.text = std::string_view(buffer_).substr(at_, line.ended ? end - at_ : buffer_.size() - at_);
    line.tooLong = line.text.size() > blockBytes;
    if (line.tooLong) line.text = {};
    goBehind(end);
    return true;
}

/// Behind a line end, or behind all that is there.
void LasLines::goBehind(std::size_t end) {
    at_ = end == std::string::npos ? buffer_.size() : end + 1;
    if (at_ < buffer_.size() && buffer_[at_ - 1] == '\r' && buffer_[at_] == '\n') ++at_;
}

std::size_t LasLines::nextOf(char end, std::size_t& known) const {
    if (known < at_) known = std::min(buffer_.find(end, at_), buffer_.size());
    return known;
}

std::size_t LasLines::lineEnd() {
    const std::size_t lf = nextOf('\n', nextLf_);
    const std::size_t cr = nextOf('\r', nextCr_);
    const std::size_t end = std::min(lf, cr);
    // A CR at the end of a block may have its LF in the next one.
    if (end == buffer_.size() || (end == cr && end + 1 == buffer_.size() && !atEnd()))
        return std::string::npos;
    return end;
}

void LasLines::refill() {
    buffer_.erase(0, at_);
    at_ = 0;
    const Bytes block = files_.readPart(file_, position_, blockBytes);
    position_ = block.empty() ? fileSize_ : position_ + block.size(); // a file cut meanwhile has ended
    if (encoding_ == TextEncoding::bytes)
        buffer_.append(reinterpret_cast<const char*>(block.data()), block.size());
    else
        decode(block);
    nextLf_ = std::min(buffer_.find('\n'), buffer_.size());
    nextCr_ = std::min(buffer_.find('\r'), buffer_.size());
}

void LasLines::decode(const Bytes& block) {
    for (const std::uint8_t byte : block) {
        if (!hasOddByte_) {
            oddByte_ = byte;
            hasOddByte_ = true;
            continue;
        }
        hasOddByte_ = false;
        const bool little = encoding_ == TextEncoding::utf16le;
        const auto unit = static_cast<char16_t>(little ? byte << 8 | oddByte_ : oddByte_ << 8 | byte);
        append(unit);
    }
}

/// Half a surrogate pair by itself is no character.
void LasLines::append(char16_t unit) {
    constexpr char32_t noCharacter = 0xFFFD;
    const bool low = unit >= 0xDC00 && unit < 0xE000;
    if (low && highSurrogate_ != 0) {
        appendUtf8(buffer_, 0x10000 + ((highSurrogate_ - 0xD800U) << 10) + (unit - 0xDC00U));
        highSurrogate_ = 0;
        return;
    }
    if (highSurrogate_ != 0) appendUtf8(buffer_, noCharacter);
    const bool high = unit >= 0xD800 && unit < 0xDC00;
    highSurrogate_ = high ? unit : u'\0';
    if (!high) appendUtf8(buffer_, low ? noCharacter : unit);
}

/// The rest of the line is read block by block and thrown away.
bool LasLines::passOver(LasLine& line) {
    std::size_t end = std::string::npos;
    while (end == std::string::npos && !atEnd()) {
        at_ = buffer_.back() == '\r' ? buffer_.size() - 1 : buffer_.size();
        refill();
        end = lineEnd();
    }
    line = {.text = {}, .number = line_++, .ended = end != std::string::npos, .tooLong = true};
    goBehind(end);
    return true;
}

} // namespace tarvik
