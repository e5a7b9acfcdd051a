#include "equipment/equipment_bench.h"

namespace tarvik {
namespace {

using ToolWinchDataTest = EquipmentBench;

TEST_F(ToolWinchDataTest, VersionsComeFromBothHeaders) {
    data.ToolWinchData_getdatabasecriticalversion();
    EXPECT_EQ(data.versions().maker, 201);
    EXPECT_EQ(data.versions().makerCritical, 200.5);
    EXPECT_EQ(data.versions().makerDate, "31-Aug-2002");
    EXPECT_EQ(data.versions().user, 1000) << "there is no user file";
    EquipmentFile owned = makerEquipment();
    owned.header.set(equipment::version, "150 old");
    put(user, owned);
    data.ToolWinchData_getdatabasecriticalversion();
    files.remove(maker);
    data.ToolWinchData_getdatabasecriticalversion();
    EXPECT_EQ(told,
              Transcript{"message Database error|Unable to locate the Tools and Winches database file\r\n\r\n"
                         "/program/BrennaTools-Winches.dat\r\n\r\n"
                         "This file is necessary for ALL data acquisition operations.|"});
    EXPECT_EQ(data.versions().maker, 201) << "the versions stay";
    EXPECT_EQ(data.versions().user, 150);
}

TEST_F(ToolWinchDataTest, MakerListsCountTheSelected) {
    EquipmentFile equipment = makerEquipment();
    const auto counted = [&] {
        put(maker, equipment);
        return data.ToolWinchData_loadbrennatoollist().countMessage + "|" +
               data.ToolWinchData_loadbrennawinchlist().countMessage;
    };
    const std::string has = "User currently has ";
    EXPECT_EQ(counted(),
              has + "no tools selected from a total of 3|" + has + "no winches selected from a total of 2");
    equipment.tools[2].set(tool::selected, -1);
    equipment.winches[0].set(winch::selected, 1);
    equipment.winches[1].set(winch::selected, -1);
    EXPECT_EQ(counted(),
              has + "only 1 tool selected from a total of 3|" + has + "2 winches selected from a total of 2");
    const MakerList list = data.ToolWinchData_loadbrennatoollist();
    EXPECT_EQ(list.banner, "BRENNA Winch and Tool database version 201  date 31-Aug-2002");
    ASSERT_EQ(list.rows.size(), 3U);
    EXPECT_EQ(list.rows[1].code + list.rows[1].name + list.rows[1].selected, "K230DensityNO");
    EXPECT_EQ(list.rows[2].selected, "YES");
    equipment.tools.clear();
    equipment.winches.resize(1);
    correctCounts(equipment);
    EXPECT_EQ(counted(),
              has + "no tools selected from a total of 0|" + has + "only 1 winch selected from a total of 1");
    files.remove(maker);
    EXPECT_TRUE(data.ToolWinchData_loadbrennatoollist().rows.empty());
    EXPECT_EQ(data.ToolWinchData_loadbrennawinchlist().countMessage, "");
    EXPECT_TRUE(errors.errors.empty());
}

TEST_F(ToolWinchDataTest, UserListsShowSerialNumbers) {
    EXPECT_FALSE(data.ToolWinchData_loadusertoollist().countMessage.has_value());
    EXPECT_TRUE(data.ToolWinchData_loadhistusersensorlist(1).empty());
    putUser();
    const UserList tools = data.ToolWinchData_loadusertoollist();
    ASSERT_EQ(tools.rows.size(), 2U);
    EXPECT_EQ(tools.rows[1].code + " " + tools.rows[1].text(), "K201 Natural gamma  SN-G-2");
    EXPECT_EQ(tools.countMessage, "User currently has 2 tools selected from a total of 3");
    EXPECT_EQ(data.ToolWinchData_loaduserwinchlist().countMessage,
              "User currently has only 1 winch selected from a total of 2");
    EXPECT_EQ(data.ToolWinchData_loadhistusertoollist().at(0).text(), "Natural gamma  SN-G-1");
    EXPECT_EQ(data.ToolWinchData_loadhistusersensorlist(2), (std::vector<std::string>{"Gamma", "Caliper"}));
    EXPECT_TRUE(data.ToolWinchData_loadhistusersensorlist(3).empty());
    ASSERT_EQ(errors.errors.size(), 1U);
    EXPECT_EQ(errors.errors[0].routine, "ToolWinchData_loadhistusersensorlist");
}

TEST_F(ToolWinchDataTest, TheFirstToolTakesTheMakersHeaderAlong) {
    ASSERT_TRUE(data.ToolWinchData_addusertool(2, " D-9 "));
    const EquipmentFile offered = makerEquipment();
    std::vector<std::uint8_t> expected(offered.header.bytes().begin(), offered.header.bytes().end());
    expected[30] = 1; // tools; the count of winches stays as the maker wrote it
    ToolRecord record = offered.tools[1];
    record.set(tool::serialNumber, "D-9");
    expected.insert(expected.end(), record.bytes().begin(), record.bytes().end());
    EXPECT_EQ(files.read(user), expected);

    ASSERT_TRUE(data.ToolWinchData_addusertool(1, "G-1"));
    EXPECT_EQ(stored(user).header.get(equipment::toolCount), 2);
    EXPECT_EQ(stored(user).header.get(equipment::winchCount), 0) << "corrected by the second writing";
    EXPECT_TRUE(lines.lines.empty()) << "none of this is damage";
}

TEST_F(ToolWinchDataTest, NewRecordsGoBehindThoseOfTheirKind) {
    ASSERT_TRUE(data.ToolWinchData_adduserwinch(2, "W-1"));
    ASSERT_TRUE(data.ToolWinchData_addusertool(1, "G-1"));
    ASSERT_TRUE(data.ToolWinchData_adduserwinch(1, "W-2"));
    ASSERT_TRUE(data.ToolWinchData_addusertool(3, "D-1"));
    EquipmentFile wanted = makerEquipment();
    wanted.tools = {makeTool("K201", "Natural gamma", "G-1"), makeTool("K417", "Deviation", "D-1")};
    wanted.winches = {makeWinch("W240", "Truck winch", "W-1"), makeWinch("W110", "Portable winch", "W-2")};
    correctCounts(wanted);
    EXPECT_EQ(files.read(user), equipmentBytes(wanted));
    EXPECT_FALSE(files.exists("/program/UserTools-Winches.dat.damaged"));
}

TEST_F(ToolWinchDataTest, RemovingTheLastRecordLeavesTheHeader) {
    putUser();
    EXPECT_TRUE(data.ToolWinchData_removeusertool(1));
    EXPECT_EQ(stored(user).tools.at(0).get(tool::serialNumber), "G-2");
    for (const int none : {0, 2}) EXPECT_FALSE(data.ToolWinchData_removeusertool(none)) << none;
    EXPECT_TRUE(data.ToolWinchData_removeuserwinch(1));
    EXPECT_TRUE(data.ToolWinchData_removeusertool(1));
    EXPECT_EQ(files.size(user), 128U);
    EXPECT_EQ(stored(user).header.get(TextField{34, 20}), "travels along");
    EXPECT_FALSE(data.ToolWinchData_removeuserwinch(1));
    EXPECT_EQ(errors.errors.size(), 3U);
}

TEST_F(ToolWinchDataTest, FailuresLeaveTheUserFileAlone) {
    EXPECT_FALSE(data.ToolWinchData_addusertool(4, "X"));
    EXPECT_FALSE(data.ToolWinchData_addusertool(0, "X"));
    EXPECT_FALSE(files.exists(user));
    putUser();
    const Bytes before = files.read(user);
    files.failWritesAfter = files.writes();
    EXPECT_FALSE(data.ToolWinchData_addusertool(1, "X"));
    EXPECT_FALSE(data.ToolWinchData_removeuserwinch(1));
    EXPECT_EQ(files.read(user), before);
    ASSERT_EQ(errors.errors.size(), 4U);
    EXPECT_EQ(errors.errors[2].routine, "ToolWinchData_addusertool");
    EXPECT_EQ(errors.errors[2].number, 61);
}

TEST_F(ToolWinchDataTest, SerialNumbersAreSharedByToolsAndWinches) {
    EXPECT_TRUE(data.ToolWinchData_checkserialnumber("G-1")) << "no user file";
    putUser();
    EXPECT_FALSE(data.ToolWinchData_checkserialnumber(" G-2 "));
    EXPECT_FALSE(data.ToolWinchData_checkserialnumber("W-1"));
    EXPECT_TRUE(data.ToolWinchData_checkserialnumber("g-2"));
    EXPECT_TRUE(data.ToolWinchData_checkserialnumber("G-"));

    const std::string wide(25, '7');
    ASSERT_TRUE(data.ToolWinchData_addusertool(1, wide));
    EXPECT_FALSE(data.ToolWinchData_checkserialnumber(wide)) << "as the field keeps it";
}

TEST_F(ToolWinchDataTest, OnlySelectedFlagsOfTheMakersFileChange) {
    EquipmentFile offered = makerEquipment();
    offered.tools[1].set(tool::selected, -1);
    put(maker, offered);
    putUser();
    data.ToolWinchData_updatebrennatoollist();
    data.ToolWinchData_updatebrennawinchlist();
    offered.tools[0].set(tool::selected, -1);
    offered.tools[1].set(tool::selected, 0);
    offered.winches[1].set(winch::selected, -1);
    EXPECT_EQ(files.read(maker), equipmentBytes(offered));

    files.remove(user);
    data.ToolWinchData_updatebrennatoollist();
    EXPECT_EQ(stored(maker).tools[0].get(tool::selected), 0);

    Bytes cut = files.read(maker);
    cut.resize(128 + 100); // the flag of the first tool lies behind the end
    files.put(maker, asText(cut));
    putUser();
    data.ToolWinchData_updatebrennatoollist();
    EXPECT_EQ(files.read(maker), cut);
    EXPECT_TRUE(errors.errors.empty());
}

TEST_F(ToolWinchDataTest, DamageIsSaidOnceAndKeptAsideBeforeARewrite) {
    putUser();
    Bytes damaged = files.read(user);
    damaged.resize(damaged.size() - 1);
    files.put(user, asText(damaged));
    std::ignore = data.ToolWinchData_loadusertoollist();
    std::ignore = data.ToolWinchData_loadusertoollist();
    ASSERT_EQ(lines.lines.size(), 1U);
    EXPECT_NE(lines.lines[0].find("/program/UserTools-Winches.dat is damaged: it ends within winch record 1"),
              std::string::npos)
        << lines.lines[0];
    ASSERT_TRUE(data.ToolWinchData_addusertool(1, "G-3"));
    EXPECT_EQ(files.read("/program/UserTools-Winches.dat.damaged"), damaged);
    EXPECT_TRUE(stored(user).faults.empty());
    EXPECT_EQ(stored(user).tools.size(), 3U);
}

} // namespace
} // namespace tarvik
