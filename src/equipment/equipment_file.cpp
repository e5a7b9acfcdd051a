#include "equipment/equipment_file.h"

#include "base/failure.h"

#include <algorithm>
#include <limits>

namespace tarvik {

namespace {

using ByteSpan = std::span<const std::uint8_t>;

/// What the header says of one kind of record, and what may be believed of it.
struct Counts {
    std::int64_t tools = 0;
    std::int64_t winches = 0;
};

/// The bytes from `offset` on, over a blank record: what the file does not hold stays blank or zero.
template <class Record>
Record recordAt(ByteSpan bytes, std::uint64_t offset, const Record& blank) {
    std::array<std::uint8_t, Record::size> whole{};
    std::ranges::copy(blank.bytes(), whole.begin());
    if (offset < bytes.size()) {
        const ByteSpan rest = bytes.subspan(offset);
        std::ranges::copy(rest.first(std::min(rest.size(), Record::size)), whole.begin());
    }
    return Record(whole);
}

EquipmentHeader blankHeader() {
    EquipmentHeader header;
    header.set(TextField{0, 30}, "");
    header.set(TextField{34, 94}, "");
    return header;
}

/// A user file of one record has the maker's count of the other kind, but none of its records.
Counts believed(const EquipmentHeader& header, std::size_t fileSize) {
    const Counts said{header.get(equipment::toolCount), header.get(equipment::winchCount)};
    if (said.tools == 1 && fileSize == EquipmentHeader::size + ToolRecord::size) return {1, 0};
    if (said.winches == 1 && fileSize == EquipmentHeader::size + WinchRecord::size) return {0, 1};
    return said;
}

class Reader {
  public:
    Reader(ByteSpan bytes, std::string_view fileName) : bytes_(bytes), fileName_(fileName) {}

    EquipmentFile read() {
        EquipmentFile file;
        file.header = recordAt(bytes_, 0, blankHeader());
        if (bytes_.size() < EquipmentHeader::size) {
            fault("has " + std::to_string(bytes_.size()) + " of the 128 bytes of its header");
        }
        const Counts counts = believed(file.header, bytes_.size());
        at_ = EquipmentHeader::size;
        readRecords(counts.tools, "tool", blankTool(), file.tools);
        readRecords(counts.winches, "winch", blankWinch(), file.winches);
        if (bytes_.size() > at_) {
            fault("goes on for " + std::to_string(bytes_.size() - at_) +
                  " bytes after the last record that its header counts (byte " + std::to_string(at_) + ")");
        }
        file.faults = std::move(faults_);
        return file;
    }

  private:
    template <class Record>
    void readRecords(std::int64_t count, const std::string& kind, const Record& blank,
                     std::vector<Record>& records) {
        if (count < 0) {
            fault("counts " + std::to_string(count) + " records of kind " + kind +
                  " in its header; read as none");
            return;
        }
        for (std::int64_t i = 1; i <= count && at_ < bytes_.size(); ++i) {
            records.push_back(recordAt(bytes_, at_, blank));
            if (bytes_.size() - at_ < Record::size) {
                fault("ends within " + kind + " record " + std::to_string(i) + " (byte " +
                      std::to_string(bytes_.size()) + "); the rest of the record reads as blank");
            }
            at_ += Record::size;
        }
        if (static_cast<std::int64_t>(records.size()) < count) {
            fault("holds " + std::to_string(records.size()) + " of the " + std::to_string(count) + " " +
                  kind + " records that its header counts");
        }
    }

    void fault(const std::string& what) {
        faults_.push_back(fileName_ + " is damaged: it " + what + ". Bring back a sound copy of the file.");
    }

    ByteSpan bytes_;
    std::string fileName_;
    std::uint64_t at_ = 0;
    std::vector<std::string> faults_;
};

std::int16_t countOf(std::size_t records, const char* kind) {
    if (records > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
        throw Failure(ErrorNumber::overflow, "An equipment file holds at most 32767 records of kind " +
                                                 std::string(kind) + "; remove some first");
    }
    return static_cast<std::int16_t>(records);
}

template <class Record>
void appendTo(std::vector<std::uint8_t>& bytes, const Record& record) {
    bytes.insert(bytes.end(), record.bytes().begin(), record.bytes().end());
}

} // namespace

std::uint64_t toolOffset(std::size_t index) {
    return EquipmentHeader::size + (index - 1) * ToolRecord::size;
}

std::uint64_t winchOffset(std::size_t toolCount, std::size_t index) {
    return toolOffset(toolCount + 1) + (index - 1) * WinchRecord::size;
}

EquipmentFile readEquipment(std::span<const std::uint8_t> bytes, std::string_view fileName) {
    return Reader(bytes, fileName).read();
}

std::vector<std::uint8_t> equipmentBytes(const EquipmentFile& file) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(winchOffset(file.tools.size(), file.winches.size() + 1));
    appendTo(bytes, file.header);
    for (const ToolRecord& record : file.tools) appendTo(bytes, record);
    for (const WinchRecord& record : file.winches) appendTo(bytes, record);
    return bytes;
}

void correctCounts(EquipmentFile& file) {
    file.header.set(equipment::toolCount, countOf(file.tools.size(), "tool"));
    file.header.set(equipment::winchCount, countOf(file.winches.size(), "winch"));
}

} // namespace tarvik
