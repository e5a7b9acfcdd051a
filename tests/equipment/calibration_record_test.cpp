#include "equipment/calibration_record.h"

#include <gtest/gtest.h>

namespace tarvik {
namespace {

TEST(CalibrationRecord, GoesThereAndBack) {
    ToolRecord tool = blankTool();
    tool.set(tool::code, "K201");
    tool.set(tool::name, "Natural gamma");
    tool.set(tool::serialNumber, "G-7");
    Calibration made{.sensorName = "Gamma",
                     .state = "Cal",
                     .fitName = "2nd order polynomial",
                     .identifier = "130306-00001",
                     .date = "13-Mar-2006",
                     .time = "09:12:34",
                     .calibratedBy = "Someone",
                     .kind = "Field",
                     .serialNumber = "taken from the tool"};
    made.order = 2;
    made.coefficients = {0.1, -2, 3e-5};
    made.coefficients.back() = 1e300;
    made.pointCount = 20;
    made.points.back() = {1.5F, -2.5F};

    const CalibrationRecord record = calibrationRecord(tool, made);
    EXPECT_EQ(record.get(TextField{0, 8}), "K201");
    EXPECT_EQ(record.get(Int16Field{160}), 2);
    EXPECT_EQ(record.get(DoubleField{314}), 1e300);
    EXPECT_EQ(record.get(FloatField{546}), -2.5F);
    EXPECT_EQ(record.get(Int16Field{556}), 0);

    const Calibration back = calibrationOf(record);
    EXPECT_EQ(back.serialNumber, "G-7");
    EXPECT_EQ(back.sensorName, made.sensorName);
    EXPECT_EQ(back.fitName, made.fitName);
    EXPECT_EQ(back.identifier, made.identifier);
    EXPECT_EQ(back.date + back.time, made.date + made.time);
    EXPECT_EQ(back.state + back.calibratedBy + back.kind, made.state + made.calibratedBy + made.kind);
    EXPECT_EQ(back.coefficients, made.coefficients);
    EXPECT_EQ(back.points, made.points);
    EXPECT_EQ(back.order, 2);
    EXPECT_EQ(back.pointCount, 20);
}

TEST(CalibrationRecord, ADamagedNumberOfPointsIsHeldToTheRoom) {
    CalibrationRecord record = blankCalibrationRecord();
    record.set(calibration::pointCount, 21);
    EXPECT_EQ(calibrationOf(record).pointCount, 20);
    record.set(calibration::pointCount, -1);
    EXPECT_EQ(calibrationOf(record).pointCount, 0);
    EXPECT_EQ(record.bytes()[159], ' ');
    EXPECT_EQ(record.bytes()[387], ' ');
    EXPECT_EQ(record.bytes()[599], ' ');
}

} // namespace
} // namespace tarvik
