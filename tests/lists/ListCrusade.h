#pragma once
// A hand-made crusade of nine records for the list tests: seven people, one
// deleted, one deleted and skipped. Meeting 10 is the last; the cut-off is 2.
#include <string>
#include <vector>

#include "support/TestCrusade.h"

struct Person {
    const char *rnum, *first, *last, *address, *zip, *age, *adv, *rel, *level, *visits, *team, *notes, *attendance;
    short mail; const char* decisions; short cls; const char *map, *bapt; short flag, mark;
};

inline std::vector<Person> ListPeople() {
    return {
        {"0101", "Ann", "Lee", "12 Oak St", "62701", "30-39", "NMRTPOI", "Baptist", "A", "h09", "01", "",
         "1234567890", -1, "C--------", 0, "M1", "", 0, 0},
        {"0102", "Bob", "Lee", "12 Oak St", "62701", "40-49", ".......", "SDA", "G", "", "02", "deaf", "--3-----9-", 0,
         "C---B---U", 1, "", "3/4/26", 1, -1},
        {"0103", "Cy", "Adams", "12 OAK ST", "62702", "20-29", "....P.I", "Mormon", "D", "A24", "01", "",
         "12-------0", -1, "-S-------", 1, "", "", 0, 0},
        {"0104", "Di", "Cole", "Address Unknown", "62701", "NIF", "N......", "Catholic", "B", "h01h02h03h09", "00", "",
         "-------8S0", -1, "---------", 0, "", "", 0, 0},
        {"0105", "Ed", "Brown", "9 Elm Ave", "10001", "50-59", ".......", "", " ", "", "03", "", "------7---", -1,
         "---------", 0, "", "", 0, 0},
        {"0106", "Flo", "Burke", "9 Elm Ave", "10001", "60-70", ".......", "Baptist", "E", "", "03", "", "-----6----",
         -1, "---------", 0, "", "12/25/26", 0, 0},
        {"0107", "Gus", "Cruz", "1 Main St", "62701", "30-39", ".......", "Baptist", "A", "", "##", "", "1---------",
         -1, "---------", 0, "", "", 0, 0},
        {"skip", "Hal", "Avery", "1 Main St", "62701", "30-39", ".......", "Baptist", "A", "", "##", "",
         "1---------", -1, "---------", 0, "", "", 0, 0},
        {"0090", "Ann", "Lee", "40 Pine Rd", "62701", "30-39", ".......", "Baptist", "C", "h01A13", "02", "call",
         "12--------", -1, "---------", 1, "", "", 0, 0},
    };
}

inline std::vector<MasterRecord> ListRecords(const std::vector<Person>& people = ListPeople()) {
    std::vector<MasterRecord> recs;
    for (const Person& s : people) {
        MasterRecord& r = recs.emplace_back(MakePerson(s.rnum, s.first, s.last, s.attendance));
        r.Address = s.address, r.Zip = s.zip, r.Age = s.age, r.Advertising = s.adv, r.RelPref = s.rel;
        r.IntLevel = s.level, r.Visits = s.visits, r.WorkerCode = s.team, r.Notes = s.notes, r.MailList = s.mail;
        r.Decisions = s.decisions, r.Class = s.cls, r.MapCode = s.map, r.BaptDate = s.bapt, r.IntFlag = s.flag, r.MarkToVisit = s.mark;
    }
    return recs;
}

struct ListCrusade {
    TestCrusade c;
    explicit ListCrusade(const std::vector<Person>& people = ListPeople()) {
        c.WriteRecords(ListRecords(people));
        c.Open();
        c.p.PrintCutOff = 2;
    }
    ~ListCrusade() { c.host.Verify(); }
    // Entries 1 to IndexCount with each run of blanks written as one "_".
    std::vector<std::string> Squeezed() const {
        std::vector<std::string> out;
        for (int i = 1; i <= c.p.IndexCount; ++i) {
            std::string s;
            for (char ch : c.p.SortIndex[i])
                if (ch != ' ') s += ch;
                else if (s.empty() || s.back() != '_') s += '_';
            out.push_back(s);
        }
        return out;
    }
};
