// A fixed-width record of one of the program's flat files, kept as the bytes it has on disk.
//
// Fields are places in those bytes, named in a layout table beside each record; what no field names is
// carried along unchanged. Texts are single-byte ANSI, left-aligned, padded with blanks and trimmed on
// reading; a longer text is cut. Integers and reals are little-endian.
#pragma once

#include "base/bytes.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarvik {

struct TextField {
    std::size_t offset;
    std::size_t width;
};
struct Int16Field {
    std::size_t offset;
    static constexpr std::size_t width = 2;
};
struct Int32Field {
    std::size_t offset;
    static constexpr std::size_t width = 4;
};
struct FloatField {
    std::size_t offset;
    static constexpr std::size_t width = 4;
};
struct DoubleField {
    std::size_t offset;
    static constexpr std::size_t width = 8;
};

/// The first byte after a field; layout tables assert with it that their fields follow one another without
/// gaps.
template <class Field>
[[nodiscard]] constexpr std::size_t endOf(const Field& field) {
    return field.offset + field.width;
}

template <std::size_t Size>
class FixedRecord {
  public:
    static constexpr std::size_t size = Size;

    /// All zero bytes; a layout's own `blank…` function fills its text fields with blanks.
    FixedRecord() = default;

    /// Takes what is there; a short record reads as zero bytes at its end.
    explicit FixedRecord(std::span<const std::uint8_t> bytes) {
        std::copy_n(bytes.begin(), std::min(bytes.size(), Size), bytes_.begin());
    }

    [[nodiscard]] std::span<const std::uint8_t, Size> bytes() const { return bytes_; }

    /// Trimmed, UTF-8; a text of zero bytes (a field never written) reads as empty.
    [[nodiscard]] std::string get(TextField field) const {
        std::string_view raw(reinterpret_cast<const char*>(&bytes_[field.offset]), field.width);
        raw = raw.substr(0, raw.find('\0'));
        return fromAnsi(trimmed(raw));
    }
    [[nodiscard]] std::int16_t get(Int16Field field) const { return readI16le(&bytes_[field.offset]); }
    [[nodiscard]] std::int32_t get(Int32Field field) const { return readI32le(&bytes_[field.offset]); }
    [[nodiscard]] float get(FloatField field) const { return readF32le(&bytes_[field.offset]); }
    [[nodiscard]] double get(DoubleField field) const { return readF64le(&bytes_[field.offset]); }

    void set(TextField field, std::string_view utf8) {
        const std::string ansi = toAnsi(utf8);
        const std::size_t used = std::min(ansi.size(), field.width);
        auto* const at = bytes_.begin() + static_cast<std::ptrdiff_t>(field.offset);
        std::copy_n(ansi.begin(), used, at);
        std::fill_n(at + used, field.width - used, std::uint8_t{' '});
    }
    void set(Int16Field field, std::int16_t value) { writeI16le(&bytes_[field.offset], value); }
    void set(Int32Field field, std::int32_t value) { writeI32le(&bytes_[field.offset], value); }
    void set(FloatField field, float value) { writeF32le(&bytes_[field.offset], value); }
    void set(DoubleField field, double value) { writeF64le(&bytes_[field.offset], value); }

    friend bool operator==(const FixedRecord&, const FixedRecord&) = default;

  private:
    std::array<std::uint8_t, Size> bytes_{};
};

} // namespace tarvik
