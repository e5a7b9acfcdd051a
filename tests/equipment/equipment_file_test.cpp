#include "equipment/equipment_bench.h"

#include "base/failure.h"

namespace tarvik {
namespace {

std::vector<std::uint8_t> goodBytes() {
    return equipmentBytes(makerEquipment());
}

EquipmentFile readBytes(const std::vector<std::uint8_t>& bytes) {
    return readEquipment(bytes, "some.dat");
}

TEST(EquipmentFile, RecordsLieWhereTheyShould) {
    const auto bytes = goodBytes();
    ASSERT_EQ(bytes.size(), 128U + 3 * 4000 + 2 * 1024);
    EXPECT_EQ(toolOffset(1), 128U);
    EXPECT_EQ(toolOffset(3), 8128U);
    EXPECT_EQ(winchOffset(3, 2), 13152U);
    EXPECT_EQ(asText(std::span(bytes).subspan(8128 + 4, 8)), "K417    ");
    EXPECT_EQ(asText(std::span(bytes).subspan(13152, 8)), "W240    ");
    EXPECT_EQ(bytes[30], 3);
    EXPECT_EQ(bytes[32], 2);
    const EquipmentFile back = readBytes(bytes);
    EXPECT_TRUE(back.faults.empty());
    EXPECT_EQ(equipmentBytes(back), bytes);
}

/// The layout's own assertions hold neighbours together; these say where, the mode varying fastest.
TEST(EquipmentFile, FieldsLieAtTheirBytes) {
    const std::vector<std::size_t> offsets{tool::code.offset,
                                           tool::kind(2).offset,
                                           tool::selected.offset,
                                           tool::channelCount(2).offset,
                                           tool::channelName(2, 1).offset,
                                           tool::channelName(1, 2).offset,
                                           tool::uncalibratedLeft(1, 2).offset,
                                           tool::calibratedRight(2, 2).offset,
                                           tool::parameter(1, 2).offset,
                                           tool::maximumCurrent.offset,
                                           winch::selected.offset};
    EXPECT_EQ(offsets, (std::vector<std::size_t>{4, 62, 122, 140, 162, 182, 2530, 3014, 3212, 3622, 68}));
}

TEST(EquipmentFile, ReadsWhatIsThereAtEveryLength) {
    const auto whole = goodBytes();
    for (std::size_t size = 0; size < whole.size(); size += size < 200 ? 1 : 37) {
        const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const EquipmentFile read = readBytes(cut);
        ASSERT_FALSE(read.faults.empty()) << size;
        const auto again = equipmentBytes(read);
        ASSERT_GE(again.size(), size) << "nothing that was there is lost";
        ASSERT_TRUE(std::equal(cut.begin(), cut.end(), again.begin())) << size;
        if (size == 128 + 4000 + 20) {
            ASSERT_EQ(read.tools.size(), 2U);
            EXPECT_EQ(read.tools[1].get(tool::name), "Density");
            EXPECT_EQ(read.tools[1].bytes()[100], ' ') << "texts that are missing are blanks";
            EXPECT_EQ(read.tools[1].get(tool::channelCount(1)), 0);
        }
    }
}

TEST(EquipmentFile, SaysWhatIsDamagedAndWhere) {
    const struct {
        std::int16_t tools, winches;
        std::size_t toolsRead, winchesRead;
        const char* said;
    } cases[] = {
        {9, 0, 4, 0, "holds 4 of the 9 tool records"},
        {-1, 2, 0, 2, "counts -1 records of kind tool"},
        {3, 3, 3, 2, "holds 2 of the 3 winch records"},
        {3, 1, 3, 1, "goes on for 1024 bytes after the last record that its header counts (byte 13152)"},
    };
    for (const auto& c : cases) {
        auto bytes = goodBytes();
        writeI16le(&bytes[30], c.tools);
        writeI16le(&bytes[32], c.winches);
        const EquipmentFile read = readBytes(bytes);
        EXPECT_EQ(read.tools.size(), c.toolsRead) << c.said;
        EXPECT_EQ(read.winches.size(), c.winchesRead) << c.said;
        const std::string all = testing::PrintToString(read.faults);
        EXPECT_NE(all.find("some.dat is damaged: it "), std::string::npos) << all;
        EXPECT_NE(all.find(c.said), std::string::npos) << all;
    }
}

/// With the maker's count of the other kind.
TEST(EquipmentFile, AUserFileWithItsFirstRecordIsInOrder) {
    EquipmentFile file = makerEquipment();
    file.header.set(equipment::toolCount, 1);
    file.tools.resize(1);
    file.winches.clear();
    EXPECT_TRUE(readBytes(equipmentBytes(file)).faults.empty());

    file = makerEquipment();
    file.header.set(equipment::winchCount, 1);
    file.tools.clear();
    file.winches.resize(1);
    const EquipmentFile read = readBytes(equipmentBytes(file));
    EXPECT_TRUE(read.faults.empty() && read.tools.empty());
    ASSERT_EQ(read.winches.size(), 1U);
    EXPECT_EQ(read.winches[0].get(winch::code), "W110");
}

TEST(EquipmentFile, CountsThatDoNotFitAreRefused) {
    EquipmentFile file;
    file.winches.resize(32768);
    EXPECT_THROW(correctCounts(file), Failure);
}

} // namespace
} // namespace tarvik
