#include "equipment/calibration_record.h"

#include <gtest/gtest.h>

namespace tarvik {
namespace {

TEST(CalibrationRecord, GoesThereAndBack) {
    ToolRecord tool = blankTool();
    tool.set(tool::serialNumber, "G-7");
    Calibration made;
    made.order = 2;
    made.coefficients = {0.1, -2, 3e-5};
    made.coefficients.back() = 1e300;
    made.pointCount = 20;
    made.points.back() = {1.5F, -2.5F};
    CalibrationRecord record = calibrationRecord(tool, made);
    EXPECT_EQ(record.get(Int16Field{160}), 2);
    EXPECT_EQ(record.get(DoubleField{314}), 1e300);
    EXPECT_EQ(record.get(FloatField{546}), -2.5F);
    EXPECT_EQ(record.get(Int16Field{556}), 0);
    const Calibration back = calibrationOf(record);
    EXPECT_EQ(back.serialNumber, "G-7");
    EXPECT_EQ(back.order, 2);
    EXPECT_EQ(back.coefficients, made.coefficients);
    EXPECT_EQ(back.points, made.points);
    EXPECT_EQ(back.pointCount, 20);
    record.set(calibration::pointCount, 21); // damaged
    EXPECT_EQ(calibrationOf(record).pointCount, 20);
    record.set(calibration::pointCount, -1);
    EXPECT_EQ(calibrationOf(record).pointCount, 0);
    for (const std::size_t last : {159U, 387U, 599U}) EXPECT_EQ(record.bytes()[last], ' ') << last;
}

TEST(CalibrationRecord, SensorNamesAreTheSameInWhateverCase) {
    EXPECT_TRUE(sameSensor(" Densité š ", "DENSITÉ Š"));
    EXPECT_FALSE(sameSensor("Densité", "Densite"));
    EXPECT_FALSE(sameSensor("A÷B", "A×B")) << "no letters";
}

} // namespace
} // namespace tarvik
