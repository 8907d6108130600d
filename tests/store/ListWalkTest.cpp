// The list routines below the screens: each says what happened and no form is touched.
#include <gtest/gtest.h>

#include "platform/vb/Strings.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

namespace {
std::vector<MasterRecord> ThreePeople() {
    return {MakePerson("9998", "A", "Able"), MakePerson("9997", "B", "Baker"), MakePerson("9996", "C", "Cole")};
}
}  // namespace

TEST(ListWalk, StepsFetchesAndDropsOnTheStateAlone) {
    TestCrusade c;
    ProgramState& s = c.p;
    c.WriteRecords(ThreePeople());
    OpenRecordFile(s);
    ASSERT_TRUE(FullLoad(s).ran);
    s.SoundOn = true;

    struct Row { int from, kind, to; bool clunk; const char* last; };
    for (const Row& r : {Row{2, 0, 1, false, "Able"}, Row{1, 1, 1, true, "Able"}, Row{3, 1, 2, false, "Baker"},
                         Row{3, 2, 3, true, "Cole"}, Row{1, 2, 2, false, "Baker"}, Row{1, 3, 3, false, "Cole"},
                         Row{2, 9, 2, false, "Baker"}}) {
        s.CurrentIndex = r.from;
        s.MasterRec.LName = "";   // a refused step still reads the record again
        c.host.sounds.clear();
        EXPECT_EQ(Fetched::Record, GoRecord(s, r.kind)) << r.from << " " << r.kind;
        EXPECT_EQ(std::make_tuple(r.to, r.clunk, std::string(r.last)),
                  std::make_tuple(s.CurrentIndex, !c.host.sounds.empty(), vb::Trim(s.MasterRec.LName)))
            << r.from << " " << r.kind;
    }

    // An entry pointing nowhere is reported; an empty list is left to the caller's add mode.
    s.SortIndex[2] = "9997BAKERB    0";
    s.CurrentIndex = 2;
    c.host.ExpectBox("Record Number = 0");
    EXPECT_EQ(Fetched::Fault, FetchCurrentRecord(s));
    s.Loaded = true;
    s.CurrentIndex = 0;
    EXPECT_EQ(Fetched::EmptyList, FetchCurrentRecord(s));
    EXPECT_FALSE(s.Loaded);

    // Dropping an entry: the next becomes current, or the one before at the end.
    struct Drop { int at; int current; int count; };
    for (const Drop& d : {Drop{1, 1, 2}, Drop{2, 1, 1}, Drop{5, 5, 1}}) {
        s.CurrentIndex = d.at;
        DropCurrentEntry(s);
        EXPECT_EQ(std::make_tuple(d.current, d.count, static_cast<std::size_t>(d.count) + 1),
                  std::make_tuple(s.CurrentIndex, s.IndexCount, s.SortIndex.size()))
            << d.at;
    }
    EXPECT_FALSE(c.p.EditLoaded());
}

TEST(ListWalk, TheLoadPassSaysWhatTheScreenIsToDo) {
    struct Row {
        const char* what;
        bool loadedBefore;
        int people;
        bool junk;
        bool ran, show;
        Fetched fetched;
        bool loadedAfter;
    };
    for (const Row& r : {Row{"first load", false, 3, false, true, false, Fetched::Fault, false},
                         Row{"fix files", true, 3, false, true, true, Fetched::Record, true},
                         Row{"nobody yet", true, 0, false, true, true, Fetched::EmptyList, false},
                         Row{"not a crusade", true, 0, true, false, false, Fetched::Fault, false}}) {
        TestCrusade c;
        ProgramState& s = c.p;
        std::vector<MasterRecord> people = ThreePeople();
        people.resize(static_cast<std::size_t>(r.people));
        c.WriteRecords(people);
        if (r.junk) {
            c.WriteFile(c.dataFile, std::string(MasterRecord::Length * 3, '\x01'));
            c.host.ExpectBox("is not a crusade's record file");
        }
        s.Loaded = r.loadedBefore;
        OpenRecordFile(s);
        const LoadOutcome got = FullLoad(s);
        EXPECT_EQ(std::make_tuple(r.ran, r.show), std::make_tuple(got.ran, got.show)) << r.what;
        if (r.show) {
            EXPECT_EQ(r.fetched, got.fetched) << r.what;
        }
        if (r.fetched == Fetched::Record) {
            EXPECT_EQ("Able", vb::Trim(s.MasterRec.LName)) << r.what;
        }
        EXPECT_EQ(std::make_tuple(r.loadedAfter, r.ran), std::make_tuple(s.Loaded, s.File1.IsOpen())) << r.what;
        EXPECT_FALSE(c.p.EditLoaded()) << r.what;
    }
}
