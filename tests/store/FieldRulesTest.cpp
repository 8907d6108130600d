#include <gtest/gtest.h>

#include "store/FieldRules.h"

TEST(FieldRules, TextBoxesAreCleanedOnLeaving) {
    using Rule = std::string (*)(const std::string&);
    struct Case { Rule rule; std::vector<std::pair<std::string, std::string>> cases; };
    const Case rules[] = {
        {CleanAddress, {{"12 Main St.", "12 Main St"},
          {"main street", "main St"},                         // the first word is not capitalised
          {"1 Long Place W", "1 Long PlW"},                   // the blank after a Place is consumed
          {"Apt 3", "apt 3"},                                 // no blank before it: not a word of the table
          {" Apt 3", "#3"}, {"12  Main    St", "12 Main St"}, {"100 ne 5th avenue", "100 NE 5th Ave"},
          {"5 avon road", "5 Aven Rd"}, {"9 long wy", "9 Long Way"}, {"1 highway 9", "1 Hwy 9"},
          {"2 high way 9", "2 Hwy 9"}, {"3 court lane", "3 Ct Ln"}, {"rt 2 pobox 17", "rt 2 PO Box17"},
          {"12 oak apt no5", "12 Oak #5"},
          {"12 Main #", "12 Main #"},                         // a lone number sign: the rounds end
          {"#", "#"}, {"7 Bay Rd ##4", "7 Bay Rd #4"}, {"   ", "Address Unknown"}}},
        {CleanPhone, {{"5551212", "555-1212"}, {"12345", "12345"}, {"", "Unknown"}, {"Unknown", "Unknown"},
          {" 206 555 1212 ", "206-555-1212"}, {"555-12-12", "555-1212"}}},
        {CleanEmail, {{"a at b.org at home", "a@b.org at home"}}},
        {CleanState, {{"b.c", "BC"}, {" il ", "IL"}}},
        {CanadianZip, {{"k1a0b1", "K1A 0B1"}, {"K1A 0B1", "K1A 0B1"}, {"nozip", "NoZip"}, {"ab", "AB"}}},
        {Capitalize, {{"", "Unknown"}}},
        {CleanReligion, {{"Seventh-day Adventist", "SDA"}, {"church of christ", "ChChrist"},
          {"Church of God", "ChGod"}, {"church of god 7th day", "CG7th Day"},
          {"Seventh Day Church of God", "CG7th Day"}, {"none specified", "UnSpecified"}, {"None", "NoChurch"},
          {"non denominational", "NoDenomination"}, {"No Denomination", "NoDenomination"},
          {"assembly", "Pentecostal"}, {"Assemblies of God", "Pentecostal"}, {"United Apostolic", "Pentecostal"},
          {"four square", "Pentacostal"}, {"Mormon", "LDS"}, {"Baptist", "Baptist"},
          {"Church of God of Prophecy", "Church of God of Prophecy"}}},
        {PadDate, {{"12/3/09", "12/03/09"}, {"12/13/09", "12/13/09"}}},
    };
    for (const Case& r : rules)
        for (const auto& [in, out] : r.cases) EXPECT_EQ(out, r.rule(in)) << "[" << in << "]";
}

TEST(FieldRules, AgeTeamAndNumber) {
    std::array<std::string, 8> groups = {"NIF", "10-19", "20-29", "30-39", "40-49", "50-59", "60-69", "70+"};
    struct AgeCase { std::string in; AgeResult result; std::string out; };
    const AgeCase ages[] = {
        {"", AgeResult::Group, "NIF"},     {"0", AgeResult::Group, "NIF"},       {"9", AgeResult::Group, "70+"},
        {"NIF", AgeResult::LeftAlone, ""}, {"30-39", AgeResult::LeftAlone, ""}, {"x", AgeResult::NotANumber, ""},
        {"-", AgeResult::NotANumber, ""},
    };
    for (const AgeCase& c : ages) {
        std::string out;
        EXPECT_EQ(c.result, CleanAge(c.in, groups, out)) << c.in;
        EXPECT_EQ(c.out, out) << c.in;
    }
    using Rule = bool (*)(const std::string&, std::string&);
    struct Case { Rule rule; std::string in; bool ok; std::string out; };
    const Case cases[] = {
        {CleanTeamCode, "", true, "00"},   {CleanTeamCode, "07", true, "07"}, {CleanTeamCode, "40", true, "40"},
        {CleanTeamCode, " 5 ", true, "05"}, {CleanTeamCode, "400", false, ""}, {CleanTeamCode, "x", false, ""},
        {CleanTeamCode, "##", false, ""},  {CleanTeamCode, "-1", false, ""},  {CleanRegNumber, "1e3", false, ""},
    };
    for (const Case& c : cases) {
        std::string out;
        EXPECT_EQ(c.ok, c.rule(c.in, out)) << c.in;
        EXPECT_EQ(c.out, out) << c.in;
    }
}

TEST(FieldRules, BaptismDateSteps) {
    struct Step { std::string in; int days; std::string out; };
    const Step steps[] = {
        {"05/23/09", 1, "05/24/09"}, {"02/27/09", 1, "03/01/09"}, {"12/31/09", 1, "01/01/09"},
        {"01/01/09", -1, "12/31/09"}, {"03/01/09", -1, "02/27/09"},
        {"09/30/09", 1, "10/01/09"}, {"10/01/09", -1, "09/30/09"},
        {"", 1, ""}, {"ab/cd/ef", 1, ""}, {"13/01/09", 1, ""},   // no date: no step
    };
    for (const Step& s : steps) {
        std::string out;
        EXPECT_EQ(!s.out.empty(), StepDate(s.in, s.days, out)) << s.in;
        if (!s.out.empty()) {
            EXPECT_EQ(s.out, out) << s.in << " " << s.days;
        }
    }
}
