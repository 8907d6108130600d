#pragma once
// A loaded crusade on the edit screen, for the card, code and search tests.
#include <gtest/gtest.h>

#include <algorithm>

#include "edit/EditForm.h"
#include "store/Records.h"
#include "support/TestCrusade.h"

class CardCrusade : public ::testing::Test {
protected:
    // Record n holds People[n-1]; the alphabetical list puts them in name order.
    static constexpr const char* People[][3] = {
        {"0012", "Ann", "Baker"}, {"0100", "Bob", "Bell"},   {"0101", "Cy", "Adams"},  {"0102", "Di", "Cole"},
        {"0103", "Ed", "Brown"},  {"0104", "Flo", "Burke"}, {"0105", "Gus", "Cruz"}, {"0106", "Hal", "Avery"},
    };
    static std::vector<MasterRecord> Eight() {
        std::vector<MasterRecord> recs;
        for (const auto& person : People) recs.push_back(MakePerson(person[0], person[1], person[2]));
        return recs;
    }
    // No information file is written: numbers are set as a new one gives them, downwards from 9999.
    explicit CardCrusade(const std::vector<MasterRecord>& people = Eight()) : e(c.ShowOnEditScreen(people)) {
        p.LastRNum = 9999;
        p.NumberDirection = "DOWN";
    }

    TestCrusade c;
    EditForm& e;
    Program& p = c.p;

    // Sounds go out as their wave files: S01 the laser, S02 the clunk, S03 the car brake.
    bool Played(const std::string& file) const {
        return std::ranges::any_of(c.host.sounds, [&](const std::string& s) { return s.ends_with(file); });
    }
    void StartAdding(const std::string& meeting = "1") {
        c.host.ExpectInput("Enter the Meeting Number", meeting);
        e.mnuAddRecords_Click();
    }
};
