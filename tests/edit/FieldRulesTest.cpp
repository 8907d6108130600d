#include <gtest/gtest.h>

#include "edit/FieldRules.h"

namespace {
struct Case { std::string in, out; };
}  // namespace

TEST(FieldRules, AddressSteps) {
    const Case cases[] = {
        {"12 Main St.", "12 Main St"},
        {"main street", "main St"},                  // the first word is not capitalised
        {"1 Long Place W", "1 Long PlW"},            // the blank after a Place is consumed
        {"Apt 3", "apt 3"},                          // no blank before it: not a word of the table
        {" Apt 3", "#3"},
        {"12 Oak Apt 2b", "12 Oak #2B"},
        {"12 oak street apt 2b", "12 Oak St #2B"},
        {"12  Main    St", "12 Main St"},
        {"100 ne 5th avenue", "100 NE 5th Ave"},
        {"5 avon road", "5 Aven Rd"},
        {"9 long wy", "9 Long Way"},
        {"1 highway 9", "1 Hwy 9"},
        {"2 high way 9", "2 Hwy 9"},
        {"3 court lane", "3 Ct Ln"},
        {"rt 2 pobox 17", "rt 2 PO Box17"},
        {"4 elm apt # 7", "4 Elm #7"},
        {"12 oak apt no5", "12 Oak #5"},
        {"12 Main #", "12 Main #"},                  // a lone number sign: the rounds end
        {"#", "#"},
        {"7 Bay Rd ##4", "7 Bay Rd #4"},
        {"", "Address Unknown"},
        {"   ", "Address Unknown"},
    };
    for (const Case& c : cases) EXPECT_EQ(c.out, CleanAddress(c.in)) << "[" << c.in << "]";
}

TEST(FieldRules, PhoneEmailStateAndZip) {
    const Case phones[] = {
        {"5551212", "555-1212"}, {"(206) 555-1212", "206-555-1212"}, {"12345", "12345"},
        {"", "Unknown"},         {"Unknown", "Unknown"},             {" 206 555 1212 ", "206-555-1212"},
        {"555-12-12", "555-1212"},
    };
    for (const Case& c : phones) EXPECT_EQ(c.out, CleanPhone(c.in)) << c.in;
    EXPECT_EQ("mary@example.com", CleanEmail("mary at example.com"));
    EXPECT_EQ("a@b.org at home", CleanEmail("a at b.org at home"));
    EXPECT_EQ("BC", CleanState("b.c"));
    EXPECT_EQ("IL", CleanState(" il "));
    const Case zips[] = {{"k1a0b1", "K1A 0B1"}, {"K1A 0B1", "K1A 0B1"}, {"nozip", "NoZip"}, {"ab", "AB"}};
    for (const Case& c : zips) EXPECT_EQ(c.out, CanadianZip(c.in)) << c.in;
    EXPECT_EQ("Unknown", Capitalize(""));
    EXPECT_EQ("O'neil", Capitalize("o'neil"));
}

TEST(FieldRules, AgeTeamAndNumber) {
    std::array<std::string, 8> groups = {"NIF", "10-19", "20-29", "30-39", "40-49", "50-59", "60-69", "70+"};
    struct AgeCase { std::string in; AgeResult result; std::string out; };
    const AgeCase ages[] = {
        {"3", AgeResult::Group, "30-39"},     {"", AgeResult::Group, "NIF"},
        {"0", AgeResult::Group, "NIF"},       {"9", AgeResult::Group, "70+"},
        {"NIF", AgeResult::LeftAlone, ""},    {"30-39", AgeResult::LeftAlone, ""},
        {"x", AgeResult::NotANumber, ""},     {"-", AgeResult::NotANumber, ""},
    };
    for (const AgeCase& c : ages) {
        std::string out;
        EXPECT_EQ(c.result, CleanAge(c.in, groups, out)) << c.in;
        EXPECT_EQ(c.out, out) << c.in;
    }
    struct Team { std::string in; bool ok; std::string out; };
    const Team teams[] = {{"", true, "00"},  {"7", true, "07"},   {"07", true, "07"}, {"40", true, "40"},
                          {" 5 ", true, "05"}, {"41", false, ""}, {"400", false, ""}, {"x", false, ""},
                          {"##", false, ""}, {"-1", false, ""}};
    for (const Team& c : teams) {
        std::string out;
        EXPECT_EQ(c.ok, CleanTeamCode(c.in, out)) << c.in;
        EXPECT_EQ(c.out, out) << c.in;
    }
    std::string n;
    EXPECT_TRUE(CleanRegNumber("12", n));
    EXPECT_EQ("0012", n);
    EXPECT_FALSE(CleanRegNumber("12a", n));
    EXPECT_FALSE(CleanRegNumber("1e3", n));
}

TEST(FieldRules, Churches) {
    const Case cases[] = {
        {"Seventh-day Adventist", "SDA"},    {"church of christ", "ChChrist"},
        {"Church of God", "ChGod"},          {"church of god 7th day", "CG7th Day"},
        {"Seventh Day Church of God", "CG7th Day"}, {"none specified", "UnSpecified"},
        {"None", "NoChurch"},                {"non denominational", "NoDenomination"},
        {"No Denomination", "NoDenomination"}, {"assembly", "Pentecostal"},
        {"Assemblies of God", "Pentecostal"}, {"United Apostolic", "Pentecostal"},
        {"four square", "Pentacostal"},      {"Mormon", "LDS"},
        {"Baptist", "Baptist"},              {"Church of God of Prophecy", "Church of God of Prophecy"},
    };
    for (const Case& c : cases) EXPECT_EQ(c.out, CleanReligion(c.in)) << c.in;
}

TEST(FieldRules, BaptismDateSteps) {
    struct Step { std::string in; int days; std::string out; };
    const Step steps[] = {
        {"05/23/09", 1, "05/24/09"}, {"02/27/09", 1, "03/01/09"}, {"12/31/09", 1, "01/01/09"},
        {"01/01/09", -1, "12/31/09"}, {"03/01/09", -1, "02/27/09"}, {"5/3/09", 1, "05/04/09"},
        {"09/30/09", 1, "10/01/09"}, {"10/01/09", -1, "09/30/09"},
    };
    for (const Step& s : steps) {
        std::string out;
        ASSERT_TRUE(StepDate(s.in, s.days, out)) << s.in;
        EXPECT_EQ(s.out, out) << s.in << " " << s.days;
    }
    std::string out;
    EXPECT_FALSE(StepDate("", 1, out));
    EXPECT_FALSE(StepDate("ab/cd/ef", 1, out));
    EXPECT_FALSE(StepDate("13/01/09", 1, out));
    EXPECT_EQ("05/03/09", PadDate("5/3/09"));
    EXPECT_EQ("12/03/09", PadDate("12/3/09"));
    EXPECT_EQ("12/13/09", PadDate("12/13/09"));
}
