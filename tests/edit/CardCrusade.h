#pragma once
// A loaded crusade on the edit screen, for the card, code and search tests.
#include <gtest/gtest.h>

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
    explicit CardCrusade(const std::vector<MasterRecord>& people = Eight()) : e(c.ShowOnEditScreen(people)) {}

    TestCrusade c;
    EditForm& e;
    Program& p = c.p;

    // Sounds go out as their wave files.
    bool Played(const std::string& name) const {
        const std::string file = name == "clunk" ? "/S02.wav" : name == "laser" ? "/S01.wav"
                                 : name == "carbrake" ? "/S03.wav" : name == "chimes" ? "chimes.wav" : name;
        for (const std::string& s : c.host.sounds)
            if (s.size() >= file.size() && s.compare(s.size() - file.size(), file.size(), file) == 0) return true;
        return false;
    }
    void StartAdding(const std::string& meeting = "1") {
        c.host.ExpectInput("Enter the Meeting Number", meeting);
        e.mnuAddRecords_Click();
    }
};
