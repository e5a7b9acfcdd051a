#include "equipment/tool_winch_data.h"

#include "base/text.h"
#include "equipment/tool_calibrations.h"

#include <algorithm>
#include <tuple>

namespace tarvik {

namespace {

constexpr double versionWithoutUserFile = 1000;
/// The counts of the header are 16-bit numbers.
constexpr std::uint64_t longestEquipmentFile =
    EquipmentHeader::size + std::uint64_t{32767} * (ToolRecord::size + WinchRecord::size);
constexpr std::string_view noWinch = "Current winch : -- none selected --";

template <class Record>
const Record& recordOf(const std::vector<Record>& records, int index, std::string_view kind,
                       const Path& file) {
    if (index < 1 || static_cast<std::size_t>(index) > records.size()) {
        throw Failure(ErrorNumber::subscriptOutOfRange, file.string() + ": there is no " + std::string(kind) +
                                                            " number " + std::to_string(index) +
                                                            "; it holds " + std::to_string(records.size()));
    }
    return records[static_cast<std::size_t>(index - 1)];
}

/// As the field keeps it: cut to its width, without blanks around.
template <class Record>
std::string asStored(TextField field, std::string_view text) {
    Record record;
    record.set(field, trimmed(text));
    return record.get(field);
}

template <class Record>
bool carriesSerial(const EquipmentFile& user, const EquipmentKind<Record>& kind,
                   std::string_view serialNumber) {
    const std::string wanted = asStored<Record>(kind.serialNumber, serialNumber);
    return std::ranges::any_of(user.*kind.records,
                               [&](const Record& record) { return record.get(kind.serialNumber) == wanted; });
}

template <class Record>
const Record* find(const EquipmentFile& user, const EquipmentKind<Record>& kind,
                   const EquipmentChoice& choice) {
    const std::string code = asStored<Record>(kind.code, choice.code);
    const std::string serial = asStored<Record>(kind.serialNumber, choice.serialNumber);
    if (code.empty()) return nullptr;
    const std::vector<Record>& records = user.*kind.records;
    const auto found = std::ranges::find_if(records, [&](const Record& record) {
        return record.get(kind.code) == code && (serial.empty() || record.get(kind.serialNumber) == serial);
    });
    return found == records.end() ? nullptr : &*found;
}

std::uint64_t firstSlot(const EquipmentFile&, const EquipmentKind<ToolRecord>&) {
    return toolOffset(1);
}
std::uint64_t firstSlot(const EquipmentFile& file, const EquipmentKind<WinchRecord>&) {
    return winchOffset(file.tools.size(), 1);
}

/// The whole fields are compared, as the user's record is a copy of the maker's.
template <class Record>
bool sameCode(const EquipmentKind<Record>& kind, const Record& a, const Record& b) {
    return std::ranges::equal(a.bytes().subspan(kind.code.offset, kind.code.width),
                              b.bytes().subspan(kind.code.offset, kind.code.width));
}

} // namespace

ToolWinchData::ToolWinchData(ErrorTrap& errors, Files& files, StatusLog& log, OperatorSide& operatorSide,
                             const CalibrationSource& calibrations, const Path& programFolder)
    : errors_(errors),
      files_(files),
      log_(log),
      operatorSide_(operatorSide),
      calibrations_(calibrations),
      makerFile_(programFolder / "BrennaTools-Winches.dat"),
      userFile_(programFolder / "UserTools-Winches.dat") {}

void ToolWinchData::ToolWinchData_getdatabasecriticalversion() {
    errors_.run("ToolWinchData_getdatabasecriticalversion", [&](Level& level) {
        if (!files_.exists(makerFile_)) {
            operatorSide_.message("Database error",
                                  "Unable to locate the Tools and Winches database file\r\n\r\n" +
                                      makerFile_.string() +
                                      "\r\n\r\nThis file is necessary for ALL data acquisition operations.",
                                  Icon::critical);
            return;
        }
        DatabaseVersions read;
        const EquipmentFile maker = load(makerFile_);
        read.makerCritical = leadingNumber(maker.header.get(equipment::criticalVersion));
        read.maker = leadingNumber(maker.header.get(equipment::version));
        read.makerDate = maker.header.get(equipment::date);
        level = 1; // the user's file
        read.user = files_.exists(userFile_) ? leadingNumber(load(userFile_).header.get(equipment::version))
                                             : versionWithoutUserFile;
        versions_ = read;
    });
}

// ---- Lists

MakerList ToolWinchData::ToolWinchData_loadbrennatoollist() {
    return errors_.run("ToolWinchData_loadbrennatoollist", MakerList{},
                       [&](Level&) { return loadMakerList(toolKind); });
}

MakerList ToolWinchData::ToolWinchData_loadbrennawinchlist() {
    return errors_.run("ToolWinchData_loadbrennawinchlist", MakerList{},
                       [&](Level&) { return loadMakerList(winchKind); });
}

UserList ToolWinchData::ToolWinchData_loadusertoollist() {
    return errors_.run("ToolWinchData_loadusertoollist", UserList{},
                       [&](Level&) { return loadUserList(toolKind); });
}

UserList ToolWinchData::ToolWinchData_loaduserwinchlist() {
    return errors_.run("ToolWinchData_loaduserwinchlist", UserList{},
                       [&](Level&) { return loadUserList(winchKind); });
}

std::vector<UserRow> ToolWinchData::ToolWinchData_loadhistusertoollist() {
    return errors_.run("ToolWinchData_loadhistusertoollist", std::vector<UserRow>{},
                       [&](Level&) { return loadUserList(toolKind).rows; });
}

std::vector<std::string> ToolWinchData::ToolWinchData_loadhistusersensorlist(int userTool) {
    return errors_.run("ToolWinchData_loadhistusersensorlist", std::vector<std::string>{}, [&](Level&) {
        if (!files_.exists(userFile_)) return std::vector<std::string>{};
        const EquipmentFile user = load(userFile_);
        return sensorNames(recordOf(user.tools, userTool, toolKind.one, userFile_));
    });
}

template <class Record>
MakerList ToolWinchData::loadMakerList(const EquipmentKind<Record>& kind) {
    if (!files_.exists(makerFile_)) return {};
    return makerList(load(makerFile_), kind);
}

template <class Record>
UserList ToolWinchData::loadUserList(const EquipmentKind<Record>& kind) {
    if (!files_.exists(userFile_)) return {};
    const EquipmentFile user = load(userFile_);
    const std::size_t owned = (user.*kind.records).size();
    const std::size_t offered = files_.exists(makerFile_) ? (load(makerFile_).*kind.records).size() : owned;
    return userList(user, kind, offered);
}

// ---- The user's file

bool ToolWinchData::ToolWinchData_addusertool(int makerTool, std::string_view serialNumber) {
    return errors_.run("ToolWinchData_addusertool", false, [&](Level& level) {
        add(level, toolKind, makerTool, serialNumber);
        return true;
    });
}

bool ToolWinchData::ToolWinchData_adduserwinch(int makerWinch, std::string_view serialNumber) {
    return errors_.run("ToolWinchData_adduserwinch", false, [&](Level& level) {
        add(level, winchKind, makerWinch, serialNumber);
        return true;
    });
}

bool ToolWinchData::ToolWinchData_removeusertool(int userTool) {
    return errors_.run("ToolWinchData_removeusertool", false, [&](Level& level) {
        remove(level, toolKind, userTool);
        return true;
    });
}

bool ToolWinchData::ToolWinchData_removeuserwinch(int userWinch) {
    return errors_.run("ToolWinchData_removeuserwinch", false, [&](Level& level) {
        remove(level, winchKind, userWinch);
        return true;
    });
}

bool ToolWinchData::ToolWinchData_checkserialnumber(std::string_view serialNumber) {
    return errors_.run("ToolWinchData_checkserialnumber", false, [&](Level&) {
        if (!files_.exists(userFile_)) return true;
        const EquipmentFile user = load(userFile_);
        return !carriesSerial(user, toolKind, serialNumber) && !carriesSerial(user, winchKind, serialNumber);
    });
}

bool ToolWinchData::userFileReads() {
    try {
        if (files_.exists(userFile_)) std::ignore = load(userFile_);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

template <class Record>
void ToolWinchData::add(Level& level, const EquipmentKind<Record>& kind, int makerIndex,
                        std::string_view serialNumber) {
    const EquipmentFile maker = load(makerFile_);
    Record record = recordOf(maker.*kind.records, makerIndex, kind.one, makerFile_);
    record.set(kind.serialNumber, trimmed(serialNumber));
    level = 1; // into the user's file
    if (files_.exists(userFile_)) {
        EquipmentFile user = load(userFile_);
        (user.*kind.records).push_back(record);
        rewriteUser(user);
        return;
    }
    // The first record takes the maker's header along; the next rewrite corrects the count of the other kind.
    EquipmentFile user;
    user.header = maker.header;
    user.header.set(kind.count, 1);
    (user.*kind.records).push_back(record);
    files_.replace(userFile_, equipmentBytes(user));
}

template <class Record>
void ToolWinchData::remove(Level& level, const EquipmentKind<Record>& kind, int userIndex) {
    EquipmentFile user = load(userFile_);
    std::vector<Record>& records = user.*kind.records;
    std::ignore = recordOf(records, userIndex, kind.one, userFile_);
    level = 1; // writing without it
    records.erase(records.begin() + (userIndex - 1));
    rewriteUser(user);
}

void ToolWinchData::rewriteUser(EquipmentFile& user) {
    correctCounts(user);
    if (!user.faults.empty()) {
        const Path aside = userFile_.string() + ".damaged";
        files_.copy(userFile_, aside);
        log_.red("The damaged equipment file was kept as " + aside.string());
    }
    files_.replace(userFile_, equipmentBytes(user));
}

// ---- The maker's selected flags

void ToolWinchData::ToolWinchData_updatebrennatoollist() {
    errors_.run("ToolWinchData_updatebrennatoollist", [&](Level&) { updateSelectedFlags(toolKind); });
}

void ToolWinchData::ToolWinchData_updatebrennawinchlist() {
    errors_.run("ToolWinchData_updatebrennawinchlist", [&](Level&) { updateSelectedFlags(winchKind); });
}

template <class Record>
void ToolWinchData::updateSelectedFlags(const EquipmentKind<Record>& kind) {
    if (!files_.exists(makerFile_)) return;
    const EquipmentFile maker = load(makerFile_);
    const EquipmentFile user = files_.exists(userFile_) ? load(userFile_) : EquipmentFile{};
    const std::uint64_t fileSize = files_.size(makerFile_);
    std::uint64_t slot = firstSlot(maker, kind);
    for (Record record : maker.*kind.records) {
        const bool has = std::ranges::any_of(
            user.*kind.records, [&](const Record& owned) { return sameCode(kind, owned, record); });
        const auto flag = static_cast<std::int16_t>(has ? -1 : 0);
        if (slot + endOf(kind.selected) <= fileSize && record.get(kind.selected) != flag) {
            record.set(kind.selected, flag);
            files_.patch(makerFile_, slot + kind.selected.offset,
                         record.bytes().subspan(kind.selected.offset, kind.selected.width));
        }
        slot += Record::size;
    }
}

// ---- The tool and the winch of the run

std::string ToolWinchData::ToolWinchData_loadcurrentttoolwinch(const EquipmentChoice& tool,
                                                               const EquipmentChoice& winch, int toolMode) {
    return errors_.run("ToolWinchData_loadcurrentttoolwinch", std::string(noWinch), [&](Level& level) {
        tool_ = {};
        winch_ = {};
        tool_.mode = toolMode == 2 ? 2 : 1;
        if (!files_.exists(userFile_)) return std::string(noWinch);
        const EquipmentFile user = load(userFile_);
        const ToolRecord* const foundTool = find(user, toolKind, tool);
        const WinchRecord* const foundWinch = find(user, winchKind, winch);
        if (foundWinch != nullptr) winch_.record = *foundWinch;
        if (foundTool != nullptr) {
            level = 1; // its sensors
            tool_.record = *foundTool;
            ToolWinchData_getcurrentsensorfactors();
            attachCalibrations(tool_, calibrations_);
        }
        if (foundWinch == nullptr) return std::string(noWinch);
        return "Current winch : " + winch_.record.get(winch::name);
    });
}

CurrentTool ToolWinchData::userTool(const EquipmentChoice& choice, int toolMode) {
    return errors_.run(errors_.place().routine, CurrentTool{}, [&](Level&) {
        CurrentTool tool;
        tool.mode = toolMode == 2 ? 2 : 1;
        if (!files_.exists(userFile_)) return tool;
        const EquipmentFile user = load(userFile_);
        if (const ToolRecord* const found = find(user, toolKind, choice)) {
            tool.record = *found;
            attachCalibrations(tool, calibrations_);
        }
        return tool;
    });
}

void ToolWinchData::ToolWinchData_updatecurrenttoolscales(std::string_view scaleKind, int channel, float left,
                                                          float right) {
    errors_.run("ToolWinchData_updatecurrenttoolscales", [&](Level& level) {
        if (channel < 1 || channel > maxChannels) {
            throw Failure(ErrorNumber::subscriptOutOfRange, "Display scale of channel " +
                                                                std::to_string(channel) +
                                                                ": channels go from 1 to 20");
        }
        const std::string_view kind = trimmed(scaleKind);
        const int mode = tool_.mode;
        if (kind == "UNCAL") {
            tool_.record.set(tool::uncalibratedLeft(mode, channel), left);
            tool_.record.set(tool::uncalibratedRight(mode, channel), right);
        } else if (kind == "CALIB") {
            tool_.record.set(tool::calibratedLeft(mode, channel), left);
            tool_.record.set(tool::calibratedRight(mode, channel), right);
        } else {
            return;
        }
        level = 1; // into the user's file
        if (files_.exists(userFile_)) writeCurrentTool();
    });
}

const SensorFactors& ToolWinchData::ToolWinchData_getcurrentsensorfactors() {
    errors_.run("ToolWinchData_getcurrentsensorfactors", [&](Level&) {
        applySensorFactors(tool_.record.get(tool::code), tool_.record.get(tool::sensorFactors(tool_.mode)),
                           tool_.channels(), tool_.factors);
    });
    return tool_.factors;
}

/// The slot is looked up afresh: tools before it may have been removed since it was loaded.
void ToolWinchData::writeCurrentTool() {
    const EquipmentFile user = load(userFile_);
    const std::string code = tool_.record.get(tool::code);
    const std::string serial = tool_.record.get(tool::serialNumber);
    const auto own = std::ranges::find_if(user.tools, [&](const ToolRecord& record) {
        return record.get(tool::code) == code && record.get(tool::serialNumber) == serial;
    });
    const auto position = static_cast<std::size_t>(own - user.tools.begin()) + 1;
    if (own == user.tools.end() || toolOffset(position + 1) > files_.size(userFile_)) {
        log_.red(userFile_.string() + " does not hold tool " + code + " SN-" + serial +
                 ": its display scales are kept for this session only");
        return;
    }
    files_.patch(userFile_, toolOffset(position), tool_.record.bytes());
}

EquipmentFile ToolWinchData::load(const Path& file) {
    if (const std::uint64_t size = files_.size(file); size > longestEquipmentFile) {
        throw Failure(ErrorNumber::badFile, file.string() + " has " + std::to_string(size) +
                                                " bytes, more than an equipment file can need (" +
                                                std::to_string(longestEquipmentFile) +
                                                "). Bring back a sound copy of the file.");
    }
    EquipmentFile read = readEquipment(files_.read(file), file.string());
    for (const std::string& fault : read.faults) {
        if (said_.insert(fault).second) log_.red(fault);
    }
    return read;
}

} // namespace tarvik
