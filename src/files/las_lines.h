// The lines of a text file of any size, read in blocks: CR LF, LF and CR all end a line.
//
// Memory stays at a few blocks: a line of more than 262,144 characters is not kept, only said.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvik {

/// How the bytes of the file become text. `bytes` hands them on as they stand, the others become UTF-8.
enum class TextEncoding { bytes, utf16le, utf16be };

struct LasLine {
    std::string_view text;  ///< without its end; valid until the next line is asked for
    std::size_t number = 0; ///< 1 is the first of the file
    bool ended = true;      ///< false: the file ends without a line end
    bool tooLong = false;   ///< the text is empty, the line was passed over
};

class LasLines {
  public:
    static constexpr std::size_t blockBytes = std::size_t{1} << 18; ///< and the most characters of a line

    /// Begins at byte `start`, in line `firstLine`. `files` and `file` must outlive the lines.
    LasLines(const Files& files, const Path& file, std::uint64_t start = 0, std::size_t firstLine = 1,
             TextEncoding encoding = TextEncoding::bytes);

    /// The same lines from here on, as if the file ended so many bytes further on: for looking ahead.
    [[nodiscard]] LasLines ahead(std::uint64_t bytes) const;

    /// False when the file is at its end. Throws a Failure when it cannot be read.
    bool next(LasLine& line);

    /// Bytes of the file read so far, of `fileSize()`.
    [[nodiscard]] std::uint64_t position() const { return position_; }
    [[nodiscard]] std::uint64_t fileSize() const { return fileSize_; }

  private:
    [[nodiscard]] bool atEnd() const { return position_ >= fileSize_; }
    void refill();
    void decode(const Bytes& block);
    void append(char16_t unit);
    /// Where the line at `at_` ends in the buffer; npos when its end is not there yet.
    std::size_t lineEnd();
    std::size_t nextOf(char end, std::size_t& known) const;
    bool passOver(LasLine& line);
    void goBehind(std::size_t end);

    const Files& files_;
    const Path& file_;
    std::uint64_t position_;
    std::uint64_t fileSize_;
    TextEncoding encoding_;
    std::string buffer_;
    std::size_t at_ = 0;
    std::size_t line_;
    // The next line ends from `at_` on, looked for once: a file with CR alone is not searched for LF at every
    // line.
    std::size_t nextLf_ = 0;
    std::size_t nextCr_ = 0;
    // UTF-16: what a block left behind.
    std::uint8_t oddByte_ = 0;
    bool hasOddByte_ = false;
    char16_t highSurrogate_ = 0;
};

} // namespace tarvik
