#include "files/hole_fields.h"

#include "files/run_header_codec.h"

#include <gtest/gtest.h>

using namespace tarvik;

namespace {

HoleDetails blank() {
    HoleDetails hole;
    for (const HoleField& field : holeFields()) hole.*field.value = " ";
    return hole;
}

const HoleField& fieldNamed(std::string_view name) {
    for (const HoleField& field : holeFields()) {
        if (field.name == name) return field;
    }
    throw std::out_of_range(std::string(name));
}

TEST(HoleFields, AreRefusedWhenTheRunFileWouldCutThem) {
    struct Row {
        const char* field;
        std::string text;
        const char* problem;
    };
    const std::vector<Row> rows{
        {"holeid", "BH/7", R"(A name cannot hold any of / \ : * ? " < > |)"},
        {"holeid", " ", ""},
        {"holeid", "BH 7", ""},
        {"holeid", std::string(21, 'x'), "The run file has room for 20 characters; shorten by 1."},
        {"company", std::string(30, 'x'), ""},
        {"company", std::string(32, 'x'), "The run file has room for 30 characters; shorten by 2."},
        {"company", "Zürich", ""},
        {"company", "Łódź?", "The run file keeps Western European letters only."},
        {"casingdepth", std::string(36, '1'), ""},
        {"casingdepth", std::string(37, '1'),
         "Depth, diameter and thickness of the casing do not fit into the run file together; shorten by 1."},
    };
    for (const Row& row : rows) {
        HoleDetails hole = blank();
        const HoleField& field = fieldNamed(row.field);
        hole.*field.value = row.text;
        EXPECT_EQ(holeFieldProblem(field, hole), row.problem) << row.field << " " << row.text;
    }
}

TEST(HoleFields, WhatIsNotRefusedComesBackFromTheRunFile) {
    HoleDetails hole = blank();
    int number = 0;
    for (const HoleField& field : holeFields()) hole.*field.value = "v" + std::to_string(++number);
    RunHeader header;
    header.hole = hole;
    header.channels.resize(1);
    header.channels.front().name = "Speed";
    const Bytes bytes = encodeRunHeader(header);
    const HoleDetails read = decodeRunHeader(bytes, bytes.size(), "x.kvx").header.hole;
    EXPECT_EQ(number, 17);
    for (const HoleField& field : holeFields()) {
        EXPECT_EQ(holeFieldProblem(field, hole), "") << field.name;
        EXPECT_EQ(read.*field.value, hole.*field.value) << field.name;
    }
}

TEST(HoleFields, TheNextHoleKeepsTheSite) {
    HoleDetails hole = blank();
    hole.company = "Acme";
    hole.fluidLevel = "12";
    const HoleDetails next = nextHole(hole);
    EXPECT_EQ(next.company, "Acme");
    EXPECT_EQ(next.fluidLevel, " ");
    EXPECT_EQ(storedHoleText("  "), " ");
    EXPECT_EQ(storedHoleText(" BH 7 "), "BH 7");
}

} // namespace
